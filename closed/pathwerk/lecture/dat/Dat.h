// Points as lines of numbers.
#pragma once

#include <string_view>

#include "closed/pathwerk/lecture/Lecture.h"

namespace pathwerk::lecture::dat {

void LireDat(std::string_view data, const OptionsLecture& options, Lecture& lecture);

}  // namespace pathwerk::lecture::dat
