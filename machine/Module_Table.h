// Machine parameter tables: sections "table_<name>" of the settings file, and the values that other folders read.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace ovelin {

// Values of the table in force.
struct TableMachine {
  std::int16_t BrocheAuto = 1;     // 1: a run switches the spindle
  std::int16_t ClavierZENIK = 1;   // the board's keypad is used
  float CourseX = 1000, CourseY = 500, CourseZ = 200;           // travel, mm
  std::int32_t PasTourX = 48, PasTourY = 48, PasTourZ = 48;     // steps per turn, division included
  double TransmissionX = 1, TransmissionY = 1, TransmissionZ = 1;  // mm per turn
  float VitesseMaxX = 5, VitesseMaxY = 5, VitesseMaxZ = 5;      // mm/s with ramp
};
extern TableMachine Table;

inline constinit auto& BrocheAuto = Table.BrocheAuto;
inline constinit auto& ClavierZENIK = Table.ClavierZENIK;
inline constinit auto& CourseX = Table.CourseX;
inline constinit auto& CourseY = Table.CourseY;
inline constinit auto& CourseZ = Table.CourseZ;
inline constinit auto& PasTourX = Table.PasTourX;
inline constinit auto& PasTourY = Table.PasTourY;
inline constinit auto& PasTourZ = Table.PasTourZ;
inline constinit auto& TransmissionX = Table.TransmissionX;
inline constinit auto& TransmissionY = Table.TransmissionY;
inline constinit auto& TransmissionZ = Table.TransmissionZ;
inline constinit auto& VitesseMaxX = Table.VitesseMaxX;
inline constinit auto& VitesseMaxY = Table.VitesseMaxY;
inline constinit auto& VitesseMaxZ = Table.VitesseMaxZ;

std::string SectionTable(std::string_view nom);  // "table_" + name
// Globals from the current table (TableDefaut); at start-up and when the table changes.
void ChargeGlobalesTable();

// A key of the current table with the caller's default.
std::string LireCleTable(std::string_view cle, std::string_view defaut);
double LireNombreTable(std::string_view cle, double defaut);

// mm per step of X, Y, Z with the defaults that the board check uses (200 steps, division 1, 1 mm a turn).
std::array<double, 3> ResolutionsTable();
// The finer of X and Y, mm.
double ResolutionFine();

// The editable values of a table, key by key as the parameter window shows them.
using ChampsTable = std::vector<std::pair<std::string, std::string>>;
ChampsTable Chargt_Table(std::string_view nom);
bool Sauve_Table(std::string_view nom, const ChampsTable& champs);
// The text of a field as it is left with that text: format of its kind, user's decimal mark.
std::string FormateChamp(std::string_view famille, int index, std::string_view texte);
// The twin of a field (steps per turn and degrees per step): its index and text; index -1 when there is none.
std::pair<int, std::string> ChampJumeau(int index, std::string_view texte);

std::vector<std::string> ListeTables();
// Name rule of copies: "" when it is good, else the key of the refusal ("lib006": 9 characters and more).
std::string RefusNomTable(std::string_view nom);
// The name asked for until it is good; "" when cancelled.
std::string NomNouvelleTable();
enum class GestionTable { Copier = 1, Renommer = 2, Supprimer = 3 };
// False when cancelled. `champs`: the controls as they stand, saved under the old name before a copy or a rename.
bool Cmd_Gestion(GestionTable index, const ChampsTable& champs);
// The same with the name given (no prompt).
bool Cmd_Gestion(GestionTable index, const ChampsTable& champs, const std::string& nouveau);
// Makes a table current: global, key TableDefaut, globals.
void ChoisitTable(std::string_view nom);

// Presets of the outputs. False for an unknown name. "CNC3AX" leaves the inversions as they are.
const std::vector<std::string>& ListeInterfaces();
bool AppliqueInterface(std::string_view nom, ChampsTable& champs);

// Seconds in which the ramp doubles the speed, by slider value 1 to 9 (index 0 is value 1).
extern const std::array<float, 9> TempsDouble;
std::string TextePente(int curseur);  // "lib004" 0.35 "lib005"

}  // namespace ovelin
