// Why a file is refused, as a value: who shows it translates it.
#pragma once

#include <string>

namespace ovelin {

struct RefusFichier {
  std::string section, cle;  // of the text
  std::string suite;         // behind the text: the file, its reason
  std::string fichier;
  long ligne = 0;  // from 1; 0 when no line is at fault
};

}  // namespace ovelin
