// Curves as chords.
#pragma once

#include <vector>

#include "closed/pathwerk/commun/Point.h"

namespace pathwerk {

// Chords of a circular arc: appends the points behind the start, the end point included. `fleche` is the greatest
// distance between chord and arc, mm. `balayage` in radians, positive counter-clockwise.
void AjouteArc(std::vector<Vec2>& points, Vec2 centre, double rayon, double angleDebut, double balayage,
               double fleche);
// Chords of a cubic Bezier curve from the last point of `points` (its start).
void AjouteBezier(std::vector<Vec2>& points, Vec2 p1, Vec2 p2, Vec2 p3, double fleche);

}  // namespace pathwerk
