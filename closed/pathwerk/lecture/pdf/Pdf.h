// A page of a PDF.
#pragma once

#include <string_view>

#include "closed/pathwerk/lecture/Lecture.h"
#include "closed/pathwerk/lecture/processus/Outil.h"

namespace pathwerk::lecture::pdf {

// The page that the options name, of a size in mm.
void LirePdf(std::string_view data, const OptionsLecture& options, Lecture& lecture);

struct PdfMoyens : processus::MoyensOutil {
  PdfMoyens() { programme = "pdftocairo"; }
};
// LirePdf with another program or other limits.
void LirePdfAvec(std::string_view data, const OptionsLecture& options, const PdfMoyens& moyens, Lecture& lecture);

}  // namespace pathwerk::lecture::pdf
