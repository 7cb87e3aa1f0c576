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
  EXPECT_GE(Contraste(gris, Couleur(120, 120, 120)), 2.95);
}

TEST(CouleurLisible, ReachesThreeToOneForEveryColourOnEveryGround) {
  for (int fond = 0; fond <= 255; fond += 51) {
    for (int c = 0; c < 27; ++c) {
      const std::int32_t couleur = Couleur(c % 3 * 127, c / 3 % 3 * 127, c / 9 * 127);
      EXPECT_GE(Contraste(CouleurLisible(couleur, Couleur(fond, fond, fond)), Couleur(fond, fond, fond)), 2.95);
    }
  }
}

}  // namespace
