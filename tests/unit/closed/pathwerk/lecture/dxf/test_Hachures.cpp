// Boundaries of hatches: drawn where nothing else draws them.
#include <cmath>
#include <numbers>

#include "closed/pathwerk/lecture/dxf/Couverture.h"
#include "tests/unit/closed/pathwerk/lecture/dxf/Outils.h"

using namespace essai;
using pathwerk::lecture::Lecture;
using pathwerk::lecture::Nature;
using pathwerk::lecture::Trait;

namespace {

const std::string DebutHachure = "0=HATCH 8=0 10=0 20=0 30=0 210=0 220=0 230=1 2=ANSI31 70=0 71=0 ";
const std::string FinHachure = " 75=1 76=1 52=0 41=1 78=1 53=45 43=0 44=0 45=-2 46=2 79=0 98=1 10=77 20=77 ";
// A square of side 10 as the boundary of a hatch, as an outline, and as four lines.
const std::string SommetsCarre = "10=0 20=0 10=10 20=0 10=10 20=10 10=0 20=10";
const std::string EntiteHachure = DebutHachure + "91=1 92=3 72=0 73=1 93=4 " + SommetsCarre + " 97=0" + FinHachure;
const std::string EntiteContour = "0=LWPOLYLINE 8=0 90=4 70=1 " + SommetsCarre + " ";

std::string Aretes(int n, const std::string& aretes) {
  return DebutHachure + "91=1 92=1 93=" + std::to_string(n) + " " + aretes + " 97=1 330=1F" + FinHachure;
}

}  // namespace

TEST(Hatch, BoundaryThatNothingElseDrawsIsAContour) {
  const Lecture l = LitEntites(EntiteHachure);
  ASSERT_EQ(l.traits.size(), 1u);
  EXPECT_EQ(l.traits[0].nature, Nature::Ferme);
  EXPECT_EQ(l.traits[0].points.size(), 4u);
  EXPECT_DOUBLE_EQ(Aire(l.traits[0].points), 100);
  EXPECT_EQ(Ignores(l, "HATCH"), 0);
}

// A line and a half circle above it: the arc keeps each of its chords, the first one too.
TEST(Hatch, EdgesOfAnArcBehindALineLoseNoPoint) {
  const Lecture l = LitEntites(Aretes(2, "72=1 10=0 20=0 11=10 21=0 72=2 10=5 20=0 40=5 50=0 51=180 73=1"));
  ASSERT_EQ(l.traits.size(), 1u);
  const auto& p = l.traits[0].points;
  ASSERT_GT(p.size(), 20u);
  for (std::size_t i = 1; i < p.size(); ++i) {
    if (p[i].y < 1e-9 && p[i - 1].y < 1e-9) continue;  // the line
    EXPECT_GT(std::hypot((p[i].x + p[i - 1].x) / 2 - 5, (p[i].y + p[i - 1].y) / 2), 5 - 0.0101) << i;
  }
}

TEST(Hatch, EdgesWithAGapKeepBothEnds) {
  const Lecture l =
      LitEntites(Aretes(3, "72=1 10=0 20=0 11=10 21=0 72=1 10=10 20=0.5 11=5 21=10 72=1 10=5 20=10 11=0 21=0"));
  ASSERT_EQ(l.traits.size(), 1u);
  EXPECT_EQ(l.traits[0].points.size(), 4u);
}

TEST(Hatch, BoundaryThatAnOutlineDrawsIsLeftOut) {
  for (const std::string& t : {EntiteHachure + EntiteContour, EntiteContour + EntiteHachure}) {
    const Lecture l = LitEntites(t);
    ASSERT_EQ(l.traits.size(), 1u);
    EXPECT_EQ(Ignores(l, "HATCH"), 1);
  }
}

TEST(Hatch, BoundaryThatLooseLinesDrawIsLeftOut) {
  const Lecture l =
      LitEntites(EntiteHachure +
                 "0=LINE 10=-5 20=0 11=15 21=0 0=LINE 10=10 20=0 11=10 21=4 0=LINE 10=10 20=4 11=10 21=10 "
                 "0=LINE 10=0 20=10 11=10 21=10 0=LINE 10=0 20=10 11=0 21=0");
  EXPECT_EQ(l.traits.size(), 5u);
  EXPECT_EQ(Ignores(l, "HATCH"), 1);
}

TEST(Hatch, BoundaryWithASideOfItsOwnIsDrawn) {
  const Lecture l = LitEntites(
      EntiteHachure + "0=LINE 10=0 20=0 11=10 21=0 0=LINE 10=10 20=0 11=10 21=10 0=LINE 10=0 20=10 11=10 21=10");
  ASSERT_EQ(l.traits.size(), 4u);
  EXPECT_EQ(l.traits[0].nature, Nature::Ferme);
}

TEST(Hatch, LinesThatOnlyCrossTheBoundaryDoNotDrawIt) {
  // Through the corners and the middles of all sides.
  const Lecture l = LitEntites(EntiteHachure +
                               "0=LINE 10=0 20=0 11=10 21=10 0=LINE 10=10 20=0 11=0 21=10 0=LINE 10=5 20=-5 11=5 "
                               "21=15 0=LINE 10=-5 20=5 11=15 21=5");
  EXPECT_EQ(l.traits.size(), 5u);
}

TEST(Hatch, CircleAndItsOutlineInOtherChordsAreTheSame) {
  const std::string bord = Aretes(1, "72=2 10=5 20=5 40=4 50=17 51=377 73=1");
  EXPECT_NEAR(Aire(LitEntites(bord).traits.at(0).points), 16 * std::numbers::pi, 0.3);
  EXPECT_EQ(LitEntites(bord + "0=CIRCLE 10=5 20=5 40=4").traits.size(), 1u);
  EXPECT_EQ(LitEntites(bord + "0=CIRCLE 10=5 20=5 40=4.1").traits.size(), 2u);
}

TEST(Hatch, OtherHatchesDoNotCountAsDrawing) {
  EXPECT_EQ(LitEntites(EntiteHachure + EntiteHachure).traits.size(), 2u);
}

TEST(Hatch, EachBoundaryIsJudgedByItself) {
  const Lecture l =
      LitEntites(DebutHachure + "91=2 92=3 72=0 73=1 93=4 " + SommetsCarre +
                 " 97=0 92=3 72=0 73=1 93=3 10=2 20=2 10=4 20=2 10=4 20=4 97=0" + FinHachure + EntiteContour);
  ASSERT_EQ(l.traits.size(), 2u);
  EXPECT_DOUBLE_EQ(Aire(l.traits[0].points), 2);
  EXPECT_EQ(Ignores(l, "HATCH"), 0);
}

TEST(Hatch, PolylineBoundaryWithBulges) {
  const Lecture l =
      LitEntites(DebutHachure + "91=1 92=3 72=1 73=1 93=2 10=0 20=0 42=1 10=10 20=0 42=1 97=0" + FinHachure);
  EXPECT_NEAR(Aire(l.traits.at(0).points), 25 * std::numbers::pi, 10 * std::numbers::pi * 0.01);
}

TEST(Hatch, EdgesOfAllKindsMakeOneContour) {
  // Along the bottom, a half circle at the right (around (10, 3), radius 3), a half ellipse back over the top
  // (around (0, 6), half axes 10 to the right and 2 up would be a half; here its quarter to (0, 8)), a curve down.
  const Lecture l = LitEntites(
      Aretes(4,
             "72=1 10=0 20=0 11=10 21=0 72=2 10=10 20=3 40=3 50=270 51=90 73=1 "
             "72=3 10=0 20=6 11=10 21=0 40=0.2 50=0 51=90 73=1 "
             "72=4 94=2 73=0 74=0 95=6 96=3 40=0 40=0 40=0 40=1 40=1 40=1 10=0 20=8 10=-4 20=4 10=0 20=0 97=0"));
  ASSERT_EQ(l.traits.size(), 1u);
  const Trait& t = l.traits[0];
  EXPECT_EQ(t.nature, Nature::Ferme);
  // Rectangle 10 x 6, half disc, quarter ellipse, and the parabola: two thirds of its triangle (8 * 4 / 2).
  EXPECT_NEAR(Aire(t.points), 60 + 4.5 * std::numbers::pi + 5 * std::numbers::pi + 2.0 / 3 * 16, 0.4);
}

TEST(Hatch, RationalSplineEdge) {
  // A quarter circle of radius 10 by weights, closed over the centre.
  const Lecture l = LitEntites(Aretes(3,
                                      "72=4 94=2 73=1 74=0 95=6 96=3 40=0 40=0 40=0 40=1 40=1 40=1 10=10 20=0 42=1 "
                                      "10=10 20=10 42=0.7071067811865476 "
                                      "10=0 20=10 42=1 97=0 72=1 10=0 20=10 11=0 21=0 72=1 10=0 20=0 11=10 21=0"));
  EXPECT_NEAR(Aire(l.traits.at(0).points), 25 * std::numbers::pi, 0.2);
}

TEST(Hatch, CoordinatesThatAreNoneAreKeptToBeRefused) {
  const Lecture l = LitEntites(DebutHachure + "91=1 92=3 72=0 73=1 93=3 10=0 20=0 10=nan 20=0 10=5 20=5 97=0" +
                               FinHachure + EntiteContour);
  EXPECT_EQ(l.traits.size(), 2u);
}

TEST(Hatch, ClockwiseArcsAreWrittenMirrored) {
  // From (10, 0) clockwise to (0, -10): written as 0 to 90 of the mirror image. Closed by two lines.
  const Lecture l = LitEntites(
      Aretes(3, "72=2 10=0 20=0 40=10 50=0 51=90 73=0 72=1 10=0 20=-10 11=0 21=0 72=1 10=0 20=0 11=10 21=0"));
  EXPECT_NEAR(Aire(l.traits.at(0).points), -25 * std::numbers::pi, 0.2);
  AttendPoint(l.traits[0].points.front(), 10, 0, 1e-9);
  EXPECT_NEAR(BoiteDe(l.traits[0].points).ymin, -10, 1e-9);
}

TEST(Hatch, EllipseAnglesAreThoseSeenFromTheCentre) {
  // Half axes 10 and 5; the angle 45 degrees meets the ellipse where x = y = 10 / sqrt 5.
  const Lecture l = LitEntites(Aretes(3,
                                      "72=3 10=0 20=0 11=10 21=0 40=0.5 50=0 51=45 73=1 72=1 10=4.472135955 "
                                      "20=4.472135955 11=0 21=0 72=1 10=0 20=0 11=10 21=0"));
  EXPECT_LE(Distance({4.472135955, 4.472135955}, l.traits.at(0)), 1e-6);
  EXPECT_NEAR(BoiteDe(l.traits[0].points).ymax, 4.472135955, 1e-6);
}

TEST(Hatch, EdgesWrittenBackwardAreTurned) {
  const Lecture l = LitEntites(Aretes(4,
                                      "72=1 10=10 20=0 11=0 21=0 72=1 10=10 20=0 11=10 21=10 72=1 10=0 20=10 11=10 "
                                      "21=10 72=1 10=0 20=10 11=0 21=0"));
  EXPECT_EQ(l.traits.at(0).points.size(), 4u);
  EXPECT_DOUBLE_EQ(Aire(l.traits[0].points), 100);
}

TEST(Hatch, BoxesOfTextsAreNotDrawn) {
  const Lecture l = LitEntites(DebutHachure + "91=1 92=11 72=0 73=1 93=4 " + SommetsCarre + " 97=0" + FinHachure);
  EXPECT_TRUE(l.traits.empty());
  EXPECT_EQ(Ignores(l, "HATCH"), 1);
}

TEST(Hatch, WithoutBoundaryIsCounted) {
  EXPECT_EQ(Ignores(LitEntites(DebutHachure + "91=0" + FinHachure), "HATCH"), 1);
}

TEST(Hatch, ExtrusionDownwardMirrorsIt) {
  const Lecture l = LitEntites(
      "0=HATCH 10=0 20=0 30=0 210=0 220=0 230=-1 2=SOLID 91=1 92=3 72=0 73=1 93=3 10=0 20=0 10=4 20=0 10=4 20=3 "
      "97=0 75=0");
  EXPECT_DOUBLE_EQ(Aire(l.traits.at(0).points), -6);
  EXPECT_DOUBLE_EQ(BoiteDe(l.traits[0].points).xmin, -4);
}

TEST(Hatch, InABlockIsScaledAndComparedInTheDrawing) {
  const std::string b = "0=BLOCK 2=A 10=0 20=0 " + EntiteHachure + "0=ENDBLK";
  Lecture l = Lit(AvecBlocs(b, "0=INSERT 2=A 10=0 20=0 41=2 42=2"));
  EXPECT_DOUBLE_EQ(Aire(l.traits.at(0).points), 400);
  l = Lit(AvecBlocs(b, "0=INSERT 2=A 10=0 20=0 0=INSERT 2=A 10=50 20=0 " + EntiteContour));
  ASSERT_EQ(l.traits.size(), 2u);
  EXPECT_EQ(Ignores(l, "HATCH"), 1);
}

TEST(TraitsCouverts, ManyPathsOverOneAnother) {
  // 200 squares in question of which every second is drawn by four single lines.
  std::vector<Trait> traits;
  std::vector<std::size_t> rangs;
  for (int i = 0; i < 200; ++i) {
    const double x = i * 20;
    rangs.push_back(traits.size());
    traits.push_back({{{x, 0}, {x + 10, 0}, {x + 10, 10}, {x, 10}}, Nature::Ferme});
    if (i % 2 != 0) continue;
    traits.push_back({{{x, 0}, {x + 10, 0}}, Nature::Ouvert});
    traits.push_back({{{x + 10, 10}, {x + 10, 0}}, Nature::Ouvert});
    traits.push_back({{{x + 10, 10}, {x, 10}}, Nature::Ouvert});
    traits.push_back({{{x, 0}, {x, 10}}, Nature::Ouvert});
  }
  const std::vector<char> c = pathwerk::lecture::dxf::TraitsCouverts(traits, rangs, 0.035);
  for (std::size_t i = 0; i < c.size(); ++i) EXPECT_EQ(c[i] != 0, i % 2 == 0) << i;
}

TEST(TraitsCouverts, HolesDrawNothing) {
  const std::vector<Trait> traits = {{{{0, 0}, {0.01, 0}, {0, 0.01}}, Nature::Ferme}, {{{0, 0}}, Nature::Percage}};
  EXPECT_EQ(pathwerk::lecture::dxf::TraitsCouverts(traits, {0}, 1).at(0), 0);
}
