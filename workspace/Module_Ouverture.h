// From a file on disk to the document.
#pragma once

#include <string>

#include "closed/Pathwerk.h"

namespace ovelin {

struct OptionsOuverture {
  bool dehors = true;          // the path is given (command line, recent list): no dialog
  bool ecritFichier = true;    // writes the key "Fichier"
  bool rendUniforme = true;    // makes the line ends of the file itself uniform (text and writable files only)
};

enum class Ouverture { Reussie, Abandon, Refusee };

// mnu_Ouvrir. With `dehors` the path comes in `chemin`, otherwise from the dialog. What was told to the user has
// been shown. `rapport`, when given, takes what the reader told.
Ouverture mnu_Ouvrir(const std::string& chemin, const OptionsOuverture& options,
                     pathwerk::RapportLecture* rapport = nullptr);

// mnu_Save with a path: FichierProjet, the file, caption, Modifie. Returns the system's reason or "".
std::string EnregistreProjet(const std::string& chemin);

// A row of the material database for the whole document (CB_BD): parameters, then the depth of every path.
// False when the question of unequal depths ("lib106") was answered No.
bool AppliqueMateriau(int rang);

// Start of the program below the windows: folders, settings, table, board, hooks of the project reader.
// `config` replaces the program's folder when not empty. False: the settings file can't be written.
bool DemarreProgramme(const std::string& dossierExecutable, const std::string& config, const std::string& locale);

}  // namespace ovelin
