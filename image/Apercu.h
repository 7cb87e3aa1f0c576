// The small picture of the dimension window.
#pragma once

#include <vector>

#include "core/Types.h"
#include "image/Scene.h"
#include "image/Vue.h"

namespace ovelin {

// Of more than 1000 points each k-th, k the rounded thousandth of their number, and the two ends of each path.
std::vector<PointTrace> PointsApercu(const std::vector<PointTrace>& points);
// The points times the two ratios, fitted into the picture. `scene` is replaced.
void ConstruitApercu(const std::vector<PointTrace>& points, double rapportX, double rapportY,
                     const TailleImage& taille, Scene& scene);

}  // namespace ovelin
