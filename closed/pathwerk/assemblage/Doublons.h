// Paths that repeat an earlier one point by point.
#pragma once

#include <vector>

#include "closed/pathwerk/assemblage/CheminsAssembles.h"

namespace pathwerk::assemblage {

// Marks every path that repeats an earlier one: the same points forwards or backwards, a closed one from any start.
// Returns the number of them; `garde[i]` is 0 for those.
long MarqueDoublons(const CheminsAssembles& assembles, std::vector<char>& garde);

}  // namespace pathwerk::assemblage
