#include "closed/pathwerk/decalage/ArcSource.h"

#include <algorithm>
#include <cmath>

#include "closed/pathwerk/commun/ArbreSegments.h"
#include "closed/pathwerk/commun/Numero32.h"
#include "closed/pathwerk/commun/Suites.h"

namespace pathwerk::decalage {

ArcSource::ArcSource(std::span<const Chemin> contours) {
  std::size_t n = 0;
  for (const Chemin& c : contours) n += c.size() >= 2 ? c.size() : 0;
  sommets_.reserve(n);
  suivant_.resize(n);
  precedent_.resize(n);
  for (const Chemin& c : contours) {
    if (c.size() < 2) continue;
    const std::size_t debut = sommets_.size();
    unSeul_ = unSeul_ && debut == 0;
    debuts_.push_back(Numero32(debut));
    sommets_.insert(sommets_.end(), c.begin(), c.end());
    const std::size_t dernier = sommets_.size() - 1;
    for (std::size_t i = debut; i < dernier; ++i) {
      suivant_[i] = Numero32(i + 1);
      precedent_[i + 1] = Numero32(i);
    }
    suivant_[dernier] = Numero32(debut);
    precedent_[debut] = Numero32(dernier);
    for (const Vec2 p : c) etendue_ = std::max({etendue_, std::abs(p.x), std::abs(p.y)});
  }
  arbre_ = Arbre(n, [this](std::size_t i, base::Boite<double>& b) {
    b.Etend(A(i).x, A(i).y);
    b.Etend(B(i).x, B(i).y);
  });
}

std::size_t ArcSource::DebutDuContour(std::size_t i) const {
  return unSeul_ ? 0 : *(std::upper_bound(debuts_.begin(), debuts_.end(), i) - 1);
}

bool ArcSource::PeutSeCroiser() const {
  const std::size_t n = Taille();
  if (n < 3) return n > 0;
  const Suites suites(arbre_, true, [this](std::size_t i, Pas& pas) { pas.Ajoute(B(i) - A(i)); });
  return !suites.Parcourt([this, n](std::size_t i, std::size_t j) {
    return !SeTouchent({A(i), B(i)}, {A(j), B(j)}, i, j, n);
  });
}

double ArcSource::Distance2(Vec2 p, double limite2) const {
  double meilleur = limite2;
  arbre_.Approche(p, meilleur, [&](std::size_t feuille) {
    for (std::size_t i = arbre_.Debut(feuille), fin = arbre_.Fin(feuille); i < fin; ++i) {
      meilleur = std::min(meilleur, Distance2(i, p));
    }
  });
  return meilleur;
}

// Crossings of the ray to the right. Of a run of segments that lies wholly to the right only the ends count:
// whatever the path does between them, it is below or above the ray at both.
int ArcSource::Tours(Vec2 p, std::size_t sauf) const {
  int tours = 0;
  const auto entre = [&](std::size_t k) {
    const base::Boite<double>& b = arbre_.De(k);
    if (!(b.y0 <= p.y && p.y < b.y1 && b.x1 > p.x)) return false;
    if (!(b.x0 > p.x && unSeul_)) return true;
    tours += static_cast<int>(B(arbre_.Fin(k) - 1).y > p.y) - static_cast<int>(A(arbre_.Debut(k)).y > p.y);
    return false;
  };
  arbre_.Parcourt(
      entre, [](std::size_t) { return false; },
      [&](std::size_t feuille) {
        for (std::size_t i = arbre_.Debut(feuille), fin = arbre_.Fin(feuille); i < fin; ++i) {
          const Vec2 a = A(i);
          const Vec2 c = B(i);
          const int sens = static_cast<int>(c.y > p.y) - static_cast<int>(a.y > p.y);
          if (sens != 0 && i != sauf && Vectoriel(c - a, p - a) * sens > 0) tours += sens;
        }
        return true;
      });
  return tours;
}

}  // namespace pathwerk::decalage
