// Sorting of many records by a 64-bit key.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace pathwerk::assemblage {

struct EntreeTri {
  std::uint64_t cle = 0;
  std::uint32_t rang = 0;
};

// Stable and linear: one pass for each byte of the key, from the lowest, leaving out bytes that are the same in
// all.
inline void TrieParCle(std::vector<EntreeTri>& entrees) {
  if (entrees.size() < 256) {
    std::stable_sort(entrees.begin(), entrees.end(),
                     [](const EntreeTri& a, const EntreeTri& b) { return a.cle < b.cle; });
    return;
  }
  std::vector<EntreeTri> autre(entrees.size());
  for (unsigned decalage = 0; decalage < 64; decalage += 8) {
    std::array<std::size_t, 256> compte{};
    for (const EntreeTri& e : entrees) ++compte[(e.cle >> decalage) & 255U];
    if (compte[(entrees[0].cle >> decalage) & 255U] == entrees.size()) continue;
    std::size_t place = 0;
    for (std::size_t& c : compte) {
      const std::size_t nombre = c;
      c = place;
      place += nombre;
    }
    for (const EntreeTri& e : entrees) autre[compte[(e.cle >> decalage) & 255U]++] = e;
    entrees.swap(autre);
  }
}

}  // namespace pathwerk::assemblage
