#pragma once

#include <vector>

#include "core/Types.h"

namespace ovelin {

// One path through the library's clean-up, tolerance in mm. The points keep the code of the path, whatever the
// library leaves in `Seq`.
void NettoieChemin(std::vector<PointTrace>& chemin, float resolution);

}  // namespace ovelin
