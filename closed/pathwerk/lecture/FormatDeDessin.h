// Whose a file is, by what it begins with. Each gets the whole file.
#pragma once

#include <string_view>

namespace pathwerk::lecture {

bool EstDat(std::string_view data);
bool EstHpgl(std::string_view data);
bool EstDxf(std::string_view data);
bool EstExcellon(std::string_view data);
bool EstEps(std::string_view data);

}  // namespace pathwerk::lecture
