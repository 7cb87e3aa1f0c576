// Smoothing of one path by interpolation: no given point moves, points are put in between.
//
// Between two neighbours a cubic Hermite curve runs with the tangents of the path in both; its ordinates at 1/2, or
// at 1/4, 1/2 and 3/4 where one point isn't enough, become new points. The tangent in a point is that of the circle
// through the point and its two neighbours, so points taken from a circle give points of that circle.
//
//            . n .            n  new points
//        P1 .     . P2        T  tangents; the curve leaves the chord by at most L |T1 - T2| / 8
//      T1 /         \ T2
//
// What must stay straight or sharp does: at a corner (turn above Coin) and at an end each side starts along its
// own chord; where a long segment meets one less than a third as long, the tangent is that of the long one, which
// keeps the straight sides of a rounded rectangle straight. Since the curve passes through the given points,
// repeated smoothing converges, and a segment gets points only where they would show.
#include <algorithm>
#include <cmath>
#include <new>
#include <vector>

#include "closed/Pathwerk.h"
#include "closed/pathwerk/commun/Lieux.h"

namespace pathwerk {

namespace {

constexpr double Coin = 50.0 * 3.14159265358979323846 / 180.0;  // radians
constexpr double Rapport = 3.0;        // lengths of neighbours beyond which the longer is a straight side
constexpr double FlecheUtile = 0.001;  // mm: less than this isn't worth a point
constexpr double FlecheFine = 0.04;    // mm: above it three points are put in, not one

// Tangents of the path in one point: as the end of the segment before it, as the start of the segment behind it.
struct Tangentes {
  Vec2 arrivee;
  Vec2 depart;
};

Tangentes TangentesEn(Vec2 avant, Vec2 p, Vec2 apres) {
  const Vec2 a = p - avant;
  const Vec2 b = apres - p;
  const double la = Norme(a);
  const double lb = Norme(b);
  const Vec2 ua = a * (1 / la);
  const Vec2 ub = b * (1 / lb);
  const double angle = std::atan2(std::abs(Vectoriel(ua, ub)), Scalaire(ua, ub));
  if (!(angle <= Coin)) return {ua, ub};
  if (la > Rapport * lb) return {ua, ua};
  if (lb > Rapport * la) return {ub, ub};
  // Derivative at p of the parabola through the three points over chord length: the circle's tangent for small
  // turns.
  const Vec2 t = Unite(ua * lb + ub * la);
  return {t, t};
}

// Hermite curve from p to q at s.
Vec2 Courbe(Vec2 p, Vec2 q, Vec2 tp, Vec2 tq, double s) {
  const double l = Norme(q - p);
  const double s2 = s * s;
  const double s3 = s2 * s;
  return p * (2 * s3 - 3 * s2 + 1) + q * (3 * s2 - 2 * s3) + tp * (l * (s3 - 2 * s2 + s)) + tq * (l * (s3 - s2));
}

Vec2 EnDouble(const PointTrace& p) { return {double{p.X}, double{p.Y}}; }

class Lisseur {
 public:
  explicit Lisseur(const std::vector<PointTrace>& points) : points_(points) {
    for (std::size_t i = 0; i < points.size(); ++i) {
      const Vec2 p = EnDouble(points[i]);
      if (i == 0 || !(p == lieux_.back())) {
        lieux_.push_back(p);
        dernier_.push_back(i);
      } else {
        dernier_.back() = i;
      }
    }
    ferme_ = lieux_.size() > 3 && lieux_.front() == lieux_.back();
  }

  std::vector<PointTrace> Resultat() {
    std::vector<PointTrace> r;
    r.reserve(2 * points_.size());
    std::size_t suivant = 0;
    for (std::size_t k = 0; k < lieux_.size(); ++k) {
      for (; suivant <= dernier_[k]; ++suivant) r.push_back(points_[suivant]);
      if (k + 1 < lieux_.size()) Intercale(k, r);
    }
    return r;
  }

  [[nodiscard]] std::size_t Distincts() const { return lieux_.size(); }

 private:
  [[nodiscard]] Tangentes EnPlace(std::size_t k) const {
    const std::size_t n = lieux_.size();
    if (k > 0 && k + 1 < n) return TangentesEn(lieux_[k - 1], lieux_[k], lieux_[k + 1]);
    if (ferme_) return TangentesEn(lieux_[n - 2], lieux_[0], lieux_[1]);
    const Vec2 u = k == 0 ? lieux_[1] - lieux_[0] : lieux_[k] - lieux_[k - 1];
    return {Unite(u), Unite(u)};
  }

  // New points on the segment k.
  void Intercale(std::size_t k, std::vector<PointTrace>& r) const {
    const Vec2 p = lieux_[k];
    const Vec2 q = lieux_[k + 1];
    const Vec2 tp = EnPlace(k).depart;
    const Vec2 tq = EnPlace(k + 1).arrivee;
    double fleche = 0;
    for (const double s : {0.25, 0.5, 0.75}) {
      fleche = std::max(fleche, std::abs(Vectoriel(Unite(q - p), Courbe(p, q, tp, tq, s) - p)));
    }
    if (!(fleche > FlecheUtile)) return;
    const bool fin = fleche > FlecheFine;
    for (const double s : {0.25, 0.5, 0.75}) {
      if (!fin && s != 0.5) continue;
      const Vec2 m = Courbe(p, q, tp, tq, s);
      PointTrace nouveau = points_[dernier_[k]];
      nouveau.X = static_cast<float>(m.x);
      nouveau.Y = static_cast<float>(m.y);
      nouveau.Cde = CodePD;
      if (!MemePlace(nouveau, r.back())) r.push_back(nouveau);
    }
  }

  const std::vector<PointTrace>& points_;
  Chemin lieux_;                      // places without repeats
  std::vector<std::size_t> dernier_;  // last record at each place
  bool ferme_ = false;
};

}  // namespace

void LissageSequence(std::vector<PointTrace>& points) {
  try {
    for (const PointTrace& p : points) {
      if (!std::isfinite(p.X) || !std::isfinite(p.Y)) return;
    }
    Lisseur lisseur(points);
    if (lisseur.Distincts() < 3) return;
    std::vector<PointTrace> resultat = lisseur.Resultat();
    points.swap(resultat);
  } catch (const std::bad_alloc&) {
    return;  // the path stays as it is
  }
}

}  // namespace pathwerk
