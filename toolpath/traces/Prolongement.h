// The lengthening of a trace for the drag knife.
#pragma once

#include <vector>

#include "core/Types.h"

namespace ovelin {

// Lengthens one trace: a stroke of 1 mm in the margin before it, 1 mm over its start behind it. Unchanged: open
// traces, and those without length (drilling points).
void ProlongePoints(std::vector<PointTrace>& points);

}  // namespace ovelin
