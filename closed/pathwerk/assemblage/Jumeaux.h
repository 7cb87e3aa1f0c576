// Paths that lie along an earlier one, whatever their points.
#pragma once

#include <vector>

#include "closed/pathwerk/assemblage/CheminsAssembles.h"

namespace pathwerk::assemblage {

// Marks, in a `garde` that is filled (0 for those, as MarqueDoublons leaves it), every path that lies over its
// whole length within `ecart` mm of an earlier path of its nature, and that earlier one within `ecart` of the path.
// Crumbs of no more than four times that size are left alone, but for holes: the pieces of a finely cut line lie as
// near to each other as its doubles do.
long MarqueJumeaux(const CheminsAssembles& assembles, double ecart, std::vector<char>& garde, unsigned fils);

}  // namespace pathwerk::assemblage
