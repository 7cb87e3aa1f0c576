// The view: transform, fit, zoom, pan. Figures are worked out by hand; pictures measure twips.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

#include "core/DocumentCourant.h"
#include "core/Etat.h"
#include "tests/support/Support.h"
#include "workspace/Module_Vue.h"

namespace {

using namespace ovelin;

constexpr TailleImage Image{1360, 760};  // 1000 x 400 twips inside the margins

void Bornes(float x0, float x1, float y0, float y1) {
  Xmin = x0, Xmax = x1, Ymin = y0, Ymax = y1;
  TraceInitial = {{x0, y0, CodePD, Code2(" A")}, {x1, y1, CodePD, Code2(" A")}};
  NbPoints = 2;
}

TEST(EtatVue, StartsWithTheMarginOf180TwipsAndTheScaleOne) {
  EXPECT_EQ(MargeVue, 180.0F);
  EXPECT_EQ(Zoom, 1.0F);
  EXPECT_EQ(TwipsParPixel, 15.0F);
}

TEST(EtatVue, IsPutBackWithTheOtherGlobals) {
  Zoom = 7;
  OrigineEcranX = 3;
  RemetTout();
  EXPECT_EQ(Vue, EtatVue{});
}

TEST(ZoomAjuste, LeavesTheMarginAtTheTighterSideAndMoreAfterTheDivision) {
  Bornes(0, 100, 0, 80);
  mnu_Zoom1(Image);
  const PointTrace coin = VersEcran(Vue, Image.hauteur, {0, 80, CodePD, {}});
  // The drawing is 400 / 1.2 = 333.3 twips high and centred in 760.
  EXPECT_NEAR(coin.Y, (760 - 400 / 1.2) / 2, 0.01);
  EXPECT_GT(coin.Y, 180);
  EXPECT_GT(coin.X, 180);
}

TEST(mnu_Zoom1, FitsAndCentresTheDrawing) {
  Bornes(10, 110, -40, 40);
  EXPECT_TRUE(mnu_Zoom1(Image));
  EXPECT_FLOAT_EQ(Zoom, 5 / 1.2F);
  EXPECT_EQ(OrigineDessinX, 60.0F);
  EXPECT_EQ(OrigineDessinY, 0.0F);
  EXPECT_EQ(OrigineEcranX, 680.0F);
  EXPECT_EQ(OrigineEcranY, 380.0F);
}

TEST(mnu_Zoom1, UndoesPanAndZoom) {
  Bornes(0, 100, 0, 80);
  mnu_Zoom1(Image);
  const EtatVue ajustee = Vue;
  mnu_ZoomPlus();
  Vue = DeplaceVue(Vue, 55, -20);
  mnu_Zoom1(Image);
  EXPECT_EQ(Vue, ajustee);
}

TEST(mnu_Zoom1, FitsTheNextDrawingWhateverTheFitOfTheLast) {
  Bornes(0, 100, 0, 80);
  mnu_Zoom1(Image);
  Bornes(0, 10, 0, 8);
  mnu_Zoom1(Image);
  EXPECT_FLOAT_EQ(Zoom, 50 / 1.2F);
  mnu_Zoom1({2360, 1160});
  EXPECT_FLOAT_EQ(Zoom, 100 / 1.2F);
}

TEST(mnu_Zoom1, GivesADrawingOfTwoCoincidentPointsTheScaleOneAndTheMessageOfTheLayout) {
  Bornes(30, 30, 7, 7);
  Zoom = 12;
  essai::Attend("F_Representation", "lib005");
  EXPECT_FALSE(mnu_Zoom1(Image));
  EXPECT_EQ(Zoom, 1.0F);
  EXPECT_EQ(OrigineDessinX, 30.0F);
  EXPECT_EQ(OrigineDessinY, 7.0F);
}

TEST(mnu_ZoomPlus, EnlargesByATenth) {
  Zoom = 5;
  EXPECT_TRUE(mnu_ZoomPlus());
  EXPECT_FLOAT_EQ(Zoom, 5.5F);
}

TEST(mnu_ZoomMoins, TakesATenthAway) {
  Zoom = 5;
  EXPECT_TRUE(mnu_ZoomMoins());
  EXPECT_FLOAT_EQ(Zoom, 4.5F);
}

TEST(mnu_ZoomMoins, NeverReachesZeroHoweverOften) {
  for (int i = 0; i < 5000; ++i) mnu_ZoomMoins();
  EXPECT_EQ(Zoom, ZoomMin);
  for (int i = 0; i < 5000; ++i) mnu_ZoomPlus();
  EXPECT_EQ(Zoom, ZoomMax);
}

TEST(Combo_Zoom, DoesTheSameAsTheTwoButtonsAndNothingForTheBlank) {
  Zoom = 5;
  EXPECT_TRUE(Combo_Zoom("+"));
  EXPECT_FLOAT_EQ(Zoom, 5.5F);
  EXPECT_TRUE(Combo_Zoom("-"));
  EXPECT_FLOAT_EQ(Zoom, 4.95F);
  EXPECT_FALSE(Combo_Zoom(" "));
  EXPECT_FLOAT_EQ(Zoom, 4.95F);
}

TEST(Combo_ZoomFleche, StepsUpAndDownByTheSameFactor) {
  Zoom = 5;
  EXPECT_TRUE(Combo_ZoomFleche(PasZoom::Plus));
  EXPECT_FLOAT_EQ(Zoom, 5.5F);
  EXPECT_TRUE(Combo_ZoomFleche(PasZoom::Moins));
  EXPECT_FLOAT_EQ(Zoom, 5.0F);
}

TEST(MetEnPageVue, KeepsTheUsersZoomRelativeToTheFit) {
  Bornes(0, 100, 0, 80);
  mnu_Zoom1(Image);
  Zoom = 3 * Zoom;
  EXPECT_TRUE(MetEnPageVue({2360, 1160}));  // 2000 / 100 = 20, 800 / 80 = 10
  EXPECT_FLOAT_EQ(Zoom, 3 * 10 / 1.2F);
  EXPECT_FLOAT_EQ(Vue.DernierAjuste, 10 / 1.2F);
  EXPECT_TRUE(MetEnPageVue(Image));
  EXPECT_FLOAT_EQ(Zoom, 3 * 5 / 1.2F);
}

TEST(MetEnPageVue, PutsTheOriginOfTheScreenIntoTheNewMiddle) {
  Bornes(0, 100, 0, 80);
  mnu_Zoom1(Image);
  Vue = DeplaceVue(Vue, 300, 300);
  MetEnPageVue({800, 600});
  EXPECT_EQ(OrigineEcranX, 400.0F);
  EXPECT_EQ(OrigineEcranY, 300.0F);
}

TEST(MetEnPageVue, LeavesTheDrawingPointOfTheMiddleAlone) {
  Bornes(0, 100, 0, 80);
  OrigineDessinX = 12;
  OrigineDessinY = 34;
  MetEnPageVue(Image);
  EXPECT_EQ(OrigineDessinX, 12.0F);
  EXPECT_EQ(OrigineDessinY, 34.0F);
}

TEST(MetEnPageVue, FitsADrawingThatWasNeverFitted) {
  Bornes(0, 100, 0, 80);
  Zoom = 99;
  MetEnPageVue(Image);
  EXPECT_FLOAT_EQ(Zoom, 5 / 1.2F);
}

TEST(MetEnPageVue, WithoutADrawingMovesTheMiddleAndNothingElse) {
  Zoom = 4;
  EXPECT_FALSE(MetEnPageVue({800, 600}));
  EXPECT_EQ(OrigineEcranX, 400.0F);
  EXPECT_EQ(Zoom, 4.0F);
  EXPECT_EQ(Vue.DernierAjuste, 0.0F);
}

TEST(MetEnPageVue, TellsOfADrawingWithoutAnyExtentAndKeepsTheScale) {
  Bornes(30, 30, 7, 7);
  Zoom = 4;
  Vue.DernierAjuste = 2;
  essai::Attend("F_Representation", "lib005");
  EXPECT_FALSE(MetEnPageVue({800, 600}));
  EXPECT_EQ(Zoom, 4.0F);
  EXPECT_EQ(Vue.DernierAjuste, 2.0F);
  EXPECT_EQ(OrigineEcranY, 300.0F);
  ASSERT_EQ(essai::Boites().size(), 1U);
  EXPECT_EQ(essai::Boites()[0].icone, Icone::Critique);
}

TEST(MetEnPageVue, FitsALineWithoutAMessage) {
  Bornes(30, 30, 0, 20);
  EXPECT_TRUE(MetEnPageVue(Image));
  EXPECT_FLOAT_EQ(Zoom, 20 / 1.2F);
}

TEST(MoletteVue, CountsPartsOfAStepInProportion) {
  Zoom = 10;
  EXPECT_TRUE(MoletteVue(Image, 680, 380, 2));
  EXPECT_FLOAT_EQ(Zoom, 12.1F);
  EXPECT_TRUE(MoletteVue(Image, 680, 380, -1.5));
  EXPECT_TRUE(MoletteVue(Image, 680, 380, -0.5));
  EXPECT_NEAR(Zoom, 10, 1e-5);
  EXPECT_FALSE(MoletteVue(Image, 680, 380, 0));
  EXPECT_FALSE(MoletteVue(Image, 680, 380, std::numeric_limits<double>::quiet_NaN()));
}

}  // namespace
