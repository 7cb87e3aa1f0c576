// The offset of one path: sides, starts, marks, ends, what has no offset.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

#include "tests/unit/closed/pathwerk/controle/Controle.h"

using namespace controle;
using pathwerk::Code2;
using pathwerk::CodeAucun;
using pathwerk::CodePC;
using pathwerk::CodePD;
using pathwerk::PointTrace;

namespace {

long NbMarques(const Trace& t) {
  return std::count_if(t.begin(), t.end(), [](const PointTrace& p) { return p.Cde == CodePC; });
}

PointTrace Marque(const Trace& t) {
  const auto it = std::find_if(t.begin(), t.end(), [](const PointTrace& p) { return p.Cde == CodePC; });
  return it == t.end() ? PointTrace{} : *it;
}

}  // namespace

TEST(DecalSequence, PositiveIsLeftSoOutsideAClockwiseSquareWithRoundedCorners) {
  const auto [r, t] = Decale(EnTrace(Retourne(Carre(10, 20, 30)), true), 3);
  ASSERT_GT(r, 0);
  ASSERT_EQ(Pieces(t).size(), 1U);
  EXPECT_TRUE(EstFermee(t));
  const Boite b = BoiteDe(t);
  EXPECT_NEAR(b.x0, 7, 0.01);
  EXPECT_NEAR(b.y0, 17, 0.01);
  EXPECT_NEAR(b.x1, 43, 0.01);
  EXPECT_NEAR(b.y1, 53, 0.01);
  // Square, four strips, four quarters of a disc; clockwise like its source.
  EXPECT_NEAR(Aire(t), -(900 + 4 * 30 * 3 + std::numbers::pi * 9), 0.3);
  EXPECT_NEAR(Longueur(t), 120 + 2 * std::numbers::pi * 3, 0.1);
}

TEST(DecalSequence, PositiveIsLeftSoInsideACounterClockwiseSquareWithSharpCorners) {
  const auto [r, t] = Decale(EnTrace(Carre(10, 20, 30), true), 3);
  ASSERT_GT(r, 0);
  EXPECT_NEAR(Aire(t), 24 * 24, 0.1);
  EXPECT_LE(t.size(), 6U) << "a square needs no more points than its corners and its start";
}

TEST(DecalSequence, NegativeIsTheOtherSide) {
  const auto [r, t] = Decale(EnTrace(Carre(0, 0, 30), true), -3);
  ASSERT_GT(r, 0);
  EXPECT_NEAR(Aire(t), 900 + 360 + std::numbers::pi * 9, 0.3);
}

TEST(DecalSequence, ReversedPointsAndNegatedDistanceGiveTheSameCurveTheOtherWay) {
  const Forme f = Etoile(3);
  const auto [r1, t1] = Decale(EnTrace(f, true), 1.5);
  const auto [r2, t2] = Decale(EnTrace(Retourne(f), true), -1.5);
  ASSERT_GT(r1, 0);
  ASSERT_GT(r2, 0);
  double a1 = 0, a2 = 0;
  for (const Trace& p : Pieces(t1)) a1 += Aire(p);
  for (const Trace& p : Pieces(t2)) a2 += Aire(p);
  EXPECT_NEAR(a1, -a2, 0.02 * Longueur(t1));
  for (const PointTrace& p : t1) {
    EXPECT_LT(Distance(t2, {static_cast<double>(p.X), static_cast<double>(p.Y)}), 0.02);
  }
}

TEST(DecalSequence, RadiusThatFitsNowhereGivesZeroAndLeavesThePoints) {
  Trace t = EnTrace(Carre(0, 0, 10), true);
  const Trace avant = t;
  EXPECT_EQ(pathwerk::DecalSequence(t, 0.01F, 5.1F, 100), 0);
  EXPECT_EQ(t, avant);
}

TEST(DecalSequence, SlotOfTheCuttersOwnWidthIsStillCut) {
  const Trace fente = EnTrace({{0, 0}, {40, 0}, {40, 3}, {0, 3}}, true);
  const auto [r, t] = Decale(fente, 1.5);
  ASSERT_GT(r, 0);
  const Boite b = BoiteDe(t);
  EXPECT_NEAR(b.x0, 1.5, 0.01);
  EXPECT_NEAR(b.x1, 38.5, 0.01);
  EXPECT_NEAR(b.y0, 1.5, 0.01);
  EXPECT_NEAR(b.y1, 1.5, 0.01);
}

TEST(DecalSequence, CurvedSlotOfTheCuttersOwnWidthComesInOnePieceThoughItsWallsAreThinned) {
  // A band 2 mm wide that winds outwards from 30 to 60 mm in seven and a half turns, its walls drawn by points that
  // don't stand opposite each other. Across it is narrower than 2 mm by up to 0.45 micrometres, as it runs at an
  // angle to the rays, and thinning moves each wall by up to one.
  const double tours = 7.5;
  const auto ajoute = [tours](Forme& f, double part, double cote) {
    const double rayon = 30 + 30 * part + cote;
    f.push_back({rayon * std::cos(2 * std::numbers::pi * tours * part),
                 rayon * std::sin(2 * std::numbers::pi * tours * part)});
  };
  for (const int points : {20011, 50021, 100003}) {
    Forme f;
    for (int i = 0; i <= points; ++i) ajoute(f, 1.0 * i / points, 1);
    const int autres = points * 7 / 9;
    for (int i = autres; i >= 0; --i) ajoute(f, 1.0 * i / autres, -1);
    const auto [r, t] = Decale(EnTrace(f, true), 1);
    ASSERT_GT(r, 0);
    ASSERT_EQ(Pieces(t).size(), 1U) << points << " points";
    // There and back along the middle, 45 mm from the centre on average, and 0.4 mm for the way outwards; the
    // cutter stops 1 mm before both ends.
    EXPECT_NEAR(Longueur(t), 2 * (2 * std::numbers::pi * tours * 45 - 2) + 0.4, 0.1);
  }
}

TEST(DecalSequence, ZeroRadiusGivesTheShapeItself) {
  for (const bool ferme : {true, false}) {
    const Trace s = EnTrace(Etoile(2), ferme);
    for (const int recouvrement : {100, 40}) {
      const auto [r, t] = Decale(s, 0, recouvrement);
      ASSERT_EQ(t.size(), s.size());
      EXPECT_EQ(static_cast<std::size_t>(r), s.size());
      for (std::size_t i = 0; i < t.size(); ++i) EXPECT_TRUE(pathwerk::MemePlace(t[i], s[i]));
    }
  }
}

TEST(DecalSequence, PiecesHaveCodesThatDifferFromTheirNeighboursAndAreNeverTheNoneCode) {
  // Two chambers joined by a passage that the cutter doesn't get through.
  const Forme haltere{{0, 0},   {20, 0},  {20, 9},  {40, 9},  {40, 0},  {60, 0},
                      {60, 20}, {40, 20}, {40, 11}, {20, 11}, {20, 20}, {0, 20}};
  const auto [r, t] = Decale(EnTrace(haltere, true), 3);
  ASSERT_GT(r, 0);
  const std::vector<Trace> p = Pieces(t);
  ASSERT_EQ(p.size(), 2U);
  EXPECT_NE(p[0][0].Seq, p[1][0].Seq);
  for (const PointTrace& q : t) {
    EXPECT_NE(q.Seq, CodeAucun);
    EXPECT_EQ(q.Cde, CodePD);
  }
  for (const Trace& q : p) {
    EXPECT_TRUE(EstFermee(q));
    // Each chamber, and the little that the round cutter gets into the mouth of the passage:
    // 2 * integral of 3 - sqrt(9 - u^2) for u from 0 to 1.
    EXPECT_NEAR(Aire(q), 14 * 14 + 0.113, 0.1);
  }
}

TEST(DecalSequence, HundredPiecesStillChangeCodeFromPieceToPiece) {
  Forme chapelet;  // 120 chambers in a row
  for (int i = 0; i < 120; ++i) {
    const double x = 20.0 * i;
    chapelet.insert(chapelet.end(), {{x, 4}, {x + 4, 0}, {x + 14, 0}, {x + 18, 4}});
  }
  Forme dos = Retourne(chapelet);
  for (P p : dos) chapelet.push_back({p.x, 10 - p.y});
  const auto [r, t] = Decale(EnTrace(chapelet, true), 2);
  ASSERT_GT(r, 0);
  EXPECT_EQ(Pieces(t).size(), 120U);
}

TEST(DecalSequence, PassageThatClosesLeavesAnInnerLoopRunTheOtherWay) {
  // A C, outside: its mouth is narrower than the cutter, so the inside becomes a piece of its own.
  const Forme c{{0, 0},  {30, 0},  {30, 14}, {26, 14}, {26, 4},  {4, 4},
                {4, 26}, {26, 26}, {26, 16}, {30, 16}, {30, 30}, {0, 30}};
  const auto [r, t] = Decale(EnTrace(c, true), -2);
  ASSERT_GT(r, 0);
  const std::vector<Trace> p = Pieces(t);
  ASSERT_EQ(p.size(), 2U);
  EXPECT_LT(Aire(p[0]), 0) << "the inner piece comes first and runs clockwise";
  EXPECT_NEAR(Aire(p[0]), -(18 * 18), 0.7);
  EXPECT_GT(Aire(p[1]), 900);
}

TEST(DecalSequence, ClosedPiecesBeginAtThePlaceNearestToTheFirstPoint) {
  Forme f = Cercle(20, 90);
  for (const std::size_t depart : {0U, 17U, 53U}) {
    Forme g = f;
    std::rotate(g.begin(), g.begin() + static_cast<long>(depart), g.end());
    const auto [r, t] = Decale(EnTrace(g, true), -4);
    ASSERT_GT(r, 0);
    EXPECT_NEAR(static_cast<double>(t[0].X), g[0].x * 24 / 20, 0.02);
    EXPECT_NEAR(static_cast<double>(t[0].Y), g[0].y * 24 / 20, 0.02);
  }
}

TEST(DecalSequence, StartOnAStraightSideIsKeptAsAPoint) {
  const Trace s = EnTrace({{12, 0}, {30, 0}, {30, 30}, {0, 30}, {0, 0}}, true);
  const auto [r, t] = Decale(s, 2);
  ASSERT_GT(r, 0);
  EXPECT_NEAR(static_cast<double>(t.front().X), 12, 1e-3);
  EXPECT_NEAR(static_cast<double>(t.front().Y), 2, 2e-3);
  EXPECT_TRUE(EstFermee(t));
}

TEST(DecalSequence, StartInAnOuterCornerLandsInTheMiddleOfItsArc) {
  const auto [r, t] = Decale(EnTrace(Carre(0, 0, 30), true), -3);
  ASSERT_GT(r, 0);
  EXPECT_NEAR(static_cast<double>(t[0].X), -3 / std::sqrt(2.0), 0.05);
  EXPECT_NEAR(static_cast<double>(t[0].Y), -3 / std::sqrt(2.0), 0.05);
}

TEST(DecalSequence, MarkArrivesAsAPointOfItsOwnAtItsNearestPlace) {
  Trace s = EnTrace({{0, 0}, {12.5, 0}, {30, 0}, {30, 30}, {0, 30}}, true);
  s[1].Cde = CodePC;
  const auto [r, t] = Decale(s, 2);
  ASSERT_GT(r, 0);
  EXPECT_EQ(NbMarques(t), 1);
  EXPECT_NEAR(static_cast<double>(Marque(t).X), 12.5, 1e-3);
  EXPECT_NEAR(static_cast<double>(Marque(t).Y), 2, 1e-3);
  EXPECT_TRUE(EstFermee(t));
}

TEST(DecalSequence, MarkInACornerLandsOnTheBisector) {
  Trace s = EnTrace(Carre(0, 0, 30), true);
  s[2].Cde = CodePC;
  const auto [r1, dehors] = Decale(s, -3);
  const auto [r2, dedans] = Decale(s, 3);
  EXPECT_EQ(NbMarques(dehors), 1);
  EXPECT_NEAR(static_cast<double>(Marque(dehors).X), 30 + 3 / std::sqrt(2.0), 0.05);
  EXPECT_NEAR(static_cast<double>(Marque(dehors).Y), 30 + 3 / std::sqrt(2.0), 0.05);
  EXPECT_EQ(NbMarques(dedans), 1);
  EXPECT_NEAR(static_cast<double>(Marque(dedans).X), 27, 0.01);
  EXPECT_NEAR(static_cast<double>(Marque(dedans).Y), 27, 0.01);
  EXPECT_GT(r1 + r2, 0);
}

TEST(DecalSequence, SeveralMarksKeepTheirNumberAndOrder) {
  Trace s = EnTrace({{0, 0}, {5, 0}, {9, 0}, {13, 0}, {13.004, 0}, {30, 0}, {30, 30}, {30, 30.0}, {0, 30}}, true);
  for (const std::size_t i : {1U, 2U, 3U, 4U}) s[i].Cde = CodePC;
  const auto [r, t] = Decale(s, 2);
  ASSERT_GT(r, 0);
  Trace marques;
  for (const PointTrace& p : t) {
    if (p.Cde == CodePC) marques.push_back(p);
  }
  ASSERT_EQ(marques.size(), 4U);
  EXPECT_NEAR(static_cast<double>(marques[0].X), 5, 1e-3);
  EXPECT_NEAR(static_cast<double>(marques[1].X), 9, 1e-3);
  EXPECT_NEAR(static_cast<double>(marques[2].X), 13, 1e-3);
  EXPECT_NEAR(static_cast<double>(marques[3].X), 13.004, 1e-3);
}

TEST(DecalSequence, TwoMarksWithOneNearestPlaceGiveTwoPoints) {
  Trace s = EnTrace({{0, 0}, {15, 0}, {15, 0}, {30, 0}, {30, 30}, {0, 30}}, true);
  s[1].Cde = CodePC;
  s[2].Cde = CodePC;
  const auto [r, t] = Decale(s, 2);
  ASSERT_GT(r, 0);
  EXPECT_EQ(NbMarques(t), 2);
}

TEST(DecalSequence, MarkOnTheSeamCountsOnce) {
  for (const bool deux : {false, true}) {
    Trace s = EnTrace({{12, 0}, {30, 0}, {30, 30}, {0, 30}, {0, 0}}, true);
    s.front().Cde = CodePC;
    if (deux) s.back().Cde = CodePC;
    const auto [r, t] = Decale(s, 2);
    ASSERT_GT(r, 0);
    EXPECT_EQ(NbMarques(t), 1);
    EXPECT_NEAR(static_cast<double>(Marque(t).X), 12, 1e-3);
    EXPECT_TRUE(EstFermee(t));
  }
  Trace s = EnTrace({{12, 0}, {30, 0}, {30, 30}, {0, 30}, {0, 0}}, true);
  s.back().Cde = CodePC;
  EXPECT_EQ(NbMarques(Decale(s, 2).second), 1);
}

TEST(DecalSequence, MarkGoesToTheNearestOfSeveralPieces) {
  Forme haltere{{0, 0},   {20, 0},  {20, 9},  {40, 9},  {40, 0},  {50, 0}, {60, 0},
                {60, 20}, {40, 20}, {40, 11}, {20, 11}, {20, 20}, {0, 20}};
  Trace s = EnTrace(haltere, true);
  s[5].Cde = CodePC;
  const auto [r, t] = Decale(s, 3);
  ASSERT_GT(r, 0);
  EXPECT_EQ(NbMarques(t), 1);
  EXPECT_NEAR(static_cast<double>(Marque(t).X), 50, 1e-3);
  EXPECT_NEAR(static_cast<double>(Marque(t).Y), 3, 1e-3);
}

TEST(DecalSequence, OtherMarksTravelLikeAttachmentPoints) {
  Trace s = EnTrace({{0, 0}, {15, 0}, {30, 0}, {30, 30}, {0, 30}}, true);
  s[1].Cde = Code2("XY");
  const Trace t = Decale(s, 2).second;
  EXPECT_EQ(std::count_if(t.begin(), t.end(), [](const PointTrace& p) { return p.Cde == Code2("XY"); }), 1);
}

TEST(DecalSequence, FigureOfEightKeepsTheSideOfEachLoop) {
  // Lower loop counter-clockwise, upper loop clockwise: left is inside the lower one and outside the upper one.
  const Trace huit = EnTrace({{-10, -20}, {10, -20}, {-10, 20}, {10, 20}}, true);
  const auto [r, t] = Decale(huit, 2);
  ASSERT_GT(r, 0);
  const std::vector<Trace> p = Pieces(t);
  ASSERT_EQ(p.size(), 2U);
  EXPECT_GT(Aire(p[0]), 0);
  EXPECT_LT(BoiteDe(p[0]).y1, 0);
  EXPECT_GT(BoiteDe(p[0]).y0, -18.01);
  EXPECT_LT(Aire(p[1]), 0);
  EXPECT_NEAR(BoiteDe(p[1]).y1, 22, 0.01);
  EXPECT_NEAR(BoiteDe(p[1]).x0, -12, 0.3);
}

TEST(DecalSequence, OverlapWalkedTwiceTheSameWayCountsOnce) {
  // A loop within a loop, both counter-clockwise.
  Forme f = Cercle(20, 60);
  f.push_back(f.front());
  for (P p : Cercle(6, 30, {14, 0})) f.push_back(p);
  const auto [r, t] = Decale(EnTrace(f, true), -2);
  ASSERT_GT(r, 0);
  ASSERT_EQ(Pieces(t).size(), 1U);
  EXPECT_NEAR(BoiteDe(t).x1, 22, 0.2);
}

TEST(DecalSequence, TouchingCornersStayOneContour) {
  // Two squares of one path that meet in a corner.
  const Trace s = EnTrace({{0, 0}, {10, 0}, {10, 10}, {20, 10}, {20, 20}, {10, 20}, {10, 10}, {0, 10}}, true);
  const auto [r, t] = Decale(s, 2);
  ASSERT_GT(r, 0);
  ASSERT_EQ(Pieces(t).size(), 2U);
  for (const Trace& p : Pieces(t)) EXPECT_NEAR(Aire(p), 36, 0.1);
  EXPECT_LE(Mesure(s, t, 2).Pire(), 0.01);
}

TEST(DecalSequence, SpikeIsRespectedFromItsSide) {
  const Trace s = EnTrace({{0, 0}, {20, 0}, {20, 10}, {35, 10}, {20, 10}, {20, 20}, {0, 20}}, true);
  const auto [r, t] = Decale(s, -2);
  ASSERT_GT(r, 0);
  EXPECT_NEAR(BoiteDe(t).x1, 37, 0.01);
  EXPECT_LE(Mesure(s, t, -2).Pire(), 0.01);
  const auto [r2, dedans] = Decale(s, 2);
  EXPECT_NEAR(Aire(dedans), 256, 0.1);
  EXPECT_GT(r2, 0);
}

TEST(DecalSequence, ThereAndBackGivesTheCurveAllAround) {
  const Trace s = EnTrace({{0, 0}, {20, 0}}, true);
  const auto [r, t] = Decale(s, 3);
  ASSERT_GT(r, 0);
  EXPECT_TRUE(EstFermee(t));
  EXPECT_NEAR(Aire(t), -(120 + std::numbers::pi * 9), 0.3);
  const auto [r2, autre] = Decale(s, -3);
  EXPECT_NEAR(Aire(autre), 120 + std::numbers::pi * 9, 0.3);
  EXPECT_GT(r2, 0);
  EXPECT_EQ(Decale(s, 3, 40).first, 0) << "no inside to fill";
}

TEST(DecalSequence, OnePlaceGivenSeveralTimesStaysAHole) {
  for (const std::size_t n : {1U, 2U, 3U, 7U}) {
    const auto [r, t] = Decale(Trace(n, {4, 5, CodePD, Code2(" A")}), 3);
    EXPECT_EQ(r, 2);
    ASSERT_EQ(t.size(), 2U);
    EXPECT_TRUE(EstFermee(t));
    EXPECT_EQ(t[0].X, 4.F);
    EXPECT_EQ(t[0].Y, 5.F);
  }
}

TEST(DecalSequence, EmptyPathGivesZero) { EXPECT_EQ(Decale({}, 3).first, 0); }

TEST(DecalSequence, FiguresThatAreNoNumbersGiveZero) {
  const float nan = std::numeric_limits<float>::quiet_NaN();
  const float inf = std::numeric_limits<float>::infinity();
  Trace s = EnTrace(Carre(0, 0, 10), true);
  EXPECT_EQ(Decale(s, std::numeric_limits<double>::quiet_NaN()).first, 0);
  EXPECT_EQ(Decale(s, std::numeric_limits<double>::infinity()).first, 0);
  for (const float faux : {nan, inf, -inf, 3e38F}) {
    s[2].X = faux;
    EXPECT_EQ(Decale(s, 1).first, 0);
  }
}

TEST(DecalSequence, ToleranceThatIsNoneFallsBackOnTheUsualOne) {
  const Trace s = EnTrace(Carre(0, 0, 30), true);
  for (const float t : {0.F, -1.F, std::numeric_limits<float>::quiet_NaN()}) {
    EXPECT_EQ(Decale(s, -3, 100, t).second, Decale(s, -3).second);
  }
}

TEST(DecalSequence, CoarserToleranceTakesFewerPointsAndHoldsItsBound) {
  const Trace s = EnTrace(Etoile(5), true);
  const Trace fin = Decale(s, -3, 100, 0.001F).second;
  const Trace gros = Decale(s, -3, 100, 0.1F).second;
  EXPECT_GT(fin.size(), gros.size());
  EXPECT_LE(Mesure(s, fin, -3).Pire(), 0.001);
  EXPECT_LE(Mesure(s, gros, -3).Pire(), 0.1);
}

TEST(DecalSequence, RepeatedAndTinySegmentsMakeNoDifference) {
  Forme f;
  for (const P p : Carre(0, 0, 30)) f.insert(f.end(), {p, p, {p.x + 1e-4, p.y}, {p.x, p.y + 1e-4}, p});
  const Trace s = EnTrace(f, true);
  EXPECT_NEAR(Aire(Decale(s, -3).second), 900 + 360 + std::numbers::pi * 9, 0.3);
  EXPECT_NEAR(Aire(Decale(s, 3).second), 576, 0.3);
}

TEST(DecalSequence, FarFromTheOriginTheErrorIsThatOfTheFloatsAlone) {
  for (const double loin : {1000.0, 1e6}) {
    Forme f = Cercle(50, 40, {loin, -loin});
    const Trace s = EnTrace(f, true);
    const auto [r, t] = Decale(s, -4);
    ASSERT_GT(r, 0);
    const double grille = loin * 6.0e-8;  // half a step of a float, rounded up
    EXPECT_LE(Mesure(s, t, -4).Pire(), 0.01 + 2 * grille);
  }
}

TEST(DecalSequence, CutterGreaterThanTheWholePartGoesAround) {
  const Trace s = EnTrace(Carre(0, 0, 1), true);
  const auto [r, t] = Decale(s, -200);
  ASSERT_GT(r, 0);
  EXPECT_NEAR(Aire(t), std::numbers::pi * 200 * 200 + 4 * 200 + 1, 15);
  EXPECT_LE(Mesure(s, t, -200).Pire(), 0.01);
}

TEST(Version, IsTheOneThatCallersWant) { EXPECT_EQ(pathwerk::Version(), 62); }
