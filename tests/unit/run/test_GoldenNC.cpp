// Whole files of hand-made documents: against files that were looked over, and against an interpreter of others.
#include <algorithm>
#include <random>

#include "core/DocumentCourant.h"
#include "core/Fichiers.h"
#include "core/ReglagesCourants.h"
#include "run/Module_GCode.h"
#include "tests/support/Golden.h"
#include "tests/support/Rs274.h"
#include "tests/unit/run/PlanEssai.h"

namespace essai {
namespace {

// The documents behind tests/golden/*.nc, by name.
void FaitDocument(const std::string& nom) {
  Doc = Document{};
  ReglagesPlan();
  InstalleTextesGolden();
  CdeZENIK->FixePosition(0, 0, 0);
  DecalageOutil = 1;
  RayonFraise = 1.5;
  ProfFraisage = -3;
  Svc.MarqueDecimale = '.';
  if (nom == "carre-encoche") {
    MiniEncoche = 1;
    AjouteTrajet(" A", -3, {{0, 0}, {0, 4, "PE"}, {0, 5, "PC"}, {0, 6, "PD"}, {0, 10}, {10, 10}, {10, 0}, {0, 0}});
  } else if (nom == "ligne-ouverte") {
    ProfFraisage = -2.5;
    Svc.MarqueDecimale = ',';
    AjouteTrajet(" A", -2.5, {{3, 4}, {9, 4}, {9, 12}});
  } else if (nom == "trou") {
    ProfFraisage = -5;
    DecalageOutil = 2;
    AjouteTrajet(" A", -5, {{3, 4}, {3, 4}});
  } else if (nom == "deux-profondeurs") {
    AjouteTrajet(" A", -1, {{3, 4}, {3, 14}, {13, 14}, {3, 4}});
    AjouteTrajet(" B", 0, {{6, 8}, {6, 10}, {6, 8}});
  } else if (nom == "couteau") {
    // two cuts of a drag knife, lengthened: the blade turns in the margin, is up on its way to the contour, and
    // passes the seam by a millimetre
    ProfFraisage = -0.5;
    AjouteTrajet(" A", -0.5, {{10, -1}, {10, 0, "PU"}, {10, 10}, {10, 20}, {20, 20}, {20, 10}, {10, 10}, {10, 11}});
    AjouteTrajet(" B", -0.5, {{30, -1}, {31, -1, "PU"}, {30, 10}, {40, 10}, {35, 20}, {30, 10}, {31, 10}});
  } else if (nom == "couteau-simple") {
    ProfFraisage = -0.5;
    AjouteTrajet(" A", -0.5, {{10, 10}, {10, 20}, {20, 20}, {20, 10}, {10, 10}});
    AjouteTrajet(" B", -0.5, {{30, 10}, {40, 10}, {35, 20}, {30, 10}});
  } else if (nom == "rampe") {
    // ramps of 19.08 mm a pass: once along a square with a bridge, round and round on a triangle, along the first
    // ring of a piece that is not closed; then a line and a hole, straight down
    AngleRampe = 3;
    ProfPasse = -1;
    MiniEncoche = 1;
    AjouteTrajet(
        " A", -3,
        {{10, 10}, {10, 24, "PE"}, {10, 26, "PC"}, {10, 28, "PD"}, {10, 50}, {50, 50}, {50, 10}, {10, 10}});
    AjouteTrajet(" B", -1.5, {{60, 10}, {63, 14}, {66, 10}, {60, 10}});
    AjouteTrajet(" C", -1.5, {{80, 10}, {80, 20}, {90, 20}, {90, 10}, {80, 10}, {75, 10}});
    AjouteTrajet(" D", -1.5, {{60, 30}, {70, 30}});
    AjouteTrajet(" E", -1.5, {{80, 30}, {80, 30}});
  } else {
    FAIL() << "no document " << nom;
  }
}

class GoldenNC : public testing::TestWithParam<const char*> {};

TEST_P(GoldenNC, AgreesWithTheFileThatWasLookedOver) {
  FaitDocument(GetParam());
  const std::string fichier = Dossier() + "/" + GetParam() + ".nc";
  EcritureNC r;
  ASSERT_TRUE(EcritGCode(fichier, r));
  EXPECT_EQ(CompareGolden(GetParam(), fichier), "");
}

TEST_P(GoldenNC, IsReadByAnInterpreterOfOthersMoveByMove) {
  if (!Rs274Present()) GTEST_SKIP() << Rs274Absent;
  FaitDocument(GetParam());
  const std::string fichier = Dossier() + "/essai.nc";
  EcritureNC r;
  ASSERT_TRUE(EcritGCode(fichier, r));
  EXPECT_EQ(CompareTableDecoupe(LanceRs274(fichier)), "");
}

INSTANTIATE_TEST_SUITE_P(Documents, GoldenNC,
                         testing::Values("carre-encoche", "ligne-ouverte", "trou", "deux-profondeurs", "couteau",
                                         "couteau-simple", "rampe"),
                         [](const auto& document) {
                           std::string nom = document.param;
                           std::replace(nom.begin(), nom.end(), '-', '_');
                           return nom;
                         });

TEST(Rs274, ReadsAJobOfManyPathsMoveByMove) {
  if (!Rs274Present()) GTEST_SKIP() << Rs274Absent;
  ReglagesPlan();
  ProfPasse = -0.7;
  MiniEncoche = 0.8;
  std::mt19937 alea(11);
  std::uniform_real_distribution<float> place(-300, 300);
  for (int i = 0; i < 60; ++i) {
    std::vector<PointEssai> points{{place(alea), place(alea)}};
    for (int k = 0; k < i % 9; ++k) points.push_back({place(alea), place(alea), k % 4 == 1 ? "PE" : "PD"});
    if (i % 2 == 0) points.push_back(points.front());
    AjouteTrajet(std::string(1, static_cast<char>('A' + i % 26)) + static_cast<char>('A' + i / 26), -0.037 * i,
                 points);
  }
  CdeZENIK->FixeResolutions(1, 1, 1);
  CdeZENIK->FixePosition(12, -7, 3);
  const std::string fichier = Dossier() + "/essai.nc";
  EcritureNC r;
  ASSERT_TRUE(EcritGCode(fichier, r));
  ASSERT_GT(r.deplacements, 1000);
  EXPECT_EQ(CompareTableDecoupe(LanceRs274(fichier)), "");
}

TEST(Rs274, TheJudgeRefusesAndTellsDifferences) {
  if (!Rs274Present()) GTEST_SKIP() << Rs274Absent;
  const ResultatRs274 faux = LanceRs274(EcritFichierEssai("faux.nc", "G71\nF60\nG05 X1\nM02\n"));
  EXPECT_FALSE(faux.accepte);
  EXPECT_NE(faux.erreurs, "");
  EXPECT_NE(CompareTableDecoupe(faux), "");

  FaitDocument("trou");
  const std::string fichier = Dossier() + "/essai.nc";
  EcritureNC r;
  ASSERT_TRUE(EcritGCode(fichier, r));
  const std::string texte = LitFichierEssai(fichier);
  const auto change = [&](const std::string& de, const std::string& en) {
    std::string autre = texte;
    autre.replace(autre.find(de), de.size(), en);
    return CompareTableDecoupe(LanceRs274(EcritFichierEssai("autre.nc", autre)));
  };
  EXPECT_THAT(change("Z-4.000", "Z-4.001"), testing::StartsWith("row"));
  EXPECT_THAT(change("F60.00000", "F61.00000"), testing::StartsWith("row"));
  EXPECT_THAT(change("G00  X3", "G01  X3"), testing::StartsWith("row"));
  EXPECT_THAT(change("G01  Z-4.000\n", ""), testing::HasSubstr("moves for"));
  EXPECT_EQ(change("G71", "G71"), "");
}

TEST(CompareNC, ComparesNumbersByValueAndCommentsByText) {
  EXPECT_EQ(CompareNC("(a)\nG01  X1.000\nF600.00000\n", "(a)\nG01 X1.001\nF600.0001\n"), "");
  EXPECT_NE(CompareNC("(a)\n", "(b)\n"), "");
  EXPECT_NE(CompareNC("G01  X1.000\n", "G01  X1.002\n"), "");
  EXPECT_NE(CompareNC("G01  X1.000\n", "G00  X1.000\n"), "");
  EXPECT_NE(CompareNC("G01  X1.000\n", "G01  Y1.000\n"), "");
  EXPECT_NE(CompareNC("G01  X1.000\n", "G01  X1.000 Y0.000\n"), "");
  EXPECT_NE(CompareNC("G01 \nM02\n", "G01 \n"), "");
  EXPECT_NE(CompareNC("F600.00000\n", "F601.00000\n"), "");
}

}  // namespace
}  // namespace essai
