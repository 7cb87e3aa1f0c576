// The fields of the tool that its traces depend on.
#pragma once

#include <optional>
#include <span>
#include <string>

#include "core/CleTexte.h"

namespace ovelin {

// The rules of the tool fields. False: the entry is refused; the value may stand stored all the same, as each rule
// says. Texts take both decimal marks.
bool EntreRayonFraise(const std::string& texte);
bool EntreLargeurEncoche(const std::string& texte);
bool EntreMiniEncoche(const std::string& texte);
bool EntreHautDeg(const std::string& texte);
// What stands in front of EntreHautDeg, whose test looks at the height in force. False for an entry below 0, which
// that test would let through once. A height below 0 that is in force, out of a project or the settings, becomes 0,
// so that it doesn't refuse the entry that mends it.
bool LaisseHautDeg(const std::string& texte);
bool EntrePCPoche(const std::string& texte);
bool EntreProfPasse(const std::string& texte);
// Degrees of the way down along the path: 0 for straight down, or above 0 and no more than AngleRampeMax; any other
// is refused and not stored.
bool EntreAngleRampe(const std::string& texte);
// What a pass of the depth in force needs at the angle in force, mm; nothing where it goes straight down.
std::optional<double> RampeDePasse();

// A field of the tool as windows show it: its names, its French texts, its rule, the value in force, and what it
// tells of a number that is refused.
struct LigneOutil {
  const char* champ;
  const char* etiquette;
  const char* texte;
  const char* unite;  // "" where the label holds it
  const char* bulle;
  bool (*entre)(const std::string&);
  std::string (*valeur)();
  std::optional<CleTexte> raison;
};
// In the order of the panel. The panel shows all but the angle of the ramp, the milling window all but the least
// height of notches.
std::span<const LigneOutil> LignesOutil();

// What came of an entry in such a field: the reason of a refusal, if there is one to tell, and whether the refused
// value is in force all the same.
struct IssueOutil {
  bool accepte = false;
  std::optional<CleTexte> raison;
  bool stocke = false;
};
// The rule of the field, behind a guard of the clearance height: its own rule looks at the height in force, so that
// a negative entry would get through once, and no good one after it.
IssueOutil EntreOutil(const LigneOutil& ligne, const std::string& texte);

}  // namespace ovelin
