// Slanting lines in an outline.
#pragma once

#include <span>
#include <vector>

#include "image/Scene.h"
#include "image/Vue.h"

namespace ovelin {

// Stretches of the lines x + y = k * pas that lie inside the outline (even-odd, its last point leads back to the
// first), two points each; only lines that cross the picture.
std::vector<PointEcran> Hachures(std::span<const PointEcran> bord, const TailleImage& taille, float pas);

}  // namespace ovelin
