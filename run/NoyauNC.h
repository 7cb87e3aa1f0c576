// The kernel of the G-code writer: a table of moves becomes the text of a file. Values in, text out.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "core/Reglages.h"
#include "core/TableDecoupe.h"
#include "machine/TableMachine.h"

namespace ovelin {

struct EcritureNC {
  double LongueurNC = 0;  // mm
  double TempsNC = 0;     // s, at row speed, without ramps
  long lignes = 0;        // lines of the file
  long deplacements = 0;  // rows written
};

// The comments around the moves, UTF-8.
struct CadreNC {
  std::vector<std::string> presentation;  // program and parameters, a line each
  std::string unites;                     // above the word for millimetres
  std::string absolu, broche;             // above the start of the spindle
  std::string arret, fin;                 // above its stop, and above the end
};

// Speeds that a row can have: positive, and no more than the width of a row holds.
bool VitessesValables(const Reglages& reglages, const TableMachine& table);

// The whole file. `lignes` from row 1, the start, on. `resultat` counts up while events run, so that a window shows
// it going.
std::string ComposeNC(std::span<const Deplacement> lignes, const CadreNC& cadre, EcritureNC& resultat);

}  // namespace ovelin
