// Material presets: keys "DB1", "DB2" ... of the settings, nine fields separated by tabs.
#pragma once

#include <array>
#include <string>
#include <utility>
#include <vector>

namespace ovelin {

struct FicheMateriau {
  // material, radius, tool, depth, pass, feed H, feed V, notch width, least notch height; texts as stored
  std::array<std::string, 9> champs;
  bool operator==(const FicheMateriau&) const = default;
};

std::vector<FicheMateriau> LitFiches();  // from the settings file alone, never from a project
// The five presets when "DB1" is missing.
void EcritFichesDefaut();
// Test of all rows in order, as the window does it: row and column (from 1) of the first fault, or (0, 0). Column 1
// stands for a row that is longer than can be read back.
std::pair<int, int> VerifieFiches(const std::vector<FicheMateriau>& fiches);
// Writes all rows and deletes the keys behind them.
void EcritFiches(const std::vector<FicheMateriau>& fiches);

// Choice of a row by its number from 1: the nine parameters and the settings. 0 applies nothing. False for a row
// that isn't there. The depth of the paths is the caller's (see AppliqueMateriau in workspace).
bool ChargeFiche(int rang);
// Row whose values agree exactly with the parameters in force; 0 when none does.
int ChercheFiche();

// Name of the material chosen or found last ("" for none), as the combo shows it.
extern std::string MateriauCourant;

}  // namespace ovelin
