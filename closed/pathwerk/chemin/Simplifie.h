// Thinning of a path within a tolerance.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "closed/Pathwerk.h"
#include "closed/pathwerk/commun/Lieux.h"

namespace pathwerk::chemin {

// Indices of the points that stay, ascending. The first point, the last and every i with garde[i] != 0 stay; every
// point left out lies within `tolerance` (mm, > 0) of the kept line. A closed path comes with its closing point
// (`points.back() == points.front()`): if it has three distinct points it keeps three, however small it is.
std::vector<std::size_t> Simplifie(std::span<const Vec2> points, std::span<const std::uint8_t> garde,
                                   double tolerance);

// The same for the places of records, seen from `centre`, without a copy of them. `gardes`: the places of those
// that stay in any case, ascending.
std::vector<std::size_t> Simplifie(std::span<const PointTrace> points, Vec2 centre,
                                   std::span<const std::size_t> gardes, double tolerance);

}  // namespace pathwerk::chemin
