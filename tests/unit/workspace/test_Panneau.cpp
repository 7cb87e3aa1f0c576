// The panel of the selection: its fields, and the buttons that work on the selection.
#include <gtest/gtest.h>

#include "core/DocumentCourant.h"
#include "core/ReglagesCourants.h"
#include "core/Services.h"
#include "tests/support/Support.h"
#include "workspace/Module_Panneau.h"

namespace {

using namespace ovelin;

void DeuxCarres() {
  essai::AjouteCarre(" A", 0, 0, 10);
  essai::AjouteCarre(" B", 20, 5, 30);
}

TEST(InitSeq, WithoutASelectionTheFieldsAreThoseOfAnUnknownPath) {
  DeuxCarres();
  for (SequenceInfo& s : Sequences) s.Selection = Faux;
  const ChampsPanneau c = InitSeq();
  EXPECT_EQ(c.TB_X, "0");
  EXPECT_EQ(c.TB_Y, "0");
  EXPECT_EQ(c.TB_Initial[0], "0");
  EXPECT_EQ(c.TB_Initial[1], "0");
  EXPECT_EQ(c.TB_Profondeur, "");
  EXPECT_FALSE(c.CB_Poche);
  EXPECT_TRUE(c.CB_Fraiser);
  EXPECT_EQ(c.Option_Decal, 1);
  EXPECT_EQ(c.selectionnees, 0);
}

TEST(InitSeq, SizesOfTheSelectionToTheHundredth) {
  essai::AjouteSequence(" A", {{0, 0}, {12.3456F, 7.5F}});
  essai::AjouteSequence(" B", {{-100, -100}, {100, 100}});
  Sequences[1].Selection = Faux;
  const ChampsPanneau c = InitSeq();
  EXPECT_EQ(c.TB_Initial[0], "12.35");
  EXPECT_EQ(c.TB_Initial[1], "7.5");
  EXPECT_EQ(c.TB_Rapport[0], "1");
  EXPECT_EQ(c.TB_Rapport[1], "1");
  EXPECT_EQ(c.TB_Resultat[0], "");
  EXPECT_EQ(c.TB_Resultat[1], "");
}

TEST(InitSeq, SizesCarryTheUsersMark) {
  Svc.MarqueDecimale = ',';
  essai::AjouteSequence(" A", {{0, 0}, {12.25F, 7}});
  EXPECT_EQ(InitSeq().TB_Initial[0], "12,25");
}

TEST(InitSeq, OnePathShowsItsProperties) {
  DeuxCarres();
  Sequences[0].Selection = Faux;
  Sequences[1].Poche = Vrai;
  Sequences[1].Fraiser = Faux;
  Sequences[1].Decalage = 3;
  Sequences[1].Profondeur = -4.5;
  const ChampsPanneau c = InitSeq();
  EXPECT_TRUE(c.CB_Poche);
  EXPECT_FALSE(c.CB_Fraiser);
  EXPECT_EQ(c.TB_Profondeur, "-4.5");
  EXPECT_EQ(c.Option_Decal, 3);
  EXPECT_EQ(c.selectionnees, 1);
}

TEST(InitSeq, IslandsThatAreMixedShowUnchecked) {
  DeuxCarres();
  EXPECT_FALSE(InitSeq().CB_Ilot);
  Complements.Pose(Code2(" A"), {true, "", std::nullopt});
  EXPECT_FALSE(InitSeq().CB_Ilot);
  EXPECT_EQ(InitSeq().ilots, Mixte);
  Sequences[1].Selection = Faux;
  EXPECT_TRUE(InitSeq().CB_Ilot);
  EXPECT_EQ(InitSeq().ilots, Vrai);
}

TEST(InitSeq, OnePathOfDepthZeroShowsTheDepthOfTheMaterial) {
  DeuxCarres();
  Regl.ProfFraisage = -7.25;
  Sequences[0].Selection = Faux;
  Sequences[1].Profondeur = 0;
  EXPECT_EQ(InitSeq().TB_Profondeur, "-7.25");
}

TEST(InitSeq, SeveralPathsOfDepthZeroShowABlank) {
  DeuxCarres();
  Regl.ProfFraisage = -7.25;
  for (SequenceInfo& s : Sequences) s.Profondeur = 0;
  EXPECT_EQ(InitSeq().TB_Profondeur, "");
}

TEST(InitSeq, DifferentDepthsShowABlankAndEqualOnesTheirs) {
  DeuxCarres();
  EXPECT_EQ(InitSeq().TB_Profondeur, "-3");
  Sequences[1].Profondeur = -2;
  EXPECT_EQ(InitSeq().TB_Profondeur, "");
}

TEST(InitSeq, MixedPocketsShowUncheckedAndMixedMillingChecked) {
  DeuxCarres();
  Sequences[0].Poche = Vrai;
  Sequences[1].Fraiser = Faux;
  const ChampsPanneau c = InitSeq();
  EXPECT_EQ(c.communes.Poche, Mixte);
  EXPECT_EQ(c.communes.Fraiser, Mixte);
  EXPECT_FALSE(c.CB_Poche);
  EXPECT_TRUE(c.CB_Fraiser);
}

TEST(InitSeq, CommonFlagsOfSeveralShowAsTheyAre) {
  DeuxCarres();
  for (SequenceInfo& s : Sequences) s.Poche = Vrai, s.Fraiser = Faux;
  const ChampsPanneau c = InitSeq();
  EXPECT_TRUE(c.CB_Poche);
  EXPECT_FALSE(c.CB_Fraiser);
}

TEST(InitSeq, DifferentSidesShowTheFirstItem) {
  DeuxCarres();
  Sequences[0].Decalage = 2;
  Sequences[1].Decalage = 3;
  EXPECT_EQ(InitSeq().communes.Decalage, 0);
  EXPECT_EQ(InitSeq().Option_Decal, 1);
  Sequences[1].Decalage = 2;
  EXPECT_EQ(InitSeq().Option_Decal, 2);
  Sequences[0].Decalage = Sequences[1].Decalage = 9;  // a digit that a project may hold
  EXPECT_EQ(InitSeq().Option_Decal, 1);
}

TEST(InitSeq, BothTreesFollowTheSelection) {
  DeuxCarres();
  TraceDecale.push_back({Code2(" B"), essai::Trace("01", {{0, 0}, {1, 1}})});
  Sequences[0].Selection = Faux;
  Arbre initial, decale;
  Remplissage_Trace_Initial(initial);
  Remplissage_Trace_Decale(decale);
  InitSeq(&initial, &decale);
  EXPECT_FALSE(initial.groupes[0].selectionne);
  EXPECT_TRUE(initial.groupes[1].selectionne);
  EXPECT_TRUE(decale.groupes[0].selectionne);
}

TEST(BoutonsSelection, AllInverseAndRedraw) {
  DeuxCarres();
  int dessins = 0;
  Svc.Rafraichit = [&dessins] { ++dessins; };
  Sequences[1].Selection = Faux;
  CB_InverseSelection();
  EXPECT_EQ(Sequences[0].Selection, Faux);
  EXPECT_EQ(Sequences[1].Selection, Vrai);
  CB_Tout();
  EXPECT_EQ(Sequences[0].Selection, Vrai);
  EXPECT_EQ(Sequences[1].Selection, Vrai);
  EXPECT_EQ(dessins, 2);
  EXPECT_EQ(Modifie, Faux);
}

TEST(BoutonsSelection, DeletionTakesTheSelectedPathsAndTheFocusOnThem) {
  DeuxCarres();
  int dessins = 0;
  Svc.Rafraichit = [&dessins] { ++dessins; };
  SeqCourante = Code2(" B");
  Sequences[0].Selection = Faux;
  CB_Supprimer();
  EXPECT_EQ(TraceInitial.size(), 5U);
  ASSERT_EQ(Sequences.size(), 1U);
  EXPECT_EQ(Sequences[0].Code, Code2(" A"));
  EXPECT_EQ(SeqCourante, CodeAucun);
  EXPECT_EQ(Modifie, Vrai);
  EXPECT_EQ(dessins, 1);
}

TEST(BoutonsSelection, DeletionWithoutASelectionDoesNothing) {
  DeuxCarres();
  SeqCourante = Code2(" A");
  for (SequenceInfo& s : Sequences) s.Selection = Faux;
  Svc.Rafraichit = [] { ADD_FAILURE() << "redrawn"; };
  CB_Supprimer();
  EXPECT_EQ(TraceInitial.size(), 10U);
  EXPECT_EQ(Modifie, Faux);
  EXPECT_EQ(SeqCourante, Code2(" A"));
}

TEST(DemandeSupprimer, AsksBeforeEveryPathOfTheDrawingGoes) {
  essai::AjouteCarre(" A", 0, 0, 10);
  essai::AjouteCarre(" B", 20, 0, 10);
  SelectionneTout();
  essai::Attend("F_Representation", "SupprimerTout", Reponse::Non);
  EXPECT_FALSE(DemandeSupprimer());
  EXPECT_EQ(NbPoints, 10);
  essai::Attend("F_Representation", "SupprimerTout", Reponse::Oui);
  EXPECT_TRUE(DemandeSupprimer());
  EXPECT_EQ(IndexSequence(Code2(" A")), -1);
  EXPECT_EQ(IndexSequence(Code2(" B")), -1);
}

TEST(DemandeSupprimer, TakesSomePathsOutWithoutAWord) {
  essai::AjouteCarre(" A", 0, 0, 10);
  essai::AjouteCarre(" B", 20, 0, 10);
  Sequences[0].Selection = Faux;
  EXPECT_TRUE(DemandeSupprimer());
  EXPECT_GE(IndexSequence(Code2(" A")), 0);
  EXPECT_EQ(IndexSequence(Code2(" B")), -1);
}

}  // namespace
