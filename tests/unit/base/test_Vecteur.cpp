#include <gtest/gtest.h>

#include <vector>

#include "base/Vecteur.h"

namespace {

TEST(Suivant, BehindTheLastComesTheFirst) {
  EXPECT_EQ(base::Suivant(0, 3), 1U);
  EXPECT_EQ(base::Suivant(1, 3), 2U);
  EXPECT_EQ(base::Suivant(2, 3), 0U);
  EXPECT_EQ(base::Suivant(0, 1), 0U);
}

TEST(Precedent, BeforeTheFirstStandsTheLast) {
  EXPECT_EQ(base::Precedent(2, 3), 1U);
  EXPECT_EQ(base::Precedent(1, 3), 0U);
  EXPECT_EQ(base::Precedent(0, 3), 2U);
  EXPECT_EQ(base::Precedent(0, 1), 0U);
}

TEST(Abscisses, AreTheWayToEachPointAndBackToTheStart) {
  // 3, 4, 5: the sides of a right triangle.
  const base::Chemin triangle{{0, 0}, {3, 0}, {3, 4}};
  EXPECT_EQ(base::Abscisses(triangle), (std::vector<double>{0, 3, 7, 12}));
  EXPECT_EQ(base::Perimetre(triangle), 12);
  EXPECT_EQ(base::Abscisses({}), std::vector<double>{0});
}

}  // namespace
