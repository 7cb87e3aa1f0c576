// Arcs: their step, the choice of the centre, how far the points go.
#include <cmath>
#include <numbers>

#include "gcode/Arc.h"
#include "tests/support/Support.h"

namespace essai {
namespace {

using namespace ovelin;

constexpr double Pi2 = std::numbers::pi / 2;

double Ecart(const PointArc& p, double x, double y) { return std::hypot(p.X - x, p.Y - y); }

TEST(PasAngulaire, HoldsTheChordErrorOfAHundredth) {
  // sagitta r (1 - cos(step / 2))
  for (const double r : {0.01, 1.0, 25.4, 1000.0}) {
    EXPECT_NEAR(r * (1 - std::cos(*PasAngulaire(r) / 2)), 0.01, 1e-9) << r;
  }
}

TEST(PasAngulaire, IsNoneWithoutARadiusThatMakesOne) {
  for (const double r : {0.0, -1.0, 0.004, std::nan("")}) EXPECT_FALSE(PasAngulaire(r)) << r;
  EXPECT_FALSE(PasAngulaire(1e30)) << "as many points as no machine ends";
}

TEST(TraceArc, TakesTheSmallerSweepForAPositiveRadius) {
  const Arc arc = TraceArc({1, 0}, {0, 1}, 0, 0, 1, 0.1);
  ASSERT_EQ(arc.points.size(), 10U);  // one whole radian of the quarter
  for (const PointArc& p : arc.points) EXPECT_NEAR(Ecart(p, 0, 0), 1, 1e-12);
  EXPECT_NEAR(arc.points[4].X, std::cos(0.5), 1e-12);
}

TEST(TraceArc, TakesTheLargerSweepForANegativeRadius) {
  const Arc arc = TraceArc({1, 0}, {0, 1}, 0, 0, -1, 0.1);
  // three quarters of a circle about (1, 1): four whole radians; the chord is longer than the radius as given
  EXPECT_EQ(arc.points.size(), 40U);
  for (const PointArc& p : arc.points) EXPECT_NEAR(Ecart(p, 1, 1), 1, 1e-12);
  EXPECT_EQ(arc.defaut, DefautArc::SansCercle);
}

TEST(TraceArc, TakesTheSecondCentreWhereTheSweepsAreEqual) {
  // a half circle: both centres are one point
  const Arc arc = TraceArc({1, 0}, {-1, 0}, 0, 0, 1, 0.5);
  ASSERT_EQ(arc.points.size(), 6U);
  EXPECT_NEAR(Ecart(arc.points[5], std::cos(3), std::sin(3)), 0, 1e-12);
}

TEST(TraceArc, CutsTheSweepToWholeRadians) {
  const double a = 0.9;  // less than a radian
  EXPECT_TRUE(TraceArc({1, 0}, {std::cos(a), std::sin(a)}, 0, 0, 1, 0.01).points.empty());
  const double b = 2.9;
  EXPECT_EQ(TraceArc({1, 0}, {std::cos(b), std::sin(b)}, 0, 0, 1, 0.01).points.size(), 200U);
}

TEST(TraceArc, TellsEndsFurtherApartThanTheRadiusAndMakesTheArcWhereItCan) {
  const Arc arc = TraceArc({1, 0}, {-1, 0.1}, 0, 0, 1.2, 0.1);
  EXPECT_EQ(arc.defaut, DefautArc::SansCercle);
  EXPECT_FALSE(arc.points.empty());
  EXPECT_TRUE(TraceArc({0, 0}, {0, 0}, 0, 0, 1, 0.1).points.empty()) << "a full circle has no centre";
}

TEST(TraceArc, CentreFormTurnsAboutTheStartAndItsWords) {
  const Arc arc = TraceArc({1, 0}, {0, 1}, -1, 0, 0, 0.25);
  EXPECT_EQ(arc.defaut, DefautArc::Aucun);
  ASSERT_EQ(arc.points.size(), 4U);
  EXPECT_NEAR(Ecart(arc.points[3], std::cos(1), std::sin(1)), 0, 1e-12);
}

TEST(TraceArc, CentreFormTellsUnequalRadiiAndGoesOn) {
  const Arc arc = TraceArc({1, 0}, {0, 1.5}, -1, 0, 0, 0.25);
  EXPECT_EQ(arc.defaut, DefautArc::RayonsInegaux);
  EXPECT_EQ(arc.points.size(), 4U);
  EXPECT_EQ(TraceArc({1, 0}, {0, 1 + 1e-12}, -1, 0, 0, 0.25).defaut, DefautArc::Aucun) << "compared as floats";
}

TEST(TraceArc, AnEndBeforeTheStartGoesRoundTheOtherWay) {
  const Arc arc = TraceArc({0, 1}, {1, 0}, 0, -1, 0, 0.5);  // from 90 degrees up to 360
  EXPECT_EQ(arc.points.size(), 8U);
  EXPECT_NEAR(std::atan2(arc.points[0].Y, arc.points[0].X), Pi2 + 0.5, 1e-12);
}

}  // namespace
}  // namespace essai
