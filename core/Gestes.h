// What the buttons and keys of the main window mean, where a procedure is told one of a few ways.
#pragma once

#include <cstdint>

namespace ovelin {

// What a step of the selection goes along, by the numbers of the main window's buttons; none is the plain refresh.
enum class Direction : std::uint8_t { Aucune = 0, X = 1, Y = 3 };
// The axis that is mirrored, by the index of its button.
enum class AxeMiroir : std::uint8_t { X = 0, Y = 1 };
// Where a path goes in the order of milling, by the index of its button.
enum class PasOrdre : std::uint8_t { PlusTot = 0, PlusTard = 1 };
enum class PasZoom : std::uint8_t { Moins, Plus };
// Side of the tool as projects and buttons count it; the field of a path is a number of the file.
enum CoteOutil : std::int16_t {
  CoteMelange = 0,  // of several paths that differ
  CoteDirect = 1,   // by +RayonFraise, in the sense in which the path is drawn
  CoteLigne = 2,    // on the line
  CoteInverse = 3,  // by -RayonFraise: the other sense of travel of the same cut
};

}  // namespace ovelin
