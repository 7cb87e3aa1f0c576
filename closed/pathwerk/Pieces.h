// From the records of a path to plane geometry and back: the source of an offset, and the pieces that come of it.
#pragma once

#include <optional>
#include <span>
#include <vector>

#include "closed/Pathwerk.h"
#include "closed/pathwerk/Vecteur.h"

namespace pathwerk::geo {

// A place of the source to be found again on the result.
struct Repere {
  Vec2 lieu;
  Vec2 normale;  // unit vector to the left of the path; halfway between both segments in a corner
  Code2 cde;
};

// A path made ready: moved to the middle of its box, thinned, without repeats.
struct Source {
  Chemin chemin;  // a closed path doesn't repeat its first point
  bool ferme = false;
  Vec2 centre;                  // add it to come back to the drawing, mm
  Repere depart;                // first point
  std::vector<Repere> reperes;  // marks
};

// Thinned to `tolerance` mm. None: a coordinate is not finite or beyond 1e8 mm, or there is no extent at all.
std::optional<Source> PrepareSource(const std::vector<PointTrace>& points, double tolerance);

struct Piece {
  Chemin points;
  bool ferme = true;    // doesn't repeat its first point
  bool marques = true;  // takes marks
};

// Writes the pieces as records: closed ones begin at the place nearest to the start of the source, each mark
// becomes a point of its own at the nearest place of the pieces that take marks. `rayon`: distance between source
// and those pieces, > 0. A piece that shrinks to one place in 32-bit floats is left out. Every piece has a `Seq` of
// its own, different from its neighbours'.
std::vector<PointTrace> EcritPieces(std::vector<Piece> pieces, const Source& source, double rayon,
                                    double tolerance);

}  // namespace pathwerk::geo
