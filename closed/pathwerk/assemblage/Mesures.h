// What the steps of the assembly ask of a path: its box, its area, and a number to know it by.
#pragma once

#include "closed/pathwerk/assemblage/CheminsAssembles.h"

namespace pathwerk::assemblage {

// Of one path, whose points and nature stand.
void MesureChemin(CheminAssemble& chemin, std::span<const PointF> points);
// Of all paths.
void MesureChemins(CheminsAssembles& assembles, unsigned fils);

}  // namespace pathwerk::assemblage
