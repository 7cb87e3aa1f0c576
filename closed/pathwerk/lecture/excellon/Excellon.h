// A drill file.
#pragma once

#include <string_view>

#include "closed/pathwerk/lecture/Lecture.h"

namespace pathwerk::lecture::excellon {

void LireExcellon(std::string_view data, const OptionsLecture& options, Lecture& lecture);

}  // namespace pathwerk::lecture::excellon
