// The steps of the assembly, each on flat arrays. Used by Assemble and its tests alone.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

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

// Marks every path that repeats an earlier one: the same points forwards or backwards, a closed one from any start.
// Returns the number of them; `garde[i]` is 0 for those.
long MarqueDoublons(const CheminsAssembles& assembles, std::vector<char>& garde);

// Marks likewise, in a `garde` that is filled, every path that lies over its whole length within `ecart` mm of an
// earlier path of its nature, and that earlier one within `ecart` of the path. Crumbs of no more than four times
// that size are left alone, but for holes: the pieces of a finely cut line lie as near to each other as its doubles
// do.
long MarqueJumeaux(const CheminsAssembles& assembles, double ecart, std::vector<char>& garde);

// Joins the open paths at their ends. `bouts` belongs to `assembles.chemins`, same order. `tolerance` in mm; 0
// joins equal points alone. Returns the assembles with the joined paths in the place of their first piece.
CheminsAssembles Soude(const CheminsAssembles& assembles, std::span<const Bouts> bouts, double tolerance);

// For each path the index of the smallest contour around it, or `SansParent`. `marge` in mm: a path that sticks
// out of a contour by less is still inside.
inline constexpr std::size_t SansParent = static_cast<std::size_t>(-1);
std::vector<std::size_t> Parents(const CheminsAssembles& assembles, double marge);

// Indices of all paths, each contour behind everything that it contains, otherwise in the given order.
std::vector<std::size_t> OrdreDeCoupe(std::span<const std::size_t> parents);

// Twice the area inside a closed path, positive counter-clockwise, mm2.
double DoubleAire(std::span<const PointF> contour);

}  // namespace pathwerk::assemblage
