// The fields of a table that go into members of the one in force.
#pragma once

#include <span>

#include "core/ChampsMachine.h"
#include "machine/TableMachine.h"

namespace ovelin {

struct GlobaleTable {
  ChampMachine champ;
  bool suit;  // the member follows while the field is being typed
  void (*pose)(TableMachine& table, double valeur);
};
std::span<const GlobaleTable> GlobalesTable();

}  // namespace ovelin
