// Splines: every degree, weights, knots, closed ones, those given by points on them.
#include <cmath>
#include <numbers>

#include "closed/pathwerk/lecture/dxf/Spline.h"
#include "tests/unit/closed/pathwerk/lecture/dxf/Outils.h"

using namespace essai;
using pathwerk::Vec2;
using pathwerk::lecture::Lecture;
using pathwerk::lecture::Nature;
using pathwerk::lecture::Trait;

namespace {

std::string Noeuds(std::initializer_list<double> noeuds) {
  std::string s;
  for (const double n : noeuds) s += " 40=" + std::to_string(n);
  return s;
}

// A plain way to a point of a Bezier curve.
Vec2 Bezier(std::vector<Vec2> p, double t) {
  while (p.size() > 1) {
    for (std::size_t i = 0; i + 1 < p.size(); ++i)
      p[i] = {p[i].x + (p[i + 1].x - p[i].x) * t, p[i].y + (p[i + 1].y - p[i].y) * t};
    p.pop_back();
  }
  return p[0];
}

// Greatest distance of the curve from the chords and of the chords from the curve (to a dense sample of it).
void AttendCourbe(const Trait& t, const std::vector<Vec2>& echantillon, double fleche) {
  for (const Vec2& p : echantillon) ASSERT_LE(Distance(p, t), fleche);
  const Trait courbe{echantillon, Nature::Ouvert};
  EXPECT_LE(EcartMax(t, [&](Vec2 p) { return Distance(p, courbe); }), fleche + 1e-4);
}

}  // namespace

TEST(Spline, CubicBezierIsWithinTheToleranceWithExactEnds) {
  const Lecture l = LitEntites("0=SPLINE 8=0 70=8 71=3 72=8 73=4 74=0" + Noeuds({0, 0, 0, 0, 1, 1, 1, 1}) +
                               " 10=0 20=0 30=0 10=0 20=30 30=0 10=40 20=-20 30=0 10=50 20=10 30=0");
  const Trait& t = l.traits.at(0);
  EXPECT_EQ(t.nature, Nature::Ouvert);
  AttendPoint(t.points.front(), 0, 0, 0);
  AttendPoint(t.points.back(), 50, 10, 0);
  std::vector<Vec2> e;
  for (int i = 0; i <= 1000; ++i) e.push_back(Bezier({{0, 0}, {0, 30}, {40, -20}, {50, 10}}, i / 1000.0));
  AttendCourbe(t, e, 0.01);
  EXPECT_LT(t.points.size(), 80u);
}

TEST(Spline, OfDegreeOneIsItsPolygon) {
  const Lecture l =
      LitEntites("0=SPLINE 70=8 71=1 72=5 73=3" + Noeuds({0, 0, 1, 2, 2}) + " 10=0 20=0 10=5 20=5 10=10 20=0");
  ASSERT_EQ(l.traits.at(0).points.size(), 3u);
  AttendPoint(l.traits[0].points[1], 5, 5);
}

TEST(Spline, OfDegreeFiveAgreesWithItsBezierForm) {
  const Lecture l = LitEntites("0=SPLINE 70=8 71=5 72=12 73=6" + Noeuds({0, 0, 0, 0, 0, 0, 2, 2, 2, 2, 2, 2}) +
                               " 10=0 20=0 10=10 20=40 10=20 20=-40 10=30 20=40 10=40 20=-40 10=50 20=0");
  std::vector<Vec2> e;
  for (int i = 0; i <= 1000; ++i)
    e.push_back(Bezier({{0, 0}, {10, 40}, {20, -40}, {30, 40}, {40, -40}, {50, 0}}, i / 1000.0));
  AttendCourbe(l.traits.at(0), e, 0.01);
}

// Weights 1, cos 45, 1 over the corner of a square: a quarter circle, exactly.
TEST(Spline, RationalQuadraticIsAQuarterCircle) {
  const Lecture l = LitEntites("0=SPLINE 70=4 71=2 72=6 73=3" + Noeuds({0, 0, 0, 1, 1, 1}) +
                               " 41=1 41=0.7071067811865476 41=1 10=10 20=0 10=10 20=10 10=0 20=10");
  const Trait& t = l.traits.at(0);
  EXPECT_LE(EcartMax(t, [](Vec2 p) { return std::fabs(std::hypot(p.x, p.y) - 10); }), 0.01);
  for (const Vec2& p : t.points) EXPECT_NEAR(std::hypot(p.x, p.y), 10, 1e-12);
  EXPECT_NEAR(Longueur(t), 5 * std::numbers::pi, 0.01);
}

TEST(Spline, FullCircleOfNineControlPointsIsAContour) {
  const std::string w =
      " 41=1 41=0.7071067811865476 41=1 41=0.7071067811865476 41=1 41=0.7071067811865476 41=1 "
      "41=0.7071067811865476 41=1";
  const Lecture l = LitEntites("0=SPLINE 70=5 71=2 72=12 73=9" + Noeuds({0, 0, 0, 1, 1, 2, 2, 3, 3, 4, 4, 4}) + w +
                               " 10=10 20=0 10=10 20=10 10=0 20=10 10=-10 20=10 10=-10 20=0 10=-10 20=-10 10=0 "
                               "20=-10 10=10 20=-10 10=10 20=0");
  const Trait& t = l.traits.at(0);
  EXPECT_EQ(t.nature, Nature::Ferme);
  EXPECT_NEAR(Aire(t.points), 100 * std::numbers::pi, 20 * std::numbers::pi * 0.01);
}

TEST(Spline, EqualWeightsChangeNothing) {
  const std::string s = Noeuds({0, 0, 0, 1, 1, 1}) + " 10=0 20=0 10=5 20=10 10=10 20=0";
  const Lecture sans = LitEntites("0=SPLINE 70=8 71=2" + s);
  const Lecture avec = LitEntites("0=SPLINE 70=8 71=2" + s + " 41=1 41=1 41=1");
  EXPECT_EQ(sans.traits.at(0).points, avec.traits.at(0).points);
}

// Uniform cubic, four control points repeated around: at a knot the curve passes (p0 + 4 p1 + p2) / 6.
TEST(Spline, PeriodicOneClosesSmoothly) {
  const std::string c = " 10=0 20=0 10=12 20=0 10=12 20=12 10=0 20=12";
  const std::string tour = c + " 10=0 20=0 10=12 20=0 10=12 20=12";
  const Lecture l = LitEntites("0=SPLINE 70=11 71=3 72=11 73=7" + Noeuds({-3, -2, -1, 0, 1, 2, 3, 4, 5, 6, 7}) +
                               tour + " 0=SPLINE 70=11 71=3 73=4" + c);
  ASSERT_EQ(l.traits.size(), 2u);
  for (const Trait& t : l.traits) {
    EXPECT_EQ(t.nature, Nature::Ferme);
    EXPECT_LE(Distance({10, 2}, t), 1e-9);
    EXPECT_LE(Distance({2, 10}, t), 1e-9);
    EXPECT_GT(Aire(t.points), 0);
  }
}

TEST(Spline, RepeatedKnotsMakeACorner) {
  const Lecture l = LitEntites("0=SPLINE 70=8 71=2 72=8 73=5" + Noeuds({0, 0, 0, 1, 1, 2, 2, 2}) +
                               " 10=0 20=0 10=5 20=0 10=10 20=10 10=15 20=0 10=20 20=0");
  EXPECT_LE(Distance({10, 10}, l.traits.at(0)), 1e-12);
}

TEST(Spline, WithoutKnotsHasClampedEnds) {
  const Trait t = LitEntites("0=SPLINE 70=8 71=3 10=0 20=0 10=0 20=30 10=40 20=-20 10=50 20=10").traits.at(0);
  AttendPoint(t.points.front(), 0, 0, 0);
  AttendPoint(t.points.back(), 50, 10, 0);
}

TEST(Spline, OutermostKnotsMayBeMissing) {
  const std::string c = " 10=0 20=0 10=0 20=30 10=40 20=-20 10=50 20=10";
  const Lecture l = LitEntites("0=SPLINE 70=8 71=3" + Noeuds({0, 0, 0, 1, 1, 1}) + c + " 0=SPLINE 70=8 71=3" +
                               Noeuds({0, 0, 0, 0, 1, 1, 1, 1}) + c);
  EXPECT_EQ(l.traits.at(0).points, l.traits.at(1).points);
}

TEST(Spline, ThatDoesNotFitTogetherIsLeftOutAndCounted) {
  const std::string c = " 10=0 20=0 10=5 20=10 10=10 20=0";
  const Lecture l =
      LitEntites("0=SPLINE 70=8 71=2" + Noeuds({0, 0, 0, 1, 1, 1, 1, 1, 1}) + c +               // too many knots
                 " 0=SPLINE 70=8 71=2" + Noeuds({0, 0, 0, 1, 0.5, 1}) + c +                     // falling
                 " 0=SPLINE 70=8 71=2" + Noeuds({0, 0, 0, 0, 0, 0}) + c +                       // no span
                 " 0=SPLINE 70=8 71=3" + c +                                                    // too few points
                 " 0=SPLINE 70=8 71=99" + c + " 0=SPLINE 70=8 71=-1" + c +                      // degree
                 " 0=SPLINE 70=4 71=2" + Noeuds({0, 0, 0, 1, 1, 1}) + " 41=1 41=-1 41=1" + c +  // weight
                 " 0=SPLINE 70=4 71=2" + Noeuds({0, 0, 0, 1, 1, 1}) + " 41=1 41=2" + c +        // a weight short
                 " 0=SPLINE 70=8 71=2" + Noeuds({0, 0, 0, 1, 1, 1}) + " 0=SPLINE 70=0");
  EXPECT_TRUE(l.traits.empty());
  EXPECT_EQ(Ignores(l, "SPLINE"), 10);
}

TEST(Spline, OfOnePlaceIsLeftOut) {
  EXPECT_EQ(Ignores(LitEntites("0=SPLINE 70=8 71=2 10=1 20=1 10=1 20=1 10=1 20=1"), "SPLINE"), 1);
}

TEST(SplineThroughPoints, TwoPointsAreALine) {
  const Trait t = LitEntites("0=SPLINE 70=8 71=3 74=2 11=0 21=0 31=0 11=30 21=40 31=0").traits.at(0);
  EXPECT_NEAR(Longueur(t), 50, 1e-9);
}

TEST(SplineThroughPoints, PassesThroughAllOfThemInOrder) {
  const std::vector<Vec2> p = {{0, 0}, {10, 5}, {12, 20}, {40, 10}, {41, 0}};
  std::string s = "0=SPLINE 70=8 71=3 74=5";
  for (const Vec2& q : p) s += " 11=" + std::to_string(q.x) + " 21=" + std::to_string(q.y) + " 31=0";
  const Trait t = LitEntites(s).traits.at(0);
  std::size_t i = 0;
  for (const Vec2& q : t.points) {
    if (i < p.size() && std::hypot(q.x - p[i].x, q.y - p[i].y) < 1e-9) ++i;
  }
  EXPECT_EQ(i, p.size());
}

// Points of a parabola with its end tangents: a cubic with two continuous derivatives that meets three points
// spaced evenly in the parameter is the parabola itself when the parameter is x; the chord parameter differs a
// little, so the curve lies near it, not on it.
TEST(SplineThroughPoints, KeepsTheGivenTangents) {
  const Trait t =
      LitEntites("0=SPLINE 70=8 71=3 74=2 11=0 21=0 11=10 21=0 12=0 22=5 13=0 23=-5", 0.0001).traits.at(0);
  // Cubic with chord 10 and unit tangents up and down: x = 30u^2-20u^3, y = 10u - 10u^2; top at u = 1/2,
  // height 2.5.
  EXPECT_NEAR(BoiteDe(t.points).ymax, 2.5, 0.0001);
  EXPECT_LE(Distance({5, 2.5}, t), 0.0001);
}

TEST(SplineThroughPoints, ThreePointsWithFreeEndsHaveTheKnownMiddleTangent) {
  // Even chords of length 5: the natural spline through (0,0), (3,4), (6,0) has the middle tangent (3/5, 0) and,
  // from 2 m0 + m1 = 3 d, the end tangent (0.6, 1.2). Middle of the first piece by Hermite's formula:
  // (p0 + p1)/2 + 5 (m0 - m1)/8 = (1.5, 2.75).
  const Trait t = LitEntites("0=SPLINE 70=8 71=3 74=3 11=0 21=0 11=3 21=4 11=6 21=0", 0.0001).traits.at(0);
  EXPECT_LE(Distance({1.5, 2.75}, t), 0.0001);
  EXPECT_LE(Distance({4.5, 2.75}, t), 0.0001);
  EXPECT_NEAR(BoiteDe(t.points).ymax, 4, 1e-6);
}

TEST(SplineThroughPoints, ClosedThroughASquareHasItsSymmetry) {
  // Corners of a square of side 10: by symmetry the tangents are those of its diagonals' normals, of length
  // 3/(4) * sqrt 2 in each unit of chord: m = (p(i+1) - p(i-1)) * 3 / (4 * 10) -> (0.75, 0.75).
  const Trait t =
      LitEntites("0=SPLINE 70=1 71=3 74=4 11=0 21=0 11=10 21=0 11=10 21=10 11=0 21=10", 0.0001).traits.at(0);
  EXPECT_EQ(t.nature, Nature::Ferme);
  // Middle of a side: (p0 + p1)/2 + 10 (m0 - m1)/8 = 10 * 1.5 / 8 = 1.875 outside.
  const Boite b = BoiteDe(t.points);
  EXPECT_NEAR(b.ymin, -1.875, 0.0001);
  EXPECT_NEAR(b.xmax, 11.875, 0.0001);
  EXPECT_NEAR(b.ymax, 11.875, 0.0001);
  EXPECT_NEAR(b.xmin, -1.875, 0.0001);
}

TEST(SplineThroughPoints, RepeatedPointsCountOnce) {
  const Lecture l = LitEntites(
      "0=SPLINE 70=8 71=3 74=4 11=0 21=0 11=3 21=4 11=3 21=4 11=6 21=0 0=SPLINE 70=8 71=3 74=3 11=0 21=0 11=3 21=4 "
      "11=6 21=0");
  EXPECT_EQ(l.traits.at(0).points, l.traits.at(1).points);
  EXPECT_EQ(Ignores(LitEntites("0=SPLINE 70=8 71=3 74=2 11=1 21=1 11=1 21=1"), "SPLINE"), 1);
}

TEST(Spline, AHundredThousandSpansOfAPolygonGiveAsManyPoints) {
  std::string t = "0\nSECTION\n2\nENTITIES\n0\nSPLINE\n70\n8\n71\n3\n";
  const int n = 100000;
  for (int i = 0; i < n + 4; ++i) t += "40\n" + std::to_string(std::min(std::max(i - 3, 0), n - 3)) + "\n";
  for (int i = 0; i < n; ++i) t += "10\n" + std::to_string(i) + "\n20\n" + std::to_string(i % 2) + "\n";
  const Lecture l = Lit(t + "0\nENDSEC\n0\nEOF\n", 5);
  ASSERT_EQ(l.traits.size(), 1u);
  EXPECT_EQ(l.traits[0].points.size(), static_cast<std::size_t>(n - 2));
}
