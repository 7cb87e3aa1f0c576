// Where the tool can go down along its path instead of straight: a way that comes back to where it begins. Values
// in, values out; mm.
#pragma once

#include <cstddef>
#include <optional>
#include <span>

#include "core/Types.h"

namespace ovelin {

// The way from the first point of a piece to its point number `dernier`, which lies on the first.
struct BoucleEntree {
  std::size_t dernier = 0;
  double longueur = 0;  // mm
};

// The whole of a closed piece of tool path; of one that is not closed, as the way over the rings of a pocket, what
// leads back to its first point first. None where the tool has to go straight down: a hole, a way that never comes
// back or is shorter than a tenth of a millimetre, one with strokes in the air (a blade), and one that a notch
// holds up where the way closes.
std::optional<BoucleEntree> BoucleDe(std::span<const PointTrace> points);

// Way along which a tool sinks by `hauteur` mm (positive) at `angle`, degrees to the surface, where that is an
// angle of a ramp.
double LongueurRampe(double hauteur, double angle);
// The same where it goes round in a loop of `tour` mm: no more than a hundred rounds of it, which are steeper then.
inline constexpr int ToursRampe = 100;
double LongueurRampe(double hauteur, double angle, double tour);

}  // namespace ovelin
