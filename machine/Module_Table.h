// Machine parameter tables: sections "table_<name>" of the settings file, and the values that other folders read.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/ChampsMachine.h"
#include "core/Traduction.h"

namespace ovelin {

// Globals from the current table (TableDefaut); at start-up and when the table changes.
void ChargeGlobalesTable();
// Called behind it, for those that hold more of the table than the globals; nullptr: nobody does.
extern void (*TableChargee)();

// A field of the current table, with its own default or that of the reader.
double LireNombreTable(const LectureChamp& lecture);

// mm per step of X, Y, Z with the defaults that the board check uses (200 steps, division 1, 1 mm a turn). They
// also stand in for a transmission or a number of steps of 0, so that no result is 0 or infinite.
std::array<double, 3> ResolutionsTable();
// The finer of X and Y, mm.
double ResolutionFine();

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
// Slider value for the text of TB_Pente; `curseur` for a text that isn't a value between 1 and 9.
int CurseurPente(std::string_view texte, int curseur);
// Key "OptionLPT" for the kind of interface chosen in Combo_SAV(0).
int OptionLPT(int interfacePuissance);

// Names of the tables of the settings file, in its order.
std::vector<std::string> ListeTables();
// Name rule of copies: nothing when it is good, else why it is refused: 9 characters and more, or a character that
// can't stand in the name of a section or that the board hasn't got.
std::optional<CleTexte> RefusNomTable(std::string_view nom);
// The name asked for until it is good; "" when cancelled.
std::string NomNouvelleTable();
enum class GestionTable { Copier = 1, Renommer = 2, Supprimer = 3 };
// Copies, renames or deletes the current table. False when cancelled, or when the settings file can't be written,
// which has been told. `champs`:
// the controls as they stand, saved under the old name before a copy or a rename. The new table is current
// afterwards; after a deletion the first of the list is.
bool Cmd_Gestion(GestionTable index, const ChampsTable& champs);
// The same with the name given (no prompt). A name that breaks the rule, or names a table that is there, is refused
// with its message.
bool Cmd_Gestion(GestionTable index, const ChampsTable& champs, const std::string& nouveau);
// Makes a table current: global, key TableDefaut, globals.
void ChoisitTable(std::string_view nom);
// Another table is picked in the window: the one that was loaded is saved first, then `nom` is current and its
// fields are loaded. `chargee` is "" while none was loaded. False, and nothing changed, when it can't be saved,
// which has been told.
bool ChangeTable(std::string_view chargee, std::string_view nom, ChampsTable& champs);

// Presets of the outputs. False for an unknown name. "CNC3AX" leaves the inversions as they are.
const std::vector<std::string>& ListeInterfaces();
bool AppliqueInterface(std::string_view nom, ChampsTable& champs);

// Seconds in which the ramp doubles the speed, by slider value 1 to 9 (index 0 is value 1).
extern const std::array<float, 9> TempsDouble;
std::string TextePente(int curseur);  // VitesseDoubleEn, "0.35", Secondes

}  // namespace ovelin
