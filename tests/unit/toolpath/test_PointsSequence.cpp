#include "core/DocumentCourant.h"
#include "tests/unit/toolpath/BiblioEssai.h"
#include "toolpath/Module_Sequence.h"

using namespace ovelin;
using namespace essai;

namespace {

void TroisChemins() {
  AjouteSequence(" A", {{0, 0}, {1, 0}, {2, 0}});
  AjouteSequence(" B", {{10, 0}, {11, 0}});
  AjouteSequence(" C", {{20, 0}, {21, 0}, {22, 0}, {23, 0}});
}

TEST(SupprimeSelection, LeavesNothingBesideTheRecordForTheNextPathOfThatCode) {
  TroisChemins();
  Complements.Pose(Code2(" A"), {false, "Bord", std::nullopt});
  Complements.Pose(Code2(" C"), {true, "Gravure", std::nullopt});
  Sequences[0].Selection = Sequences[1].Selection = Faux;
  SupprimeSelection();
  EXPECT_EQ(Complements.De(Code2(" C")), Complement{});
  EXPECT_EQ(Complements.De(Code2(" A")).Calque, "Bord");
}

}  // namespace

TEST(InserePoint, ShiftsThePointsBehindIt) {
  TroisChemins();
  InserePoint(1, {0.5F, 9, CodePC, Code2(" A")});
  EXPECT_EQ(NbPoints, 10);
  EXPECT_EQ(AbscissesDessin(), (std::vector<float>{0, 0.5F, 1, 2, 10, 11, 20, 21, 22, 23}));
  EXPECT_EQ(TraceInitial[1].Cde, CodePC);
}

TEST(InserePoint, AcceptsAPointOfTheArrayItself) {
  TroisChemins();
  for (int i = 0; i < 100; ++i) InserePoint(0, TraceInitial[2]);
  EXPECT_EQ(NbPoints, 109);
  EXPECT_EQ(TraceInitial[0].X, 2);
}

TEST(RemplaceSequence, WithALongerArrayKeepsTheOthers) {
  TroisChemins();
  RemplaceSequence(Code2(" B"), Trace(" B", {{5, 0}, {6, 0}, {7, 0}, {8, 0}}));
  EXPECT_EQ(AbscissesDessin(), (std::vector<float>{0, 1, 2, 5, 6, 7, 8, 20, 21, 22, 23}));
  EXPECT_EQ(NbPoints, 11);
  EXPECT_EQ(CodesDessin(), " A B C");
}

TEST(RemplaceSequence, WithAShorterArrayKeepsTheOthers) {
  TroisChemins();
  RemplaceSequence(Code2(" C"), Trace(" C", {{5, 0}}));
  EXPECT_EQ(AbscissesDessin(), (std::vector<float>{0, 1, 2, 10, 11, 5}));
  RemplaceSequence(Code2(" A"), Trace(" A", {{7, 0}, {8, 0}}));
  EXPECT_EQ(AbscissesDessin(), (std::vector<float>{7, 8, 10, 11, 5}));
  EXPECT_EQ(NbPoints, 5);
}

TEST(RemplaceSequence, DoesNothingForAnUnknownCode) {
  TroisChemins();
  const auto avant = TraceInitial;
  RemplaceSequence(Code2("XX"), Trace("XX", {{5, 0}}));
  EXPECT_EQ(TraceInitial, avant);
}

TEST(InverseSequence, KeepsAClosedPathClosed) {
  AjouteCarre(" A", 0, 0, 10);
  AjouteSequence(" B", {{50, 0}, {51, 0}});
  TraceInitial[1].Cde = CodePC;
  InverseSequence(Code2(" A"));
  EXPECT_EQ(Lieux(TraceInitial),
            (std::vector<std::pair<float, float>>{{0, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 0}, {50, 0}, {51, 0}}));
  EXPECT_EQ(TraceInitial[3].Cde, CodePC);
}

TEST(InverseSequence, KeepsTheMiddleOfThreePoints) {
  AjouteSequence(" A", {{0, 0}, {1, 5}, {2, 0}});
  InverseSequence(Code2(" A"));
  EXPECT_EQ(AbscissesDessin(), (std::vector<float>{2, 1, 0}));
}

TEST(InverseSequence, DoesNothingForAnUnknownCode) {
  TroisChemins();
  const auto avant = TraceInitial;
  InverseSequence(Code2("XX"));
  EXPECT_EQ(TraceInitial, avant);
}

TEST(FermeSequences, CopiesTheFirstPointBehindTheEndOfSelectedPaths) {
  TroisChemins();
  Sequences[1].Selection = Faux;
  FermeSequences();
  EXPECT_EQ(AbscissesDessin(), (std::vector<float>{0, 1, 2, 0, 10, 11, 20, 21, 22, 23, 20}));
  EXPECT_EQ(NbPoints, 11);
  EXPECT_EQ(CodesDessin(), " A B C");
}

TEST(FermeSequences, ClosesTheFirstRunOfACodeAlone) {
  AjouteSequence(" A", {{0, 0}, {1, 0}, {1, 1}});
  AjouteSequence(" B", {{5, 5}, {6, 5}, {5, 5}});
  for (const auto& p : Trace(" A", {{8, 8}, {9, 8}})) TraceInitial.push_back(p);
  NbPoints = static_cast<std::int32_t>(TraceInitial.size());
  FermeSequences();
  EXPECT_EQ(AbscissesDessin(), (std::vector<float>{0, 1, 1, 0, 5, 6, 5, 8, 9}));
}

TEST(FermeSequences, TwiceAddsOnlyOnePoint) {
  TroisChemins();
  FermeSequences();
  const auto fermees = TraceInitial;
  EXPECT_EQ(fermees.size(), 12U);
  FermeSequences();
  EXPECT_EQ(TraceInitial, fermees);
}

TEST(DeplaceSelection, AddsToXOrToY) {
  TroisChemins();
  Sequences[2].Selection = Faux;
  OrigineX = 4;
  OrigineY = 5;
  DeplaceSelection(Direction::X, 0.5F);
  DeplaceSelection(Direction::Y, -2);
  EXPECT_EQ(AbscissesDessin(), (std::vector<float>{0.5F, 1.5F, 2.5F, 10.5F, 11.5F, 20, 21, 22, 23}));
  EXPECT_EQ(TraceInitial[0].Y, -2);
  EXPECT_EQ(TraceInitial[5].Y, 0);
  EXPECT_EQ(OrigineX, 0);
  EXPECT_EQ(OrigineY, 0);
}

TEST(DeplaceSelection, ChangesNoPointWithoutADirection) {
  TroisChemins();
  const auto avant = TraceInitial;
  DeplaceSelection(Direction::Aucune, 7);
  EXPECT_EQ(TraceInitial, avant);
}

TEST(SupprimeSelection, RemovesPointsRecordsAndTraces) {
  TroisChemins();
  Sequences[0].Selection = Sequences[2].Selection = Faux;
  TraceDecale = {{Code2(" A"), Trace("01", {{0, 0}})},
                 {Code2(" B"), Trace("02", {{0, 0}})},
                 {Code2(" B"), {}},
                 {Code2(" C"), Trace("03", {{0, 0}})}};
  SupprimeSelection();
  EXPECT_EQ(CodesDessin(), " A C");
  EXPECT_EQ(NbPoints, 7);
  ASSERT_EQ(Sequences.size(), 2U);
  EXPECT_EQ(Sequences[1].Code, Code2(" C"));
  EXPECT_EQ(CodesTraces(), " A C");
  EXPECT_EQ(Xmin, 0);
  EXPECT_EQ(Xmax, 23);
}

TEST(SupprimeSelection, RecomputesTheBounds) {
  TroisChemins();
  Sequences[0].Selection = Sequences[1].Selection = Faux;
  SupprimeSelection();
  EXPECT_EQ(Xmax, 11);
}

TEST(SupprimeSelection, KeepsOneEmptyPointAndOneBlankRecordWhenAllPathsGo) {
  TroisChemins();
  TraceDecale = {{Code2(" A"), Trace("01", {{0, 0}})}};
  SupprimeSelection();
  ASSERT_EQ(TraceInitial.size(), 1U);
  EXPECT_EQ(TraceInitial[0].Seq, Code2{});
  EXPECT_EQ(NbPoints, 1);
  ASSERT_EQ(Sequences.size(), 1U);
  EXPECT_EQ(Sequences[0], SequenceInfo{});
  EXPECT_TRUE(TraceDecale.empty());
}

TEST(SupprimeSelection, TakesEveryRunOfADeletedCode) {
  TroisChemins();
  TraceInitial.push_back({99, 0, CodePD, Code2(" A")});
  NbPoints = 10;
  Sequences[1].Selection = Sequences[2].Selection = Faux;
  SupprimeSelection();
  EXPECT_EQ(CodesDessin(), " B C");
}

TEST(SupprimeSelection, DoesNothingWithoutASelection) {
  TroisChemins();
  DeselectionneTout();
  const Document avant = Doc;
  SupprimeSelection();
  EXPECT_EQ(TraceInitial, avant.TraceInitial);
  EXPECT_EQ(Sequences, avant.Sequences);
}

TEST(SupprimeSelection, LeavesAnEmptyDocumentEmpty) {
  InverseSelection();  // the blank record of an empty table
  SupprimeSelection();
  EXPECT_TRUE(TraceInitial.empty());
  EXPECT_EQ(Sequences.size(), 1U);
}
