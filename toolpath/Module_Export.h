// Drawing or tool path as a file for other programs.
#pragma once

#include <string>

namespace ovelin {

// Btn_Gener_Fichier. `source` 0: the drawing, 1: the tool path. The path has been chosen; its extension, DXF or
// DAT, is the format. False: refused, cancelled or failed (the message has been shown).
bool Exporte(const std::string& chemin, int source);
// "cut.dat" becomes "cut001.dat", "cut002.dat" ...: the files of a drawing whose format holds one path.
std::string CheminNumerote(const std::string& chemin, long numero);

}  // namespace ovelin
