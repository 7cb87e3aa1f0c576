// The spline through given points.
#pragma once

#include <vector>

#include "closed/pathwerk/lecture/dxf/Spline.h"

namespace pathwerk::lecture::dxf {

// The interpolating cubic through points: chord-length parameters, twice continuously differentiable. The tangents
// are those of its ends, a null vector leaves the end free of curvature. A closed one is smooth at its joint.
Spline SplineParPoints(std::vector<Vec3> points, Vec3 tangenteDebut, Vec3 tangenteFin, bool fermee);

}  // namespace pathwerk::lecture::dxf
