// Marks and starts come out where their place of the source does, not where the result happens to be nearest.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>

#include "closed/pathwerk/decalage/Report.h"
#include "tests/unit/closed/pathwerk/controle/Controle.h"

using namespace controle;
using pathwerk::CodePC;
using pathwerk::CodePD;
using pathwerk::PointTrace;

namespace {

// The path with marks at the given points.
Trace Marque(const Forme& f, std::initializer_list<std::size_t> rangs, bool ferme = true) {
  Trace t = EnTrace(f, ferme);
  for (const std::size_t i : rangs) t[i].Cde = CodePC;
  return t;
}

std::vector<P> Marques(const Trace& t) {
  std::vector<P> r;
  for (const PointTrace& p : t) {
    if (p.Cde == CodePC) r.push_back({static_cast<double>(p.X), static_cast<double>(p.Y)});
  }
  return r;
}

void Attend(const Trace& source, double decal, std::initializer_list<P> lieux, int recouvrement = 100) {
  const auto [r, t] = Decale(source, decal, recouvrement);
  ASSERT_GT(r, 0);
  const std::vector<P> m = Marques(t);
  ASSERT_EQ(m.size(), lieux.size());
  std::size_t i = 0;
  for (const P& p : lieux) {
    EXPECT_NEAR(m[i].x, p.x, 0.01) << "mark " << i;
    EXPECT_NEAR(m[i].y, p.y, 0.01) << "mark " << i;
    ++i;
  }
}

// A block with a slot 1 mm wide from above, 2 mm from its left side; the middle of the slot's left wall is point 6.
//
//        |  |    |                |
//        |2 |1   |                |   20 high, the slot 10 deep
//        |  +----+                |
//        +------------------------+
const Forme Fente{{0, 0}, {30, 0}, {30, 20}, {3, 20}, {3, 10}, {2, 10}, {2, 13}, {2, 20}, {0, 20}};

// Two chambers of 20 x 20 joined by a passage 2 mm high and 20 mm long.
const Forme Haltere{{0, 0},  {20, 0},  {20, 9},  {27, 9},  {34, 9},  {40, 9},  {40, 0},
                    {60, 0}, {60, 20}, {40, 20}, {40, 11}, {20, 11}, {20, 20}, {0, 20}};

}  // namespace

TEST(DecalSequenceMarques, OnAStraightSideLieAtTheFootOnEitherSide) {
  const Trace s = Marque({{0, 0}, {11.25, 0}, {30, 0}, {30, 30}, {0, 30}}, {1});
  Attend(s, 2, {{11.25, 2}});
  Attend(s, -2, {{11.25, -2}});
}

TEST(DecalSequenceMarques, OnASlantedSideLieOnItsNormal) {
  const Trace s = Marque({{0, 0}, {30, 0}, {22, 16}, {18, 24}}, {2});
  const double n = 1 / std::sqrt(5.0);
  Attend(s, 1, {{22 - 2 * n, 16 - n}});
  Attend(s, -1, {{22 + 2 * n, 16 + n}});
}

TEST(DecalSequenceMarques, InAConvexCornerLieInTheMiddleOfTheArc) {
  const double q = 3 / std::sqrt(2.0);
  Attend(Marque(Carre(0, 0, 30), {2}), -3, {{30 + q, 30 + q}});
  Attend(Marque(Retourne(Carre(0, 0, 30)), {2}), 3, {{30 + q, -q}});
}

TEST(DecalSequenceMarques, InAConcaveCornerLieWhereTheParallelsMeet) {
  Attend(Marque(Carre(0, 0, 30), {2}), 3, {{27, 27}});
  // The inner corner of an L, seen from outside.
  Attend(Marque({{0, 0}, {30, 0}, {30, 10}, {10, 10}, {10, 30}, {0, 30}}, {3}), -3, {{13, 13}});
}

TEST(DecalSequenceMarques, InACornerHalfBuriedLieOnWhatIsLeftOfTheArc) {
  // A slot 1.5 mm high between the corner's top side and a ceiling. Middles of a cutter of 1 mm stay 1 mm below the
  // ceiling, so of the quarter around the corner what is below 30 degrees is left.
  const Forme f{{-20, -20}, {0, -20}, {0, 0}, {-5, 0}, {-10, 0}, {-10, 1.5}, {20, 1.5}, {20, 20}, {-20, 20}};
  const P reste{std::cos(std::numbers::pi / 6), 0.5};
  Attend(Marque(f, {2}), -1, {reste});
  // In the slot, and at its end: the cutter passes all of it in that point.
  Attend(Marque(f, {3}), -1, {reste});
  Attend(Marque(f, {3, 4, 5}), -1, {reste, reste, reste});
}

TEST(DecalSequenceMarques, InASlotTooNarrowLieAtItsMouthAndNotBeyondTheWall) {
  // The mouth's two arcs meet in the middle of the slot.
  const P bouche{2.5, 20 + std::sqrt(0.75)};
  const Trace s = Marque(Fente, {6});
  ASSERT_NEAR(Distance(Decale(s, -1).second, {2, 13}), 3, 0.01) << "beyond the wall it is nearer";
  Attend(s, -1, {bouche});
  Attend(Marque(Retourne(Fente), {2}), 1, {bouche});
}

TEST(DecalSequenceMarques, InANarrowPassageGoToTheChamberNearerAlongThePath) {
  // Over the mouths of the passage the cutter lies against both their corners, 3 mm from (20, 9) and (20, 11).
  const double x = 20 - std::sqrt(8.0);
  Attend(Marque(Haltere, {3}), 3, {{x, 10}});
  Attend(Marque(Haltere, {4}), 3, {{60 - x, 10}});
}

TEST(DecalSequenceMarques, BesideACrossingStayWithTheirLoop) {
  // A figure of eight that crosses in (0, 0), its lower loop to the left of the path. The cutter leaves that loop's
  // corner out from 2 mm before the crossing; the arc of the upper loop passes 0.5 mm from the mark.
  const double l = 1.5 / std::sqrt(5.0);
  const Forme f{{-10, -20}, {10, -20}, {l, -2 * l}, {-10, 20}, {10, 20}};
  const Trace s = Marque(f, {2});
  const std::vector<Trace> p = Pieces(Decale(s, 1).second);
  ASSERT_EQ(p.size(), 2U);
  const Trace& haut = BoiteDe(p[0]).y1 < 0 ? p[1] : p[0];
  ASSERT_NEAR(Distance(haut, {l, -2 * l}), 0.5, 0.01);
  Attend(s, 1, {{0, -1 / std::sin(std::atan2(10, 20))}});
}

TEST(DecalSequenceMarques, OnAPathWalkedTwiceHaveTheirImageInEitherTurn) {
  Forme f = Carre(0, 0, 20);
  f.insert(f.begin() + 1, {7, 0});
  Forme deux = f;
  deux.insert(deux.end(), f.begin(), f.end());
  for (const double d : {2.0, -2.0}) {
    Attend(Marque(deux, {1}), d, {{7, d}});
    Attend(Marque(deux, {6}), d, {{7, d}});
  }
}

TEST(DecalSequenceMarques, OnASpikeKeepToTheirSideOfIt) {
  // Up the spike on its right, down on its left; the outline runs counter-clockwise, the cutter outside.
  const Forme f{{0, 0}, {20, 0}, {20, 20}, {12, 20}, {12, 24}, {12, 30}, {12, 25}, {12, 20}, {0, 20}};
  Attend(Marque(f, {4}), -1, {{13, 24}});
  Attend(Marque(f, {6}), -1, {{11, 25}});
  Attend(Marque(f, {5}), -1, {{12, 31}});
}

TEST(DecalSequenceMarques, OfAnOpenPathLieOnItsSide) {
  const Trace s = Marque({{0, 0}, {12, 0}, {40, 0}, {40, 40}}, {1, 2}, false);
  const double q = 3 / std::sqrt(2.0);
  Attend(s, 3, {{12, 3}, {37, 3}});
  Attend(s, -3, {{12, -3}, {40 + q, -q}});
}

TEST(DecalSequenceMarques, OnTheEndsOfAnOpenPathLieSquareToThem) {
  const Trace s = Marque({{0, 0}, {40, 0}}, {0, 1}, false);
  Attend(s, 3, {{0, 3}, {40, 3}});
  Attend(s, -3, {{0, -3}, {40, -3}});
}

TEST(DecalSequenceMarques, OnAnOpenPathThatComesBackKeepToTheirWay) {
  const Forme f{{0, 0}, {10, 0}, {40, 0}, {15, 0.0004}, {5, 0}};
  Attend(Marque(f, {1}, false), 2, {{10, 2}});
  Attend(Marque(f, {3}, false), 2, {{15, -2}});
  Attend(Marque(f, {1, 3}, false), -2, {{10, -2}, {15, 2}});
}

TEST(DecalSequenceMarques, InAnOpenNarrowBayLieWhereItIsPassedOver) {
  // A bay 4 wide and 10 deep left of the path; its mouth's corners are round for a cutter of 3.
  const Forme f{{0, 0}, {20, 0}, {20, -5}, {20, -10}, {24, -10}, {24, 0}, {44, 0}};
  Attend(Marque(f, {2}, false), 3, {{22, std::sqrt(5.0)}});
  Attend(Marque(f, {3, 4}, false), 3, {{22, std::sqrt(5.0)}, {22, std::sqrt(5.0)}});
}

TEST(DecalSequenceMarques, OnANoisyOutlineNeverLeaveTheirNeighbourhood) {
  // Peaks bury the valleys between them, the more the wider the cutter; what is left lies a few peaks away.
  Trace s = EnTrace(CercleBruite(11, 4000, 0.02), true);
  for (std::size_t i = 0; i + 1 < s.size(); i += 100) s[i].Cde = CodePC;
  for (const double d : {3.0, -3.0}) {
    const std::vector<P> m = Marques(Decale(s, d).second);
    ASSERT_EQ(m.size(), 40U);
    for (std::size_t i = 0; i < m.size(); ++i) {
      const PointTrace& p = s[100 * i];
      EXPECT_NEAR(std::hypot(m[i].x - static_cast<double>(p.X), m[i].y - static_cast<double>(p.Y)), 3, 0.3) << i;
    }
  }
}

TEST(DecalSequenceMarques, TenThousandOnAGreatOutlineAllArriveInOrder) {
  Trace s = EnTrace(Cercle(200, 100000), true);
  for (std::size_t i = 5; i + 1 < s.size(); i += 10) s[i].Cde = CodePC;
  const std::vector<P> m = Marques(Decale(s, -2).second);
  ASSERT_EQ(m.size(), 10000U);
  for (std::size_t i = 0; i < m.size(); ++i) {
    const PointTrace& p = s[5 + 10 * i];
    ASSERT_NEAR(m[i].x, static_cast<double>(p.X) * 1.01, 0.02) << i;
    ASSERT_NEAR(m[i].y, static_cast<double>(p.Y) * 1.01, 0.02) << i;
  }
}

TEST(DecalSequenceMarques, OfAPocketStandOnItsOutermostRingAtTheirImage) {
  // A bay 1 mm wide that runs 0.5 mm beside the pocket, open at its left end.
  const Forme f{{0, 0}, {40, 0}, {40, 20}, {2, 20}, {2, 20.5}, {22, 20.5}, {40, 20.5}, {40, 21.5}, {0, 21.5}};
  const auto [r, t] = Decale(Marque(f, {5}), 1.5, 50);
  ASSERT_GT(r, 0);
  const std::vector<P> m = Marques(t);
  ASSERT_EQ(m.size(), 1U);
  // The cutter passes the mouth of the bay lying against its corner (2, 20) and the left side.
  EXPECT_NEAR(m[0].x, 1.5, 0.01);
  EXPECT_NEAR(std::hypot(m[0].x - 2, m[0].y - 20), 1.5, 0.02);
  Attend(Marque({{0, 0}, {15, 0}, {40, 0}, {40, 40}, {0, 40}}, {1, 3}), 2, {{15, 2}, {38, 38}}, 50);
}

TEST(DecalSequenceMarques, OfTheLastResortGoToTheNearestPlace) {
  using namespace pathwerk;
  using namespace pathwerk::decalage;
  const auto source = PrepareSource(Marque(Fente, {6}), 0.001);
  ASSERT_TRUE(source.has_value());
  Piece piece;
  for (const P p : Carre(-1, -1, 32)) piece.points.push_back(pathwerk::Vec2{p.x, p.y} - source->centre);
  const std::vector<Piece> pieces{piece};
  const std::vector<LieuDePiece> l = Report(*source, 1, 0.01).Marques(pieces);
  ASSERT_EQ(l.size(), 1U);
  EXPECT_NEAR(l[0].point.x + source->centre.x, -1, 1e-9);
  EXPECT_NEAR(l[0].point.y + source->centre.y, 13, 1e-9);
}

TEST(DecalSequenceDepart, InASlotTooNarrowIsAtItsMouth) {
  Forme f = Fente;
  std::rotate(f.begin(), f.begin() + 6, f.end());
  const auto [r, t] = Decale(EnTrace(f, true), -1);
  ASSERT_GT(r, 0);
  EXPECT_NEAR(static_cast<double>(t[0].X), 2.5, 0.01);
  EXPECT_NEAR(static_cast<double>(t[0].Y), 20 + std::sqrt(0.75), 0.01);
  EXPECT_TRUE(EstFermee(t));
}

TEST(DecalSequenceDepart, OfEachPieceIsWhereThePathComesToItFromItsStart) {
  // The start lies on the lower side of the left chamber.
  Forme f = Haltere;
  f[0] = {0, 0};
  f.insert(f.begin() + 1, {14, 0});
  std::rotate(f.begin(), f.begin() + 1, f.end());
  const auto [r, t] = Decale(EnTrace(f, true), 3);
  ASSERT_GT(r, 0);
  const std::vector<Trace> p = Pieces(t);
  ASSERT_EQ(p.size(), 2U);
  const Trace& gauche = BoiteDe(p[0]).x0 < 20 ? p[0] : p[1];
  const Trace& droite = BoiteDe(p[0]).x0 < 20 ? p[1] : p[0];
  EXPECT_NEAR(static_cast<double>(gauche[0].X), 14, 0.01);
  EXPECT_NEAR(static_cast<double>(gauche[0].Y), 3, 0.01);
  // Through the passage to the place where the cutter lies against both corners of its far mouth.
  EXPECT_NEAR(static_cast<double>(droite[0].X), 40 + std::sqrt(8.0), 0.01);
  EXPECT_NEAR(static_cast<double>(droite[0].Y), 10, 0.01);
}

TEST(DecalSequenceDepart, CarriesAMarkOnTheFirstPoint) {
  for (const double d : {2.0, -2.0}) {
    const auto [r, t] = Decale(Marque({{12, 0}, {30, 0}, {30, 30}, {0, 30}, {0, 0}}, {0}), d);
    ASSERT_GT(r, 0);
    EXPECT_EQ(t.front().Cde, CodePC);
    EXPECT_EQ(t.back().Cde, CodePD);
    EXPECT_NEAR(static_cast<double>(t.front().X), 12, 0.001);
    EXPECT_NEAR(static_cast<double>(t.front().Y), d, 0.001);
  }
}

TEST(DecalSequenceDepart, LeavesTheDirectionOfTheSource) {
  for (const Forme& f : {Fente, Retourne(Fente)}) {
    for (const double d : {1.0, -1.0}) {
      const auto [r, t] = Decale(EnTrace(f, true), d);
      ASSERT_GT(r, 0);
      double a = 0;
      for (const Trace& p : Pieces(t)) a += Aire(p);
      EXPECT_GT(a * Aire(EnTrace(f, true)), 0);
    }
  }
}
