// What a window does for a pass that the user may end while it computes. Beside core/Services.h: a program without
// a window has none of it, and such a pass then runs as any other.
#pragma once

#include <functional>

#include "core/Etat.h"

namespace ovelin {

struct PasseInterruptible {
  std::function<void()> noyau;   // over copies, on a thread of its own; it touches nothing of the document
  std::function<void()> pouls;   // on the caller's thread meanwhile, every few milliseconds
  std::function<void()> arrete;  // the kernel is to end soon
  bool seule = false;            // what the user does in the meantime comes behind it, all but Escape
  bool sansFleches = false;      // an arrow key does in any case
};

struct ServicesPasse {
  // Runs the kernel to its end beside a live window. What the user does in a field of the tool, and an arrow key,
  // is done at once, and Escape ends it; the rest of his input is held back. True: by Escape. Empty where nobody
  // offers it.
  std::function<bool(const PasseInterruptible& passe)> Jusque;
  // Runs a reading to its end beside a live window, where all can still be as it was before. Escape ends it, the
  // rest of the user's input is held back. True: by Escape; what has been read is then worth nothing. Empty where
  // nobody offers it.
  std::function<bool(const std::function<void()>& noyau, const std::function<void()>& arrete)> Lit;
  // Nothing is at work that it would be a part of: an opening that has begun, another pass.
  std::function<bool()> SePeut = [] { return true; };
  // The drawing has changed and its tool path is being computed: the picture shows it at once, without any path. No
  // step of undo.
  std::function<void()> MontreSansTrajet = [] {};
  // That change was taken back: picture and fields show again what is in force. No step of undo.
  std::function<void()> ChangementRepris = [] {};
};
inline ServicesPasse SvcPasse;
[[maybe_unused]] inline const bool ServicesPasseEnregistres = EnregistreRemise([] { SvcPasse = ServicesPasse{}; });

}  // namespace ovelin
