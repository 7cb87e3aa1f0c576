#include "closed/pathwerk/lecture/dxf/Spline.h"

#include <algorithm>
#include <cmath>

#include "base/Indices.h"

namespace pathwerk::lecture::dxf {

namespace {

constexpr int DegreMax = 25;
constexpr int ProfondeurMax = 14;  // halvings of one piece: 16384 chords at most

// Control point of the plan in homogeneous form: (w x, w y, w).
struct Homogene {
  double x = 0;
  double y = 0;
  double w = 1;
};

Homogene Entre(const Homogene& a, const Homogene& b, double t) {
  return {a.x + (b.x - a.x) * t, a.y + (b.y - a.y) * t, a.w + (b.w - a.w) * t};
}

Vec2 Projette(const Homogene& h) { return {h.x / h.w, h.y / h.w}; }

double DistanceSegment(Vec2 p, Vec2 a, Vec2 b) {
  const double dx = b.x - a.x;
  const double dy = b.y - a.y;
  const double l2 = dx * dx + dy * dy;
  double t = l2 > 0 ? ((p.x - a.x) * dx + (p.y - a.y) * dy) / l2 : 0;
  t = std::clamp(t, 0.0, 1.0);
  return std::hypot(p.x - a.x - t * dx, p.y - a.y - t * dy);
}

// Cuts a Bezier piece in halves until it is flat.
//
// The distance to the chord is a convex function of the place, and a point of the curve is a blend of the control
// points whose outer two lie on the chord. So the curve is nowhere farther from the chord than the farthest inner
// control point times the greatest sum of the inner blending weights: 1 - 2^(1 - degree), or 1 when rational.
// That is a bound, not an estimate.
class Aplatisseur {
 public:
  Aplatisseur(std::vector<Vec2>& points, int degre, bool rationnelle, double fleche, Budget& budget)
      : points_(points),
        budget_(budget),
        n_(base::Indice(degre) + 1),
        seuil_(fleche / (rationnelle ? 1.0 : std::max(1 - std::ldexp(1.0, 1 - degre), 1e-3))) {
    pile_.resize(n_ * (ProfondeurMax + 2));
  }

  // Appends the points behind the start of the piece.
  bool Ajoute(const Homogene* bezier) {
    std::copy_n(bezier, n_, pile_.begin());
    return Coupe(0);
  }

 private:
  bool Plat(const Homogene* q) const {
    const Vec2 a = Projette(q[0]);
    const Vec2 b = Projette(q[n_ - 1]);
    for (std::size_t i = 1; i + 1 < n_; ++i) {
      if (DistanceSegment(Projette(q[i]), a, b) > seuil_) return false;  // false for what isn't a number
    }
    return true;
  }

  // The piece lies in the row `profondeur` of the stack; its halves go to that row and the next.
  bool Coupe(int profondeur) {
    Homogene* const q = pile_.data() + base::Indice(profondeur) * n_;
    if (profondeur >= ProfondeurMax || Plat(q)) {
      if (!budget_.Points(1)) return false;
      points_.push_back(Projette(q[n_ - 1]));
      return true;
    }
    // de Casteljau in place: the left half goes down a row, the right half stays.
    Homogene* const gauche = q + n_;
    gauche[0] = q[0];
    for (std::size_t k = 1; k < n_; ++k) {
      for (std::size_t i = 0; i + k < n_; ++i) q[i] = Entre(q[i], q[i + 1], 0.5);
      gauche[k] = q[0];
    }
    // The right half must survive the left one: it is kept in the row, the left one is worked off first below it.
    if (!Coupe(profondeur + 1)) return false;
    std::copy_n(q, n_, gauche);
    return Coupe(profondeur + 1);
  }

  std::vector<Vec2>& points_;
  Budget& budget_;
  std::size_t n_;
  double seuil_;
  std::vector<Homogene> pile_;
};

// Control points of the Bezier piece over the span [u(k), u(k+1)] by the polar form (blossom): point j is the value
// at j times the right end and p - j times the left end. Only the p + 1 control points of the span are touched, so
// a spline of any length costs the same for each span.
void PieceBezier(const Spline& s, std::size_t k, const std::vector<Homogene>& locaux,
                 std::vector<Homogene>& piece) {
  const auto p = base::Indice(s.degre);
  const double gauche = s.noeuds[k];
  const double droite = s.noeuds[k + 1];
  Homogene d[DegreMax + 1];
  for (std::size_t j = 0; j <= p; ++j) {
    std::copy_n(locaux.begin(), p + 1, d);
    for (std::size_t r = 1; r <= p; ++r) {
      const double u = r <= j ? droite : gauche;
      for (std::size_t i = p; i >= r; --i) {
        const double bas = s.noeuds[k - p + i];
        const double haut = s.noeuds[k + 1 + i - r];
        d[i] = Entre(d[i - 1], d[i], (u - bas) / (haut - bas));
      }
    }
    piece[j] = d[p];
  }
}

}  // namespace

bool Valide(const Spline& s) {
  if (s.degre < 1 || s.degre > DegreMax) return false;
  const std::size_t n = s.controle.size();
  const auto p = base::Indice(s.degre);
  if (n < p + 1 || s.noeuds.size() != n + p + 1) return false;
  if (!s.poids.empty() && s.poids.size() != n) return false;
  for (const double w : s.poids) {
    if (!(w > 0) || !std::isfinite(w)) return false;
  }
  for (std::size_t i = 0; i < s.noeuds.size(); ++i) {
    if (!std::isfinite(s.noeuds[i]) || (i > 0 && s.noeuds[i] < s.noeuds[i - 1])) return false;
  }
  return s.noeuds[p] < s.noeuds[n];
}

void NoeudsParDefaut(Spline& s, bool periodique) {
  const std::size_t n = s.controle.size();
  const auto p = base::Indice(std::max(s.degre, 1));
  s.noeuds.clear();
  if (n < p + 1) return;
  s.noeuds.reserve(n + p + 1);
  for (std::size_t i = 0; i < n + p + 1; ++i) {
    const std::size_t rang = periodique ? i : std::clamp(i, p, n) - p;
    s.noeuds.push_back(static_cast<double>(rang));
  }
}

bool AjouteSpline(std::vector<Vec2>& points, const Spline& s, const Affine& m, double fleche, Budget& budget) {
  const auto p = base::Indice(s.degre);
  const std::size_t n = s.controle.size();
  std::vector<Homogene> locaux(p + 1);
  std::vector<Homogene> piece(p + 1);
  Aplatisseur aplatisseur(points, s.degre, !s.poids.empty(), fleche, budget);
  bool premier = true;
  for (std::size_t k = p; k < n; ++k) {
    if (!(s.noeuds[k] < s.noeuds[k + 1])) continue;
    for (std::size_t i = 0; i <= p; ++i) {
      const std::size_t rang = k - p + i;
      const Vec2 plan = m.Projette(s.controle[rang]);
      const double w = s.poids.empty() ? 1 : s.poids[rang];
      locaux[i] = {plan.x * w, plan.y * w, w};
    }
    PieceBezier(s, k, locaux, piece);
    if (premier) {
      if (!budget.Points(1)) return false;
      points.push_back(Projette(piece[0]));
      premier = false;
    }
    if (!aplatisseur.Ajoute(piece.data())) return false;
  }
  return true;
}

}  // namespace pathwerk::lecture::dxf
