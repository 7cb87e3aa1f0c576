// What stands in front of a job: a clearance height that is none, and entries that are surely wrong.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/Traduction.h"
#include "run/Remede.h"

namespace ovelin {

// Why there is no plan: the text of a key, and what follows it.
struct RefusPlan {
  CleTexte cle;
  std::string suite;
  [[nodiscard]] std::string Texte() const { return Traduire(cle) + suite; }
};
// HautDegNul where the clearance height is not above 0: the tool would cross the work in the material. What follows
// the text names the key, its value and where that comes from.
std::optional<RefusPlan> VerifieHautDeg();

// Keys and texts of what is warned of and not refused: attachment points with a bridge of no height, a depth beyond
// the travel, a bridge that is wider than its path, a radius above 50 mm, an overlap of pockets outside 0 to 99 %.
struct AvisPlan {
  std::string cle, texte;
  Remede remede = {};
};
std::vector<AvisPlan> AvisDuPlan();

}  // namespace ovelin
