// The preview of a drawing in few points.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "core/DocumentCourant.h"
#include "image/Apercu.h"
#include "image/SceneDocument.h"
#include "tests/support/Support.h"
#include "tests/unit/image/SceneEssai.h"

namespace {

using namespace ovelin;
using namespace essai;

TEST(PointsApercu, TakesEachPointUpToAThousandAndEachKthBeyond) {
  const auto nombre = [](std::size_t n) { return PointsApercu(std::vector<PointTrace>(n)).size(); };
  EXPECT_EQ(nombre(0), 0U);
  EXPECT_EQ(nombre(1000), 1000U);
  EXPECT_EQ(nombre(1499), 1499U);   // k = Round(1.499) = 1
  EXPECT_EQ(nombre(1601), 801U);    // k = 2
  EXPECT_EQ(nombre(2500), 1251U);   // halves to even: k = 2, and the last point
  EXPECT_EQ(nombre(10001), 1001U);  // k = 10
}

TEST(PointsApercu, KeepsTheTwoEndsOfEachPath) {
  std::vector<PointTrace> points;
  for (int i = 0; i < 4000; ++i) {
    const auto code = static_cast<char16_t>(u'A' + i / 1000);
    points.push_back({static_cast<float>(i), 0, CodePD, Code2(u' ', code)});
  }
  const auto choisis = PointsApercu(points);
  for (const float bout : {0.F, 999.F, 1000.F, 1999.F, 2000.F, 2999.F, 3000.F, 3999.F}) {
    EXPECT_TRUE(std::any_of(choisis.begin(), choisis.end(), [bout](const PointTrace& p) { return p.X == bout; }))
        << bout;
  }
  EXPECT_EQ(choisis.size(), 1004U);  // each fourth, and the last one of each path
}

TEST(PointsApercu, StartsWithTheFirstPoint) {
  std::vector<PointTrace> points(2000);
  for (std::size_t i = 0; i < points.size(); ++i) points[i].X = static_cast<float>(i);
  const auto choisis = PointsApercu(points);
  EXPECT_EQ(choisis[0].X, 0.0F);
  EXPECT_EQ(choisis[1].X, 2.0F);
  EXPECT_EQ(choisis.back().X, 1999.0F);  // the end of the path
}

// Two combs of 2000 points each, 50 mm apart, and short paths that the choice of points leaves out or cuts to one:
// no stroke leads from a path to another.
TEST(ConstruitApercu, NeverJoinsPointsOfTwoPathsHoweverManyThereAre) {
  std::vector<PointTrace> points;
  const auto ajoute = [&points](const char* code, float y, int nombre) {
    for (int i = 0; i < nombre; ++i) {
      points.push_back({static_cast<float>(i), y + static_cast<float>(i % 2), CodePD, Code2(code)});
    }
  };
  ajoute(" A", 0, 2000);
  for (const char* court : {" B", " C", " D", " E"}) ajoute(court, 25, 3);
  ajoute(" F", 50, 2000);
  const std::vector<PointTrace> choisis = PointsApercu(points);
  ASSERT_LT(choisis.size(), points.size());
  Scene scene;
  ConstruitApercu(choisis, 1, 1, {30000, 3000}, scene);
  // 52 mm on the picture's height stand for the drawing's 51; a stroke within a path spans a fiftieth of that.
  for (const Primitive& p : scene.Primitives) {
    const Points suite = PointsDe(scene, p);
    for (std::size_t i = 1; i < suite.size(); ++i) EXPECT_LT(std::abs(suite[i].Y - suite[i - 1].Y), 200) << i;
  }
  EXPECT_GE(scene.Primitives.size(), 2U);
}

TEST(ConstruitApercu, FitsTheShapeWithItsRatiosIntoThePicture) {
  const auto carre = essai::Trace(" A", {{0, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 0}});
  Scene scene;
  ConstruitApercu(carre, 1, 1, {3000, 3000}, scene);
  ASSERT_EQ(scene.Primitives.size(), 1U);
  EXPECT_EQ(scene.Primitives[0].role, Role::Dessin);
  EXPECT_EQ(PointsDe(scene, scene.Primitives[0]),
            (Points{{180, 2820}, {2820, 2820}, {2820, 180}, {180, 180}, {180, 2820}}));
  ConstruitApercu(carre, 2, 1, {3000, 3000}, scene);
  EXPECT_EQ(PointsDe(scene, scene.Primitives[0]),
            (Points{{180, 2160}, {2820, 2160}, {2820, 840}, {180, 840}, {180, 2160}}));
}

TEST(ConstruitApercu, KeepsPathsApartAndStandsAPointOrNone) {
  auto points = essai::Trace(" A", {{0, 0}, {10, 0}});
  const auto autre = essai::Trace(" B", {{0, 5}, {10, 5}});
  points.insert(points.end(), autre.begin(), autre.end());
  Scene scene;
  ConstruitApercu(points, 1, 1, {3000, 3000}, scene);
  EXPECT_EQ(scene.Primitives.size(), 2U);
  ConstruitApercu(essai::Trace(" A", {{7, 7}, {7, 7}}), 1, 1, {3000, 3000}, scene);
  ASSERT_EQ(scene.Primitives.size(), 1U);
  EXPECT_EQ(PointsDe(scene, scene.Primitives[0]), (Points{{1500, 1500}}));
  ConstruitApercu({}, 1, 1, {3000, 3000}, scene);
  EXPECT_TRUE(scene.Primitives.empty());
}

}  // namespace
