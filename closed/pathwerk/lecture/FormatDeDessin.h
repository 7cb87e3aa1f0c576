// Which format a file has, by its first bytes. Each procedure gets the whole file.
#pragma once

#include <string_view>

namespace pathwerk::lecture {

bool EstDat(std::string_view data);
bool EstHpgl(std::string_view data);
bool EstDxf(std::string_view data);
bool EstExcellon(std::string_view data);
bool EstEps(std::string_view data);
bool EstSvg(std::string_view data);
bool EstPdf(std::string_view data);

}  // namespace pathwerk::lecture
