// Free stretches that are linked, drawn as polylines.
#pragma once

#include <cstddef>
#include <vector>

#include "closed/pathwerk/decalage/ArcLibres.h"
#include "closed/pathwerk/decalage/Origine.h"

namespace pathwerk::decalage {

// Closed loops as polylines whose chords lie within `fleche` of the arcs, inside them. Loops shorter than `mini`
// are left out. `origines`, when asked for: where the edges of each loop lie on the source. A chain of stretches
// that doesn't close comes as an open polyline, with one origin less than points. `omises`, when asked for: how
// many loops were left out.
std::vector<Chemin> AplatitBoucles(const ArcSource& source, const std::vector<ArcLibre>& libres, double d,
                                   double fleche, double mini, std::vector<Origines>* origines = nullptr,
                                   std::size_t* omises = nullptr);

}  // namespace pathwerk::decalage
