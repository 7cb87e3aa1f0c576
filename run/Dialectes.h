// The dialects of G-code that come with the program: one row each.
#pragma once

#include <span>
#include <string_view>

#include "run/Dialecte.h"

namespace ovelin {

// The program's own first.
std::span<const Dialecte> TableDialectes();
const Dialecte& DialectePropre();
// The row of that name, in either case; nullptr for none.
const Dialecte* DialecteDeTable(std::string_view nom);

}  // namespace ovelin
