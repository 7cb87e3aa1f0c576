// The kernel of the G-code writer: a table of moves becomes the text of a file. Values in, text out.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "core/Reglages.h"
#include "core/TableDecoupe.h"
#include "machine/TableMachine.h"
#include "run/Dialecte.h"

namespace ovelin {

struct EcritureNC {
  double LongueurNC = 0;  // mm
  double TempsNC = 0;     // s, at row speed, without ramps
  long lignes = 0;        // lines of the file
  long deplacements = 0;  // rows written
  long arcs = 0;          // arcs that stand for rows
  long tropLongues = 0;   // lines that are longer than the dialect allows: such a file is none
};

// The comments around the moves, UTF-8, and the spindle.
struct CadreNC {
  std::vector<std::string> presentation;  // program and parameters, a line each
  std::string unites;                     // above the word for millimetres
  std::string absolu, broche;             // above the start of the spindle
  std::string arret, fin;                 // above its stop, and above the end
  double vitesseBroche = 0;               // turns a minute, 0: the dialect's word without its speed
  double attenteBroche = 0;               // s until it turns, 0: no dwell
};

// Speeds that a row can have: positive, and no more than the width of a row holds.
bool VitessesValables(const Reglages& reglages, const TableMachine& table);

// The whole file in the program's own dialect. `lignes` from row 1, the start, on. `resultat` counts up while
// events run, so that a window shows it going.
std::string ComposeNC(std::span<const Deplacement> lignes, const CadreNC& cadre, EcritureNC& resultat);
// The same in any dialect. In another one than the own the tool rises before the spindle starts, and at the end it
// is lifted, the spindle stops, and then it goes home; rows, their order and their feed are those of the plan.
std::string ComposeNC(std::span<const Deplacement> lignes, const CadreNC& cadre, const Dialecte& dialecte,
                      EcritureNC& resultat);

}  // namespace ovelin
