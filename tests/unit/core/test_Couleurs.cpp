// Contrast and legible colours.
#include <gtest/gtest.h>

#include "core/Couleurs.h"

namespace {

using namespace ovelin;

TEST(Contraste, IsTwentyOneForBlackOnWhiteAndOneForAColourOnItself) {
  EXPECT_NEAR(Contraste(Couleur(0, 0, 0), Couleur(255, 255, 255)), 21, 1e-9);
  EXPECT_NEAR(Contraste(Couleur(12, 130, 77), Couleur(12, 130, 77)), 1, 1e-12);
  // Pure red has the luminance 0.2126: 1.05 / 0.2626
  EXPECT_NEAR(Contraste(Couleur(255, 0, 0), Couleur(255, 255, 255)), 3.998, 1e-3);
}

TEST(CouleurLisible, ADarkColourOnDarkIsMirroredInItsLightness) {
  // (100, 0, 0) has the lightness 50 of 255, mirrored 205: full saturation, so 255 at the most and 155 at the
  // least.
  EXPECT_EQ(CouleurLisible(Couleur(100, 0, 0), PapierDe(Theme::Sombre)), Couleur(255, 155, 155));
  EXPECT_EQ(CouleurLisible(Couleur(0, 0, 0), PapierDe(Theme::Sombre)), Couleur(255, 255, 255));
}

TEST(CouleurLisible, AGreyStaysAGrey) {
  const std::int32_t gris = CouleurLisible(Couleur(128, 128, 128), Couleur(120, 120, 120));
  EXPECT_EQ(gris, Couleur(gris & 255, gris & 255, gris & 255));
  EXPECT_GE(Contraste(gris, Couleur(120, 120, 120)), 3);
}

TEST(CouleurLisible, ReachesWhatIsAskedForEveryColourOnEveryGround) {
  for (const double contraste : {ContrasteGraphique, ContrasteTexte}) {
    for (int g = 0; g <= 255; g += 17) {
      const std::int32_t fond = Couleur(g, g, g);
      for (int c = 0; c < 125; ++c) {
        const std::int32_t couleur = Couleur(c % 5 * 63, c / 5 % 5 * 63, c / 25 * 63);
        EXPECT_GE(Contraste(CouleurLisible(couleur, fond, contraste), fond), contraste) << g << " " << c;
      }
    }
  }
}

// Pure red has 3.998 on white: enough for a line, too little for a text.
TEST(CouleurLisible, ATextIsDarkerThanALineInTheSameColour) {
  const std::int32_t rouge = Couleur(255, 0, 0);
  const std::int32_t blanc = Couleur(255, 255, 255);
  EXPECT_EQ(CouleurLisible(rouge, blanc), rouge);
  const std::int32_t ecrit = CouleurLisible(rouge, blanc, ContrasteTexte);
  EXPECT_EQ(ecrit, Couleur(ecrit & 255, 0, 0)) << "still red";
  EXPECT_GT(ecrit & 255, 220) << "and hardly another";
}

}  // namespace
