// A long text composed on several threads.
#pragma once

#include <cstddef>
#include <functional>
#include <string>

namespace base {

// Which items are composed together: [debut, fin).
struct Plage {
  std::size_t debut = 0;
  std::size_t fin = 0;
};

// Appends the text of `n` items to `texte`, `grain` of them at a time. `compose` appends that of some items, is
// called from several threads at once, and must not depend on what was composed before. `suit`, which may be empty,
// is called on the caller's thread for each of those plages in their order. Texts that are ready wait for those
// before them, so that little more than the text is held.
void ComposeEnMorceaux(std::string& texte, unsigned fils, std::size_t n, std::size_t grain,
                       const std::function<void(std::string&, Plage)>& compose,
                       const std::function<void(Plage)>& suit = {});

}  // namespace base
