// True error of an offset, measured both ways on samples: how far the result is off the distance to the source, and
// how far places of the true curve are off the result.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

#include "closed/pathwerk/commun/ArbreSegments.h"

namespace banc {

using pathwerk::ArbreSegments;
using pathwerk::Chemin;
using pathwerk::Segment;
using pathwerk::Vec2;

inline constexpr std::size_t Echantillons = 20000;

// Greatest distance, mm, by which samples of the result lie nearer to the source than `r`, or farther from it.
inline double ErreurDuResultat(const ArbreSegments& source, const std::vector<Segment>& resultat, double r) {
  using namespace pathwerk;
  double pire = 0;
  const std::size_t pas = resultat.size() / Echantillons + 1;
  for (std::size_t i = 0; i < resultat.size(); i += pas) {
    for (const double t : {0.0, 0.5, 0.77}) {
      const Vec2 p = resultat[i].a + (resultat[i].b - resultat[i].a) * t;
      pire = std::max(pire, std::abs(std::sqrt(source.PlusProche(p).distance2) - r));
    }
  }
  return pire;
}

// Greatest distance, mm, from the result to places of the true curve: those of all parallel segments and corner
// arcs of the path on the side of `d` that keep the distance from everything. For paths that don't cross
// themselves, and open ones.
inline double ErreurManquante(const Chemin& path, bool ferme, const ArbreSegments& source,
                              const std::vector<Segment>& resultat, double d) {
  using namespace pathwerk;
  const ArbreSegments arbre(resultat);
  const double r = std::abs(d);
  double pire = 0;
  const auto essaie = [&](Vec2 p) {
    if (source.PlusProche(p).distance2 < (r - 1e-8) * (r - 1e-8)) return;
    pire = std::max(pire, resultat.empty() ? 1e9 : std::sqrt(arbre.PlusProche(p).distance2));
  };
  const std::size_t n = path.size();
  const std::size_t pas = n / Echantillons + 1;
  for (std::size_t i = 0; i + (ferme ? 0 : 1) < n; i += pas) {
    const Vec2 a = path[i];
    const Vec2 b = path[(i + 1) % n];
    const Vec2 u = Unite(b - a);
    for (const double t : {0.3, 0.5, 0.81}) essaie(a + (b - a) * t + Gauche(u) * d);
    if (!ferme && i + 2 >= n) continue;
    const Vec2 v = Unite(path[(i + 2) % n] - b);
    const double tour = std::atan2(Vectoriel(u, v), Scalaire(u, v));
    if (tour * d >= 0) continue;
    for (const double t : {0.2, 0.5, 0.8}) {
      const double w = tour * t;
      const Vec2 o = Gauche(u) * d;
      essaie(b + Vec2{o.x * std::cos(w) - o.y * std::sin(w), o.x * std::sin(w) + o.y * std::cos(w)});
    }
  }
  return pire;
}

}  // namespace banc
