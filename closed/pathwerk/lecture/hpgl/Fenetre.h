// The soft-clip window of a plot, a rectangle along the axes of the sheet.
#pragma once

#include <span>
#include <vector>

#include "closed/pathwerk/lecture/Lecture.h"

namespace pathwerk::lecture::hpgl {

struct HpglFenetre {
  Vec2 min;
  Vec2 max;
  [[nodiscard]] bool Contient(Vec2 p) const { return p.x >= min.x && p.x <= max.x && p.y >= min.y && p.y <= max.y; }
};

// The pieces of a polyline that lie in the window, in order. A piece has two points at least; a touch in a single
// point is nothing.
std::vector<std::vector<Vec2>> CoupePolyligne(std::span<const Vec2> ligne, const HpglFenetre& fenetre);

// The part of an area that lies in the window, as one contour, its closing point left out; empty when nothing is
// left. Where the window cuts an area in several parts they stay joined along the border of the window.
std::vector<Vec2> CoupeContour(std::span<const Vec2> contour, const HpglFenetre& fenetre);

}  // namespace pathwerk::lecture::hpgl
