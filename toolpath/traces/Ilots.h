// Which paths stay as islands, and which pockets go around them.
#pragma once

#include <cstdint>
#include <span>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "core/Document.h"

namespace ovelin {

// What islands mean to one path.
struct PartIlots {
  bool debout = false;             // it is one, inside a pocket: it stays, and has no tool path of its own
  std::vector<PointTrace> autour;  // those that its pocket goes around, runs of equal `Seq`
};

// A closed path that is marked as an island is one in each pocket that it overlaps, at its full height whatever the
// depths are; the pockets that lie inside of it are cleared. A marked path in no pocket, or an open one, is milled
// as if it had no mark. Of paths that are both island and pocket the larger one is the pocket of what lies in it.
class Ilots {
 public:
  // `vides`: pockets are cleared; with the overlap or the tool in force they may be plain contours.
  Ilots(const Document& document, bool vides);

  [[nodiscard]] bool Debout(Code2 code) const { return debout_.contains(code.Cle()); }
  [[nodiscard]] PartIlots De(Code2 code) const;

 private:
  struct Chemin;
  void Entoure(const Chemin& poche, std::span<const Chemin> ilots);

  std::unordered_set<std::uint32_t> debout_;
  std::unordered_map<std::uint32_t, std::vector<std::span<const PointTrace>>> autour_;  // by code of the pocket
};

// Is some path of the document marked as an island?
bool AIlots(const TableComplements& complements);
// The paths whose trace can change when a mark, a pocket or the points of one of them do: those marked and the
// pockets, in the order of the document's records.
std::vector<Code2> CodesDesIlots(const Document& document);
// `codes` and those whose trace their change may reach: where one is an island or a pocket, all that are.
std::vector<Code2> AvecIlots(const Document& document, std::vector<Code2> codes);

}  // namespace ovelin
