// Offset of a closed path.
#pragma once

#include <vector>

#include "closed/pathwerk/decalage/Pieces.h"

namespace pathwerk::decalage {

// Parallel curve of a closed path, mm, left positive; loops of a path that crosses itself each keep their own side.
// Empty: there is no room, or no memory.
std::vector<Piece> DecaleFerme(const Source& source, double distance, double tolerance);

}  // namespace pathwerk::decalage
