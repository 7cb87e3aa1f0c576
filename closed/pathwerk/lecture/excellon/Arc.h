// Routed arcs of a drill file as chords.
#pragma once

#include <optional>
#include <vector>

#include "closed/pathwerk/lecture/Lecture.h"

namespace pathwerk::lecture::excellon {

// The words of a G02 or G03, mm.
struct MotsArc {
  std::optional<double> i, j, a;
};
// Appends the chords of an arc from the last point of `route` to `fin`. By the radius A it is never more than half
// a turn; by the centre I, J from the start, a full turn when the end is the start. Without either, a straight
// line.
void AjouteArcRoute(std::vector<Vec2>& route, Vec2 fin, bool horaire, const MotsArc& mots, double fleche);

}  // namespace pathwerk::lecture::excellon
