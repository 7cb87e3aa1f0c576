// The size fields: width or height, ratio and result of each axis, kept in step.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>

#include "core/Services.h"
#include "core/Traduction.h"

namespace ovelin {

// One axis. A drawing without extent on it keeps its result of 0 whatever the ratio.
struct AxeDimension {
  double initial = 0;  // mm
  double rapport = 1;
  double resultat = 0;  // mm, as entered or initial x ratio
  double course = 0;    // travel of the machine, mm
  double loin = 0;      // distance of the farthest point from 0, mm
  bool operator==(const AxeDimension&) const = default;
};

struct ChampsDimension {
  std::array<AxeDimension, 2> axes;  // X, Y
  bool proportions = false;          // both axes take the ratio that is entered
  bool operator==(const ChampsDimension&) const = default;
};

// The fields as the window shows them first: ratios 1, results the size of the drawing, which is the one in memory.
ChampsDimension ChampsDe(const DemandeDimension& demande);
// The same for the drawing in memory: its bounds, the travel of the machine table in force.
DemandeDimension DemandeDuDocument();

// What is typed takes its place and the axis follows; with `proportions` the other axis takes the ratio too.
void EntreRapport(ChampsDimension& champs, std::size_t axe, double rapport);
// False when the axis has no extent: no ratio gives another result, and nothing changes.
bool EntreResultat(ChampsDimension& champs, std::size_t axe, double resultat);
// The box is checked: the second axis takes the ratio of the first.
void EntreProportions(ChampsDimension& champs, bool proportions);

// Why the sizes can't be: RapportNul for a ratio of 0, DimensionHorsCourse for a result beyond the travel, or for
// points that no machine could reach, and the first axis at fault. A result that shows as the travel is good. A
// mirrored drawing (negative ratio) is as wide.
struct RefusDimension {
  std::optional<CleTexte> raison;
  std::size_t axe = 0;
  explicit operator bool() const { return raison.has_value(); }
};
RefusDimension VerifieDimension(const ChampsDimension& champs);

std::string TexteTaille(double mm);        // up to three decimals
std::string TexteRapport(double rapport);  // the shortest that reads back to the same 32 bits

}  // namespace ovelin
