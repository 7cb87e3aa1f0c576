#include "closed/pathwerk/lecture/dxf/Courbes.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace pathwerk::lecture::dxf {

namespace {

// Chords of a full turn at most. It binds from a radius of about 130 m at 0.01 mm.
constexpr double CordesMax = 8192;

// Longest half axis of the ellipse: the greater singular value of the matrix with the columns u and v.
double GrandAxe(Vec2 u, Vec2 v) {
  const double somme = std::hypot(u.x + v.y, u.y - v.x);
  const double difference = std::hypot(u.x - v.y, u.y + v.x);
  return (somme + difference) / 2;
}

}  // namespace

double BalayageArc(double debut, double fin) {
  constexpr double TourEntier = 2 * std::numbers::pi;
  double b = std::fmod(fin - debut, TourEntier);
  if (b < 0) b += TourEntier;
  return b < 1e-9 || b > TourEntier - 1e-9 ? TourEntier : b;
}

// With equal steps h of the parameter the chord stays as near to the ellipse as the chord of its great circle
// does to that, since the ellipse is that circle pressed together:
//
//     fleche = a (1 - cos(h/2))      h = 2 acos(1 - fleche / a), an eighth of a turn at most
//
// A whole turn gets a multiple of four, so that its extreme points are among the chords' ends when it starts on an
// axis.
std::size_t NombreCordes(const ArcConique& arc, double fleche) {
  const double a = GrandAxe(arc.u, arc.v);
  const double part = std::max(fleche, 1e-9) / a;
  double pas = std::numbers::pi / 4;
  if (part < 1) pas = std::min(pas, 2 * std::acos(1 - part));
  // Below 1e-16 the cosine can't tell the angle from none; its series can.
  if (part < 1e-12) pas = std::sqrt(8 * part);
  const double tours = std::fabs(arc.balayage) / (2 * std::numbers::pi);
  const double ideal = std::ceil(std::fabs(arc.balayage) / pas - 1e-9);
  if (!(ideal > 1)) return 1;  // also what isn't a number
  auto n = static_cast<std::size_t>(std::min(ideal, std::ceil(CordesMax * std::clamp(tours, 0.01, 4.0))));
  if (std::fabs(tours - 1) < 1e-9) n = (n + 3) / 4 * 4;
  return n;
}

// Each point is reckoned from the start: p - depart = u (cos t - cos t0) + v (sin t - sin t0), with the differences
// as products, so that a flat arc of a huge circle loses no digits.
bool AjouteConique(std::vector<Vec2>& points, Vec2 depart, const ArcConique& arc, double fleche, Budget& budget) {
  const std::size_t n = NombreCordes(arc, fleche);
  if (!budget.Points(n - 1)) return false;
  for (std::size_t i = 1; i < n; ++i) {
    const double demi = arc.balayage * static_cast<double>(i) / static_cast<double>(n) / 2;
    const double milieu = arc.debut + demi;
    const double s = 2 * std::sin(demi);
    const double dc = -s * std::sin(milieu);
    const double ds = s * std::cos(milieu);
    points.push_back({depart.x + arc.u.x * dc + arc.v.x * ds, depart.y + arc.u.y * dc + arc.v.y * ds});
  }
  return true;
}

//          b            bulge = tan(angle / 4) = height / half chord
//        / |            centre = middle of the chord + (1 - bulge^2) / (4 bulge) times the chord turned left
//   c  <   |  ) arc
//        \ |
//          a
ArcConique ArcDeBulge(Vec2 a, Vec2 b, double bulge) {
  const Vec2 corde{b.x - a.x, b.y - a.y};
  const double k = (1 - bulge * bulge) / (4 * bulge);
  // From the centre to a: half the chord back, and the way to the chord's middle.
  const Vec2 u{-corde.x / 2 + k * corde.y, -corde.y / 2 - k * corde.x};
  return {u, {-u.y, u.x}, 0, 4 * std::atan(bulge)};
}

}  // namespace pathwerk::lecture::dxf
