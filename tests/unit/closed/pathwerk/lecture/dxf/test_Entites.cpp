// Simple entities, polylines, faces; what is left out.
#include <cmath>
#include <numbers>

#include "tests/unit/closed/pathwerk/lecture/dxf/Outils.h"

using namespace essai;
using pathwerk::lecture::Lecture;
using pathwerk::lecture::Nature;
using pathwerk::lecture::Trait;

TEST(Line, IsAnOpenPathOfTwoPoints) {
  const Lecture l = LitEntites("0=LINE 8=0 10=1 20=2 30=9 11=4 21=6 31=-9");
  ASSERT_EQ(l.traits.size(), 1u);
  EXPECT_EQ(l.traits[0].nature, Nature::Ouvert);
  ASSERT_EQ(l.traits[0].points.size(), 2u);
  AttendPoint(l.traits[0].points[0], 1, 2);
  AttendPoint(l.traits[0].points[1], 4, 6);
}

TEST(Line, OfNoLengthIsLeftOutAndCounted) {
  const Lecture l = LitEntites("0=LINE 10=1 20=2 11=1 21=2 0=LINE 10=1 20=2 30=0 11=1 21=2 31=5");
  EXPECT_TRUE(l.traits.empty());
  EXPECT_EQ(Ignores(l, "LINE"), 2);
}

TEST(Line, WithoutItsEndIsLeftOutAndCounted) { EXPECT_EQ(Ignores(LitEntites("0=LINE 10=1 20=2"), "LINE"), 1); }

TEST(Line, OfTheOldestReleasesNeedsNoHeightNorTables) {
  const Lecture l =
      Lit(Texte("0=SECTION 2=HEADER 9=$ACADVER 1=AC1003 0=ENDSEC 0=SECTION 2=ENTITIES 0=LINE 8=0 62=1 10=0.5 20=0 "
                "11=1.5 21=2 0=ENDSEC 0=EOF"));
  ASSERT_EQ(l.traits.size(), 1u);
  AttendPoint(l.traits[0].points[1], 1.5, 2);
}

TEST(Point, IsAHoleToDrill) {
  const Lecture l = LitEntites("0=POINT 8=0 10=7 20=8 30=0");
  ASSERT_EQ(l.traits.size(), 1u);
  EXPECT_EQ(l.traits[0].nature, Nature::Percage);
  ASSERT_EQ(l.traits[0].points.size(), 1u);
  AttendPoint(l.traits[0].points[0], 7, 8);
}

TEST(Point, FeetOfDimensionsAreNoHoles) {
  const Lecture l = LitEntites("0=POINT 8=DEFPOINTS 10=7 20=8 0=LINE 8=Defpoints 10=0 20=0 11=1 21=1");
  ASSERT_EQ(l.traits.size(), 1u);
  EXPECT_EQ(l.traits[0].nature, Nature::Ouvert);
  EXPECT_EQ(Ignores(l, "LAYER"), 1);
}

TEST(Lwpolyline, OpenAndClosed) {
  const std::string p = " 90=3 10=0 20=0 10=3 20=0 10=3 20=4";
  const Lecture l = LitEntites("0=LWPOLYLINE 70=0" + p + " 0=LWPOLYLINE 70=1" + p + " 0=LWPOLYLINE 70=129" + p);
  ASSERT_EQ(l.traits.size(), 3u);
  EXPECT_EQ(l.traits[0].nature, Nature::Ouvert);
  EXPECT_DOUBLE_EQ(Longueur(l.traits[0]), 7);
  for (const std::size_t i : {1u, 2u}) {
    EXPECT_EQ(l.traits[i].nature, Nature::Ferme);
    EXPECT_EQ(l.traits[i].points.size(), 3u);
    EXPECT_DOUBLE_EQ(Longueur(l.traits[i]), 12);
    EXPECT_DOUBLE_EQ(Aire(l.traits[i].points), 6);
  }
}

TEST(Lwpolyline, ThatReturnsToItsStartIsAContour) {
  const Lecture l = LitEntites(
      "0=LWPOLYLINE 90=4 70=0 10=0 20=0 10=3 20=0 10=3 20=4 10=0 20=0 "
      "0=LWPOLYLINE 90=4 70=1 10=0 20=0 10=3 20=0 10=3 20=4 10=0 20=0");
  ASSERT_EQ(l.traits.size(), 2u);
  for (const Trait& t : l.traits) {
    EXPECT_EQ(t.nature, Nature::Ferme);
    EXPECT_EQ(t.points.size(), 3u);
  }
}

TEST(Lwpolyline, ClosedOverTwoVerticesIsOneLine) {
  const Lecture l = LitEntites("0=LWPOLYLINE 90=2 70=1 10=0 20=0 10=3 20=4");
  ASSERT_EQ(l.traits.size(), 1u);
  EXPECT_EQ(l.traits[0].nature, Nature::Ouvert);
  EXPECT_DOUBLE_EQ(Longueur(l.traits[0]), 5);
}

TEST(Lwpolyline, OfOnePlaceIsLeftOutAndCounted) {
  EXPECT_EQ(Ignores(LitEntites("0=LWPOLYLINE 90=2 70=0 10=1 20=1 10=1 20=1 0=LWPOLYLINE 90=0 70=0"), "LWPOLYLINE"),
            2);
}

TEST(Lwpolyline, AnnouncedNumberOfVerticesIsNotTrusted) {
  EXPECT_EQ(LitEntites("0=LWPOLYLINE 90=2000000000 70=0 10=0 20=0 10=1 20=0 10=2 20=0").traits.at(0).points.size(),
            3u);
}

// Two half circles of bulge 1 around (5, 0): the lower one comes first, so it runs counter-clockwise.
TEST(Bulge, TwoOfOneMakeACircle) {
  const Lecture l = LitEntites("0=LWPOLYLINE 90=2 70=1 10=0 20=0 42=1 10=10 20=0 42=1");
  ASSERT_EQ(l.traits.size(), 1u);
  const Trait& t = l.traits[0];
  EXPECT_EQ(t.nature, Nature::Ferme);
  EXPECT_LE(EcartMax(t, [](auto p) { return std::fabs(std::hypot(p.x - 5, p.y) - 5); }), 0.01);
  EXPECT_NEAR(Aire(t.points), 25 * std::numbers::pi, 2 * std::numbers::pi * 5 * 0.01);
  EXPECT_GT(Aire(t.points), 0);
  for (const auto& p : t.points) EXPECT_NEAR(std::hypot(p.x - 5, p.y), 5, 1e-12);
}

TEST(Bulge, NegativeTurnsClockwise) {
  const Lecture l = LitEntites("0=LWPOLYLINE 90=2 70=0 10=0 20=0 42=-1 10=10 20=0");
  const Boite b = BoiteDe(l.traits.at(0).points);
  EXPECT_NEAR(b.ymax, 5, 0.01);
  EXPECT_NEAR(b.ymin, 0, 1e-12);
}

// tan(90/4 degrees) = 0.41421356: a quarter of the circle around (0, 0) through (10, 0) and (0, 10).
TEST(Bulge, QuarterCircle) {
  const Lecture l = LitEntites("0=LWPOLYLINE 90=2 70=0 10=10 20=0 42=0.41421356237309503 10=0 20=10");
  const Trait& t = l.traits.at(0);
  EXPECT_LE(EcartMax(t, [](auto p) { return std::fabs(std::hypot(p.x, p.y) - 10); }), 0.01);
  EXPECT_NEAR(Longueur(t), 5 * std::numbers::pi, 0.01);
  AttendPoint(t.points.front(), 10, 0);
  AttendPoint(t.points.back(), 0, 10);
}

TEST(Bulge, FlatterThanTheToleranceIsItsChord) {
  // height = bulge * half chord = 0.0001 * 50 = 0.005
  EXPECT_EQ(LitEntites("0=LWPOLYLINE 90=2 70=0 10=0 20=0 42=0.0001 10=100 20=0").traits.at(0).points.size(), 2u);
  EXPECT_GT(LitEntites("0=LWPOLYLINE 90=2 70=0 10=0 20=0 42=0.0003 10=100 20=0").traits.at(0).points.size(), 2u);
}

TEST(Bulge, VeryFlatArcKeepsItsHeight) {
  // height 1e-6 * 5e5 = 0.5 over a chord of a kilometre, radius 2.5e11 mm
  const Lecture l = LitEntites("0=LWPOLYLINE 90=2 70=0 10=0 20=0 42=-1e-6 10=1000000 20=0");
  const Boite b = BoiteDe(l.traits.at(0).points);
  EXPECT_NEAR(b.ymax, 0.5, 0.011);
  EXPECT_GE(b.ymin, 0);
}

TEST(Bulge, BetweenEqualVerticesAndAtTheOpenEndMeansNothing) {
  const Lecture l = LitEntites("0=LWPOLYLINE 90=3 70=0 10=0 20=0 42=1 10=0 20=0 42=0 10=5 20=0 42=1");
  EXPECT_EQ(l.traits.at(0).points.size(), 3u);
}

TEST(Polyline, TwoDimensionalWithBulgeOnTheClosingSegment) {
  const Lecture l = LitEntites(
      "0=POLYLINE 66=1 70=1 10=0 20=0 30=0 0=VERTEX 10=0 20=0 0=VERTEX 10=10 20=0 0=VERTEX 10=10 20=10 "
      "0=VERTEX 10=0 20=10 42=1 0=SEQEND");
  const Trait& t = l.traits.at(0);
  EXPECT_EQ(t.nature, Nature::Ferme);
  // A square and a half circle of radius 5 at its left.
  EXPECT_NEAR(Aire(t.points), 100 + 12.5 * std::numbers::pi, 5 * std::numbers::pi * 0.01);
  EXPECT_NEAR(BoiteDe(t.points).xmin, -5, 0.01);
}

TEST(Polyline, ThreeDimensionalIsSeenFromAbove) {
  const Lecture l = LitEntites(
      "0=POLYLINE 66=1 70=8 210=0 220=0 230=-1 0=VERTEX 10=0 20=0 30=0 42=1 70=32 0=VERTEX 10=3 20=4 30=100 70=32 "
      "0=SEQEND");
  ASSERT_EQ(l.traits.at(0).points.size(), 2u);
  EXPECT_DOUBLE_EQ(Longueur(l.traits[0]), 5);
  AttendPoint(l.traits[0].points[1], 3, 4);
}

TEST(Polyline, SmoothedOneLeavesItsFrameOut) {
  const Lecture l = LitEntites(
      "0=POLYLINE 66=1 70=4 75=6 0=VERTEX 10=0 20=50 70=16 0=VERTEX 10=0 20=0 70=8 0=VERTEX 10=1 20=1 70=8 "
      "0=VERTEX 10=2 20=0 70=8 0=VERTEX 10=9 20=50 70=16 0=SEQEND");
  ASSERT_EQ(l.traits.at(0).points.size(), 3u);
  EXPECT_DOUBLE_EQ(BoiteDe(l.traits[0].points).ymax, 1);
}

TEST(Polyline, CurveFitVerticesAreKept) {
  const Lecture l = LitEntites(
      "0=POLYLINE 66=1 70=2 0=VERTEX 10=0 20=0 70=2 0=VERTEX 10=1 20=1 70=1 0=VERTEX 10=2 20=0 70=2 0=SEQEND");
  EXPECT_EQ(l.traits.at(0).points.size(), 3u);
}

// A frame alone: a cubic over four points is the Bezier curve of them; its middle is (p0 + 3 p1 + 3 p2 + p3) / 8.
TEST(Polyline, FrameAloneIsDrawnAsItsSpline) {
  const std::string s =
      " 0=VERTEX 10=0 20=0 70=16 0=VERTEX 10=0 20=8 70=16 0=VERTEX 10=8 20=8 70=16 0=VERTEX 10=8 20=0 70=16 "
      "0=SEQEND";
  const Lecture l = LitEntites("0=POLYLINE 66=1 70=4 75=6" + s + " 0=POLYLINE 66=1 70=5 75=6" + s);
  ASSERT_EQ(l.traits.size(), 2u);
  EXPECT_LE(Distance({4, 6}, l.traits[0]), 0.01);
  AttendPoint(l.traits[0].points.front(), 0, 0);
  AttendPoint(l.traits[0].points.back(), 8, 0);
  // Closed: uniform knots; at a knot the curve is (p0 + 4 p1 + p2) / 6.
  EXPECT_EQ(l.traits[1].nature, Nature::Ferme);
  EXPECT_LE(Distance({8.0 / 6, 40.0 / 6}, l.traits[1]), 0.01);
  EXPECT_LE(Distance({40.0 / 6, 8.0 / 6}, l.traits[1]), 0.01);
}

TEST(Polyline, FrameOfAQuadraticSpline) {
  // Middle of a quadratic Bezier curve: (p0 + 2 p1 + p2) / 4.
  const Lecture l = LitEntites(
      "0=POLYLINE 66=1 70=4 75=5 0=VERTEX 10=0 20=0 70=16 0=VERTEX 10=4 20=8 70=16 0=VERTEX 10=8 20=0 70=16 "
      "0=SEQEND");
  EXPECT_LE(Distance({4, 4}, l.traits.at(0)), 0.01);
  EXPECT_NEAR(BoiteDe(l.traits[0].points).ymax, 4, 0.01);
}

TEST(Polyline, MeshesAndPolyfacesAreLeftOutAndCounted) {
  const std::string v = " 0=VERTEX 10=0 20=0 70=64 0=VERTEX 10=5 20=5 70=64 0=SEQEND ";
  const Lecture l =
      LitEntites("0=POLYLINE 66=1 70=16 71=1 72=2" + v + "0=POLYLINE 66=1 70=64" + v + "0=POLYLINE 66=1 70=17" + v);
  EXPECT_TRUE(l.traits.empty());
  EXPECT_EQ(Ignores(l, "POLYMESH"), 2);
  EXPECT_EQ(Ignores(l, "POLYFACE"), 1);
}

TEST(Polyline, EndsAtTheNextEntityWhenItsEndIsMissing) {
  const Lecture l =
      LitEntites("0=POLYLINE 66=1 70=0 0=VERTEX 10=0 20=0 0=VERTEX 10=1 20=0 0=LINE 10=0 20=0 11=1 21=1");
  EXPECT_EQ(l.traits.size(), 2u);
}

TEST(Polyline, InAnOwnFileTwoVerticesAtOnePlaceAreAHole) {
  const Lecture l =
      Lit(Texte("999=OVELIN " + Section("0=POLYLINE 66=1 70=0 0=VERTEX 10=3 20=4 0=VERTEX 10=3 20=4 0=SEQEND")));
  ASSERT_EQ(l.traits.size(), 1u);
  EXPECT_EQ(l.traits[0].nature, Nature::Percage);
  AttendPoint(l.traits[0].points.at(0), 3, 4);
}

TEST(Polyline, InAnOwnFileNothingIsChanged) {
  const Lecture l =
      Lit(Texte("999=OVELIN " + Section("0=POLYLINE 66=1 70=1 0=VERTEX 10=0 20=0 0=VERTEX 10=3 20=4 0=SEQEND "
                                        "0=POLYLINE 66=1 70=0 0=VERTEX 10=0 20=0 0=VERTEX 10=3 20=0 0=VERTEX 10=3 "
                                        "20=0 0=VERTEX 10=3 20=4 0=VERTEX 10=0 20=0 0=SEQEND")));
  ASSERT_EQ(l.traits.size(), 2u);
  EXPECT_TRUE(l.ordreImpose);
  EXPECT_EQ(l.traits[0].nature, Nature::Ferme);
  EXPECT_EQ(l.traits[0].points.size(), 2u);
  EXPECT_EQ(l.traits[1].nature, Nature::Ouvert);
  EXPECT_EQ(l.traits[1].points.size(), 5u);
}

TEST(Solid, CornersRunLikeAZ) {
  const Lecture l =
      LitEntites("0=SOLID 10=0 20=0 11=4 21=0 12=0 22=3 13=4 23=3 0=TRACE 10=0 20=0 11=4 21=0 12=0 22=3 13=4 23=3");
  ASSERT_EQ(l.traits.size(), 2u);
  for (const Trait& t : l.traits) {
    EXPECT_EQ(t.nature, Nature::Ferme);
    EXPECT_DOUBLE_EQ(Aire(t.points), 12);
    EXPECT_DOUBLE_EQ(Longueur(t), 14);
  }
}

TEST(Solid, TriangleRepeatsItsThirdCornerOrLeavesTheFourthOut) {
  for (const char* dernier : {" 13=0 23=3", ""}) {
    const Lecture l = LitEntites(std::string("0=SOLID 10=0 20=0 11=4 21=0 12=0 22=3") + dernier);
    EXPECT_EQ(l.traits.at(0).points.size(), 3u);
    EXPECT_DOUBLE_EQ(Aire(l.traits[0].points), 6);
  }
}

TEST(Solid, OfOnePlaceIsLeftOut) {
  EXPECT_EQ(Ignores(LitEntites("0=SOLID 10=1 20=1 11=1 21=1 12=1 22=1"), "SOLID"), 1);
}

TEST(Face3D, CornersRunAround) {
  const Lecture l = LitEntites("0=3DFACE 10=0 20=0 30=5 11=4 21=0 31=5 12=4 22=3 32=0 13=0 23=3 33=0");
  EXPECT_EQ(l.traits.at(0).nature, Nature::Ferme);
  EXPECT_DOUBLE_EQ(Aire(l.traits[0].points), 12);
}

TEST(Face3D, HiddenEdgesAreNotDrawn) {
  const std::string coins = "0=3DFACE 10=0 20=0 11=4 21=0 12=4 22=3 13=0 23=3 70=";
  // The second edge (4,0)-(4,3) is hidden: one path around from (4,3) to (4,0).
  Lecture l = LitEntites(coins + "2");
  ASSERT_EQ(l.traits.size(), 1u);
  EXPECT_DOUBLE_EQ(Longueur(l.traits[0]), 11);
  AttendPoint(l.traits[0].points.front(), 4, 3);
  AttendPoint(l.traits[0].points.back(), 4, 0);
  // Two opposite edges hidden.
  l = LitEntites(coins + "5");
  ASSERT_EQ(l.traits.size(), 2u);
  EXPECT_DOUBLE_EQ(Longueur(l.traits[0]) + Longueur(l.traits[1]), 6);
  l = LitEntites(coins + "15");
  EXPECT_TRUE(l.traits.empty());
  EXPECT_EQ(Ignores(l, "3DFACE"), 1);
}

TEST(Face3D, TriangleWithAHiddenEdge) {
  // The fourth corner is the third, so bit 8 belongs to the edge from there to the first.
  const Lecture l = LitEntites("0=3DFACE 10=0 20=0 11=4 21=0 12=4 22=3 13=4 23=3 70=8");
  ASSERT_EQ(l.traits.size(), 1u);
  EXPECT_EQ(l.traits[0].nature, Nature::Ouvert);
  EXPECT_DOUBLE_EQ(Longueur(l.traits[0]), 7);
}

TEST(LireDxf, CountsWhatItLeavesOutByKind) {
  const std::vector<std::string> genres = {"TEXT",   "MTEXT",      "DIMENSION", "LEADER", "MULTILEADER", "MLINE",
                                           "IMAGE",  "RAY",        "XLINE",     "MESH",   "3DSOLID",     "REGION",
                                           "ATTDEF", "ACAD_TABLE", "WIPEOUT",   "HELIX"};
  std::string mots;
  for (const std::string& g : genres) mots += "0=" + g + " 8=0 10=1 20=1 0=" + g + " ";
  const Lecture l = LitEntites(mots + "0=VIEWPORT 8=0 10=1 20=1");
  EXPECT_TRUE(l.traits.empty());
  EXPECT_EQ(l.rapport.Ignores.size(), genres.size());
  for (const std::string& g : genres) EXPECT_EQ(Ignores(l, g), 2) << g;
}

TEST(LireDxf, InventedKindsDoNotFillTheReport) {
  std::string mots;
  for (int i = 0; i < 500; ++i) mots += "0=GENRE" + std::to_string(i) + " ";
  const Lecture l = LitEntites(mots);
  EXPECT_EQ(l.rapport.Ignores.size(), 101u);
  EXPECT_EQ(Ignores(l, "..."), 400);
}
