// Open paths joined at their ends.
#pragma once

#include <span>

#include "closed/pathwerk/assemblage/CheminsAssembles.h"

namespace pathwerk::assemblage {

// Joins the open paths at their ends. `bouts` belongs to `assembles.chemins`, same order. `tolerance` in mm; 0
// joins equal points alone. The joined paths stand in the place of their first piece, and none is measured; false,
// and all is as it was, where no two ends meet.
bool Soude(CheminsAssembles& assembles, std::span<const Bouts> bouts, double tolerance);

}  // namespace pathwerk::assemblage
