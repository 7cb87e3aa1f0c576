// Sorting of many records by a 64-bit key.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace pathwerk::assemblage {

struct EntreeTri {
  std::uint64_t cle = 0;
  std::uint32_t rang = 0;
};

// Stable and linear: one pass for each eleven bits of the key, from the lowest, leaving out those that are the same
// in all. All of them are counted in one look.
inline void TrieParCle(std::vector<EntreeTri>& entrees) {
  constexpr unsigned Bits = 11;
  constexpr unsigned Passes = 6;
  constexpr std::uint64_t Masque = (1U << Bits) - 1;
  if (entrees.size() < 256) {
    std::stable_sort(entrees.begin(), entrees.end(),
                     [](const EntreeTri& a, const EntreeTri& b) { return a.cle < b.cle; });
    return;
  }
  std::vector<std::array<std::uint32_t, Masque + 1>> comptes(Passes);
  for (const EntreeTri& e : entrees) {
    for (unsigned k = 0; k < Passes; ++k) ++comptes[k][(e.cle >> (k * Bits)) & Masque];
  }
  std::vector<EntreeTri> autre(entrees.size());
  for (unsigned k = 0; k < Passes; ++k) {
    auto& places = comptes[k];
    if (places[(entrees[0].cle >> (k * Bits)) & Masque] == entrees.size()) continue;
    std::uint32_t place = 0;
    for (std::uint32_t& p : places) place += std::exchange(p, place);
    for (const EntreeTri& e : entrees) autre[places[(e.cle >> (k * Bits)) & Masque]++] = e;
    entrees.swap(autre);
  }
}

}  // namespace pathwerk::assemblage
