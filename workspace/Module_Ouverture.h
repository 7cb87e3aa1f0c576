// From a file on disk to the document, and back.
#pragma once

#include <string>

#include "workspace/NoyauOuverture.h"

namespace ovelin {

struct OptionsOuverture {
  bool dehors = true;        // the path is given (command line, recent list): no dialog
  bool ecritFichier = true;  // writes the key "Fichier" and the recent list
  bool rendUniforme = true;  // makes the line ends of the file itself uniform (text and writable files only)
  bool demandeUnite = true;  // asks for the unit of a drawing in SVG that has none
  bool retient = false;    // the drawing as it has come is retained as work that is on the disk (Module_Travail.h)
  SouhaitLecture souhait;  // of the reading
};

enum class Ouverture {
  Reussie,
  // No path, or a path that does not exist; or the user has taken it back while the file was read or the tool path
  // computed: nothing has changed.
  Abandon,
  Refusee,  // the message has been shown; the document is empty of traces
};

// mnu_Ouvrir. With `dehors` the path comes in `chemin`, otherwise from the dialog. `contenu`, when given, takes
// what was read.
Ouverture mnu_Ouvrir(const std::string& chemin, const OptionsOuverture& options, ContenuLu* contenu = nullptr);

// The same with a file that LitDessin (NoyauOuverture.h) has read, so that a caller can look at it first: a refused
// one need not be handed on, and leaves the open job as it is. The file is not read again, unless the user is asked
// for its unit and names another.
Ouverture OuvreDessinLu(DessinLu&& lu, const OptionsOuverture& options, ContenuLu* contenu = nullptr);

// What the reading of the drawing in force supposed and left out; empty for a project, and before anything is open.
const pathwerk::RapportLecture& RapportOuvert();

// The open dialog: starts at the key "Fichier". "" when it was left without an answer.
std::string ChoisitDessin();
// Reads a file to be opened, with the progress and the thread that a long reading has in a window; there the user
// may end it. Nothing in force is touched.
DessinLu LitAOuvrir(const std::string& chemin, const SouhaitLecture& souhait = {});
// A refused reading of a window: the user is told, the next dialog starts there and the recent list knows it, and
// the open job stays as it is.
void RefuseDessinLu(const DessinLu& lu);

// Line ends of a text file on disk made uniform: when its first line doesn't end in a carriage return, every line
// feed without one gets it in front. Left alone: a file with a NUL or a binary header, a file that can't
// be written. True when it was rewritten.
bool RendUniforme(const std::string& chemin);

// mnu_Save with the path known: FichierProjet, the file, Modifie, recent list. Returns the system's reason or "".
std::string EnregistreProjet(const std::string& chemin);

// A row of the material database for the whole document (CB_BD): parameters, then the depth of every path.
// False when the row isn't there, the question of unequal depths (ProfondeursInegales) was answered No, or the user
// has taken it back while the traces were computed: then the parameters are those of before.
bool AppliqueMateriau(int rang);

}  // namespace ovelin
