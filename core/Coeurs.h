// How many threads a kernel may use for work in independent pieces.
#pragma once

#include <algorithm>
#include <thread>

#include "core/Etat.h"

namespace ovelin {

// Those that this process may run on.
inline unsigned CoeursDeLaMachine() { return std::max(1U, std::thread::hardware_concurrency()); }

// 1: everything is done where it is called, which is the rule until a program says what its machine has. What is
// computed is the same for any number.
inline unsigned NombreCoeurs = 1;

[[maybe_unused]] inline const bool CoeursEnregistres = EnregistreRemise([] { NombreCoeurs = 1; });

}  // namespace ovelin
