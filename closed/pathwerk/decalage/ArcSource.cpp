#include "closed/pathwerk/decalage/ArcSource.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>

namespace pathwerk::decalage {

ArcSource::ArcSource(std::span<const Chemin> contours) {
  std::size_t n = 0;
  for (const Chemin& c : contours) n += c.size() >= 2 ? c.size() : 0;
  sommets_.reserve(n);
  suivant_.reserve(n);
  precedent_.reserve(n);
  for (const Chemin& c : contours) {
    if (c.size() < 2) continue;
    const std::size_t debut = sommets_.size();
    unSeul_ = unSeul_ && debut == 0;
    for (std::size_t k = 0; k < c.size(); ++k) {
      sommets_.push_back(c[k]);
      suivant_.push_back(static_cast<std::uint32_t>(k + 1 < c.size() ? debut + k + 1 : debut));
      precedent_.push_back(static_cast<std::uint32_t>(k > 0 ? debut + k - 1 : debut + c.size() - 1));
      etendue_ = std::max({etendue_, std::abs(c[k].x), std::abs(c[k].y)});
    }
  }
  feuilles_ = std::bit_ceil(std::max<std::size_t>(1, (n + kParFeuille - 1) / kParFeuille));
  constexpr double kInf = std::numeric_limits<double>::infinity();
  boites_.assign(2 * feuilles_, Boite{kInf, kInf, -kInf, -kInf});
  for (std::size_t i = 0; i < n; ++i) {
    Boite& b = boites_[feuilles_ + i / kParFeuille];
    for (const Vec2 p : {A(i), B(i)}) {
      b = {std::min(b.x0, p.x), std::min(b.y0, p.y), std::max(b.x1, p.x), std::max(b.y1, p.y)};
    }
  }
  for (std::size_t k = feuilles_ - 1; k >= 1; --k) {
    const Boite& g = boites_[2 * k];
    const Boite& d = boites_[2 * k + 1];
    boites_[k] = {std::min(g.x0, d.x0), std::min(g.y0, d.y0), std::max(g.x1, d.x1), std::max(g.y1, d.y1)};
  }
}

double ArcSource::Distance2(std::size_t segment, Vec2 p) const {
  const Vec2 a = A(segment);
  const Vec2 d = B(segment) - a;
  const Vec2 q = p - a;
  const double l2 = Scalaire(d, d);
  const double s = Scalaire(q, d);
  if (s <= 0 || l2 <= 0) return Scalaire(q, q);
  if (s >= l2) return Scalaire(q - d, q - d);
  const double v = Vectoriel(d, q);
  return v * v / l2;
}

double ArcSource::Distance2(Vec2 p, double limite2) const {
  double meilleur = limite2;
  std::size_t pile[130];
  std::size_t hauteur = 0;
  if (Taille() > 0) pile[hauteur++] = 1;
  while (hauteur > 0) {
    const std::size_t k = pile[--hauteur];
    if (decalage::Distance2(boites_[k], p) >= meilleur) continue;
    if (k >= feuilles_) {
      for (std::size_t i = Debut(k), fin = Fin(k); i < fin; ++i) meilleur = std::min(meilleur, Distance2(i, p));
      continue;
    }
    const bool gauche = decalage::Distance2(boites_[2 * k], p) < decalage::Distance2(boites_[2 * k + 1], p);
    pile[hauteur++] = 2 * k + (gauche ? 1 : 0);
    pile[hauteur++] = 2 * k + (gauche ? 0 : 1);
  }
  return meilleur;
}

// Crossings of the ray to the right. Of a run of segments that lies wholly to the right only the ends count:
// whatever the path does between them, it is below or above the ray at both.
int ArcSource::Tours(Vec2 p, std::size_t sauf) const {
  int tours = 0;
  std::size_t pile[130];
  std::size_t hauteur = 0;
  if (Taille() > 0) pile[hauteur++] = 1;
  while (hauteur > 0) {
    const std::size_t k = pile[--hauteur];
    const Boite& b = boites_[k];
    if (!(b.y0 <= p.y && p.y < b.y1 && b.x1 > p.x)) continue;
    const bool feuille = k >= feuilles_;
    if (b.x0 > p.x && unSeul_) {
      std::size_t g = k;
      std::size_t d = k;
      while (g < feuilles_) g *= 2;
      while (d < feuilles_) d = 2 * d + 1;
      tours += static_cast<int>(B(Fin(d) - 1).y > p.y) - static_cast<int>(A(Debut(g)).y > p.y);
      continue;
    }
    if (!feuille) {
      pile[hauteur++] = 2 * k;
      pile[hauteur++] = 2 * k + 1;
      continue;
    }
    for (std::size_t i = Debut(k), fin = Fin(k); i < fin; ++i) {
      const Vec2 a = A(i);
      const Vec2 c = B(i);
      const int sens = static_cast<int>(c.y > p.y) - static_cast<int>(a.y > p.y);
      if (sens != 0 && i != sauf && Vectoriel(c - a, p - a) * sens > 0) tours += sens;
    }
  }
  return tours;
}

}  // namespace pathwerk::decalage
