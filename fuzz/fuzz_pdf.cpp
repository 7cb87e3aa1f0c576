// PDF, poppler's process included: after an even first byte the operators of a page, after an odd one a file as it
// is.
#include <chrono>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "closed/pathwerk/assemblage/Assemblage.h"
#include "closed/pathwerk/lecture/pdf/Pdf.h"
#include "tests/support/FichierPdf.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace pathwerk;
  if (size == 0) return 0;
  std::string texte(reinterpret_cast<const char*>(data) + 1, size - 1);
  if (data[0] % 2 == 0) texte = essai::FichierPdf({texte});
  const OptionsLecture options;
  lecture::pdf::PdfMoyens moyens;
  moyens.delai = std::chrono::seconds(5);
  lecture::Lecture lecture;
  lecture::pdf::LirePdfAvec(texte, options, moyens, lecture);
  if (lecture.Refuse()) return 0;
  std::vector<PointTrace> points;
  const std::int32_t n = assemblage::Assemble(lecture, options, points);
  if (n >= 0 && static_cast<std::size_t>(n) != points.size()) std::abort();
  for (const PointTrace& p : points) {
    if (!std::isfinite(p.X) || !std::isfinite(p.Y)) std::abort();
  }
  return 0;
}
