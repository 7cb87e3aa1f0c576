// Curves as chords, shared by the readers.
#include "closed/pathwerk/commun/Courbes.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace pathwerk {

namespace {

// No curve takes more chords than this. It binds from a radius of about 130 m at 0.01 mm, and keeps a few bytes of
// a hostile file from asking for gigabytes.
constexpr double CordesMax = 8192;

double FlecheUtile(double fleche) { return std::isfinite(fleche) && fleche > 1e-9 ? fleche : 1e-9; }

}  // namespace

// A chord over the angle a of a circle of radius r lies r (1 - cos(a/2)) from the arc:
//
//        .-'''-.   <- fleche
//      /---------\          a = 4 asin(sqrt(fleche / 2r)), the same as 2 acos(1 - fleche / r) without its loss of
//     a     c     b         digits, and never more than an eighth of a turn, so that the smallest circle still is
//                           an octagon
//
// The sweep is cut in equal parts, which keeps a circle symmetrical.
void AjouteArc(std::vector<Vec2>& points, Vec2 centre, double rayon, double angleDebut, double balayage,
               double fleche) {
  if (!std::isfinite(rayon) || !std::isfinite(angleDebut) || !std::isfinite(balayage)) return;
  const double r = std::fabs(rayon);
  double pas = std::numbers::pi / 4;
  const double part = FlecheUtile(fleche) / r;  // infinite for r = 0
  if (part < 1) pas = std::min(pas, 4 * std::asin(std::sqrt(part / 2)));
  // More than a turn repeats itself; a few are kept as they are.
  const double tours = std::clamp(balayage, -64 * std::numbers::pi, 64 * std::numbers::pi);
  const double ideal = std::ceil(std::fabs(tours) / pas - 1e-9);  // 1e-9: an exact share stays what it is
  const int n = static_cast<int>(std::clamp(ideal, 1.0, CordesMax));
  for (int i = 1; i <= n; ++i) {
    const double angle = angleDebut + tours * i / n;
    points.push_back({centre.x + r * std::cos(angle), centre.y + r * std::sin(angle)});
  }
}

// Equal steps of the parameter. A chord over a step h of a curve lies at most h^2 / 8 max|B''| from it, and the
// second derivative of a cubic is 6 times a blend of its two second differences (Filip, Magedson, Markot 1986), so
// n = sqrt(6 max|d2| / (8 fleche)) steps are enough.
void AjouteBezier(std::vector<Vec2>& points, Vec2 p1, Vec2 p2, Vec2 p3, double fleche) {
  if (points.empty()) {
    points.push_back(p3);
    return;
  }
  const Vec2 p0 = points.back();
  const double d1 = std::hypot(p0.x - 2 * p1.x + p2.x, p0.y - 2 * p1.y + p2.y);
  const double d2 = std::hypot(p1.x - 2 * p2.x + p3.x, p1.y - 2 * p2.y + p3.y);
  const double ideal = std::ceil(std::sqrt(0.75 * std::max(d1, d2) / FlecheUtile(fleche)));
  // A comparison with NaN is false, so a curve that isn't finite is one chord.
  const int n = ideal > 1 ? static_cast<int>(std::min(ideal, CordesMax)) : 1;
  for (int i = 1; i < n; ++i) {
    const double t = static_cast<double>(i) / n;
    const double u = 1 - t;
    const double a = u * u * u;
    const double b = 3 * u * u * t;
    const double c = 3 * u * t * t;
    const double d = t * t * t;
    points.push_back({a * p0.x + b * p1.x + c * p2.x + d * p3.x, a * p0.y + b * p1.y + c * p2.y + d * p3.y});
  }
  points.push_back(p3);  // the end as it is given
}

}  // namespace pathwerk
