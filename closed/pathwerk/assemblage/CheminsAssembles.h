// The paths that the steps of the assembly hand on, as flat arrays. Used by Assemble and its tests alone.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "base/Boite.h"
#include "closed/pathwerk/commun/Point.h"
#include "closed/pathwerk/lecture/Lecture.h"

namespace pathwerk::assemblage {

using lecture::Nature;

// A place as the document keeps it.
struct PointF {
  float x = 0;
  float y = 0;
  constexpr bool operator==(const PointF&) const = default;
};

// One path: a run of `CheminsAssembles::points`. No two neighbouring points are equal but those of a hole.
struct CheminAssemble {
  std::size_t debut = 0;
  std::size_t nb = 0;
  Nature nature = Nature::Ouvert;  // Ferme: the last point equals the first; Percage: one point given twice
  std::uint16_t calque = 0;        // its place in the layers of the reading
  // Measured (Mesures.h) by whoever made the path.
  base::Boite<float> boite;
  double doubleAire = 0;  // twice the area inside a closed path, mm2, positive counter-clockwise; 0 for others
  std::uint64_t empreinte = 0;  // the same for a path walked either way and from any start
};

struct CheminsAssembles {
  std::vector<PointF> points;
  std::vector<CheminAssemble> chemins;
  [[nodiscard]] std::span<const PointF> De(std::size_t i) const {
    return std::span(points).subspan(chemins[i].debut, chemins[i].nb);
  }
};

// Ends of a path before they were rounded to floats.
struct Bouts {
  Vec2 debut;
  Vec2 fin;
};

}  // namespace pathwerk::assemblage
