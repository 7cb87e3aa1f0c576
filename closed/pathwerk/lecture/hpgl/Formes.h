// Curved figures of a plot, as places on the sheet. They are round in the units in force, so a scale that differs
// from axis to axis makes ellipses of them, as on the plotter.
#pragma once

#include <vector>

#include "closed/pathwerk/lecture/Lecture.h"
#include "closed/pathwerk/lecture/hpgl/Feuille.h"

namespace pathwerk::lecture::hpgl {

// Greatest distance between a curve and its chords, in the units in force, for `mm` on the sheet.
double HpglFleche(const HpglFeuille& feuille, double mm);

// The places behind the start, end included. Centre and start in the units in force, sweep in degrees.
std::vector<Vec2> HpglArc(const HpglFeuille& feuille, Vec2 depart, Vec2 centre, double degres, double mm);

// The arc from `depart` through `milieu` to `fin`, all in the units in force. Points in a line give the line; equal
// ends give the circle over the diameter to `milieu`.
std::vector<Vec2> HpglArcTroisPoints(const HpglFeuille& feuille, Vec2 depart, Vec2 milieu, Vec2 fin, double mm);

// A circle, closing point left out.
std::vector<Vec2> HpglCercle(const HpglFeuille& feuille, Vec2 centre, double rayon, double mm);

// The edge of a wedge, closing point left out; a full turn is the circle without its radii. Angles in degrees from
// the X axis; a negative radius turns the axis round.
std::vector<Vec2> HpglSecteur(const HpglFeuille& feuille, Vec2 centre, double rayon, double debut, double balayage,
                              double mm);

// A cubic Bezier curve from `depart`, all in the units in force; the places behind the start.
std::vector<Vec2> HpglBezier(const HpglFeuille& feuille, Vec2 depart, Vec2 p1, Vec2 p2, Vec2 p3, double mm);

}  // namespace pathwerk::lecture::hpgl
