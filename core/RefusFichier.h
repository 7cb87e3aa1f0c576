// Why a file is refused, as a value: who shows it translates it.
#pragma once

#include <cstdint>
#include <string>

#include "core/CleTexte.h"

namespace ovelin {

struct RefusFichier {
  std::string section, cle;  // of the text
  std::string suite;         // behind the text: the file, its reason
  std::string fichier;
  long ligne = 0;  // from 1; 0 when no line is at fault
};

RefusFichier RefusDe(CleTexte texte, const std::string& suite, const std::string& fichier);
// The refusal of that number of the geometry library. A library of another make may have numbers of its own: their
// key is "lib" and the number without its sign, which the user reads where no translation holds it.
RefusFichier RefusErreur(std::int32_t numero);

}  // namespace ovelin
