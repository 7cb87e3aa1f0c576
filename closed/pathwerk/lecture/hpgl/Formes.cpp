#include "closed/pathwerk/lecture/hpgl/Formes.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "closed/pathwerk/commun/Courbes.h"

namespace pathwerk::lecture::hpgl {

namespace {

constexpr double Radian = std::numbers::pi / 180;

std::vector<Vec2> SurFeuille(const HpglFeuille& feuille, std::vector<Vec2> points) {
  for (Vec2& p : points) p = feuille.Place(p);
  return points;
}

}  // namespace

double HpglFleche(const HpglFeuille& feuille, double mm) { return mm / MmParUnite / feuille.Grossissement(); }

std::vector<Vec2> HpglArc(const HpglFeuille& feuille, Vec2 depart, Vec2 centre, double degres, double mm) {
  std::vector<Vec2> points;
  const Vec2 d{depart.x - centre.x, depart.y - centre.y};
  const double rayon = std::hypot(d.x, d.y);
  if (rayon == 0 || degres == 0) return points;
  const double balayage = std::clamp(degres, -360.0, 360.0);
  AjouteArc(points, centre, rayon, std::atan2(d.y, d.x), balayage * Radian, HpglFleche(feuille, mm));
  if (std::fabs(balayage) == 360 && !points.empty()) points.back() = depart;
  return SurFeuille(feuille, std::move(points));
}

// The centre is where the perpendiculars in the middle of the two chords meet:
//
//         milieu             with a = milieu - depart, b = fin - depart, D = 2 (a x b):
//        /      \            centre = depart + (b.y |a|^2 - a.y |b|^2, a.x |b|^2 - b.x |a|^2) / D
//   depart      fin          counter-clockwise when D > 0
std::vector<Vec2> HpglArcTroisPoints(const HpglFeuille& feuille, Vec2 depart, Vec2 milieu, Vec2 fin, double mm) {
  if (depart == fin && milieu != depart) {
    const Vec2 centre{(depart.x + milieu.x) / 2, (depart.y + milieu.y) / 2};
    return HpglArc(feuille, depart, centre, 360, mm);
  }
  const Vec2 a{milieu.x - depart.x, milieu.y - depart.y};
  const Vec2 b{fin.x - depart.x, fin.y - depart.y};
  const double a2 = a.x * a.x + a.y * a.y;
  const double b2 = b.x * b.x + b.y * b.y;
  const double d = 2 * (a.x * b.y - a.y * b.x);
  // So flat that the arc is a line to less than a millionth of its length.
  if (std::fabs(d) <= 1e-9 * (a2 + b2)) return SurFeuille(feuille, {milieu, fin});
  const Vec2 centre{depart.x + (b.y * a2 - a.y * b2) / d, depart.y + (a.x * b2 - b.x * a2) / d};
  const double debut = std::atan2(depart.y - centre.y, depart.x - centre.x);
  double balayage = std::atan2(fin.y - centre.y, fin.x - centre.x) - debut;
  if (d > 0 && balayage <= 0) balayage += 2 * std::numbers::pi;
  if (d < 0 && balayage >= 0) balayage -= 2 * std::numbers::pi;
  std::vector<Vec2> points;
  AjouteArc(points, centre, std::hypot(depart.x - centre.x, depart.y - centre.y), debut, balayage,
            HpglFleche(feuille, mm));
  if (!points.empty()) points.back() = fin;
  return SurFeuille(feuille, std::move(points));
}

std::vector<Vec2> HpglCercle(const HpglFeuille& feuille, Vec2 centre, double rayon, double mm) {
  std::vector<Vec2> points;
  AjouteArc(points, centre, std::fabs(rayon), rayon < 0 ? std::numbers::pi : 0, 2 * std::numbers::pi,
            HpglFleche(feuille, mm));
  return SurFeuille(feuille, std::move(points));
}

std::vector<Vec2> HpglSecteur(const HpglFeuille& feuille, Vec2 centre, double rayon, double debut, double balayage,
                              double mm) {
  if (std::fabs(balayage) >= 360) return HpglCercle(feuille, centre, rayon, mm);
  const double r = std::fabs(rayon);
  const double angle = std::fmod(debut, 360) * Radian + (rayon < 0 ? std::numbers::pi : 0);
  std::vector<Vec2> points{centre, {centre.x + r * std::cos(angle), centre.y + r * std::sin(angle)}};
  AjouteArc(points, centre, r, angle, balayage * Radian, HpglFleche(feuille, mm));
  return SurFeuille(feuille, std::move(points));
}

std::vector<Vec2> HpglBezier(const HpglFeuille& feuille, Vec2 depart, Vec2 p1, Vec2 p2, Vec2 p3, double mm) {
  std::vector<Vec2> points{depart};
  AjouteBezier(points, p1, p2, p3, HpglFleche(feuille, mm));
  points.erase(points.begin());
  return SurFeuille(feuille, std::move(points));
}

}  // namespace pathwerk::lecture::hpgl
