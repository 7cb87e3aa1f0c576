#include <gtest/gtest.h>

#include "manual/Touches.h"

namespace {

using namespace ovelin;

TEST(SensDe, ArrowsMoveOneAxis) {
  EXPECT_EQ(SensDe(37), (SensJog{-1, 0, 0}));
  EXPECT_EQ(SensDe(38), (SensJog{0, 1, 0}));
  EXPECT_EQ(SensDe(39), (SensJog{1, 0, 0}));
  EXPECT_EQ(SensDe(40), (SensJog{0, -1, 0}));
}

TEST(SensDe, HomeAndEndAreDiagonals) {
  EXPECT_EQ(SensDe(36), (SensJog{-1, 1, 0}));
  EXPECT_EQ(SensDe(35), (SensJog{-1, -1, 0}));
}

TEST(SensDe, PageUpAndPageDownMoveZAlone) {
  EXPECT_EQ(SensDe(33), (SensJog{0, 0, 1}));
  EXPECT_EQ(SensDe(34), (SensJog{0, 0, -1}));
}

TEST(SensDe, TheNumericPadIsTheCompass) {
  const SensJog pave[10] = {{0, 0, 0}, {-1, -1, 0}, {0, -1, 0}, {1, -1, 0}, {-1, 0, 0},
                            {0, 0, 0}, {1, 0, 0},   {-1, 1, 0}, {0, 1, 0},  {1, 1, 0}};
  for (int chiffre = 0; chiffre <= 9; ++chiffre) EXPECT_EQ(SensDe(96 + chiffre), pave[chiffre]) << chiffre;
}

TEST(EstTouchePilMan, LeavesOtherKeysToWhateverHasTheKeyboard) {
  for (const int code : {16, 17, 27, 33, 34, 35, 36, 37, 38, 39, 40, 86, 97, 105, 106, 107, 109, 112, 116, 119}) {
    EXPECT_TRUE(EstTouchePilMan(code)) << code;
  }
  for (const int code : {0, 9, 13, 32, 65, 96, 101, 108, 110, 113, 115, 120}) {
    EXPECT_FALSE(EstTouchePilMan(code)) << code;
  }
}

}  // namespace
