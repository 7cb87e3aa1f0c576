// Numbers in half the room.
#pragma once

#include <cstddef>
#include <cstdint>

namespace pathwerk {

// The number of a thing of which there are very many: they name each other in 32 bits. No drawing that is read has
// as many parts as these can count.
constexpr std::uint32_t Numero32(std::size_t numero) { return static_cast<std::uint32_t>(numero); }

}  // namespace pathwerk
