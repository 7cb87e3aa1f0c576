// Blocks: nesting, scales, turns, arrays, cycles, bombs.
#include <cmath>
#include <numbers>

#include "tests/unit/closed/pathwerk/lecture/dxf/Outils.h"

using namespace essai;
using pathwerk::Erreur;
using pathwerk::Vec2;
using pathwerk::lecture::Lecture;
using pathwerk::lecture::Nature;
using pathwerk::lecture::Trait;

namespace {

// A block with one line from (0,0) to (2,1).
const std::string BlocA = "0=BLOCK 8=0 2=A 70=0 10=0 20=0 30=0 0=LINE 8=0 10=0 20=0 11=2 21=1 0=ENDBLK 8=0 ";

Lecture LitBlocs(const std::string& blocs, const std::string& entites, double fleche = 0.01) {
  Lecture l = Lit(AvecBlocs(blocs, entites), fleche);
  EXPECT_EQ(l.rapport.Numero, Erreur::Aucune) << l.rapport.Detail;
  return l;
}

}  // namespace

TEST(Insert, PutsTheBlockInItsPlace) {
  const Lecture l = LitBlocs(BlocA, "0=INSERT 2=A 10=10 20=20");
  AttendPoint(l.traits.at(0).points[0], 10, 20);
  AttendPoint(l.traits.at(0).points[1], 12, 21);
}

TEST(Insert, BlocksThatAreNotInsertedAreNotDrawn) { EXPECT_TRUE(LitBlocs(BlocA, "").traits.empty()); }

TEST(Insert, NamesDoNotTellCapitals) { EXPECT_EQ(LitBlocs(BlocA, "0=INSERT 2=a 10=0 20=0").traits.size(), 1u); }

TEST(Insert, OfAnUnknownBlockIsLeftOutAndCounted) {
  EXPECT_EQ(Ignores(LitBlocs(BlocA, "0=INSERT 2=B 10=0 20=0"), "INSERT"), 1);
}

TEST(Insert, BasePointComesToThePlace) {
  const Lecture l = LitBlocs("0=BLOCK 2=A 10=2 20=1 30=7 0=LINE 10=0 20=0 11=2 21=1 0=ENDBLK",
                             "0=INSERT 2=A 10=10 20=10 41=3 42=3");
  AttendPoint(l.traits.at(0).points[0], 4, 7);
  AttendPoint(l.traits.at(0).points[1], 10, 10);
}

TEST(Insert, ScalesThenTurns) {
  // (2, 1) scaled by (2, -3) is (4, -3), turned by 90 degrees (3, 4).
  const Lecture l = LitBlocs(BlocA, "0=INSERT 2=A 10=0 20=0 41=2 42=-3 43=1 50=90");
  AttendPoint(l.traits.at(0).points[1], 3, 4, 1e-15);
}

TEST(Insert, TurnedByThirtyDegrees) {
  const Lecture l = LitBlocs(BlocA, "0=INSERT 2=A 10=0 20=0 50=30");
  const double c = std::sqrt(3) / 2;
  AttendPoint(l.traits.at(0).points[1], 2 * c - 0.5, 1 + c, 1e-12);
}

TEST(Insert, MirroredBulgesTurnTheOtherWay) {
  const std::string b = "0=BLOCK 2=A 10=0 20=0 0=LWPOLYLINE 90=2 70=1 10=0 20=0 42=1 10=10 20=0 42=0 0=ENDBLK";
  const Lecture l = LitBlocs(b, "0=INSERT 2=A 10=0 20=0 42=-1");
  const Boite boite = BoiteDe(l.traits.at(0).points);
  EXPECT_NEAR(boite.ymax, 5, 0.01);
  EXPECT_NEAR(boite.ymin, 0, 1e-9);
  EXPECT_LT(Aire(l.traits[0].points), 0);
}

TEST(Insert, UnevenScaleMakesEllipsesOfArcs) {
  const std::string b =
      "0=BLOCK 2=A 10=0 20=0 0=CIRCLE 10=0 20=0 40=1 0=LWPOLYLINE 90=2 70=1 10=-1 20=0 42=1 10=1 20=0 42=1 "
      "0=ENDBLK";
  const Lecture l = LitBlocs(b, "0=INSERT 2=A 10=0 20=0 41=30 42=10");
  for (const Trait& t : l.traits) {
    EXPECT_NEAR(Aire(t.points), 300 * std::numbers::pi, 140 * 0.01);
    for (const Vec2& p : t.points) EXPECT_NEAR(std::hypot(p.x / 30, p.y / 10), 1, 1e-12);
  }
  EXPECT_NEAR(BoiteDe(l.traits.at(0).points).ymax, 10, 1e-9);
}

TEST(Insert, ToleranceHoldsInTheFinalSize) {
  const std::string b =
      "0=BLOCK 2=A 10=0 20=0 0=CIRCLE 10=0 20=0 40=0.05 0=SPLINE 70=8 71=2 40=0 40=0 40=0 40=1 40=1 40=1 10=-0.05 "
      "20=0 10=0 20=0.1 10=0.05 20=0 0=ENDBLK";
  const Lecture l = LitBlocs(b, "0=INSERT 2=A 10=0 20=0 41=100 42=100");
  ASSERT_EQ(l.traits.size(), 2u);
  EXPECT_LE(EcartMax(l.traits[0], [](Vec2 p) { return std::fabs(std::hypot(p.x, p.y) - 5); }), 0.010001);
  // The parabola y = 5 - x^2 / 5, looked at upright, which is never less than the distance.
  EXPECT_GT(l.traits[1].points.size(), 10u);
  EXPECT_LE(
      EcartMax(l.traits[1], [](Vec2 p) { return std::fabs(p.y - (5 - p.x * p.x / 5)) / std::hypot(1, p.x * 0.4); }),
      0.0101);
  // Made small the same block takes few chords.
  EXPECT_EQ(LitBlocs(b, "0=INSERT 2=A 10=0 20=0 41=0.1 42=0.1").traits.at(0).points.size(), 8u);
}

TEST(Insert, HeightScaleZeroCountsAsOne) {
  EXPECT_EQ(LitBlocs(BlocA, "0=INSERT 2=A 10=0 20=0 41=1 42=1 43=0").traits.size(), 1u);
  // It matters when the block is seen from the side: a line of height 3 in a block tilted by 45 degrees.
  const std::string b = "0=BLOCK 2=A 10=0 20=0 0=LINE 10=0 20=0 30=0 11=0 21=0 31=3 0=ENDBLK";
  const Lecture l = LitBlocs(b, "0=INSERT 2=A 10=0 20=0 43=0 210=0 220=1 230=1");
  AttendPoint(l.traits.at(0).points[1], 0, 3 * std::sqrt(0.5));
}

TEST(Insert, ScaleZeroInTheDrawingIsLeftOutAndCounted) {
  EXPECT_EQ(Ignores(LitBlocs(BlocA, "0=INSERT 2=A 10=0 20=0 41=0 0=INSERT 2=A 10=0 20=0 42=0"), "INSERT"), 2);
}

TEST(Insert, ExtrusionDownwardMirrorsPlaceAndContent) {
  const Lecture l = LitBlocs(BlocA, "0=INSERT 2=A 10=10 20=5 50=90 210=0 220=0 230=-1");
  AttendPoint(l.traits.at(0).points[0], -10, 5);
  AttendPoint(l.traits.at(0).points[1], -9, 7, 1e-12);
}

TEST(Insert, Nested) {
  // B holds A doubled at (10, 0) and turned by 90 degrees; B is mirrored in X at (100, 0).
  const Lecture l = LitBlocs(
      BlocA + "0=BLOCK 2=B 10=0 20=0 0=INSERT 2=A 10=10 20=0 41=2 42=2 50=90 0=LINE 10=0 20=0 11=1 21=0 0=ENDBLK",
      "0=INSERT 2=B 10=100 20=0 41=-1");
  ASSERT_EQ(l.traits.size(), 2u);
  AttendPoint(l.traits[0].points[0], 90, 0);
  AttendPoint(l.traits[0].points[1], 92, 4, 1e-12);
  AttendPoint(l.traits[1].points[1], 99, 0);
}

TEST(Insert, ArrayRunsByColumnsThenRowsWithUnscaledSpacings) {
  const Lecture l = LitBlocs(BlocA, "0=INSERT 2=A 10=1 20=2 41=5 42=5 70=3 71=2 44=10 45=20");
  ASSERT_EQ(l.traits.size(), 6u);
  AttendPoint(l.traits[1].points[0], 11, 2);
  AttendPoint(l.traits[2].points[0], 21, 2);
  AttendPoint(l.traits[3].points[0], 1, 22);
  AttendPoint(l.traits[5].points[1], 31, 27);
}

TEST(Insert, ArrayTurnsWithTheInsertion) {
  const Lecture l = LitBlocs(BlocA, "0=INSERT 2=A 10=0 20=0 50=90 70=2 71=2 44=10 45=20");
  AttendPoint(l.traits.at(1).points[0], 0, 10);
  AttendPoint(l.traits.at(2).points[0], -20, 0);
}

TEST(Insert, ArrayOfNoneIsOne) {
  EXPECT_EQ(LitBlocs(BlocA, "0=INSERT 2=A 10=0 20=0 70=0 71=-3").traits.size(), 1u);
}

TEST(Insert, ArraysNest) {
  const Lecture l = LitBlocs(BlocA + "0=BLOCK 2=B 10=0 20=0 0=INSERT 2=A 10=0 20=0 70=3 44=5 0=ENDBLK",
                             "0=INSERT 2=B 10=0 20=0 71=4 45=7");
  ASSERT_EQ(l.traits.size(), 12u);
  AttendPoint(l.traits.back().points[0], 10, 21);
}

TEST(Insert, PointsInBlocksAreHoles) {
  const Lecture l =
      LitBlocs("0=BLOCK 2=A 10=0 20=0 0=POINT 10=1 20=1 0=ENDBLK", "0=INSERT 2=A 10=5 20=5 41=2 42=2");
  EXPECT_EQ(l.traits.at(0).nature, Nature::Percage);
  AttendPoint(l.traits[0].points[0], 7, 7);
}

TEST(Insert, AttributesAreCountedAndDoNotDisturb) {
  const Lecture l = LitBlocs(
      BlocA,
      "0=INSERT 66=1 2=A 10=0 20=0 0=ATTRIB 8=0 10=0 20=0 40=1 1=x 2=NOM 0=SEQEND 8=0 0=LINE 10=0 20=0 11=1 21=1");
  EXPECT_EQ(l.traits.size(), 2u);
  EXPECT_EQ(Ignores(l, "ATTRIB"), 1);
}

TEST(Insert, OfItselfIsRefusedWithItsLine) {
  const Lecture l =
      Lit(AvecBlocs("0=BLOCK 2=A 10=0 20=0 0=INSERT 2=A 10=1 20=1 0=ENDBLK", "0=INSERT 2=A 10=0 20=0"));
  EXPECT_EQ(l.rapport.Numero, Erreur::BlocCyclique);
  EXPECT_EQ(l.rapport.Ligne, 14);
  EXPECT_EQ(l.rapport.Detail, "A");
}

TEST(Insert, OfItselfByWayOfAnotherIsRefused) {
  const std::string b =
      "0=BLOCK 2=A 10=0 20=0 0=INSERT 2=B 10=1 20=1 0=ENDBLK 0=BLOCK 2=B 10=0 20=0 0=INSERT 2=C 10=0 20=0 0=ENDBLK "
      "0=BLOCK 2=C 10=0 20=0 0=LINE 10=0 20=0 11=1 21=1 0=INSERT 2=a 10=0 20=0 0=ENDBLK";
  EXPECT_EQ(Lit(AvecBlocs(b, "0=INSERT 2=B 10=0 20=0")).rapport.Numero, Erreur::BlocCyclique);
}

TEST(Insert, TheSameBlockTwiceOnDifferentWaysIsNoCycle) {
  const std::string b = BlocA +
                        "0=BLOCK 2=B 10=0 20=0 0=INSERT 2=A 10=1 20=1 0=ENDBLK 0=BLOCK 2=C 10=0 20=0 0=INSERT 2=A "
                        "10=0 20=0 0=INSERT 2=B 10=0 20=0 0=ENDBLK";
  EXPECT_EQ(LitBlocs(b, "0=INSERT 2=C 10=0 20=0 0=INSERT 2=C 10=0 20=0").traits.size(), 4u);
}

TEST(Insert, BombOfNestedBlocksIsRefused) {
  std::string b;
  for (int i = 0; i < 20; ++i) {
    b += "0=BLOCK 2=B" + std::to_string(i) + " 10=0 20=0 ";
    for (int k = 0; k < 10; ++k)
      b += i == 19 ? "0=LINE 10=0 20=0 11=1 21=1 " : "0=INSERT 10=0 20=0 2=B" + std::to_string(i + 1) + " ";
    b += "0=ENDBLK ";
  }
  const Lecture l = Lit(AvecBlocs(b, "0=INSERT 2=B0 10=0 20=0"));
  EXPECT_EQ(l.rapport.Numero, Erreur::Memoire);
  EXPECT_LT(l.traits.size(), 1000000u);
}

TEST(Insert, ArraysOfNothingAreRefusedInTime) {
  const std::string b = "0=BLOCK 2=A 10=0 20=0 0=TEXT 1=x 0=ENDBLK 0=BLOCK 2=V 10=0 20=0 0=ENDBLK";
  EXPECT_EQ(Lit(AvecBlocs(b, "0=INSERT 2=A 10=0 20=0 70=32767 71=32767")).rapport.Numero, Erreur::Memoire);
  EXPECT_EQ(Lit(AvecBlocs(b, "0=INSERT 2=V 10=0 20=0 70=32767 71=32767")).rapport.Numero, Erreur::Memoire);
}

TEST(Insert, APerforatedSheetIsNoBomb) {
  const std::string b = "0=BLOCK 2=A 10=0 20=0 0=CIRCLE 10=0 20=0 40=2 0=ENDBLK";
  EXPECT_EQ(LitBlocs(b, "0=INSERT 2=A 10=0 20=0 70=100 71=80 44=5 45=5").traits.size(), 8000u);
}

TEST(Insert, DeepNestingHasAnEnd) {
  const auto chaine = [](int n) {
    std::string b;
    for (int i = 0; i < n; ++i)
      b += "0=BLOCK 2=B" + std::to_string(i) + " 10=0 20=0 0=INSERT 2=B" + std::to_string(i + 1) +
           " 10=1 20=0 0=ENDBLK ";
    return b + "0=BLOCK 2=B" + std::to_string(n) + " 10=0 20=0 0=LINE 10=0 20=0 11=1 21=0 0=ENDBLK";
  };
  AttendPoint(LitBlocs(chaine(100), "0=INSERT 2=B0 10=0 20=0").traits.at(0).points[1], 101, 0);
  EXPECT_EQ(Lit(AvecBlocs(chaine(5000), "0=INSERT 2=B0 10=0 20=0")).rapport.Numero, Erreur::Memoire);
}

TEST(Insert, ManyHugeCirclesAreRefusedAndNotDrawn) {
  const std::string b = "0=BLOCK 2=A 10=0 20=0 0=CIRCLE 10=0 20=0 40=1e6 0=ENDBLK";
  EXPECT_EQ(Lit(AvecBlocs(b, "0=INSERT 2=A 10=0 20=0 70=1000 71=1000 44=1")).rapport.Numero, Erreur::Memoire);
}
