// The way of the cutter over the rings of a fill.
#pragma once

#include <vector>

#include "closed/pathwerk/decalage/Pieces.h"
#include "closed/pathwerk/decalage/Report.h"
#include "closed/pathwerk/poche/Arbre.h"

namespace pathwerk::poche {

using decalage::Piece;
using decalage::Report;

// One piece for each part that hangs together, the outermost ring as its last round, begun at the image of the
// source's start. What can't be reached without a lift comes in front as pieces of its own.
std::vector<Piece> Trajets(ArbreAnneaux& arbre, const Acces& acces, const Report& report, double tolerance);

}  // namespace pathwerk::poche
