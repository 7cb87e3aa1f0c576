// The table of moves in force, and its members under their own names. For shells alone: a kernel takes or gives a
// table as a value and never includes this.
#pragma once

#include "core/TableDecoupe.h"

namespace ovelin {

extern EtatPlan Plan;

inline constinit auto& TableDecoupe = Plan.TableDecoupe;
inline constinit auto& NbDeplacements = Plan.NbDeplacements;
inline constinit auto& CumulX = Plan.CumulX;
inline constinit auto& CumulY = Plan.CumulY;
inline constinit auto& CumulZ = Plan.CumulZ;
inline constinit auto& PasCumulX = Plan.PasCumulX;
inline constinit auto& PasCumulY = Plan.PasCumulY;
inline constinit auto& PasCumulZ = Plan.PasCumulZ;
inline constinit auto& PassePremiere = Plan.PassePremiere;

}  // namespace ovelin
