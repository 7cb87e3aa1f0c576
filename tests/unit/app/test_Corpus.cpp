// Real drawings by other people through the whole road: each becomes a G-code file that a foreign interpreter
// takes, or is refused with its reason.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "tests/support/Rs274.h"
#include "tests/support/Support.h"
#include "tests/unit/app/Appel.h"

namespace {

namespace fs = std::filesystem;

// What can't be milled, and why.
const std::map<std::string, std::string> Refuses{
    {"pi_raster_only.eps", "lib109"},       // an image alone: nothing to follow
    {"sc_s_fabric_nesting.plt", "lib112"},  // some 30,000 separate strokes
    {"ez_bf_iso_pe.plt", "lib112"},         // more than 8,000 separate paths
};

// What of the samples is a drawing: projects and notes lie beside them.
const std::set<std::string> Extensions{".dat", ".drl", ".dxf", ".eps", ".plt", ".svg"};

std::vector<std::string> Dessins() {
  std::vector<std::string> dessins;
  const std::string corpus = essai::DossierCorpus();
  if (corpus.empty()) {
    for (const auto& e : fs::directory_iterator(essai::DossierExemples())) {
      if (Extensions.contains(e.path().extension().string())) dessins.push_back(e.path().string());
    }
  } else {
    for (const char* genre : {"DAT", "DRL", "DXF", "EPS", "HPGL"}) {
      for (const auto& e : fs::directory_iterator(corpus + "/" + genre)) dessins.push_back(e.path().string());
    }
  }
  std::sort(dessins.begin(), dessins.end());
  return dessins;
}

std::string NomDeTest(const testing::TestParamInfo<std::string>& info) {
  std::string nom = fs::path(info.param).filename().string();
  std::replace_if(
      nom.begin(), nom.end(), [](unsigned char c) { return std::isalnum(c) == 0; }, '_');
  return nom;
}

class Corpus : public testing::TestWithParam<std::string> {};

TEST_P(Corpus, BecomesAJobOrIsRefusedWithItsReason) {
  const essai::Atelier a;
  const std::string nc = a.Chemin("job.nc");
  const auto r = a.Appelle({"gcode", GetParam(), "-o", nc, "--set", "RayonFraise=0.5", "--json"});
  const auto refus = Refuses.find(fs::path(GetParam()).filename().string());
  if (refus != Refuses.end()) {
    EXPECT_EQ(r.etat, 1);
    EXPECT_EQ(r.Json()["error"]["key"], refus->second);
    EXPECT_FALSE(fs::exists(nc));
    return;
  }
  ASSERT_EQ(r.etat, 0) << r.erreurs << r.sortie;
  ASSERT_GT(r.Json()["rows"].get<long>(), 1);
  if (!essai::Rs274Present()) GTEST_SKIP() << essai::Rs274Absent;
  const essai::ResultatRs274 lu = essai::LanceRs274(nc);
  ASSERT_TRUE(lu.accepte) << lu.erreurs;
  ASSERT_FALSE(lu.mouvements.empty());
  EXPECT_NEAR(lu.mouvements.back().x, 0, 1e-3);
  EXPECT_NEAR(lu.mouvements.back().y, 0, 1e-3);
  EXPECT_NEAR(lu.mouvements.back().z, 0, 1e-3);
}

INSTANTIATE_TEST_SUITE_P(Drawings, Corpus, testing::ValuesIn(Dessins()), NomDeTest);

}  // namespace
