// Clean-up of one path: what stays, and how near the rest lies to it.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>

#include "tests/unit/closed/pathwerk/controle/Controle.h"

using namespace controle;
using pathwerk::CodePC;
using pathwerk::CodePD;
using pathwerk::NettoyageFichier;
using pathwerk::PointTrace;

namespace {

Trace Nettoie(Trace t, float tolerance) {
  const int n = NettoyageFichier(t, tolerance);
  t.resize(static_cast<std::size_t>(n));
  return t;
}

void VerifieBorne(const Trace& avant, float tolerance) {
  const Trace apres = Nettoie(avant, tolerance);
  for (const PointTrace& p : avant) {
    ASSERT_LE(Distance(apres, {static_cast<double>(p.X), static_cast<double>(p.Y)}), static_cast<double>(tolerance))
        << Texte(avant);
  }
  ASSERT_TRUE(pathwerk::MemePlace(avant.front(), apres.front()));
  ASSERT_TRUE(pathwerk::MemePlace(avant.back(), apres.back()));
}

}  // namespace

TEST(NettoyageFichier, DropsPointsOfAStraightLine) {
  Trace t;
  for (int i = 0; i <= 100; ++i) t.push_back(EnTrace({{i * 0.5, i * 0.25}}, false)[0]);
  const Trace n = Nettoie(t, 0.01F);
  ASSERT_EQ(n.size(), 2U);
  EXPECT_EQ(n[1].X, 50.F);
}

TEST(NettoyageFichier, DropsPointsNearerTogetherThanTheTolerance) {
  const Trace n =
      Nettoie(EnTrace({{0, 0}, {0.004, 0.003}, {10, 0}, {10.003, 0.004}, {10, 10}, {10.001, 10}}, false), 0.01F);
  EXPECT_EQ(n.size(), 3U);
}

TEST(NettoyageFichier, KeepsCorners) { EXPECT_EQ(Nettoie(EnTrace(Carre(0, 0, 10), true), 0.01F).size(), 5U); }

TEST(NettoyageFichier, KeepsBothPointsOfASequenceOfTwo) {
  EXPECT_EQ(Nettoie(EnTrace({{0, 0}, {0.001, 0}}, false), 0.5F).size(), 2U);
  EXPECT_EQ(Nettoie(EnTrace({{3, 4}, {3, 4}}, false), 0.5F).size(), 2U);
}

TEST(NettoyageFichier, KeepsTheFirstAndTheLastPointOfATinyOpenPath) {
  const Trace n = Nettoie(EnTrace({{0, 0}, {0.001, 0}, {0.002, 0.001}}, false), 0.5F);
  ASSERT_EQ(n.size(), 2U);
  EXPECT_EQ(n[1].X, 0.002F);
}

TEST(NettoyageFichier, KeepsMarksOnAStraightLineAndDropsThemOnceTheyAreOrdinary) {
  Trace t = EnTrace({{0, 0}, {4, 0}, {10, 0}, {10, 10}}, false);
  t[1].Cde = CodePC;
  Trace n = Nettoie(t, 0.01F);
  ASSERT_EQ(n.size(), 4U);
  EXPECT_EQ(n[1].Cde, CodePC);
  t[1].Cde = CodePD;
  n = Nettoie(t, 0.01F);
  ASSERT_EQ(n.size(), 3U);
  EXPECT_EQ(n[1].X, 10.F);
}

TEST(NettoyageFichier, KeepsMarksNearerTogetherThanTheTolerance) {
  Trace t = EnTrace({{0, 0}, {4, 0}, {4.001, 0}, {10, 0}}, false);
  t[1].Cde = CodePC;
  t[2].Cde = CodePC;
  EXPECT_EQ(Nettoie(t, 0.1F).size(), 4U);
}

TEST(NettoyageFichier, LeavesTheArrayItsSizeAndOnlyCountsTheStart) {
  Trace t = EnTrace({{0, 0}, {1, 0}, {2, 0}, {3, 0}}, false);
  EXPECT_EQ(NettoyageFichier(t, 0.01F), 2);
  EXPECT_EQ(t.size(), 4U);
  EXPECT_EQ(t[1].X, 3.F);
}

TEST(NettoyageFichier, ClosedStaysClosed) {
  const Trace n = Nettoie(EnTrace(Cercle(10, 2000), true), 0.01F);
  EXPECT_TRUE(EstFermee(n));
  EXPECT_LT(n.size(), 200U);
  EXPECT_GT(n.size(), 40U);
}

TEST(NettoyageFichier, RingSmallerThanTheToleranceStaysARingAndNeverBecomesAHole) {
  const Trace n = Nettoie(EnTrace(Cercle(0.003, 20, {5, 5}), true), 0.05F);
  ASSERT_EQ(n.size(), 4U);
  EXPECT_TRUE(EstFermee(n));
  EXPECT_GT(std::abs(Aire(n)), 0);
}

TEST(NettoyageFichier, FlatRingKeepsItsFarEnd) {
  const Trace n = Nettoie(EnTrace({{0, 0}, {20, 0}, {20, 0.001}, {10, 0.002}}, true), 0.05F);
  EXPECT_TRUE(EstFermee(n));
  EXPECT_GE(n.size(), 4U);
  EXPECT_NEAR(BoiteDe(n).x1, 20, 1e-6);
}

TEST(NettoyageFichier, OnePlaceGivenThriceBecomesAHoleOfTwoPoints) {
  EXPECT_EQ(Nettoie(EnTrace({{1, 2}, {1, 2}, {1, 2}}, false), 0.01F).size(), 2U);
}

TEST(NettoyageFichier, EmptyAndSinglePointsPass) {
  EXPECT_EQ(Nettoie({}, 0.01F).size(), 0U);
  EXPECT_EQ(Nettoie(EnTrace({{1, 1}}, false), 0.01F).size(), 1U);
}

TEST(NettoyageFichier, WithoutAToleranceOnlyRepeatsGo) {
  const Trace t = EnTrace({{0, 0}, {0, 0}, {1, 0}, {2, 0}, {2, 0}, {3, 0}, {3, 0}}, false);
  for (const float tol :
       {0.F, -1.F, std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::infinity()}) {
    const Trace n = Nettoie(t, tol);
    ASSERT_EQ(n.size(), 4U);
    EXPECT_EQ(n[3].X, 3.F);
  }
}

TEST(NettoyageFichier, WithoutAToleranceAMarkStaysAndItsTwinGoes) {
  Trace t = EnTrace({{0, 0}, {1, 0}, {1, 0}, {1, 0}, {2, 0}}, false);
  t[2].Cde = CodePC;
  const Trace n = Nettoie(t, 0);
  ASSERT_EQ(n.size(), 3U);
  EXPECT_EQ(n[1].Cde, CodePC);
}

TEST(NettoyageFichier, CoordinatesThatAreNoNumbersComeThrough) {
  Trace t = EnTrace({{0, 0}, {1, 0}, {2, 0}, {3, 0}}, false);
  t[1].X = std::numeric_limits<float>::quiet_NaN();
  EXPECT_EQ(Nettoie(t, 0.01F).size(), 4U);
}

TEST(NettoyageFichier, EveryDroppedPointLiesWithinTheToleranceOfTheLine) {
  for (unsigned g = 0; g < 12; ++g) {
    for (const float tol : {0.001F, 0.01F, 0.3F, 5.F}) {
      VerifieBorne(EnTrace(Etoile(g), true), tol);
      VerifieBorne(EnTrace(MarcheOuverte(g, 300), false), tol);
      VerifieBorne(EnTrace(CercleBruite(g, 700, 0.02), true), tol);
    }
  }
}

TEST(NettoyageFichier, KeepsTheTurningPointsOfAWayBackOverItself) {
  EXPECT_EQ(Nettoie(EnTrace({{0, 0}, {20, 0}, {12, 0}, {5, 0}, {30, 0}}, false), 0.01F).size(), 4U);
}

TEST(NettoyageFichier, JitterAroundAPlaceAndWaysBackStayWithinTheTolerance) {
  std::mt19937 g(5);
  std::uniform_real_distribution<double> u(-1, 1);
  for (int k = 0; k < 40; ++k) {
    Forme f;
    double x = 0;
    for (int i = 0; i < 300; ++i) {
      x += u(g) * 0.2 + (i % 50 < 30 ? 0.1 : -0.09);
      f.push_back({x, 0.004 * u(g)});
    }
    VerifieBorne(EnTrace(f, false), 0.01F);
  }
}

TEST(NettoyageFichier, TwiceIsLikeOnceWithinTheTolerance) {
  const Trace t = EnTrace(CercleBruite(2, 3000, 0), true);
  const Trace une = Nettoie(t, 0.01F);
  const Trace deux = Nettoie(une, 0.01F);
  EXPECT_GT(static_cast<double>(deux.size()), 0.9 * static_cast<double>(une.size()));
}
