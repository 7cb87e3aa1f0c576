// The fill of a closed path.
#pragma once

#include <vector>

#include "closed/pathwerk/decalage/Pieces.h"

namespace pathwerk::poche {

using decalage::Piece;
using decalage::Source;

// Rings over the inside of a closed path, see Poche.cpp. `distance`: radius of the cutter, mm, its sign the sense
// of travel; `recouvrement` in per cent. Empty: there is no room, or no memory.
std::vector<Piece> RemplitPoche(const Source& source, double distance, int recouvrement, double tolerance);

}  // namespace pathwerk::poche
