// The rule of a field that holds a tolerance, for the windows that ask for one.
#pragma once

#include <optional>

#include "core/Traduction.h"
#include "core/ui/Fabrique.h"

namespace ovelin {

// A tolerance as its field holds it, mm; the field shows the value that will be used. Nothing for what is no number
// or negative, which the field then tells.
std::optional<float> LitTolerance(ChampNombre& champ, CleTexte nonNombre, CleTexte negatif);

}  // namespace ovelin
