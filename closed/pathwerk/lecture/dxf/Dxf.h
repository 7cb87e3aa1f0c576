// A DXF file, text or binary.
#pragma once

#include <string_view>

#include "closed/pathwerk/lecture/Lecture.h"

namespace pathwerk::lecture::dxf {

void LireDxf(std::string_view data, const OptionsLecture& options, Lecture& lecture);

}  // namespace pathwerk::lecture::dxf
