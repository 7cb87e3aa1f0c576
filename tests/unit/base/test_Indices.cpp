#include <gtest/gtest.h>

#include <vector>

#include "base/Indices.h"

namespace {

TEST(Indice, OfANegativeNumberLiesBehindEveryContainer) {
  EXPECT_EQ(base::Indice(7), 7U);
  EXPECT_EQ(base::Indice(7L), 7U);
  EXPECT_GT(base::Indice(-3), std::vector<char>().max_size());
}

TEST(Iterateur, PointsToThePlace) {
  std::vector<int> nombres{10, 11, 12};
  EXPECT_EQ(*base::Iterateur(nombres, 2), 12);
  EXPECT_EQ(base::Iterateur(nombres, 3), nombres.end());
  nombres.erase(base::Iterateur(nombres, 1));
  EXPECT_EQ(nombres, (std::vector<int>{10, 12}));
}

}  // namespace
