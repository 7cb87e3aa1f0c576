// What the picture shows, in which order, roles and places. At this scale a millimetre is a pixel of 15 twips,
// and the drawing's origin stands in the lower left corner: (x, y) mm is shown at (15 x, 1500 - 15 y).
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "core/DocumentCourant.h"
#include "core/ReglagesCourants.h"
#include "image/Apercu.h"
#include "image/Marques.h"
#include "image/SceneDocument.h"
#include "tests/support/Support.h"

namespace {

using namespace ovelin;
using Points = std::vector<PointEcran>;

constexpr TailleImage Image{3000, 1500};
constexpr EtatVue Face{15, 0, 0, 0, 0};

MesureTexte Police() {
  return [](const std::string& t) { return TailleTexte{100.0F * static_cast<float>(t.size()), 160}; };
}

OptionsScene Options() {
  OptionsScene o;
  o.legendeDessin = "dessin";
  o.legendeDecalage = "trajet";
  o.mesureTexte = Police();
  return o;
}

Scene Construit(const OptionsScene& o = Options()) {
  Scene scene;
  ConstruitScene(Doc, Face, Image, o, scene);
  return scene;
}

std::vector<Primitive> De(const Scene& scene, std::initializer_list<Role> roles) {
  std::vector<Primitive> p;
  std::copy_if(scene.Primitives.begin(), scene.Primitives.end(), std::back_inserter(p),
               [&](const Primitive& q) { return std::find(roles.begin(), roles.end(), q.role) != roles.end(); });
  return p;
}
std::vector<Primitive> De(const Scene& scene, Role role) { return De(scene, {role}); }

constexpr std::initializer_list<Role> DuDessin{Role::Dessin, Role::Selection};
constexpr std::initializer_list<Role> DeLOutil{Role::Air, Role::Trajet, Role::TrajetNu, Role::Encoche};
constexpr std::initializer_list<Role> DesNumeros{Role::Numero, Role::NumeroSelection};
constexpr std::initializer_list<Role> DeLaLegende{Role::LegendeDessin, Role::LegendeTrajet};

Points PointsDe(const Scene& scene, const Primitive& p) {
  const auto vue = scene.PointsDe(p);
  return {vue.begin(), vue.end()};
}

void AjouteTrace(const std::string& code, std::vector<PointTrace> points) {
  TraceDecale.push_back({Code2(code), std::move(points)});
}

PointTrace P(float x, float y, Code2 cde = CodePD) { return {x, y, cde, {}}; }

void Deselectionne() {
  for (SequenceInfo& s : Sequences) s.Selection = Faux;
}

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

TEST(PointsApercu, TakesEachPointUpToAThousandAndEachKthBeyond) {
  const auto nombre = [](std::size_t n) { return PointsApercu(std::vector<PointTrace>(n)).size(); };
  EXPECT_EQ(nombre(0), 0U);
  EXPECT_EQ(nombre(1000), 1000U);
  EXPECT_EQ(nombre(1499), 1499U);   // k = Round(1.499) = 1
  EXPECT_EQ(nombre(1600), 800U);    // k = 2
  EXPECT_EQ(nombre(2500), 1250U);   // halves to even: k = 2
  EXPECT_EQ(nombre(10000), 1000U);  // k = 10
}

TEST(PointsApercu, StartsWithTheFirstPoint) {
  std::vector<PointTrace> points(2000);
  for (std::size_t i = 0; i < points.size(); ++i) points[i].X = static_cast<float>(i);
  const auto choisis = PointsApercu(points);
  EXPECT_EQ(choisis[0].X, 0.0F);
  EXPECT_EQ(choisis[1].X, 2.0F);
  EXPECT_EQ(choisis.back().X, 1998.0F);
}

// Two combs of 2000 points each, 50 mm apart, and short paths that the choice of points leaves out or cuts to one:
// no stroke leads from a path to another.
TEST(ConstruitApercu, NeverJoinsPointsOfTwoPathsHoweverManyThereAre) {
  std::vector<PointTrace> points;
  const auto ajoute = [&points](const char* code, float y, int nombre) {
    for (int i = 0; i < nombre; ++i) {
      points.push_back({static_cast<float>(i), y + static_cast<float>(i % 2), CodePD, Code2(code)});
    }
  };
  ajoute(" A", 0, 2000);
  for (const char* court : {" B", " C", " D", " E"}) ajoute(court, 25, 3);
  ajoute(" F", 50, 2000);
  const std::vector<PointTrace> choisis = PointsApercu(points);
  ASSERT_LT(choisis.size(), points.size());
  Scene scene;
  ConstruitApercu(choisis, 1, 1, {30000, 3000}, scene);
  // 52 mm on the picture's height stand for the drawing's 51; a stroke within a path spans a fiftieth of that.
  for (const Primitive& p : scene.Primitives) {
    const Points suite = PointsDe(scene, p);
    for (std::size_t i = 1; i < suite.size(); ++i) EXPECT_LT(std::abs(suite[i].Y - suite[i - 1].Y), 200) << i;
  }
  EXPECT_GE(scene.Primitives.size(), 2U);
}

TEST(ConstruitApercu, FitsTheShapeWithItsRatiosIntoThePicture) {
  const auto carre = essai::Trace(" A", {{0, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 0}});
  Scene scene;
  ConstruitApercu(carre, 1, 1, {3000, 3000}, scene);
  ASSERT_EQ(scene.Primitives.size(), 1U);
  EXPECT_EQ(scene.Primitives[0].role, Role::Dessin);
  EXPECT_EQ(PointsDe(scene, scene.Primitives[0]),
            (Points{{180, 2820}, {2820, 2820}, {2820, 180}, {180, 180}, {180, 2820}}));
  ConstruitApercu(carre, 2, 1, {3000, 3000}, scene);
  EXPECT_EQ(PointsDe(scene, scene.Primitives[0]),
            (Points{{180, 2160}, {2820, 2160}, {2820, 840}, {180, 840}, {180, 2160}}));
}

TEST(ConstruitApercu, KeepsPathsApartAndStandsAPointOrNone) {
  auto points = essai::Trace(" A", {{0, 0}, {10, 0}});
  const auto autre = essai::Trace(" B", {{0, 5}, {10, 5}});
  points.insert(points.end(), autre.begin(), autre.end());
  Scene scene;
  ConstruitApercu(points, 1, 1, {3000, 3000}, scene);
  EXPECT_EQ(scene.Primitives.size(), 2U);
  ConstruitApercu(essai::Trace(" A", {{7, 7}, {7, 7}}), 1, 1, {3000, 3000}, scene);
  ASSERT_EQ(scene.Primitives.size(), 1U);
  EXPECT_EQ(PointsDe(scene, scene.Primitives[0]), (Points{{1500, 1500}}));
  ConstruitApercu({}, 1, 1, {3000, 3000}, scene);
  EXPECT_TRUE(scene.Primitives.empty());
}

TEST(Dessin, AnUnselectedDrawingHasNoSelection) {
  essai::AjouteCarre(" A", 10, 10, 20);
  essai::AjouteCarre(" B", 50, 10, 20);
  Deselectionne();
  for (const Primitive& p : De(Construit(), DuDessin)) EXPECT_EQ(p.role, Role::Dessin);
}

}  // namespace
