// Search tree over the segments of paths: nearest place, places within a distance, crossings.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "base/ArbreBoites.h"
#include "closed/pathwerk/commun/Lieux.h"

namespace pathwerk {

// The tree of boxes over segments in the order given.
class ArbreSegments {
 public:
  explicit ArbreSegments(std::vector<Segment> segments);

  [[nodiscard]] const std::vector<Segment>& Segments() const { return segments_; }
  // Nearest place to `p`; `segment` is meaningless (and the distance infinite) when there are no segments.
  [[nodiscard]] Lieu PlusProche(Vec2 p) const;
  // The same among places nearer than sqrt(limite2) on segments that `accepte(segment)` takes; at `limite2` when
  // there is none.
  template <class Accepte>
  [[nodiscard]] Lieu PlusProche(Vec2 p, double limite2, Accepte accepte) const {
    return ProcheDans(p, limite2, accepte, [](std::size_t) { return true; });
  }
  // The same where no node is looked into that isn't marked, as by Marque().
  template <class Accepte>
  [[nodiscard]] Lieu PlusProche(Vec2 p, double limite2, Accepte accepte,
                                const std::vector<std::uint8_t>& marques) const {
    return ProcheDans(p, limite2, accepte, [&marques](std::size_t noeud) { return marques[noeud] != 0; });
  }
  // Marks the nodes over the segments [debut, fin). `marques`: of as many nodes as there are, or empty.
  void Marque(std::vector<std::uint8_t>& marques, std::size_t debut, std::size_t fin) const;
  // Calls `visite(lieu)` for the nearest place of every segment that comes within sqrt(limite2) of `p`.
  template <class Visite>
  void Voisins(Vec2 p, double limite2, Visite visite) const {
    arbre_.Parcourt([&](std::size_t k) { return !(base::Distance2(arbre_.De(k), p) > limite2); }, ADroite,
                    [&](std::size_t feuille) {
                      for (std::size_t i = arbre_.Debut(feuille), fin = arbre_.Fin(feuille); i < fin; ++i) {
                        Lieu l = LieuSurSegment(segments_[i], p);
                        l.segment = i;
                        if (l.distance2 <= limite2) visite(l);
                      }
                      return true;
                    });
  }
  // Does some segment come nearer than `distance` to `s`?
  [[nodiscard]] bool PassePres(const Segment& s, double distance) const;
  // The segments are those of one closed path in order: may the path touch or cross itself? Never a wrong "no".
  [[nodiscard]] bool PeutSeCroiser() const;

 private:
  using Arbre = base::ArbreBoites<double, 4>;
  static bool ADroite(std::size_t) { return false; }

  template <class Accepte, class Entre>
  [[nodiscard]] Lieu ProcheDans(Vec2 p, double limite2, Accepte accepte, Entre entre) const {
    Lieu meilleur;
    meilleur.distance2 = limite2;
    arbre_.Approche(p, meilleur.distance2, entre, [&](std::size_t feuille) {
      for (std::size_t i = arbre_.Debut(feuille), fin = arbre_.Fin(feuille); i < fin; ++i) {
        Lieu l = LieuSurSegment(segments_[i], p);
        l.segment = i;
        if (l.distance2 < meilleur.distance2 && accepte(i)) meilleur = l;
      }
    });
    return meilleur;
  }

  std::vector<Segment> segments_;
  Arbre arbre_;
};

// Segments of a path; a closed one gets the segment back to its start.
std::vector<Segment> SegmentsDe(const Chemin& chemin, bool ferme);

// Do the segments i < j of the n of a closed path, s and r, meet anywhere but in the vertex that neighbours share?
bool SeTouchent(const Segment& s, const Segment& r, std::size_t i, std::size_t j, std::size_t n);

// ArbreSegments::PeutSeCroiser() of the segments of a closed path.
bool PeutSeCroiser(const Chemin& boucle);

}  // namespace pathwerk
