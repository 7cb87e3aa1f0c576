// The kinds of offset, on prepared paths.
#pragma once

#include <vector>

#include "closed/pathwerk/decalage/Pieces.h"

namespace pathwerk::decalage {

// Parallel curve of a closed path, mm, left positive; loops of a path that crosses itself each keep their own side.
// Empty: there is no room, or no memory.
std::vector<Piece> DecaleFerme(const Source& source, double distance, double tolerance);

// One-sided parallel curve of an open path: begins and ends square to the first and last segment, outer corners
// rounded, no point nearer than |distance| to any place of the path; pieces in the order of the path.
std::vector<Piece> DecaleOuvert(const Source& source, double distance, double tolerance);

}  // namespace pathwerk::decalage
