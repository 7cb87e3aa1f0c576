// Islands in the region of a fill.
#pragma once

#include <span>

#include "closed/pathwerk/decalage/Moteur.h"

namespace pathwerk::poche {

using decalage::Region;

// Takes what the islands run around out of a region. They are closed paths that don't repeat their first point, in
// the frame of the region, either way round; they may touch or cross each other, themselves and the outline, lie
// outside of it or around it.
void PoseIles(Region& region, std::span<const Chemin> iles);

}  // namespace pathwerk::poche
