#include "core/DocumentCourant.h"
#include "tests/unit/toolpath/BiblioEssai.h"
#include "toolpath/Module_Outils.h"

using namespace ovelin;
using namespace essai;

namespace {

using Lieu = std::pair<float, float>;
// Octagon-like: two points at each extreme value.
void Contour() {
  AjouteSequence(" A", {{5, 5}, {2, 10}, {8, 10}, {12, 7}, {12, 3}, {8, 0}, {2, 0}, {0, 3}, {0, 7}, {5, 5}});
}
Lieu Depart(int fleche) {
  Doc = Document{};
  Contour();
  ChoixDepart(fleche);
  return {TraceInitial[0].X, TraceInitial[0].Y};
}

}  // namespace

TEST(ChoixDepart, TakesTheCornerOrTheSideOfTheArrow) {
  BiblioEssai biblio;
  EXPECT_EQ(Depart(0), Lieu(2, 10));
  EXPECT_EQ(Depart(1), Lieu(8, 10));
  EXPECT_EQ(Depart(2), Lieu(8, 0));
  EXPECT_EQ(Depart(3), Lieu(2, 0));
}

TEST(ChoixDepart, TakesTheFirstOfEqualsForASide) {
  BiblioEssai biblio;
  EXPECT_EQ(Depart(4), Lieu(2, 10));
  EXPECT_EQ(Depart(5), Lieu(12, 7));
  EXPECT_EQ(Depart(6), Lieu(8, 0));
  EXPECT_EQ(Depart(7), Lieu(0, 3));
}

TEST(ChoixDepart, KeepsThePathClosedAndItsPoints) {
  BiblioEssai biblio;
  Contour();
  ChoixDepart(5);
  EXPECT_EQ(
      Lieux(TraceInitial),
      (std::vector<Lieu>{{12, 7}, {12, 3}, {8, 0}, {2, 0}, {0, 3}, {0, 7}, {5, 5}, {2, 10}, {8, 10}, {12, 7}}));
  EXPECT_EQ(CodesTraces(), " A");
  EXPECT_EQ(Modifie, Vrai);
}

TEST(ChoixDepart, RecomputesOnlyWhatItTurned) {
  BiblioEssai biblio;
  Contour();
  AjouteSequence(" B", {{1, 1}, {5, 9}, {9, 1}});
  AjouteCarre(" C", 20, 20, 5);
  ChoixDepart(3);
  EXPECT_EQ(CodesTraces(), " A");
  EXPECT_EQ(TraceInitial[10].X, 1);
  EXPECT_EQ(TraceInitial[13].X, 20);
}

TEST(ChoixDepart, IgnoresAnArrowThatDoesNotExist) {
  BiblioEssai biblio;
  Contour();
  const auto avant = TraceInitial;
  ChoixDepart(-1);
  ChoixDepart(8);
  EXPECT_EQ(TraceInitial, avant);
  EXPECT_EQ(Modifie, Faux);
}

TEST(RegleProlongement, SetsTheFlagAndRecomputesAllTraces) {
  BiblioEssai biblio;
  AjouteCarre(" A", 5, 5, 10);
  AjouteSequence(" B", {{0, 0}, {10, 0}});
  RegleProlongement(true);
  EXPECT_EQ(Prolongement, Vrai);
  EXPECT_EQ(TraceDecale.at(0).Points.size(), 8U);
  EXPECT_EQ(TraceDecale.at(1).Points.size(), 2U);
  RegleProlongement(true);
  EXPECT_EQ(TraceDecale.at(0).Points.size(), 8U);
  EXPECT_EQ(TraceDecale[0].Points[0].Seq, Code2("01"));
  RegleProlongement(false);
  EXPECT_EQ(Prolongement, Faux);
  EXPECT_EQ(TraceDecale.at(0).Points.size(), 5U);
}
