// Exact duplicates of paths.
#include "closed/pathwerk/assemblage/Doublons.h"

#include <algorithm>
#include <cstdint>

#include "closed/pathwerk/assemblage/Crible.h"
#include "closed/pathwerk/assemblage/Tri.h"
#include "closed/pathwerk/commun/Numero32.h"

namespace pathwerk::assemblage {

namespace {

bool Avant(PointF a, PointF b) { return a.x != b.x ? a.x < b.x : a.y < b.y; }

// Start of the least rotation of a cycle (two candidates i, j that run against each other; linear).
std::size_t MoindreRotation(std::span<const PointF> c) {
  const std::size_t n = c.size();
  std::size_t i = 0;
  std::size_t j = 1;
  std::size_t k = 0;
  while (i < n && j < n && k < n) {
    const PointF a = c[(i + k) % n];
    const PointF b = c[(j + k) % n];
    if (a == b) {
      ++k;
      continue;
    }
    (Avant(b, a) ? i : j) += k + 1;
    if (i == j) ++j;
    k = 0;
  }
  return std::min(i, j);
}

// One form for all the ways to write the same path.
std::vector<PointF> FormeUnique(std::span<const PointF> points, Nature nature) {
  std::vector<PointF> avant(points.begin(), points.end());
  if (nature == Nature::Ferme) avant.pop_back();
  std::vector<PointF> arriere(avant.rbegin(), avant.rend());
  if (nature == Nature::Ferme) {
    for (auto* c : {&avant, &arriere}) {
      const auto tete = static_cast<std::ptrdiff_t>(MoindreRotation(*c));
      std::rotate(c->begin(), c->begin() + tete, c->end());
    }
  }
  return std::lexicographical_compare(avant.begin(), avant.end(), arriere.begin(), arriere.end(), Avant) ? avant
                                                                                                         : arriere;
}

}  // namespace

// Paths meet by a hash that neither direction nor start changes; only those that meet are compared point by point.
// Most meet none, and a sieve lets them through before anything is sorted.
long MarqueDoublons(const CheminsAssembles& assembles, std::vector<char>& garde) {
  const std::size_t n = assembles.chemins.size();
  garde.assign(n, 1);
  CribleDeDoubles crible(n);
  for (const CheminAssemble& c : assembles.chemins) crible.Note(c.empreinte);
  std::vector<EntreeTri> cles;
  for (std::size_t i = 0; i < n; ++i) {
    const std::uint64_t empreinte = assembles.chemins[i].empreinte;
    if (crible.Double(empreinte)) cles.push_back({empreinte, Numero32(i)});
  }
  TrieParCle(cles);
  long doublons = 0;
  for (std::size_t a = 0; a < cles.size();) {
    std::size_t b = a + 1;
    while (b < cles.size() && cles[b].cle == cles[a].cle) ++b;
    if (b - a > 1) {
      std::vector<std::vector<PointF>> formes;
      for (std::size_t k = a; k < b; ++k) {
        const std::size_t i = cles[k].rang;
        auto forme = FormeUnique(assembles.De(i), assembles.chemins[i].nature);
        if (std::find(formes.begin(), formes.end(), forme) == formes.end()) {
          formes.push_back(std::move(forme));
        } else {
          garde[i] = 0;
          ++doublons;
        }
      }
    }
    a = b;
  }
  return doublons;
}

}  // namespace pathwerk::assemblage
