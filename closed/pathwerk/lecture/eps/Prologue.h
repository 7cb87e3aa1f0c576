// The PostScript that runs before a drawing and makes Ghostscript print the paths that it would paint.
#pragma once

#include <string>
#include <string_view>

namespace pathwerk::lecture::eps {

// Steps of the printed numbers to the point (1/72 inch).
inline constexpr double EpsPasParPoint = 128.0 * 16.0;

// `jeton` opens every record behind a control character, so that what the drawing prints by itself is no record;
// letters and digits. `fichier` is the drawing's name in the current folder.
std::string EpsPrologue(std::string_view jeton, std::string_view fichier);

}  // namespace pathwerk::lecture::eps
