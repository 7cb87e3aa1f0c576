// Languages that a translation file is there for.
#pragma once

#include <string>
#include <vector>

namespace ovelin {

struct LanguePresente {
  std::string code;  // two letters, as in the name of the file
  std::string nom;   // as its speakers call it; the code for a language that isn't known by name
};

// Each "OVELIN??.trad" of the program's folder and of the folders of the product, once: the languages known by name
// in their order, then the others by their code.
std::vector<LanguePresente> LanguesPresentes();

// Texts of the toolkit's own dialogs in the language in force, where the system has them. Every window asks for
// them at its load.
void TraduitBoiteAOutils();

}  // namespace ovelin
