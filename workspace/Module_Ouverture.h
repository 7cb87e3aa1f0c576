// From a file on disk to the document, and back.
#pragma once

#include <cstdint>
#include <string>

#include "closed/Pathwerk.h"

namespace ovelin {

struct OptionsOuverture {
  bool dehors = true;        // the path is given (command line, recent list): no dialog
  bool ecritFichier = true;  // writes the key "Fichier" and the recent list
  bool rendUniforme = true;  // makes the line ends of the file itself uniform (text and writable files only)
};

enum class Ouverture {
  Reussie,
  Abandon,  // no path, or a path that does not exist: nothing has changed
  Refusee,  // the message has been shown; the document is empty of traces
};

// What a foreign drawing held before it was sized, cleaned and shifted.
struct ContenuLu {
  pathwerk::RapportLecture rapport;  // Format is "OVL" for a project
  std::string message;               // the library's message, without the padding
  std::int32_t points = 0;
  std::int32_t sequences = 0;
  float xmin = 0, xmax = 0, ymin = 0, ymax = 0;  // mm
};

// mnu_Ouvrir. With `dehors` the path comes in `chemin`, otherwise from the dialog. `contenu`, when given, takes
// what was read.
Ouverture mnu_Ouvrir(const std::string& chemin, const OptionsOuverture& options, ContenuLu* contenu = nullptr);

// The box of a refused reading: text of "lib" and the number in NbPoints, the extension, and the library's message
// on a line of its own unless the number is -101.
void MontreRefusLecture(const ContenuLu& contenu);

// Line ends of a text file on disk made uniform: when its first line doesn't end in a carriage return, every line
// feed becomes carriage return and line feed. Left alone: a file with a NUL or a binary header, a file that can't
// be written. True when it was rewritten.
bool RendUniforme(const std::string& chemin);

// mnu_Save with the path known: FichierProjet, the file, Modifie, recent list. Returns the system's reason or "".
std::string EnregistreProjet(const std::string& chemin);

// A row of the material database for the whole document (CB_BD): parameters, then the depth of every path.
// False when the row isn't there, or the question of unequal depths ("lib106") was answered No.
bool AppliqueMateriau(int rang);

}  // namespace ovelin
