// The option of the benchmarks that run on several cores.
#pragma once

#include <cstdlib>
#include <string_view>

#include "core/Coeurs.h"

namespace banc {

// Takes "--cores N" from the front of the arguments; without it the work stays on one core.
inline void PrendCoeurs(int& argc, char**& argv) {
  if (argc < 3 || std::string_view(argv[1]) != "--cores") return;
  ovelin::NombreCoeurs = static_cast<unsigned>(std::atoi(argv[2]));
  argc -= 2;
  argv += 2;
}

}  // namespace banc
