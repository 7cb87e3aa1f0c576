#include "core/DocumentCourant.h"

#include "core/Etat.h"

namespace ovelin {

Document Doc;

namespace {
[[maybe_unused]] const bool Enregistree = EnregistreRemise([] { Doc = Document{}; });
}

}  // namespace ovelin
