// Search tree over the segments of paths: nearest place, places within a distance, crossings.
#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <span>
#include <utility>
#include <vector>

#include "closed/pathwerk/commun/Vecteur.h"

namespace pathwerk {

struct Segment {
  Vec2 a;
  Vec2 b;
};

// A place on a segment: a + t (b - a), 0 <= t <= 1.
struct Lieu {
  std::size_t segment = 0;
  double t = 0;
  double distance2 = std::numeric_limits<double>::infinity();  // squared, mm2
  Vec2 point;
};

// Nearest place of the segment to `p`.
Lieu LieuSurSegment(const Segment& s, Vec2 p);

// Binary tree of bounding boxes over segments in the order given. Segments that follow each other along a path lie
// near each other, so boxes are small where the path is smooth. Building is linear, a query mostly logarithmic.
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
    Lieu meilleur;
    meilleur.distance2 = limite2;
    if (segments_.empty()) return meilleur;
    std::size_t pile[130];
    std::size_t hauteur = 0;
    pile[hauteur++] = 1;
    while (hauteur > 0) {
      const std::size_t k = pile[--hauteur];
      if (Distance2(k, p) >= meilleur.distance2) continue;
      if (k >= feuilles_) {
        for (std::size_t i = Debut(k), fin = Fin(k); i < fin; ++i) {
          Lieu l = LieuSurSegment(segments_[i], p);
          l.segment = i;
          if (l.distance2 < meilleur.distance2 && accepte(i)) meilleur = l;
        }
        continue;
      }
      std::size_t loin = 2 * k;
      std::size_t pres = 2 * k + 1;
      if (Distance2(loin, p) < Distance2(pres, p)) std::swap(loin, pres);
      pile[hauteur++] = loin;
      pile[hauteur++] = pres;
    }
    return meilleur;
  }
  // Calls `visite(lieu)` for the nearest place of every segment that comes within sqrt(limite2) of `p`.
  template <class Visite>
  void Voisins(Vec2 p, double limite2, Visite visite) const {
    if (segments_.empty()) return;
    std::size_t pile[130];
    std::size_t hauteur = 0;
    pile[hauteur++] = 1;
    while (hauteur > 0) {
      const std::size_t k = pile[--hauteur];
      if (Distance2(k, p) > limite2) continue;
      if (k < feuilles_) {
        pile[hauteur++] = 2 * k;
        pile[hauteur++] = 2 * k + 1;
        continue;
      }
      for (std::size_t i = Debut(k), fin = Fin(k); i < fin; ++i) {
        Lieu l = LieuSurSegment(segments_[i], p);
        l.segment = i;
        if (l.distance2 <= limite2) visite(l);
      }
    }
  }
  // Does some segment come nearer than `distance` to `s`?
  [[nodiscard]] bool PassePres(const Segment& s, double distance) const;
  // The segments are those of one closed path in order: may the path touch or cross itself? Never a wrong "no".
  [[nodiscard]] bool PeutSeCroiser() const;

 private:
  struct Boite {
    double x0, y0, x1, y1;
  };
  static constexpr std::size_t kParFeuille = 4;

  [[nodiscard]] std::size_t Debut(std::size_t k) const;
  [[nodiscard]] std::size_t Fin(std::size_t k) const;
  [[nodiscard]] double Distance2(std::size_t k, Vec2 p) const;
  [[nodiscard]] bool CroiseDans(std::size_t k, const std::vector<std::uint8_t>& sens) const;
  [[nodiscard]] bool CroiseEntre(std::size_t g, std::size_t d, const std::vector<std::uint8_t>& sens) const;
  [[nodiscard]] bool SeTouchent(std::size_t i, std::size_t j) const;

  std::vector<Segment> segments_;
  std::vector<Boite> boites_;
  std::size_t feuilles_ = 1;  // number of leaves, a power of two; leaf k lies at feuilles_ + k
};

// Segments of a path; a closed one gets the segment back to its start.
std::vector<Segment> SegmentsDe(const Chemin& chemin, bool ferme);

}  // namespace pathwerk
