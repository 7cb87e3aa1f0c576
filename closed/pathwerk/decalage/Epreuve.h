// What the arc engine has drawn, held against the outline.
#pragma once

#include <vector>

#include "closed/pathwerk/decalage/ArcSource.h"
#include "closed/pathwerk/decalage/Origine.h"

namespace pathwerk::decalage {

// Do samples of the curves, in proportion to their edges, lie where they must at the distance `r` with chords that
// stay within `fleche` of their arcs, and so does each chord over a gap? `origines`: of the edges; one less than
// points for an open curve.
bool Tiennent(const ArcSource& source, const std::vector<Chemin>& courbes, const std::vector<Origines>& origines,
              double r, double fleche);

}  // namespace pathwerk::decalage
