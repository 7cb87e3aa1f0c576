// Segments: the part of one that a box holds.
#include <gtest/gtest.h>

#include "base/Segment.h"

namespace base {
namespace {

constexpr Boite<double> Bac{0, 0, 10, 5};

TEST(PartDans, IsTheWholeOfASegmentWithin) {
  const auto part = PartDans({{1, 1}, {9, 4}}, Bac);
  ASSERT_TRUE(part);
  EXPECT_EQ(part->t0, 0);
  EXPECT_EQ(part->t1, 1);
}

TEST(PartDans, EndsAtBothEdgesOfASegmentThatGoesThrough) {
  const auto part = PartDans({{-10, 2}, {30, 2}}, Bac);
  ASSERT_TRUE(part);
  EXPECT_DOUBLE_EQ(part->t0, 0.25);
  EXPECT_DOUBLE_EQ(part->t1, 0.5);
}

TEST(PartDans, GoesTheOtherWayAndUpwards) {
  const auto part = PartDans({{5, 10}, {5, -10}}, Bac);
  ASSERT_TRUE(part);
  EXPECT_DOUBLE_EQ(part->t0, 0.25);
  EXPECT_DOUBLE_EQ(part->t1, 0.5);
}

// From (-2, 1) to (6, 9): x is 0 at a quarter, y is 5 at a half.
TEST(PartDans, OfASlantingOneIsBoundedByTheNearerOfTwoEdges) {
  const auto part = PartDans({{-2, 1}, {6, 9}}, Bac);
  ASSERT_TRUE(part);
  EXPECT_DOUBLE_EQ(part->t0, 0.25);
  EXPECT_DOUBLE_EQ(part->t1, 0.5);
}

TEST(PartDans, IsNothingBesideABoxWhoseSidesItsLineCrosses) {
  EXPECT_FALSE(PartDans({{-4, 2}, {4, 10}}, Bac)) << "past the corner";
  EXPECT_FALSE(PartDans({{11, 0}, {11, 5}}, Bac)) << "along a side, outside";
  EXPECT_FALSE(PartDans({{12, 2}, {20, 2}}, Bac)) << "points away";
}

TEST(PartDans, TakesTheEdgeAsWithin) {
  const auto part = PartDans({{0, 0}, {10, 0}}, Bac);
  ASSERT_TRUE(part);
  EXPECT_EQ(part->t1 - part->t0, 1);
}

TEST(PartDans, OfAPointIsTheWholeOrNothing) {
  EXPECT_TRUE(PartDans({{3, 3}, {3, 3}}, Bac));
  EXPECT_FALSE(PartDans({{3, 6}, {3, 6}}, Bac));
}

}  // namespace
}  // namespace base
