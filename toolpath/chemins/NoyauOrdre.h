// The kernel of the order: where closed paths start. Values in, values out.
#pragma once

#include <cstddef>
#include <functional>
#include <vector>

#include "core/Types.h"
#include "toolpath/chemins/Etendues.h"

namespace ovelin {

// Makes the point at `choisi` the first of a closed run; the closing point becomes a copy of it. The closing point
// itself stands where the first does: then it alone is made anew. False when the run is open, the point is its
// first one already, or it lies outside.
bool TourneDepart(std::vector<PointTrace>& points, const Etendue& run, std::size_t choisi);

// From the machine's origin on, each path starts where it is nearest to the start of the one before. The position
// goes on from the chosen point, on open paths as well, which keep their start. A code that stands in several runs
// has its turn at each of them. `tournee` is called for each path whose start has moved.
void ChoisitDeparts(std::vector<PointTrace>& points, const std::function<void()>& tournee);

// A mark of a notch, or a point inside one: a new start makes them wrong.
bool EstEncoche(const PointTrace& p);
bool PorteEncoches(std::span<const PointTrace> points);
// They become ordinary points.
void OublieEncoches(std::span<PointTrace> points);

}  // namespace ovelin
