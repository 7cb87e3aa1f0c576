// From the paths of a format to the records of a drawing.
#pragma once

#include <cstdint>
#include <vector>

#include "closed/Pathwerk.h"
#include "closed/pathwerk/lecture/Lecture.h"

namespace pathwerk::assemblage {

// Joins loose ends, drops exact duplicates, turns and orders contours by their nesting, gives codes.
// Returns the number of points or a negative `Erreur` (also left in `lecture.rapport`).
std::int32_t Assemble(lecture::Lecture& lecture, const OptionsLecture& options, std::vector<PointTrace>& points);

}  // namespace pathwerk::assemblage
