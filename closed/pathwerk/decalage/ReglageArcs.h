// The hair by which the arc engine takes the distance shorter than asked, so that what fits exactly is passed.
#pragma once

#include <algorithm>
#include <cmath>

#include "closed/pathwerk/decalage/ArcSource.h"

namespace pathwerk::decalage {

// Shares of the tolerance, tried one after the other: the shape may be in the way of just one distance.
inline constexpr double PartsDeJeu[] = {0.06, 0.047, 0.071, 0.033, 0.0813};

struct ReglageArcs {
  double d = 0;      // distance, signed, mm
  double bruit = 0;  // depth below which a touch doesn't count: some units of the last place
  double ecart = 0;  // between ends that still meet, mm
};

inline ReglageArcs ReglageDe(const ArcSource& source, double distance, double tolerance, double part) {
  const double jeu = std::min(part * tolerance, std::abs(distance) * part);
  const double d = distance > 0 ? distance - jeu : distance + jeu;
  const double r = std::abs(d);
  const double bruit = std::max(1e-10, 4e-15 * (source.Etendue() + r));
  return {d, bruit, std::min(0.05 * tolerance + 4 * std::sqrt(2 * r * bruit), 0.5 * tolerance + 0.1 * r)};
}

}  // namespace pathwerk::decalage
