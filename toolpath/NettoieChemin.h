// The kernel of the clean-up. Values in, values out.
#pragma once

#include <span>
#include <vector>

#include "core/Types.h"

namespace ovelin {

// One path through the library's clean-up, tolerance in mm. The points keep the code of the path, whatever the
// library leaves in `Seq`.
void NettoieChemin(std::vector<PointTrace>& chemin, float resolution);
// All paths of a drawing, one by one.
std::vector<PointTrace> NettoiePoints(std::span<const PointTrace> points, float resolution);

}  // namespace ovelin
