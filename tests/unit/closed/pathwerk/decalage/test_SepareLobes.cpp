// Closed paths that meet themselves: into what they run around to the left and to the right.
#include <gtest/gtest.h>

#include <cmath>

#include "closed/pathwerk/decalage/MoteurLobes.h"
#include "tests/unit/closed/pathwerk/controle/ControleRegion.h"

using namespace controle;
using pathwerk::Vec2;
using pathwerk::decalage::SepareLobes;
using pathwerk::decalage::SepareLobesCoupes;

namespace {

constexpr double Tolerance = 0.0088;

std::vector<Region> Lobes(const Chemin& c) {
  std::vector<Region> r;
  EXPECT_TRUE(SepareLobesCoupes(c, Tolerance, r));
  return r;
}

double AireDuSens(const std::vector<Region>& regions, int signe) {
  double a = 0;
  for (const Region& r : regions) a += r.signe == signe ? AireDe(r.contours) : 0;
  return a;
}

}  // namespace

TEST(SepareLobes, FigureOfEightHasALobeOfEachSense) {
  // Crossing in (10, 5): two triangles of 10 x 10 / 2.
  const std::vector<Region> r = Lobes({{0, 0}, {20, 10}, {20, 0}, {0, 10}});
  ASSERT_EQ(r.size(), 2U);
  EXPECT_NEAR(std::abs(AireDuSens(r, 1)), 50, 0.001);
  EXPECT_NEAR(std::abs(AireDuSens(r, -1)), 50, 0.001);
  EXPECT_GT(AireDuSens(r, 1), 0);
  EXPECT_LT(AireDuSens(r, -1), 0);
}

TEST(SepareLobes, FigureOfEightThroughACommonCornerIsCutThere) {
  const std::vector<Region> r = Lobes({{0, 0}, {10, 10}, {20, 20}, {20, 0}, {10, 10}, {0, 20}});
  ASSERT_EQ(r.size(), 2U);
  EXPECT_NEAR(std::abs(AireDuSens(r, 1)), 100, 0.01);
  EXPECT_NEAR(std::abs(AireDuSens(r, -1)), 100, 0.01);
}

TEST(SepareLobes, PentagramIsOneRegionWithoutTheLineInside) {
  Chemin c;
  for (int i = 0; i < 5; ++i)
    c.push_back({10 * std::cos(4 * 3.14159265358979 * i / 5), 10 * std::sin(4 * M_PI * i / 5)});
  const std::vector<Region> r = Lobes(c);
  ASSERT_EQ(r.size(), 1U);
  EXPECT_EQ(r[0].signe, 1);
  ASSERT_EQ(r[0].contours.size(), 1U);
  EXPECT_EQ(r[0].contours[0].size(), 10U);
  // Radius of the inner pentagon: 10 / phi^2.
  const double phi = (1 + std::sqrt(5.0)) / 2;
  EXPECT_NEAR(AireDe(r[0].contours), 5 * 10 * (10 / (phi * phi)) * std::sin(3.14159265358979 / 5), 0.001);
}

TEST(SepareLobes, PathWalkedTwiceIsOneRegion) {
  const Chemin c{{0, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 0}, {10, 0}, {10, 10}, {0, 10}};
  const std::vector<Region> r = Lobes(c);
  ASSERT_EQ(r.size(), 1U);
  EXPECT_EQ(r[0].signe, 1);
  EXPECT_NEAR(AireDe(r[0].contours), 100, 0.01);
}

TEST(SepareLobes, CornersThatTouchLeaveThePathWhole) {
  // Two squares joined in (10, 10), walked without crossing.
  const Chemin c{{0, 0}, {10, 0}, {10, 10}, {20, 10}, {20, 20}, {10, 20}, {10, 10}, {0, 10}};
  std::vector<Region> r;
  ASSERT_TRUE(SepareLobes(c, Tolerance, r));
  ASSERT_EQ(r.size(), 1U);
  EXPECT_EQ(r[0].signe, 1);
  EXPECT_NEAR(AireDe(r[0].contours), 200, 0.01);
}

TEST(SepareLobes, SpikeOfASimplePathIsKept) {
  const Chemin c{{0, 0}, {20, 0}, {20, 20}, {12, 20}, {12, 29}, {12, 20}, {0, 20}};
  std::vector<Region> r;
  ASSERT_TRUE(SepareLobes(c, Tolerance, r));
  ASSERT_EQ(r.size(), 1U);
  double haut = 0;
  for (const Vec2 p : r[0].contours[0]) haut = std::max(haut, p.y);
  EXPECT_NEAR(haut, 29, 0.001);
}

TEST(SepareLobes, PathWithoutAreaHasNoSense) {
  const std::vector<Region> r = Lobes({{0, 0}, {10, 0}, {20, 5}, {10, 0}});
  ASSERT_EQ(r.size(), 1U);
  EXPECT_EQ(r[0].signe, 0);
  EXPECT_EQ(r[0].contours[0].size(), 4U);
}

TEST(SepareLobes, LoopThinnerThanTheToleranceDoesNotCount) {
  // A dent that pokes 0.001 mm through the opposite side.
  const Chemin c{{0, 0}, {10, 0}, {10, 10}, {6, 10}, {5, -0.001}, {4, 10}, {0, 10}};
  std::vector<Region> r;
  ASSERT_TRUE(SepareLobes(c, Tolerance, r));
  ASSERT_EQ(r.size(), 1U);
  EXPECT_EQ(r[0].signe, 1);
}

TEST(SepareLobes, ScribbleThatCrossesItselfHundredsOfTimesAPointStaysWhole) {
  // Chords between random places of a circle: any two of them cross once in three.
  std::mt19937_64 g(4);
  std::uniform_real_distribution<double> u(0, 6.283185307179586);
  Chemin c;
  for (int i = 0; i < 1600; ++i) {
    const double a = u(g);
    c.push_back({20 * std::cos(a), 20 * std::sin(a)});
  }
  std::vector<Region> r;
  ASSERT_TRUE(SepareLobes(c, Tolerance, r));
  ASSERT_EQ(r.size(), 1U);
  ASSERT_TRUE(r[0].fouillis);
  ASSERT_EQ(r[0].contours.size(), 1U);
  EXPECT_EQ(r[0].contours[0].size(), c.size());
  EXPECT_EQ(r[0].signe, AireDe({c}) > 0 ? 1 : -1);
  // Around the outside the cutter keeps clear of every strand.
  std::vector<Chemin> b;
  ASSERT_TRUE(pathwerk::decalage::DecaleRegion(r[0], r[0].signe > 0 ? -3 : 3, Tolerance, b));
  ASSERT_EQ(b.size(), 1U);
  EXPECT_NEAR(std::abs(AireDe(b)), 3.14159265 * 23 * 23, 1);
  for (std::size_t i = 0; i < b[0].size(); i += 7) EXPECT_GE(Distance({c}, b[0][i]), 3 - Tolerance);
}

TEST(SepareLobes, OffsetOfAScribbleKeepsToTheSideThatTheWindingNumberTells) {
  // A figure of eight, run around counter-clockwise below and clockwise above.
  const Chemin c{{-10, -20}, {10, -20}, {-10, 20}, {10, 20}};
  for (const int signe : {1, -1}) {
    pathwerk::decalage::Region r{{c}, signe};
    r.fouillis = true;
    for (const double d : {1.0, -1.0}) {
      std::vector<Chemin> b;
      ASSERT_TRUE(pathwerk::decalage::DecaleRegion(r, d, Tolerance, b));
      // To the left of the path that runs around its region counter-clockwise: that region, of winding number 1.
      // Of the one it runs around clockwise, number -1, what is left of it is all the rest.
      const bool gauche = d > 0;
      std::size_t dedans = 0;
      for (const Chemin& boucle : b) {
        const int tours = Tours({c}, boucle[0]);
        EXPECT_EQ(signe > 0 ? tours >= 1 : tours >= 0, gauche) << "winding number " << tours;
        dedans += tours != 0;
      }
      EXPECT_EQ(dedans, 1U) << "of either loop of the eight, the wanted one alone";
      EXPECT_EQ(b.size(), (signe > 0) == gauche ? 1U : 2U) << "the outside in one loop";
    }
  }
}

TEST(SepareLobes, WindingOfRandomPathsDecidesEveryPlace) {
  std::mt19937_64 g(9);
  for (int k = 0; k < 400; ++k) {
    const Chemin c = EnChemin(Croisee(g, 4 + static_cast<int>(g() % 40)));
    std::vector<Region> regions;
    ASSERT_TRUE(SepareLobesCoupes(c, Tolerance, regions)) << k;
    std::uniform_real_distribution<double> u(-12, 12);
    for (int q = 0; q < 40; ++q) {
      const Vec2 p{u(g), u(g)};
      if (Distance(std::vector<Chemin>{c}, p) < 0.02) continue;
      const int t = Tours({c}, p);
      int plus = 0, moins = 0;
      for (const Region& r : regions) (r.signe > 0 ? plus : moins) += Tours(r.contours, p);
      ASSERT_EQ(plus, t >= 1 ? 1 : 0) << k;
      ASSERT_EQ(moins, t <= -1 ? -1 : 0) << k;
    }
  }
}
