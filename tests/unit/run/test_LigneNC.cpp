// Numbers and lines of a G-code file.
#include <array>
#include <cmath>
#include <limits>
#include <random>

#include "run/LigneNC.h"
#include "tests/unit/run/PlanEssai.h"

namespace essai {
namespace {

std::string EnTexte(double v, int decimales) {
  std::array<char, TailleNombreNC> tampon;
  return {tampon.data(), EcritNombreNC(tampon.data(), v, decimales)};
}

// Lines of rows one after the other, each with its line end.
struct Ecriture {
  EtatNC etat;
  std::string texte;
  std::string Ligne(float vitesse, float x, float y, float z) {
    texte.clear();
    EcritLigneNC(texte, etat, vitesse, x, y, z);
    return texte;
  }
};

TEST(EcritNombreNC, WritesAllDecimalsAndAZeroBeforeThePoint) {
  EXPECT_EQ(EnTexte(12, 3), "12.000");
  EXPECT_EQ(EnTexte(0.5, 3), "0.500");
  EXPECT_EQ(EnTexte(-0.25, 3), "-0.250");
  EXPECT_EQ(EnTexte(600, 5), "600.00000");
  EXPECT_EQ(EnTexte(0, 5), "0.00000");
  EXPECT_EQ(EnTexte(1234567.875, 3), "1234567.875");
  EXPECT_EQ(EnTexte(7.6, 0), "8");
}

TEST(EcritNombreNC, RoundsHalvesAwayFromZero) {
  EXPECT_EQ(EnTexte(0.0625, 3), "0.063");
  EXPECT_EQ(EnTexte(-0.0625, 3), "-0.063");
  EXPECT_EQ(EnTexte(0.1875, 3), "0.188");
  EXPECT_EQ(EnTexte(0.0624, 3), "0.062");
  EXPECT_EQ(EnTexte(9.9996, 3), "10.000");
}

TEST(EcritNombreNC, NeverWritesANegativeZero) {
  EXPECT_EQ(EnTexte(-0.0, 3), "0.000");
  EXPECT_EQ(EnTexte(-0.0004, 3), "0.000");
  EXPECT_EQ(EnTexte(-1e-30, 5), "0.00000");
}

TEST(EcritNombreNC, HoldsTheLargest32BitValuesAndNoInfinity) {
  EXPECT_EQ(EnTexte(16777216e9, 3), "16777216000000000.000");
  EXPECT_EQ(EnTexte(4e18, 3), "4000000000000000000.000");
  EXPECT_EQ(EnTexte(-9e21, 3), "-9000000000000000000000.000");
  EXPECT_EQ(EnTexte(-static_cast<double>(std::numeric_limits<float>::max()), 5),
            "-340282346638528859811704183484516925440.00000");
  EXPECT_LE(EnTexte(-1e308, 9).size(), TailleNombreNC);
  EXPECT_EQ(EnTexte(std::numeric_limits<double>::infinity(), 3), "0.000");
  EXPECT_EQ(EnTexte(std::numeric_limits<double>::quiet_NaN(), 3), "0.000");
}

TEST(EcritNombreNC, AgreesWithTheCLibraryOn32BitValues) {
  std::mt19937 alea(7);
  std::uniform_real_distribution<float> valeurs(-5000, 5000);
  for (int i = 0; i < 20000; ++i) {
    const double v = static_cast<double>(valeurs(alea));
    const double milliemes = std::abs(v) * 1000;
    if (milliemes - std::floor(milliemes) == 0.5) continue;  // there the C library rounds to even
    std::array<char, 64> c;
    std::snprintf(c.data(), c.size(), "%.3f", v);
    ASSERT_EQ(EnTexte(v, 3), std::string(c.data()) == "-0.000" ? "0.000" : c.data());
  }
}

TEST(EcritLigneNC, WritesTheSpeedInMillimetresAMinuteOnALineOfItsOwn) {
  Ecriture e;
  EXPECT_EQ(e.Ligne(10, 12, 3.5, -1), "F600.00000\nG01  X12.000 Y3.500 Z-1.000\n");
  EXPECT_EQ(e.etat.lignes, 2);
  EXPECT_EQ(e.etat.DernierF, 10);
}

TEST(EcritLigneNC, WritesOnlyTheWordsThatChanged) {
  Ecriture e;
  e.Ligne(10, 1, 2, -1);
  EXPECT_EQ(e.Ligne(10, 1, 5, -1), "G01  Y5.000\n");
  EXPECT_EQ(e.Ligne(10, 1, 5, -2), "G01  Z-2.000\n");
  EXPECT_EQ(e.Ligne(5, 0, 5, -2), "F300.00000\nG01  X0.000\n");
  EXPECT_EQ(e.Ligne(10, 3, 4, -2), "F600.00000\nG01  X3.000 Y4.000\n");
}

TEST(EcritLigneNC, TheHeightAloneDecidesBetweenRapidAndFeed) {
  Ecriture e;
  EXPECT_EQ(e.Ligne(50, 0, 0, 5), "F3000.00000\nG00  Z5.000\n");
  EXPECT_EQ(e.Ligne(50, 9, 0, 5), "G00  X9.000\n");
  EXPECT_EQ(e.Ligne(50, 9, 0, 0), "G01  Z0.000\n");            // a rapid down to the surface
  EXPECT_EQ(e.Ligne(1, 9, 0, 2), "F60.00000\nG00  Z2.000\n");  // out of the material, slowly
}

TEST(EcritLigneNC, ARowThatChangesNothingIsABareWord) {
  Ecriture e;
  e.Ligne(10, 1, 1, -1);
  EXPECT_EQ(e.Ligne(10, 1, 1, -1), "G01 \n");
  e.Ligne(10, 1, 1, 1);
  EXPECT_EQ(e.Ligne(10, 1, 1, 1), "G00 \n");
}

TEST(EcritLigneNC, OnTheFirstLineZeroIsNotWritten) {
  Ecriture e;
  EXPECT_EQ(e.Ligne(10, 0, 7, 0), "F600.00000\nG01  Y7.000\n");
}

TEST(EcritLigneNC, ComparesAs32BitValues) {
  Ecriture e;
  e.etat.DernierX = 0.1;  // wider than a row
  e.etat.DernierF = 33.3;
  EXPECT_EQ(e.Ligne(33.3F, 0.1F, 0, 0), "G01 \n");
}

TEST(EcritLigneNC, ANegativeZeroIsNoChange) {
  Ecriture e;
  EXPECT_EQ(e.Ligne(10, -0.0F, 0, 0), "F600.00000\nG01 \n");
}

TEST(EcritLigneNC, AChangeBelowTheDecimalsIsStillAWord) {
  Ecriture e;
  e.Ligne(10, 0, 0, -1);
  EXPECT_EQ(e.Ligne(10, 0, 0, -1.0001F), "G01  Z-1.000\n");
  EXPECT_EQ(e.Ligne(10, 0, 0, -0.0001F), "G01  Z0.000\n");
}

TEST(EcritLigneNC, TheFeedIsRoundedInTheWidthOfARow) {
  Ecriture e;
  EXPECT_EQ(e.Ligne(33.3F, 0, 0, 0), "F1998.00000\nG01 \n");
  EXPECT_EQ(e.Ligne(0.7F, 0, 0, 0), "F42.00000\nG01 \n");
}

TEST(EcritLigneNC, NumbersHaveAPointWhateverTheUsersMark) {
  Svc.MarqueDecimale = ',';
  Ecriture e;
  EXPECT_EQ(e.Ligne(1.5F, 2.25F, 0, 0), "F90.00000\nG01  X2.250\n");
}

TEST(EcritLigneNC, SumsLengthAndTimeInThreeAxesFromTheOrigin) {
  Ecriture e;
  e.Ligne(2, 3, 4, 12);  // 13 mm at 2
  EXPECT_DOUBLE_EQ(e.etat.LongueurNC, 13);
  EXPECT_DOUBLE_EQ(e.etat.TempsNC, 6.5);
  e.Ligne(4, 3, 4, 2);  // 10 mm at 4
  EXPECT_DOUBLE_EQ(e.etat.LongueurNC, 23);
  EXPECT_DOUBLE_EQ(e.etat.TempsNC, 9);
}

TEST(EcritLigneNC, ASpeedOfZeroAddsLengthAndNoTime) {
  Ecriture e;
  EXPECT_EQ(e.Ligne(0, 10, 0, 0), "G01  X10.000\n");
  EXPECT_DOUBLE_EQ(e.etat.LongueurNC, 10);
  EXPECT_EQ(e.etat.TempsNC, 0);
}

TEST(EcritCommentaireNC, StandsInParenthesesInTheSetOfTheFile) {
  EtatNC etat;
  std::string texte;
  EcritCommentaireNC(texte, etat, "Généré");
  EXPECT_EQ(texte, "(G\xE9n\xE9r\xE9)\n");
  EXPECT_EQ(etat.lignes, 1);
}

TEST(EcritCommentaireNC, CanNotBecomeACommand) {
  EtatNC etat;
  std::string texte;
  EcritCommentaireNC(texte, etat, "a) G00 Z-50 (b\nG01 X9\r");
  EXPECT_EQ(texte, "(a] G00 Z-50 [b G01 X9 )\n");
}

}  // namespace
}  // namespace essai
