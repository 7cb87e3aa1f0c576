// The global structs (document, settings, machine table, run, board ...) register how they are made new again, so
// that a test, or a fresh start, puts everything back with one call.
#pragma once

namespace ovelin {

using Remise = void (*)();

// Returns true, so that it can initialise a constant beside the global it resets:
//   const bool Enregistree = EnregistreRemise([] { Doc = Document{}; });
bool EnregistreRemise(Remise remise);

// Every registered global as after the start of the program. Services are reset too (see Services.h).
void RemetTout();

}  // namespace ovelin
