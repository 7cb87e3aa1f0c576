// Where the window of moves by hand goes the first time.
#include <gtest/gtest.h>

#include "workspace/ui/PlaceACote.h"

namespace {

using namespace ovelin;

const QSize Manuelle(470, 220);

TEST(PlaceACote, IsAtTheRightFootOfTheWindowWhereTheScreenHasRoom) {
  const QRect principale(0, 0, 1280, 800);
  EXPECT_EQ(PlaceACote({0, 0, 1920, 1080}, principale, {0, 60, 940, 700}, Manuelle), QPoint(1280, 580));
  EXPECT_EQ(PlaceACote({0, 0, 1750, 1080}, principale, {0, 60, 940, 700}, Manuelle), QPoint(1280, 580))
      << "just so";
}

TEST(PlaceACote, IsAtTheLeftFootWhereOnlyThereIsRoom) {
  EXPECT_EQ(PlaceACote({0, 0, 1920, 1080}, {640, 100, 1280, 800}, {640, 160, 940, 700}, Manuelle),
            QPoint(170, 680));
}

// 16 pixels inside the picture, whose last ones are 939 and 759.
TEST(PlaceACote, IsInTheCornerOfThePictureWithoutRoomBeside) {
  EXPECT_EQ(PlaceACote({0, 0, 1749, 1080}, {0, 0, 1280, 800}, {0, 60, 940, 700}, Manuelle),
            QPoint(939 - 16 - 470, 759 - 16 - 220));
}

TEST(PlaceACote, IsNeverBeyondTheScreensUpperLeftCorner) {
  EXPECT_EQ(PlaceACote({100, 50, 500, 300}, {100, 50, 500, 300}, {100, 100, 300, 150}, Manuelle), QPoint(100, 50));
}

}  // namespace
