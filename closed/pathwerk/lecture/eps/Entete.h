// What lies around the PostScript of an EPS file.
#pragma once

#include <optional>
#include <string_view>

namespace pathwerk::lecture::eps {

// The PostScript of the file: the section that a binary header names, or the file itself, without what a spooler
// puts before and behind it. Nothing when that does not begin with "%!".
std::optional<std::string_view> EpsPostScript(std::string_view data);

}  // namespace pathwerk::lecture::eps
