// Types and constants that every folder shares.
#pragma once

#include <cstdint>
#include <numbers>

#include "closed/Pathwerk.h"

namespace ovelin {

using pathwerk::Code2;
using pathwerk::CodeAucun;
using pathwerk::CodePC;
using pathwerk::CodePD;
using pathwerk::CodePE;
using pathwerk::CodePU;
using pathwerk::PointTrace;

// Flags in memory: 16 bits, -1 true, 0 false. The value 1 in a common property of a selection means mixed.
using Drapeau = std::int16_t;
inline constexpr Drapeau Vrai = -1;
inline constexpr Drapeau Faux = 0;
inline constexpr Drapeau Mixte = 1;
constexpr Drapeau EnDrapeau(bool b) { return b ? Vrai : Faux; }

inline constexpr double Pi = std::numbers::pi;

// The program's name, in captions, file names and the settings section.
inline constexpr const char* NomProgramme = "OVELIN";

}  // namespace ovelin
