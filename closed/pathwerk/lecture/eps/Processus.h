// Runs Ghostscript over a drawing as a process of its own, with everything limited.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "closed/pathwerk/lecture/Lecture.h"
#include "closed/pathwerk/lecture/processus/Outil.h"

namespace pathwerk::lecture::eps {

struct EpsMoyens : processus::MoyensOutil {
  EpsMoyens() { programme = "gs"; }
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
