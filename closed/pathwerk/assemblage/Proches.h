// Ends joined that meet, or nearly.
#pragma once

#include <span>

#include "closed/pathwerk/assemblage/Chaines.h"

namespace pathwerk::assemblage {

// Joins what it can of the ends that meet in one place: the straightest continuations first.
void RelieNoeud(Chaines& chaines, std::span<const Bout> bouts);

// Joins free ends that lie within `tolerance` (mm) of each other, the nearest first.
void RelieBoutsProches(const CheminsAssembles& assembles, Chaines& chaines, double tolerance);

}  // namespace pathwerk::assemblage
