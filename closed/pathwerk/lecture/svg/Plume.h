// Collects the subpaths of a shape, its curves as chords in the drawing's frame.
#pragma once

#include <cstddef>
#include <vector>

#include "closed/pathwerk/commun/Point.h"
#include "closed/pathwerk/lecture/svg/Matrice.h"

namespace pathwerk::lecture::svg {

// One subpath in mm. No two neighbours are equal; a closed one doesn't repeat its first point.
struct SousChemin {
  std::vector<Vec2> points;
  bool ferme = false;
  bool bouge = false;  // had a line, even one of no length
};

// Moves and lines come in user units, `m` maps them to mm. The tolerance holds in mm, whatever the map.
class Plume {
 public:
  // `pointsMax`: how many points may be collected; beyond that the pen is full and takes nothing more.
  Plume(const Matrice& m, double fleche, std::size_t pointsMax) : m_(m), fleche_(fleche), pointsMax_(pointsMax) {}

  void Va(Vec2 p);
  void Ligne(Vec2 p);
  void Cubique(Vec2 p1, Vec2 p2, Vec2 p);
  void Quadratique(Vec2 q, Vec2 p);
  // The elliptical arc from the current place: radii, turn of the first axis (degrees), which of the four arcs.
  void Arc(double rx, double ry, double degres, bool grand, bool positif, Vec2 p);
  // A whole ellipse, a closed subpath of its own that begins at the end of its first axis.
  void Ellipse(Vec2 centre, double rx, double ry);
  void Ferme();

  [[nodiscard]] Vec2 Ici() const { return ici_; }
  [[nodiscard]] bool Pleine() const { return plus_ > pointsMax_; }
  // The most points that it has held so far, and how many it may.
  [[nodiscard]] std::size_t Plus() const { return plus_; }
  [[nodiscard]] std::size_t Max() const { return pointsMax_; }
  // Ends the last subpath; the pen is empty afterwards.
  std::vector<SousChemin> Finit();

 private:
  // The half axes of an arc in mm, the angle of its start and its sweep.
  void Balaye(Vec2 centre, Vec2 u, Vec2 v, double debut, double balayage);
  void Entame();
  void Pose(Vec2 enMm);
  void FinitSousChemin();
  void Compte();

  Matrice m_;
  double fleche_;
  std::size_t pointsMax_;
  std::size_t faits_ = 0;  // points of the subpaths that have ended
  std::size_t plus_ = 0;
  Vec2 ici_;     // user units
  Vec2 depart_;  // of the subpath
  SousChemin courant_;
  std::vector<SousChemin> finis_;
};

}  // namespace pathwerk::lecture::svg
