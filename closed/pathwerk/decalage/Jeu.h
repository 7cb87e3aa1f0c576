// The hair by which the engines take the distance shorter, so that a cutter passes what it fits exactly.
#pragma once

#include <algorithm>
#include <cmath>

#include "closed/pathwerk/decalage/Moteur.h"

namespace pathwerk::decalage {

struct Jeu {
  double distance = 0;  // shorter than asked, signed
  double fleche = 0;    // that the chords of arcs may take, mm
};

// `petit`: the hair that rounding alone needs, mm. An outline that was moved needs as much as it was moved, else a
// slot of exact fit falls to pieces wherever both its walls came nearer; and half of that hair for the chords of a
// finely drawn curve. What the hair takes more is taken off the arcs. So is what was moved, as far as the sum of
// all three would be more than 0.975 of the tolerance: a place left out may stand out towards the very middle of a
// chord.
inline Jeu JeuDe(const Region& region, double distance, double tolerance, double petit) {
  const double voulu = region.ecart > 0 ? region.ecart + petit / 2 : 0;
  const double jeu = std::max(petit, std::min(voulu, std::abs(distance) / 4));
  const double fleche = std::min(0.85 * tolerance - (jeu - petit), 0.975 * tolerance - jeu - region.ecart);
  return {distance > 0 ? distance - jeu : distance + jeu, fleche};
}

}  // namespace pathwerk::decalage
