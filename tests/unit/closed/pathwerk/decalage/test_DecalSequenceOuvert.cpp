// The offset of open paths: sides, ends, and paths that come back over themselves.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <random>

#include "tests/unit/closed/pathwerk/controle/Controle.h"

using namespace controle;

namespace {}  // namespace

TEST(DecalSequence, OpenSegmentGivesTheParallelSegmentOnItsLeft) {
  const auto [r, t] = Decale(EnTrace({{0, 0}, {40, 0}}, false), 3);
  ASSERT_GT(r, 0);
  ASSERT_EQ(t.size(), 2U);
  EXPECT_NEAR(static_cast<double>(t[0].X), 0, 1e-3);
  EXPECT_NEAR(static_cast<double>(t[0].Y), 3, 1e-3);
  EXPECT_NEAR(static_cast<double>(t[1].X), 40, 1e-3);
  EXPECT_NEAR(static_cast<double>(t[1].Y), 3, 1e-3);
  const auto [r2, droite] = Decale(EnTrace({{0, 0}, {40, 0}}, false), -3);
  ASSERT_EQ(droite.size(), 2U);
  EXPECT_NEAR(static_cast<double>(droite[0].X), 0, 1e-3);
  EXPECT_NEAR(static_cast<double>(droite[0].Y), -3, 1e-3);
  EXPECT_GT(r2, 0);
}

TEST(DecalSequence, OpenAngleIsRoundedOutsideAndSharpInside) {
  const Trace s = EnTrace({{0, 0}, {40, 0}, {40, 40}}, false);
  const auto [r1, dedans] = Decale(s, 3);
  EXPECT_EQ(dedans.size(), 3U);
  EXPECT_NEAR(Longueur(dedans), 37 + 37, 0.01);
  const auto [r2, dehors] = Decale(s, -3);
  EXPECT_NEAR(Longueur(dehors), 80 + std::numbers::pi / 2 * 3, 0.02);
  EXPECT_FALSE(EstFermee(dehors));
  EXPECT_GT(r1 * r2, 0);
}

TEST(DecalSequence, OpenNarrowUFallsApartWhereTheCutterDoesNotFit) {
  // Left of the walk lies the inside of the U, 4 wide; a cutter of radius 3 gets in nowhere but past the ends.
  const Trace s = EnTrace({{0, 40}, {0, 0}, {4, 0}, {4, 40}}, false);
  EXPECT_EQ(Decale(s, 3).first, 0);
  const auto [r, t] = Decale(s, -3);
  ASSERT_GT(r, 0);
  EXPECT_EQ(Pieces(t).size(), 1U);
  EXPECT_NEAR(Longueur(t), 84 + std::numbers::pi * 3, 0.05);
  const auto [r2, large] = Decale(s, 1.5);
  ASSERT_GT(r2, 0);
  EXPECT_NEAR(Longueur(large), 2 * 38.5 + 1, 0.02);
}

TEST(DecalSequence, OpenPiecesComeInTheOrderAndDirectionOfThePath) {
  // Three bays of which the middle one is too narrow.
  const Trace s = EnTrace({{0, 20},
                           {0, 0},
                           {20, 0},
                           {20, 10},
                           {22, 10},
                           {22, 0},
                           {24, 0},
                           {24, 10},
                           {26, 10},
                           {26, 0},
                           {46, 0},
                           {46, 20}},
                          false);
  const auto [r, t] = Decale(s, 2);
  ASSERT_GT(r, 0);
  EXPECT_EQ(Mesure(s, t, 2).Pire(), std::min(Mesure(s, t, 2).Pire(), 0.01));
  const std::vector<Trace> p = Pieces(t);
  EXPECT_GT(p.front().front().Y, 19.9F);
  EXPECT_NEAR(static_cast<double>(p.front().front().X), 2, 0.01);
  EXPECT_NEAR(static_cast<double>(p.back().back().X), 44, 0.01);
}

TEST(DecalSequence, OpenPathThatComesBackOverItselfLosesNothing) {
  // Up, back down over itself, then off to the left or on.
  for (const Forme& f :
       {Forme{{9, 341}, {9, 347}, {9, 345.5}, {-39, 345.5}, {-39, 347}},
        Forme{{0, 0}, {43.5, 0}, {43.5, -1.5}, {43.5, 4.5}}, Forme{{0, 0}, {20, 0}, {5, 0}, {30, 0}},
        Forme{{0, 0}, {20, 0}, {20, 10}, {20, 0}, {40, 0}}}) {
    for (const double r : {0.96, -0.96, 2.2, -2.2}) {
      const Trace s = EnTrace(f, false);
      EXPECT_LE(Mesure(s, Decale(s, r).second, r).Pire(), 0.01) << r << Texte(s);
    }
  }
}

TEST(DecalSequence, OpenTurnRightBackIsRoundedOnBothSidesHoweverItsLegsRound) {
  // Digits below the tolerance decide neither on which side of the way out the way back lies nor what is cut.
  for (const double ecart : {0.0, 1e-6, -1e-6, 5e-4, -5e-4}) {
    for (const double r : {3.0, -3.0}) {
      const Trace s = EnTrace({{0, 0}, {40, 0}, {1, ecart}}, false);
      const auto [n, t] = Decale(s, r);
      ASSERT_GT(n, 0) << ecart;
      EXPECT_EQ(Pieces(t).size(), 1U) << ecart;
      EXPECT_NEAR(Longueur(t), 79 + std::numbers::pi * 3, 0.05) << ecart;
      EXPECT_LE(Mesure(s, t, r).Pire(), 0.01) << ecart;
    }
  }
}

TEST(DecalSequence, OpenSpikeWhoseWayBackGoesOnKeepsThePlaceBesideIt) {
  // Up to a tip, back over the same line and past where the spike began; steps of a plotter bend the line by hairs.
  const Trace s = EnTrace({{0, 0}, {20, 11.525}, {18.575, 12.35}, {24.75, 8.775}}, false);
  for (const double r : {0.5, -0.5, 1.5, -1.5, 3.0, -3.0})
    EXPECT_LE(Mesure(s, Decale(s, r).second, r).Pire(), 0.01) << r;
  // Left of the way on, all along it from the tip, which lies 7.135 mm before its end.
  const Trace t = Decale(s, 1.5).second;
  EXPECT_LT(Distance(t, {18.575 + 1.5 * 0.501, 12.35 + 1.5 * 0.8654}), 0.01);
}

TEST(DecalSequence, OpenTipThatOpensIntoAWedgeIsSharpInside) {
  // 0.17 mm apart at its mouth: that is drawn, and the cutter of 1 mm goes nowhere between the legs.
  const Trace s = EnTrace({{0, 0}, {17, 0}, {0, 0.17}}, false);
  EXPECT_LE(Mesure(s, Decale(s, 1).second, 1).Pire(), 0.01);
  EXPECT_LT(Longueur(Decale(s, 1).second), 1);
  EXPECT_NEAR(Longueur(Decale(s, -1).second), 34 + std::numbers::pi, 0.03);
}

TEST(DecalSequence, OpenZigzagWhoseRoundTipsJustCloseABayLeavesNoLoopInIt) {
  const Trace s =
      EnTrace({{3, 5}, {2, 3}, {1, 5}, {0, 1}, {6, 5}, {4, 3}, {2, 0}, {0, 1}, {3, 0}, {0, 1}, {3, 0}}, false);
  EXPECT_LE(Mesure(s, Decale(s, 1.125).second, 1.125).tropPres, 0.01);
}

TEST(DecalSequence, PocketFlagOnAnOpenPathGivesItsPlainOffset) {
  const Trace s = EnTrace(Onde(50, 100, 5, 2), false);
  EXPECT_EQ(Decale(s, 2, 40).second, Decale(s, 2, 100).second);
}

TEST(DecalSequence, OpenPathEndsAcrossItsVeryLastSegmentHoweverLittleThatTurns) {
  // It turns by 0.9 micrometres over 0.4 mm, which alone could be thinned away; 3 mm beside it that is 6.7.
  const Trace s = EnTrace({{0, 0.0009}, {0.4, 0}, {40, 0}, {40.4, 0.0009}}, false);
  const auto [r, t] = Decale(s, 3);
  ASSERT_GT(r, 0);
  const double decale = 3 * 0.0009 / 0.4;
  EXPECT_NEAR(static_cast<double>(t.front().X), decale, 0.0025);
  EXPECT_NEAR(static_cast<double>(t.back().X), 40.4 - decale, 0.0025);
}

TEST(DecalSequence, OpenPathsThatTrembleWithinTheThinningComeOutWithinTheTolerance) {
  std::mt19937_64 g(7);
  std::uniform_real_distribution<double> u(-0.0013, 0.0013);
  for (unsigned k = 0; k < 40; ++k) {
    const Forme f = k % 2 == 0 ? Onde(100 + static_cast<int>(10 * k), 100, 8, 2 + k) : MarcheOuverte(k, 30);
    Forme h;
    for (std::size_t i = 0; i + 1 < f.size(); ++i) {
      for (int j = 0; j < 4; ++j) {
        const double part = j / 4.0;
        const double ecart = j == 0 ? 0 : 1;
        h.push_back({f[i].x + (f[i + 1].x - f[i].x) * part + ecart * u(g),
                     f[i].y + (f[i + 1].y - f[i].y) * part + ecart * u(g)});
      }
    }
    h.push_back(f.back());
    const Trace s = EnTrace(h, false);
    for (const double r : {3.0, -1.0})
      ASSERT_LE(Mesure(s, Decale(s, r).second, r, 600).Pire(), 0.0086) << k << " at " << r;
  }
}

TEST(DecalSequence, OpenPathWhoseEndSegmentsAreShorterThanATouchEndsAcrossThem) {
  // The ends lie within a touch of the segments behind them; what is beyond an end is no side of those.
  const Trace s = EnTrace({{0, 0}, {0.008, 0}, {10, 3}, {22, 0}, {22.008, 0}}, false);
  for (const double r : {1.5, -1.5, 3.0, -3.0}) EXPECT_LE(Mesure(s, Decale(s, r).second, r).Pire(), 0.01) << r;
}
