// Which reader a file is for.
#pragma once

#include <string>
#include <string_view>

namespace pathwerk::lecture {

enum class FormatDeDessin : unsigned char { Inconnu, Dxf, Hpgl, Dat, Excellon, Eps };

// By the upper-case extension; when that names no format, by what the file begins with.
FormatDeDessin DevineFormat(const std::string& extension, std::string_view data);

}  // namespace pathwerk::lecture
