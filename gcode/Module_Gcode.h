// What the G-code workshop puts in force: the bounds of its program, the file asked for, the table chosen.
#pragma once

#include <string>

#include "core/Services.h"
#include "gcode/Mesure.h"

namespace ovelin {

inline constexpr const char* MotifGcode = "*.nc; *.iso";
// Told of an arc whose ends are not equally far from its centre; it has no key.
inline constexpr const char* CentreInterpolation = "problème centre pour interpolation circulaire";

// The measuring pass with the colours of the settings. Its bounds go to Xmin, Xmax, Ymin and Ymax, which describe
// the program from here on until RetablitBornes. A line that failed, a word that was rejected and an arc that could
// not be made are told behind it, each kind once.
MesureProgramme AnalyseProgramme(const Programme& programme);
// Tells what the interpreter stumbled over, each kind once with its first word: a program may hold thousands.
void DitDefauts(const MesureProgramme& mesure);
// The bounds of the program again in force, and those of the drawing.
void PlaceBornes(const BornesProgramme& bornes);
void RetablitBornes();

// "Mouvements sans vitesse ...: 12", "" when all have one.
std::string TexteSansVitesse(const MesureProgramme& mesure);
// What of the bounds lies outside the travel of the table in force, X and Y from 0 to CourseX and CourseY and no
// more than CourseZ from top to bottom, as "X 1200 > 1000"; "" when nothing does.
std::string TexteHorsCourse(const MesureProgramme& mesure);

// The open dialog, from the file of key "Fichier" on, which takes the choice; "" when cancelled.
std::string ChoisitProgramme();
// A box about lines that are neither valid nor comments: `texte`, their count, and the first of them.
BoiteMessage BoiteLignesRefusees(CleTexte texte, Boutons boutons, const Programme& programme);
// Reads a program; told and false where it can't be read. Lines that are neither valid nor comments are told with
// the first of them (lib006).
bool OuvreProgramme(const std::string& chemin, Programme& programme);

}  // namespace ovelin
