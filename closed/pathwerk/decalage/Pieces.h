// From the records of a path to plane geometry and back: the source of an offset, and the pieces that come of it.
#pragma once

#include <optional>
#include <span>
#include <vector>

#include "closed/Pathwerk.h"
#include "closed/pathwerk/commun/Lieux.h"
#include "closed/pathwerk/decalage/Origine.h"

namespace pathwerk::decalage {

// A point of the source that is to come out on the result.
struct PointSuivi {
  std::size_t rang = 0;  // its place in the path
  Vec2 lieu;
  Vec2 normale;  // unit vector to the left of the path; halfway between both segments in a corner
  Code2 cde;
};

// A path made ready: moved to the middle of its box, thinned, without repeats.
struct Source {
  Chemin chemin;  // a closed path doesn't repeat its first point
  bool ferme = false;
  Vec2 centre;                     // add it to come back to the drawing, mm
  double ecart = 0;                // how far from the path the points lie that thinning left out, mm
  PointSuivi depart;               // first point
  std::vector<PointSuivi> suivis;  // marks
};

// Thinned to `tolerance` mm. None: a coordinate is not finite or beyond 1e8 mm, or there is no extent at all.
std::optional<Source> PrepareSource(const std::vector<PointTrace>& points, double tolerance);

struct Piece {
  Chemin points;
  bool ferme = true;    // doesn't repeat its first point
  bool marques = true;  // takes marks
  // Where the edges lie on the source; edge k leaves point k. Empty: unknown.
  Origines origines = {};
  // Milled before it in one go with it, from first to last and straight on to points[0]; takes no marks.
  Chemin avant = {};
};

class Report;

// Begins a closed piece at the image of the source's start. Linear in the piece.
void Commence(Piece& piece, const Report& report, double tolerance);

// Writes the pieces as records: closed ones begin at the image of the source's start (those with something before
// them as they stand), each mark becomes a point of its own at its image on the pieces that take marks (see
// Report.cpp). `distance`: between source and those pieces, left positive; where the pieces lie on the other
// side, as in a pocket, the sign doesn't matter. A piece that shrinks to one place in 32-bit
// floats is left out. Every piece has a `Seq` of its own, different from its neighbours'.
std::vector<PointTrace> EcritPieces(std::vector<Piece> pieces, const Source& source, double distance,
                                    double tolerance);

}  // namespace pathwerk::decalage
