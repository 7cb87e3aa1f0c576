// Thinning by a sleeve, in one pass (the cone form of Imai and Iri's criterion, after J. Sklansky and V. Gonzalez,
// "Fast polygonal approximation of digitized curves", Pattern Recognition 12, 1980).
//
// From the last kept point A every point P further on is a disc of radius `tolerance`; the directions from A that
// hit all discs so far make a cone. A point may end the segment that starts at A if its own direction lies in the
// cone and it lies at least as far from A as everything in between: then all of these are within the tolerance of
// the segment itself, not only of its line.
//
//               . o  .          o  skipped points with their discs
//       A <  o       .  > P     the cone narrows from disc to disc
//               '  o '
//
// Points within the tolerance of A put no bound on the direction. Behind the last point that could end the segment
// at most Regard points are looked at, so the pass stays linear.
#include "closed/pathwerk/chemin/Simplifie.h"

#include <algorithm>

namespace pathwerk::chemin {

namespace {

constexpr std::size_t Regard = 48;

struct Cone {
  bool ouvert = true;  // no bound yet
  Vec2 gauche;
  Vec2 droite;

  [[nodiscard]] bool Contient(Vec2 v) const {
    return Vectoriel(gauche, v) <= 0 && Vectoriel(droite, v) >= 0 && Scalaire(gauche + droite, v) > 0;
  }
  // Narrows to the directions that hit the disc of radius `e` around `v` (d = |v| > e). False: none is left.
  bool Restreint(Vec2 v, double d, double e) {
    const double s = e / d;
    const double c = std::sqrt(1 - s * s);
    const Vec2 u = v * (1 / d);
    const Vec2 g = u * c + Gauche(u) * s;
    const Vec2 r = u * c - Gauche(u) * s;
    if (ouvert) {
      ouvert = false;
      gauche = g;
      droite = r;
      return true;
    }
    if (Scalaire(gauche + droite, u) <= 0 || Vectoriel(gauche, r) > 0 || Vectoriel(droite, g) < 0) return false;
    if (Vectoriel(gauche, g) < 0) gauche = g;
    if (Vectoriel(droite, r) > 0) droite = r;
    return true;
  }
};

// Last index that the segment from `a` may reach, not beyond `fin`.
std::size_t Portee(std::span<const Vec2> p, std::size_t a, std::size_t fin, double e) {
  Cone cone;
  std::size_t atteint = a + 1;
  double loin = 0;
  for (std::size_t j = a + 1; j <= fin && j <= atteint + Regard; ++j) {
    const Vec2 v = p[j] - p[a];
    const double d = Norme(v);
    if (cone.ouvert || (d >= loin && cone.Contient(v))) atteint = j;
    if (d < loin - 2 * e) break;  // the path turns back: its far end stays
    loin = std::max(loin, d);
    if (d > e && !cone.Restreint(v, d, e)) break;
  }
  return atteint;
}

bool Couvre(std::span<const Vec2> p, std::size_t a, std::size_t b, double e) {
  const Vec2 d = p[b] - p[a];
  const double l2 = Scalaire(d, d);
  for (std::size_t i = a + 1; i < b; ++i) {
    const double t = l2 > 0 ? std::clamp(Scalaire(p[i] - p[a], d) / l2, 0.0, 1.0) : 0.0;
    if (Norme(p[a] + d * t - p[i]) > e) return false;
  }
  return true;
}

// Both ends of [debut, fin] stay; `reste` already ends with `debut`.
void Passe(std::span<const Vec2> p, std::size_t debut, std::size_t fin, double e, std::vector<std::size_t>& reste) {
  const std::size_t premier = reste.size();
  for (std::size_t a = debut; a < fin;) {
    a = Portee(p, a, fin, e);
    reste.push_back(a);
  }
  // The greedy walk can leave its last but one point beside the end.
  const std::size_t n = reste.size();
  if (n >= premier + 2 && Norme(p[reste[n - 2]] - p[fin]) <= e && Couvre(p, reste[n - 3], fin, e)) {
    reste.erase(reste.end() - 2);
  }
}

std::vector<std::size_t> Parcours(std::span<const Vec2> p, std::span<const std::uint8_t> garde, double e) {
  std::vector<std::size_t> reste{0};
  std::size_t debut = 0;
  for (std::size_t i = 1; i < p.size(); ++i) {
    if (i + 1 < p.size() && garde[i] == 0) continue;
    Passe(p, debut, i, e, reste);
    debut = i;
  }
  return reste;
}

}  // namespace

std::vector<std::size_t> Simplifie(std::span<const Vec2> points, std::span<const std::uint8_t> garde,
                                   double tolerance) {
  const std::size_t n = points.size();
  if (n < 3) return n == 2 ? std::vector<std::size_t>{0, 1} : std::vector<std::size_t>(n, 0);
  const double e = tolerance * (1 - 1e-9);
  std::vector<std::size_t> reste = Parcours(points, garde, e);
  const bool ferme = points.front() == points.back();
  if (!ferme || reste.size() >= 4) return reste;

  // A small ring that went flat: the point farthest from the seam stays, and the one farthest from that line.
  std::size_t f = 0;
  std::size_t g = 0;
  for (std::size_t i = 1; i < n; ++i) {
    if (Norme(points[i] - points[0]) > Norme(points[f] - points[0])) f = i;
  }
  if (f == 0) return {0, n - 1};
  const Vec2 axe = points[f] - points[0];
  double ecart = 0;
  for (std::size_t i = 1; i < n; ++i) {
    const double d = std::abs(Vectoriel(axe, points[i] - points[0]));
    if (d > ecart) {
      ecart = d;
      g = i;
    }
  }
  std::vector<std::uint8_t> force(garde.begin(), garde.end());
  force[f] = 1;
  if (g != 0) force[g] = 1;
  return Parcours(points, force, e);
}

}  // namespace pathwerk::chemin
