// EPS: the header, and the reader of what Ghostscript prints, in pieces; Ghostscript itself is not run. The first
// byte gives the size of the pieces.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "closed/pathwerk/lecture/eps/Chemins.h"
#include "closed/pathwerk/lecture/eps/Entete.h"
#include "closed/pathwerk/lecture/eps/Eps.h"
#include "fuzz/PointsLus.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace pathwerk;
  using namespace pathwerk::lecture::eps;
  using lecture::Lecture;
  const std::string_view texte(reinterpret_cast<const char*>(data), size);
  if (const auto ps = EpsPostScript(texte); ps && !ps->starts_with("%!")) std::abort();
  if (size == 0) return 0;
  const OptionsLecture options;
  Lecture entier;
  LireSortieEps(texte.substr(1), "J", options, entier);
  Lecture lecture;
  EpsChemins chemins("J", options, lecture, 900'000);
  const std::size_t pas = 1 + data[0];
  for (std::size_t p = 1; p < size; p += pas) {
    if (!chemins.Recoit(texte.substr(p, pas))) break;
  }
  if (lecture.Refuse() || entier.Refuse()) return 0;
  if (lecture.traits.size() != entier.traits.size()) std::abort();
  essai::ExigePointsLus(lecture, options);
  return 0;
}
