// The G-code writer: the planned job as a file. Needs no board.
#pragma once

#include <string>

namespace ovelin {

struct EcritureNC {
  double LongueurNC = 0;  // mm
  double TempsNC = 0;     // s, at row speed, without ramps
  long lignes = 0;        // lines of the file
  long deplacements = 0;  // rows written
};

// Plans the job and writes it (Btn_Gener_GCODE). An empty `chemin` asks with the save dialog. False: refused or
// failed, the message has been shown, and the file that was there is whole.
bool EcritGCode(const std::string& chemin, EcritureNC& resultat);

extern std::string NomFichierNC;  // name used last

}  // namespace ovelin
