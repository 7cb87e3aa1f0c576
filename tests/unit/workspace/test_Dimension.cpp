#include "core/Cles.h"
#include "core/DocumentCourant.h"
#include "core/ReglagesCourants.h"
#include "tests/support/Support.h"
#include "workspace/Module_Dimension.h"

namespace {

using namespace ovelin;

// 100 x 50 mm with its corner at (10, 20), travel 600 x 400.
ChampsDimension Champs() {
  Xmin = 10;
  Xmax = 110;
  Ymin = 20;
  Ymax = 70;
  return ChampsDe({100, 50, 600, 400, 1, 1});
}

TEST(ChampsDe, BeginsWithRatiosOfOneAndTheSizeAsResult) {
  const ChampsDimension c = Champs();
  EXPECT_EQ(c.axes[0].initial, 100);
  EXPECT_EQ(c.axes[0].rapport, 1);
  EXPECT_EQ(c.axes[0].resultat, 100);
  EXPECT_EQ(c.axes[0].course, 600);
  EXPECT_EQ(c.axes[1].initial, 50);
  EXPECT_EQ(c.axes[1].resultat, 50);
  EXPECT_EQ(c.axes[1].course, 400);
  EXPECT_FALSE(c.proportions);
}

TEST(DemandeDuDocument, TakesTheBoundsAndTheTravelOfTheTableInForce) {
  Xmin = -5;
  Xmax = 7.5F;
  Ymin = 1;
  Ymax = 3;
  EcrireCleSection("table_" + TableDefaut, "TB_SAV_18", "300");
  EcrireCleSection("table_" + TableDefaut, "TB_SAV_19", "200,5");
  const DemandeDimension d = DemandeDuDocument();
  EXPECT_EQ(d.largeur, 12.5);
  EXPECT_EQ(d.hauteur, 2);
  EXPECT_EQ(d.courseX, 300);
  EXPECT_EQ(d.courseY, 200.5);
  EXPECT_EQ(d.rapportX, 1);
  EXPECT_EQ(d.rapportY, 1);
}

TEST(DemandeDuDocument, HasTheTravelOfTheFieldsWhereTheTableHasNone) {
  const DemandeDimension d = DemandeDuDocument();
  EXPECT_EQ(d.courseX, 600);
  EXPECT_EQ(d.courseY, 400);
}

TEST(EntreRapport, MultipliesTheSizeOfItsAxisAlone) {
  ChampsDimension c = Champs();
  EntreRapport(c, 1, 2.5);
  EXPECT_EQ(c.axes[1].rapport, 2.5);
  EXPECT_EQ(c.axes[1].resultat, 125);
  EXPECT_EQ(c.axes[0].rapport, 1);
  EXPECT_EQ(c.axes[0].resultat, 100);
}

TEST(EntreRapport, GivesTheOtherAxisTheSameRatioWithProportions) {
  ChampsDimension c = Champs();
  c.proportions = true;
  EntreRapport(c, 1, 3);
  EXPECT_EQ(c.axes[0].rapport, 3);
  EXPECT_EQ(c.axes[0].resultat, 300);
  EXPECT_EQ(c.axes[1].resultat, 150);
}

TEST(EntreResultat, DividesByTheSize) {
  ChampsDimension c = Champs();
  EXPECT_TRUE(EntreResultat(c, 0, 25));
  EXPECT_EQ(c.axes[0].rapport, 0.25);
  EXPECT_EQ(c.axes[0].resultat, 25);
  EXPECT_EQ(c.axes[1].rapport, 1);
}

TEST(EntreResultat, KeepsTheResultAsTypedWhateverTheDivisionGives) {
  ChampsDimension c = Champs();
  c.axes[0].initial = 437.123;
  EXPECT_TRUE(EntreResultat(c, 0, 600));
  EXPECT_EQ(c.axes[0].resultat, 600);
  EXPECT_FALSE(VerifieDimension(c));
}

TEST(EntreResultat, CarriesItsRatioToTheOtherAxisWithProportions) {
  ChampsDimension c = Champs();
  c.proportions = true;
  EXPECT_TRUE(EntreResultat(c, 1, 100));
  EXPECT_EQ(c.axes[0].rapport, 2);
  EXPECT_EQ(c.axes[0].resultat, 200);
}

TEST(EntreResultat, ChangesNothingOnAnAxisWithoutExtent) {
  ChampsDimension c = Champs();
  c.axes[1].initial = c.axes[1].resultat = 0;
  const ChampsDimension avant = c;
  EXPECT_FALSE(EntreResultat(c, 1, 10));
  EXPECT_EQ(c, avant);
}

TEST(EntreProportions, GivesTheSecondAxisTheRatioOfTheFirst) {
  ChampsDimension c = Champs();
  EntreRapport(c, 0, 2);
  EntreRapport(c, 1, 5);
  EntreProportions(c, true);
  EXPECT_TRUE(c.proportions);
  EXPECT_EQ(c.axes[0].rapport, 2);
  EXPECT_EQ(c.axes[1].rapport, 2);
  EXPECT_EQ(c.axes[1].resultat, 100);
}

TEST(EntreProportions, LeavesBothRatiosWhenItIsCleared) {
  ChampsDimension c = Champs();
  EntreRapport(c, 1, 5);
  EntreProportions(c, false);
  EXPECT_EQ(c.axes[1].rapport, 5);
}

TEST(VerifieDimension, AcceptsAResultEqualToTheTravel) {
  ChampsDimension c = Champs();
  EntreRapport(c, 0, 6);
  EntreRapport(c, 1, 8);
  EXPECT_FALSE(VerifieDimension(c));
}

TEST(VerifieDimension, AcceptsAResultThatShowsAsTheTravel) {
  ChampsDimension c = Champs();
  EntreRapport(c, 0, 6.000001);  // 600.0001 mm
  EXPECT_FALSE(VerifieDimension(c));
  EntreRapport(c, 0, 6.00001);  // 600.001 mm
  EXPECT_EQ(essai::CleDe(VerifieDimension(c).raison), "lib002");
}

TEST(VerifieDimension, RefusesAResultBeyondTheTravelWithItsAxis) {
  ChampsDimension c = Champs();
  EntreRapport(c, 1, 8.1);
  const RefusDimension refus = VerifieDimension(c);
  EXPECT_EQ(essai::CleDe(refus.raison), "lib002");
  EXPECT_EQ(refus.axe, 1U);
}

TEST(VerifieDimension, TakesAMirroredDrawingAsWideAsItIs) {
  ChampsDimension c = Champs();
  EntreRapport(c, 0, -6);
  EXPECT_FALSE(VerifieDimension(c));
  EntreRapport(c, 0, -6.1);
  EXPECT_EQ(essai::CleDe(VerifieDimension(c).raison), "lib002");
}

TEST(VerifieDimension, RefusesARatioOfZeroBeforeTheTravel) {
  ChampsDimension c = Champs();
  EntreRapport(c, 0, 100);
  EntreRapport(c, 1, 0);
  const RefusDimension refus = VerifieDimension(c);
  EXPECT_EQ(essai::CleDe(refus.raison), "lib001");
  EXPECT_EQ(refus.axe, 1U);
}

TEST(VerifieDimension, TakesARatioThatThirtyTwoBitsLoseAsZero) {
  ChampsDimension c = Champs();
  EntreRapport(c, 0, 1e-60);
  EXPECT_EQ(essai::CleDe(VerifieDimension(c).raison), "lib001");
}

TEST(VerifieDimension, RefusesPointsThatNoMachineReachesWhereTheSizeSaysNothing) {
  ChampsDimension c = Champs();
  c.axes[1].initial = 0;  // a line at Y 70
  EntreRapport(c, 1, 1e30);
  const RefusDimension refus = VerifieDimension(c);
  EXPECT_EQ(essai::CleDe(refus.raison), "lib002");
  EXPECT_EQ(refus.axe, 1U);
}

TEST(TexteTaille, ShowsUpToThreeDecimals) {
  EXPECT_EQ(TexteTaille(100), "100.0");
  EXPECT_EQ(TexteTaille(12.3456), "12.346");
  Svc.MarqueDecimale = ',';
  EXPECT_EQ(TexteTaille(12.5), "12,5");
}

TEST(TexteRapport, ShowsTheShortestTextOfTheRatio) {
  EXPECT_EQ(TexteRapport(1), "1");
  EXPECT_EQ(TexteRapport(0.1), "0.1");
  EXPECT_EQ(TexteRapport(1.0 / 3), "0.33333334");
}

}  // namespace
