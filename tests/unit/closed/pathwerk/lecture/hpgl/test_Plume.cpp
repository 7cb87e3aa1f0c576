// Pen, moves, pens by number, pages.
#include "tests/unit/closed/pathwerk/lecture/hpgl/Mesures.h"

namespace pathwerk::lecture::hpgl {
namespace {

using namespace mesures;

TEST(LireHpgl, FortyUnitsAreAMillimetre) {
  const auto t = Traits("IN;SP1;PU0,0;PD4000,2000;PU;");
  ASSERT_EQ(t.size(), 1U);
  EXPECT_EQ(t[0].nature, Nature::Ouvert);
  EXPECT_DOUBLE_EQ(t[0].points[1].x, 100.0);
  EXPECT_DOUBLE_EQ(t[0].points[1].y, 50.0);
}

TEST(LireHpgl, ReportsItsFormatAndLetsEndsBeWelded) {
  const Lecture l = Lit("PU0,0;PD40,0;");
  EXPECT_EQ(l.rapport.Format, "HPGL");
  EXPECT_TRUE(l.souder);
  EXPECT_FALSE(l.ordreImpose);
}

TEST(LireHpgl, PenDownMovesOfSeveralInstructionsAreOneLine) {
  const auto t = Traits("PU0,0;PD10,0,10,10;PD0,10;PA-5,10;PU;");
  ASSERT_EQ(t.size(), 1U);
  AttendUnites(t[0], {{0, 0}, {10, 0}, {10, 10}, {0, 10}, {-5, 10}});
}

TEST(LireHpgl, PenUpMovesDrawNothing) { EXPECT_TRUE(Traits("IN;SP1;PU10,10,20,20;PA50,50;PR5,5;PU;").empty()); }

TEST(LireHpgl, ALineThatReturnsToItsStartIsAContourWithoutItsClosingPoint) {
  const auto t = Traits("PU0,0;PD100,0,100,100,0,0;PU;");
  ASSERT_EQ(t.size(), 1U);
  EXPECT_EQ(t[0].nature, Nature::Ferme);
  AttendUnites(t[0], {{0, 0}, {100, 0}, {100, 100}});
}

TEST(LireHpgl, OutAndBackOnTheSameLineIsNoContour) {
  const auto t = Traits("PU0,0;PD100,0,0,0;PU;");
  ASSERT_EQ(t.size(), 1U);
  EXPECT_EQ(t[0].nature, Nature::Ouvert);
  EXPECT_EQ(t[0].points.size(), 3U);
}

TEST(LireHpgl, OneSegmentAnInstructionPairStaysLoose) {
  const auto t = Traits("PU0,0;PD40,0;PU40,0;PD40,40;PU;");
  ASSERT_EQ(t.size(), 2U);
  AttendUnites(t[0], {{0, 0}, {40, 0}});
  AttendUnites(t[1], {{40, 0}, {40, 40}});
}

TEST(LireHpgl, RelativeMovesCountFromThePenAndLastUntilPA) {
  const auto t = Traits("PU100,100;PR;PD10,0,0,10;PR-10,0;PA;PD5,5;PU;");
  ASSERT_EQ(t.size(), 1U);
  AttendUnites(t[0], {{100, 100}, {110, 100}, {110, 110}, {100, 110}, {5, 5}});
}

TEST(LireHpgl, NegativeAndFractionalNumbersWithoutSeparators) {
  const auto t = Traits("PU0,0PD-10.5-20.25+3 4e1PU");
  ASSERT_EQ(t.size(), 1U);
  AttendUnites(t[0], {{0, 0}, {-10.5, -20.25}, {3, 40}});
}

TEST(LireHpgl, LowerCaseNulsAndBlanksInsideNamesAreRead) {
  const std::string texte("in\0;\0p u 0,0;p\0d\r\n40 , 0\0;\npu;", 29);
  const auto t = Traits(texte);
  ASSERT_EQ(t.size(), 1U);
  AttendUnites(t[0], {{0, 0}, {40, 0}});
}

TEST(LireHpgl, ASingleNumberBehindThePairsIsNothing) {
  const auto t = Traits("PU0,0;PD10,10,20;PU;");
  ASSERT_EQ(t.size(), 1U);
  EXPECT_EQ(t[0].points.size(), 2U);
}

TEST(LireHpgl, RepeatedPlacesAreOnePoint) {
  const auto t = Traits("PU0,0;PD10,0,10,0,20,0;PU;");
  ASSERT_EQ(t.size(), 1U);
  EXPECT_EQ(t[0].points.size(), 3U);
}

TEST(LireHpgl, APenThatGoesDownAndUpInPlaceDrillsAHole) {
  const auto t = Traits("PU400,800;PD;PU;PU40,40;PD40,40;PU0,0;");
  ASSERT_EQ(t.size(), 2U);
  for (const Trait& trou : t) EXPECT_EQ(trou.nature, Nature::Percage);
  AttendUnites(t[0], {{400, 800}});
  AttendUnites(t[1], {{40, 40}});
}

TEST(LireHpgl, ALoweredPenUnderAFigureOrALabelIsNoHole) {
  EXPECT_EQ(Traits("PU400,400;PD;CI200;PU;").size(), 1U);
  EXPECT_TRUE(Traits("PU400,400;PD;LBtext\003;PU;").empty());
  EXPECT_EQ(Traits("PU400,400;PD;EA800,800;PU;").size(), 1U);
}

TEST(LireHpgl, AHoleIsDrilledAtThePenChangeAndAtTheEndOfThePageToo) {
  EXPECT_EQ(Traits("PU9,9;PD;SP2;").size(), 1U);
  EXPECT_EQ(Traits("PU9,9;PD;PG;").size(), 1U);
}

TEST(LireHpgl, APlotThatStopsWithThePenJustLoweredIsCutOffAndDrillsNoHole) {
  for (const char* const fin : {"PD;", "PD", "PD800", "PD800,"}) {
    const Lecture l = Lit(std::string("IN;SP1;PU0,0;PD40,0;PU400,400;") + fin);
    EXPECT_TRUE(l.rapport.Tronque) << fin;
    EXPECT_EQ(l.traits.size(), 1U) << fin;
  }
}

TEST(LireHpgl, APlotThatStopsBehindANumberOrWithThePenOnItsLineIsCutOff) {
  for (const char* const fin : {"PU0,8", "PA700,70", "PD400,0;PD400,4", "PD400,0;", "PR;PD5,5;", "P", "AA0,0,9"}) {
    EXPECT_TRUE(Lit(std::string("IN;SP1;PU0,0;PD40,0;PU;") + fin).rapport.Tronque) << fin;
  }
}

TEST(LireHpgl, AWholePlotIsNotCutOffHoweverItEnds) {
  for (const char* const fin :
       {"PU;", "PU", "PU0,0", "PU0,0;SP0", "PU;SP;", "PU80,80\n", "PU 0 0 ", "SP0;", "PG;", "PU;IN;", "PU;PA0,0"}) {
    EXPECT_FALSE(Lit(std::string("IN;SP1;PU0,0;PD40,0;") + fin).rapport.Tronque) << fin;
  }
}

TEST(LireHpgl, AllPensAreDrawn) { EXPECT_EQ(Traits("SP1;PU0,0;PD9,0;PU;SP5;PU0,9;PD9,9;PU;").size(), 2U); }

TEST(LireHpgl, WhatIsDrawnAfterThePenIsPutAwayIsLeftOutAndCounted) {
  const Lecture l = Lit("SP1;PU0,0;PD40,0;PU;SP0;PU80,80;PD90,90;PU;SP1;PU0,5;PD9,5;PU;");
  ASSERT_EQ(l.traits.size(), 2U);
  AttendUnites(l.traits[0], {{0, 0}, {40, 0}});
  AttendUnites(l.traits[1], {{0, 5}, {9, 5}});
  EXPECT_EQ(Ignores(l, "SP0"), 1);
}

TEST(LireHpgl, APlotThatNeverTakesAPenIsKept) {
  const Lecture l = Lit("IN;SP0;PU0,0;PD40,0;PU;");
  EXPECT_EQ(l.traits.size(), 1U);
  EXPECT_EQ(Ignores(l, "SP0"), 0);
}

TEST(LireHpgl, PenZeroWithAColourOfItsOwnDraws) {
  const Lecture l = Lit("SP1;PU0,0;PD40,0;PU;PC0,255,0,0;SP0;PU80,80;PD90,90;PU;");
  EXPECT_EQ(l.traits.size(), 2U);
}

TEST(LireHpgl, OnlyTheFirstSheetIsRead) {
  const Lecture l = Lit("PU0,0;PD40,0;PU;PG;PU0,0;PD0,40;PU;PG;PG;PU0,0;PD9,9;PU;PG;");
  ASSERT_EQ(l.traits.size(), 1U);
  AttendUnites(l.traits[0], {{0, 0}, {40, 0}});
  EXPECT_EQ(Ignores(l, "PG"), 2);
}

TEST(LireHpgl, SheetsThatAreStillEmptyDoNotCount) {
  const Lecture l = Lit("PG;AF;PU0,0;PD40,0;PU;PG;");
  EXPECT_EQ(l.traits.size(), 1U);
  EXPECT_EQ(Ignores(l, "PG"), 0);
}

TEST(LireHpgl, InitialiseRaisesThePenAndGoesHome) {
  const auto t = Traits("PU0,0;PD50,50;IN;PD0,80;PU;");
  ASSERT_EQ(t.size(), 2U);
  AttendUnites(t[1], {{0, 0}, {0, 80}});
}

TEST(LireHpgl, DefaultsEndRelativeMovesAndScale) {
  const auto t = Traits("PU50,50;PR;SC0,1,0,1;DF;PD70,70;PU;");
  ASSERT_EQ(t.size(), 1U);
  AttendUnites(t[0], {{50, 50}, {70, 70}});
}

TEST(LireHpgl, AttributesOfPensAndLettersAreNotCounted) {
  const Lecture l = Lit("IN;LT2,4;PW0.3;FT3,80,45;SI0.2,0.3;DI0,1;VS30;FS2;PT0.3;TR0;LA1,4;PU0,0;PD9,9;PU;");
  EXPECT_TRUE(l.rapport.Ignores.empty());
}

TEST(LireHpgl, SymbolsTicksAndUnknownInstructionsAreCountedByName) {
  const Lecture l = Lit("IN;SM*;PU0,0;PD40,0;PU;SM;XT;XT;YT;UC4,7,99;QZ1,2;SP1;PU;");
  EXPECT_EQ(l.traits.size(), 1U);
  EXPECT_EQ(Ignores(l, "SM"), 1);
  EXPECT_EQ(Ignores(l, "XT"), 2);
  EXPECT_EQ(Ignores(l, "YT"), 1);
  EXPECT_EQ(Ignores(l, "UC"), 1);
  EXPECT_EQ(Ignores(l, "QZ"), 1);
}

TEST(LireHpgl, ProgressIsToldOnceForThousandsOfInstructions) {
  std::string texte = "IN;";
  for (int i = 0; i < 5000; ++i) texte += "PD" + std::to_string(i) + ",9;";
  std::vector<double> parts;
  OptionsLecture options;
  options.Avancement = [&](double p) { parts.push_back(p); };
  Lecture l;
  LireHpgl(texte + "PU;", options, l);
  ASSERT_EQ(parts.size(), 2U);  // at the first one and behind 4096
  EXPECT_LT(parts[0], 0.01);
  EXPECT_NEAR(parts[1], 4096.0 / 5000, 0.02);
}

TEST(LireHpgl, ProgressGrowsToTheEnd) {
  std::string texte = "IN;";
  for (int i = 0; i < 20000; ++i) texte += "PU0,0;PD9,9;";
  std::vector<double> parts;
  OptionsLecture options;
  options.Avancement = [&](double p) { parts.push_back(p); };
  Lecture l;
  LireHpgl(texte, options, l);
  ASSERT_GT(parts.size(), 5U);
  EXPECT_TRUE(std::is_sorted(parts.begin(), parts.end()));
  EXPECT_LE(parts.back(), 1.0);
  EXPECT_GT(parts.back(), 0.8);
}

// The pen of each path, as the layer that it lies on.
std::vector<std::string> Plumes(const std::string& texte) {
  const Lecture l = Lit(texte);
  std::vector<std::string> plumes;
  for (const Trait& t : l.traits) {
    const Calque& calque = l.calques.Tous().at(t.calque);
    EXPECT_EQ(calque.Sorte, Calque::Genre::Plume);
    EXPECT_FALSE(calque.Couleur.has_value());
    plumes.push_back(calque.Nom);
  }
  return plumes;
}

TEST(LireHpgl, APathLiesOnTheLayerOfItsPen) {
  EXPECT_EQ(Plumes("IN;SP1;PU0,0;PD10,0;PU;SP3;PU0,9;PD10,9;PU;CI40;SP1;PU0,20;PD10,20;PU;"),
            (std::vector<std::string>{"1", "3", "3", "1"}));
  EXPECT_EQ(Plumes("PU0,0;PD10,0;PU;"), (std::vector<std::string>{"1"})) << "before the first pen is chosen";
}

// The stroke that a change of the pen ends was drawn by the one before it.
TEST(LireHpgl, AChangeOfThePenWhileItIsDownEndsTheStroke) {
  EXPECT_EQ(Plumes("SP1;PU0,0;PD10,0;SP2;PA20,0;PU;"), (std::vector<std::string>{"1", "2"}));
}

TEST(LireHpgl, APenOfAnyNumberIsNamed) {
  EXPECT_EQ(Plumes("SP256;PU0,0;PD10,0;PU;SP-3;PU0,9;PD10,9;PU;"), (std::vector<std::string>{"256", "-3"}));
}

}  // namespace
}  // namespace pathwerk::lecture::hpgl
