// The G-code writer: the planned job as a file. Needs no board.
#pragma once

#include <string>

#include "run/NoyauNC.h"

namespace ovelin {

// Plans the job and writes it (Btn_Gener_GCODE). An empty `chemin` asks with the save dialog. False: refused or
// failed, the message has been shown, and the file that was there is whole.
bool EcritGCode(const std::string& chemin, EcritureNC& resultat);

extern std::string NomFichierNC;  // name used last

}  // namespace ovelin
