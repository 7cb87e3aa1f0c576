// Shapes as paths.
#include "tests/unit/closed/pathwerk/lecture/svg/Mesures.h"

namespace pathwerk::lecture::svg {
namespace {

using namespace mesures;

TEST(Formes, ARectangleHasFourCorners) {
  const Trait t = Seul(R"(<rect x="10" y="20" width="30" height="40"/>)");
  EXPECT_EQ(t.nature, Nature::Ferme);
  AttendPoints(t, {{10, 80}, {40, 80}, {40, 40}, {10, 40}});
}

// 30 x 40 less four corners of 5 x 5, each of which loses 25 - 25 pi / 4.
TEST(Formes, RoundedCornersTakeTheirShareOfTheArea) {
  const double attendue = 30 * 40 - 4 * (25 - 25 * 3.14159265358979 / 4);
  EXPECT_NEAR(std::fabs(AireSignee(Seul(R"(<rect x="1" y="1" width="30" height="40" rx="5"/>)"))), attendue, 0.3);
  EXPECT_NEAR(std::fabs(AireSignee(Seul(R"(<rect x="1" y="1" width="30" height="40" ry="5"/>)"))), attendue, 0.3);
}

TEST(Formes, RadiiReachNoFurtherThanTheMiddle) {
  EXPECT_LE(EcartAuCercle(Seul(R"(<rect x="30" y="30" width="40" height="40" rx="99"/>)"), {50, 50}, 20), 0.01);
}

TEST(Formes, ACircleIsOneWithinTheTolerance) {
  const Trait t = Seul(R"(<circle cx="50" cy="50" r="20"/>)");
  EXPECT_EQ(t.nature, Nature::Ferme);
  EXPECT_LE(EcartAuCercle(t, {50, 50}, 20), 0.01);
}

TEST(Formes, AnEllipseUnderATransformHoldsTheTolerance) {
  // Half axes 4 and 20, made a circle of 20.
  EXPECT_LE(
      EcartAuCercle(Seul(R"(<ellipse cx="10" cy="50" rx="4" ry="20" transform='scale(5,1)'/>)"), {50, 50}, 20),
      0.01);
}

TEST(Formes, LinesAndPolylinesAreOpenAndPolygonsClosed) {
  const Trait ligne = Seul(R"(<line x1="1" y1="2" x2="3" y2="4" stroke="black"/>)");
  EXPECT_EQ(ligne.nature, Nature::Ouvert);
  AttendPoints(ligne, {{1, 98}, {3, 96}});
  EXPECT_EQ(Seul(R"(<polyline points="1,2 3,4 5,2" fill="none" stroke="black"/>)").nature, Nature::Ouvert);
  const Trait polygone = Seul(R"(<polygon points="1,2 3,4 5,2 7" fill="none" stroke="black"/>)");
  EXPECT_EQ(polygone.nature, Nature::Ferme);
  AttendPoints(polygone, {{1, 98}, {3, 96}, {5, 98}});
}

TEST(Formes, PaintClosesWhatALineLeavesOpen) {
  EXPECT_EQ(Seul(R"(<path d="M0 0h5v5" fill="black"/>)").nature, Nature::Ferme);
  EXPECT_EQ(Seul(R"(<path d="M0 0h5v5" fill="none" stroke="black"/>)").nature, Nature::Ouvert);
  EXPECT_EQ(Seul(R"(<path d="M0 0h5v5h-5v-5" fill="none" stroke="black"/>)").nature, Nature::Ferme);
}

TEST(Formes, ALineHasNoInside) {
  EXPECT_TRUE(Traits(R"(<line x2="5" fill="black"/>)").empty());
  EXPECT_TRUE(Traits(R"(<path d="M0 0h5" fill="black"/>)").empty());
  EXPECT_EQ(Ignores(R"(<path d="M0 0h5" fill="black"/>)", "ZERO_LENGTH"), 1);
  EXPECT_EQ(Seul(R"(<path d="M0 0h5" fill="black" stroke="red"/>)").nature, Nature::Ouvert);
}

TEST(Formes, ALineOfNoLengthIsADotWhereItsEndsReachOut) {
  EXPECT_EQ(Seul(R"(<path d="M5 5h0" stroke="black" stroke-linecap="round"/>)").nature, Nature::Percage);
  EXPECT_EQ(Seul(R"(<path d="M5 5z" stroke="black" stroke-linecap="square"/>)").nature, Nature::Percage);
  EXPECT_TRUE(Traits(R"(<path d="M5 5h0" stroke="black"/>)").empty());
  EXPECT_TRUE(Traits(R"(<path d="M5 5" stroke="black" stroke-linecap="round"/>)").empty());
}

TEST(Formes, ShapesWithoutExtentAreNone) {
  for (const char* c : {R"(<rect width="0" height="5"/>)", R"(<rect width="5" height="-5"/>)", R"(<circle r="0"/>)",
                        R"(<ellipse rx="5" ry="0"/>)", "<path/>", "<polygon points=\"\"/>"}) {
    EXPECT_TRUE(Traits(c).empty()) << c;
  }
}

TEST(Formes, MarksAtCornersAreCounted) {
  EXPECT_EQ(Ignores(R"(<path d="M0 0h5" stroke="black" marker-end='url(#m)'/>)", "marker"), 1);
}

}  // namespace
}  // namespace pathwerk::lecture::svg
