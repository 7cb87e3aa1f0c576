// Where the stadium around a segment, the places nearer to it than r, cuts lines and circles.
#pragma once

#include "closed/pathwerk/commun/Lieux.h"

namespace pathwerk::decalage {

// The stretch from t0 to t1 of the line t u (u of length 1) in the stadium of the segment from a to b. False: none.
bool CoupeDroite(Vec2 a, Vec2 b, Vec2 u, double r, double& t0, double& t1);

// Where the circle of the radius r around the origin, run through counter-clockwise, enters the stadium of the
// segment that begins at a and runs l mm along the unit vector v, and where it leaves it: unit vectors. The origin
// lies less than 2 r from the segment, and not on it.
void CoupeCercle(Vec2 a, Vec2 v, double l, double r, Vec2& entre, Vec2& sort);

}  // namespace pathwerk::decalage
