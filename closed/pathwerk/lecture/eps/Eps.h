// A PostScript drawing, and the parts of its reader that tests and fuzzer take one by one.
#pragma once

#include <string_view>

#include "closed/pathwerk/lecture/Lecture.h"
#include "closed/pathwerk/lecture/eps/Processus.h"

namespace pathwerk::lecture::eps {

void LireEps(std::string_view data, const OptionsLecture& options, Lecture& lecture);

// LireEps with another program or other limits.
void LireEpsAvec(std::string_view data, const OptionsLecture& options, const EpsMoyens& moyens, Lecture& lecture);

// The output of Ghostscript as a whole, without running it.
void LireSortieEps(std::string_view sortie, std::string_view jeton, const OptionsLecture& options,
                   Lecture& lecture);

}  // namespace pathwerk::lecture::eps
