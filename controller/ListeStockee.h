// A job as it lies in the board's flash memory: records of 25 or 31 bytes without gaps, behind the last one a byte
// with bit 7.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace ovelin {

// With one byte more the address of its last page would come round to the first one.
inline constexpr std::size_t ListeMaxi = 65'535;

struct BilanListe {
  std::size_t records = 0;   // whole ones
  bool finie = false;        // the end mark stands behind them
  std::size_t tiennent = 0;  // of these, that fit into the memory with an end mark behind
};
BilanListe LitListe(std::span<const std::uint8_t> octets);

}  // namespace ovelin
