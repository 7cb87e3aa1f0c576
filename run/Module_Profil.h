// How long the table of moves takes on the board, ramps included. One row at a time: no row knows its neighbours.
#pragma once

#include <functional>

#include "core/TableDecoupe.h"

namespace ovelin {

// The foreseen duration of TableDecoupe, s, by the arithmetic of the board's own records, from the second row on.
// The speed of each row is lowered to what the axes can do and stays so in the table. Opens the job on the board as
// a side effect: the stream, or with ModeEnvoiTable 1 or 2 the stored list (TravailIncertain tells when it could
// not). 0 without a board.
double TempsDecoupe();

// The same by the parameters that are loaded, with or without a board; nothing is sent.
double TempsPrevu();
// What `duree` gives for each move of TableDecoupe, s, added up. `duree` may lower the speed of its row.
double SommeDurees(const std::function<float(Deplacement&)>& duree);

}  // namespace ovelin
