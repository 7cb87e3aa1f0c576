// Large blocks of memory in large pages.
#pragma once

#include <cstddef>

namespace base {

// Blocks from here on are announced. Smaller ones hold no large page, or hardly one.
inline constexpr std::size_t GrandBloc = std::size_t{4} << 20;  // bytes

// The inside of a block: from its first to its last whole large page. Empty where it holds none.
struct PagesGrandes {
  void* debut = nullptr;
  std::size_t octets = 0;
};
PagesGrandes PagesDe(void* bloc, std::size_t octets);

// Asks the system to fill that block, which nobody has written to yet, by large pages. Each page of the usual 4 KB
// is fetched from the system by an interruption of its own, and that is a fifth of the time in which a large
// drawing is read; a large one replaces 512 of them. Without effect where the system has none.
//
// Nobody need call this: `operator new` of any program that this library is part of does it for all large blocks,
// those of vectors and strings among them.
void AnnonceGrandBloc(void* bloc, std::size_t octets);

}  // namespace base
