#include "core/PlanCourant.h"

#include "core/Etat.h"

namespace ovelin {

EtatPlan Plan;

namespace {
[[maybe_unused]] const bool enregistree = EnregistreRemise([] { Plan = EtatPlan{}; });
}

}  // namespace ovelin
