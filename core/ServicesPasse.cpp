#include "core/ServicesPasse.h"

#include "core/Etat.h"

namespace ovelin {

ServicesPasse SvcPasse;

namespace {
[[maybe_unused]] const bool Enregistree = EnregistreRemise([] { SvcPasse = ServicesPasse{}; });
}

}  // namespace ovelin
