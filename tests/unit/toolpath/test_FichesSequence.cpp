#include "core/DocumentCourant.h"
#include "core/ReglagesCourants.h"
#include "tests/unit/toolpath/BiblioEssai.h"
#include "toolpath/Module_Sequence.h"

using namespace ovelin;
using namespace essai;

namespace {

// Records " A", " B" ... with that selection.
void Fiches(const std::vector<Drapeau>& selection) {
  Sequences.clear();
  Code2 code = CodeAucun;
  for (const Drapeau s : selection) {
    code = CodeSuivant(code);
    Sequences.push_back({code, Faux, -3, Vrai, 1, s});
  }
}
std::vector<Drapeau> Selections() {
  std::vector<Drapeau> s;
  for (const auto& f : Sequences) s.push_back(f.Selection);
  return s;
}

}  // namespace

TEST(LitSequence, GivesTheFirstRecordOfACode) {
  Fiches({Faux, Faux});
  Sequences[1] = {Code2(" A"), Vrai, -9, Faux, 3, Faux};
  Sequences.push_back({Code2(" B"), Vrai, -2, Faux, 3, Vrai});
  ProprietesSequence p;
  EXPECT_TRUE(LitSequence(Code2(" A"), p));
  EXPECT_EQ(p, (ProprietesSequence{Faux, Vrai, -3, 1}));
  EXPECT_TRUE(LitSequence(IndexDocument(), Code2(" B"), p));
  EXPECT_EQ(p, (ProprietesSequence{Vrai, Faux, -2, 3}));
  EXPECT_EQ(LitProfondeur(Code2(" B")), -2);
  EXPECT_EQ(LitFraiser(Code2(" B")), Faux);
  EXPECT_EQ(EstSelectionnee(Code2(" B")), Vrai);
}

TEST(LitSequence, GivesTheDefaultsForAnUnknownCodeAndEcritSequenceThenAddsTheRecord) {
  Fiches({Faux});
  ProprietesSequence p{Vrai, Faux, -9, 3};
  EXPECT_FALSE(LitSequence(Code2("XY"), p));
  EXPECT_EQ(p, (ProprietesSequence{Faux, Vrai, 0, 1}));
  p = {Vrai, Faux, -9, 3};
  EXPECT_FALSE(LitSequence(IndexDocument(), Code2("XY"), p));
  EXPECT_EQ(p, (ProprietesSequence{Faux, Vrai, 0, 1}));
  EXPECT_EQ(LitProfondeur(Code2("XY")), 0);
  EXPECT_EQ(LitFraiser(Code2("XY")), Vrai);
  EXPECT_EQ(EstSelectionnee(Code2("XY")), Faux);
  EcritSequence(Code2("XY"), p);
  ASSERT_EQ(Sequences.size(), 2U);
  EXPECT_TRUE(LitSequence(Code2("XY"), p));
}

TEST(EcritSequence, ReusesTheBlankRecordOfAnEmptyTable) {
  EcritSequence(Code2(" A"), {Vrai, Faux, -4, 2});
  ASSERT_EQ(Sequences.size(), 1U);
  EXPECT_EQ(Sequences[0], (SequenceInfo{Code2(" A"), Vrai, -4, Faux, 2, Faux}));
  EcritSequence(Code2(" B"), {});
  EXPECT_EQ(Sequences.size(), 2U);
}

TEST(EcritSequence, FillsTheLastRecordWhenTheFirstIsBlank) {
  Sequences = {SequenceInfo{}, {Code2(" B"), Vrai, -7, Faux, 3, Vrai}};
  EcritSequence(Code2(" C"), {Faux, Vrai, -1, 1});
  ASSERT_EQ(Sequences.size(), 2U);
  EXPECT_EQ(Sequences[1], (SequenceInfo{Code2(" C"), Faux, -1, Vrai, 1, Vrai}));
}

TEST(EcritSequence, KeepsTheSelection) {
  Fiches({Vrai, Vrai});
  EcritSequence(Code2(" B"), {Vrai, Faux, -5, 2});
  EXPECT_EQ(Sequences[1], (SequenceInfo{Code2(" B"), Vrai, -5, Faux, 2, Vrai}));
}

TEST(SelectionCommune, GivesTheValuesThatTheSelectedOnesShare) {
  Fiches({Faux, Vrai, Vrai});
  Sequences[0] = {Code2(" A"), Vrai, -8, Faux, 3, Faux};
  ProprietesSequence p;
  SelectionCommune(p);
  EXPECT_EQ(p, (ProprietesSequence{Faux, Vrai, -3, 1}));
}

TEST(SelectionCommune, TurnsDifferingValuesIntoMixed) {
  Fiches({Vrai, Vrai, Vrai});
  Sequences[1] = {Code2(" B"), Vrai, -4, Faux, 2, Vrai};
  ProprietesSequence p;
  SelectionCommune(p);
  EXPECT_EQ(p, (ProprietesSequence{Mixte, Mixte, 0, 0}));
}

TEST(SelectionCommune, StaysMixedWhateverFollows) {
  Fiches({Vrai, Vrai, Vrai, Vrai});
  Sequences[1].Profondeur = -4;
  Sequences[2].Decalage = 2;
  Sequences[3].Poche = Vrai;
  ProprietesSequence p;
  SelectionCommune(p);
  EXPECT_EQ(p, (ProprietesSequence{Mixte, Vrai, 0, 0}));
}

TEST(ProfondeurPourTous, GivesTheTotalDepthToEveryRecord) {
  Fiches({Faux, Vrai});
  ProfFraisage = -12.5;
  ProfondeurPourTous();
  EXPECT_EQ(Sequences[0].Profondeur, -12.5);
  EXPECT_EQ(Sequences[1].Profondeur, -12.5);
}

TEST(SelectionneTout, SelectsEveryRecordAndDeselectionneToutNone) {
  Fiches({Faux, Vrai});
  SelectionneTout();
  EXPECT_EQ(Selections(), (std::vector<Drapeau>{Vrai, Vrai}));
  DeselectionneTout();
  EXPECT_EQ(Selections(), (std::vector<Drapeau>{Faux, Faux}));
}

TEST(InverseSelection, ComplementsTheBits) {
  Fiches({Faux, Vrai});
  InverseSelection();
  EXPECT_EQ(Selections(), (std::vector<Drapeau>{Vrai, Faux}));
}

TEST(BasculeSelection, TogglesOneRecord) {
  Fiches({Faux, Faux});
  BasculeSelection(Code2(" B"));
  EXPECT_EQ(Selections(), (std::vector<Drapeau>{Faux, Vrai}));
  BasculeSelection(Code2(" B"));
  BasculeSelection(Code2("XX"));
  EXPECT_EQ(Selections(), (std::vector<Drapeau>{Faux, Faux}));
}

TEST(NbSelectionnees, CountsAndNamesTheLast) {
  Fiches({Vrai, Vrai, Faux});
  Code2 code = CodeAucun;
  EXPECT_EQ(NbSelectionnees(code), 2);
  EXPECT_EQ(code, Code2(" B"));
}

TEST(NbSelectionnees, IsZeroWithAnEmptyTable) {
  Sequences.clear();
  Code2 code = CodeAucun;
  EXPECT_EQ(NbSelectionnees(code), 0);
  EXPECT_EQ(code, CodeAucun);
}

TEST(NbAFraiser, CountsAndNamesTheLast) {
  Fiches({Faux, Faux, Faux});
  Sequences[2].Fraiser = Faux;
  Code2 code = CodeAucun;
  EXPECT_EQ(NbAFraiser(code), 2);
  EXPECT_EQ(code, Code2(" B"));
}

TEST(CodesSelectionnes, CanLeaveOutWhatIsNotMilled) {
  Fiches({Vrai, Vrai, Faux});
  Sequences[0].Fraiser = Faux;
  EXPECT_EQ(CodesSelectionnes(), (std::vector<Code2>{Code2(" A"), Code2(" B")}));
  EXPECT_EQ(CodesSelectionnes(true), (std::vector<Code2>{Code2(" B")}));
}

TEST(SelectionSuivante, HandsEachSelectionOn) {
  Fiches({Vrai, Vrai, Faux, Vrai, Faux});
  SelectionSuivante();
  EXPECT_EQ(Selections(), (std::vector<Drapeau>{Faux, Vrai, Vrai, Faux, Vrai}));
  EXPECT_EQ(Bips(), 0);
}

TEST(SelectionSuivante, OnlyBeepsWhenTheLastIsSelectedWhateverElseIs) {
  Fiches({Vrai, Faux, Vrai});
  SelectionSuivante();
  EXPECT_EQ(Selections(), (std::vector<Drapeau>{Vrai, Faux, Vrai}));
  EXPECT_EQ(Bips(), 1);
}

TEST(SelectionPrecedente, HandsEachSelectionBack) {
  Fiches({Faux, Vrai, Vrai, Faux, Vrai});
  SelectionPrecedente();
  EXPECT_EQ(Selections(), (std::vector<Drapeau>{Vrai, Vrai, Faux, Vrai, Faux}));
}

TEST(SelectionPrecedente, OnlyBeepsWhenTheFirstIsSelected) {
  Fiches({Vrai, Faux, Vrai});
  SelectionPrecedente();
  EXPECT_EQ(Selections(), (std::vector<Drapeau>{Vrai, Faux, Vrai}));
  EXPECT_EQ(Bips(), 1);
}

TEST(SelectionPrecedente, DoesNothingOnAnUnsetTable) {
  Sequences.clear();
  SelectionPrecedente();
  SelectionSuivante();
  EXPECT_EQ(Bips(), 0);
}
