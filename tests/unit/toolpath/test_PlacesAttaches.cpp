// Where attachment points go by themselves.
#include <cmath>

#include "core/DocumentCourant.h"
#include "core/ReglagesCourants.h"
#include "tests/unit/toolpath/BiblioEssai.h"
#include "toolpath/Attaches.h"
#include "toolpath/Module_Sequence.h"
#include "toolpath/chemins/PlacesAttaches.h"

using namespace ovelin;
using namespace essai;

namespace {

PointTrace P(float x, float y) { return {x, y, CodePD, Code2(" A")}; }

// 100 x 60 mm, from its lower left corner upward.
std::vector<PointTrace> Rectangle() { return {P(0, 0), P(0, 60), P(100, 60), P(100, 0), P(0, 0)}; }

double Bout(const PointTrace& p, float x, float y) { return std::hypot(p.X - x, p.Y - y); }

TEST(PlacesAttaches, SpreadEvenlyAwayFromTheCorners) {
  const auto places = PlacesAttaches(Rectangle(), {4, 0}, 5);
  ASSERT_EQ(places.size(), 4U);
  for (std::size_t i = 0; i < 4; ++i) {
    EXPECT_EQ(places[i].point.Cde, CodePC);
    for (const auto& [x, y] : {std::pair{0.F, 0.F}, {0.F, 60.F}, {100.F, 60.F}, {100.F, 0.F}}) {
      EXPECT_GE(Bout(places[i].point, x, y), 5 - 1e-3);
    }
    // 320 mm around: one each 80, 40 from the start; none has to move more than the notch's radius here.
    EXPECT_NEAR(places[i].parcouru, 40 + 80 * static_cast<double>(i), 5.1);
  }
}

TEST(PlacesAttaches, OneEachSoManyMillimetres) {
  EXPECT_EQ(PlacesAttaches(Rectangle(), {0, 80}, 5).size(), 4U);
  EXPECT_EQ(PlacesAttaches(Rectangle(), {0, 81}, 5).size(), 3U);
  EXPECT_EQ(PlacesAttaches(Rectangle(), {0, 1000}, 5).size(), 1U);
  EXPECT_TRUE(PlacesAttaches(Rectangle(), {}, 5).empty());
}

TEST(PlacesAttaches, NeverNearerToEachOtherThanTwoNotchesHoweverManyAreWished) {
  const auto places = PlacesAttaches(Rectangle(), {200, 0}, 6);
  ASSERT_GT(places.size(), 10U);
  for (std::size_t i = 1; i < places.size(); ++i) EXPECT_GE(places[i].parcouru - places[i - 1].parcouru, 12 - 1e-6);
}

TEST(PlacesAttaches, KeepAwayFromThoseThatAreThere) {
  std::vector<PointTrace> run = Rectangle();
  run.insert(run.begin() + 1, {0, 40, CodePC, Code2(" A")});  // where the first of four would go
  const auto places = PlacesAttaches(run, {4, 0}, 5);
  for (const PlaceAttache& p : places) EXPECT_GE(Bout(p.point, 0, 40), 10 - 1e-3);
}

TEST(PlacesAttaches, PreferAStraightStretchToARoundOne) {
  // A slot: straights of 60 mm, ends of 20 mm radius in chords of 6 degrees.
  std::vector<PointTrace> run{P(0, 0), P(60, 0)};
  const double pas = std::acos(-1.0) / 30;
  for (int i = 1; i <= 30; ++i) {
    run.push_back(
        P(static_cast<float>(60 + 20 * std::sin(i * pas)), static_cast<float>(20 - 20 * std::cos(i * pas))));
  }
  run.push_back(P(0, 40));
  for (int i = 1; i <= 30; ++i) {
    run.push_back(P(static_cast<float>(-20 * std::sin(i * pas)), static_cast<float>(20 + 20 * std::cos(i * pas))));
  }
  run.back() = run.front();
  const auto places = PlacesAttaches(run, {2, 0}, 4);
  ASSERT_EQ(places.size(), 2U);
  for (const PlaceAttache& p : places) EXPECT_TRUE(p.point.X >= 0 && p.point.X <= 60) << p.point.X;
}

TEST(PlacesAttaches, ACircleOfChordsHasRoomAlthoughItIsNowhereStraight) {
  std::vector<PointTrace> run;
  for (int i = 0; i <= 90; ++i) {
    const double a = 2 * std::acos(-1.0) * (i % 90) / 90;
    run.push_back(P(static_cast<float>(30 * std::cos(a)), static_cast<float>(30 * std::sin(a))));
  }
  EXPECT_EQ(PlacesAttaches(run, {3, 0}, 4).size(), 3U);
}

TEST(PlacesAttaches, ThereAreNoneWithoutRoom) {
  const std::vector<PointTrace> petit{P(0, 0), P(0, 6), P(6, 6), P(6, 0), P(0, 0)};
  EXPECT_TRUE(PlacesAttaches(petit, {4, 0}, 4).empty());
  EXPECT_TRUE(PlacesAttaches({}, {4, 0}, 4).empty());
  EXPECT_TRUE(PlacesAttaches(std::vector<PointTrace>(3, P(1, 1)), {4, 0}, 4).empty());
}

TEST(PoseAttaches, OpensNotchesOnTheSelectedPathsThatAreMilled) {
  BiblioEssai biblio;
  LargeurEncoche = 5;
  RayonFraise = 1.5;
  AjouteCarre(" A", 0, 0, 60);
  AjouteCarre(" B", 100, 0, 60);
  AjouteCarre(" C", 200, 0, 60);
  AjouteCarre(" D", 300, 0, 60);
  Sequences[1].Selection = Faux;
  Sequences[2].Fraiser = Faux;
  Sequences[3].Poche = Vrai;
  EXPECT_EQ(PoseAttaches({4, 0}), 4);
  int marques = 0;
  for (const PointTrace& p : TraceInitial) {
    if (p.Cde != CodePC) continue;
    ++marques;
    EXPECT_EQ(p.Seq, Code2(" A"));
  }
  EXPECT_EQ(marques, 4);
  EXPECT_EQ(NbPoints, 24);
  EXPECT_EQ(Modifie, Vrai);
}

TEST(PoseAttaches, BeepsWhereNoneHasRoom) {
  BiblioEssai biblio;
  LargeurEncoche = 5;
  RayonFraise = 1.5;
  AjouteCarre(" A", 0, 0, 6);
  EXPECT_EQ(PoseAttaches({4, 0}), 0);
  EXPECT_EQ(Bips(), 1);
  EXPECT_EQ(NbPoints, 5);
  EXPECT_EQ(Modifie, Faux);
}

}  // namespace
