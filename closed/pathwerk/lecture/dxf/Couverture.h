// Which paths are drawn a second time by others.
#pragma once

#include <cstddef>
#include <vector>

#include "closed/pathwerk/lecture/Lecture.h"

namespace pathwerk::lecture::dxf {

// What a point of a path in question takes while it is looked for, bytes.
inline constexpr std::size_t OctetsParPointCouvert = 128;

// For each path of `rangs` (rising places in `traits`): 1 when all of it lies within `tolerance` of the other paths
// that are not in `rangs`. Time: proportional to the points of all, but for the logarithm.
std::vector<char> TraitsCouverts(const std::vector<Trait>& traits, const std::vector<std::size_t>& rangs,
                                 double tolerance);

}  // namespace pathwerk::lecture::dxf
