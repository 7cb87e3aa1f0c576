#include "gcode/Arc.h"

#include <array>
#include <cmath>

#include "core/Nombres.h"
#include "core/Types.h"

namespace ovelin {

namespace {

constexpr double ErreurCorde = 0.01;  // mm

double Distance(const PointArc& a, const PointArc& b) { return std::hypot(b.X - a.X, b.Y - a.Y); }
double Angle(const PointArc& centre, const PointArc& p) { return std::atan2(p.Y - centre.Y, p.X - centre.X); }

double Balayage(const PointArc& centre, const PointArc& depart, const PointArc& arrivee) {
  const double sweep = Angle(centre, arrivee) - Angle(centre, depart);
  return sweep < 0 ? sweep + 2 * Pi : sweep;
}

// The centres of the circles of this radius through both points; false when there are none.
bool Centres(const PointArc& a, const PointArc& b, double rayon, std::array<PointArc, 2>& centres) {
  const double corde = Distance(a, b);
  const double reste = rayon * rayon - corde * corde / 4;
  if (corde == 0 || reste < 0) return false;
  const double h = std::sqrt(reste) / corde;
  const PointArc milieu{(a.X + b.X) / 2, (a.Y + b.Y) / 2};
  centres[0] = {milieu.X - h * (b.Y - a.Y), milieu.Y + h * (b.X - a.X)};
  centres[1] = {milieu.X + h * (b.Y - a.Y), milieu.Y - h * (b.X - a.X)};
  return true;
}

void Parcourt(Arc& arc, const PointArc& centre, double rayon, double depart, double sweep, double pas) {
  const std::int32_t n = Arrondi32(std::trunc(sweep) / pas);
  for (std::int32_t k = 1; k <= n; ++k) {
    const double a = depart + k * pas;
    arc.points.push_back({centre.X + rayon * std::cos(a), centre.Y + rayon * std::sin(a)});
  }
}

}  // namespace

std::optional<double> PasAngulaire(double r) {
  const double cosinus = 1 - ErreurCorde / r;
  if (!(cosinus >= -1 && cosinus <= 1)) return std::nullopt;
  const double pas = 2 * std::acos(cosinus);
  // A radius so large that the step vanishes makes no finite number of points.
  constexpr double PasMini = 1e-5;
  return pas >= PasMini ? std::optional(pas) : std::nullopt;
}

Arc TraceArc(const PointArc& depart, const PointArc& arrivee, double i, double j, double r, double pas) {
  Arc arc;
  if (r == 0) {
    const PointArc centre{depart.X + i, depart.Y + j};
    const double rayon = Distance(centre, depart);
    if (static_cast<float>(rayon) != static_cast<float>(Distance(centre, arrivee))) {
      arc.defaut = DefautArc::RayonsInegaux;
    }
    Parcourt(arc, centre, rayon, Angle(centre, depart), Balayage(centre, depart, arrivee), pas);
    return arc;
  }
  std::array<PointArc, 2> centres;
  const bool ecartes = Distance(depart, arrivee) > r;
  if (ecartes) arc.defaut = DefautArc::SansCercle;
  if (!Centres(depart, arrivee, std::abs(r), centres)) {
    arc.defaut = DefautArc::SansCercle;
    return arc;
  }
  const double un = Balayage(centres[0], depart, arrivee);
  const double deux = Balayage(centres[1], depart, arrivee);
  const bool premier = r > 0 ? un < deux : un > deux;
  const PointArc& centre = premier ? centres[0] : centres[1];
  Parcourt(arc, centre, std::abs(r), Angle(centre, depart), premier ? un : deux, pas);
  return arc;
}

}  // namespace ovelin
