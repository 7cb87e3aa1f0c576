// Page "Séquences": selection, order, turn, mirror, placing.
#include <cmath>

#include "core/Cles.h"
#include "core/DocumentCourant.h"
#include "core/Reglages.h"
#include "tests/ui/panneau/Banc.h"
#include "toolpath/Module_Sequence.h"

namespace {

using namespace ovelin;
using essai::Clique;
using essai::Tape;

class SequencesPage : public essai::Banc<PageSequences> {
 protected:
  static std::string Ordre() {
    std::string ordre;
    for (const Code2 code : ListeCodes()) ordre += code.Texte();
    return ordre;
  }
  // Three squares side by side; the codes of `choisis` selected.
  void TroisCarres(const std::string& choisis) {
    essai::AjouteCarre(" A", 0, 0, 10);
    essai::AjouteCarre(" B", 20, 0, 10);
    essai::AjouteCarre(" C", 40, 0, 10);
    for (SequenceInfo& s : Sequences) s.Selection = EnDrapeau(choisis.find(s.Code.Texte()[1]) != std::string::npos);
    RecalculDecalages();
  }
};

TEST_F(SequencesPage, WhatWorksOnTheSelectionWaitsForOne) {
  const char* const avecSelection[] = {"CB_Supprimer", "CB_Ordre_0",     "CB_Ordre_1",  "CB_Inversion",
                                       "CB_Lissage",   "TB_X",           "CB_Haut",     "HScroll_Sequence",
                                       "TB_Angle",     "CB_Rotation_0",  "CB_Miroir_1", "TB_Rapport_0",
                                       "CB_Prop",      "CB_OK_Dimension"};
  const char* const avecDessin[] = {"CB_Tout", "CB_InverseSelection", "TB_DecalageX", "CB_OKRecalage"};
  Ouvre();
  for (const char* nom : avecSelection) EXPECT_FALSE(Actif(nom)) << nom;
  for (const char* nom : avecDessin) EXPECT_FALSE(Actif(nom)) << nom;
  DeuxCarres();
  Sequences[1].Selection = Faux;
  Remplit();
  for (const char* nom : avecSelection) EXPECT_FALSE(Actif(nom)) << nom;
  for (const char* nom : avecDessin) EXPECT_TRUE(Actif(nom)) << nom;
  Sequences[1].Selection = Vrai;
  Remplit();
  for (const char* nom : avecSelection) EXPECT_TRUE(Actif(nom)) << nom;
}

TEST_F(SequencesPage, AllAndInverseSelect) {
  DeuxCarres();
  Ouvre();
  Clique(*C("CB_InverseSelection"));
  EXPECT_EQ(Sequences[0].Selection, Vrai);
  EXPECT_EQ(Sequences[1].Selection, Faux);
  Clique(*C("CB_Tout"));
  EXPECT_EQ(Sequences[0].Selection, Vrai);
  EXPECT_EQ(Sequences[1].Selection, Vrai);
  EXPECT_EQ(Modifie, Faux);
  EXPECT_EQ(Texte("TB_Initial_0"), "50");
  EXPECT_EQ(Texte("TB_Initial_1"), "35");
}

TEST_F(SequencesPage, DeletionTakesTheSelectedPaths) {
  DeuxCarres();
  Ouvre();
  Clique(*C("CB_Supprimer"));
  EXPECT_EQ(Ordre(), " A");
  EXPECT_EQ(Modifie, Vrai);
  EXPECT_FALSE(Actif("CB_Supprimer"));
}

// --- order

TEST_F(SequencesPage, OrderMovesTheSelectedPathsTowardsTheStartAndTheEnd) {
  TroisCarres("B");
  Ouvre();
  Clique(*C("CB_Ordre_0"));
  EXPECT_EQ(Ordre(), " B A C");
  EXPECT_EQ(Sequences[0].Code, Code2(" B"));
  EXPECT_EQ(Modifie, Vrai);
  Clique(*C("CB_Ordre_1"));
  Clique(*C("CB_Ordre_1"));
  EXPECT_EQ(Ordre(), " A C B");
  EXPECT_EQ(essai::Bips(), 0);
}

TEST_F(SequencesPage, OrderBeepsAtTheEdgeForAllOfTheSelection) {
  TroisCarres("AC");
  Ouvre();
  Clique(*C("CB_Ordre_0"));
  EXPECT_EQ(essai::Bips(), 1);
  Clique(*C("CB_Ordre_1"));
  EXPECT_EQ(essai::Bips(), 2);
  EXPECT_EQ(Ordre(), " A B C");
  EXPECT_EQ(Modifie, Faux);
}

TEST_F(SequencesPage, NeighboursThatMoveTogetherKeepTheirOrder) {
  TroisCarres("BC");
  Ouvre();
  Clique(*C("CB_Ordre_0"));
  EXPECT_EQ(Ordre(), " B C A");
}

TEST_F(SequencesPage, InversionTurnsThePointsRoundAndKeepsTheSide) {
  DeuxCarres();
  Ouvre();
  const auto points = TraceInitial;
  Clique(*C("CB_Inversion"));
  EXPECT_EQ(TraceInitial[6], points[8]);
  EXPECT_EQ(TraceInitial[1], points[1]);
  EXPECT_EQ(Sequences[1].Decalage, 1);
  EXPECT_EQ(Modifie, Vrai);
}

TEST_F(SequencesPage, SmoothingAddsPointsToTheSelectedPaths) {
  std::vector<std::pair<float, float>> coins;  // two polygons of twelve sides
  for (int i = 0; i <= 12; ++i) {
    const float a = static_cast<float>(i % 12) * 0.523598776F;
    coins.emplace_back(20 * std::cos(a), -20 * std::sin(a));
  }
  essai::AjouteSequence(" A", coins);
  essai::AjouteSequence(" B", coins);
  Sequences[0].Selection = Faux;
  RecalculDecalages();
  Ouvre();
  Clique(*C("CB_Lissage"));
  EXPECT_EQ(NbPointsSequence(IndexSequence(Code2(" A"))), 13);
  EXPECT_GT(NbPointsSequence(IndexSequence(Code2(" B"))), 13);
  EXPECT_EQ(NbPoints, static_cast<std::int32_t>(TraceInitial.size()));
  EXPECT_EQ(Modifie, Vrai);
  EXPECT_EQ(rafraichis_, 1);
}

// --- geometry

TEST_F(SequencesPage, RotationTurnsByTheAngleAndShowsTheNewSizes) {
  essai::AjouteSequence(" A", {{0, 0}, {20, 0}, {20, 10}, {0, 10}, {0, 0}});
  RecalculDecalages();
  Ouvre();
  Tape(*C("TB_Angle"), "90");
  Clique(*C("CB_Rotation_0"));
  // About (10, 5): (0, 0) goes to (15, -5).
  EXPECT_NEAR(TraceInitial[0].X, 15, 1e-4);
  EXPECT_NEAR(TraceInitial[0].Y, -5, 1e-4);
  EXPECT_EQ(Texte("TB_Initial_0"), "10");
  EXPECT_EQ(Texte("TB_Initial_1"), "20");
  EXPECT_EQ(Texte("TB_Resultat_0"), "10");
  EXPECT_EQ(Texte("TB_Resultat_1"), "20");
  EXPECT_TRUE(C("CB_Rotation_0")->hasFocus());
  EXPECT_EQ(Modifie, Vrai);
  Clique(*C("CB_Rotation_1"));
  EXPECT_NEAR(TraceInitial[0].X, 0, 1e-4);
  EXPECT_NEAR(TraceInitial[0].Y, 0, 1e-4);
  EXPECT_TRUE(C("CB_Rotation_1")->hasFocus());
}

TEST_F(SequencesPage, RotationTakesAnEntryThatHasNotBeenLeft) {
  essai::AjouteSequence(" A", {{0, 0}, {20, 0}});
  RecalculDecalages();
  Ouvre();
  C("TB_Angle")->setFocus(Qt::TabFocusReason);
  QTest::keyClicks(C("TB_Angle"), "30,5");
  Clique(*C("CB_Rotation_0"));
  EXPECT_NEAR(TraceInitial[1].X - TraceInitial[0].X, 20 * std::cos(30.5 * 3.14159265358979 / 180), 1e-4);
}

TEST_F(SequencesPage, RotationWithoutAnAngleIsRefusedAtTheField) {
  DeuxCarres();
  Ouvre();
  const auto points = TraceInitial;
  Tape(*C("TB_Angle"), "-");
  Clique(*C("CB_Rotation_0"));
  EXPECT_TRUE(Refuse("TB_Angle"));
  EXPECT_TRUE(C("TB_Angle")->hasFocus());
  EXPECT_EQ(TraceInitial, points);
}

TEST_F(SequencesPage, AngleDropsWhatIsNoPartOfANumber) {
  DeuxCarres();
  Svc.MarqueDecimale = ',';
  Ouvre();
  Tape(*C("TB_Angle"), "4x5.5,5e");
  EXPECT_EQ(Texte("TB_Angle"), "45,55");
}

TEST_F(SequencesPage, MirrorTwiceGivesThePointsBackInTheirOrder) {
  essai::AjouteSequence(" A", {{0, 0}, {20, 0}, {20, 10}});
  RecalculDecalages();
  Ouvre();
  const auto points = TraceInitial;
  for (const char* nom : {"CB_Miroir_0", "CB_Miroir_1"}) {
    Modifie = Faux;
    Clique(*C(nom));
    EXPECT_NE(TraceInitial, points) << nom;
    EXPECT_EQ(Modifie, Vrai) << nom;
    Clique(*C(nom));
    EXPECT_EQ(TraceInitial, points) << nom;
  }
}

TEST_F(SequencesPage, MirrorExchangesLeftAndRightThenTopAndBottom) {
  essai::AjouteSequence(" A", {{0, 0}, {20, 0}, {20, 10}});
  RecalculDecalages();
  Ouvre();
  Clique(*C("CB_Miroir_0"));
  // reversed: what was the last point comes first
  EXPECT_EQ(TraceInitial[0].X, 0);
  EXPECT_EQ(TraceInitial[0].Y, 10);
  EXPECT_EQ(TraceInitial[2].X, 20);
  EXPECT_EQ(TraceInitial[2].Y, 0);
  Clique(*C("CB_Miroir_1"));
  EXPECT_EQ(TraceInitial[0].X, 20);
  EXPECT_EQ(TraceInitial[0].Y, 10);
}

// --- placing

TEST_F(SequencesPage, PlacingBringsTheSelectionsCornerToThePositionAndTheRestAlong) {
  DeuxCarres();
  Ouvre();
  Clique(*C("CB_Haut"));
  Modifie = Faux;
  Tape(*C("TB_DecalageX"), "100,5");
  Tape(*C("TB_DecalageY"), "-2");
  Clique(*C("CB_OKRecalage"));
  EXPECT_NEAR(TraceInitial[5].X, 100.5, 1e-4);
  EXPECT_NEAR(TraceInitial[5].Y, -2, 1e-4);
  EXPECT_NEAR(TraceInitial[0].X, 80.5, 1e-4);
  EXPECT_NEAR(TraceInitial[0].Y, -7.1, 1e-4);
  EXPECT_EQ(Texte("TB_Y"), "0.0");
  EXPECT_NEAR(Xmin, 80.5, 1e-4);
  EXPECT_EQ(Modifie, Vrai);
}

TEST_F(SequencesPage, PlacingWithoutASelectionTakesTheDrawingsCorner) {
  DeuxCarres();
  Sequences[1].Selection = Faux;
  Ouvre();
  EXPECT_EQ(Texte("TB_DecalageX"), "") << "no position is offered";
  EXPECT_EQ(Texte("TB_DecalageY"), "");
  Tape(*C("TB_DecalageX"), "5");
  Tape(*C("TB_DecalageY"), "0");
  Clique(*C("CB_OKRecalage"));
  EXPECT_NEAR(TraceInitial[0].X, 5, 1e-4);
  EXPECT_NEAR(TraceInitial[0].Y, 0, 1e-4);
}

TEST_F(SequencesPage, PlacingWithoutANumberIsRefusedAtItsField) {
  DeuxCarres();
  Ouvre();
  const auto points = TraceInitial;
  Tape(*C("TB_DecalageX"), "5");
  Tape(*C("TB_DecalageY"), "");
  Clique(*C("CB_OKRecalage"));
  EXPECT_TRUE(Refuse("TB_DecalageY"));
  EXPECT_EQ(TraceInitial, points);
  EXPECT_EQ(Modifie, Faux);
}

TEST_F(SequencesPage, PlacingBeyondThePlaneIsRefused) {
  DeuxCarres();
  Ouvre();
  const auto points = TraceInitial;
  essai::Attend("F_Representation", "lib113");
  Tape(*C("TB_DecalageX"), "99999999");
  Tape(*C("TB_DecalageY"), "0");
  Clique(*C("CB_OKRecalage"));
  EXPECT_EQ(TraceInitial, points);
}

}  // namespace
