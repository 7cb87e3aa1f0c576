// Runs Ghostscript over a drawing as a process of its own, with everything limited.
#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

#include "closed/pathwerk/lecture/Lecture.h"

namespace pathwerk::lecture::eps {

struct EpsMoyens {
  std::string programme = "gs";  // a name is looked for in the system's folders, a path is taken as it is
  std::chrono::milliseconds delai{20000};
  std::size_t volume = std::size_t{32} << 20;  // bytes of output
  std::size_t memoire = std::size_t{1} << 30;  // bytes of address space
  std::string dossier;  // where the private folder is made; empty: the system's temporary one
};

struct EpsFin {
  Erreur numero = Erreur::Aucune;  // GsAbsent, GsDelai, GsVolume, Ecriture; Aucune: the process ended by itself
  std::string detail;
  int code = 0;  // its exit code, or 128 + the signal that ended it
};

// Runs the program over `prologue` with `dessin` beside it under the name of `EpsDessin`, in an empty folder of
// its own (mode 0700) that is gone afterwards, with nothing in its environment but PATH and TMPDIR, no input, no
// messages. `recoit` gets the output as it comes; its false ends the process. `attente`, which may be empty, is
// called some twenty times a second with the share of the time that has gone.
EpsFin LanceGs(const EpsMoyens& moyens, std::string_view prologue, std::string_view dessin,
               const std::function<bool(std::string_view)>& recoit, const std::function<void(double)>& attente);

inline constexpr std::string_view EpsDessin = "dessin.ps";

}  // namespace pathwerk::lecture::eps
