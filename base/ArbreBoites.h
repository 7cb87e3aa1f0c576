// The tree of boxes behind every search in the plane: complete and binary, in one row of memory.
//
// Node k has the children 2k and 2k + 1, the root is 1; leaves begin at Feuilles() and hold `ParFeuille` things
// each, in the order in which the things were given. Things that follow each other along a path lie near each
// other, so boxes are small where the path is smooth; scattered things are put into an order of that kind first
// (RangeParVoisinage). Building is linear, a query mostly logarithmic.
#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <iterator>
#include <vector>

#include "base/Boite.h"

namespace base {

// Which things a node stands for. `T`: of the boxes' sides, float or double.
template <class T, std::size_t ParFeuille>
class ArbreBoites {
 public:
  ArbreBoites() = default;
  // `etend(i, boite)` makes the box large enough for thing i.
  template <class Etend>
  ArbreBoites(std::size_t nombre, Etend etend) : nombre_(nombre), feuilles_(NbFeuilles(nombre)) {
    boites_.resize(2 * feuilles_);
    for (std::size_t i = 0; i < nombre; ++i) etend(i, boites_[feuilles_ + i / ParFeuille]);
    for (std::size_t k = feuilles_ - 1; k >= 1; --k) {
      boites_[k] = boites_[2 * k];
      boites_[k].Etend(boites_[2 * k + 1]);
    }
  }

  [[nodiscard]] std::size_t Nombre() const { return nombre_; }
  [[nodiscard]] std::size_t Feuilles() const { return feuilles_; }
  [[nodiscard]] std::size_t Noeuds() const { return boites_.size(); }
  [[nodiscard]] bool EstFeuille(std::size_t noeud) const { return noeud >= feuilles_; }
  [[nodiscard]] const Boite<T>& De(std::size_t noeud) const { return boites_[noeud]; }
  // The leaf that holds a thing.
  [[nodiscard]] std::size_t FeuilleDe(std::size_t i) const { return feuilles_ + i / ParFeuille; }
  // Things below a node: [Debut, Fin).
  [[nodiscard]] std::size_t Debut(std::size_t noeud) const {
    while (noeud < feuilles_) noeud *= 2;
    return std::min(nombre_, (noeud - feuilles_) * ParFeuille);
  }
  [[nodiscard]] std::size_t Fin(std::size_t noeud) const {
    while (noeud < feuilles_) noeud = 2 * noeud + 1;
    return std::min(nombre_, (noeud - feuilles_ + 1) * ParFeuille);
  }

  // The one walk. `entre(k)`: shall node k be looked into? Asked when the walk gets there. `gauche(k)`: of
  // the children of k, does the left one come first? `feuille(k)`: a leaf; false ends the walk. Returns whether the
  // walk came to its end.
  template <class Entre, class GaucheDAbord, class Feuille>
  bool Parcourt(Entre entre, GaucheDAbord gauche, Feuille feuille) const {
    if (nombre_ == 0) return true;
    std::size_t pile[130];
    std::size_t hauteur = 0;
    pile[hauteur++] = 1;
    while (hauteur > 0) {
      const std::size_t k = pile[--hauteur];
      if (!entre(k)) continue;
      if (k >= feuilles_) {
        if (!feuille(k)) return false;
        continue;
      }
      const std::size_t apres = gauche(k) ? 1 : 0;
      pile[hauteur++] = 2 * k + apres;
      pile[hauteur++] = 2 * k + 1 - apres;
    }
    return true;
  }
  // The same for what is asked of the leaves alone, in any order: of few leaves each is asked, which costs less
  // than the way down to some of them.
  template <class Entre, class GaucheDAbord, class Feuille>
  bool ParcourtFeuilles(Entre entre, GaucheDAbord gauche, Feuille feuille) const {
    if (feuilles_ > PeuDeFeuilles) return Parcourt(entre, gauche, feuille);
    for (std::size_t k = feuilles_, fin = FeuilleDe(nombre_ + ParFeuille - 1); k < fin; ++k) {
      if (entre(k) && !feuille(k)) return false;
    }
    return true;
  }
  // The nearer child first. `limite2`, which `feuille` may lower as it finds something: boxes that far from `p` or
  // farther, squared, are left out.
  template <class Feuille>
  void Approche(Vec2 p, const double& limite2, Feuille feuille) const {
    Approche(
        p, limite2, [](std::size_t) { return true; }, feuille);
  }
  // The same where only nodes that `entre(k)` takes are looked into.
  template <class Entre, class Feuille>
  void Approche(Vec2 p, const double& limite2, Entre entre, Feuille feuille) const {
    ParcourtFeuilles([&](std::size_t k) { return entre(k) && !(Distance2(boites_[k], p) >= limite2); },
                     [&](std::size_t k) { return Distance2(boites_[2 * k], p) < Distance2(boites_[2 * k + 1], p); },
                     [&](std::size_t k) {
                       feuille(k);
                       return true;
                     });
  }

  // The things of [debut, debut + nombre) in an order in which those of a leaf lie near each other: those of a
  // node are halved where its children part, along the longer side of the things' box. `lieu(thing)` gives its
  // place.
  template <class Iterateur, class Lieu>
  static void RangeParVoisinage(Iterateur debut, std::size_t nombre, Lieu lieu) {
    Range(debut, nombre, NbFeuilles(nombre), lieu);
  }

 private:
  static constexpr std::size_t PeuDeFeuilles = 32;
  static constexpr std::size_t NbFeuilles(std::size_t nombre) {
    return std::bit_ceil(std::max<std::size_t>(1, (nombre + ParFeuille - 1) / ParFeuille));
  }
  template <class Iterateur, class Lieu>
  static void Range(Iterateur debut, std::size_t nombre, std::size_t feuilles, Lieu lieu) {
    const std::size_t moitie = feuilles / 2 * ParFeuille;
    if (feuilles == 1) return;
    if (nombre > moitie) {
      Boite<double> b;
      const auto fin = debut + static_cast<std::ptrdiff_t>(nombre);
      for (auto i = debut; i != fin; ++i) b.Etend(lieu(*i).x, lieu(*i).y);
      const bool large = b.x1 - b.x0 > b.y1 - b.y0;
      const auto milieu = debut + static_cast<std::ptrdiff_t>(moitie);
      std::nth_element(debut, milieu, fin, [&](const auto& l, const auto& r) {
        return large ? lieu(l).x < lieu(r).x : lieu(l).y < lieu(r).y;
      });
      Range(milieu, nombre - moitie, feuilles / 2, lieu);
    }
    Range(debut, std::min(nombre, moitie), feuilles / 2, lieu);
  }

  std::vector<Boite<T>> boites_;
  std::size_t nombre_ = 0;
  std::size_t feuilles_ = 1;  // a power of two
};

}  // namespace base
