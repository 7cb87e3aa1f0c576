// One straight move as the board gets it: speed, ticks, ramp, duration. Values in, values out. Arrays are in the
// order X, Y, Z.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "closed/ZenikCom.h"
#include "controller/TableFreq.h"

namespace ovelin {

// What the axes are made of and can do.
struct LimitesAxes {
  std::array<double, 3> MmParPas{1, 1, 1};  // of either sign, never 0
  std::array<float, 3> VitesseDepart{};     // mm/s at which an axis starts and stops dead; above 0
  std::array<float, 3> VitesseMax{};        // mm/s; above 0
};

struct Mouvement {
  std::array<std::int32_t, 3> pas{};  // signed
  float V = 0;                        // mm/s along the path, held within the axes
  bool vitesseTenue = false;          // the speed that was asked for was none
  std::int32_t Ticks = 0;             // at the full tick rate; 1 or more
  bool rampe = false;
  int N = 0, P = 0;           // levels: begin of the way up and end of the way down, top; 0 and 0 without ramp
  std::int32_t Descente = 0;  // tick at which the way down begins; negative in a row too short to climb
  double T = 0;               // s
};

// Computes moves at one multiplier and one slope. The sums of the ramp are kept for each level at which a ramp has
// begun; they are those that adding up anew would give, bit for bit.
class CalculMouvement {
 public:
  // `multiplicateur` 1 to 255, `tempsPalier` counts of 12 MHz.
  CalculMouvement(int multiplicateur, std::int32_t tempsPalier);

  [[nodiscard]] bool Vaut(int multiplicateur, std::int32_t tempsPalier) const {
    return multiplicateur_ == multiplicateur && tempsPalier_ == tempsPalier;
  }
  // `pas` are not all 0. `v` mm/s: too fast for an axis, it is lowered for all; what is no speed above 0 is the
  // slowest there is.
  Mouvement Calcule(const LimitesAxes& axes, const std::array<std::int32_t, 3>& pas, float v);
  // The level from which the full speed is `rapport` times that of the level: the last one whose period is longer
  // than 600 / multiplier times the ratio.
  [[nodiscard]] int PalierDe(double rapport) const;

 private:
  using Sommes = std::array<double, NbPaliers>;  // ticks from the first level of the ramp up to each level
  const Sommes& SommesDe(int depart);
  void Rampe(Mouvement& m, double rapport);

  int multiplicateur_;
  std::int32_t tempsPalier_;
  TableFrequences table_;
  std::vector<Sommes> sommes_;
  std::array<std::int16_t, NbPaliers> rang_{};  // of a level in `sommes_`, from 1; 0: none yet
};

// Flags of a record.
inline constexpr std::uint8_t DrapeauRampe = 32, DrapeauFin = 128;
// Bytes of a stored record: from its flags on.
inline constexpr int OctetsRecord = 25, OctetsRecordRampe = 31;

// Writes the record into bytes 0 to 32; the rest stays.
void ComposeRecord(const Mouvement& m, zenikcom::TamponOctets& tampon);

}  // namespace ovelin
