// Thinning of paths with far more points than the tolerance tells apart.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <numbers>
#include <random>
#include <vector>

#include "closed/pathwerk/chemin/Simplifie.h"

using pathwerk::LieuSurSegment;
using pathwerk::PointTrace;
using pathwerk::Vec2;

namespace {

constexpr std::size_t Nombre = 300000;  // enough to be looked at by chords first
constexpr double Tolerance = 0.002;     // mm

std::vector<PointTrace> Rond(double bruit) {
  std::mt19937_64 g(4);
  std::uniform_real_distribution<double> u(-bruit, bruit);
  std::vector<PointTrace> points;
  for (std::size_t i = 0; i < Nombre; ++i) {
    const double t = 2 * std::numbers::pi * static_cast<double>(i) / Nombre;
    const double r = 60 + 5 * std::sin(7 * t) + u(g);
    points.push_back({static_cast<float>(r * std::cos(t)), static_cast<float>(r * std::sin(t)), {}, {}});
  }
  points.push_back(points.front());
  return points;
}

Vec2 Place(const PointTrace& p) { return {double{p.X}, double{p.Y}}; }

// Of the points left out, the farthest from the segment that stands for it.
double Ecart(const std::vector<PointTrace>& points, const std::vector<std::size_t>& reste) {
  double pire = 0;
  for (std::size_t k = 0; k + 1 < reste.size(); ++k) {
    for (std::size_t i = reste[k]; i < reste[k + 1]; ++i) {
      const auto l = LieuSurSegment({Place(points[reste[k]]), Place(points[reste[k + 1]])}, Place(points[i]));
      pire = std::max(pire, std::sqrt(l.distance2));
    }
  }
  return pire;
}

}  // namespace

TEST(SimplifieDense, KeepsASmoothOutlineWithinTheToleranceWithFewOfItsPoints) {
  const std::vector<PointTrace> points = Rond(0);
  const auto reste = pathwerk::chemin::Simplifie(points, Vec2{}, {}, Tolerance);
  EXPECT_EQ(reste.front(), 0U);
  EXPECT_EQ(reste.back(), Nombre);
  EXPECT_LE(Ecart(points, reste), Tolerance);
  // A circle of 60 mm alone takes 2 pi / (2 sqrt(2 e / r)) chords with all of them inside; the sleeve uses both
  // sides.
  EXPECT_LT(reste.size(), 800U);
}

TEST(SimplifieDense, KeepsANoisyOutlineWithinTheTolerance) {
  const std::vector<PointTrace> points = Rond(0.004);
  const auto reste = pathwerk::chemin::Simplifie(points, Vec2{}, {}, Tolerance);
  EXPECT_LE(Ecart(points, reste), Tolerance);
}

TEST(SimplifieDense, KeepsEveryPointThatHasToStay) {
  const std::vector<PointTrace> points = Rond(0);
  std::vector<std::size_t> gardes;
  for (std::size_t i = 5; i < Nombre; i += 997) gardes.push_back(i);
  const auto reste = pathwerk::chemin::Simplifie(points, Vec2{}, gardes, Tolerance);
  EXPECT_TRUE(std::includes(reste.begin(), reste.end(), gardes.begin(), gardes.end()));
  EXPECT_LE(Ecart(points, reste), Tolerance);
}

TEST(SimplifieDense, DoesNotCutOffASpikeThatGoesThereAndBack) {
  std::vector<PointTrace> points = Rond(0);
  const std::size_t pointe = 123456;
  points[pointe].X = 0;
  points[pointe].Y = 0;
  const auto reste = pathwerk::chemin::Simplifie(points, Vec2{}, {}, Tolerance);
  EXPECT_TRUE(std::binary_search(reste.begin(), reste.end(), pointe));
}

// Seen from the first point the two in the middle lie 11 degrees apart, more than a disc is wide and less than both
// are: a line between them comes near to both.
TEST(Simplifie, ALineBetweenTwoPointsStandsForBoth) {
  const double e = 1;
  const double alpha = std::asin(e / 10);
  const auto vers = [](double angle, double loin) { return Vec2{loin * std::cos(angle), loin * std::sin(angle)}; };
  const std::vector<Vec2> c{{0, 0}, vers(0, 10), vers(1.9 * alpha, 10), vers(0.95 * alpha, 40)};
  const std::vector<std::uint8_t> garde(c.size(), 0);
  EXPECT_EQ(pathwerk::chemin::Simplifie(c, garde, e), (std::vector<std::size_t>{0, 3}));
}

TEST(Simplifie, CornersAllStay) {
  std::vector<Vec2> c;
  for (int k = 0; k < 50; ++k) c.push_back({double(k), (k % 2 != 0) ? 1.0 : 0.0});
  const std::vector<std::uint8_t> garde(c.size(), 0);
  EXPECT_EQ(pathwerk::chemin::Simplifie(c, garde, 0.01).size(), c.size());
}
