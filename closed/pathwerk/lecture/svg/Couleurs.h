// Colours as style sheets write them.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace pathwerk::lecture::svg {

// "#f00", "#ff0000", "rgb(255, 0, 0)", "rgb(100%, 0%, 0%)", "red": 0xRRGGBB. How far it can be seen through says
// nothing here. Nothing for what has no colour of its own (none, a pattern, that of the text) or can't be read.
std::optional<std::uint32_t> LitCouleur(std::string_view texte);

}  // namespace pathwerk::lecture::svg
