// What the speed test is asked for: from which speed to which, in which steps, over which way.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>

#include "core/CleTexte.h"

namespace ovelin {

// The entry fields as they are typed, and the axes under test.
struct ChampsEssai {
  std::string VitDep, VitArr, Incr, Depl;
  std::array<bool, 3> axes{};
  bool operator==(const ChampsEssai&) const = default;
};

struct ReglageEssai {
  double depart = 0, arrivee = 0, increment = 0;  // mm/s
  double distance = 0;                            // mm, of either sign
  std::array<bool, 3> axes{};
};

// A field that forbids the test: its number (TB_Param 1 to 4), and why.
struct RefusEssai {
  int champ = 0;
  CleTexte texte;
};

// The start button may be pressed: there is a way to go, and an axis that goes it.
bool ActiveGO(const ChampsEssai& champs);
// Reads the fields. Nothing when the test can run; otherwise the first field that forbids it, `reglage` is then not
// touched. Speeds are above 0; an increment of 0, or one that leads away from the end, is refused.
std::optional<RefusEssai> LitReglageEssai(const ChampsEssai& champs, ReglageEssai& reglage);

// How many passes there are, 1 or more, and the speed of pass `i` from 0 on. A whole number counts: adding an
// increment of 0.1 fifty times would miss the end by its rounding.
std::int64_t NombrePasses(const ReglageEssai& reglage);
double VitessePasse(const ReglageEssai& reglage, std::int64_t i);

}  // namespace ovelin
