// What is drawn over a picture: the cross, the running tool.
#include <gtest/gtest.h>

#include "core/DocumentCourant.h"
#include "image/Marques.h"
#include "image/SceneDocument.h"
#include "tests/support/Support.h"
#include "tests/unit/image/SceneEssai.h"

namespace {

using namespace ovelin;
using namespace essai;

TEST(TraceCroix, ReachesAFiftiethOfTheHeightEachWay) {
  Scene scene;
  TraceCroix(Face, Image, P(10, 10), scene);
  ASSERT_EQ(scene.Primitives.size(), 2U);
  EXPECT_EQ(PointsDe(scene, scene.Primitives[0]), (Points{{150, 1320}, {150, 1380}}));
  EXPECT_EQ(PointsDe(scene, scene.Primitives[1]), (Points{{120, 1350}, {180, 1350}}));
  for (const Primitive& p : scene.Primitives) {
    EXPECT_EQ(p.role, Role::Croix);
  }
}

TEST(TraceCroix, IsNeverSmallerThanThreeHundredths) {
  Scene scene;
  TraceCroix(Face, {3000, 1}, P(0, 0), scene);
  EXPECT_FLOAT_EQ(PointsDe(scene, scene.Primitives[1])[0].X, -0.03F);
}

TEST(Dessin_Position_Outil, TheFirstPositionAfterAResetHasNoLine) {
  Scene scene;
  MemoireOutil memoire;
  EXPECT_EQ(memoire.X, -999.0F);
  EXPECT_TRUE(Dessin_Position_Outil(Face, Image, Police(), memoire, 10, 10, scene));
  ASSERT_EQ(scene.Primitives.size(), 1U);
  EXPECT_EQ(scene.Primitives[0].genre, Genre::Disque);
  EXPECT_EQ(scene.Primitives[0].role, Role::Outil);
  EXPECT_EQ(scene.Primitives[0].mesure, 80.0F);  // half the height of "0"
  EXPECT_EQ(PointsDe(scene, scene.Primitives[0]), (Points{{150, 1350}}));
  EXPECT_EQ(memoire, (MemoireOutil{10, 10}));
}

TEST(Dessin_Position_Outil, ANewPositionReplacesTheMarkWithALineFromTheLast) {
  Scene scene;
  MemoireOutil memoire{10, 10};
  EXPECT_TRUE(Dessin_Position_Outil(Face, Image, Police(), memoire, 20, 10, scene));
  ASSERT_EQ(scene.Primitives.size(), 2U);
  EXPECT_EQ(PointsDe(scene, scene.Primitives[1]), (Points{{150, 1350}, {300, 1350}}));
  EXPECT_TRUE(Dessin_Position_Outil(Face, Image, Police(), memoire, 20, 30, scene));
  EXPECT_EQ(scene.Primitives.size(), 2U);
}

TEST(Dessin_Position_Outil, TheSamePositionAgainDoesNothing) {
  Scene scene;
  MemoireOutil memoire{10, 10};
  EXPECT_FALSE(Dessin_Position_Outil(Face, Image, Police(), memoire, 10, 10, scene));
  EXPECT_TRUE(scene.Primitives.empty());
  EXPECT_TRUE(Dessin_Position_Outil(Face, Image, Police(), memoire, 10, 11, scene));
}

}  // namespace
