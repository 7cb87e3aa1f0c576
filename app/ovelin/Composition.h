// The windows of the program: the one place that knows them all.
#pragma once

#include <span>

#include "core/ui/Fenetres.h"

namespace ovelin {

// Every window that another one can open. A new window is one row here, its pair of files and its texts: commands,
// pictures and the tests of looks, sizes and languages read this table.
std::span<const LigneFenetre> TableFenetres();

// Fills `OuvreFenetre` and `FenetreExiste` from the table, and the size dialog of `Svc`.
void InstalleFenetres();

}  // namespace ovelin
