// From the paths of a format to the records of a drawing.
#pragma once

#include <cstdint>
#include <vector>

#include "closed/Pathwerk.h"
#include "closed/pathwerk/lecture/Lecture.h"

namespace pathwerk::assemblage {

// Joins loose ends, drops exact duplicates, turns and orders contours by their nesting, gives codes.
// Returns the number of points or a negative `Erreur` (also left in `lecture.rapport`).
// `calques`, where it is wanted: for each path its place in the layers of the reading. A path that was joined of
// several lies on the layer of the first of them in the file, in whose place it stands: so each path lies on one
// layer, and each layer can be told by its paths.
std::int32_t Assemble(lecture::Lecture& lecture, const OptionsLecture& options, std::vector<PointTrace>& points,
                      std::vector<std::uint16_t>* calques = nullptr);

}  // namespace pathwerk::assemblage
