// Arcs for the rows of a plan: a run of short cuts that lie on one circle becomes a single move. Values in, values
// out.
#pragma once

#include <cstddef>
#include <optional>
#include <span>

#include "core/TableDecoupe.h"

namespace ovelin {

struct ToleranceArc {
  double ecart = 0.002;        // mm: of a row's end from the arc
  double fleche = 0.02;        // mm: of the arc over the row below it
  double ecartRayons = 0.002;  // mm: between the distances of both ends from the centre, as they are written
  int decimales = 3;           // of what is written, 0 to 6
};

struct ArcNC {
  std::size_t dernier = 0;  // the row at whose end the arc ends
  bool horaire = false;     // clockwise as seen from above: G02, otherwise G03
  double i = 0, j = 0;      // mm, from the start as it is written to the centre; whole units of the last decimal
};

// The longest arc from row `premier` on, whose start is the end of the row before it, or nothing where fewer than
// three rows lie on one. `lignes` from row 1, the start of the plan, on; `premier` at least 1. All its rows are
// cuts at one height and one speed. It ends with the row that reaches a half turn, so that a full circle takes two;
// its radius is 10 m at most.
std::optional<ArcNC> ArcDepuis(std::span<const Deplacement> lignes, std::size_t premier,
                               const ToleranceArc& tolerance);

}  // namespace ovelin
