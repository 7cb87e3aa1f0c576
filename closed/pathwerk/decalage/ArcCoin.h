// Directions of the outline's segments, and its corners as the raw parallel takes them.
#pragma once

#include <cmath>

#include "closed/pathwerk/decalage/ArcSource.h"

namespace pathwerk::decalage {

// Direction and length of a segment.
struct Trait {
  Vec2 u;
  double l = 0;
};
inline Trait TraitDe(const ArcSource& source, std::size_t i) {
  const Vec2 w = source.B(i) - source.A(i);
  const double l = Norme(w);
  return {w * (1 / l), l};
}

struct Coin {
  bool exterieur = false;  // turns away from the parallel
  bool vif = false;        // has an arc
  Vec2 u0;                 // directions from the vertex to both ends of the arc
  Vec2 u1;
};

// The corner between the directions u and v, for a parallel on the side of `d`.
inline Coin CoinDe(Vec2 u, Vec2 v, double d) {
  constexpr double DemiTour = 1e-9;  // rad: a turn this near to half a turn goes right back
  Coin c;
  const double sinus = Vectoriel(u, v);
  const bool retour = Scalaire(u, v) < 0 && std::abs(sinus) < DemiTour;
  c.exterieur = retour || sinus * d < 0;
  c.vif = retour || (c.exterieur && std::abs(sinus) > 1e-12) || (c.exterieur && Scalaire(u, v) < 0);
  const double cote = d > 0 ? 1 : -1;
  c.u0 = Gauche(u) * cote;
  c.u1 = retour ? c.u0 * -1.0 : Gauche(v) * cote;
  return c;
}

}  // namespace pathwerk::decalage
