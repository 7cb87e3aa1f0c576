// The machine's parameters as the board and its records need them: values of one table, held within their ranges.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "controller/TableFreq.h"
#include "core/ChampsMachine.h"

namespace ovelin {

// One axis. Neither is ever 0.
struct AxeZENIK {
  double Transmission = 1;        // mm per turn
  std::int32_t PasParTour = 400;  // steps per turn, division included
  bool operator==(const AxeZENIK&) const = default;
};

inline constexpr int MultiplicateurMaxi = 255;
inline constexpr double VitesseMini = 0.001, VitesseMaxi = 1e6;  // mm/s: what stands in for less and for more

// Arrays are in the order X, Y, Z.
struct ParametresZENIK {
  std::int16_t Multiplicateur = 2;  // 1 to MultiplicateurMaxi; the full tick rate is 10,000 of it a second
  std::array<AxeZENIK, 3> Axes{};
  std::array<double, 3> VitesseDepart{5, 5, 5};  // mm/s at which an axis may start and stop dead; above 0
  std::array<double, 3> VitesseRampe{5, 5, 5};   // mm/s with ramp; above 0
  std::array<std::uint8_t, 10> Affectation{};    // output bytes of OUT1 to OUT10
  std::array<std::int32_t, 3> PasParMm{400, 400, 400};
  std::array<std::int32_t, 3> PasDepart{2000, 2000, 2000}, PasRampe{2000, 2000, 2000};  // steps/s
  std::uint8_t VitesseMaxPC = 0;                                                        // per cent, at most 100
  std::uint8_t TimeOutMoteur = 0;                                                       // s
  std::uint8_t PenteAccel = 5;                                                          // 1 to 9
  std::int32_t TempsPalier = 16'384;  // counts of 12 MHz that the ramp stays on one level
  std::uint8_t OptFinCourse = 0, OptOrientation = 0, OptMoteur = 0, OptSens = 0;
  TableFrequences TableFreq = CalculTableFreq(2, 16'384);

  // mm that one step travels; never 0.
  [[nodiscard]] std::array<double, 3> MmParPas() const;
  bool operator==(const ParametresZENIK&) const = default;
};

// A value of the table that is out of its range, and what stands in for it.
struct ValeurTenue {
  std::string cle;
  double lue = 0, prise = 0;
  bool operator==(const ValeurTenue&) const = default;
};

struct LectureParametres {
  ParametresZENIK parametres;
  std::vector<ValeurTenue> tenues;  // in the order of reading
};
// All parameters of one table. `lit` gives the number of a field, with the default of that reading where the key is
// missing. Divisions are held within 0 to 15, slope within 1 to 9, multiplier within 1 to 255, steps of a motor
// within 1 to 65,535 of either sign, travel per turn within 1e-6 to 1e6 mm of either sign; a speed of 0 or less is
// VitesseMini, a number of steps of 0 is 200, a travel per turn of 0 is 1 mm. More than 100 per cent are 100, which
// is no fault.
LectureParametres LitParametres(const std::function<double(const LectureChamp&)>& lit);

// The byte of an output: bits 0 and 1 the axis (1 X, 2 Y, 3 Z), bit 6 inverted, bit 7 a step line. `signal` 0 to 5:
// direction and step of X, of Y, of Z; any other is none, and then only the inversion stands.
std::uint8_t OctetSortie(int signal, bool inverse);

}  // namespace ovelin
