// Marks, numbers, axes and legend of a picture.
#include <gtest/gtest.h>

#include <algorithm>

#include "core/DocumentCourant.h"
#include "image/SceneDocument.h"
#include "tests/support/Support.h"
#include "tests/unit/image/SceneEssai.h"

namespace {

using namespace ovelin;
using namespace essai;

TEST(Dessin, MarksAttachmentPointsOfTheDrawing) {
  essai::AjouteSequence(" A", {{10, 10}, {20, 10}, {20, 30}});
  TraceInitial[1].Cde = CodePC;
  const Scene scene = Construit();
  const auto p = De(scene, Role::Attache);
  ASSERT_EQ(p.size(), 1U);
  EXPECT_EQ(p[0].genre, Genre::Carres);
  EXPECT_EQ(p[0].mesure, 28.0F);
  EXPECT_EQ(PointsDe(scene, p[0]), (Points{{300, 1350}}));
}

TEST(Dessin, MarksTheStartWithAnArrowAlongTheFirstStretch) {
  essai::AjouteSequence(" A", {{10, 10}, {20, 10}, {20, 30}});
  essai::AjouteSequence(" B", {{50, 10}, {50, 12}});
  const Scene scene = Construit();
  const auto p = De(scene, Role::Depart);
  ASSERT_EQ(p.size(), 1U);
  EXPECT_EQ(p[0].genre, Genre::Fleches);
  // 120 twips long, 90 wide: to the right from the first start, upward from the second.
  EXPECT_EQ(PointsDe(scene, p[0]),
            (Points{{150, 1395}, {270, 1350}, {150, 1305}, {795, 1350}, {750, 1230}, {705, 1350}}));
}

TEST(Dessin, TakesTheDirectionOfTheStartFromTheFirstStretchWithALength) {
  essai::AjouteSequence(" A", {{10, 10}, {10, 10}, {10, 9.999F}, {90, 90}});
  essai::AjouteSequence(" B", {{50, 10}, {50, 10}});  // a hole has no direction
  const Scene scene = Construit();
  const auto p = De(scene, Role::Depart);
  ASSERT_EQ(p.size(), 1U);
  ASSERT_EQ(p[0].nombre, 3U);
  EXPECT_EQ(PointsDe(scene, p[0])[1], (PointEcran{150, 1470}));  // downward
}

TEST(Dessin, NumbersThePathsFromOneOnADiscWithTheButtonDown) {
  essai::AjouteSequence(" A", {{10, 10}, {20, 10}});
  essai::AjouteSequence(" B", {{50, 10}, {60, 10}});
  Sequences[0].Selection = Faux;
  EXPECT_TRUE(De(Construit(), DesNumeros).empty());
  OptionsScene o = Options();
  o.sequence = true;
  const Scene scene = Construit(o);
  const auto p = De(scene, DesNumeros);
  ASSERT_EQ(p.size(), 4U);
  EXPECT_EQ(p[0].genre, Genre::Disque);
  EXPECT_EQ(p[0].mesure, 100.0F);  // the text is 100 x 160: 160 / 1.6
  EXPECT_EQ(p[0].role, Role::Numero);
  EXPECT_EQ(PointsDe(scene, p[0]), (Points{{150, 1350}}));
  EXPECT_EQ(p[1].genre, Genre::Texte);
  EXPECT_EQ(p[1].ancre, Ancre::Centre);
  EXPECT_EQ(p[1].role, Role::Numero);
  EXPECT_EQ(scene.Textes[p[1].texte], "1");
  EXPECT_EQ(PointsDe(scene, p[1]), (Points{{150, 1350}}));
  EXPECT_EQ(p[2].role, Role::NumeroSelection);
  EXPECT_EQ(scene.Textes[p[3].texte], "2");
}

TEST(Dessin, SizesTheDiscByTheWidthOfALongNumber) {
  for (int i = 0; i < 100; ++i)
    essai::AjouteSequence("Z" + std::string(1, static_cast<char>('A' + i % 2)),
                          {{static_cast<float>(i), 10}, {static_cast<float>(i), 20}});
  OptionsScene o = Options();
  o.sequence = true;
  const Scene scene = Construit(o);
  const auto p = De(scene, DesNumeros);
  ASSERT_EQ(p.size(), 200U);
  EXPECT_EQ(scene.Textes[p[199].texte], "100");
  EXPECT_EQ(p[198].mesure, 187.5F);  // 300 / 1.6
}

TEST(Dessin, LeavesOutANumberThatALaterOneCovers) {
  essai::AjouteSequence(" A", {{10, 10}, {20, 10}});
  essai::AjouteSequence(" B", {{10, 10}, {60, 10}});
  essai::AjouteSequence(" C", {{12, 10}, {60, 10}});  // beside it
  OptionsScene o = Options();
  o.sequence = true;
  const Scene scene = Construit(o);
  const auto p = De(scene, DesNumeros);
  ASSERT_EQ(p.size(), 4U);
  EXPECT_EQ(scene.Textes[p[1].texte], "2");
  EXPECT_EQ(scene.Textes[p[3].texte], "3");
}

TEST(Dessin, LeavesOutNumbersAndArrowsFarOutsideThePicture) {
  essai::AjouteSequence(" A", {{10, 10}, {20, 10}});
  essai::AjouteSequence(" B", {{1000, 10}, {1000, 60}});
  OptionsScene o = Options();
  o.sequence = true;
  const Scene scene = Construit(o);
  EXPECT_EQ(De(scene, DesNumeros).size(), 2U);
  EXPECT_EQ(De(scene, Role::Depart)[0].nombre, 3U);
  EXPECT_EQ(De(scene, DuDessin).size(), 1U);
}

TEST(Dessin, DrawsTheAxesATenthOfTheWidthLong) {
  essai::AjouteSequence(" A", {{20, 20}, {120, 20}, {120, 60}});
  Scene scene;
  ConstruitScene(Doc, {15, 0, 0, 300, 300}, Image, Options(), scene);
  const auto p = De(scene, Role::Axes);
  ASSERT_EQ(p.size(), 6U);
  // 10 mm are 150 twips, a quarter of it behind the origin at (300, 1200).
  EXPECT_EQ(PointsDe(scene, p[0]), (Points{{262.5F, 1200}, {450, 1200}}));
  EXPECT_EQ(p[1].genre, Genre::Fleches);
  EXPECT_EQ(PointsDe(scene, p[1])[1], (PointEcran{450, 1200}));
  EXPECT_EQ(scene.Textes[p[2].texte], "X");
  EXPECT_GT(PointsDe(scene, p[2])[0].X, 450);
  EXPECT_EQ(PointsDe(scene, p[2])[0].Y, 1200);
  EXPECT_EQ(PointsDe(scene, p[3]), (Points{{300, 1237.5F}, {300, 1050}}));
  EXPECT_EQ(PointsDe(scene, p[4])[1], (PointEcran{300, 1050}));
  EXPECT_EQ(scene.Textes[p[5].texte], "Y");
  EXPECT_LT(PointsDe(scene, p[5])[0].Y, 1050);
  EXPECT_EQ(PointsDe(scene, p[5])[0].X, 300);
}

TEST(Dessin, DrawsTheAxesOfAVerticalLineByItsHeightAndOfAPointAllTheSame) {
  essai::AjouteSequence(" A", {{20, 20}, {20, 70}});
  Scene scene;
  ConstruitScene(Doc, {15, 0, 0, 300, 300}, Image, Options(), scene);
  EXPECT_EQ(PointsDe(scene, De(scene, Role::Axes)[0])[1], (PointEcran{375, 1200}));  // 5 mm
  Doc = Document{};
  essai::AjouteSequence(" A", {{20, 20}, {20, 20}});
  ConstruitScene(Doc, {15, 0, 0, 300, 300}, Image, Options(), scene);
  EXPECT_EQ(PointsDe(scene, De(scene, Role::Axes)[0])[1], (PointEcran{600, 1200}));  // 20 pixels
}

TEST(Dessin, LeavesOutAxesThatThePictureDoesNotShow) {
  essai::AjouteSequence(" A", {{520, 20}, {620, 20}});
  Scene scene;
  ConstruitScene(Doc, {15, 500, 0, 0, 0}, Image, Options(), scene);
  EXPECT_TRUE(De(scene, Role::Axes).empty());
}

TEST(Dessin, WritesTheLegendUnderEachOtherNearTheCorner) {
  essai::AjouteSequence(" A", {{10, 10}, {20, 10}});
  const Scene scene = Construit();
  const auto p = De(scene, DeLaLegende);
  ASSERT_EQ(p.size(), 2U);
  EXPECT_EQ(scene.Textes[p[0].texte], "dessin");
  EXPECT_EQ(p[0].role, Role::LegendeDessin);
  EXPECT_EQ(p[0].ancre, Ancre::HautGauche);
  EXPECT_EQ(PointsDe(scene, p[0]), (Points{{16, 16}}));  // a tenth of 160
  EXPECT_EQ(scene.Textes[p[1].texte], "trajet");
  EXPECT_EQ(p[1].role, Role::LegendeTrajet);
  EXPECT_EQ(PointsDe(scene, p[1]), (Points{{16, 176}}));
}

TEST(Dessin, LeavesTheLegendToOthersWhenAsked) {
  essai::AjouteSequence(" A", {{10, 10}, {20, 10}});
  OptionsScene o = Options();
  o.legende = false;
  const Scene scene = Construit(o);
  EXPECT_TRUE(De(scene, DeLaLegende).empty());
  EXPECT_TRUE(scene.Points.size() > 2 && scene.Textes == (std::vector<std::string>{"X", "Y"}));
}

}  // namespace
