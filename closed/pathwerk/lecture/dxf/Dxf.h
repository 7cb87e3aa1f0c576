// A DXF file, text or binary.
#pragma once

#include <cstddef>
#include <string_view>

#include "closed/pathwerk/lecture/Lecture.h"

namespace pathwerk::lecture::dxf {

void LireDxf(std::string_view data, const OptionsLecture& options, Lecture& lecture);
// The same with sections of entities cut into stretches of about that many bytes, which changes nothing of the
// result. 0: none is cut.
void LireDxf(std::string_view data, const OptionsLecture& options, Lecture& lecture, std::size_t octetsParTranche);

}  // namespace pathwerk::lecture::dxf
