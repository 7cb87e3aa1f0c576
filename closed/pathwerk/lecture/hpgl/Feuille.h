// The frames of a plot: user units, plotter units, and the sheet on which everything is drawn.
#pragma once

#include <array>
#include <span>

#include "closed/pathwerk/lecture/Lecture.h"

namespace pathwerk::lecture::hpgl {

inline constexpr double MmParUnite = 0.025;  // 40 plotter units to the millimetre

// Scaling points, user scale and rotation. Everything is in plotter units, and stays as it was when the numbers are
// not finite or too few.
class HpglFeuille {
 public:
  // All as after power-on, but the sheet stays.
  void Initialise();
  void PoseFeuille(std::span<const double> n);         // PS
  void PosePoints(std::span<const double> n);          // IP
  void PosePointsRelatifs(std::span<const double> n);  // IR
  void PoseEchelle(std::span<const double> n);         // SC
  void SansEchelle();
  void PoseRotation(std::span<const double> n);  // RO

  // A place, and a step, in the units in force, on the sheet.
  [[nodiscard]] Vec2 Place(Vec2 p) const;
  [[nodiscard]] Vec2 Pas(Vec2 d) const;
  // The inverse of Place. The scale is never 0, so there is one.
  [[nodiscard]] Vec2 Unites(Vec2 feuille) const;
  // The longest that a step of 1 in the units in force can become on the sheet.
  [[nodiscard]] double Grossissement() const;

 private:
  enum class Echelle { Aucune, Libre, Isotrope, Facteur };
  struct Affine {  // plotter = o + k * user, axis by axis
    Vec2 o;
    Vec2 k{1, 1};
  };

  [[nodiscard]] Vec2 Etendue() const;  // of the hard-clip limits, in the rotated system
  [[nodiscard]] Affine Calcule() const;
  void PointsDefaut();
  void Range();

  Vec2 feuille_{11040, 7721};
  bool feuilleDonnee_ = false;
  Vec2 p1_{603, 521};
  Vec2 p2_{10603, 7721};
  Echelle echelle_ = Echelle::Aucune;
  std::array<double, 6> sc_{};  // xmin, xmax, ymin, ymax, share left, share below
  int rotation_ = 0;            // quarter turns counter-clockwise
  Affine affine_;
};

}  // namespace pathwerk::lecture::hpgl
