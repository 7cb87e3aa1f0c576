// Machine parameter tables: sections "table_<name>" of the settings file, and the values that other folders read.
#pragma once

#include <array>
#include <string>

#include "core/ChampsMachine.h"
#include "machine/ChampsTable.h"
#include "machine/GestionTables.h"

namespace ovelin {

// Globals from the current table (TableDefaut); at start-up and when the table changes.
void ChargeGlobalesTable();
// Called behind it, for those that hold more of the table than the globals; nullptr: nobody does.
extern void (*TableChargee)();

// A field of the current table, with its own default or that of the reader.
double LireNombreTable(const LectureChamp& lecture);

// What an axis can be made of. A value beyond is held at the end, whoever reads it: plan and board count in the
// same steps.
inline constexpr int DivisionMaxi = 15;                                   // of a step, as a power of two; from 0
inline constexpr double PasMoteurMaxi = 65'535;                           // of a turn; from 1, either sign
inline constexpr double TransmissionMini = 1e-6, TransmissionMaxi = 1e6;  // mm a turn, either sign
// `v` within both ends off 0, whatever its sign; `remplace` stands in for 0.
double TenuHorsDeZero(double v, double mini, double maxi, double remplace);

// mm per step of X, Y, Z with the defaults that the board check uses (200 steps, division 1, 1 mm a turn). They
// also stand in for a transmission or a number of steps of 0, so that no result is 0 or infinite.
std::array<double, 3> ResolutionsTable();
// The finer of X and Y, mm.
double ResolutionFine();

// Seconds in which the ramp doubles the speed, by slider value 1 to 9 (index 0 is value 1).
extern const std::array<float, 9> TempsDouble;
std::string TextePente(int curseur);  // VitesseDoubleEn, "0.35", Secondes

}  // namespace ovelin
