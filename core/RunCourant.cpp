#include "core/RunCourant.h"

#include "core/Etat.h"

namespace ovelin {

EtatRun Marche;

namespace {
[[maybe_unused]] const bool Enregistree = EnregistreRemise([] { Marche = EtatRun{}; });
}

}  // namespace ovelin
