// The view as a value: transform, fit, zoom, pan. Figures are worked out by hand; pictures measure twips.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

#include "image/Vue.h"

namespace {

using namespace ovelin;

constexpr TailleImage Image{1360, 760};  // 1000 x 400 twips inside the margins

TEST(VersEcran, ScalesAroundTheOriginAndTurnsYDownward) {
  const EtatVue vue{4, 10, 20, 100, 50};
  const PointTrace p = VersEcran(vue, 300, {12, 23, CodePC, Code2("ZZ")});
  EXPECT_EQ(p.X, 108.0F);  // (12 - 10) x 4 + 100
  EXPECT_EQ(p.Y, 238.0F);  // 300 - ((23 - 20) x 4 + 50)
}

TEST(VersEcran, CarriesTheKindAndTheCodeAlong) {
  const PointTrace p = VersEcran(EtatVue{}, 300, {12, 23, CodePC, Code2("ZZ")});
  EXPECT_EQ(p.Cde, CodePC);
  EXPECT_EQ(p.Seq, Code2("ZZ"));
}

TEST(VersDessin, IsTheWayBack) {
  const EtatVue vue{4, 10, 20, 100, 50};
  const PointTrace p = VersDessin(vue, 300, {108, 238, CodePE, Code2(" B")});
  EXPECT_EQ(p, (PointTrace{12, 23, CodePE, Code2(" B")}));
}

TEST(VersDessin, GivesEveryPointBackWithinThe32BitsOfTheScreen) {
  std::mt19937 hasard(7);
  std::uniform_real_distribution<float> place(-500, 500);
  for (int i = 0; i < 1000; ++i) {
    const EtatVue vue{std::abs(place(hasard)) + 0.1F, place(hasard), place(hasard), place(hasard), place(hasard)};
    const PointTrace p{place(hasard), place(hasard), CodePD, {}};
    const PointTrace q = VersDessin(vue, 9000, VersEcran(vue, 9000, p));
    // Half a unit of the last place of the largest number on the way, a few times.
    const float grain = (500000.0F / vue.Zoom + 1000) * 4e-7F;
    EXPECT_NEAR(q.X, p.X, grain);
    EXPECT_NEAR(q.Y, p.Y, grain + 9000 / vue.Zoom * 4e-7F);
  }
}

TEST(VersEcran, RoundsEveryStepTo32Bits) {
  // From 2^24 on floats are two apart: 16777216 + 1 is 16777216 again, and three times that is 50331648. In wider
  // numbers 50331651 would come out, 50331652 as a float.
  const EtatVue vue{3, -1, 0, 0, 0};
  EXPECT_EQ(VersEcran(vue, 0, {16777216, 0, CodePD, {}}).X, 50331648.0F);
}

TEST(ZoomAjuste, TakesTheTighterOfTheTwoSides) {
  // 1000 / 100 = 10 by the width, 400 / 80 = 5 by the height; 5 / 1.2
  EXPECT_FLOAT_EQ(ZoomAjuste(0, 100, 0, 80, Image, 180), 5 / 1.2F);
  // 1000 / 100 = 10, 400 / 20 = 20; 10 / 1.2
  EXPECT_FLOAT_EQ(ZoomAjuste(0, 100, 0, 20, Image, 180), 10 / 1.2F);
}

TEST(ZoomAjuste, FitsAVerticalLineByItsHeightAlone) {
  EXPECT_FLOAT_EQ(ZoomAjuste(30, 30, -10, 10, Image, 180), 20 / 1.2F);
}

TEST(ZoomAjuste, FitsAHorizontalLineByItsWidthAlone) {
  EXPECT_FLOAT_EQ(ZoomAjuste(0, 50, 8, 8, Image, 180), 20 / 1.2F);
}

TEST(ZoomAjuste, IsOneForTwoCoincidentPoints) { EXPECT_EQ(ZoomAjuste(30, 30, 7, 7, Image, 180), 1.0F); }

TEST(ZoomAjuste, StaysPositiveInAPictureSmallerThanItsMargins) {
  // One pixel counts as room: 15 / 30 / 1.2
  EXPECT_FLOAT_EQ(ZoomAjuste(0, 30, 0, 30, {200, 100}, 180), 0.5F / 1.2F);
}

TEST(ZoomAjuste, IsANumberForWhateverBounds) {
  constexpr float Infini = std::numeric_limits<float>::infinity();
  constexpr float Rien = std::numeric_limits<float>::quiet_NaN();
  EXPECT_EQ(ZoomAjuste(0, 1e-38F, 0, 1e-38F, Image, 180), ZoomMax);
  EXPECT_EQ(ZoomAjuste(-1e38F, 3e38F, 0, 1, Image, 180), ZoomMin);
  EXPECT_EQ(ZoomAjuste(0, Infini, 0, 1, Image, 180), ZoomMin);
  EXPECT_TRUE(std::isfinite(ZoomAjuste(0, Rien, 0, Rien, Image, 180)));
}

TEST(ZoomeAuPoint, KeepsTheDrawingPointUnderThePointer) {
  const EtatVue avant{4, 10, 20, 680, 380};
  const EtatVue apres = ZoomeAuPoint(avant, 760, 100, 700, 2);
  EXPECT_EQ(apres.Zoom, 8.0F);
  const PointTrace a = VersDessin(avant, 760, {100, 700, CodePD, {}});
  const PointTrace b = VersDessin(apres, 760, {100, 700, CodePD, {}});
  EXPECT_FLOAT_EQ(a.X, b.X);
  EXPECT_FLOAT_EQ(a.Y, b.Y);
  EXPECT_EQ(apres.OrigineEcranX, avant.OrigineEcranX);
  EXPECT_EQ(apres.OrigineEcranY, avant.OrigineEcranY);
}

TEST(ZoomeAuPoint, AtTheMiddleChangesTheScaleAlone) {
  EtatVue vue{4, 10, 20, 680, 380};
  const EtatVue apres = ZoomeAuPoint(vue, 760, 680, 380, 0.5F);
  vue.Zoom = 2;
  EXPECT_EQ(apres, vue);
}

TEST(ZoomeAuPoint, StaysPutAtTheLimitOfTheScale) {
  EtatVue vue{ZoomMax, 10, 20, 680, 380};
  const EtatVue apres = ZoomeAuPoint(vue, 760, 0, 0, 10);
  EXPECT_EQ(apres.Zoom, ZoomMax);
  EXPECT_EQ(apres.OrigineDessinX, 10.0F);
}

TEST(DeplaceVue, TheDrawingFollowsTheMovement) {
  const EtatVue avant{4, 10, 20, 680, 380};
  const EtatVue apres = DeplaceVue(avant, 30, -45);
  EXPECT_EQ(apres.OrigineEcranX, 710.0F);
  EXPECT_EQ(apres.OrigineEcranY, 425.0F);
  const PointTrace a = VersEcran(avant, 760, {3, 3, CodePD, {}});
  const PointTrace b = VersEcran(apres, 760, {3, 3, CodePD, {}});
  EXPECT_FLOAT_EQ(b.X - a.X, 30);
  EXPECT_FLOAT_EQ(b.Y - a.Y, -45);
}

TEST(ZoomeSurRectangle, CentresTheRectangleAndTakesTheTighterSide) {
  // From (100, 100) to (300, 180) twips at 4 twips/mm: 50 x 20 mm. 1000 / 50 = 20, 400 / 20 = 20.
  const EtatVue vue{4, 0, 0, 0, 0};
  const EtatVue apres = ZoomeSurRectangle(vue, Image, 100, 100, 300, 180);
  EXPECT_EQ(apres.Zoom, 20.0F);
  EXPECT_EQ(apres.OrigineDessinX, 50.0F);   // 200 / 4
  EXPECT_EQ(apres.OrigineDessinY, 155.0F);  // (760 - 140) / 4
  // Twice as wide: 1000 / 100 = 10.
  EXPECT_EQ(ZoomeSurRectangle(vue, Image, 100, 100, 500, 180).Zoom, 10.0F);
  // Twice as high: 400 / 40 = 10.
  EXPECT_EQ(ZoomeSurRectangle(vue, Image, 100, 100, 300, 260).Zoom, 10.0F);
}

TEST(ZoomeSurRectangle, DoesNotCareWhichCornersWereTaken) {
  const EtatVue vue{4, 5, 6, 680, 380};
  const EtatVue une = ZoomeSurRectangle(vue, Image, 100, 100, 300, 180);
  EXPECT_EQ(ZoomeSurRectangle(vue, Image, 300, 180, 100, 100), une);
  EXPECT_EQ(ZoomeSurRectangle(vue, Image, 300, 100, 100, 180), une);
}

TEST(ZoomeSurRectangle, ARectangleWithoutExtentOnOneSideUsesTheOther) {
  const EtatVue vue{4, 0, 0, 0, 0};
  EXPECT_EQ(ZoomeSurRectangle(vue, Image, 100, 100, 300, 100).Zoom, 20.0F);  // 1000 / 50
  EXPECT_EQ(ZoomeSurRectangle(vue, Image, 100, 100, 100, 180).Zoom, 20.0F);  // 400 / 20
}

TEST(ZoomeSurRectangle, AClickWithoutMovementChangesNothing) {
  const EtatVue vue{4, 10, 20, 700, 100};
  EXPECT_EQ(ZoomeSurRectangle(vue, Image, 100, 100, 100, 100), vue);
}

TEST(ZoomeSurRectangle, ShowsTheRectangleInTheMiddleOfAViewThatWasPanned) {
  const EtatVue vue{4, 0, 0, 5000, -3000};
  const EtatVue apres = ZoomeSurRectangle(vue, Image, 100, 100, 300, 180);
  const PointTrace milieu = VersDessin(vue, Image.hauteur, {200, 140, CodePD, {}});
  const PointTrace ecran = VersEcran(apres, Image.hauteur, milieu);
  EXPECT_NEAR(ecran.X, 680, 0.01);
  EXPECT_NEAR(ecran.Y, 380, 0.01);
}

TEST(ZoomeSurRectangle, LeavesTheViewWhereTheDrawingHasNoFinerNumbers) {
  // At this scale two neighbouring pixels are the same 32-bit coordinate.
  const EtatVue vue{1e9F, 600, 400, 680, 380};
  EXPECT_EQ(ZoomeSurRectangle(vue, Image, 600, 380, 630, 395), vue);
}

}  // namespace
