// A value of a file that was not taken as it stands there.
#pragma once

#include <string>

namespace ovelin {

struct ValeurIllisible {
  std::string fichier;
  long ligne = 0;  // from 1, 0 when no line is known
  std::string cle, valeur;
};

}  // namespace ovelin
