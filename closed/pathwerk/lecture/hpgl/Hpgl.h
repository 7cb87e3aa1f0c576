// A plot in HP-GL or HP-GL/2, with the envelope of the printer around it.
#pragma once

#include <string_view>

#include "closed/pathwerk/lecture/Lecture.h"

namespace pathwerk::lecture::hpgl {

void LireHpgl(std::string_view data, const OptionsLecture& options, Lecture& lecture);

}  // namespace pathwerk::lecture::hpgl
