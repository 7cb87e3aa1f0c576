// Arcs for rows: circles whose points are computed here, and runs that must stay lines.
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <vector>

#include "run/ArcNC.h"

namespace {

using namespace ovelin;

Deplacement Rang(double x, double y, float z = -1, float v = 10) {
  Deplacement d;
  d.X = static_cast<float>(x);
  d.Y = static_cast<float>(y);
  d.Z = z;
  d.Vitesse = v;
  return d;
}

// Points of a circle about (x, y), `n` rows from angle `a` over `tour`, both in radians.
std::vector<Deplacement> Cercle(double x, double y, double r, double a, double tour, int n) {
  std::vector<Deplacement> lignes;
  for (int k = 0; k <= n; ++k) {
    const double angle = a + tour * k / n;
    lignes.push_back(Rang(x + r * std::cos(angle), y + r * std::sin(angle)));
  }
  return lignes;
}

constexpr double Pi = std::numbers::pi;

TEST(ArcDepuis, AQuarterIsOneArcAboutItsCentre) {
  const auto lignes = Cercle(30, 20, 10, 0, Pi / 2, 16);  // from (40, 20) to (30, 30), counter-clockwise
  const auto arc = ArcDepuis(lignes, 1, {});
  ASSERT_TRUE(arc);
  EXPECT_EQ(arc->dernier, 16U);
  EXPECT_FALSE(arc->horaire);
  EXPECT_NEAR(arc->i, -10, 0.0011);
  EXPECT_NEAR(arc->j, 0, 0.0011);
}

TEST(ArcDepuis, KnowsTheOtherSense) {
  const auto lignes = Cercle(30, 20, 10, Pi / 2, -Pi / 2, 16);
  const auto arc = ArcDepuis(lignes, 1, {});
  ASSERT_TRUE(arc);
  EXPECT_TRUE(arc->horaire);
  EXPECT_NEAR(arc->i, 0, 0.0011);
  EXPECT_NEAR(arc->j, -10, 0.0011);
}

TEST(ArcDepuis, AFullCircleTakesTwoHalves) {
  for (const int n : {112, 113}) {
    const auto lignes = Cercle(30, 30, 28, 1, 2 * Pi, n);
    const auto premier = ArcDepuis(lignes, 1, {});
    ASSERT_TRUE(premier);
    EXPECT_NEAR(static_cast<double>(premier->dernier), n / 2.0, 1.01) << n;
    const auto second = ArcDepuis(lignes, premier->dernier + 1, {});
    ASSERT_TRUE(second);
    EXPECT_EQ(second->dernier, static_cast<std::size_t>(n));
  }
}

TEST(ArcDepuis, BeginsAtTheRowThatItIsAskedFor) {
  auto lignes = Cercle(0, 0, 5, 0, Pi, 40);
  lignes.insert(lignes.begin(), {Rang(9, -9), Rang(7, -7)});
  EXPECT_FALSE(ArcDepuis(lignes, 1, {}));
  const auto arc = ArcDepuis(lignes, 3, {});
  ASSERT_TRUE(arc);
  EXPECT_EQ(arc->dernier, 42U);
}

TEST(ArcDepuis, EndsWhereALineGoesOn) {
  auto lignes = Cercle(0, 0, 20, -Pi / 2, Pi / 2, 24);  // to (20, 0), going up
  lignes.push_back(Rang(20, 3));
  lignes.push_back(Rang(20, 6));
  const auto arc = ArcDepuis(lignes, 1, {});
  ASSERT_TRUE(arc);
  EXPECT_EQ(arc->dernier, 24U);
}

TEST(ArcDepuis, NeverCrossesAChangeOfHeightOrSpeed) {
  for (const bool hauteur : {true, false}) {
    auto lignes = Cercle(0, 0, 20, 0, Pi / 2, 24);
    for (std::size_t k = 10; k < lignes.size(); ++k) {
      if (hauteur) lignes[k].Z = -2;
      if (!hauteur) lignes[k].Vitesse = 11;
    }
    const auto arc = ArcDepuis(lignes, 1, {});
    ASSERT_TRUE(arc);
    EXPECT_EQ(arc->dernier, 9U);
  }
}

TEST(ArcDepuis, NeverTakesAMoveInTheAir) {
  auto lignes = Cercle(0, 0, 20, 0, Pi / 2, 24);
  for (Deplacement& d : lignes) d.Z = 5;
  EXPECT_FALSE(ArcDepuis(lignes, 1, {}));
}

// The corners of a square and of an octagon lie on a circle, too.
TEST(ArcDepuis, LeavesPolygonsAlone) {
  for (const int n : {4, 8, 24}) EXPECT_FALSE(ArcDepuis(Cercle(0, 0, 20, 0, 2 * Pi, n), 1, {})) << n;
}

TEST(ArcDepuis, LeavesLinesAlone) {
  std::vector<Deplacement> lignes;
  for (int k = 0; k < 50; ++k) lignes.push_back(Rang(k * 0.37, k * 0.11));
  EXPECT_FALSE(ArcDepuis(lignes, 1, {}));
}

TEST(ArcDepuis, TakesNoPointThatLiesFurtherOffThanTheTolerance) {
  for (const double ecart : {0.0012, 0.0045}) {
    auto lignes = Cercle(0, 0, 20, 0, Pi / 2, 24);
    lignes[12] = Rang((20 + ecart) * std::cos(Pi / 4), (20 + ecart) * std::sin(Pi / 4));
    const auto arc = ArcDepuis(lignes, 1, {});
    ASSERT_TRUE(arc);
    EXPECT_EQ(arc->dernier == 24U, ecart < 0.002) << ecart;
  }
}

TEST(ArcDepuis, HasNoRadiusAboveTenMetres) {
  // rows of 20 mm, 0.005 mm high at most
  EXPECT_TRUE(ArcDepuis(Cercle(-9'000, 0, 9'000, 0, 0.02, 10), 1, {}));
  EXPECT_FALSE(ArcDepuis(Cercle(-12'000, 0, 12'000, 0, 0.02, 12), 1, {}));
}

TEST(ArcDepuis, HasNoChordThatTheDecimalsDoNotHold) {
  EXPECT_FALSE(ArcDepuis(Cercle(0, 0, 0.004, 0, Pi, 12), 1, {}));
}

// Both radii are those of what is written: three decimals of ends and centre.
TEST(ArcDepuis, BothRadiiAgreeAsTheyAreWritten) {
  const auto arrondi = [](float v) { return std::round(static_cast<double>(v) * 1000) / 1000; };
  for (int essai = 0; essai < 500; ++essai) {
    const double r = 0.1 * std::pow(1.02, essai);  // 0.1 mm to 2 m
    const int n = 4 + static_cast<int>(std::ceil(1.2 / std::acos(1 - std::min(0.9, 0.008 / r)) / 2));
    const auto lignes = Cercle(100 + essai * 0.0137, 50 - essai * 0.0071, r, essai, 1.2, n);
    ToleranceArc t;
    t.ecartRayons = 0.0015;
    const auto arc = ArcDepuis(lignes, 1, t);
    if (!arc) continue;
    const double ax = arrondi(lignes[0].X), ay = arrondi(lignes[0].Y);
    const double bx = arrondi(lignes[arc->dernier].X), by = arrondi(lignes[arc->dernier].Y);
    EXPECT_NEAR(std::hypot(arc->i, arc->j), std::hypot(bx - ax - arc->i, by - ay - arc->j), 0.0015 + 1e-9) << r;
    EXPECT_NEAR(arc->i * 1000, std::round(arc->i * 1000), 1e-6);
    EXPECT_NEAR(arc->j * 1000, std::round(arc->j * 1000), 1e-6);
    for (std::size_t k = 0; k <= arc->dernier; ++k) {
      const double x = static_cast<double>(lignes[k].X), y = static_cast<double>(lignes[k].Y);
      EXPECT_NEAR(std::hypot(x - ax - arc->i, y - ay - arc->j), std::hypot(arc->i, arc->j), 0.0021) << r;
    }
  }
}

TEST(ArcDepuis, AFilletOfATenthIsAnArc) {
  const auto arc = ArcDepuis(Cercle(0, 0, 0.1, 0, Pi / 2, 8), 1, {});
  ASSERT_TRUE(arc);
  EXPECT_EQ(arc->dernier, 8U);
}

}  // namespace
