// What the picture shows of a drawing, in which order, roles and places.
#include <gtest/gtest.h>

#include <algorithm>

#include "core/DocumentCourant.h"
#include "image/SceneDocument.h"
#include "tests/support/Support.h"
#include "tests/unit/image/SceneEssai.h"

namespace {

using namespace ovelin;
using namespace essai;

TEST(Dessin, ShowsNothingWithoutADrawing) { EXPECT_TRUE(Construit().Primitives.empty()); }

TEST(Dessin, ShowsNothingOfARefusedReading) {
  essai::AjouteCarre(" A", 10, 10, 20);
  NbPoints = -115;
  EXPECT_TRUE(Construit().Primitives.empty());
}

TEST(Dessin, IsBoundedByTheArrayWhateverTheCountSays) {
  essai::AjouteCarre(" A", 10, 10, 20);
  const Scene juste = Construit();
  NbPoints = 1000;
  EXPECT_EQ(Construit().Points, juste.Points);
}

TEST(Dessin, ReplacesWhatTheSceneHeld) {
  essai::AjouteCarre(" A", 10, 10, 20);
  Scene scene = Construit();
  const auto avant = scene.Primitives;
  ConstruitScene(Doc, Face, Image, Options(), scene);
  EXPECT_EQ(scene.Primitives, avant);
}

TEST(Dessin, KeepsTheOrderOfItsElements) {
  essai::AjouteCarre(" A", 10, 10, 20);
  essai::AjouteCarre(" B", 50, 10, 20);
  TraceInitial[2].Cde = CodePC;
  AjouteTrace(" A", {P(5, 5), P(5, 40)});
  AjouteTrace(" B", {P(60, 5), P(60, 40)});
  OptionsScene o = Options();
  o.numPoint = o.sequence = true;
  const Scene scene = Construit(o);
  std::vector<Role> roles;
  for (const Primitive& p : scene.Primitives) {
    if (roles.empty() || roles.back() != p.role) roles.push_back(p.role);
  }
  EXPECT_EQ(roles, (std::vector<Role>{Role::Etendue, Role::Selection, Role::Air, Role::Trajet, Role::Air,
                                      Role::Trajet, Role::Attache, Role::Depart, Role::NumeroSelection, Role::Axes,
                                      Role::LegendeDessin, Role::LegendeTrajet}));
}

TEST(Dessin, FramesTheExtent) {
  essai::AjouteSequence(" A", {{10, 20}, {30, 20}, {30, 60}});
  const auto cadre = De(Construit(), Role::Etendue);
  ASSERT_EQ(cadre.size(), 1U);
  EXPECT_EQ(cadre[0].genre, Genre::Ligne);
  EXPECT_EQ(PointsDe(Construit(), cadre[0]),
            (Points{{150, 1200}, {450, 1200}, {450, 600}, {150, 600}, {150, 1200}}));
}

TEST(Dessin, TakesTheExtentFromThePointsThemselves) {
  essai::AjouteSequence(" A", {{10, 20}, {30, 60}});
  Xmin = -500, Xmax = 500;  // of a moment ago
  const Scene scene = Construit();
  EXPECT_EQ(PointsDe(scene, scene.Primitives[0])[0], (PointEcran{150, 1200}));
}

TEST(Dessin, DrawsSelectedPathsAsTheSelectionAndTheOthersAsTheDrawing) {
  essai::AjouteSequence(" A", {{10, 10}, {20, 10}, {20, 30}});
  essai::AjouteSequence(" B", {{50, 10}, {60, 10}});
  Sequences[0].Selection = Faux;
  const Scene scene = Construit();
  const auto lignes = De(scene, DuDessin);
  ASSERT_EQ(lignes.size(), 2U);
  EXPECT_EQ(lignes[0].role, Role::Dessin);
  EXPECT_EQ(PointsDe(scene, lignes[0]), (Points{{150, 1350}, {300, 1350}, {300, 1050}}));
  EXPECT_EQ(lignes[1].role, Role::Selection);
  EXPECT_EQ(PointsDe(scene, lignes[1]), (Points{{750, 1350}, {900, 1350}}));
}

TEST(Dessin, NeverJoinsTwoPaths) {
  essai::AjouteSequence(" A", {{10, 10}, {20, 10}});
  essai::AjouteSequence(" B", {{20, 10}, {20, 30}});
  EXPECT_EQ(De(Construit(), DuDessin).size(), 2U);
}

TEST(Dessin, DrawsAPathWithoutARecordAsNotSelected) {
  essai::AjouteSequence(" A", {{10, 10}, {20, 10}});
  Sequences.assign(1, SequenceInfo{});
  EXPECT_EQ(De(Construit(), DuDessin)[0].role, Role::Dessin);
}

TEST(Dessin, TakesTheFirstRecordOfACodeThatStandsTwice) {
  essai::AjouteSequence(" A", {{10, 10}, {20, 10}});
  Sequences.push_back(Sequences[0]);
  Sequences[0].Selection = Faux;
  EXPECT_EQ(De(Construit(), DuDessin)[0].role, Role::Dessin);
}

TEST(Dessin, ShowsAHoleAsADotThatCanBeSeen) {
  essai::AjouteSequence(" A", {{10, 10}, {10, 10}});
  const Scene scene = Construit();
  const auto trous = De(scene, DuDessin);
  ASSERT_EQ(trous.size(), 1U);
  EXPECT_EQ(trous[0].genre, Genre::Points);
  EXPECT_GE(trous[0].mesure, 3 * TwipsParPixel);
  EXPECT_EQ(PointsDe(scene, trous[0]), (Points{{150, 1350}}));
}

TEST(CoteMarque, IsTheRootOfTheAreaDividedBy75AsAWholeNumber) {
  EXPECT_EQ(CoteMarque(Image), 28.0F);           // 2121.3 / 75 = 28.28
  EXPECT_EQ(CoteMarque({12000, 9000}), 139.0F);  // 10392.3 / 75 = 138.56
  EXPECT_EQ(CoteMarque({0, 9000}), 0.0F);
  EXPECT_EQ(CoteMarque({-10, 9000}), 0.0F);
}

TEST(Dessin, MarksEachPointOnlyWithTheButtonDown) {
  essai::AjouteSequence(" A", {{10, 10}, {20, 10}, {20, 30}});
  EXPECT_EQ(De(Construit(), DuDessin).size(), 1U);
  OptionsScene o = Options();
  o.numPoint = true;
  const Scene scene = Construit(o);
  const auto marques = De(scene, DuDessin);
  ASSERT_EQ(marques.size(), 2U);
  EXPECT_EQ(marques[1].genre, Genre::Carres);
  EXPECT_EQ(marques[1].mesure, 28.0F);
  EXPECT_EQ(marques[1].role, Role::Selection);
  EXPECT_EQ(PointsDe(scene, marques[1]), (Points{{150, 1350}, {300, 1350}, {300, 1050}}));
}

TEST(Dessin, LaysTheMarksOfAPathBetweenItsLineAndTheNextPath) {
  essai::AjouteSequence(" A", {{10, 10}, {20, 10}});
  essai::AjouteSequence(" B", {{50, 10}, {60, 10}});
  OptionsScene o = Options();
  o.numPoint = true;
  const auto p = De(Construit(o), DuDessin);
  ASSERT_EQ(p.size(), 4U);
  EXPECT_EQ(p[0].genre, Genre::Ligne);
  EXPECT_EQ(p[1].genre, Genre::Carres);
  EXPECT_EQ(p[2].genre, Genre::Ligne);
  EXPECT_EQ(p[3].genre, Genre::Carres);
}

TEST(Dessin, AnUnselectedDrawingHasNoSelection) {
  essai::AjouteCarre(" A", 10, 10, 20);
  essai::AjouteCarre(" B", 50, 10, 20);
  Deselectionne();
  for (const Primitive& p : De(Construit(), DuDessin)) EXPECT_EQ(p.role, Role::Dessin);
}

}  // namespace
