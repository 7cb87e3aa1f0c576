// What the fields of the panel do with their texts.
#include <gtest/gtest.h>

#include <memory>

#include "controller/ClsCdeZENIK.h"
#include "core/DocumentCourant.h"
#include "core/Nombres.h"
#include "core/Services.h"
#include "tests/support/Support.h"
#include "toolpath/Module_Decalage.h"
#include "workspace/Module_PanneauChamps.h"

namespace {

using namespace ovelin;

void DeuxCarres() {
  essai::AjouteCarre(" A", 0, 0, 10);
  essai::AjouteCarre(" B", 20, 5, 30);
  Sequences[0].Selection = Faux;
  RecalculDecalages();
}

TEST(TexteDeplacement, HasOneDecimalUnlessTheValueHasMore) {
  EXPECT_EQ(TexteDeplacement(0), "0.0");
  EXPECT_EQ(TexteDeplacement(12), "12.0");
  EXPECT_EQ(TexteDeplacement(-0.1), "-0.1");
  EXPECT_EQ(TexteDeplacement(0.25), "0.25");
  EXPECT_EQ(TexteDeplacement(0.1 + 0.2), "0.3");
  EXPECT_EQ(TexteDeplacement(static_cast<double>(12.3F)), "12.3");
  EXPECT_EQ(TexteDeplacement(-0.00001), "0.0");
  Svc.MarqueDecimale = ',';
  EXPECT_EQ(TexteDeplacement(1.5), "1,5");
}

TEST(AjouteDeplacement, MovesAndAddsToTheText) {
  DeuxCarres();
  const ChampEntre r = AjouteDeplacement(Direction::Y, "0.0", -0.1);
  EXPECT_TRUE(r.fait);
  EXPECT_EQ(r.texte, "-0.1");
  EXPECT_NEAR(TraceInitial[5].Y, 4.9, 1e-5);
  EXPECT_EQ(TraceInitial[0].Y, 0);
  EXPECT_EQ(AjouteDeplacement(Direction::X, "", 0.1).texte, "0.1");
  EXPECT_NEAR(TraceInitial[5].X, 20.1, 1e-5);
  EXPECT_EQ(Modifie, Vrai);
}

TEST(AjouteDeplacement, AThousandStepsAddUpToAHundredMillimetres) {
  DeuxCarres();
  std::string texte = "0";
  for (int i = 0; i < 1000; ++i) texte = AjouteDeplacement(Direction::X, texte, 0.1).texte;
  EXPECT_EQ(texte, "100.0");
  EXPECT_NEAR(TraceInitial[5].X, 120, 1e-2);
}

TEST(AjouteDeplacement, RefusedMoveLeavesTheText) {
  DeuxCarres();
  TraceInitial[5].X = 1e7F;
  essai::Attend("F_Representation", "lib113");
  const ChampEntre r = AjouteDeplacement(Direction::X, "3.5", 10);
  EXPECT_FALSE(r.fait);
  EXPECT_EQ(r.texte, "3.5");
}

TEST(EntreDeplacement, MovesByTheDifference) {
  DeuxCarres();
  const ChampEntre r = EntreDeplacement(Direction::X, "2,5", "4.75");
  EXPECT_TRUE(r.fait);
  EXPECT_EQ(r.texte, "4.75");
  EXPECT_FLOAT_EQ(TraceInitial[5].X, 22.25F);
}

TEST(EntreDeplacement, DifferenceOfZeroMarksTheProject) {
  DeuxCarres();
  EXPECT_TRUE(EntreDeplacement(Direction::Y, "1", "1.0").fait);
  EXPECT_EQ(TraceInitial[5].Y, 5);
  EXPECT_EQ(Modifie, Vrai);
}

TEST(EntreDeplacement, WhatIsNoNumberMovesNothing) {
  DeuxCarres();
  for (const char* texte : {"", "-", "1-2", "abc"})
    EXPECT_FALSE(EntreDeplacement(Direction::X, "0", texte).fait) << texte;
  EXPECT_EQ(TraceInitial[5].X, 20);
  EXPECT_EQ(Modifie, Faux);
}

TEST(CB_Rotation, TurnsAboutTheCentreByTheAngleOrItsNegative) {
  DeuxCarres();
  EXPECT_TRUE(CB_Rotation(0, "90"));  // (20, 5) about (35, 20) goes to (50, 5)
  EXPECT_NEAR(TraceInitial[5].X, 50, 1e-4);
  EXPECT_NEAR(TraceInitial[5].Y, 5, 1e-4);
  EXPECT_TRUE(CB_Rotation(1, "90,0"));
  EXPECT_NEAR(TraceInitial[5].X, 20, 1e-4);
  EXPECT_EQ(Modifie, Vrai);
  EXPECT_EQ(essai::Panneaux().back(), std::make_pair(5, std::string()));
}

TEST(CB_Rotation, NeedsANumber) {
  DeuxCarres();
  EXPECT_FALSE(CB_Rotation(0, ""));
  EXPECT_EQ(Modifie, Faux);
}

TEST(CB_Miroir, ExchangesAboutTheCentreAndReverses) {
  DeuxCarres();
  EXPECT_TRUE(CB_Miroir(0));
  EXPECT_EQ(TraceInitial[5].X, 50);
  EXPECT_EQ(TraceInitial[6].X, 20);  // was the corner before the last
  EXPECT_EQ(TraceInitial[6].Y, 5);
  EXPECT_EQ(Modifie, Vrai);
}

TEST(TaillesPanneau, AreThoseOfTheTexts) {
  const ChampsDimension c = TaillesPanneau({"12,5", "7"}, true);
  EXPECT_EQ(c.axes[0].initial, 12.5);
  EXPECT_EQ(c.axes[1].initial, 7);
  EXPECT_EQ(c.axes[0].rapport, 1);
  EXPECT_EQ(c.axes[1].resultat, 7);
  EXPECT_TRUE(c.proportions);
  EXPECT_EQ(TaillesPanneau({"", "x"}, false).axes[0].initial, 0);
}

TEST(TexteResultat, IsAsShortAsItGoesToTheMicrometre) {
  EXPECT_EQ(TexteResultat(40), "40");
  EXPECT_EQ(TexteResultat(12.5), "12.5");
  EXPECT_EQ(TexteResultat(1.0 / 3), "0.333");
}

TEST(CB_OK_Dimension, ScalesByTheRatiosOfTheFields) {
  DeuxCarres();
  ChampsDimension c = TaillesPanneau({"30", "30"}, false);
  EntreRapport(c, 0, 2);
  EXPECT_TRUE(CB_OK_Dimension(c));
  EXPECT_FLOAT_EQ(TraceInitial[5].X, 5);
  EXPECT_FLOAT_EQ(TraceInitial[5].Y, 5);
  EXPECT_FLOAT_EQ(TraceInitial[7].X, 65);
}

TEST(CB_Origine, ShiftsTheMachineByTheSameAmounts) {
  DeuxCarres();
  CdeZENIK = std::make_unique<ClsCdeZENIK>();
  CdeZENIK->FixeResolutions(0.005, 0.005, 0.005);
  CdeZENIK->FixePosition(10, 20, -3);
  OrigineX = 4;
  OrigineY = -2;
  EXPECT_TRUE(CB_Origine());
  EXPECT_EQ(TraceInitial[0].X, -4);
  EXPECT_EQ(TraceInitial[0].Y, 2);
  EXPECT_NEAR(CdeZENIK->PosX, 6, 1e-9);
  EXPECT_NEAR(CdeZENIK->PosY, 22, 1e-9);
  EXPECT_NEAR(CdeZENIK->PosZ, -3, 1e-9);
  EXPECT_EQ(CdeZENIK->PasX, 1200);
  EXPECT_EQ(Modifie, Vrai);
}

TEST(CB_Origine, ShiftsByPartsOfAMillimetreWithoutABoard) {
  DeuxCarres();
  CdeZENIK = std::make_unique<ClsCdeZENIK>();
  CdeZENIK->FixePosition(10.25, 20, -3);
  OrigineX = 4.5F;
  OrigineY = -2.125F;
  EXPECT_TRUE(CB_Origine());
  EXPECT_EQ(CdeZENIK->PosX, 5.75);
  EXPECT_EQ(CdeZENIK->PosY, 22.125);
  EXPECT_EQ(CdeZENIK->PosZ, -3);
}

// A file's plan counts in steps of 1 mm; the machine's are those of its table.
TEST(CB_Origine, ReckonsWithTheTablesStepsBehindAFile) {
  DeuxCarres();
  CdeZENIK = std::make_unique<ClsCdeZENIK>();
  CdeZENIK->ChargeParametres();
  const double mmParPas = CdeZENIK->MmParPasX();
  ASSERT_NE(mmParPas, 1);
  CdeZENIK->FixePosition(100 * mmParPas, 0, 0);
  CdeZENIK->FixeResolutions(1, 1, 1);
  OrigineX = static_cast<float>(40 * mmParPas);
  OrigineY = 0;
  EXPECT_TRUE(CB_Origine());
  EXPECT_NEAR(CdeZENIK->PosX, 60 * mmParPas, 1e-6) << "the place to the step, not to the millimetre of the file";
  CdeZENIK->PoseResolutions();
  EXPECT_EQ(CdeZENIK->PasX, 60);
}

TEST(CB_OKRecalage, NeedsTwoNumbers) {
  DeuxCarres();
  EXPECT_FALSE(CB_OKRecalage("1", ""));
  EXPECT_FALSE(CB_OKRecalage("-", "1"));
  EXPECT_EQ(Modifie, Faux);
  EXPECT_TRUE(CB_OKRecalage("1,5", "2.5"));
  EXPECT_FLOAT_EQ(TraceInitial[5].X, 1.5F);
  EXPECT_FLOAT_EQ(TraceInitial[5].Y, 2.5F);
}

TEST(CB_PositionOK, PlacesThePointAndRecomputesItsPath) {
  DeuxCarres();
  const auto trajet = TraceDecale;
  EXPECT_FALSE(CB_PositionOK(6, "", "1"));
  EXPECT_FALSE(CB_PositionOK(-1, "1", "1"));
  EXPECT_FALSE(CB_PositionOK(10, "1", "1"));
  EXPECT_EQ(Modifie, Faux);
  EXPECT_TRUE(CB_PositionOK(6, "21,5", "36"));
  EXPECT_EQ(TraceInitial[6], (PointTrace{21.5F, 36, CodePD, Code2(" B")}));
  EXPECT_EQ(TraceDecale[0], trajet[0]);
  EXPECT_NE(TraceDecale[1], trajet[1]);
}

TEST(CB_PositionOK, ValueBeyondAllMeasureIsRefused) {
  DeuxCarres();
  essai::Attend("F_Representation", "lib113");
  EXPECT_FALSE(CB_PositionOK(6, "1" + std::string(60, '0'), "0"));
  EXPECT_EQ(TraceInitial[6].X, 20);
}

TEST(TexteProfondeur, HasTwoDecimals) {
  EXPECT_EQ(TexteProfondeur("-3"), "-3.00");
  EXPECT_EQ(TexteProfondeur("-0,5"), "-0.50");
  EXPECT_EQ(TexteProfondeur(""), "");
}

TEST(EntreProfondeur, TakesANegativeNumberForTheSelection) {
  DeuxCarres();
  EXPECT_TRUE(EntreProfondeur("-,5"));
  EXPECT_EQ(Sequences[1].Profondeur, -0.5);
  EXPECT_EQ(Sequences[0].Profondeur, -3);
  EXPECT_FALSE(EntreProfondeur("-"));
  essai::Attend("F_Representation", "lib361");
  EXPECT_FALSE(EntreProfondeur("0"));
  EXPECT_EQ(Sequences[1].Profondeur, -0.5);
}

}  // namespace
