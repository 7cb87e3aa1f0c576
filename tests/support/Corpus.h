// Where the drawings lie that the tests read. Real ones by other people lie beside the checkout, in
// ../shared/corpus; where they are not there, the same tests read the project's own samples/.
//
// A header that stands on two paths alone, so that the tests of a library that knows no document have it too.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "tests/places/Lieux.h"

namespace essai {

// Folder of real drawings, one folder a format (DAT DRL DXF EPS HPGL), "" where there is none. OVELIN_CORPUS of the
// environment names another; set but empty it means that there is none. A name of no folder ends the program: a
// slip of the pen must not turn these tests into those of the samples.
inline std::string DossierCorpus() {
  const char* voulu = std::getenv("OVELIN_CORPUS");
  const std::string dossier = voulu != nullptr ? voulu : DossierSource() + "/../shared/corpus";
  if (std::filesystem::is_directory(dossier)) return dossier;
  if (voulu != nullptr && !dossier.empty()) {
    std::fprintf(stderr, "OVELIN_CORPUS: no folder %s\n", voulu);
    std::exit(2);
  }
  return "";
}
inline bool CorpusPresent() { return !DossierCorpus().empty(); }

// The project's own samples/.
inline std::string DossierExemples() { return DossierSource() + "/samples"; }

// The folder that holds the drawings of a format: of the real ones where they are there, else the samples, of all
// formats.
inline std::filesystem::path DossierDessins(const char* genre) {
  return CorpusPresent() ? std::filesystem::path(DossierCorpus()) / genre
                         : std::filesystem::path(DossierExemples());
}

// For the few tests that ask for what no sample holds:
//   if (!CorpusPresent()) GTEST_SKIP() << CorpusAbsent;
inline constexpr const char* CorpusAbsent =
    "no real drawings in ../shared/corpus, and no sample holds such a thing";

}  // namespace essai
