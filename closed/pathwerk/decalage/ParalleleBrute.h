// The raw parallel curve of a closed path.
#pragma once

#include "closed/pathwerk/commun/ArbreSegments.h"
#include "closed/pathwerk/commun/Lieux.h"
#include "closed/pathwerk/decalage/Origine.h"

namespace pathwerk::decalage {

// Closed curve that runs beside `chemin` at `distance` (left positive), not yet freed of the parts that lie too
// near to it. Winding number of the raw curve = winding number of the path, less (left) or more (right) one for
// every strip, sector or half disc of width |distance| that covers a place. So the places that are free of all
// strips can be told by a winding rule. `fleche`: greatest error of the rounded corners, mm. `origines`, when
// asked for: where the edges of the curve lie on the path.
Chemin ParalleleBrute(const Chemin& chemin, double distance, double fleche, Origines* origines = nullptr);

// The same without the strips that can't border a free place: their outer edge lies more than `marge` too near to
// the segments of `arbre` (all contours of the region). In their stead the curve follows the path itself, roughly.
// Places covered by such strips alone then come out as free: they are cut off from the others, and a loop around
// them comes more than `marge` too near to the source, by which it is known.
// Empty when no strip is left: nothing is free.
Chemin ParalleleAllegee(const Chemin& chemin, double distance, double fleche, double marge,
                        const ArbreSegments& arbre);

}  // namespace pathwerk::decalage
