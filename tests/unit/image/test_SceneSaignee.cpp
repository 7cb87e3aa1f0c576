// What the tool takes away: bands, pockets, bridges, contours that are too narrow.
#include <gtest/gtest.h>

#include <cmath>

#include "core/DocumentCourant.h"
#include "image/SceneSaignee.h"
#include "tests/support/Support.h"
#include "tests/unit/image/SceneEssai.h"

namespace {

using namespace ovelin;
using namespace essai;

OptionsScene Sobre(double miniEncoche = 0) {
  OptionsScene o = Options();
  o.sobre = true;
  o.outil = {3, 5, miniEncoche};
  return o;
}

constexpr std::initializer_list<Role> DeLaCoupe{Role::Saignee, Role::Poche};

void UneLigne() {
  essai::AjouteSequence(" A", {{10, 10}, {80, 10}});
  AjouteTrace(" A", {P(10, 13), P(80, 13)});
}

TEST(Saignee, IsAsWideAsTheToolAndLiesUnderTheLinesOfTheDrawing) {
  UneLigne();
  const Scene scene = Construit(Sobre());
  const auto bandes = De(scene, DeLaCoupe);
  ASSERT_EQ(bandes.size(), 1U);
  EXPECT_EQ(bandes[0].genre, Genre::Ligne);
  EXPECT_EQ(bandes[0].mesure, 90);  // 6 mm of 15 twips
  EXPECT_EQ(PointsDe(scene, bandes[0]), (Points{{150, 1305}, {1200, 1305}}));
  const auto place = [&](Role role) {
    const auto it = std::find_if(scene.Primitives.begin(), scene.Primitives.end(),
                                 [role](const Primitive& p) { return p.role == role; });
    return it - scene.Primitives.begin();
  };
  EXPECT_LT(place(Role::Saignee), place(Role::Selection));
  EXPECT_LT(place(Role::Selection), place(Role::Trajet));
}

TEST(Saignee, IsNotShownWithoutItsButtonNorInThePlainPicture) {
  UneLigne();
  OptionsScene sans = Sobre();
  sans.outil = {};
  EXPECT_TRUE(De(Construit(sans), DeLaCoupe).empty());
  OptionsScene plein = Sobre();
  plein.sobre = false;
  for (const Primitive& p : Construit(plein).Primitives) EXPECT_LT(p.role, Role::Feuille);
}

TEST(Saignee, IsLeftOutWhereItWouldBeNoWiderThanItsLine) {
  UneLigne();
  OptionsScene o = Sobre();
  o.outil.rayon = 0.7;  // 1.4 pixels
  EXPECT_TRUE(De(Construit(o), DeLaCoupe).empty());
  o.outil.rayon = 0.8;
  EXPECT_FALSE(De(Construit(o), DeLaCoupe).empty());
}

TEST(Saignee, IsDarkerTheDeeperAndTheDeeperOneCountsWhereTwoMeet) {
  essai::AjouteSequence(" A", {{10, 10}, {80, 10}}, 1, -4);
  essai::AjouteSequence(" B", {{10, 20}, {80, 20}}, 1, -1);
  AjouteTrace(" A", {P(10, 10), P(80, 10)});
  AjouteTrace(" B", {P(10, 20), P(80, 20)});
  const Scene scene = Construit(Sobre());
  const auto bandes = De(scene, DeLaCoupe);
  ASSERT_EQ(bandes.size(), 2U);
  EXPECT_EQ(PointsDe(scene, bandes[0])[0].Y, 1200);  // B, the shallow one, is drawn first
  EXPECT_LT(bandes[0].force, bandes[1].force);
  EXPECT_EQ(bandes[1].force, 255);
}

TEST(Saignee, LeavesAPathOutThatIsNotMilledOrHasNoDepth) {
  UneLigne();
  Sequences[0].Profondeur = 0;
  EXPECT_TRUE(De(Construit(Sobre()), DeLaCoupe).empty());
  Sequences[0].Profondeur = -1;
  Sequences[0].Fraiser = Faux;
  EXPECT_TRUE(De(Construit(Sobre()), DeLaCoupe).empty());
}

// A notch of a path 3 mm deep between x = 30 and x = 50.
void UneEncoche() {
  essai::AjouteSequence(" A", {{10, 10}, {80, 10}});
  AjouteTrace(" A", {P(10, 10), P(30, 10, CodePE), P(40, 10, CodePC), P(50, 10), P(80, 10)});
}

TEST(Saignee, ABridgeAsHighAsTheCutIsDeepIsAGap) {
  UneEncoche();
  const Scene scene = Construit(Sobre(3));
  const auto bandes = De(scene, DeLaCoupe);
  ASSERT_EQ(bandes.size(), 2U);
  EXPECT_EQ(PointsDe(scene, bandes[0]), (Points{{150, 1350}, {450, 1350}}));
  EXPECT_EQ(PointsDe(scene, bandes[1]), (Points{{750, 1350}, {1200, 1350}}));
}

TEST(Saignee, ALowerBridgeIsALighterPlace) {
  UneEncoche();
  const Scene scene = Construit(Sobre(1));
  const auto bandes = De(scene, DeLaCoupe);
  ASSERT_EQ(bandes.size(), 3U);
  EXPECT_EQ(PointsDe(scene, bandes[0]), (Points{{450, 1350}, {600, 1350}, {750, 1350}}));
  EXPECT_LT(bandes[0].force, bandes[1].force);
  EXPECT_EQ(bandes[1].force, bandes[2].force);
}

TEST(Saignee, ABridgeOfNoHeightIsNoBridge) {
  UneEncoche();
  const Scene scene = Construit(Sobre(0));
  const auto bandes = De(scene, DeLaCoupe);
  ASSERT_EQ(bandes.size(), 1U);
  EXPECT_EQ(PointsDe(scene, bandes[0]).front(), (PointEcran{150, 1350}));
  EXPECT_EQ(PointsDe(scene, bandes[0]).back(), (PointEcran{1200, 1350}));
}

TEST(Saignee, TheHeightOfABridgeIsWrittenWhereThereIsRoomForIt) {
  UneEncoche();
  const auto hauteurs = [](const Scene& scene) {
    std::vector<std::string> textes;
    for (const Primitive& p : De(scene, Role::Encoche)) {
      if (p.genre == Genre::Texte) textes.push_back(scene.Textes[p.texte]);
    }
    return textes;
  };
  OptionsScene o = Sobre(1.5);
  EXPECT_TRUE(hauteurs(Construit(o)).empty());  // 5 pixels
  o.outil.largeurEncoche = 40;
  EXPECT_EQ(hauteurs(Construit(o)), (std::vector<std::string>{"1.5 mm"}));
}

TEST(Saignee, TheRingsOfAPocketAreOneSurfaceOfTheirOwn) {
  essai::AjouteCarre(" A", 10, 10, 30);
  Sequences[0].Poche = Vrai;
  AjouteTrace(" A", {P(13, 13), P(13, 37), P(37, 37), P(37, 13), P(13, 13)});
  AjouteTrace(" A", {P(18, 18), P(18, 32), P(32, 32), P(32, 18), P(18, 18)});
  const Scene scene = Construit(Sobre());
  const auto bandes = De(scene, DeLaCoupe);
  ASSERT_EQ(bandes.size(), 2U);
  for (const Primitive& p : bandes) EXPECT_EQ(p.role, Role::Poche);
  EXPECT_EQ(NappeDe(Role::Poche), NappeDe(Role::Saignee));
}

TEST(Saignee, AHoleIsADiscOfTheToolsDiameter) {
  essai::AjouteSequence(" A", {{40, 40}, {40, 40}});
  AjouteTrace(" A", {P(40, 40), P(40, 40)});
  const auto bandes = De(Construit(Sobre()), DeLaCoupe);
  ASSERT_EQ(bandes.size(), 1U);
  EXPECT_EQ(bandes[0].genre, Genre::Points);
  EXPECT_EQ(bandes[0].mesure, 90);
}

TEST(Saignee, ThatReachesIntoThePictureFromBesideItIsThere) {
  essai::AjouteSequence(" A", {{-2, 10}, {-2, 90}});
  AjouteTrace(" A", {P(-2, 10), P(-2, 90)});  // 2 mm left of the edge, 3 mm of it to each side
  EXPECT_EQ(De(Construit(Sobre()), DeLaCoupe).size(), 1U);
}

// A circle of 40 mm is 251 pixels long, however many points it has.
TEST(Saignee, HasNoMorePointsThanThePictureCanShow) {
  std::vector<PointTrace> cercle;
  for (int i = 0; i <= 100'000; ++i) {
    const double a = 2 * Pi * i / 100'000;
    cercle.push_back(P(static_cast<float>(100 + 40 * std::cos(a)), static_cast<float>(50 + 40 * std::sin(a))));
  }
  essai::AjouteSequence(" A", {{0, 0}, {200, 100}});
  AjouteTrace(" A", std::move(cercle));
  std::size_t points = 0;
  for (const Primitive& p : De(Construit(Sobre()), DeLaCoupe)) points += p.nombre;
  EXPECT_GT(points, 100U);
  EXPECT_LT(points, 1500U);
}

TEST(TropEtroit, IsHatchedInTheContourThatHasNoPath) {
  essai::AjouteCarre(" A", 10, 10, 4);
  essai::AjouteCarre(" B", 30, 10, 40);
  AjouteTrace(" A", {});
  AjouteTrace(" B", {});
  AjouteTrace(" B", {P(33, 13), P(67, 47)});  // one piece of it has a path
  const Scene scene = Construit(Sobre());
  const auto traits = De(scene, Role::TropEtroit);
  ASSERT_GE(traits.size(), 2U);  // outline and at least one line in it: 4 mm are 60 twips
  for (const Primitive& p : traits) {
    for (const PointEcran& q : PointsDe(scene, p)) {
      EXPECT_TRUE(q.X >= 149 && q.X <= 211 && q.Y >= 1289 && q.Y <= 1351) << q.X << " " << q.Y;
    }
  }
}

TEST(TropEtroit, IsNoIsland) {
  essai::AjouteCarre(" A", 10, 10, 4);
  AjouteTrace(" A", {});
  EXPECT_FALSE(De(Construit(Sobre()), Role::TropEtroit).empty());
  Complements.Pose(Code2(" A"), {true, "", std::nullopt});
  EXPECT_TRUE(De(Construit(Sobre()), Role::TropEtroit).empty());
}

TEST(TropEtroit, IsNotWhatIsNotMilled) {
  essai::AjouteCarre(" A", 10, 10, 4);
  AjouteTrace(" A", {});
  Sequences[0].Fraiser = Faux;
  EXPECT_TRUE(De(Construit(Sobre()), Role::TropEtroit).empty());
}

}  // namespace
