// Where an open path comes back to itself.
#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "base/ArbreBoites.h"
#include "base/Boite.h"
#include "closed/pathwerk/commun/Lieux.h"

namespace pathwerk::decalage {

// Found out where it is asked for, a few segments at a time.
class Contacts {
 public:
  static constexpr double Portee = 0.01;  // mm: a path that comes so near to itself touches itself

  explicit Contacts(const Chemin& chemin);

  // Does vertex i lie on a segment other than its own two?
  [[nodiscard]] bool Sommet(std::size_t i);
  // Does segment s, or an end of it, meet another place of the path than its neighbours'?
  [[nodiscard]] bool DuSegment(std::size_t s);
  // May it? Quick also in a crowd, where a segment has thousands of others around it: there the answer is yes.
  [[nodiscard]] bool Peut(std::size_t s);
  // `visite(i)` for the vertices that do, of those that may lie `rayon` beside an edge, but for `Portee`.
  template <class Visite>
  void Voisins(const Segment& arete, double rayon, Visite visite) {
    const Vec2 u = Unite(arete.b - arete.a);
    const double l = Norme(arete.b - arete.a);
    // Boxes in the frame of the edge: between its ends, and in one of two strips beside it.
    const auto entre = [&](std::size_t k) {
      const base::Boite<double>& b = arbre_.De(k);
      const Vec2 c = Vec2{(b.x0 + b.x1) / 2, (b.y0 + b.y1) / 2} - arete.a;
      const double ex = (b.x1 - b.x0) / 2;
      const double ey = (b.y1 - b.y0) / 2;
      const double t = Scalaire(u, c);
      const double large = std::abs(u.x) * ex + std::abs(u.y) * ey;
      const double h = std::abs(Vectoriel(u, c));
      const double haut = std::abs(u.x) * ey + std::abs(u.y) * ex;
      return !(t + large < 0 || t - large > l || h - haut > rayon + Portee || h + haut < rayon - Portee);
    };
    arbre_.Parcourt(
        entre, [](std::size_t) { return false; },
        [&](std::size_t feuille) {
          // The last segment brings the end of the path.
          const std::size_t fin = arbre_.Fin(feuille) + (arbre_.Fin(feuille) == arbre_.Nombre() ? 1 : 0);
          for (std::size_t i = arbre_.Debut(feuille); i < fin; ++i) {
            const double h = std::abs(Vectoriel(u, chemin_[i] - arete.a));
            if (std::abs(h - rayon) <= 2 * Portee && Sommet(i)) visite(i);
          }
          return true;
        });
  }

 private:
  using Arbre = base::ArbreBoites<double, 4>;
  [[nodiscard]] std::uint8_t Su(std::size_t feuille) const { return su_[feuille - arbre_.Feuilles()]; }
  // What becomes of one of the leaf's marks.
  bool Trouve(std::size_t feuille, const std::uint8_t& marque);
  // Among no more than `max` leaves nearby, until this mark is set.
  void Cherche(std::size_t feuille, std::size_t max, const std::uint8_t* marque);
  // Do two leaves, the same or neighbours, go one way so that nothing in them comes back to itself?
  [[nodiscard]] bool VontEnsemble(std::size_t feuille, std::size_t autre) const;
  // Of two leaves, what the second one brings to the first. Whether all of the first touches by now.
  [[nodiscard]] bool Compare(std::size_t feuille, std::size_t autre);
  [[nodiscard]] bool Touche(std::size_t segment, std::size_t sommet) const;

  const Chemin& chemin_;
  Arbre arbre_;                         // over the segments
  std::vector<std::uint8_t> avance_;    // of each leaf, the directions in which all its steps go on
  std::vector<std::uint8_t> su_;        // of each leaf, how much is known
  std::vector<std::uint8_t> sommets_;   // lie on another segment
  std::vector<std::uint8_t> segments_;  // have another vertex on them
};

}  // namespace pathwerk::decalage
