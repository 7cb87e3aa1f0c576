// The loop along which a tool can come down.
#include <gtest/gtest.h>

#include <vector>

#include "toolpath/chemins/BoucleEntree.h"

namespace {

using namespace ovelin;

using Points = std::vector<PointTrace>;

PointTrace P(float x, float y, Code2 cde = CodePD) { return {x, y, cde, {}}; }

TEST(BoucleDe, IsTheWholeOfAClosedPiece) {
  const auto b = BoucleDe(Points{P(0, 0), P(3, 4), P(0, 0), P(0, 10), P(0, 0)});
  ASSERT_TRUE(b);
  EXPECT_EQ(b->dernier, 4U) << "though it has come back before";
  EXPECT_DOUBLE_EQ(b->longueur, 30);
}

TEST(BoucleDe, IsWhatLeadsBackFirstOfAPieceThatIsNotClosed) {
  const auto b = BoucleDe(Points{P(0, 0), P(0, 5), P(0, 0), P(5, 0), P(0, 0), P(9, 9)});
  ASSERT_TRUE(b);
  EXPECT_EQ(b->dernier, 2U);
  EXPECT_DOUBLE_EQ(b->longueur, 10);
}

TEST(BoucleDe, IsNoneWhereTheWayNeverComesBackOrIsAPoint) {
  EXPECT_FALSE(BoucleDe(Points{}));
  EXPECT_FALSE(BoucleDe(Points{P(1, 1)}));
  EXPECT_FALSE(BoucleDe(Points{P(1, 1), P(1, 1)})) << "a hole";
  EXPECT_FALSE(BoucleDe(Points{P(0, 0), P(0, 5), P(5, 5)}));
  EXPECT_FALSE(BoucleDe(Points{P(1, 1), P(1, 1), P(1, 1)}));
  EXPECT_FALSE(BoucleDe(Points{P(0, 0), P(0.04F, 0), P(0, 0)})) << "0.08 mm";
  EXPECT_TRUE(BoucleDe(Points{P(0, 0), P(0.06F, 0), P(0, 0)}));
}

TEST(BoucleDe, IsNoneForABlade) {
  EXPECT_FALSE(BoucleDe(Points{P(0, 0), P(0, 5, CodePU), P(5, 5), P(0, 0)}));
  EXPECT_FALSE(BoucleDe(Points{P(0, 0), P(0, 5), P(0, 0), P(5, 0, CodePU), P(9, 9)})) << "also behind the loop";
}

TEST(BoucleDe, IsNoneWhereANotchReachesOverItsEnd) {
  EXPECT_FALSE(BoucleDe(Points{P(0, 0), P(0, 5, CodePE), P(5, 5, CodePC), P(0, 0, CodePC)}));
  EXPECT_TRUE(BoucleDe(Points{P(0, 0), P(0, 5, CodePE), P(5, 5, CodePC), P(0, 0, CodePD)}));
  EXPECT_FALSE(BoucleDe(Points{P(0, 0), P(0, 5), P(0, 0, CodePE), P(5, 0), P(9, 9)}));
}

TEST(LongueurRampe, IsTheDepthOverTheTangent) {
  EXPECT_NEAR(LongueurRampe(1, 45), 1, 1e-12);
  EXPECT_NEAR(LongueurRampe(2, 3), 38.16227, 1e-5);
}

TEST(LongueurRampe, IsAHundredRoundsAtMost) {
  EXPECT_NEAR(LongueurRampe(1, 3, 0.5), 19.08114, 1e-5);
  EXPECT_DOUBLE_EQ(LongueurRampe(1, 3, 0.1), 10);
}

}  // namespace
