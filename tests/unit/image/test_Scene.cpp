// Primitives and the options of a picture.
#include <gtest/gtest.h>

#include "core/DocumentCourant.h"
#include "core/ReglagesCourants.h"
#include "image/SceneDocument.h"
#include "tests/support/Support.h"
#include "tests/unit/image/SceneEssai.h"

namespace {

using namespace ovelin;
using namespace essai;

TEST(Scene, AnAreaHasItsEdgeAsItsPoints) {
  Scene scene;
  const PointEcran bord[] = {{0, 0}, {30, 0}, {0, 30}};
  scene.AjouteSegment(Role::Axes, {1, 1}, {2, 2});
  scene.AjouteAire(Role::Trajet, bord);
  ASSERT_EQ(scene.Primitives.size(), 2U);
  EXPECT_EQ(scene.Primitives[1].genre, Genre::Aire);
  EXPECT_EQ(PointsDe(scene, scene.Primitives[1]), (Points{{0, 0}, {30, 0}, {0, 30}}));
}

TEST(OptionsCourantes, TakeTheTextsOfTheLegendInTheUsersLanguage) {
  essai::EcritFichierEssai("OVELINfr.trad", "[F_Representation]\r\nlib350=Trait\r\nlib351=Outil\r\n");
  const OptionsScene o = OptionsCourantes(true, false);
  EXPECT_TRUE(o.numPoint);
  EXPECT_FALSE(o.sequence);
  EXPECT_TRUE(OptionsCourantes(false, true).sequence);
  EXPECT_EQ(o.legendeDessin, "Trait");
  EXPECT_EQ(o.legendeDecalage, "Outil");
}

TEST(OptionsScene, WithoutAFontACommonProportionIsAssumed) {
  essai::AjouteSequence(" A", {{10, 10}, {20, 10}});
  OptionsScene o = Options();
  o.mesureTexte = nullptr;
  o.sequence = true;
  const auto p = De(Construit(o), DesNumeros);
  ASSERT_EQ(p.size(), 2U);
  EXPECT_GT(p[0].mesure, 5 * TwipsParPixel);
  EXPECT_LT(p[0].mesure, 15 * TwipsParPixel);
}

}  // namespace
