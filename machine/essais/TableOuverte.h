// The fields of the table as the window of parameters shows them, for the tools that stand beside it.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "core/ChampsMachine.h"

namespace ovelin {

// Filled by the window while it is there; empty, the table in force stands in for it.
struct AccesTable {
  std::function<std::string(const ChampMachine& champ)> Lit;
  std::function<void(const ChampMachine& champ, const std::string& texte)> Pose;
};
extern AccesTable TableOuverte;

// The text of a field, with the user's decimal mark.
std::string TexteTableOuverte(const ChampMachine& champ);
// Its number; nothing for an empty field, and for a text that is none.
std::optional<double> NombreTableOuverte(const ChampMachine& champ);
// Into the field of the window, or the table in force.
void PoseTableOuverte(const ChampMachine& champ, const std::string& texte);

}  // namespace ovelin
