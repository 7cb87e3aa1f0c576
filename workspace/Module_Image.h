// The picture of the document in force: what it is made of, and where it lies on the machine.
#pragma once

#include <string>

#include "image/SceneDocument.h"
#include "image/SceneFeuille.h"

namespace ovelin {

// By document, tool, settings and machine table in force. `numPoint`, `sequence`: the buttons mnu_NumPoint and
// mnu_Sequence.
OptionsScene OptionsDuDocument(bool numPoint, bool sequence);

// By how much the cuts of the document leave the travel of the machine.
Depassement DepassementCourant();
// The same in words, "" where they don't: "Le trajet sort de la course de la machine : à gauche 12.5 mm".
std::string TexteDepassement(const Depassement& depassement);
// What stands on the work bench, in one line: the file, with a star where `change` says that it holds not all of
// the work, and the selection: "plaque.dxf*   3 sur 15 sélectionnées, 45.0 x 45.0 mm, profondeur -1.2". The depth
// is left out where the paths differ in it.
std::string TexteEtat(bool change);

// The buttons mnu_Sobre and mnu_Saignee: the other way round from now on, also in the settings file. A Dessin shows
// it.
void BasculeSobre();
void BasculeSaignee();

}  // namespace ovelin
