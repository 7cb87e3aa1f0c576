// The paths of a reader as flat arrays.
#pragma once

#include <cstddef>
#include <vector>

#include "base/Indices.h"
#include "closed/pathwerk/assemblage/CheminsAssembles.h"

namespace pathwerk::assemblage {

// Whether a place can be milled at all; false for what is no number.
bool EstLisible(Vec2 p);

struct TraitsRanges {
  CheminsAssembles assembles;  // measured
  std::vector<Bouts> bouts;    // of its paths, same order
  long nuls = 0;               // paths without any length, left out
  std::size_t illisible =
      base::Nulle;  // the first path with a place that isn't legible; the rest says nothing then
};

// Rounded to floats, neighbours of one place made one, the closing point in its place: ends of a closed path within
// `tolerance` mm are one. What has been taken over is freed, so that the drawing is not held twice; a path that
// isn't legible is left as it is.
TraitsRanges RangeTraits(std::vector<lecture::Trait>& traits, double tolerance, unsigned fils);

}  // namespace pathwerk::assemblage
