// Circles, arcs, wedges, rectangles, Bezier curves.
#include <numbers>

#include "closed/pathwerk/lecture/Lignes.h"
#include "tests/unit/closed/pathwerk/lecture/hpgl/Mesures.h"

namespace pathwerk::lecture::hpgl {
namespace {

using namespace mesures;

TEST(LireHpgl, ACircleIsAContourWithItsChordsInTolerance) {
  const auto t = Traits("PU400,800;CI200;");
  ASSERT_EQ(t.size(), 1U);
  EXPECT_EQ(t[0].nature, Nature::Ferme);
  AttendSurCercle(t[0], {10, 20}, 5, 0.01);
  EXPECT_NEAR(Longueur(t[0]), 2 * std::numbers::pi * 5, 0.05);
  EXPECT_NE(t[0].points.front(), t[0].points.back());
}

TEST(LireHpgl, TheChordAngleOfTheFileIsNotObeyed) {
  const auto fin = Traits("PU0,0;CI4000,45;");
  AttendSurCercle(fin[0], {0, 0}, 100, 0.01);
  const auto grossier = Traits("PU0,0;CI4000,0.5;", 0.5);
  AttendSurCercle(grossier[0], {0, 0}, 100, 0.5);
  EXPECT_LT(grossier[0].points.size(), 60U);
}

TEST(LireHpgl, ThePenReturnsToTheCentreOfTheCircleAsItWas) {
  const auto t = Traits("PU400,400;CI100;PD500,400;CI50;PD600,400;PU;");
  ASSERT_EQ(t.size(), 3U);
  AttendSurCercle(t[0], {10, 10}, 2.5, 0.01);
  AttendSurCercle(t[1], {12.5, 10}, 1.25, 0.01);
  AttendUnites(t[2], {{400, 400}, {500, 400}, {600, 400}});
}

TEST(LireHpgl, ANegativeRadiusStartsTheCircleOnTheLeft) {
  const auto t = Traits("PU0,0;CI-400;");
  AttendSurCercle(t[0], {0, 0}, 10, 0.01);
  EXPECT_NEAR(t[0].points.back().x, -10, 1e-9);
  EXPECT_NEAR(t[0].points.back().y, 0, 1e-9);
}

TEST(LireHpgl, ACircleWithoutRadiusIsADot) {
  const auto t = Traits("PU40,80;CI0;");
  ASSERT_EQ(t.size(), 1U);
  EXPECT_EQ(t[0].nature, Nature::Percage);
  AttendUnites(t[0], {{40, 80}});
}

TEST(LireHpgl, CirclesInUnequalUserUnitsAreEllipses) {
  // 1 unit = 400 in X, 200 in Y; radius 1 gives half axes of 10 and 5 mm.
  const auto t = Traits("IP0,0,4000,2000;SC0,10,0,10;PU5,5;CI1;");
  const Boite b = BoiteDe(t);
  EXPECT_NEAR(b.Large(), 20, 0.04);
  EXPECT_NEAR(b.Haute(), 10, 0.04);
  for (const Vec2 p : t[0].points) {
    EXPECT_NEAR(std::pow((p.x - 50) / 10, 2) + std::pow((p.y - 25) / 5, 2), 1, 1e-9);
  }
}

TEST(LireHpgl, AnArcRunsFromThePenAboutItsCentre) {
  // Quarter turn counter-clockwise about (0, 0) from (400, 0).
  const auto t = Traits("PU400,0;PD;AA0,0,90;PU;");
  ASSERT_EQ(t.size(), 1U);
  EXPECT_EQ(t[0].nature, Nature::Ouvert);
  AttendSurCercle(t[0], {0, 0}, 10, 0.01);
  EXPECT_NEAR(t[0].points.front().x, 10, 1e-9);
  EXPECT_NEAR(t[0].points.back().y, 10, 1e-9);
  EXPECT_NEAR(Longueur(t[0]), 5 * std::numbers::pi, 0.02);
  EXPECT_GT(t[0].points[1].y, 0);
}

TEST(LireHpgl, ANegativeSweepRunsClockwiseAndARelativeCentreCountsFromThePen) {
  const auto t = Traits("PU400,0;PD;AR-400,0,-180,5;PU;");
  ASSERT_EQ(t.size(), 1U);
  AttendSurCercle(t[0], {0, 0}, 10, 0.01);
  EXPECT_LT(t[0].points[1].y, 0);
  EXPECT_NEAR(t[0].points.back().x, -10, 1e-9);
}

TEST(LireHpgl, AnArcWithThePenUpOnlyMoves) {
  const auto t = Traits("PU400,0;AA0,0,90;PD0,0;PU;");
  ASSERT_EQ(t.size(), 1U);
  AttendUnites(t[0], {{0, 400}, {0, 0}}, 1e-9);
}

TEST(LireHpgl, AFullTurnByArcIsAContour) {
  const auto t = Traits("PU400,0;PD;AA0,0,360;PU;");
  ASSERT_EQ(t.size(), 1U);
  EXPECT_EQ(t[0].nature, Nature::Ferme);
  AttendSurCercle(t[0], {0, 0}, 10, 0.01);
}

TEST(LireHpgl, ArcsTurnTheOtherWayUnderAMirroredScale) {
  const auto t = Traits("IP0,0,1000,-1000;SC0,1000,0,1000;PU400,0;PD;AA0,0,90;PU;");
  EXPECT_NEAR(t[0].points.back().y, -10, 1e-9);
  EXPECT_LT(t[0].points[1].y, 0);
}

TEST(LireHpgl, ThreePointArcPassesThroughItsMiddlePoint) {
  // Half circle of radius 10 mm about (0, 0), over the top, clockwise.
  const auto t = Traits("PU-400,0;PD;AT0,400,400,0;PU;");
  AttendSurCercle(t[0], {0, 0}, 10, 0.01);
  EXPECT_NEAR(BoiteDe(t).ymax, 10, 0.01);
  EXPECT_NEAR(BoiteDe(t).ymin, 0, 1e-9);
  EXPECT_DOUBLE_EQ(t[0].points.back().x, 10);
  EXPECT_DOUBLE_EQ(t[0].points.back().y, 0);
  EXPECT_NEAR(Longueur(t[0]), 10 * std::numbers::pi, 0.02);
}

TEST(LireHpgl, ThreePointArcTakesTheLongWayWhenItsMiddleLiesThere) {
  // From (400, 0) to (0, 400) about (0, 0): a quarter through (320, 240), three quarters through (0, -400).
  const auto court = Traits("PU400,0;PD;AT320,240,0,400;PU;");
  EXPECT_NEAR(Longueur(court[0]), 20 * std::numbers::pi / 4, 0.02);
  const auto bas = Traits("PU400,0;PD;AT0,-400,0,400;PU;");
  EXPECT_NEAR(Longueur(bas[0]), 20 * std::numbers::pi * 3 / 4, 0.04);
}

TEST(LireHpgl, RelativeThreePointArcCountsFromThePen) {
  const auto t = Traits("PU0,0;PD;RT400,400,800,0;PU;");
  AttendSurCercle(t[0], {10, 0}, 10, 0.01);
}

TEST(LireHpgl, ThreePointsInALineAreALine) {
  const auto t = Traits("PU0,0;PD;AT100,100,200,200;PU;");
  AttendUnites(t[0], {{0, 0}, {100, 100}, {200, 200}});
}

TEST(LireHpgl, ThreePointArcThatEndsAtItsStartIsACircle) {
  const auto t = Traits("PU0,0;PD;AT800,0,0,0;PU;");
  EXPECT_EQ(t[0].nature, Nature::Ferme);
  AttendSurCercle(t[0], {10, 0}, 10, 0.01);
}

TEST(LireHpgl, BezierCurvesGoThroughTheirEndsWithinTheTolerance) {
  // Both end at (300, 0) after a bulge to y = 75 units; relative points all count from the start of the curve.
  const auto absolu = Traits("PU100,100;PD;BZ100,200,400,200,400,100;PU;");
  const auto relatif = Traits("PU100,100;PD;BR0,100,300,100,300,0;PU;");
  ASSERT_EQ(absolu.size(), 1U);
  ASSERT_EQ(relatif.size(), 1U);
  ASSERT_EQ(absolu[0].points.size(), relatif[0].points.size());
  for (std::size_t i = 0; i < absolu[0].points.size(); ++i) {
    EXPECT_NEAR(absolu[0].points[i].x, relatif[0].points[i].x, 1e-9);
    EXPECT_NEAR(absolu[0].points[i].y, relatif[0].points[i].y, 1e-9);
  }
  EXPECT_NEAR(BoiteDe(absolu).ymax, 175.0 / 40, 0.01);
  EXPECT_NEAR(absolu[0].points.back().x, 10, 1e-9);
}

TEST(LireHpgl, OneInstructionHoldsSeveralBezierCurves) {
  const auto t = Traits("PU0,0;PD;BR0,0,40,0,40,0,0,0,0,40,0,40;PU;");
  ASSERT_EQ(t.size(), 1U);
  EXPECT_NEAR(t[0].points.back().x, 1, 1e-9);
  EXPECT_NEAR(t[0].points.back().y, 1, 1e-9);
}

TEST(LireHpgl, RectanglesRunFromThePenToTheOppositeCorner) {
  const auto t = Traits("PU100,100;EA300,200;PR;ER-50,-20;PA;PD400,100;PU;");
  ASSERT_EQ(t.size(), 3U);
  EXPECT_EQ(t[0].nature, Nature::Ferme);
  AttendUnites(t[0], {{100, 100}, {300, 100}, {300, 200}, {100, 200}});
  AttendUnites(t[1], {{100, 100}, {50, 100}, {50, 80}, {100, 80}});
  AttendUnites(t[2], {{100, 100}, {400, 100}});  // the pen came back to its corner
}

TEST(LireHpgl, FilledRectanglesGiveTheirOutline) {
  const auto t = Traits("FT3,10,45;PU0,0;RA100,50;RR-20,-10;");
  ASSERT_EQ(t.size(), 2U);
  AttendUnites(t[0], {{0, 0}, {100, 0}, {100, 50}, {0, 50}});
  AttendUnites(t[1], {{0, 0}, {-20, 0}, {-20, -10}, {0, -10}});
}

TEST(LireHpgl, AWedgeIsClosedThroughItsCentre) {
  // 90 degrees from 45 on, radius 10 mm.
  for (const char* const nom : {"EW", "WG"}) {
    const auto t = Traits("PU0,0;" + std::string(nom) + "400,45,90;");
    ASSERT_EQ(t.size(), 1U);
    EXPECT_EQ(t[0].nature, Nature::Ferme);
    EXPECT_EQ(t[0].points.front(), (Vec2{0, 0}));
    EXPECT_NEAR(Aire(t[0]), 100 * std::numbers::pi / 4, 0.2);
    EXPECT_NEAR(Longueur(t[0]), 20 + 5 * std::numbers::pi, 0.02);
    EXPECT_NEAR(t[0].points[1].x, 10 * std::sqrt(0.5), 1e-9);
    EXPECT_NEAR(t[0].points[1].y, 10 * std::sqrt(0.5), 1e-9);
  }
}

TEST(LireHpgl, AWedgeOfNegativeRadiusCountsItsAnglesFromTheLeft) {
  const auto t = Traits("PU0,0;EW-400,0,90;");
  EXPECT_NEAR(t[0].points[1].x, -10, 1e-9);
  EXPECT_NEAR(t[0].points.back().y, -10, 1e-9);
}

TEST(LireHpgl, AWedgeOfAFullTurnIsACircle) {
  const auto t = Traits("PU0,0;WG400,0,360;");
  AttendSurCercle(t[0], {0, 0}, 10, 0.01);
}

// The ends by hand: (-300, -400) about (400, 600) turned by 37 degrees, cos 0.798636, sin 0.601815.
TEST(LireHpgl, ArcsOffTheAxesEndWhereTheirAngleSays) {
  const auto fin = [](const std::string& arc) {
    const auto t = Traits("PU100,200;PD;" + arc + ";PU;");
    EXPECT_EQ(t.size(), 1U);
    AttendSurCercle(t[0], {10, 15}, 12.5, 0.01);
    EXPECT_NEAR(Longueur(t[0]), 12.5 * 37 * 3.14159265 / 180, 0.01);
    return Vec2{t[0].points.back().x * 40, t[0].points.back().y * 40};
  };
  for (const char* const arc : {"AA400,600,37", "AR300,400,37"}) {
    EXPECT_NEAR(fin(arc).x, 401.1354, 1e-3) << arc;
    EXPECT_NEAR(fin(arc).y, 100.0013, 1e-3) << arc;
  }
  for (const char* const arc : {"AA400,600,-37", "AR300,400,-37"}) {
    EXPECT_NEAR(fin(arc).x, -80.3167, 1e-3) << arc;
    EXPECT_NEAR(fin(arc).y, 461.0903, 1e-3) << arc;
  }
}

// Three points of the circle of 500 units about (300, -200), which lie off its axes: by the 3-4-5 triangle and its
// mirror images, (7, 24, 25) among them.
TEST(LireHpgl, ThreePointArcsLieOnTheirCircleWhereverItIs) {
  struct Cas {
    Vec2 depart, milieu, fin;
    double degres;
  };
  // Directions: 36.8699, 73.7398, 126.8699, 216.8699 and 286.2602 degrees.
  const Vec2 a{700, 100};
  const Vec2 b{440, 280};
  const Vec2 c{0, 200};
  const Vec2 e{-100, -500};
  const Vec2 g{440, -680};
  for (const Cas& k : {Cas{a, b, c, 90}, Cas{b, c, e, 143.1301}, Cas{c, e, g, 159.3903}, Cas{e, g, a, 180},
                       Cas{a, g, e, 180}, Cas{c, b, a, 90}, Cas{b, e, a, 323.1301}, Cas{g, e, b, 212.5204}}) {
    const auto mot = [](Vec2 p) { return EnTexte(p.x) + "," + EnTexte(p.y); };
    const auto t = Traits("PU" + mot(k.depart) + ";PD;AT" + mot(k.milieu) + "," + mot(k.fin) + ";PU;");
    const auto r =
        Traits("PU" + mot(k.depart) + ";PD;RT" + mot({k.milieu.x - k.depart.x, k.milieu.y - k.depart.y}) + "," +
               mot({k.fin.x - k.depart.x, k.fin.y - k.depart.y}) + ";PU;");
    for (const auto& traits : {t, r}) {
      ASSERT_EQ(traits.size(), 1U);
      AttendSurCercle(traits[0], {7.5, -5}, 12.5, 0.01);
      EXPECT_NEAR(traits[0].points.back().x * 40, k.fin.x, 1e-9);
      EXPECT_NEAR(traits[0].points.back().y * 40, k.fin.y, 1e-9);
      EXPECT_NEAR(Longueur(traits[0]), 12.5 * k.degres * 3.14159265 / 180, 0.03) << k.degres;
    }
  }
}

// Corners by hand: 200 units at 25 and at 155 degrees from (100, 50): cos 0.906308, sin 0.422618.
TEST(LireHpgl, AWedgeOffTheAxesHasItsCornersAndItsArea) {
  const auto t = Traits("PU100,50;EW200,25,130;");
  ASSERT_EQ(t.size(), 1U);
  EXPECT_NEAR(t[0].points[1].x * 40, 100 + 181.2616, 1e-3);
  EXPECT_NEAR(t[0].points[1].y * 40, 50 + 84.5237, 1e-3);
  EXPECT_NEAR(t[0].points.back().x * 40, 100 - 181.2616, 1e-3);
  EXPECT_NEAR(t[0].points.back().y * 40, 50 + 84.5237, 1e-3);
  EXPECT_NEAR(Aire(t[0]), 25.0 * 130 / 360 * 3.14159265, 0.08);
}

TEST(LireHpgl, AFilledRectangleIsFilledAlready) { EXPECT_EQ(Traits("PU0,0;RA90,90;FP;EP;").size(), 1U); }

}  // namespace
}  // namespace pathwerk::lecture::hpgl
