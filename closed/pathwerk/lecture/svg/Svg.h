// A drawing in SVG, and the parts of its reader that tests and fuzzer take one by one.
#pragma once

#include <cstddef>
#include <string_view>

#include "closed/pathwerk/lecture/Lecture.h"
#include "closed/pathwerk/lecture/svg/Lettres.h"

namespace pathwerk::lecture::svg {

void LireSvg(std::string_view data, const OptionsLecture& options, Lecture& lecture);

// What the threads draw at a time: more would be held beside the paths, less would be done before they have begun.
inline constexpr std::size_t OctetsParPartage = std::size_t{1} << 20;
// LireSvg with other letters; without any when the procedure is empty, texts are then left out. Where there are
// threads, shapes are shared out among them, of about that many bytes at a time, which changes nothing of the
// result; 0: they are not.
void LireSvgAvec(std::string_view data, const OptionsLecture& options, const TraceLettres& lettres,
                 Lecture& lecture, std::size_t octetsParPartage = OctetsParPartage);

}  // namespace pathwerk::lecture::svg
