#include "core/PlanCourant.h"

#include "core/Etat.h"

namespace ovelin {

EtatPlan Plan;

namespace {
[[maybe_unused]] const bool Enregistree = EnregistreRemise([] { Plan = EtatPlan{}; });
}

}  // namespace ovelin
