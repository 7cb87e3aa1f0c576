#include "database/GrilleBD.h"
#include "tests/support/Support.h"

namespace {

using namespace ovelin;

GrilleBD DeuxFiches() {
  return GrilleBD({{{"Alu 2.5 mm", "0.8", "Foret 1.2", "-2.5", "-2", "1.0", "2", "2", "2"}},
                   {{"CTP 3,2", "0,4", "Diamant", "-4", "-4", "2", "2", "2", "4"}}});
}

TEST(GrilleBD, HasAnEmptyRowBehindThePresets) {
  const GrilleBD g = DeuxFiches();
  ASSERT_EQ(g.Lignes(), 3U);
  for (std::size_t c = 0; c < GrilleBD::Colonnes; ++c) EXPECT_EQ(g.Cellule(2, c), "");
  EXPECT_EQ(GrilleBD().Lignes(), 1U);
  EXPECT_EQ(GrilleBD(std::vector<FicheMateriau>{}).Lignes(), 1U);
}

TEST(GrilleBD, ShowsNumbersWithACommaAndLeavesNamesAsTheyAre) {
  const GrilleBD g = DeuxFiches();
  EXPECT_EQ(g.Cellule(0, 0), "Alu 2.5 mm");
  EXPECT_EQ(g.Cellule(0, 1), "0,8");
  EXPECT_EQ(g.Cellule(0, 2), "Foret 1.2");
  EXPECT_EQ(g.Cellule(0, 3), "-2,5");
  EXPECT_EQ(g.Cellule(1, 0), "CTP 3,2");
  EXPECT_EQ(g.Cellule(1, 1), "0,4");
}

TEST(GrilleBDPose, TurnsThePointOfANumberIntoAComma) {
  GrilleBD g = DeuxFiches();
  g.Pose(0, 1, "1.25");
  EXPECT_EQ(g.Cellule(0, 1), "1,25");
  g.Pose(0, 0, "Alu 1.25");
  EXPECT_EQ(g.Cellule(0, 0), "Alu 1.25");
}

TEST(GrilleBDPose, AddsAnEmptyRowWhenTheLastOneIsFilled) {
  GrilleBD g = DeuxFiches();
  g.Pose(2, 4, "-1");
  ASSERT_EQ(g.Lignes(), 4U);
  EXPECT_TRUE(g.EstFiche(2));
  EXPECT_FALSE(g.EstFiche(3));
  EXPECT_EQ(g.Cellule(3, 4), "");
}

TEST(GrilleBDPose, AddsNothingForAnEmptyTextOrInARowOfThePresets) {
  GrilleBD g = DeuxFiches();
  g.Pose(2, 0, "");
  g.Pose(1, 0, "x");
  EXPECT_EQ(g.Lignes(), 3U);
}

TEST(GrilleBDPose, PutsABlankForALineEnd) {
  GrilleBD g = DeuxFiches();
  g.Pose(0, 0, "a\r\nb");
  EXPECT_EQ(g.Cellule(0, 0), "a  b");
}

TEST(GrilleBDPose, LetsATabThrough) {
  GrilleBD g = DeuxFiches();
  g.Pose(0, 0, "a\tb");
  EXPECT_EQ(g.Cellule(0, 0), "a\tb");
}

TEST(GrilleBDInsere, PutsAnEmptyRowBeforeAndMovesTheRestDown) {
  GrilleBD g = DeuxFiches();
  EXPECT_TRUE(g.Insere(1));
  ASSERT_EQ(g.Lignes(), 4U);
  EXPECT_EQ(g.Cellule(0, 0), "Alu 2.5 mm");
  EXPECT_EQ(g.Cellule(1, 0), "");
  EXPECT_EQ(g.Cellule(2, 0), "CTP 3,2");
}

TEST(GrilleBDSupprime, TakesTheRowAway) {
  GrilleBD g = DeuxFiches();
  EXPECT_TRUE(g.Supprime(0));
  ASSERT_EQ(g.Lignes(), 2U);
  EXPECT_EQ(g.Cellule(0, 0), "CTP 3,2");
}

TEST(GrilleBD, NeitherInsertsAtNorDeletesTheEmptyRow) {
  GrilleBD g = DeuxFiches();
  EXPECT_FALSE(g.Insere(2));
  EXPECT_FALSE(g.Supprime(2));
  EXPECT_FALSE(g.Supprime(99));
  EXPECT_EQ(g.Lignes(), 3U);
}

TEST(GrilleBDFiches, GivesAllRowsButTheEmptyOne) {
  GrilleBD g = DeuxFiches();
  g.Insere(0);
  const auto fiches = g.Fiches();
  ASSERT_EQ(fiches.size(), 3U);
  EXPECT_EQ(fiches[0], FicheMateriau{});
  EXPECT_EQ(fiches[1].champs[0], "Alu 2.5 mm");
  EXPECT_EQ(fiches[1].champs[1], "0,8");
}

TEST(GrilleBDSuivante, GoesAlongTheRowThenToTheNextAndEndsAtTheLastCell) {
  const GrilleBD g = DeuxFiches();
  using Cellule = std::pair<std::size_t, std::size_t>;
  EXPECT_EQ(g.Suivante(0, 0), Cellule(0, 1));
  EXPECT_EQ(g.Suivante(0, 8), Cellule(1, 0));
  EXPECT_EQ(g.Suivante(2, 8), Cellule(2, 8));
  EXPECT_EQ(g.Precedente(0, 1), Cellule(0, 0));
  EXPECT_EQ(g.Precedente(1, 0), Cellule(0, 8));
  EXPECT_EQ(g.Precedente(0, 0), Cellule(0, 0));
}

TEST(GrilleBDNumerique, IsEveryColumnButTheTwoNames) {
  for (std::size_t c = 0; c < GrilleBD::Colonnes; ++c) EXPECT_EQ(GrilleBD::Numerique(c), c != 0 && c != 2) << c;
}

}  // namespace
