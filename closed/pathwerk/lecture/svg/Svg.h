// A drawing in SVG, and the parts of its reader that tests and fuzzer take one by one.
#pragma once

#include <string_view>

#include "closed/pathwerk/lecture/Lecture.h"
#include "closed/pathwerk/lecture/svg/Lettres.h"

namespace pathwerk::lecture::svg {

void LireSvg(std::string_view data, const OptionsLecture& options, Lecture& lecture);

// LireSvg with other letters; without any when the procedure is empty, texts are then left out.
void LireSvgAvec(std::string_view data, const OptionsLecture& options, const TraceLettres& lettres,
                 Lecture& lecture);

}  // namespace pathwerk::lecture::svg
