// The fill of a closed path: its rings, their sense, and what the overlap means.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

#include "tests/unit/closed/pathwerk/controle/Controle.h"

using namespace controle;
using pathwerk::CodePC;
using pathwerk::PointTrace;

namespace {

double Profondeur(const Trace& contour, const PointTrace& p) {
  return Distance(contour, {static_cast<double>(p.X), static_cast<double>(p.Y)});
}

}  // namespace

TEST(Poche, RingsOfASquareLieAtTheStepFromTheInsideOutwards) {
  const Trace s = EnTrace(Carre(0, 0, 40), true);
  const auto [r, t] = Decale(s, 2, 60);  // step 1.6: depths 2, 3.6 ... 19.6
  ASSERT_EQ(r, 12 * 5) << "four corners and the closing point a ring";
  for (std::size_t i = 0; i < t.size(); ++i) {
    const std::size_t anneau = i / 5;
    EXPECT_NEAR(Profondeur(s, t[i]), 19.6 - 1.6 * static_cast<double>(anneau), 0.01);
    if (i % 5 == 4) {
      EXPECT_TRUE(MemePlace(t[i], t[i - 4])) << "each ring is closed";
    }
  }
}

TEST(Poche, EveryRingKeepsItsDepthHoweverFarInside) {
  // Rings that came one from the other would add up their errors.
  const Trace s = EnTrace(CercleBruite(3, 400, 0.5), true);
  const auto [r, t] = Decale(s, 1.5, 50);
  ASSERT_GT(r, 0);
  double plusProfond = 0;
  for (std::size_t i = 0; i < t.size(); i += 7) {
    const double d = Profondeur(s, t[i]);
    ASSERT_NEAR(d, 1.5 * std::round(d / 1.5), 0.01);
    plusProfond = std::max(plusProfond, d);
  }
  EXPECT_GT(plusProfond, 70);
}

TEST(Poche, FillsTheInsideWhicheverTheSideAndTheDirection) {
  for (const Forme& f : {Carre(0, 0, 20), Retourne(Carre(0, 0, 20))}) {
    for (const double r : {2.0, -2.0}) {
      const auto [n, t] = Decale(EnTrace(f, true), r, 40);
      ASSERT_GT(n, 0);
      const Boite b = BoiteDe(t);
      EXPECT_NEAR(b.x0, 2, 0.01);
      EXPECT_NEAR(b.x1, 18, 0.01);
    }
  }
}

TEST(Poche, PositiveKeepsTheOutlineOnTheRightNegativeOnTheLeft) {
  for (const Forme& f : {Carre(0, 0, 20), Retourne(Carre(0, 0, 20))}) {
    for (const Trace& p : Pieces(Decale(EnTrace(f, true), 2, 60).second)) EXPECT_GT(Aire(p), 0);
    for (const Trace& p : Pieces(Decale(EnTrace(f, true), -2, 60).second)) EXPECT_LT(Aire(p), 0);
  }
}

TEST(Poche, BothLoopsOfAFigureOfEightAreFilled) {
  const auto [r, t] = Decale(EnTrace({{-10, -20}, {10, -20}, {-10, 20}, {10, 20}}, true), 1, 50);
  ASSERT_GT(r, 0);
  EXPECT_NEAR(BoiteDe(t).y0, -19, 0.01);
  EXPECT_NEAR(BoiteDe(t).y1, 19, 0.01);
  for (const Trace& p : Pieces(t)) EXPECT_GT(Aire(p), 0);
}

TEST(Poche, OverlapBelowZeroCountsAsZero) {
  const Trace s = EnTrace(Carre(0, 0, 40), true);
  EXPECT_EQ(Decale(s, 2, -30).second, Decale(s, 2, 0).second);
  EXPECT_EQ(Decale(s, 2, std::numeric_limits<int>::min()).second, Decale(s, 2, 0).second);
}

TEST(Poche, OverlapAboveAHundredIsOneRing) {
  const Trace s = EnTrace(Retourne(Carre(0, 0, 40)), true);
  for (const int recouvrement : {101, std::numeric_limits<int>::max()}) {
    const auto [r, t] = Decale(s, 2, recouvrement);
    ASSERT_GT(r, 0);
    EXPECT_EQ(Pieces(t).size(), 1U);
    EXPECT_NEAR(BoiteDe(t).x0, 2, 0.01);
  }
}

TEST(Poche, OverlapOfAHundredIsThePlainOffsetOnItsOwnSide) {
  const auto [r, t] = Decale(EnTrace(Retourne(Carre(0, 0, 40)), true), 2, 100);
  ASSERT_GT(r, 0);
  EXPECT_NEAR(BoiteDe(t).x0, -2, 0.01);
}

TEST(Poche, HighestOverlapOnABigShapeStaysBounded) {
  const Trace s = EnTrace(CercleBruite(1, 300, 1), true);
  const auto [r, t] = Decale(s, 0.5, 99);
  ASSERT_GT(r, 0);
  // 2000 rings over the depth of the shape at most, where the step asked for would need 8000.
  EXPECT_LT(Longueur(t), 2.2e4 * 2000 / 80);
  EXPECT_GT(Longueur(t), 2.2e4 / 0.5) << "... and the step is not longer than the radius";
}

TEST(Poche, HairThinCutterOnABigShapeStaysBounded) {
  const auto [r, t] = Decale(EnTrace(Carre(0, 0, 2000), true), 1e-4, 99);
  ASSERT_GT(r, 0);
  EXPECT_LE(r, 20001 * 5);
}

TEST(Poche, CutterThatDoesNotFitGivesZero) { EXPECT_EQ(Decale(EnTrace(Carre(0, 0, 4), true), 2.1, 40).first, 0); }

TEST(Poche, CutterThatJustFitsRunsAlongTheMiddle) {
  const auto [r, t] = Decale(EnTrace({{0, 0}, {30, 0}, {30, 4}, {0, 4}}, true), 2, 40);
  ASSERT_GT(r, 0);
  EXPECT_EQ(Pieces(t).size(), 1U);
  const Boite b = BoiteDe(t);
  EXPECT_NEAR(b.y0, 2, 0.01);
  EXPECT_NEAR(b.y1, 2, 0.01);
  EXPECT_NEAR(b.x0, 2, 0.01);
  EXPECT_NEAR(b.x1, 28, 0.01);
}

TEST(Poche, MarksStandOnTheLastRoundAlone) {
  Trace s = EnTrace({{0, 0}, {15, 0}, {40, 0}, {40, 40}, {0, 40}}, true);
  s[1].Cde = CodePC;
  for (const int recouvrement : {0, 60, 101}) {
    const auto [r, t] = Decale(s, 2, recouvrement);
    ASSERT_GT(r, 0);
    EXPECT_EQ(std::count_if(t.begin(), t.end(), [](const PointTrace& q) { return q.Cde == CodePC; }), 1);
    const auto marque = std::find_if(t.begin(), t.end(), [](const PointTrace& q) { return q.Cde == CodePC; });
    EXPECT_NEAR(marque->X, 15, 0.01);
    EXPECT_NEAR(marque->Y, 2, 0.01);
    EXPECT_LT(t.end() - marque, 6);
  }
}

TEST(Poche, AMarkWhereTheLastRoundBeginsStandsThere) {
  Trace s = EnTrace({{10, 0}, {40, 0}, {40, 40}, {0, 40}, {0, 0}}, true);
  s[0].Cde = CodePC;
  const auto [r, t] = Decale(s, 2, 40);
  ASSERT_GT(r, 0);
  const auto marque = std::find_if(t.begin(), t.end(), [](const PointTrace& q) { return q.Cde == CodePC; });
  ASSERT_NE(marque, t.end());
  EXPECT_NEAR(marque->X, 10, 0.01);
  EXPECT_NEAR(marque->Y, 2, 0.01);
  EXPECT_TRUE(MemePlace(*marque, t.back()));
  EXPECT_EQ(t.back().Cde, pathwerk::CodePD);
}
