// A motion record as its reader takes it apart.
#pragma once

#include <array>
#include <string>
#include <string_view>

namespace ovelin {

// The bytes of a line of the debug log ("00 44 07 ...") in the twelve groups of a record, joined with blanks:
// letter and flags one by one, ticks, edges of X, Y and Z, two empty numbers, first and last level of the ramp,
// tick of its way down. A shorter line gives the groups that it has whole.
std::string GroupesRecord(std::string_view hexa);

// mm/s along a move of these lengths (mm, of either sign) at which no axis begins faster than it can (mm/s); 0 for
// a move of nothing, and where an axis that moves may not begin at all.
double VitesseDepartDe(const std::array<double, 3>& mm, const std::array<double, 3>& departs);

}  // namespace ovelin
