// Parameter tables listed, copied, renamed, deleted, made current.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/CleTexte.h"
#include "machine/ChampsTable.h"

namespace ovelin {

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

}  // namespace ovelin
