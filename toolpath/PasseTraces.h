// A change of the drawing or of the tool with the tool path that follows from it. In a window a long one is
// computed beside it, and ends early when the next change comes or when the user takes the change back.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "base/SansCopie.h"
#include "core/Document.h"

namespace ovelin {

enum class IssuePasse : std::uint8_t {
  EnVigueur,   // the traces are those of the drawing; lists, picture and mark of a change are the caller's
  Differee,    // it came while the pass of another change was at work, which ends and computes both: nothing to do
  Abandonnee,  // the user has taken it back: drawing, tool and traces are those of before
};

// Made before anything changes; then the change; then one of the two that make the traces follow. Where the window
// offers no pass (ServicesPasse::Jusque), or the traces are there at once, those of CalculDecalage.h do it. An
// object that is left without either of the two (a refusal) has done nothing.
//
// While it computes, the document holds the changed drawing and no traces at all: nobody takes those of before for
// those of now. What comes of it is taken if the drawing is still the one that it was computed from.
class PasseTraces : base::SansCopie {
 public:
  PasseTraces();
  ~PasseTraces();

  // These paths have changed.
  IssuePasse Suit(const std::vector<Code2>& codes);
  // All of them, or the tool.
  IssuePasse SuitTout();

  // Behind any of the two: where the change is in force or comes into force with the other pass.
  static bool Faite(IssuePasse issue) { return issue != IssuePasse::Abandonnee; }

 private:
  struct Avant;
  IssuePasse Suit(std::vector<Code2> codes, bool toutes);
  IssuePasse Calcule(std::vector<Code2> codes, bool toutes);

  std::unique_ptr<Avant> avant_;  // what the user may take back; null: nothing, as the traces are there at once
};

// From this weight on (PoidsTraces) a change is computed beside the window: about a tenth of a second.
inline constexpr std::size_t SeuilPasse = 50000;

}  // namespace ovelin
