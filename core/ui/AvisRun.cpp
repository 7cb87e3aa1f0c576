#include "core/ui/AvisRun.h"

#include <utility>

namespace ovelin {

AvisRun& AvisRun::Unique() {
  static AvisRun Avis;
  return Avis;
}

void AvisRun::Note(bool enCours) {
  if (std::exchange(enCours_, enCours) != enCours) Q_EMIT Change(enCours);
}

}  // namespace ovelin
