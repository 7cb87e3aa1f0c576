// Where the middle of the cutter may go inside a region.
#pragma once

#include "closed/pathwerk/commun/ArbreSegments.h"
#include "closed/pathwerk/decalage/Moteur.h"

namespace pathwerk::poche {

using decalage::Region;

class Acces {
 public:
  // `tolerance`: of the rings, mm; the middle may come as near to the outline as they do.
  Acces(const Region& region, double rayon, double tolerance);

  // May the cutter go straight from `a`, a place it may be at, to `b`?
  [[nodiscard]] bool Libre(Vec2 a, Vec2 b) const;
  // On the straight way from `p` to the outline, the place that is `profondeur` mm away from it. The depth falls
  // evenly along that way, so nothing is ever in it.
  [[nodiscard]] Vec2 VersLeBord(Vec2 p, double profondeur) const;

 private:
  ArbreSegments contour_;
  double limite_;
};

}  // namespace pathwerk::poche
