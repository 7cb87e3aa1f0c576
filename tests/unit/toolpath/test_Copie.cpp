// Copies in the document in force.
#include "core/DocumentCourant.h"
#include "tests/unit/toolpath/BiblioEssai.h"
#include "toolpath/Module_Copie.h"
#include "toolpath/Module_Sequence.h"

using namespace ovelin;
using namespace essai;

namespace {

std::size_t Selectionnees() { return CodesSelectionnes().size(); }

}  // namespace

TEST(DupliqueSelection, ComputesTheTracesOfTheCopiesAndTellsTheLists) {
  BiblioEssai biblio;
  int fois = 0;
  Svc.Rafraichit = [&fois] { ++fois; };
  AjouteCarre(" A", 0, 0, 30);
  EXPECT_TRUE(DupliqueSelection(50, 5));
  EXPECT_EQ(NbPoints, 10);
  EXPECT_EQ(CodesTraces(), " A B");
  EXPECT_EQ(Xmax, 80);
  EXPECT_EQ(Ymax, 35);
  EXPECT_EQ(Selectionnees(), 1U);
  EXPECT_EQ(Modifie, Vrai);
  EXPECT_EQ(fois, 1);
}

TEST(DupliqueSelection, DoesNothingWithoutASelection) {
  AjouteCarre(" A", 0, 0, 30);
  DeselectionneTout();
  EXPECT_FALSE(DupliqueSelection(50, 5));
  EXPECT_EQ(NbPoints, 5);
  EXPECT_EQ(Modifie, Faux);
}

TEST(ColleCopie, BringsPathsOfOneDrawingIntoTheNext) {
  BiblioEssai biblio;
  AjouteCarre(" A", 0, 0, 30);
  Sequences[0].Profondeur = -7;
  ASSERT_TRUE(CopieSelection());
  Doc = Document{};
  AjouteCarre(" A", 100, 100, 10);
  EXPECT_TRUE(ColleCopie(1, 2));
  ASSERT_EQ(Sequences.size(), 2U);
  EXPECT_EQ(Sequences[1].Code, Code2(" B"));
  EXPECT_EQ(Sequences[1].Profondeur, -7);
  EXPECT_EQ(TraceInitial[5].X, 1);
  EXPECT_EQ(TraceInitial[5].Y, 2);
}

TEST(ColleCopie, IsNothingBeforeACopyAndACopyOfNothingKeepsTheLastOne) {
  BiblioEssai biblio;
  AjouteCarre(" A", 0, 0, 30);
  EXPECT_FALSE(ColleCopie(1, 1));
  ASSERT_TRUE(CopieSelection());
  DeselectionneTout();
  EXPECT_FALSE(CopieSelection());
  EXPECT_TRUE(ColleCopie(1, 1));
}

TEST(RepeteSelection, RefusesMorePathsThanThereAreCodes) {
  BiblioEssai biblio;
  AjouteCarre(" A", 0, 0, 30);
  Attend("F_Representation", "lib112");
  EXPECT_FALSE(RepeteSelection(PosesDe(Reseau{100, 100, 1, 1})));
  EXPECT_EQ(NbPoints, 5);
}
