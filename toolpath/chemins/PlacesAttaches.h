// Where attachment points go by themselves.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "core/Types.h"

namespace ovelin {

// So many on a path, or one for each `pas` mm of it, at least one; the one that isn't 0 counts.
struct VoeuAttaches {
  int nombre = 0;
  double pas = 0;
};

struct PlaceAttache {
  std::size_t fin = 0;  // end of the stretch that it lies on: where it is to be inserted
  PointTrace point;     // with "PC"
  double parcouru = 0;  // from the start of the path, mm
};

// Along the path, spread evenly, each moved from its ideal place to the nearest where it may stand: at least
// `rayon` (mm, of a notch) from each corner and from start and end of the path, two notches apart from the next one
// and from those that are there. Straight stretches come before curved ones. In the order of the path; fewer than
// wished where there is no room.
//
// A corner is a turn of more than 15 degrees. The path is looked at in steps of a quarter of the radius, 20,000 at
// most.
std::vector<PlaceAttache> PlacesAttaches(std::span<const PointTrace> run, const VoeuAttaches& voeu, double rayon);

}  // namespace ovelin
