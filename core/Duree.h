// A stretch of time for the eye.
#pragma once

#include <algorithm>

#include "core/Nombres.h"

namespace ovelin {

struct Duree {
  long heures = 0, minutes = 0, secondes = 0;
};
// To the nearest second; what has passed already is none.
inline Duree DureeDe(double secondes) {
  const long total = Arrondi32(std::max(0.0, secondes));
  return {total / 3600, total / 60 % 60, total % 60};
}

}  // namespace ovelin
