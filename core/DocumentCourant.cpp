#include "core/DocumentCourant.h"

#include "core/Etat.h"

namespace ovelin {

Document Doc;

namespace {
[[maybe_unused]] const bool enregistree = EnregistreRemise([] { Doc = Document{}; });
}

}  // namespace ovelin
