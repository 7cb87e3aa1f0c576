// The polygon buffer: PM, EP, FP.
#include "tests/unit/closed/pathwerk/lecture/hpgl/Mesures.h"

namespace pathwerk::lecture::hpgl {
namespace {

using namespace mesures;

TEST(LireHpgl, APolygonIsDrawnOnlyWhenItIsEdgedOrFilled) {
  EXPECT_TRUE(Traits("PU0,0;PM0;PD100,0,100,100;PM2;").empty());
}

TEST(LireHpgl, EdgingDrawsAndClosesThePolygon) {
  const auto t = Traits("PU0,0;PM0;PD100,0,100,100;PM2;EP;");
  ASSERT_EQ(t.size(), 1U);
  EXPECT_EQ(t[0].nature, Nature::Ferme);
  AttendUnites(t[0], {{0, 0}, {100, 0}, {100, 100}});
}

TEST(LireHpgl, EdgingLeavesOutSidesDefinedWithThePenUp) {
  const auto t = Traits("PU0,0;PM0;PD100,0;PU100,100;PD0,100;PM2;EP;");
  ASSERT_EQ(t.size(), 2U);
  AttendUnites(t[0], {{0, 0}, {100, 0}});
  AttendUnites(t[1], {{100, 100}, {0, 100}, {0, 0}});
}

// A plotter emulation draws three sides of each of these, 10 + 10 + 14.142 mm, and none to where the pen stood
// before.
TEST(LireHpgl, EdgingDrawsNoChordToWhereThePenCameFrom) {
  for (const char* const fin : {"", ",400,400"}) {
    const auto t = Traits(std::string("PU0,0;PM0;PU400,400;PD800,400,800,800") + fin + ";PM2;EP;");
    ASSERT_EQ(t.size(), 1U) << fin;
    EXPECT_EQ(t[0].nature, Nature::Ferme) << fin;
    AttendUnites(t[0], {{400, 400}, {800, 400}, {800, 800}});
    EXPECT_NEAR(Longueur(t[0]), 34.142, 0.001) << fin;
  }
}

TEST(LireHpgl, EdgingClosesASubpolygonAtItsOwnStart) {
  const auto t = Traits("PU0,0;PM0;PD400,0,400,400;PM1;PD800,800,1200,800,1200,1200;PM2;EP;");
  ASSERT_EQ(t.size(), 2U);
  AttendUnites(t[0], {{0, 0}, {400, 0}, {400, 400}});
  AttendUnites(t[1], {{800, 800}, {1200, 800}, {1200, 1200}});
}

TEST(LireHpgl, EdgingDrawsASingleSideOnce) {
  const auto t = Traits("PU0,0;PM0;PU400,400;PD800,400;PM2;EP;");
  ASSERT_EQ(t.size(), 1U);
  AttendUnites(t[0], {{400, 400}, {800, 400}});
}

TEST(LireHpgl, EdgingLeavesAPolygonOpenWhoseLastSideWasUp) {
  const auto t = Traits("PU0,0;PM0;PD400,0,400,400;PU0,400;PM2;EP;");
  ASSERT_EQ(t.size(), 1U);
  AttendUnites(t[0], {{0, 0}, {400, 0}, {400, 400}});
}

TEST(LireHpgl, FillingTakesTheOutlineThroughAllCorners) {
  const auto t = Traits("PU0,0;PM;PU100,0,100,100,0,100;PM2;FP;");
  ASSERT_EQ(t.size(), 1U);
  EXPECT_EQ(t[0].nature, Nature::Ferme);
  AttendUnites(t[0], {{0, 0}, {100, 0}, {100, 100}, {0, 100}});
}

TEST(LireHpgl, SubpolygonsAreContoursOfTheirOwn) {
  const auto t = Traits("PU0,0;PM0;PD90,0,90,90,0,90,0,0;PM1;PU30,30;PD60,30,60,60,30,60;PM2;FP;");
  ASSERT_EQ(t.size(), 2U);
  AttendUnites(t[0], {{0, 0}, {90, 0}, {90, 90}, {0, 90}});
  AttendUnites(t[1], {{30, 30}, {60, 30}, {60, 60}, {30, 60}});
}

TEST(LireHpgl, RingsInOneSubpolygonAreSplitWhereThePenWasUp) {
  const auto t = Traits("PU0,0;PM0;PD90,0,90,90,0,90,0,0;PU30,30;PD60,30,60,60,30,60,30,30;PM2;FP;");
  ASSERT_EQ(t.size(), 2U);
  EXPECT_NEAR(std::fabs(Aire(t[0])), 90.0 * 90 / 1600, 1e-9);
  EXPECT_NEAR(std::fabs(Aire(t[1])), 30.0 * 30 / 1600, 1e-9);
}

TEST(LireHpgl, CirclesAndArcsGoIntoThePolygon) {
  const auto t = Traits("PU400,0;PM0;CI100;PM2;EP;PU400,0;PM0;PD;AA0,0,180;PM2;FP;");
  ASSERT_EQ(t.size(), 2U);
  AttendSurCercle(t[0], {10, 0}, 2.5, 0.01);
  EXPECT_NEAR(std::fabs(Aire(t[1])), 100 * 3.14159265 / 2, 0.3);
}

TEST(LireHpgl, ThePenReturnsWhereItStoodBeforeThePolygon) {
  const auto t = Traits("PU10,10;PM0;PD100,0,100,100;PM2;PD20,10;PU;");
  ASSERT_EQ(t.size(), 1U);
  AttendUnites(t[0], {{10, 10}, {20, 10}});
}

TEST(LireHpgl, TheSamePolygonIsDrawnOnceForEachKind) {
  EXPECT_EQ(Traits("PU0,0;PM0;PD90,0,90,90;PM2;EP;EP;EP;FP;FP;").size(), 2U);
}

TEST(LireHpgl, RectanglesAndWedgesStayInTheBuffer) {
  // Filled, then edged: the outline is there once, a second copy adds nothing.
  EXPECT_EQ(Traits("PU0,0;RA90,90;EP;").size(), 1U);
  EXPECT_EQ(Traits("PU0,0;WG90,0,90;EP;").size(), 1U);
  // A circle passes the buffer by.
  EXPECT_EQ(Traits("PU0,0;PM0;PD90,0,90,90;PM2;CI5;EP;").size(), 2U);
}

TEST(LireHpgl, InitialiseEmptiesTheBuffer) { EXPECT_TRUE(Traits("PU0,0;PM0;PD90,0,90,90;PM2;IN;EP;FP;").empty()); }

TEST(LireHpgl, AFileThatEndsInsideAPolygonIsTruncated) {
  const Lecture l = Lit("PU0,0;PD9,9;PU;PM0;PD90,0,90,90");
  EXPECT_TRUE(l.rapport.Tronque);
  EXPECT_EQ(l.traits.size(), 1U);
}

TEST(LireHpgl, PensAreNotChangedInsideAPolygon) {
  const Lecture l = Lit("SP1;PU0,0;PD9,9;PU0,0;PM0;SP0;PD90,0,90,90;PM2;EP;");
  EXPECT_EQ(l.traits.size(), 2U);
}

}  // namespace
}  // namespace pathwerk::lecture::hpgl
