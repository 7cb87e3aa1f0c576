// Scaling points, user scale, rotation, window.
#include <array>
#include <utility>

#include "closed/pathwerk/lecture/hpgl/Fenetre.h"
#include "tests/unit/closed/pathwerk/lecture/hpgl/Mesures.h"

namespace pathwerk::lecture::hpgl {
namespace {

using namespace mesures;

TEST(LireHpgl, OneScalingPointTakesTheOtherAlong) {
  const auto t = Traits("IP100,200,1100,1200;IP500,0;SC0,10,0,10;PU0,0;PD10,10;PU;");
  ASSERT_EQ(t.size(), 1U);
  AttendUnites(t[0], {{500, 0}, {1500, 1000}});
}

TEST(LireHpgl, UserUnitsFillTheRectangleOfTheScalingPoints) {
  // 10 x 20 user units over 1000 x 1000 plotter units from (1000, 2000).
  const auto t = Traits("IP1000,2000,2000,3000;SC0,10,0,20;PU0,0;PD10,20,5,10;PU;");
  ASSERT_EQ(t.size(), 1U);
  AttendUnites(t[0], {{1000, 2000}, {2000, 3000}, {1500, 2500}});
}

TEST(LireHpgl, UserUnitsMayRunDownwardsAndStartAnywhere) {
  const auto t = Traits("IP0,0,1000,1000;SC-10,10,10,-10;PU0,0;PD10,10,-10,-10;PU;");
  ASSERT_EQ(t.size(), 1U);
  AttendUnites(t[0], {{500, 500}, {1000, 0}, {0, 1000}});
}

TEST(LireHpgl, RelativeMovesAreInUserUnits) {
  const auto t = Traits("IP1000,1000,2000,2000;SC0,10,0,10;PU1,1;PR;PD2,0,0,3;PU;");
  ASSERT_EQ(t.size(), 1U);
  AttendUnites(t[0], {{1100, 1100}, {1300, 1100}, {1300, 1400}});
}

TEST(LireHpgl, IsotropicScaleTakesTheSmallerFactorAndCentres) {
  // 10 x 10 units in 2000 x 1000: 100 to the unit, 1000 left over, half of it on the left.
  const auto t = Traits("IP0,0,2000,1000;SC0,10,0,10,1;PU0,0;PD10,10;PU;");
  ASSERT_EQ(t.size(), 1U);
  AttendUnites(t[0], {{500, 0}, {1500, 1000}});
}

TEST(LireHpgl, IsotropicScaleSharesTheRestByItsPercentages) {
  const auto gauche = Traits("IP0,0,2000,1000;SC0,10,0,10,1,0,0;PU0,0;PD10,10;PU;");
  AttendUnites(gauche[0], {{0, 0}, {1000, 1000}});
  const auto haut = Traits("IP0,0,1000,2000;SC0,10,0,10,1,50,75;PU0,0;PD10,10;PU;");
  AttendUnites(haut[0], {{0, 750}, {1000, 1750}});
}

TEST(LireHpgl, PointFactorScaleCountsPlotterUnitsAUserUnit) {
  // xmin 1, 40 units each; ymin 2, 20 units each; P1 is the place of (1, 2).
  const auto t = Traits("IP100,200,9000,9000;SC1,40,2,20,2;PU1,2;PD3,4;PU;");
  ASSERT_EQ(t.size(), 1U);
  AttendUnites(t[0], {{100, 200}, {180, 240}});
}

TEST(LireHpgl, TheScaleFollowsTheScalingPoints) {
  const auto t = Traits("SC0,10,0,10;IP0,0,1000,1000;PU0,0;PD10,0;PU;IP0,0,2000,2000;PU0,0;PD10,0;PU;");
  ASSERT_EQ(t.size(), 2U);
  EXPECT_DOUBLE_EQ(Longueur(t[0]), 25.0);
  EXPECT_DOUBLE_EQ(Longueur(t[1]), 50.0);
}

TEST(LireHpgl, ScaleWithoutNumbersGoesBackToPlotterUnits) {
  const auto t = Traits("IP0,0,1000,1000;SC0,1,0,1;SC;PU0,0;PD10,0;PU;");
  AttendUnites(t[0], {{0, 0}, {10, 0}});
}

TEST(LireHpgl, AScaleWithoutExtentIsNotTaken) {
  const auto t = Traits("SC5,5,0,10;PU0,0;PD10,0;PU;SC1,0,1,1,2;PU0,0;PD10,0;PU;");
  ASSERT_EQ(t.size(), 2U);
  for (const Trait& l : t) EXPECT_DOUBLE_EQ(Longueur(l), 0.25);
}

TEST(LireHpgl, ThePenStaysInItsPlaceWhenTheScaleChanges) {
  const auto t = Traits("PU1000,1000;IP0,0,4000,4000;SC0,4,0,4;PD2,1;PU;");
  AttendUnites(t[0], {{1000, 1000}, {2000, 1000}});
}

TEST(LireHpgl, TheSecondScalingPointFollowsTheFirst) {
  // P2 keeps its distance of 1000 x 500 from P1.
  const auto t = Traits("IP0,0,1000,500;IP200,300;SC0,1,0,1;PU0,0;PD1,1;PU;");
  AttendUnites(t[0], {{200, 300}, {1200, 800}});
}

TEST(LireHpgl, WithoutASheetTheScalingPointsAreThoseOfADeskPlotter) {
  const auto t = Traits("IN;SC0,1,0,1;PU0,0;PD1,1;PU;IP0,0,1,1;IP;PU0,0;PD1,1;PU;");
  ASSERT_EQ(t.size(), 2U);
  for (const Trait& l : t) AttendUnites(l, {{603, 521}, {10603, 7721}});
}

TEST(LireHpgl, ASheetSizeGivesTheScalingPoints) {
  const auto t = Traits("IN;PS4000,2000;SC0,1,0,1;PU0,0;PD1,1;PU;");
  AttendUnites(t[0], {{0, 0}, {4000, 2000}});
}

TEST(LireHpgl, RelativeScalingPointsArePercentOfTheSheet) {
  const auto t = Traits("PS4000,2000;IR25,50,75,100;SC0,1,0,1;PU0,0;PD1,1;PU;");
  AttendUnites(t[0], {{1000, 1000}, {3000, 2000}});
  const auto suivi = Traits("PS4000,2000;IP0,0,800,400;IR50,50;SC0,1,0,1;PU0,0;PD1,1;PU;");
  AttendUnites(suivi[0], {{2000, 1000}, {2800, 1400}});
  const auto retour = Traits("PS4000,2000;IR50,50,60,60;IR;SC0,1,0,1;PU0,0;PD1,1;PU;");
  AttendUnites(retour[0], {{0, 0}, {4000, 2000}});
}

TEST(LireHpgl, RotationTurnsTheAxesInsideTheSheet) {
  const std::string trait = "PU0,0;PD100,0,100,30;PU;";
  AttendUnites(Traits("PS1000,600;RO90;" + trait)[0], {{1000, 0}, {1000, 100}, {970, 100}});
  AttendUnites(Traits("PS1000,600;RO180;" + trait)[0], {{1000, 600}, {900, 600}, {900, 570}});
  AttendUnites(Traits("PS1000,600;RO270;" + trait)[0], {{0, 600}, {0, 500}, {30, 500}});
  AttendUnites(Traits("PS1000,600;RO90;RO;" + trait)[0], {{0, 0}, {100, 0}, {100, 30}});
  AttendUnites(Traits("PS1000,600;RO-90;" + trait)[0], {{0, 600}, {0, 500}, {30, 500}});
}

TEST(LireHpgl, RotationTurnsRelativeMovesAndFigures) {
  const auto t = Traits("PS1000,600;RO90;PU100,100;PR;PD50,0;PU;ER20,10;");
  ASSERT_EQ(t.size(), 2U);
  AttendUnites(t[0], {{900, 100}, {900, 150}});
  AttendUnites(t[1], {{900, 150}, {900, 170}, {890, 170}, {890, 150}});
}

TEST(LireHpgl, ArcsAndRelativeMovesFollowEveryRotation) {
  // From (200, 100) a half turn about (100, 100) to (0, 100), then (10, 0) further, in the turned system.
  const std::string corps = "PU200,100;PD;AA100,100,180;PR10,0;PU;";
  const std::pair<const char*, std::array<Vec2, 3>> cas[] = {
      {"RO0;", {{{200, 100}, {0, 100}, {10, 100}}}},
      {"RO90;", {{{900, 200}, {900, 0}, {900, 10}}}},
      {"RO180;", {{{800, 500}, {1000, 500}, {990, 500}}}},
      {"RO270;", {{{100, 400}, {100, 600}, {100, 590}}}},
  };
  for (const auto& [tour, attendu] : cas) {
    SCOPED_TRACE(tour);
    const auto t = Traits("PS1000,600;" + std::string(tour) + corps);
    ASSERT_EQ(t.size(), 1U);
    const auto& p = t[0].points;
    const Vec2 vus[] = {p.front(), p[p.size() - 2], p.back()};
    for (std::size_t i = 0; i < 3; ++i) {
      EXPECT_NEAR(vus[i].x * 40, attendu[i].x, 1e-6);
      EXPECT_NEAR(vus[i].y * 40, attendu[i].y, 1e-6);
    }
  }
}

TEST(LireHpgl, TheWindowCutsLines) {
  const auto t = Traits("IW100,100,200,200;PU0,150;PD300,150;PU;PU150,0;PD150,400,120,150;PU;");
  ASSERT_EQ(t.size(), 3U);
  AttendUnites(t[0], {{100, 150}, {200, 150}});
  AttendUnites(t[1], {{150, 100}, {150, 200}});
  // From (150, 400) to (120, 150): enters at y = 200, a fifth above the end.
  AttendUnites(t[2], {{126, 200}, {120, 150}});
}

TEST(LireHpgl, TheWindowEndsWithoutNumbersAndWithDefaults) {
  EXPECT_EQ(Traits("IW0,0,1,1;IW;PU10,10;PD20,20;PU;").size(), 1U);
  EXPECT_EQ(Traits("IW0,0,1,1;DF;PU10,10;PD20,20;PU;").size(), 1U);
  EXPECT_TRUE(Traits("IW0,0,1,1;PU10,10;PD20,20;PU;").empty());
}

TEST(LireHpgl, TheWindowIsInUserUnitsAndItsCornersMayBeSwapped) {
  const auto t = Traits("IP0,0,1000,1000;SC0,10,0,10;IW5,5,2,2;PU0,3;PD10,3;PU;");
  ASSERT_EQ(t.size(), 1U);
  AttendUnites(t[0], {{200, 300}, {500, 300}});
}

TEST(LireHpgl, AWindowThatChangesCutsOnlyWhatFollows) {
  const auto t = Traits("PU0,0;PD100,0;IW0,0,150,150;PD300,0;PU;");
  ASSERT_EQ(t.size(), 2U);
  AttendUnites(t[0], {{0, 0}, {100, 0}});
  AttendUnites(t[1], {{100, 0}, {150, 0}});
}

TEST(LireHpgl, TheWindowCutsFiguresToClosedContours) {
  // A square of 200 whose right half lies outside.
  const auto t = Traits("IW0,0,100,1000;PU0,0;RA200,200;");
  ASSERT_EQ(t.size(), 1U);
  EXPECT_EQ(t[0].nature, Nature::Ferme);
  EXPECT_NEAR(std::fabs(Aire(t[0])), 2.5 * 5.0, 1e-9);
}

TEST(LireHpgl, AHoleOutsideTheWindowIsLeftOut) {
  EXPECT_TRUE(Traits("IW0,0,100,100;PU200,200;PD;PU;").empty());
  EXPECT_EQ(Traits("IW0,0,100,100;PU50,50;PD;PU;").size(), 1U);
}

TEST(CoupePolyligne, KeepsALineOnTheBorderAndDropsATouch) {
  const HpglFenetre f{{0, 0}, {10, 10}};
  const std::vector<Vec2> bord{{0, 0}, {0, 10}};
  EXPECT_EQ(CoupePolyligne(bord, f).size(), 1U);
  const std::vector<Vec2> coin{{-1, 9}, {1, 11}};  // through the corner (0, 10) alone
  EXPECT_TRUE(CoupePolyligne(coin, f).empty());
}

TEST(CoupePolyligne, ALineThatLeavesAndComesBackIsTwoPieces) {
  const HpglFenetre f{{0, 0}, {10, 10}};
  const std::vector<Vec2> ligne{{5, 5}, {15, 5}, {15, 8}, {5, 8}};
  const auto m = CoupePolyligne(ligne, f);
  ASSERT_EQ(m.size(), 2U);
  EXPECT_EQ(m[0].back(), (Vec2{10, 5}));
  EXPECT_EQ(m[1].front(), (Vec2{10, 8}));
}

TEST(CoupeContour, GivesTheCommonAreaOfATriangleAndTheWindow) {
  const HpglFenetre f{{0, 0}, {10, 10}};
  const std::vector<Vec2> triangle{{-10, 0}, {10, 0}, {10, 20}};
  Trait t;
  t.points = CoupeContour(triangle, f);
  // The line y = x + 10 touches the corner (0, 10): the whole window is inside.
  EXPECT_NEAR(std::fabs(Aire(t)), 100, 1e-9);
}

TEST(CoupeContour, IsEmptyWhenNothingIsLeft) {
  const HpglFenetre f{{0, 0}, {10, 10}};
  const std::vector<Vec2> loin{{20, 20}, {30, 20}, {30, 30}};
  EXPECT_TRUE(CoupeContour(loin, f).empty());
}

// 100 units of the plotter are a user unit, in a frame that starts at neither zero: (-10, 5) lies at (1000, 2000).
// RO90 on a sheet 20000 x 10000 brings (x, y) to (20000 - y, x), RO270 to (y, 10000 - x).
TEST(LireHpgl, ArcsInATurnedFrameThatStartsAnywhereLieWhereTheyShould) {
  const std::string cadre = "IP1000,2000,5000,4000;SC-10,30,5,25;PU2,12;PD;AA5,16,90;PU;";
  const auto fin = [&](const std::string& debut) {
    const auto t = Traits("PS20000,10000;" + debut + cadre);
    EXPECT_EQ(t.size(), 1U);
    EXPECT_EQ(t[0].nature, Nature::Ouvert);
    return std::pair(t[0].points.front(), t[0].points.back());
  };
  // From (2, 12) a quarter about (5, 16) to (9, 13): plotter units (2200, 2700) and (2900, 2800).
  struct Cas {
    const char* debut;
    Vec2 a, b;
  };
  for (const Cas& c : {Cas{"", {2200, 2700}, {2900, 2800}}, Cas{"RO90;", {17300, 2200}, {17200, 2900}},
                       Cas{"RO180;", {17800, 7300}, {17100, 7200}}, Cas{"RO270;", {2700, 7800}, {2800, 7100}}}) {
    const auto [a, b] = fin(c.debut);
    EXPECT_NEAR(a.x * 40, c.a.x, 1e-6) << c.debut;
    EXPECT_NEAR(a.y * 40, c.a.y, 1e-6) << c.debut;
    EXPECT_NEAR(b.x * 40, c.b.x, 1e-6) << c.debut;
    EXPECT_NEAR(b.y * 40, c.b.y, 1e-6) << c.debut;
  }
}

TEST(CoupePolyligne, ALineStaysOnePieceUntilItLeaves) {
  const HpglFenetre f{{0, 0}, {10, 10}};
  const std::vector<Vec2> ligne{{1, 1}, {4, 2}, {6, 7}, {16, 9}, {14, 3}};
  const auto m = CoupePolyligne(ligne, f);
  ASSERT_EQ(m.size(), 1U);
  EXPECT_EQ(m[0].size(), 4U);
  EXPECT_NEAR(m[0].back().x, 10, 1e-12);
  EXPECT_NEAR(m[0].back().y, 7.8, 1e-12);
}

}  // namespace
}  // namespace pathwerk::lecture::hpgl
