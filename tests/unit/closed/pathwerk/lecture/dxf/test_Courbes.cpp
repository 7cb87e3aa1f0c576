// Arcs, circles, ellipses: chords within the tolerance, both ways, and in a bounded number.
#include <cmath>
#include <numbers>

#include "closed/pathwerk/lecture/dxf/Courbes.h"
#include "tests/unit/closed/pathwerk/lecture/dxf/Outils.h"

using namespace essai;
using pathwerk::Vec2;
using pathwerk::lecture::Lecture;
using pathwerk::lecture::Nature;
using pathwerk::lecture::Trait;

namespace {

// Greatest distance of a curve from the path, at 2000 places.
template <class F>
double EcartCourbe(const Trait& t, double debut, double fin, F courbe) {
  double max = 0;
  for (int i = 0; i <= 2000; ++i) max = std::max(max, Distance(courbe(debut + (fin - debut) * i / 2000), t));
  return max;
}

}  // namespace

TEST(Circle, ChordsStayWithinTheToleranceBothWays) {
  for (const double fleche : {0.1, 0.01, 0.001}) {
    const Lecture l = LitEntites("0=CIRCLE 10=20 20=10 40=8", fleche);
    const Trait& t = l.traits.at(0);
    EXPECT_EQ(t.nature, Nature::Ferme);
    EXPECT_LE(EcartMax(t, [](Vec2 p) { return std::fabs(std::hypot(p.x - 20, p.y - 10) - 8); }), fleche * 1.000001);
    EXPECT_LE(EcartCourbe(t, 0, 2 * std::numbers::pi,
                          [](double a) {
                            return Vec2{20 + 8 * std::cos(a), 10 + 8 * std::sin(a)};
                          }),
              fleche * 1.000001);
    // And no more of them than that needs: n = pi / acos(1 - fleche / r), rounded up to four.
    EXPECT_LE(static_cast<double>(t.points.size()), std::numbers::pi / std::acos(1 - fleche / 8) + 4);
    EXPECT_GT(Aire(t.points), 0);
  }
}

TEST(Arc, OfATinyRadiusHasAChordForEachEighthOfATurnAtLeast) {
  const Lecture l = LitEntites("0=ARC 10=0 20=0 40=0.02 50=0 51=180");
  EXPECT_EQ(l.traits.at(0).points.size(), 5U);
}

// h = 2 acos(1 - f / r): at a millionth of the radius 2222 chords a turn, at the tolerance as given 72.
TEST(Circle, ToleranceOfNothingIsTheFinestThereIs) {
  for (const double fleche : {0.0, -1.0, 1e-9}) {
    EXPECT_EQ(LitEntites("0=CIRCLE 10=0 20=0 40=1", fleche).traits.at(0).points.size(), 2224U) << fleche;
  }
  EXPECT_EQ(LitEntites("0=CIRCLE 10=0 20=0 40=10", 0.01).traits.at(0).points.size(), 72U);
}

TEST(Circle, ReachesItsExtremePoints) {
  const Boite b = BoiteDe(LitEntites("0=CIRCLE 10=20 20=10 40=7.3").traits.at(0).points);
  EXPECT_NEAR(b.xmin, 12.7, 1e-12);
  EXPECT_NEAR(b.ymax, 17.3, 1e-12);
}

TEST(Circle, SmallestIsStillAnOctagon) {
  EXPECT_EQ(LitEntites("0=CIRCLE 10=0 20=0 40=0.001").traits.at(0).points.size(), 8u);
}

TEST(Circle, NegativeRadiusCountsAsPositiveAndNoneIsLeftOut) {
  EXPECT_NEAR(BoiteDe(LitEntites("0=CIRCLE 10=0 20=0 40=-5").traits.at(0).points).xmax, 5, 1e-12);
  EXPECT_EQ(Ignores(LitEntites("0=CIRCLE 10=0 20=0 40=0"), "CIRCLE"), 1);
}

TEST(Circle, HugeRadiusTakesABoundedNumberOfChords) {
  EXPECT_LE(LitEntites("0=CIRCLE 10=0 20=0 40=1e9").traits.at(0).points.size(), 10000u);
  EXPECT_LE(LitEntites("0=CIRCLE 10=0 20=0 40=1e300").traits.at(0).points.size(), 10000u);
}

TEST(Circle, CoordinatesThatAreNoneDoNotHang) {
  LitEntites(
      "0=CIRCLE 10=nan 20=0 40=inf 0=ARC 10=0 20=0 40=nan 50=inf 51=nan 0=LWPOLYLINE 70=1 10=0 20=0 42=nan 10=inf "
      "20=5 42=inf 10=1 20=1");
}

TEST(Arc, RunsCounterClockwiseFromStartToEnd) {
  const Lecture l = LitEntites("0=ARC 10=1 20=2 40=10 50=0 51=90");
  const Trait& t = l.traits.at(0);
  EXPECT_EQ(t.nature, Nature::Ouvert);
  AttendPoint(t.points.front(), 11, 2);
  AttendPoint(t.points.back(), 1, 12);
  EXPECT_NEAR(Longueur(t), 5 * std::numbers::pi, 0.01);
  EXPECT_LE(EcartMax(t, [](Vec2 p) { return std::fabs(std::hypot(p.x - 1, p.y - 2) - 10); }), 0.01);
}

TEST(Arc, AcrossZeroAndWithAnglesBeyondATurn) {
  // From 300 to 30 degrees: a quarter turn.
  EXPECT_NEAR(Longueur(LitEntites("0=ARC 10=0 20=0 40=10 50=300 51=30").traits.at(0)), 5 * std::numbers::pi, 0.01);
  EXPECT_NEAR(Longueur(LitEntites("0=ARC 10=0 20=0 40=10 50=-60 51=390").traits.at(0)), 5 * std::numbers::pi, 0.01);
}

TEST(Arc, WithEqualAnglesIsAFullCircle) {
  const Lecture l = LitEntites("0=ARC 10=0 20=0 40=10 50=45 51=45 0=ARC 10=0 20=0 40=10 50=0 51=360");
  for (const Trait& t : l.traits) {
    EXPECT_EQ(t.nature, Nature::Ferme);
    EXPECT_NEAR(Aire(t.points), 100 * std::numbers::pi, 20 * std::numbers::pi * 0.01);
  }
}

TEST(Arc, ExtrusionDownwardMirrorsIt) {
  // Seen from behind: x turns its sign. Start (-10, 0), end (0, 10).
  const Trait t = LitEntites("0=ARC 10=0 20=0 40=10 50=0 51=90 210=0 220=0 230=-1").traits.at(0);
  AttendPoint(t.points.front(), -10, 0);
  AttendPoint(t.points.back(), 0, 10);
}

TEST(Ellipse, FullOneHasItsAreaAndBox) {
  const Lecture l = LitEntites("0=ELLIPSE 10=5 20=5 30=0 11=20 21=0 31=0 40=0.3 41=0 42=6.283185307179586");
  const Trait& t = l.traits.at(0);
  EXPECT_EQ(t.nature, Nature::Ferme);
  EXPECT_NEAR(Aire(t.points), std::numbers::pi * 20 * 6, 90 * 0.01);
  AttendBoite(l, -15, -1, 25, 11, 1e-9);
  EXPECT_LE(EcartCourbe(t, 0, 2 * std::numbers::pi,
                        [](double a) {
                          return Vec2{5 + 20 * std::cos(a), 5 + 6 * std::sin(a)};
                        }),
            0.01);
}

TEST(Ellipse, TurnedArcByItsParameters) {
  // Long half axis (6, 8), short one (-4, 3), parameters 0 to pi/2.
  const Lecture l = LitEntites("0=ELLIPSE 10=0 20=0 11=6 21=8 40=0.5 41=0 42=1.5707963267948966");
  const Trait& t = l.traits.at(0);
  EXPECT_EQ(t.nature, Nature::Ouvert);
  AttendPoint(t.points.front(), 6, 8);
  AttendPoint(t.points.back(), -4, 3);
  EXPECT_LE(EcartCourbe(t, 0, std::numbers::pi / 2,
                        [](double a) {
                          return Vec2{6 * std::cos(a) - 4 * std::sin(a), 8 * std::cos(a) + 3 * std::sin(a)};
                        }),
            0.01);
  EXPECT_LE(EcartMax(t,
                     [](Vec2 p) {
                       const double u = (p.x * 0.6 + p.y * 0.8) / 10;
                       const double v = (-p.x * 0.8 + p.y * 0.6) / 5;
                       return std::fabs(std::hypot(u, v) - 1) *
                              5;  // at most the distance, along the long axis more
                     }),
            0.011);
}

TEST(Ellipse, EndBeforeStartRunsThroughZero) {
  const Trait t =
      LitEntites("0=ELLIPSE 10=0 20=0 11=10 21=0 40=1 41=4.71238898038469 42=1.5707963267948966").traits.at(0);
  EXPECT_NEAR(Longueur(t), 10 * std::numbers::pi, 0.05);
  EXPECT_NEAR(BoiteDe(t.points).xmax, 10, 0.01);
}

TEST(Ellipse, ExtrusionDownwardTurnsItsSense) {
  const Trait t = LitEntites("0=ELLIPSE 10=0 20=0 11=10 21=0 40=0.5 41=0 42=1.5707963267948966 210=0 220=0 230=-1")
                      .traits.at(0);
  AttendPoint(t.points.front(), 10, 0);
  AttendPoint(t.points.back(), 0, -5);
}

TEST(Ellipse, WithoutParametersIsWholeAndWithoutRatioACircle) {
  EXPECT_NEAR(Aire(LitEntites("0=ELLIPSE 10=0 20=0 11=10 21=0").traits.at(0).points), 100 * std::numbers::pi, 1);
}

TEST(Ellipse, OfNoWidthIsALine) {
  const Lecture l = LitEntites("0=ELLIPSE 10=0 20=0 11=10 21=0 40=0");
  AttendBoite(l, -10, 0, 10, 0, 1e-12);
}

// Extrusion (1, 0, 1)/sqrt 2: the object's X axis is the world's Y, its Y axis lies in the plane of X and Z and is
// (-1, 0, 1)/sqrt 2. So a circle is seen from above as an ellipse, narrow in X by cos 45 degrees, and the centre
// (a, b) at (-b/sqrt 2, a).
TEST(Extrusion, TiltedCircleIsSeenAsAnEllipse) {
  const Lecture l = LitEntites("0=CIRCLE 10=3 20=2 40=10 210=1 220=0 230=1");
  const double s = std::sqrt(0.5);
  AttendBoite(l, -2 * s - 10 * s, 3 - 10, -2 * s + 10 * s, 3 + 10, 0.011);
  EXPECT_NEAR(std::fabs(Aire(l.traits.at(0).points)), 100 * std::numbers::pi * s, 1);
}

// Nearer than 1/64 to the vertical the object's X axis is square to the world's Y: for (0.01, 0, 1) it is (1, 0,
// -0.01).
TEST(Extrusion, NearlyVerticalUsesTheOtherAxis) {
  const Lecture l = LitEntites("0=LWPOLYLINE 90=2 70=0 10=0 20=0 10=10 20=5 210=0.01 220=0 230=1");
  const double n = std::sqrt(1.0001);
  AttendPoint(l.traits.at(0).points.at(1), 10 / n, 5);
}

TEST(Extrusion, ElevationShiftsWhatIsTilted) {
  // Frame of (0, 1, 1): X axis (-1, 0, 0), Y axis (0, -1, 1)/sqrt 2, normal (0, 1, 1)/sqrt 2.
  const Lecture l = LitEntites(
      "0=LWPOLYLINE 90=2 70=0 38=4 10=0 20=0 10=1 20=2 210=0 220=1 230=1 "
      "0=POLYLINE 66=1 70=0 10=0 20=0 30=4 210=0 220=1 230=1 0=VERTEX 10=0 20=0 0=VERTEX 10=1 20=2 0=SEQEND");
  const double s = std::sqrt(0.5);
  for (const Trait& t : l.traits) {
    AttendPoint(t.points.at(0), 0, 4 * s);
    AttendPoint(t.points.at(1), -1, 2 * s);
  }
}

TEST(Extrusion, DownwardMirrorsBulgesAndFaces) {
  const Lecture l = LitEntites(
      "0=LWPOLYLINE 90=2 70=1 10=0 20=0 42=1 10=10 20=0 42=0 210=0 220=0 230=-1 "
      "0=SOLID 10=0 20=0 11=4 21=0 12=0 22=3 13=4 23=3 210=0 220=0 230=-1");
  const Boite b = BoiteDe(l.traits.at(0).points);
  EXPECT_NEAR(b.xmin, -10, 1e-9);
  EXPECT_NEAR(b.ymin, -5, 0.01);
  EXPECT_NEAR(b.ymax, 0, 1e-9);
  EXPECT_DOUBLE_EQ(Aire(l.traits.at(1).points), -12);
}

TEST(Extrusion, LinesPointsAndFacesOfSpaceDoNotFollowIt) {
  const Lecture l = LitEntites(
      "0=LINE 10=1 20=2 11=4 21=6 210=0 220=0 230=-1 0=POINT 10=7 20=8 210=0 220=0 230=-1 "
      "0=3DFACE 10=0 20=0 11=4 21=0 12=4 22=3 210=0 220=0 230=-1");
  AttendPoint(l.traits.at(0).points.at(1), 4, 6);
  AttendPoint(l.traits.at(1).points.at(0), 7, 8);
  EXPECT_DOUBLE_EQ(BoiteDe(l.traits.at(2).points).xmax, 4);
}

TEST(Extrusion, OfNoLengthCountsAsUpward) {
  AttendPoint(LitEntites("0=LWPOLYLINE 90=2 10=0 20=0 10=3 20=4 210=0 220=0 230=0").traits.at(0).points.at(1), 3,
              4);
}

TEST(ArcDeBulge, CentreLiesLeftOfTheChordForSmallBulges) {
  // Quarter circle around (0, 0) from (10, 0) to (0, 10).
  const pathwerk::lecture::dxf::ArcConique a =
      pathwerk::lecture::dxf::ArcDeBulge({10, 0}, {0, 10}, std::tan(std::numbers::pi / 8));
  AttendPoint(a.u, 10, 0);
  AttendPoint(a.v, 0, 10);
  EXPECT_NEAR(a.balayage, std::numbers::pi / 2, 1e-12);
}

TEST(BalayageArc, LiesAboveNothingAndNotAboveATurn) {
  EXPECT_DOUBLE_EQ(pathwerk::lecture::dxf::BalayageArc(1, 1), 2 * std::numbers::pi);
  EXPECT_DOUBLE_EQ(pathwerk::lecture::dxf::BalayageArc(0, 2 * std::numbers::pi), 2 * std::numbers::pi);
  EXPECT_DOUBLE_EQ(pathwerk::lecture::dxf::BalayageArc(1, 2), 1);
  EXPECT_DOUBLE_EQ(pathwerk::lecture::dxf::BalayageArc(2, 1), 2 * std::numbers::pi - 1);
}

TEST(Budget, RefusesWhatIsBeyondIt) {
  pathwerk::lecture::dxf::Budget b(100);
  EXPECT_TRUE(b.Points(6));
  EXPECT_FALSE(b.Epuise());
  EXPECT_FALSE(b.Points(1));
  EXPECT_TRUE(b.Epuise());
  EXPECT_FALSE(pathwerk::lecture::dxf::Budget(100).Points(static_cast<std::size_t>(-1) / 8));
}
