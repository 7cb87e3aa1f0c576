// Which table of a full board makes room: what the three buttons of F_ChangtTable say and do.
#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace ovelin {

// The fourth table of the board isn't offered.
inline constexpr std::uint8_t TablesOffertes = 3;

// The names of the three, as the board has them.
std::array<std::string, TablesOffertes> LegendesTables();
// The table in force goes into slot 0, 1 or 2, as often as that is pressed. The button's caption from then on.
std::string RemplaceTable(std::uint8_t table);

}  // namespace ovelin
