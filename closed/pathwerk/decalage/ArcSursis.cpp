// The circle that touches the outline in the foot f, of the radius D and with its middle straight above f, is the
// one around the place at the depth D. It grows with D and holds all smaller ones; so what it meets first ends the
// life of the place, and until then the place is free. A place g meets it at
//
//       D = |g - f|^2 / (2 n (g - f))         n: the unit vector from f upwards
//
// and a straight line at D = e / (1 - m n), with e the distance of f from the line and m the unit normal from the
// line towards f. Neither is solved for a stretch of feet and a segment at once, but each gives a bound with the
// least and the greatest that its terms can be, and the greater bound of the two counts. The tree is searched as
// for the nearest place, with that bound for the distance.
#include "closed/pathwerk/decalage/ArcSursis.h"

#include <algorithm>
#include <cmath>

namespace pathwerk::decalage {

namespace {

constexpr double Inf = std::numeric_limits<double>::infinity();
constexpr double OuvertureMin = 0.3;  // cosine of half of an arc: wider ones are not worth the bound
constexpr double Marge = 1e-9;

}  // namespace

ArcSursis::ArcSursis(const ArcSource& source, const Tueurs* tueurs, double d, double bruit)
    : source_(source), tueurs_(tueurs), sens_(d > 0 ? 1 : -1), bruit_(bruit) {}

void ArcSursis::Pose(const PieceBrute& piece, const Intervalle& reste) {
  const Vec2 a = source_.A(piece.source);
  saufs_[0] = saufs_[1] = piece.source;
  saufs_[2] = reste.de.cause;
  saufs_[3] = reste.a.cause;
  if (piece.arc) {
    saufs_[1] = Numero32(source_.Precedent(piece.source));
    f0_ = f1_ = milieu_ = a;
    demi_ = 0;
    n0_ = reste.de.u;
    n1_ = reste.a.u;
    ouverture_ = Norme(n0_ + n1_) / 2;
    return;
  }
  f0_ = a + piece.u * reste.de.t;
  f1_ = a + piece.u * reste.a.t;
  milieu_ = (f0_ + f1_) * 0.5;
  demi_ = (reste.a.t - reste.de.t) / 2;
  n0_ = n1_ = Gauche(piece.u) * sens_;
  ouverture_ = 1;
}

double ArcSursis::De(const PieceBrute& piece, const Intervalle& reste, double plancher) {
  Pose(piece, reste);
  if (ouverture_ < OuvertureMin) return 0;
  sursis_ = Inf;
  if (dernier_ != Naturel) Essaie(dernier_);
  // What lies beside that which ends the stretch comes next.
  for (const std::uint32_t c : {saufs_[2], saufs_[3]}) {
    if (c == Naturel) continue;
    Essaie(source_.Suivant(c));
    Essaie(source_.Precedent(c));
  }
  if (sursis_ <= plancher) return 0;
  const ArcSource::Arbre& arbre = tueurs_ == nullptr ? source_.Boites() : tueurs_->arbre;
  const bool fini = arbre.Parcourt(
      [&](std::size_t k) { return DeBoite(arbre.De(k)) < sursis_; },
      [&](std::size_t k) {
        return base::Distance2(arbre.De(2 * k), milieu_) < base::Distance2(arbre.De(2 * k + 1), milieu_);
      },
      [&](std::size_t feuille) {
        for (std::size_t k = arbre.Debut(feuille), fin = arbre.Fin(feuille); k < fin; ++k) {
          Essaie(tueurs_ == nullptr ? k : tueurs_->segments[k]);
        }
        return sursis_ > plancher;
      });
  return fini ? sursis_ * (1 - Marge) - Marge : 0;
}

double ArcSursis::DeBoite(const base::Boite<double>& b) const {
  const Vec2 c = Vec2{(b.x0 + b.x1) / 2, (b.y0 + b.y1) / 2} - f0_;
  const double ex = (b.x1 - b.x0) / 2;
  const double ey = (b.y1 - b.y0) / 2;
  const auto haut = [&](Vec2 n) { return Scalaire(n, c) + std::abs(n.x) * ex + std::abs(n.y) * ey; };
  const double h = demi_ > 0 ? haut(n0_) : Hauteur(haut(n0_), haut(n1_));
  if (h <= bruit_ / 2) return Inf;
  const double e = std::sqrt(base::Distance2(b, milieu_)) - demi_;
  return e > 0 ? e * e / (2 * h) : 0;
}

// The cheaper bounds first: the circle around all feet, then the line, then the feet themselves.
void ArcSursis::Essaie(std::size_t j) {
  if (std::find(std::begin(saufs_), std::end(saufs_), j) != std::end(saufs_)) return;
  const Vec2 a = source_.A(j) - f0_;
  const Vec2 b = source_.B(j) - f0_;
  // A place that stands out by less than the noise never takes more than that.
  const double h = demi_ > 0 ? std::max(Scalaire(n0_, a), Scalaire(n0_, b))
                             : Hauteur(std::max(Scalaire(n0_, a), Scalaire(n0_, b)),
                                       std::max(Scalaire(n1_, a), Scalaire(n1_, b)));
  if (h <= bruit_ / 2) return;
  const double large = std::sqrt(source_.Distance2(j, milieu_)) - demi_;
  if (large > 0 && large * large >= 2 * h * sursis_) return;
  const double ligne = ParLigne(a, b);
  if (ligne >= sursis_) return;
  const double place = Ecart2(j) / (2 * h);
  if (place >= sursis_) return;
  sursis_ = std::max(place, ligne);
  dernier_ = Numero32(j);
}

// Squared distance of the segment j from the feet.
double ArcSursis::Ecart2(std::size_t j) const {
  double e = source_.Distance2(j, f0_);
  if (demi_ == 0) return e;
  const Segment pieds{f0_, f1_};
  e = std::min(e, source_.Distance2(j, f1_));
  return std::min(
      {e, LieuSurSegment(pieds, source_.A(j)).distance2, LieuSurSegment(pieds, source_.B(j)).distance2});
}

// When the line through a and b, both seen from f0_, is met at the earliest.
double ArcSursis::ParLigne(Vec2 a, Vec2 b) const {
  Vec2 m = Gauche(Unite(b - a));
  double e0 = -Scalaire(m, a);
  double e1 = e0 + Scalaire(m, f1_ - f0_);
  if (e0 + e1 < 0) {
    m = m * -1.0;
    e0 = -e0;
    e1 = -e1;
  }
  const double e = std::min(e0, e1);
  if (e <= 0) return 0;
  // 1 - m n without the loss of its first digits, for n between n0_ and n1_.
  const Vec2 d0 = m - n0_;
  const Vec2 d1 = m - n1_;
  double ecart = std::max(Scalaire(d0, d0), Scalaire(d1, d1)) / 2;
  if (ecart > 1) ecart = 1 + (ecart - 1) / ouverture_;
  return ecart > 0 ? e / ecart : Inf;
}

}  // namespace pathwerk::decalage
