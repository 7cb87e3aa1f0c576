// Until which depth nothing new comes near to what is left of a raw piece.
#pragma once

#include "closed/pathwerk/decalage/ArcTaille.h"

namespace pathwerk::decalage {

// Takes one stretch after the other, best in the order of the outline.
class ArcSursis {
 public:
  // `d`: signed distance at which the stretches are free, left positive. `tueurs`: the segments that can take away
  // at greater ones, null for all.
  ArcSursis(const ArcSource& source, const Tueurs* tueurs, double d, double bruit);

  // The depth, mm, below which no segment but its own and those that end it now takes anything of `reste`, a
  // stretch of `piece`. A lower bound; 0 where none above `plancher` was found, infinite where nothing ever comes.
  double De(const PieceBrute& piece, const Intervalle& reste, double plancher);

 private:
  void Pose(const PieceBrute& piece, const Intervalle& reste);
  [[nodiscard]] double DeBoite(const base::Boite<double>& b) const;
  void Essaie(std::size_t j);
  [[nodiscard]] double Ecart2(std::size_t j) const;
  [[nodiscard]] double ParLigne(Vec2 a, Vec2 b) const;
  // How far upwards a place lies at most, seen from the feet, where it lies s0 and s1 upwards along n0_ and n1_.
  [[nodiscard]] double Hauteur(double s0, double s1) const { return std::max(s0, s1) / ouverture_; }

  const ArcSource& source_;
  const Tueurs* tueurs_;
  double sens_;
  double bruit_;
  // The stretch as the circles see it: feet from f0_ to f1_, directions upwards between n0_ and n1_.
  Vec2 f0_, f1_;
  Vec2 n0_, n1_;
  Vec2 milieu_;
  double demi_ = 0;       // half of the way from f0_ to f1_
  double ouverture_ = 1;  // cosine of half of the angle from n0_ to n1_
  std::uint32_t saufs_[4] = {};
  double sursis_ = 0;
  std::uint32_t dernier_ = Naturel;  // what ended the stretch before
};

}  // namespace pathwerk::decalage
