#include <gtest/gtest.h>

#include "machine/essais/RecordLisible.h"

namespace {

using namespace ovelin;

TEST(GroupesRecord, CutsTheFieldsOfARecord) {
  std::string ligne;
  for (int i = 0; i < 37; ++i) {
    char octet[4];
    std::snprintf(octet, sizeof octet, "%02X ", i);
    ligne += octet;
  }
  EXPECT_EQ(GroupesRecord(ligne), "00 01 02 03040506 0708090A 0B0C0D0E 0F101112 13141516 1718191A 1B 1C 1D1E1F20");
}

TEST(GroupesRecord, LeavesOutWhatAShortLineLacks) {
  EXPECT_EQ(GroupesRecord(""), "");
  EXPECT_EQ(GroupesRecord("00 44 07 10 00"), "00 44 07");
}

// The slowest axis for its way decides: 30 mm at 6 mm/s take 5 s, 40 at 10 take 4; 50 mm in 5 s.
TEST(VitesseDepartDe, IsThatOfTheAxisThatNeedsLongest) {
  EXPECT_DOUBLE_EQ(VitesseDepartDe({30, -40, 0}, {6, 10, 1}), 10);
  EXPECT_DOUBLE_EQ(VitesseDepartDe({0, 0, 7}, {6, 10, 3}), 3);
}

TEST(VitesseDepartDe, IsZeroForNoMoveAndForAnAxisThatMayNotBegin) {
  EXPECT_EQ(VitesseDepartDe({0, 0, 0}, {6, 6, 6}), 0);
  EXPECT_EQ(VitesseDepartDe({1, 0, 0}, {0, 6, 6}), 0);
}

}  // namespace
