// The editable values of a parameter table.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/ChampsMachine.h"

namespace ovelin {

// The editable values of a table, key by key as the parameter window shows them: numbers with the user's mark.
using ChampsTable = std::vector<std::pair<std::string, std::string>>;
ChampsTable Chargt_Table(std::string_view nom);
// Writes them to the table's section, then COMBO_TABLE and OptionLPT, and takes BrocheAuto over. Values given for
// this call only (Magasin.Surcharge) are not written. False when the settings file can't be written.
bool Sauve_Table(std::string_view nom, const ChampsTable& champs);
// The text of a field as it is left with that text: format of its kind, user's decimal mark.
std::string FormateChamp(FamilleChamp famille, int index, std::string_view texte);
// The twin of a field (steps per turn and degrees per step): its index and text; index -1 when there is none.
std::pair<int, std::string> ChampJumeau(int index, std::string_view texte);
// While a field TB_SAV is being typed: the speeds with ramp (15, 16, 17) go into their globals at once, unless 0.
void SuitChamp(int index, std::string_view texte);
// The same for a box that is ticked or cleared: the inversions of the axes (1, 2, 3).
void SuitCoche(int index, bool coche);
// Slider value for the text of TB_Pente; `curseur` for a text that isn't a value between 1 and 9.
int CurseurPente(std::string_view texte, int curseur);
// Key "OptionLPT" for the kind of interface chosen in Combo_SAV(0).
int OptionLPT(int interfacePuissance);

// Presets of the outputs. False for an unknown name. "CNC3AX" leaves the inversions as they are.
const std::vector<std::string>& ListeInterfaces();
bool AppliqueInterface(std::string_view nom, ChampsTable& champs);

}  // namespace ovelin
