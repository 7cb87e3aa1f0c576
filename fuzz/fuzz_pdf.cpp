// PDF, poppler's process included: after an even first byte the operators of a page, after an odd one a file as it
// is.
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string>

#include "closed/pathwerk/lecture/pdf/Pdf.h"
#include "fuzz/PointsLus.h"
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
  essai::ExigePointsLus(lecture, options);
  return 0;
}
