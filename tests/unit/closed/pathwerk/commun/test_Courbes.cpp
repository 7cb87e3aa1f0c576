#include <limits>
#include <numbers>

#include "closed/pathwerk/commun/Courbes.h"
#include "tests/unit/closed/pathwerk/Aide.h"

using pathwerk::AjouteArc;
using pathwerk::AjouteBezier;
using pathwerk::Vec2;

namespace {

// Greatest distance of the middles of the chords from a circle.
double Fleche(const std::vector<Vec2>& p, Vec2 c, double r) {
  double pire = 0;
  for (std::size_t i = 1; i < p.size(); ++i) {
    const Vec2 m{(p[i].x + p[i - 1].x) / 2 - c.x, (p[i].y + p[i - 1].y) / 2 - c.y};
    pire = std::max(pire, std::fabs(r - std::hypot(m.x, m.y)));
  }
  return pire;
}
}  // namespace

TEST(AjouteArc, EndsWhereItShouldAndLeavesTheStartToTheCaller) {
  std::vector<Vec2> p{{15, 5}};
  AjouteArc(p, {5, 5}, 10, 0, std::numbers::pi / 2, 0.01);
  EXPECT_EQ(p.front(), (Vec2{15, 5}));
  EXPECT_NEAR(p.back().x, 5, 1e-12);
  EXPECT_NEAR(p.back().y, 15, 1e-12);
  EXPECT_GT(p[1].y, 5);  // counter-clockwise
}

TEST(AjouteArc, NegativeSweepIsClockwise) {
  std::vector<Vec2> p{{10, 0}};
  AjouteArc(p, {0, 0}, 10, 0, -std::numbers::pi, 0.01);
  EXPECT_LT(p[1].y, 0);
  EXPECT_NEAR(p.back().x, -10, 1e-12);
}

TEST(AjouteArc, ChordsStayWithinTheBoundAndUseMostOfIt) {
  for (const double r : {0.5, 3.0, 40.0, 2000.0}) {
    for (const double fleche : {0.1, 0.01, 0.001}) {
      std::vector<Vec2> p{{r, 0}};
      AjouteArc(p, {0, 0}, r, 0, 2 * std::numbers::pi, fleche);
      EXPECT_LE(Fleche(p, {0, 0}, r), fleche * (1 + 1e-9)) << r << ' ' << fleche;
      // With two chords fewer the bound would be broken: there are no more than needed.
      const double n = static_cast<double>(p.size() - 1);
      if (n > 8) {
        EXPECT_GT(r * (1 - std::cos(std::numbers::pi / (n - 2))), fleche) << r << ' ' << fleche;
      }
    }
  }
}

TEST(AjouteArc, SmallestCircleIsAnOctagon) {
  std::vector<Vec2> p{{0.001, 0}};
  AjouteArc(p, {0, 0}, 0.001, 0, 2 * std::numbers::pi, 0.01);
  EXPECT_EQ(p.size(), 9U);
}

TEST(AjouteArc, HugeOrBrokenArcsStaySmall) {
  std::vector<Vec2> p{{0, 0}};
  AjouteArc(p, {0, 0}, 1e15, 0, 2 * std::numbers::pi, 0.01);
  EXPECT_LE(p.size(), 8193U);
  EXPECT_GT(p.size(), 1000U);
  p.assign(1, {0, 0});
  AjouteArc(p, {0, 0}, std::numeric_limits<double>::quiet_NaN(), 0, 1, 0.01);
  AjouteArc(p, {0, 0}, 1, 0, std::numeric_limits<double>::infinity(), 0.01);
  EXPECT_EQ(p.size(), 1U);
  AjouteArc(p, {0, 0}, 1, 0, 1e300, 0);
  EXPECT_LE(p.size(), 8193U);
}

TEST(AjouteArc, AnArcWithoutSweepIsOnePointHoweverLargeItsRadius) {
  // One chord of so large a circle covers less of the turn than a number can tell beside 1.
  for (const double rayon : {1.0, 1e9, 1e19, 1e300}) {
    std::vector<Vec2> p;
    AjouteArc(p, {0, 0}, rayon, 0, 0, 0.01);
    ASSERT_EQ(p.size(), 1U) << rayon;
    EXPECT_EQ(p[0].x, rayon);
  }
}

TEST(AjouteArc, RadiusZeroIsItsCentre) {
  std::vector<Vec2> p;
  AjouteArc(p, {3, 4}, 0, 0, 1, 0.01);
  ASSERT_FALSE(p.empty());
  for (const Vec2 q : p) EXPECT_EQ(q, (Vec2{3, 4}));
}

TEST(AjouteBezier, StaysWithinTheBoundOfTheCurve) {
  const Vec2 a{0, 0};
  const Vec2 b{0, 40};
  const Vec2 c{60, -30};
  const Vec2 d{50, 10};
  const double fleche = 0.01;
  std::vector<Vec2> p{a};
  AjouteBezier(p, b, c, d, fleche);
  EXPECT_EQ(p.back(), d);
  double pire = 0;
  for (int k = 0; k <= 20000; ++k) {  // de Casteljau, then the distance to the nearest chord
    const double t = k / 20000.0;
    const auto mix = [t](Vec2 u, Vec2 v) { return Vec2{u.x + (v.x - u.x) * t, u.y + (v.y - u.y) * t}; };
    const Vec2 q = mix(mix(mix(a, b), mix(b, c)), mix(mix(b, c), mix(c, d)));
    double proche = 1e9;
    for (std::size_t i = 1; i < p.size(); ++i) {
      const Vec2 u{p[i].x - p[i - 1].x, p[i].y - p[i - 1].y};
      const double s =
          std::clamp(((q.x - p[i - 1].x) * u.x + (q.y - p[i - 1].y) * u.y) / (u.x * u.x + u.y * u.y), 0.0, 1.0);
      proche = std::min(proche, std::hypot(p[i - 1].x + s * u.x - q.x, p[i - 1].y + s * u.y - q.y));
    }
    pire = std::max(pire, proche);
  }
  EXPECT_LE(pire, fleche);
  EXPECT_GT(pire, fleche / 4);  // and not far finer than asked
}

TEST(AjouteBezier, AStraightOneIsOneChord) {
  std::vector<Vec2> p{{0, 0}};
  AjouteBezier(p, {1, 1}, {2, 2}, {3, 3}, 0.01);
  EXPECT_EQ(p, (std::vector<Vec2>{{0, 0}, {3, 3}}));
}

TEST(AjouteBezier, HugeOrBrokenCurvesStaySmall) {
  std::vector<Vec2> p{{0, 0}};
  AjouteBezier(p, {1e300, 0}, {0, 1e300}, {1, 1}, 1e-9);
  EXPECT_LE(p.size(), 8193U);
  p.assign(1, {0, 0});
  AjouteBezier(p, {std::nan(""), 0}, {0, 1}, {1, 1}, 0.01);
  EXPECT_EQ(p.size(), 2U);
  p.clear();
  AjouteBezier(p, {0, 0}, {1, 1}, {2, 2}, 0.01);  // without a start
  EXPECT_EQ(p, (std::vector<Vec2>{{2, 2}}));
}
