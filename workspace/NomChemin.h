// A path in a line that can be read: what it is, how large, how deep.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "core/Document.h"

namespace ovelin {

enum class SorteChemin : std::uint8_t {
  Percage,  // all points at one place
  Trou,     // circle that the tool cuts inside
  Disque,   // circle that it cuts outside
  Decoupe,  // any other closed path that it cuts inside ...
  Contour,  // ... or outside
  Ligne,    // open
};

struct FormeChemin {
  SorteChemin sorte = SorteChemin::Ligne;
  double a = 0;  // mm: diameter of a circle, width of the box of another closed path, length of an open one
  double b = 0;  // mm: height of the box
};

// By the points of one path and the side of its tool (1 to 3, see CoteOutil). The inside lies on the tool's side
// where the path turns counter-clockwise. A circle has eight chords at least, its points within 1 % and 0.02 mm of
// one distance from the middle of its box.
FormeChemin FormeDe(std::span<const PointTrace> points, std::int16_t cote);

// "Trou 4.0, -3.0", "Contour 284.0 x 208.0, -3.0, poche", "Ligne 120.0, -1.0, non fraisé", in the language in
// force; behind it the layer, where one is given: "Trou 4.0, -3.0, Gravure".
std::string NomChemin(std::span<const PointTrace> points, const SequenceInfo& fiche, std::string_view calque = "",
                      bool ilot = false);

}  // namespace ovelin
