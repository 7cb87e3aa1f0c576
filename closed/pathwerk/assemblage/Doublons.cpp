// Exact duplicates of paths.
#include "closed/pathwerk/assemblage/Doublons.h"

#include <algorithm>
#include <bit>
#include <cstdint>

#include "base/Equipe.h"
#include "closed/pathwerk/assemblage/Tri.h"
#include "closed/pathwerk/commun/Numero32.h"

namespace pathwerk::assemblage {

namespace {

std::uint64_t Brasse(std::uint64_t v) {  // finaliser of splitmix64
  v ^= v >> 30;
  v *= 0xbf58476d1ce4e5b9ULL;
  v ^= v >> 27;
  v *= 0x94d049bb133111ebULL;
  return v ^ (v >> 31);
}

std::uint64_t Empreinte(PointF p) {
  return Brasse((std::uint64_t{std::bit_cast<std::uint32_t>(p.x)} << 32 | std::bit_cast<std::uint32_t>(p.y)) +
                0x9e3779b97f4a7c15ULL);
}

// The same for a path walked either way and from any start: a sum over its edges, each symmetrical in its ends.
std::uint64_t Empreinte(std::span<const PointF> points, Nature nature) {
  std::uint64_t somme = Brasse(points.size() * 4 + static_cast<std::uint64_t>(nature));
  std::uint64_t avant = Empreinte(points[0]);
  for (std::size_t i = 1; i < points.size(); ++i) {
    const std::uint64_t ici = Empreinte(points[i]);
    somme += Brasse((avant + ici) ^ Brasse(avant ^ ici));
    avant = ici;
  }
  return somme;
}

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
long MarqueDoublons(const CheminsAssembles& assembles, std::vector<char>& garde, unsigned fils) {
  const std::size_t n = assembles.chemins.size();
  garde.assign(n, 1);
  std::vector<EntreeTri> cles(n);
  base::FaitParLots(fils, n, [&](std::size_t debut, std::size_t fin) {
    for (std::size_t i = debut; i < fin; ++i) {
      cles[i] = {Empreinte(assembles.De(i), assembles.chemins[i].nature), Numero32(i)};
    }
  });
  TrieParCle(cles);
  long doublons = 0;
  for (std::size_t a = 0; a < n;) {
    std::size_t b = a + 1;
    while (b < n && cles[b].cle == cles[a].cle) ++b;
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
