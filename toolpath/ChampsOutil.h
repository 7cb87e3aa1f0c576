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
bool EntrePCPoche(const std::string& texte);
bool EntreProfPasse(const std::string& texte);

}  // namespace ovelin
