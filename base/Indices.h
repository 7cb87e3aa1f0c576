// Between places in memory, which are std::size_t, and the signed numbers of the world: rows of a table or a list,
// counts of a document, differences of iterators.
#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <limits>

namespace base {

// No place at all.
inline constexpr std::size_t Nulle = std::numeric_limits<std::size_t>::max();

// The place that a number of 0 or more names. A negative one becomes larger than every container, so that a
// comparison with a size sees it.
constexpr std::size_t Indice(std::signed_integral auto nombre) { return static_cast<std::size_t>(nombre); }

// A size or a difference of iterators as a number of 32 bits; nothing that is counted so has more than 2^31 parts.
constexpr std::int32_t Compte(std::integral auto nombre) { return static_cast<std::int32_t>(nombre); }

// The iterator at a place of a container.
constexpr auto Iterateur(auto& contenu, std::size_t indice) {
  return std::begin(contenu) + static_cast<std::ptrdiff_t>(indice);
}

}  // namespace base
