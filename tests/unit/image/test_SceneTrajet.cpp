// What the picture shows of the tool path.
#include <gtest/gtest.h>

#include <algorithm>

#include "core/DocumentCourant.h"
#include "image/SceneDocument.h"
#include "tests/support/Support.h"
#include "tests/unit/image/SceneEssai.h"

namespace {

using namespace ovelin;
using namespace essai;

TEST(Dessin, ShowsMovesInTheAirWithAnArrowThenTheToolPath) {
  essai::AjouteSequence(" A", {{10, 10}, {20, 10}});
  AjouteTrace(" A", {P(40, 20), P(80, 20)});
  AjouteTrace(" A", {P(80, 60), P(40, 60)});
  const Scene scene = Construit();
  const auto p = De(scene, DeLOutil);
  ASSERT_EQ(p.size(), 6U);
  // From the origin, where a job starts, to the first path.
  EXPECT_EQ(p[0].role, Role::Air);
  EXPECT_EQ(PointsDe(scene, p[0]), (Points{{0, 1500}, {600, 1200}}));
  EXPECT_EQ(p[1].genre, Genre::Fleches);
  EXPECT_EQ(p[2].role, Role::Trajet);
  EXPECT_EQ(PointsDe(scene, p[2]), (Points{{600, 1200}, {1200, 1200}}));
  // From the end of that path straight up to the next one; the arrow of 90 twips around the middle.
  EXPECT_EQ(PointsDe(scene, p[3]), (Points{{1200, 1200}, {1200, 600}}));
  const Points fleche = PointsDe(scene, p[4]);
  ASSERT_EQ(fleche.size(), 3U);
  EXPECT_EQ(fleche[1], (PointEcran{1200, 855}));
  EXPECT_EQ(fleche[0].Y, 945.0F);
  EXPECT_EQ(fleche[2].Y, 945.0F);
  EXPECT_EQ(fleche[0].X + fleche[2].X, 2400.0F);
  EXPECT_EQ(PointsDe(scene, p[5]), (Points{{1200, 600}, {600, 600}}));
}

TEST(Dessin, LeavesOutPathsThatAreNotMilledAndFailedOffsets) {
  essai::AjouteSequence(" A", {{10, 10}, {20, 10}});
  essai::AjouteSequence(" B", {{10, 10}, {20, 10}});
  essai::AjouteSequence(" C", {{10, 10}, {20, 10}});
  Sequences[1].Fraiser = Faux;
  AjouteTrace(" A", {P(40, 20), P(80, 20)});
  AjouteTrace(" B", {P(5, 5), P(6, 6)});
  AjouteTrace(" C", {});
  AjouteTrace(" C", {P(80, 60), P(40, 60)});
  const Scene scene = Construit();
  const auto p = De(scene, DeLOutil);
  ASSERT_EQ(p.size(), 6U);
  EXPECT_EQ(PointsDe(scene, p[3]), (Points{{1200, 1200}, {1200, 600}}));  // straight from A to C
}

// A square of 20 mm; a pass of 1 mm at 1 in 25 needs 25 mm.
OptionsScene AvecRampe() {
  OptionsScene o = Options();
  o.descente = {2.290610042638530, -1};
  return o;
}
void CarreDe20(double profondeur) {
  essai::AjouteSequence(" A", {{10, 10}, {20, 10}});
  Sequences[0].Profondeur = profondeur;
  AjouteTrace(" A", {P(40, 20), P(40, 40), P(60, 40), P(60, 20), P(40, 20)});
}

TEST(Dessin, ShowsTheWayDownUnderTheToolPath) {
  CarreDe20(-3);
  const Scene scene = Construit(AvecRampe());
  const auto rampes = De(scene, Role::Rampe);
  ASSERT_EQ(rampes.size(), 1U);
  const Points points = PointsDe(scene, rampes[0]);
  ASSERT_EQ(points.size(), 3U);
  EXPECT_EQ(points[0], (PointEcran{600, 1200}));
  EXPECT_EQ(points[1], (PointEcran{600, 900}));
  EXPECT_NEAR(static_cast<double>(points[2].X), 675, 0.01) << "5 mm behind the corner";
  EXPECT_EQ(points[2].Y, 900.0F);
  const auto rang = [&](Role role) {
    return std::ranges::find(scene.Primitives, role, &Primitive::role) - scene.Primitives.begin();
  };
  EXPECT_LT(rang(Role::Rampe), rang(Role::Trajet));
}

TEST(Dessin, ShowsAWayDownOfAShallowPathAndNoneLongerThanOnceRound) {
  CarreDe20(-0.4);
  Scene scene = Construit(AvecRampe());
  ASSERT_EQ(De(scene, Role::Rampe).size(), 1U);
  EXPECT_NEAR(static_cast<double>(PointsDe(scene, De(scene, Role::Rampe)[0]).back().Y), 1050, 0.01) << "10 mm";
  Sequences[0].Profondeur = -50;
  OptionsScene o = AvecRampe();
  o.descente.passe = -50;
  scene = Construit(o);
  EXPECT_EQ(PointsDe(scene, De(scene, Role::Rampe)[0]),
            (Points{{600, 1200}, {600, 900}, {900, 900}, {900, 1200}, {600, 1200}}));
}

TEST(Dessin, ShowsNoWayDownWhereTheToolGoesStraight) {
  CarreDe20(-3);
  EXPECT_TRUE(De(Construit(), Role::Rampe).empty()) << "without an angle";
  AjouteTrace(" A", {P(40, 20), P(80, 20)});
  EXPECT_EQ(De(Construit(AvecRampe()), Role::Rampe).size(), 1U) << "an open path";
  Sequences[0].Profondeur = 0;
  EXPECT_TRUE(De(Construit(AvecRampe()), Role::Rampe).empty()) << "a path of no depth";
}

TEST(Dessin, ShowsNoToolPathWhenNothingIsMilled) {
  essai::AjouteSequence(" A", {{10, 10}, {20, 10}});
  Sequences[0].Fraiser = Faux;
  AjouteTrace(" Z", {P(40, 20), P(80, 20)});  // its record is missing, which counts as milled
  EXPECT_TRUE(De(Construit(), DeLOutil).empty());
  Sequences[0].Fraiser = Vrai;
  EXPECT_FALSE(De(Construit(), DeLOutil).empty());
}

TEST(Dessin, AShortMoveInTheAirHasNoArrowAndOneWithinAPixelNothingAtAll) {
  essai::AjouteSequence(" A", {{10, 10}, {20, 10}});
  AjouteTrace(" A", {P(2, 0), P(40, 0)});         // 30 twips from the origin
  AjouteTrace(" A", {P(40, 0.5F), P(80, 0.5F)});  // 7.5 twips
  const auto p = De(Construit(), DeLOutil);
  ASSERT_EQ(p.size(), 3U);
  for (const Primitive& q : p) EXPECT_EQ(q.genre, Genre::Ligne);
  EXPECT_EQ(p[0].role, Role::Air);
  EXPECT_EQ(p[1].role, Role::Trajet);
  EXPECT_EQ(p[2].role, Role::Trajet);
}

TEST(Dessin, ShowsANotchAsOne) {
  essai::AjouteSequence(" A", {{10, 10}, {20, 10}});
  AjouteTrace(" A", {P(10, 0), P(20, 0), P(30, 0, CodePE), P(40, 0, CodePE), P(50, 0, CodePC), P(60, 0, CodePE),
                     P(70, 0), P(80, 0)});
  const Scene scene = Construit();
  auto p = De(scene, DeLOutil);
  p.erase(p.begin(), p.begin() + 2);  // the move in the air
  ASSERT_EQ(p.size(), 3U);
  EXPECT_EQ(PointsDe(scene, p[0]), (Points{{150, 1500}, {300, 1500}, {450, 1500}}));
  EXPECT_EQ(p[0].role, Role::Trajet);
  EXPECT_EQ(PointsDe(scene, p[1]), (Points{{450, 1500}, {600, 1500}, {750, 1500}, {900, 1500}, {1050, 1500}}));
  EXPECT_EQ(p[1].role, Role::Encoche);
  EXPECT_EQ(PointsDe(scene, p[2]), (Points{{1050, 1500}, {1200, 1500}}));
  EXPECT_EQ(p[2].role, Role::Trajet);
}

TEST(Dessin, AMarkWithoutANotchLeavesABareStretch) {
  essai::AjouteSequence(" A", {{10, 10}, {20, 10}});
  AjouteTrace(" A", {P(10, 0), P(20, 0, CodePC), P(30, 0)});
  auto p = De(Construit(), DeLOutil);
  p.erase(p.begin(), p.begin() + 2);
  ASSERT_EQ(p.size(), 2U);
  EXPECT_EQ(p[1].role, Role::TrajetNu);
}

TEST(Dessin, AMarkAtTheEndOfATraceStartsNoStretch) {
  essai::AjouteSequence(" A", {{10, 10}, {20, 10}});
  AjouteTrace(" A", {P(10, 0), P(20, 0), P(30, 0, CodePC)});
  auto p = De(Construit(), DeLOutil);
  ASSERT_EQ(p.size(), 3U);
  EXPECT_EQ(p[2].role, Role::Trajet);
  EXPECT_EQ(p[2].nombre, 3U);
}

TEST(Dessin, ShowsTheToolInAHoleAndATraceOfOnePoint) {
  essai::AjouteSequence(" A", {{10, 10}, {10, 10}});
  AjouteTrace(" A", {P(10, 10), P(10, 10)});
  AjouteTrace(" A", {P(50, 10)});
  const Scene scene = Construit();
  Points vus;
  for (const Primitive& p : De(scene, DeLOutil)) {
    if (p.genre != Genre::Points) continue;
    for (const PointEcran& q : PointsDe(scene, p)) vus.push_back(q);
  }
  EXPECT_EQ(vus, (Points{{150, 1350}, {750, 1350}}));
}

TEST(Dessin, TheToolPathAloneHasItsAxesAndItsLegend) {
  essai::AjouteSequence(" A", {{10, 10}, {20, 10}});
  TraceInitial[1].Cde = CodePC;
  AjouteTrace(" A", {P(10, 5), P(20, 5)});
  OptionsScene o = Options();
  o.sequence = true;
  o.dessin = false;
  const Scene scene = Construit(o);
  for (const Primitive& p : scene.Primitives) {
    EXPECT_TRUE(p.role == Role::Air || p.role == Role::Trajet || p.role == Role::Axes ||
                p.role == Role::LegendeTrajet);
  }
  const auto legende = De(scene, DeLaLegende);
  ASSERT_EQ(legende.size(), 1U);
  EXPECT_EQ(PointsDe(scene, legende[0]), (Points{{16, 16}}));  // in the first line
}

TEST(Dessin, TheDrawingAloneHasNoToolPathAndNoLegendOfOne) {
  essai::AjouteSequence(" A", {{10, 10}, {20, 10}});
  AjouteTrace(" A", {P(10, 5), P(20, 5)});
  OptionsScene o = Options();
  o.trajet = false;
  const Scene scene = Construit(o);
  EXPECT_TRUE(De(scene, DeLOutil).empty());
  EXPECT_FALSE(De(scene, DuDessin).empty());
  EXPECT_EQ(De(scene, DeLaLegende).size(), 1U);
}

}  // namespace
