// Figures of a plan for the eye. Values in, values out.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "core/Document.h"
#include "core/TableDecoupe.h"

namespace ovelin {

// What a table of moves comes to.
struct FiguresPlan {
  double longueur = 0;      // mm, from the origin on
  double temps = 0;         // s at row speed, without ramps
  std::int32_t lignes = 0;  // moves
  double fond = 0;          // lowest Z, mm
  // Where the tool cuts, mm. Nothing of it is set without a cut.
  bool coupe = false;
  double xmin = 0, xmax = 0, ymin = 0, ymax = 0;
};
// `lignes` from row 1 (the start) on. The sums are those that the G-code writer makes of the same rows.
FiguresPlan FiguresDe(std::span<const Deplacement> lignes);

// The paths behind a plan.
struct CompteUsinage {
  std::int32_t sequences = 0;     // that are milled
  std::vector<Code2> sansTrajet;  // of the drawing that should be, but have no tool path, in its order
  std::int64_t passes = 0;        // of the one that takes the most
};
CompteUsinage CompteUsinageDe(const Document& document, double profPasse);
// "3 (A, B, C)", the count and the codes for the eye; of many the first ones alone, then "...".
std::string TexteSansTrajet(const std::vector<Code2>& codes);

}  // namespace ovelin
