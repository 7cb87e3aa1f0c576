// The fields of the tool that its traces depend on.
#pragma once

#include <string>

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

}  // namespace ovelin
