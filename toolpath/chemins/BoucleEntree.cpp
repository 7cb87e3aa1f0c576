#include "toolpath/chemins/BoucleEntree.h"

#include <algorithm>
#include <cmath>

namespace ovelin {

namespace {

constexpr double TourMini = 0.1;  // mm; what is shorter is a hole

double Distance(const PointTrace& a, const PointTrace& b) {
  return std::hypot(double{b.X} - a.X, double{b.Y} - a.Y);
}

// The point that lies on the first: the last of a closed piece, otherwise the nearest to the beginning.
std::size_t Fermeture(std::span<const PointTrace> points) {
  if (points.size() < 3) return 0;
  if (pathwerk::MemePlace(points.front(), points.back())) return points.size() - 1;
  const auto* retour = std::find_if(points.data() + 2, points.data() + points.size(),
                                    [&](const PointTrace& p) { return pathwerk::MemePlace(p, points.front()); });
  return retour == points.data() + points.size() ? 0 : static_cast<std::size_t>(retour - points.data());
}

}  // namespace

std::optional<BoucleEntree> BoucleDe(std::span<const PointTrace> points) {
  BoucleEntree boucle;
  boucle.dernier = Fermeture(points);
  if (boucle.dernier == 0) return std::nullopt;
  const bool lame = std::any_of(points.begin(), points.end(), [](const PointTrace& p) { return p.Cde == CodePU; });
  if (lame) return std::nullopt;
  bool leve = false;
  for (std::size_t i = 1; i <= boucle.dernier; ++i) {
    boucle.longueur += Distance(points[i - 1], points[i]);
    if (points[i].Cde == CodePE) leve = true;
    if (points[i].Cde == CodePD) leve = false;
  }
  if (leve || !(boucle.longueur >= TourMini)) return std::nullopt;
  return boucle;
}

double LongueurRampe(double hauteur, double angle) { return hauteur / std::tan(angle * Pi / 180); }

double LongueurRampe(double hauteur, double angle, double tour) {
  return std::min(LongueurRampe(hauteur, angle), ToursRampe * tour);
}

}  // namespace ovelin
