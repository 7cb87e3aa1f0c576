// Real drawings by other people as jobs in every dialect, read back row by row by the interpreter of LinuxCNC and
// by a second one: each goes the way of the plan.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <string>
#include <tuple>
#include <vector>

#include "run/Dialectes.h"
#include "run/NoyauNC.h"
#include "tests/support/Rs274.h"
#include "tests/support/Support.h"
#include "tests/support/Toolpath.h"
#include "tests/support/Trajet.h"
#include "tests/unit/workspace/Route.h"

namespace essai {
namespace {

namespace fs = std::filesystem;
using namespace ovelin;

std::vector<std::string> Dessins() {
  std::vector<std::string> dessins;
  if (!CorpusPresent()) return {DossierExemples() + "/equerre.dxf", DossierExemples() + "/rosace.svg"};
  for (const char* genre : {"DAT", "DRL", "DXF", "EPS", "HPGL"}) {
    for (const auto& e : fs::directory_iterator(DossierDessins(genre))) dessins.push_back(e.path().string());
  }
  std::ranges::sort(dessins);
  return dessins;
}

using Cas = std::tuple<std::string, std::string>;  // a drawing and a dialect

class DialectesCorpus : public testing::TestWithParam<Cas> {
 protected:
  void SetUp() override {
    Reglages reglages;
    reglages.RayonFraise = 0.5;
    reglages.HautDeg = 5;
    lignes_ = Parcourt(std::get<0>(GetParam()), reglages, TableMachine{}).lignes;
    if (lignes_.empty()) return;  // refused: told by the tests of the command line
    const Dialecte* dialecte = DialecteDeTable(std::get<1>(GetParam()));
    ASSERT_NE(dialecte, nullptr);
    fichier_ = EcritFichierEssai("job.tap", ComposeNC(lignes_, CadreNC{}, *dialecte, ecriture_));
  }

  // The ends of rows lie within 0.003 mm of the way, and the way within that of the rows, but where an arc rises
  // over a chord of the plan.
  void Compare(const ResultatRs274& lu, bool avances) {
    ASSERT_TRUE(lu.accepte) << lu.erreurs;
    ASSERT_EQ(lu.erreurs, "");
    const EcartTrajet e = CompareTrajet(lu.mouvements, lignes_, avances);
    EXPECT_EQ(e.faute, "");
    EXPECT_EQ(static_cast<long>(e.arcs), ecriture_.arcs);
    EXPECT_LE(e.rangs, 0.003);
    EXPECT_LE(e.fleche, 0.02 + 0.003);
    EXPECT_LE(e.rayons, 0.003);
  }

  std::vector<Deplacement> lignes_;
  std::string fichier_;
  EcritureNC ecriture_;
};

TEST_P(DialectesCorpus, LinuxCncReadsTheWayOfThePlan) {
  if (!Rs274Present()) GTEST_SKIP() << Rs274Absent;
  if (lignes_.empty()) return;
  Compare(LanceRs274(fichier_, std::get<1>(GetParam()) != "linuxcnc"), true);  // its own row unchanged
}

TEST_P(DialectesCorpus, AnotherInterpreterReadsTheWayOfThePlan) {
  if (!ToolpathPresent()) GTEST_SKIP() << ToolpathAbsent;
  if (lignes_.empty()) return;
  Compare(LanceToolpath(fichier_), false);
}

INSTANTIATE_TEST_SUITE_P(Drawings, DialectesCorpus,
                         testing::Combine(testing::ValuesIn(Dessins()),
                                          testing::Values("grbl", "linuxcnc", "mach", "iso")),
                         [](const auto& cas) {
                           std::string nom =
                               std::get<1>(cas.param) + "_" + fs::path(std::get<0>(cas.param)).filename().string();
                           std::ranges::replace_if(
                               nom, [](unsigned char c) { return std::isalnum(c) == 0; }, '_');
                           return nom;
                         });

// Most drawings of other people become jobs: the tests above look at something.
TEST(DialectesCorpusTous, NearlyAllBecomeJobs) {
  std::size_t travaux = 0;
  const std::vector<std::string> dessins = Dessins();
  for (const std::string& dessin : dessins) {
    if (!Parcourt(dessin, Reglages{}, TableMachine{}).lignes.empty()) ++travaux;
  }
  EXPECT_GE(travaux + 4, dessins.size());
}

}  // namespace
}  // namespace essai
