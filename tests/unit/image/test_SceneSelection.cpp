// What is selected: halo, box and size; what the pointer is on.
#include <gtest/gtest.h>

#include "core/DocumentCourant.h"
#include "image/SceneSelection.h"
#include "tests/support/Support.h"
#include "tests/unit/image/SceneEssai.h"

namespace {

using namespace ovelin;
using namespace essai;

OptionsScene Sobre() {
  OptionsScene o = Options();
  o.sobre = true;
  return o;
}

void DeuxCarres() {
  essai::AjouteCarre(" A", 20, 20, 40);
  essai::AjouteCarre(" B", 100, 30, 10);
  Deselectionne();
}

TEST(Halo, LiesUnderTheSelectedPathsAlone) {
  DeuxCarres();
  EXPECT_TRUE(De(Construit(Sobre()), Role::Halo).empty());
  Sequences[1].Selection = Vrai;
  const Scene scene = Construit(Sobre());
  const auto halo = De(scene, Role::Halo);
  ASSERT_EQ(halo.size(), 1U);
  EXPECT_EQ(halo[0].mesure, 9 * 15);
  for (const PointEcran& p : PointsDe(scene, halo[0])) EXPECT_GE(p.X, 1500);
}

TEST(Halo, IsNoneWhereEveryPathIsSelected) {
  DeuxCarres();
  Sequences[0].Selection = Sequences[1].Selection = Vrai;
  EXPECT_TRUE(De(Construit(Sobre()), Role::Halo).empty());
  EXPECT_FALSE(De(Construit(Sobre()), Role::CadreSelection).empty());
}

TEST(CadreSelection, StandsAroundTheSelectionWithItsSize) {
  DeuxCarres();
  Sequences[0].Selection = Vrai;
  const Scene scene = Construit(Sobre());
  const auto cadre = De(scene, Role::CadreSelection);
  ASSERT_EQ(cadre.size(), 2U);
  // 20 ... 60 mm and 8 pixels around.
  EXPECT_EQ(PointsDe(scene, cadre[0]), (Points{{180, 480}, {1020, 480}, {1020, 1320}, {180, 1320}, {180, 480}}));
  EXPECT_EQ(scene.Textes[cadre[1].texte], "40.0 x 40.0 mm");
  // Above it, and wholly in the picture: 14 signs of 100 twips.
  EXPECT_EQ(PointsDe(scene, cadre[1])[0], (PointEcran{700, 480 - 11 * 15}));
}

TEST(CadreSelection, HasItsSizeInThePictureWhereverTheBoxEnds) {
  essai::AjouteCarre(" A", -500, -500, 2000);
  const Scene scene = Construit(Sobre());
  const auto cadre = De(scene, Role::CadreSelection);
  ASSERT_EQ(cadre.size(), 2U);
  const PointEcran place = PointsDe(scene, cadre[1])[0];
  EXPECT_TRUE(place.X > 0 && place.X < 3000 && place.Y > 0 && place.Y < 1500) << place.X << " " << place.Y;
}

TEST(BoiteDe, HoldsAllSelectedPaths) {
  DeuxCarres();
  EXPECT_TRUE(BoiteDe(Doc).vide);
  Sequences[0].Selection = Sequences[1].Selection = Vrai;
  EXPECT_EQ(BoiteDe(Doc), (BoiteSelection{false, 20, 110, 20, 60}));
}

TEST(Survol, IsTheWholePathOfTheCodeAndNoOther) {
  DeuxCarres();
  Scene scene;
  AjouteSurvol(Doc, Code2(" B"), Face, Image, Sobre(), scene);
  ASSERT_EQ(scene.Primitives.size(), 1U);
  EXPECT_EQ(scene.Primitives[0].role, Role::Survol);
  EXPECT_EQ(scene.Points.front(), (PointEcran{1500, 1050}));
  AjouteSurvol(Doc, Code2("ZZ"), Face, Image, Sobre(), scene);
  EXPECT_EQ(scene.Primitives.size(), 1U);
}

}  // namespace
