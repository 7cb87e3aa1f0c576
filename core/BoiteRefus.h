// The box that tells why a file is refused.
#pragma once

#include <cstdint>

#include "core/RefusFichier.h"
#include "core/Services.h"

namespace ovelin {

// The text of the refusal in a critical box, with the file and line at fault.
BoiteMessage BoiteRefus(const RefusFichier& refus);
// The same for a number of the geometry library.
BoiteMessage BoiteErreur(std::int32_t numero);

}  // namespace ovelin
