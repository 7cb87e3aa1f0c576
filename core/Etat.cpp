#include "core/Etat.h"

#include <vector>

namespace ovelin {

namespace {
// Made on first use: registrations run during static initialisation, in any order.
std::vector<Remise>& Remises() {
  static std::vector<Remise> remises;
  return remises;
}
}  // namespace

bool EnregistreRemise(Remise remise) {
  Remises().push_back(remise);
  return true;
}

void RemetTout() {
  for (const Remise remise : Remises()) remise();
}

}  // namespace ovelin
