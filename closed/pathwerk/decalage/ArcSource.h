// The outline of an offset as the arc engine wants it: vertices of all contours in one row, and a search tree.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "base/ArbreBoites.h"
#include "base/Indices.h"
#include "closed/pathwerk/commun/Lieux.h"

namespace pathwerk::decalage {

// Segment i runs from vertex i to vertex Suivant(i). Contours of less than two points are left out.
class ArcSource {
 public:
  using Arbre = base::ArbreBoites<double, 4>;

  explicit ArcSource(std::span<const Chemin> contours);

  [[nodiscard]] std::size_t Taille() const { return sommets_.size(); }
  [[nodiscard]] std::size_t Suivant(std::size_t i) const { return suivant_[i]; }
  [[nodiscard]] std::size_t Precedent(std::size_t i) const { return precedent_[i]; }
  [[nodiscard]] Vec2 A(std::size_t i) const { return sommets_[i]; }
  [[nodiscard]] Vec2 B(std::size_t i) const { return sommets_[suivant_[i]]; }
  // The first vertex of the contour that vertex i belongs to.
  [[nodiscard]] std::size_t DebutDuContour(std::size_t i) const;
  // Greatest coordinate, mm.
  [[nodiscard]] double Etendue() const { return etendue_; }

  // May the contour, the only one, touch or cross itself? Never a wrong "no".
  [[nodiscard]] bool PeutSeCroiser() const;

  // In the order of the segments.
  [[nodiscard]] const Arbre& Boites() const { return arbre_; }
  // Squared distance to the outline, exact where it is below `limite2`; else some value not below it.
  [[nodiscard]] double Distance2(Vec2 p, double limite2) const;
  [[nodiscard]] double Distance2(std::size_t segment, Vec2 p) const;
  // Winding number of the contours around `p`, which lies on none of them, but for the segment `sauf`, which is
  // left out of the count.
  [[nodiscard]] int Tours(Vec2 p, std::size_t sauf = base::Nulle) const;

 private:
  std::vector<Vec2> sommets_;
  std::vector<std::uint32_t> suivant_;
  std::vector<std::uint32_t> precedent_;
  std::vector<std::uint32_t> debuts_;  // of the contours
  Arbre arbre_;
  bool unSeul_ = true;  // one contour
  double etendue_ = 0;
};

inline double ArcSource::Distance2(std::size_t segment, Vec2 p) const {
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

}  // namespace pathwerk::decalage
