// What the arc engine sets for one distance.
#pragma once

#include <algorithm>
#include <cmath>

#include "closed/pathwerk/decalage/ArcSource.h"
#include "closed/pathwerk/decalage/Jeu.h"

namespace pathwerk::decalage {

// Shares of the tolerance and of the distance, tried one after the other: the shape may be in the way of just one
// distance.
inline constexpr double PartsDeJeu[] = {0.06, 0.047, 0.071, 0.033, 0.0813};

struct ReglageArcs {
  Jeu jeu;
  double bruit = 0;  // depth below which a touch doesn't count, mm
  double ecart = 0;  // between ends that still meet, mm
};

// Some units of the last place of the greatest coordinate.
inline double BruitDe(const ArcSource& source, double r) { return std::max(1e-10, 4e-15 * (source.Etendue() + r)); }

inline ReglageArcs ReglageDe(const Region& region, const ArcSource& source, double distance, double tolerance,
                             double part) {
  const Jeu jeu = JeuDe(region, distance, tolerance, std::min(part * tolerance, std::abs(distance) * part));
  const double r = std::abs(jeu.distance);
  const double bruit = BruitDe(source, r);
  return {jeu, bruit, std::min(0.05 * tolerance + 4 * std::sqrt(2 * r * bruit), 0.5 * tolerance + 0.1 * r)};
}

}  // namespace pathwerk::decalage
