// The table of traces while several paths are computed: each replaces its entries where they stand, at a cost that
// does not depend on the length of the table.
#pragma once

#include <cstdint>
#include <deque>
#include <list>
#include <unordered_map>
#include <utility>
#include <vector>

#include "core/Document.h"

namespace ovelin {

// The trace of one path as it goes into the table.
struct TraceCalculee {
  std::vector<SequenceDecalee> entrees;
  bool reussie =
      true;  // false: failed, `entrees` is one entry without points; so it is of an island, which has none
};

// The table as a chain of blocks, a block being a stretch of entries of one code; the chain never holds two
// neighbours of one code. For each code its blocks are listed in order, so that "the first entry that has the code"
// is found at once.
//
//     table   A A B A C C C         blocks  [A A][B][A][C C C]       A: first, third    B: second    C: fourth
//
// The entries of the old table are only numbered until `Rend`: it stays whole, and can be drawn, all the time.
class TableTraces {
 public:
  explicit TableTraces(const std::vector<SequenceDecalee>& ancienne);

  // The first block of the code makes room for the trace; behind a failed one everything is lost. A code without a
  // block gets one at the end.
  void Remplace(Code2 code, TraceCalculee&& trace);
  // The last `Remplace` of this code once more, with the same trace; nothing where there was none.
  void Repete(Code2 code);
  // The new table. The entries that stay are moved out of the old one.
  [[nodiscard]] std::vector<SequenceDecalee> Rend(std::vector<SequenceDecalee>& ancienne);

 private:
  using Tranche = std::pair<std::size_t, std::size_t>;  // numbers of entries: the old table first, then `neuves_`
  struct Bloc {
    Code2 code;
    std::vector<Tranche> tranches;
  };
  using Chaine = std::list<Bloc>;

  // What `Remplace` did last for a code.
  struct Issue {
    Tranche tranche;
    bool reussie = true;
  };

  void Pose(Code2 code, const Issue& issue);
  Tranche Range(std::vector<SequenceDecalee>&& entrees);
  void CoupeDerriere(Chaine::iterator bloc);
  void Retire(Chaine::iterator bloc);

  std::size_t anciennes_ = 0;
  std::vector<SequenceDecalee> neuves_;
  Chaine blocs_;
  std::unordered_map<std::uint32_t, std::deque<Chaine::iterator>> parCode_;
  std::unordered_map<std::uint32_t, Issue> issues_;
};

}  // namespace ovelin
