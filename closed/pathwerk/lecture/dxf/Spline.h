// B-splines as chords.
#pragma once

#include <vector>

#include "closed/pathwerk/lecture/dxf/Courbes.h"
#include "closed/pathwerk/lecture/dxf/Espace.h"

namespace pathwerk::lecture::dxf {

// B-spline, rational when `poids` isn't empty.
struct Spline {
  int degre = 3;
  std::vector<double> noeuds;
  std::vector<Vec3> controle;
  std::vector<double> poids;
};

// True when the numbers fit together: degree 1 to 25, enough control points, knots that don't fall, weights > 0.
bool Valide(const Spline& s);
// Knots for a spline that came without: clamped ends, or evenly spaced for a closed one whose first control points
// are repeated at its end.
void NoeudsParDefaut(Spline& s, bool periodique);
// Chords within `fleche` of the spline seen through `m`, ends exact. False when the budget is used up.
bool AjouteSpline(std::vector<Vec2>& points, const Spline& s, const Affine& m, double fleche, Budget& budget);

}  // namespace pathwerk::lecture::dxf
