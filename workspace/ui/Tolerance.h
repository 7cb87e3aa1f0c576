// The rule of a field that holds a tolerance, for the windows that ask for one.
#pragma once

#include <optional>

#include "core/ui/Fabrique.h"

namespace ovelin {

// A tolerance as its field holds it, mm; the field shows the value that will be used. Nothing for what is no number
// or negative, which the field then tells ("lib001", "lib002" of that section).
std::optional<float> LitTolerance(ChampNombre& champ, const char* section);

}  // namespace ovelin
