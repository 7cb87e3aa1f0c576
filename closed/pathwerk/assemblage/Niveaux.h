// Which contour lies in which, and the order of cutting that follows.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "base/Indices.h"
#include "closed/pathwerk/assemblage/CheminsAssembles.h"

namespace pathwerk::assemblage {

// For each path the index of the smallest contour around it, or `SansParent`. `marge` in mm: a path that sticks
// out of a contour by less is still inside.
inline constexpr std::size_t SansParent = base::Nulle;
std::vector<std::size_t> Parents(const CheminsAssembles& assembles, double marge);

// Indices of all paths, each contour behind everything that it contains, otherwise in the given order.
std::vector<std::size_t> OrdreDeCoupe(std::span<const std::size_t> parents);

}  // namespace pathwerk::assemblage
