// What a cutter does on a fine grid: which places of a pocket it leaves standing and how far it cuts outside. Knows
// only the outline, the path and the radius; shares no code with the library.
#pragma once

#include <vector>

#include "tests/unit/closed/pathwerk/controle/Controle.h"

namespace controle {

// Outlines drawn through each other: inside is what an odd number of them surrounds.
struct Couverture {
  double debout = 0;    // greatest distance by which the cutter misses a place that it could reach, mm
  long cellules = 0;    // places of the grid that it could reach
  double entaille = 0;  // how much nearer than the radius its middle comes to the outline, mm; 1e9 across it
};

// Grid of R / 20. Reachable is a place within R of a place of the grid that is inside and at least R away from the
// outline. The cutter is down along the records of one `Seq`.
Couverture MesureCouverture(const Trace& contour, const Trace& chemin, double rayon);
// The same where islands have to stay: what each of them surrounds an odd number of times is outside as well, and
// its outline a wall.
Couverture MesureCouverture(const Trace& contour, const std::vector<Trace>& ilots, const Trace& chemin,
                            double rayon);

}  // namespace controle
