// The arc of the interpreter, as points on the way from its start to its end. Values in, points out.
//
// No line with G02, G03, I, J or R passes the judge, so nothing of this moves a machine; the dialect holds it all
// the same. The two directions are one: the angle always grows from the start to the end.
#pragma once

#include <optional>
#include <vector>

namespace ovelin {

struct PointArc {
  double X = 0, Y = 0;  // mm
};

enum class DefautArc {
  Aucun,
  RayonsInegaux,  // centre form: start and end are not equally far from the centre; the arc is made all the same
  SansCercle,     // radius form: start and end are further apart than the radius, or no circle passes through both
};

struct Arc {
  std::vector<PointArc> points;  // behind the start; the last straight move goes to the end itself
  DefautArc defaut = DefautArc::Aucun;
};

// The angle from point to point for a chord error of 0.01 mm, 2 arccos(1 - 0.01 / r), rad. Nothing where that is no
// number: without a radius (the centre form), below 0 and at less than half the chord error.
std::optional<double> PasAngulaire(double r);

// `r` not 0: of the two circles of radius |r| through both ends the one with the smaller sweep for r > 0, the
// larger for r < 0, the second where they are equal. `r` 0: centre = start + (i, j). The sweep is cut down to whole
// radians before it is divided into steps, so a chord of up to a radian and more is left to the last move.
Arc TraceArc(const PointArc& depart, const PointArc& arrivee, double i, double j, double r, double pas);

}  // namespace ovelin
