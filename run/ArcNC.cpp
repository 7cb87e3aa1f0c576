// Arcs through the ends of a run of rows. Of the circles through its first and its last point the one is taken that
// lies nearest to the points between, and the run is made as long as they stay within the tolerance: the greedy arc
// spline of M. K. Yeung and D. J. Walton, "Curve fitting with arc splines for NC toolpath generation",
// Computer-Aided Design 26 (1994). Length doubles while it holds and is then halved in, so that a run of n rows
// costs n log n looks at a point.
//
//             t                 a, b   both ends as they are written, the frame of s and t
//        . - '|' - .            C      on the perpendicular bisector of ab, at height h
//      .'     |     '.          A point (s, t) lies on the circle where s^2 + t^2 - |ab| s = 2 t h; what is left of
//     a-------+-------b  s      that equation is 2 R times its distance, so that the h of the least sum of squares,
//             C                 h = sum(t w) / 2 sum(t^2), is that of the least distances.
//
// A plan has chords, not curves: both ends of a row lie on the drawn curve, its middle beside it. So the ends of
// rows are held to the arc closely, the arc to the middle of a row by the error that curves are chorded with, or
// the corners of a square would make a circle.
#include "run/ArcNC.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>

#include "base/Indices.h"
#include "base/Vecteur.h"

namespace ovelin {

namespace {

using base::Vec2;

constexpr std::array<double, 7> Puissances{1, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6};
constexpr std::size_t RangsMini = 3;
constexpr double RayonMax = 10'000;     // mm
constexpr double UnitesCorde = 10;      // of the last decimal: what a chord is long at least
constexpr double EcartsMontee = 2;      // an arc rises over its chord by so many times the tolerance, or is a line
constexpr std::size_t RangsPlats = 24;  // over so many rows it must have risen

class Suite {
 public:
  Suite(std::span<const Deplacement> lignes, std::size_t premier, const ToleranceArc& tolerance)
      : lignes_(lignes.subspan(premier - 1)),
        t_(tolerance),
        echelle_(Puissances[base::Indice(tolerance.decimales)]) {}

  // Whether the rows 1 to `n` of the run may be one move: cuts at one height and one speed.
  bool Permet(std::size_t n) {
    while (vus_ < n) {
      const std::size_t k = vus_ + 1;
      if (k >= lignes_.size() || !MemeCoupe(k)) return false;
      vus_ = k;
    }
    return true;
  }
  [[nodiscard]] std::size_t Vus() const { return vus_; }

  // Whether the rows 1 to `n` lie on a line.
  [[nodiscard]] bool Plate(std::size_t n) const {
    const Vec2 a = Ecrit(0), ab = Ecrit(n) - a;
    const double seuil = EcartsMontee * t_.ecart * base::Norme(ab);
    for (std::size_t k = 1; k < n; ++k) {
      if (std::abs(base::Vectoriel(ab, Point(k) - a)) >= seuil) return false;
    }
    return true;
  }

  // The arc over the rows 1 to `n`, as it would be written.
  [[nodiscard]] std::optional<ArcNC> Arc(std::size_t n) const {
    const Vec2 a = Ecrit(0), b = Ecrit(n);
    const double corde = base::Norme(b - a);
    if (corde * echelle_ < UnitesCorde) return std::nullopt;
    const auto h = Hauteur(n, a, (b - a) * (1 / corde), corde);
    if (!h) return std::nullopt;
    const Vec2 u = (b - a) * (1 / corde);
    const Vec2 centre = u * (corde / 2) + base::Gauche(u) * h->h;
    ArcNC arc;
    arc.dernier = n;
    arc.horaire = h->gauche;
    arc.i = Arrondi(centre.x);
    arc.j = Arrondi(centre.y);
    return Tient(n, a, {arc.i, arc.j}, b - a, arc.horaire) ? std::optional(arc) : std::nullopt;
  }

 private:
  struct Montee {
    double h = 0;         // mm, of the centre over the middle of the chord
    bool gauche = false;  // the points lie to the left of it
  };

  [[nodiscard]] Vec2 Point(std::size_t k) const {
    return {static_cast<double>(lignes_[k].X), static_cast<double>(lignes_[k].Y)};
  }
  [[nodiscard]] double Arrondi(double v) const { return std::round(v * echelle_) / echelle_; }
  [[nodiscard]] Vec2 Ecrit(std::size_t k) const { return {Arrondi(Point(k).x), Arrondi(Point(k).y)}; }

  [[nodiscard]] bool MemeCoupe(std::size_t k) const {
    const Deplacement& d = lignes_[k];
    return d.Z <= 0 && d.Z == lignes_[0].Z && d.Vitesse == lignes_[1].Vitesse;
  }

  // The centre of the nearest circle. Nothing where the points lie on both sides, or the run is a line.
  [[nodiscard]] std::optional<Montee> Hauteur(std::size_t n, Vec2 a, Vec2 u, double corde) const {
    double tw = 0, tt = 0, haut = 0, bas = 0;
    for (std::size_t k = 1; k < n; ++k) {
      const Vec2 v = Point(k) - a;
      const double t = base::Vectoriel(u, v);
      tw += t * (base::Scalaire(v, v) - corde * base::Scalaire(u, v));
      tt += t * t;
      haut = std::max(haut, t);
      bas = std::min(bas, t);
    }
    const bool gauche = haut > -bas;
    if (std::max(haut, -bas) < EcartsMontee * t_.ecart || std::min(haut, -bas) > t_.ecart) return std::nullopt;
    return Montee{tw / (2 * tt), gauche};
  }

  // The arc as written, `centre` and `fin` from its start `a`, against every row that it stands for.
  [[nodiscard]] bool Tient(std::size_t n, Vec2 a, Vec2 centre, Vec2 fin, bool horaire) const {
    const double r1 = base::Norme(centre), r2 = base::Norme(fin - centre);
    const double petit = std::max(r1, r2) - t_.ecart, grand = std::min(r1, r2) + t_.ecart;
    if (std::abs(r1 - r2) > t_.ecartRayons || std::max(r1, r2) > RayonMax || petit <= 0) return false;
    const double sens = horaire ? -1 : 1;
    const double rang2 =
        8 * std::min(r1, r2) * t_.fleche;  // squared length of a row that the arc rises so far over
    const Vec2 depart = Point(0) - a - centre;
    Vec2 avant = depart;
    for (std::size_t k = 1; k <= n; ++k) {
      const Vec2 q = Point(k) - a - centre;
      const Vec2 e = q - avant;
      const double d2 = base::Scalaire(q, q);
      if (d2 < petit * petit || d2 > grand * grand || base::Scalaire(e, e) > rang2) return false;
      // on in the arc's own sense, by less than a right angle a row
      if (base::Vectoriel(avant, q) * sens <= 0 || base::Scalaire(avant, q) <= 0) return false;
      if (k < n && base::Vectoriel(depart, q) * sens <= 0) return false;  // a half turn before the last row
      avant = q;
    }
    return true;
  }

  std::span<const Deplacement> lignes_;  // row 0 ends at the start
  ToleranceArc t_;
  double echelle_;  // units of the last decimal in a millimetre
  std::size_t vus_ = 0;
};

}  // namespace

std::optional<ArcNC> ArcDepuis(std::span<const Deplacement> lignes, std::size_t premier,
                               const ToleranceArc& tolerance) {
  Suite suite(lignes, premier, tolerance);
  std::size_t debut = RangsMini;
  while (suite.Permet(debut) && suite.Plate(debut)) {
    if (debut >= RangsPlats) return std::nullopt;
    debut *= 2;
  }
  if (!suite.Permet(debut)) return std::nullopt;
  std::optional<ArcNC> bon = suite.Arc(debut);
  if (!bon) return std::nullopt;
  std::size_t trop = 0;  // the least number of rows that is known to be too many
  while (trop == 0) {
    const std::size_t n = 2 * bon->dernier;
    const bool permis = suite.Permet(n);
    const std::size_t essai = permis ? n : suite.Vus();
    if (essai <= bon->dernier) break;
    if (auto arc = suite.Arc(essai)) {
      bon = arc;
      if (!permis) break;
    } else {
      trop = essai;
    }
  }
  while (trop > bon->dernier + 1) {
    const std::size_t n = std::midpoint(bon->dernier, trop);
    if (auto arc = suite.Arc(n)) {
      bon = arc;
    } else {
      trop = n;
    }
  }
  bon->dernier += premier - 1;
  return bon;
}

}  // namespace ovelin
