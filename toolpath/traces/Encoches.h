// The geometry of notches on one trace. Values in, values out; mm.
#pragma once

#include <cstddef>
#include <vector>

#include "core/Types.h"

namespace ovelin {

// Opens a notch of radius t at each mark "PC" that lies farther than t from both ends of its piece. A piece is a
// run of equal `Seq`; a notch never leaves it. The result is what it cost: segments, and blocks of points, that
// have been looked at.
std::size_t OuvreEncoches(std::vector<PointTrace>& points, double t);

// Intersections of the segment A-B with the circle of centre C and radius r: 0 none, 1 P1 lies on the segment, 2
// P2, 3 both. P1 and P2 are those of the whole line, untouched when it misses the circle or A and B are one place.
int InterCercleSegment(const PointTrace& a, const PointTrace& b, const PointTrace& c, double r, PointTrace& p1,
                       PointTrace& p2);

}  // namespace ovelin
