// The outline of an offset as the arc engine wants it: vertices of all contours in one row, and a search tree.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "closed/pathwerk/commun/Vecteur.h"

namespace pathwerk::decalage {

// Segment i runs from vertex i to vertex Suivant(i). Contours of less than two points are left out.
class ArcSource {
 public:
  struct Boite {
    double x0, y0, x1, y1;
  };
  static constexpr std::size_t kParFeuille = 4;

  explicit ArcSource(std::span<const Chemin> contours);

  [[nodiscard]] std::size_t Taille() const { return sommets_.size(); }
  [[nodiscard]] std::size_t Suivant(std::size_t i) const { return suivant_[i]; }
  [[nodiscard]] std::size_t Precedent(std::size_t i) const { return precedent_[i]; }
  [[nodiscard]] Vec2 A(std::size_t i) const { return sommets_[i]; }
  [[nodiscard]] Vec2 B(std::size_t i) const { return sommets_[suivant_[i]]; }
  // Greatest coordinate, mm.
  [[nodiscard]] double Etendue() const { return etendue_; }

  // Tree in the order of the segments: node k has the children 2k and 2k + 1; leaves begin at Feuilles() and hold
  // kParFeuille segments each.
  [[nodiscard]] std::size_t Feuilles() const { return feuilles_; }
  [[nodiscard]] const Boite& BoiteDe(std::size_t noeud) const { return boites_[noeud]; }
  [[nodiscard]] std::size_t Debut(std::size_t feuille) const { return (feuille - feuilles_) * kParFeuille; }
  [[nodiscard]] std::size_t Fin(std::size_t feuille) const {
    const std::size_t f = Debut(feuille) + kParFeuille;
    return f < sommets_.size() ? f : sommets_.size();
  }
  // Squared distance to the outline, exact where it is below `limite2`; else some value not below it.
  [[nodiscard]] double Distance2(Vec2 p, double limite2) const;
  [[nodiscard]] double Distance2(std::size_t segment, Vec2 p) const;
  // Winding number of the contours around `p`, which lies on none of them, but for the segment `sauf`, which is
  // left out of the count.
  [[nodiscard]] int Tours(Vec2 p, std::size_t sauf = static_cast<std::size_t>(-1)) const;

 private:
  std::vector<Vec2> sommets_;
  std::vector<std::uint32_t> suivant_;
  std::vector<std::uint32_t> precedent_;
  std::vector<Boite> boites_;
  std::size_t feuilles_ = 1;
  bool unSeul_ = true;  // one contour
  double etendue_ = 0;
};

inline double Distance2(const ArcSource::Boite& b, Vec2 p) {
  const double dx = p.x < b.x0 ? b.x0 - p.x : p.x > b.x1 ? p.x - b.x1 : 0;
  const double dy = p.y < b.y0 ? b.y0 - p.y : p.y > b.y1 ? p.y - b.y1 : 0;
  return dx * dx + dy * dy;
}

}  // namespace pathwerk::decalage
