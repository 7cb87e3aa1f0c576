// A stadium is convex: a line cuts it in one interval, and so does a circle of the same radius as its caps.
#include "closed/pathwerk/decalage/ArcRetrait.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace pathwerk::decalage {

namespace {

// Interval of the line p + t u inside the disc around `c`.
bool CoupeDisque(Vec2 c, Vec2 u, double r, double& t0, double& t1) {
  const double h = Vectoriel(u, c);
  const double q = r * r - h * h;
  if (q <= 0) return false;
  const double t = Scalaire(u, c);
  const double demi = std::sqrt(q);
  t0 = std::min(t0, t - demi);
  t1 = std::max(t1, t + demi);
  return true;
}

// Narrows [t0, t1] to lo < a + t k < hi.
bool Borne(double a, double k, double lo, double hi, double& t0, double& t1) {
  if (std::abs(k) < 1e-300) return a > lo && a < hi;
  double e = (lo - a) / k;
  double f = (hi - a) / k;
  if (e > f) std::swap(e, f);
  t0 = std::max(t0, e);
  t1 = std::min(t1, f);
  return t0 < t1;
}

}  // namespace

bool CoupeDroite(Vec2 a, Vec2 b, Vec2 u, double r, double& t0, double& t1) {
  t0 = std::numeric_limits<double>::infinity();
  t1 = -t0;
  CoupeDisque(a, u, r, t0, t1);
  CoupeDisque(b, u, r, t0, t1);
  const Vec2 w = b - a;
  const double l = Norme(w);
  const Vec2 v = w * (1 / l);
  double s0 = -std::numeric_limits<double>::infinity();
  double s1 = -s0;
  if (Borne(-Vectoriel(v, a), Vectoriel(v, u), -r, r, s0, s1) &&
      Borne(-Scalaire(v, a), Scalaire(v, u), 0, l, s0, s1)) {
    t0 = std::min(t0, s0);
    t1 = std::max(t1, s1);
  }
  return t0 < t1;
}

void CoupeCercle(Vec2 a, Vec2 v, double l, double r, Vec2& entre, Vec2& sort) {
  const double a0 = -Scalaire(v, a);  // foot of the centre along the segment
  double h = -Vectoriel(v, a);        // height of the centre over the segment, left positive
  const double cote = h >= 0 ? 1 : -1;
  const Vec2 n = Gauche(v) * cote;
  h = std::abs(h);
  const double sinus = std::clamp(1 - h / r, -1.0, 1.0);
  const double cosinus = h < 2 * r ? std::sqrt(std::max(0.0, h * (2 * r - h))) / r : 0.0;
  // Seen along v with the centre above, the circle turns counter-clockwise into the stadium on the lower side of
  // the line and leaves it on the upper one.
  const auto croise = [&](double le, double signe) {
    if (le > 0 && le < l) return v * (signe * cosinus) + n * sinus;
    const Vec2 p = a + v * std::clamp(le, 0.0, l);
    const double q = Norme(p);
    const double c = std::min(q / (2 * r), 1.0);
    const double s = std::sqrt(std::max(0.0, 1 - c * c)) * signe * cote;
    const Vec2 e = p * (1 / q);
    return e * c + Gauche(e) * s;
  };
  entre = croise(a0 - r * cosinus, -1.0);
  sort = croise(a0 + r * cosinus, 1.0);
  if (cote < 0) std::swap(entre, sort);
}

}  // namespace pathwerk::decalage
