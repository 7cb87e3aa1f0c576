// Offset of an open path.
#pragma once

#include <vector>

#include "closed/pathwerk/decalage/Pieces.h"

namespace pathwerk::decalage {

// One-sided parallel curve of an open path: begins and ends square to the first and last segment, outer corners
// rounded, no point nearer than |distance| to any place of the path; pieces in the order of the path.
std::vector<Piece> DecaleOuvert(const Source& source, double distance, double tolerance);

}  // namespace pathwerk::decalage
