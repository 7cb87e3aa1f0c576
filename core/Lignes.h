// Lines of a text in memory, and the settings lines ("$$key=value") of a project. Pure functions over bytes.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>

#include "base/Texte.h"

namespace ovelin {

using base::LigneSuivante;

// Line end of the first line of a text; CR LF where there is none.
std::string FinDeLigne(std::string_view contenu);

// Settings lines of a project: for each key the bytes behind the first "=" of the first line that begins with
// "$$", the key and "=", without blanks around. Keys with regard to case.
std::unordered_map<std::string, std::string> IndexeReglages(std::string_view contenu);

// Puts "$$key=value" into a project: in place of the first line that holds "$$key=" anywhere (further ones stay),
// or else behind the last line. Bytes, not UTF-8.
void PlaceLigne(std::string& contenu, std::string_view cle, std::string_view valeur);
// Takes the first line that begins with "$$key=" out of a project.
void OteLigne(std::string& contenu, std::string_view cle);

}  // namespace ovelin
