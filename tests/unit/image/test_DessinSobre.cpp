// The quiet picture: the same elements in the same order, fewer of them.
#include <gtest/gtest.h>

#include <cmath>

#include "core/DocumentCourant.h"
#include "image/Palette.h"
#include "image/PlacesPrises.h"
#include "image/SceneDocument.h"
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

TEST(DessinSobre, OnlyLongMovesInTheAirHaveAnArrow) {
  essai::AjouteSequence(" A", {{10, 10}, {20, 10}});
  AjouteTrace(" A", {P(30, 0), P(40, 0)});
  AjouteTrace(" A", {P(90, 0), P(95, 0)});
  std::size_t fleches = 0;
  const Scene scene = Construit(Sobre());
  for (const Primitive& p : De(scene, Role::Air)) fleches += p.genre == Genre::Fleches ? p.nombre / 3 : 0;
  EXPECT_EQ(fleches, 1U);  // 30 pixels have none, 50 have one
}

TEST(DessinSobre, PointsAreHollowAndThereOnlyWhereTheyHaveRoom) {
  std::vector<std::pair<float, float>> serres;
  for (int i = 0; i < 40; ++i) serres.emplace_back(20.0F + static_cast<float>(i), 20.0F);
  essai::AjouteSequence(" A", serres);
  OptionsScene o = Sobre();
  o.numPoint = true;
  const auto compte = [&o](Role role) {
    std::size_t n = 0;
    const Scene scene = Construit(o);
    for (const Primitive& p : De(scene, role)) n += p.genre == Genre::Disque ? p.nombre : 0;
    return n;
  };
  EXPECT_EQ(compte(Role::PointSelection), 40U);  // of the selection always
  Deselectionne();
  const std::size_t vus = compte(Role::PointDessin);
  EXPECT_GT(vus, 5U);
  EXPECT_LT(vus, 25U);
  for (const Primitive& p : De(Construit(o), DuDessin)) EXPECT_NE(p.genre, Genre::Carres);
}

TEST(DessinSobre, NumbersStandBesideTheStartAndNeverOverEachOther) {
  for (int i = 0; i < 30; ++i) {
    const auto x = static_cast<float>(20 + 3 * i);
    essai::AjouteSequence(std::string("A") + static_cast<char>('A' + i), {{x, 20}, {x, 40}});
  }
  Deselectionne();
  Sequences[17].Selection = Vrai;
  OptionsScene o = Sobre();
  o.sequence = true;
  const Scene scene = Construit(o);
  std::vector<Primitive> disques;
  for (const Primitive& p : De(scene, DesNumeros)) {
    if (p.genre == Genre::Disque) disques.push_back(p);
  }
  ASSERT_GT(disques.size(), 3U);
  EXPECT_LT(disques.size(), 30U);
  EXPECT_EQ(disques[0].role, Role::NumeroSelection);  // it has its place before the others
  for (std::size_t i = 0; i < disques.size(); ++i) {
    const PointEcran a = scene.PointsDe(disques[i])[0];
    EXPECT_GT(std::abs(std::remainder(a.X - 300, 45)) + std::abs(a.Y - 1200), 50);  // on no start
    for (std::size_t j = 0; j < i; ++j) {
      const PointEcran b = scene.PointsDe(disques[j])[0];
      EXPECT_GE(std::hypot(a.X - b.X, a.Y - b.Y), disques[i].mesure + disques[j].mesure - 0.01);
    }
  }
}

TEST(DessinSobre, AnArrowOfAStartIsNoLongerThanAThirdOfItsPath) {
  essai::AjouteCarre(" A", 20, 20, 10);   // 150 twips
  essai::AjouteCarre(" B", 50, 20, 2);    // 30 twips: no room for an arrow
  essai::AjouteCarre(" C", 100, 20, 80);  // large
  const Scene scene = Construit(Sobre());
  const auto departs = De(scene, Role::Depart);
  ASSERT_EQ(departs.size(), 1U);
  const Points p = PointsDe(scene, departs[0]);
  ASSERT_EQ(p.size(), 6U);
  EXPECT_NEAR(1200 - p[1].Y, 150 * 0.35, 0.1);  // the path of A goes up from (20, 20)
  EXPECT_EQ(1200 - p[4].Y, 120);
}

TEST(DessinSobre, OrderAndColoursAreThoseOfTheOtherColumn) {
  Reglages plein{.DessinSobre = false};
  const Palette a = ConstruitPalette(plein, Theme::Clair);
  const Palette b = ConstruitPalette(Reglages{}, Theme::Clair);
  for (std::size_t i = 0; i < NombreRoles; ++i) {
    EXPECT_EQ(a.aspects[i].couleur, b.aspects[i].couleur);
    EXPECT_EQ(a.aspects[i].fond, b.aspects[i].fond);
    EXPECT_EQ(a.aspects[i].couleurTexte, b.aspects[i].couleurTexte);
    EXPECT_EQ(a.aspects[i].opacite, 1);
  }
  EXPECT_LT(b[Role::Air].opacite, 1);
  EXPECT_EQ(b[Role::Dessin].opacite, 1);
}

// Red as delivered, (255, 0, 0). On white 55 % of it is (255, 115, 115), of contrast 2.6; on (36, 38, 41) it would
// be (156, 17, 18), of 1.8, and it takes 75 %, (200, 10, 10), to have 2.5.
TEST(DessinSobre, AirMovesAreAsPaleOnDarkPaperAsMayBeWithoutBeingLost) {
  EXPECT_FLOAT_EQ(ConstruitPalette(Reglages{}, Theme::Clair)[Role::Air].opacite, 0.55F);
  EXPECT_NEAR(ConstruitPalette(Reglages{}, Theme::Sombre)[Role::Air].opacite, 0.75F, 0.03F);
}

TEST(PlacesPrises, RefusesWhatWouldOverlapAndTakesWhatTouches) {
  PlacesPrises places(10);
  EXPECT_TRUE(places.Prend({0, 0}, 10));
  EXPECT_FALSE(places.Prend({19, 0}, 10));
  EXPECT_TRUE(places.Prend({20, 0}, 10));
  EXPECT_TRUE(places.Prend({0, 15}, 5));
  EXPECT_FALSE(places.Prend({-3, -9}, 1));
}

}  // namespace
