// The 256 levels of tick rate, which board and program both make of the same two values.
#pragma once

#include <array>
#include <cstdint>

namespace ovelin {

inline constexpr int NbPaliers = 256, PalierPlein = 255;

struct NiveauFreq {
  std::int32_t Periode = 0;  // counts of 6 MHz that one tick lasts
  double Duree = 0;          // ticks done while the ramp stays on this level
  bool operator==(const NiveauFreq&) const = default;
};
using TableFrequences = std::array<NiveauFreq, NbPaliers>;

// Level i has the rate F = (255 - i) x 6,000,000 / 16,711,425 + multiplier x 10,000 / 255 x i: linear in frequency,
// from the rate whose period just fills 16 bits to the full rate. `multiplicateur` 1 or more, `tempsPalier` counts
// of 12 MHz.
TableFrequences CalculTableFreq(int multiplicateur, std::int32_t tempsPalier);

}  // namespace ovelin
