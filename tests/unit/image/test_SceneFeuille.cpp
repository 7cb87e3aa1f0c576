// Sheet, grid, zero, scale, and what leaves the travel.
#include <gtest/gtest.h>

#include "core/DocumentCourant.h"
#include "image/SceneFeuille.h"
#include "tests/support/Support.h"
#include "tests/unit/image/SceneEssai.h"

namespace {

using namespace ovelin;
using namespace essai;

OptionsScene Sobre() {
  OptionsScene o = Options();
  o.sobre = true;
  o.course = {100, 50};
  return o;
}

void UneLigne(float x0, float x1, float y = 10) {
  essai::AjouteSequence(" A", {{x0, y}, {x1, y}});
  AjouteTrace(" A", {P(x0, y), P(x1, y)});
}

TEST(Feuille, IsTheTravelOfTheMachineFromItsZero) {
  UneLigne(10, 20);
  const Scene scene = Construit(Sobre());
  const auto feuille = De(scene, Role::Feuille);
  ASSERT_EQ(feuille.size(), 1U);
  EXPECT_EQ(feuille[0].genre, Genre::Aire);
  EXPECT_EQ(PointsDe(scene, feuille[0]), (Points{{0, 750}, {1500, 750}, {1500, 1500}, {0, 1500}}));
  EXPECT_EQ(scene.Primitives.front().role, Role::Feuille);
}

TEST(Feuille, IsCutToThePictureHoweverNearOneLooks) {
  UneLigne(10, 20);
  Scene scene;
  ConstruitScene(Doc, {1e6F, 50, 25, 1500, 750}, Image, Sobre(), scene);
  for (const Role role : {Role::Feuille, Role::Grille}) {
    for (const Primitive& p : De(scene, role)) {
      for (const PointEcran& q : PointsDe(scene, p)) {
        EXPECT_TRUE(q.X >= -500 && q.X <= 3500 && q.Y >= -500 && q.Y <= 2000) << q.X << " " << q.Y;
      }
    }
  }
}

// At 15 twips a millimetre lines have room from 10 mm on: 11 and 6 of them, 2 and 1 each 100 mm, 1 and 1 each
// metre.
TEST(Grille, HasALineForEachPowerOfTenThatHasRoomWithinTheSheet) {
  UneLigne(10, 20);
  const Scene scene = Construit(Sobre());
  const auto lignes = De(scene, Role::Grille);
  EXPECT_EQ(lignes.size(), 17U + 3U + 2U);
  EXPECT_LT(lignes.front().force, lignes.back().force);
}

TEST(Grille, GrowsFainterTheNearerItsLinesStand) {
  UneLigne(10, 20);
  const auto force = [](float zoom) {
    Scene scene;
    ConstruitScene(Doc, {zoom, 0, 0, 0, 0}, Image, Sobre(), scene);
    return static_cast<int>(De(scene, Role::Grille).front().force);
  };
  EXPECT_LT(force(20), force(40));
  EXPECT_LT(force(40), force(80));
  EXPECT_GT(force(80), force(121));  // a finer one has begun
}

TEST(Feuille, WithoutATravelThereIsAGridAndNoSheet) {
  UneLigne(10, 20);
  OptionsScene o = Sobre();
  o.course = {};
  const Scene scene = Construit(o);
  EXPECT_TRUE(De(scene, {Role::Feuille, Role::BordFeuille}).empty());
  EXPECT_FALSE(De(scene, Role::Grille).empty());
}

TEST(ZeroMachine, StandsAtTheOriginAndOnlyThere) {
  UneLigne(10, 20);
  const Scene scene = Construit(Sobre());
  const auto marques = De(scene, Role::ZeroMachine);
  ASSERT_EQ(marques.size(), 3U);
  EXPECT_EQ(marques[0].genre, Genre::Disque);
  EXPECT_EQ(PointsDe(scene, marques[0]), (Points{{0, 1500}}));
  Scene ailleurs;
  ConstruitScene(Doc, {15, 500, 500, 0, 0}, Image, Sobre(), ailleurs);
  EXPECT_TRUE(De(ailleurs, Role::ZeroMachine).empty());
}

TEST(Depassement, TellsEachSideInMillimetres) {
  essai::AjouteSequence(" A", {{0, 0}, {1, 1}});
  AjouteTrace(" A", {P(-3, 10), P(104.5F, 10), P(50, -2), P(50, 57)});
  const Depassement d = DepassementDe(Doc, {100, 50});
  EXPECT_EQ(d.gauche, 3);
  EXPECT_EQ(d.droite, 4.5);
  EXPECT_EQ(d.bas, 2);
  EXPECT_EQ(d.haut, 7);
  EXPECT_FALSE(d.Vide());
}

TEST(Depassement, IsNoneOnTheVeryEdgeAndWithoutATravel) {
  UneLigne(0, 100, 50);
  EXPECT_TRUE(DepassementDe(Doc, {100, 50}).Vide());
  EXPECT_FALSE(DepassementDe(Doc, {99, 50}).Vide());
  EXPECT_TRUE(DepassementDe(Doc, {}).Vide());
}

TEST(Depassement, CountsThePathOfTheToolAndTheDrawingOnlyWhereThereIsNone) {
  essai::AjouteSequence(" A", {{-20, 10}, {20, 10}});
  EXPECT_EQ(DepassementDe(Doc, {100, 50}).gauche, 20);
  AjouteTrace(" A", {P(5, 10), P(20, 10)});
  EXPECT_TRUE(DepassementDe(Doc, {100, 50}).Vide());
  Sequences[0].Fraiser = Faux;
  EXPECT_EQ(DepassementDe(Doc, {100, 50}).gauche, 20);  // nothing is milled: the drawing counts
}

TEST(Hors, MarksWhatLiesBeyondTheTravelAndNothingElse) {
  UneLigne(90, 110);
  const Scene scene = Construit(Sobre());
  const auto dehors = De(scene, Role::Hors);
  ASSERT_EQ(dehors.size(), 1U);
  const Points points = PointsDe(scene, dehors[0]);
  EXPECT_NEAR(points.front().X, 1500, 0.1);
  EXPECT_EQ(points.back(), (PointEcran{1650, 1350}));
}

TEST(Hors, FollowsAPathThatLeavesTwice) {
  essai::AjouteSequence(" A", {{0, 0}, {1, 1}});
  AjouteTrace(" A", {P(50, 10), P(120, 10), P(120, 20), P(50, 20), P(-10, 20)});
  const Scene scene = Construit(Sobre());
  const auto dehors = De(scene, Role::Hors);
  ASSERT_EQ(dehors.size(), 2U);
  EXPECT_EQ(dehors[0].nombre, 4U);  // out, corner, corner, back in
  EXPECT_EQ(PointsDe(scene, dehors[1]).back(), (PointEcran{-150, 1200}));
}

TEST(Hors, IsNothingWithinTheTravel) {
  UneLigne(10, 90);
  EXPECT_TRUE(De(Construit(Sobre()), Role::Hors).empty());
}

TEST(Echelle, IsARoundLengthWithinItsPlace) {
  Scene scene;
  AjouteEchelle(Face, {100, 1400}, 800, scene);  // 53.3 mm
  const auto barre = De(scene, Role::Echelle);
  ASSERT_EQ(barre.size(), 2U);
  EXPECT_EQ(PointsDe(scene, barre[0])[2], (PointEcran{100 + 50 * 15, 1400}));
  EXPECT_EQ(scene.Textes[barre[1].texte], "50 mm");
}

TEST(Echelle, StandsInThePictureThatAsksForIt) {
  UneLigne(10, 20);
  OptionsScene o = Sobre();
  EXPECT_TRUE(De(Construit(o), Role::Echelle).empty());
  o.echelle = true;
  EXPECT_EQ(De(Construit(o), Role::Echelle).size(), 2U);
}

}  // namespace
