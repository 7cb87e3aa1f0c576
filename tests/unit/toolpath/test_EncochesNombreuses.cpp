// Many notches over each other on long traces: the outcome is that of opening them point by point, one after the
// other, and the cost is not that of all points under all notches.
#include <cmath>
#include <random>

#include "core/Types.h"
#include "tests/unit/toolpath/BiblioEssai.h"
#include "toolpath/Module_Sequence.h"
#include "toolpath/traces/Encoches.h"

using namespace ovelin;
using namespace essai;

namespace {

using Points = std::vector<PointTrace>;

// The notches in their plainest form: one point after the other, each crossing inserted where it lies.
PointTrace Croisement(int inter, const PointTrace& p1, const PointTrace& p2, const PointTrace& dedans,
                      const PointTrace& dehors, const PointTrace& marque, double t) {
  if (inter != 0) return DistancePoints(p2, dehors) < DistancePoints(p1, dehors) ? p2 : p1;
  const double a = std::abs(DistancePoints(dedans, marque) - t), b = std::abs(DistancePoints(dehors, marque) - t);
  return a < b ? dedans : dehors;
}
void Entre(PointTrace& p) {
  if (p.Cde != CodePC) p.Cde = CodePE;
}
Points PointParPoint(Points b, double t) {
  for (std::size_t i = 0; i + 1 < b.size();) {
    if (b[i].Cde != CodePC || DistancePoints(b[i], b.front()) <= t || DistancePoints(b[i], b.back()) <= t) {
      ++i;
      continue;
    }
    PointTrace p1, p2;
    std::size_t j = i + 1;
    int inter = 0;
    for (;; ++j) {
      inter = InterCercleSegment(b[j - 1], b[j], b[i], t, p1, p2);
      if (inter != 0 || DistancePoints(b[j], b[i]) > t) break;
      Entre(b[j]);
    }
    PointTrace c = Croisement(inter, p1, p2, b[j - 1], b[j], b[i], t);
    b.insert(b.begin() + static_cast<std::ptrdiff_t>(j), {c.X, c.Y, CodePD, b[i].Seq});
    std::size_t k = i - 1;
    for (;; --k) {
      inter = InterCercleSegment(b[k], b[k + 1], b[i], t, p1, p2);
      if (inter != 0 || DistancePoints(b[k], b[i]) > t) break;
      Entre(b[k]);
    }
    c = Croisement(inter, p1, p2, b[k + 1], b[k], b[i], t);
    b.insert(b.begin() + static_cast<std::ptrdiff_t>(k) + 1, {c.X, c.Y, CodePE, b[i].Seq});
    i += 3;
  }
  return b;
}

Points Cercle(int n, double rayon, int pasMarque) {
  Points points;
  for (int i = 0; i <= n; ++i) {
    const double a = 2 * Pi * (i % n) / n;
    points.push_back({static_cast<float>(rayon * std::cos(a)), static_cast<float>(rayon * std::sin(a)),
                      i % pasMarque == pasMarque / 2 ? CodePC : CodePD, Code2(" A")});
  }
  return points;
}

}  // namespace

TEST(OuvreEncoches, OfManyMarksIsThatOfOneAfterTheOther) {
  std::mt19937 hasard(5);
  std::uniform_real_distribution<double> un(0, 1);
  for (int essai = 0; essai < 400; ++essai) {
    const double loin = essai % 4 == 0 ? 0 : std::pow(10, 6 * un(hasard));
    const double pas = std::pow(10, -3 + 4 * un(hasard));
    const double t = pas * (1 + 80 * un(hasard));
    const double marques = un(hasard) * 0.5;
    const int n = 2 + static_cast<int>(600 * un(hasard));
    Points points;
    double x = loin, y = loin * un(hasard), direction = 0;
    for (int i = 0; i < n; ++i) {
      points.push_back(
          {static_cast<float>(x), static_cast<float>(y), un(hasard) < marques ? CodePC : CodePD, Code2(" A")});
      // Now and then a turn on the spot, a repeated point, or a step across the whole circle.
      const double genre = un(hasard);
      direction += genre < 0.05 ? Pi * un(hasard) : 0.2 * (un(hasard) - 0.5);
      const double d = genre > 0.95 ? 0 : genre > 0.93 ? 2 * t * un(hasard) : pas * un(hasard);
      x += d * std::cos(direction);
      y += d * std::sin(direction);
    }
    Points bloc = points;
    OuvreEncoches(bloc, t);
    ASSERT_EQ(bloc, PointParPoint(points, t)) << essai;
  }
}

TEST(OuvreEncoches, OnACircleFullOfMarksIsThatOfOneAfterTheOther) {
  for (const double t : {0.5, 10.0, 90.0, 199.0, 300.0}) {
    Points points = Cercle(4000, 100, 7);
    const Points attendu = PointParPoint(points, t);
    OuvreEncoches(points, t);
    EXPECT_EQ(points, attendu) << t;
  }
}

// Each of the notches covers a third of the circle: looked at point by point they would be 2,000 times 33,000.
TEST(OuvreEncoches, LooksAtStretchesUnderANotchAndNotAtTheirPoints) {
  Points points = Cercle(100000, 100, 50);
  const std::size_t cout = OuvreEncoches(points, 100);
  EXPECT_GT(points.size(), 102000U);
  EXPECT_LT(cout, 2000U * 10 * 316);  // 316: square root of the number of points
  // Twice as many marks cost twice as much, and four times the points with as many marks about twice as much.
  Points serres = Cercle(100000, 100, 25);
  EXPECT_LT(OuvreEncoches(serres, 100), 3 * cout);
  Points fins = Cercle(400000, 100, 200);
  EXPECT_LT(OuvreEncoches(fins, 100), 3 * cout);
}

// All crossings of a cluster of marks fall into the same two segments.
TEST(OuvreEncoches, OfAClusterOfMarksBetweenTwoLongSegmentsStaysCheap) {
  Points points = {{-1000, 0, CodePD, Code2(" A")}};
  constexpr int n = 20000;
  for (int i = 0; i < n; ++i) points.push_back({static_cast<float>(i) * 1e-4F, 0, CodePC, Code2(" A")});
  points.push_back({1000, 0, CodePD, Code2(" A")});
  EXPECT_LT(OuvreEncoches(points, 50), static_cast<std::size_t>(n) * 10 * 141);
  EXPECT_GT(points.size(), static_cast<std::size_t>(n) * 5 / 3);
}
