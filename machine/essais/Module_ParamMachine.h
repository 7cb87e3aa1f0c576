// What the window of parameters does with its table: another one, a copy, the end.
#pragma once

#include <string>

#include "machine/ChampsTable.h"
#include "machine/GestionTables.h"

namespace ovelin {

// Another table is picked: what is loaded (`chargee`, "" for none) is saved, `nom` is in force and its fields are
// loaded; a board that has it takes it as its default. False, and nothing changed, when it can't be saved, which
// has been told.
bool ChoisitTableFenetre(const std::string& chargee, const std::string& nom, ChampsTable& champs);

// Copies, renames, deletes the table in force, `champs` as they stand. The one in force is not deleted while
// anything moves, which is told. True: another table is in force, and `champs` are its fields.
bool GereTableFenetre(GestionTable quoi, ChampsTable& champs);

// On closing: whatever moves stops at once, and is waited for, as long as the link is there.
void ArreteMouvement();
// Behind it: the table is saved (what forbids that is told, and everything goes on), and a board has it.
void FermeTableFenetre(const std::string& chargee, const ChampsTable& champs);

}  // namespace ovelin
