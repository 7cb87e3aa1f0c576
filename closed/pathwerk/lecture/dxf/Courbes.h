// Curves of DXF as chords: arcs of circles and ellipses under any map.
#pragma once

#include <cstddef>
#include <vector>

#include "closed/pathwerk/lecture/dxf/Espace.h"

namespace pathwerk::lecture::dxf {

// Counts what the chords of a drawing take, so that a few bytes can't ask for gigabytes.
class Budget {
 public:
  explicit Budget(std::size_t limite) : limite_(limite) {}
  // Takes the room of `n` bytes; false when there is none left.
  bool Prend(std::size_t n) {
    if (n > limite_ - pris_) {
      epuise_ = true;
      return false;
    }
    pris_ += n;
    return true;
  }
  bool Points(std::size_t n) { return n <= limite_ / sizeof(Vec2) ? Prend(n * sizeof(Vec2)) : Prend(limite_ + 1); }
  [[nodiscard]] bool Epuise() const { return epuise_; }

 private:
  std::size_t limite_;
  std::size_t pris_ = 0;
  bool epuise_ = false;
};

// Arc of an ellipse, given by its centre and two conjugate half axes: c + u cos t + v sin t. The image of any arc
// under any affine map is one of these.
struct ArcConique {
  Vec2 u;
  Vec2 v;
  double debut = 0;     // parameter at the start, radians
  double balayage = 0;  // signed
};

// Sweep of an arc from one angle to another, counter-clockwise: above 0, a whole turn (exactly 2 pi) when they are
// the same.
double BalayageArc(double debut, double fin);
// Number of chords that keep the arc within `fleche`; from 1 to a bounded number.
std::size_t NombreCordes(const ArcConique& arc, double fleche);
// Appends the points between the ends of the arc, without them. `depart` is the point at its start.
bool AjouteConique(std::vector<Vec2>& points, Vec2 depart, const ArcConique& arc, double fleche, Budget& budget);

// The arc over a segment of a polyline: `bulge` is the tangent of a quarter of its angle, positive when it bends to
// the right of the chord, so that it turns counter-clockwise. In the polyline's own plane; the map comes after.
ArcConique ArcDeBulge(Vec2 a, Vec2 b, double bulge);

}  // namespace pathwerk::lecture::dxf
