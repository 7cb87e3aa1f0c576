// The fill of a closed path.
#pragma once

#include <span>
#include <vector>

#include "closed/pathwerk/decalage/Pieces.h"

namespace pathwerk::poche {

using decalage::Piece;
using decalage::Source;

// Rings over the inside of a closed path, see Poche.cpp. `iles`: closed paths in the frame of the source whose
// inside stays, as of PoseIles(). `distance`: radius of the cutter, mm, its sign the sense of travel;
// `recouvrement` in per cent. Empty: there is no room, or no memory.
std::vector<Piece> RemplitPoche(const Source& source, std::span<const Chemin> iles, double distance,
                                int recouvrement, double tolerance);

}  // namespace pathwerk::poche
