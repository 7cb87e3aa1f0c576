// The hair by which the engines take the distance shorter, so that a cutter passes what it fits exactly.
#pragma once

#include <algorithm>
#include <cmath>

#include "closed/pathwerk/decalage/ArcSource.h"
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

// Shares of the tolerance and of the distance for `petit` of the arc engine, tried one after the other: the shape
// may be in the way of just one distance.
inline constexpr double PartsDeJeu[] = {0.06, 0.047, 0.071, 0.033, 0.0813};

// The arc engine's measures at one such distance, mm.
struct MesuresArcs {
  Jeu jeu;
  double bruit = 0;  // depth below which a touch doesn't count
  double ecart = 0;  // between ends that still meet
};

// Some units of the last place of the greatest coordinate.
inline double BruitDe(const ArcSource& source, double r) { return std::max(1e-10, 4e-15 * (source.Etendue() + r)); }

inline MesuresArcs MesuresDe(const Region& region, const ArcSource& source, double distance, double tolerance,
                             double part) {
  const Jeu jeu = JeuDe(region, distance, tolerance, std::min(part * tolerance, std::abs(distance) * part));
  const double r = std::abs(jeu.distance);
  const double bruit = BruitDe(source, r);
  return {jeu, bruit, std::min(0.05 * tolerance + 4 * std::sqrt(2 * r * bruit), 0.5 * tolerance + 0.1 * r)};
}

}  // namespace pathwerk::decalage
