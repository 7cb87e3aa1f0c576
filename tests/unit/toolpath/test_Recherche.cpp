#include <cmath>

#include "core/DocumentCourant.h"
#include "core/Services.h"
#include "tests/unit/toolpath/BiblioEssai.h"
#include "toolpath/Module_Sequence.h"

using namespace ovelin;
using namespace essai;

namespace {

void TroisChemins() {
  AjouteSequence(" A", {{0, 0}, {1, 0}, {2, 5}});
  AjouteSequence(" B", {{10, 10}, {20, -3}});
  AjouteSequence(" C", {{7, 7}, {7, 7}});
}

}  // namespace

TEST(IndexSequence, GivesTheFirstPointOfACode) {
  TroisChemins();
  EXPECT_EQ(IndexSequence(Code2(" A")), 0);
  EXPECT_EQ(IndexSequence(Code2(" B")), 3);
  EXPECT_EQ(IndexSequence(Code2(" C")), 5);
}

TEST(IndexSequence, IsMinusOneForAnUnknownCodeAndForNoPath) {
  TroisChemins();
  EXPECT_EQ(IndexSequence(Code2(" D")), -1);
  EXPECT_EQ(IndexSequence(CodeAucun), -1);
}

TEST(IndexSequence, TakesTheFirstOfTwoRuns) {
  TraceInitial = Trace(" A", {{0, 0}, {1, 1}});
  for (const auto& p : Trace(" B", {{2, 2}})) TraceInitial.push_back(p);
  for (const auto& p : Trace(" A", {{3, 3}})) TraceInitial.push_back(p);
  NbPoints = 4;
  EXPECT_EQ(IndexSequence(Code2(" A")), 0);
}

TEST(IndexSequence, LooksNeitherBehindNbPointsNorBehindTheArray) {
  TroisChemins();
  NbPoints = 3;
  EXPECT_EQ(IndexSequence(Code2(" B")), -1);
  NbPoints = 1000;
  EXPECT_EQ(IndexSequence(Code2(" C")), 5);
  EXPECT_EQ(IndexSequence(Code2(" D")), -1);
  NbPoints = -109;
  EXPECT_EQ(IndexSequence(Code2(" A")), -1);
}

TEST(IndexCodes, AgreesWithTheScanForEveryCode) {
  TroisChemins();
  TraceInitial.push_back({9, 9, CodePD, Code2(" A")});
  NbPoints = static_cast<std::int32_t>(TraceInitial.size());
  Sequences.push_back(Sequences[1]);
  const IndexCodes index = IndexDocument();
  for (const char* code : {" A", " B", " C", " D", "-1"}) {
    const auto premier = index.PremierPoint(Code2(code));
    EXPECT_EQ(premier ? static_cast<std::int32_t>(*premier) : -1, IndexSequence(Code2(code))) << code;
  }
  EXPECT_EQ(index.Fiche(Code2(" A")), 0U);
  EXPECT_EQ(index.Fiche(Code2(" B")), 1U);
  EXPECT_EQ(index.Fiche(Code2(" D")), std::nullopt);
}

TEST(NbPointsSequence, CountsTheRunFromAnIndex) {
  TroisChemins();
  EXPECT_EQ(NbPointsSequence(0), 3);
  EXPECT_EQ(NbPointsSequence(1), 2);
  EXPECT_EQ(NbPointsSequence(5), 2);
}

TEST(NbPointsSequence, IsZeroWithoutPointsAndOutsideTheArray) {
  EXPECT_EQ(NbPointsSequence(0), 0);
  TroisChemins();
  EXPECT_EQ(NbPointsSequence(-1), 0);
  EXPECT_EQ(NbPointsSequence(7), 0);
}

TEST(EncombrementSequence, GivesTheBoxAndTheNumberOfPoints) {
  TroisChemins();
  float x0 = 0, x1 = 0, y0 = 0, y1 = 0;
  EXPECT_EQ(EncombrementSequence(3, x0, x1, y0, y1), 2);
  EXPECT_EQ(x0, 10);
  EXPECT_EQ(x1, 20);
  EXPECT_EQ(y0, -3);
  EXPECT_EQ(y1, 10);
}

TEST(EncombrementSequence, LeavesTheOutputsAloneWithoutPoints) {
  float x0 = 1, x1 = 2, y0 = 3, y1 = 4;
  EXPECT_EQ(EncombrementSequence(0, x0, x1, y0, y1), 0);
  EXPECT_EQ(x0, 1);
  EXPECT_EQ(x1, 2);
  EXPECT_EQ(y0, 3);
  EXPECT_EQ(y1, 4);
}

TEST(EncombrementSelection, TakesTheSelectedOnesOrAll) {
  TroisChemins();
  Sequences[1].Selection = Faux;
  float x0 = 0, x1 = 0, y0 = 0, y1 = 0;
  EncombrementSelection(x0, x1, y0, y1, 0);
  EXPECT_EQ(x1, 7);
  EXPECT_EQ(y0, 0);
  EXPECT_EQ(y1, 7);
  EncombrementSelection(x0, x1, y0, y1, 1);
  EXPECT_EQ(x0, 0);
  EXPECT_EQ(x1, 20);
  EXPECT_EQ(y0, -3);
  EXPECT_EQ(y1, 10);
}

TEST(EncombrementSelection, WritesNothingWithAnEmptyTable) {
  float x0 = 1, x1 = 2, y0 = 3, y1 = 4;
  Sequences.clear();
  EncombrementSelection(x0, x1, y0, y1, 1);
  EXPECT_EQ(x0, 1);
  EXPECT_EQ(y1, 4);
}

TEST(EncombrementGeneral, TakesAllPointsAlsoThoseWithoutARecord) {
  TroisChemins();
  TraceInitial.push_back({-50, 60, CodePD, Code2("ZZ")});
  EncombrementGeneral();
  EXPECT_EQ(Xmin, -50);
  EXPECT_EQ(Xmax, 20);
  EXPECT_EQ(Ymin, -3);
  EXPECT_EQ(Ymax, 60);
}

TEST(EncombrementGeneral, RefreshesTheStatusBarBehindTheBounds) {
  TroisChemins();
  Xmax = 0;
  std::vector<float> alors;
  Svc.RafraichitEtat = [&alors] { alors.push_back(Xmax); };
  EncombrementGeneral();
  EXPECT_EQ(alors, std::vector<float>{20});
}

TEST(EncombrementGeneral, LeavesTheBoundsAloneWithoutPoints) {
  Xmin = 4;
  EncombrementGeneral();
  EXPECT_EQ(Xmin, 4);
}

TEST(CentreSelection, IsTheMiddleOfTheBox) {
  TroisChemins();
  const PointTrace c = CentreSelection();
  EXPECT_EQ(c.X, 10);
  EXPECT_EQ(c.Y, 3.5F);
}

TEST(CentreSelection, IsTheOriginForAnEmptySelection) {
  TroisChemins();
  DeselectionneTout();
  const PointTrace c = CentreSelection();
  EXPECT_EQ(c.X, 0);
  EXPECT_EQ(c.Y, 0);
}

TEST(PlusGrandCode, FollowsTextOrder) {
  AjouteSequence("AA", {{0, 0}});
  AjouteSequence(" z", {{0, 0}});
  AjouteSequence("Ba", {{0, 0}});
  AjouteSequence("BZ", {{0, 0}});
  EXPECT_EQ(PlusGrandCode(), Code2("Ba"));
}

TEST(PlusPetitCode, FollowsTextOrder) {
  AjouteSequence("BZ", {{0, 0}});
  AjouteSequence("Aa", {{0, 0}});
  AjouteSequence(" z", {{0, 0}});
  AjouteSequence("AZ", {{0, 0}});
  EXPECT_EQ(PlusPetitCode(), Code2(" z"));
}

TEST(PlusPetitCode, IsNoPathWithoutPoints) { EXPECT_EQ(PlusPetitCode(), CodeAucun); }

TEST(PlusGrandCode, IsNoPathWithoutPoints) { EXPECT_EQ(PlusGrandCode(), CodeAucun); }

TEST(NbSequences, CountsChangesOfCode) {
  EXPECT_EQ(NbSequences(), 0);
  TroisChemins();
  EXPECT_EQ(NbSequences(), 3);
}

TEST(NbSequences, CountsASplitRunAsTwo) {
  TroisChemins();
  TraceInitial.push_back({0, 0, CodePD, Code2(" A")});
  EXPECT_EQ(NbSequences(), 4);
  EXPECT_EQ(ListeCodes(), (std::vector<Code2>{Code2(" A"), Code2(" B"), Code2(" C"), Code2(" A")}));
}

TEST(EtenduesSequences, GivesStartAndLengthOfEachRun) {
  TroisChemins();
  const auto e = EtenduesSequences();
  ASSERT_EQ(e.size(), 3U);
  EXPECT_EQ(e[1].code, Code2(" B"));
  EXPECT_EQ(e[1].premier, 3U);
  EXPECT_EQ(e[1].nombre, 2U);
}

TEST(CodeSuivant, StartsWithBlankA) {
  EXPECT_EQ(CodeSuivant(Code2("")), Code2(" A"));
  EXPECT_EQ(CodeSuivant(CodeAucun), Code2(" A"));
}

TEST(CodeSuivant, RunsThroughBothAlphabetsAndCarries) {
  EXPECT_EQ(CodeSuivant(Code2(" A")), Code2(" B"));
  EXPECT_EQ(CodeSuivant(Code2(" Z")), Code2(" a"));
  EXPECT_EQ(CodeSuivant(Code2(" z")), Code2("AA"));
  EXPECT_EQ(CodeSuivant(Code2("Az")), Code2("BA"));
  EXPECT_EQ(CodeSuivant(Code2("Zz")), Code2("aA"));
  EXPECT_EQ(CodeSuivant(Code2("yz")), Code2("zA"));
}

TEST(CodeSuivant, GivesTwoThousandSevenHundredAndFiftySixDifferentCodes) {
  std::set<Code2> codes;
  Code2 code = CodeAucun;
  for (int i = 0; i < 52 * 53; ++i) {
    code = CodeSuivant(code);
    codes.insert(code);
  }
  EXPECT_EQ(codes.size(), 52U * 53U);
  EXPECT_EQ(code, Code2("zz"));
}

TEST(CodeSuivant, StepsOutOfTheAlphabetBehindTheLastCode) { EXPECT_EQ(CodeSuivant(Code2("zz")), Code2("{A")); }

TEST(CodeSuivant, PadsOneCharacterOnItsRightBeforeItCounts) { EXPECT_EQ(CodeSuivant(Code2("A")), Code2("A!")); }

TEST(DistancePoints, FormsTheDifferencesIn32Bits) {
  EXPECT_DOUBLE_EQ(DistancePoints({0, 0, CodePD, {}}, {3, 4, CodePD, {}}), 5);
  // 1e8 + 1 is 1e8 in 32 bits; the difference of the stored values is 0.
  EXPECT_EQ(DistancePoints({100000000.0F, 0, CodePD, {}}, {100000001.0F, 0, CodePD, {}}), 0);
  const float a = 0.1F, b = 12345.678F;
  EXPECT_EQ(DistancePoints({a, 0, CodePD, {}}, {b, 0, CodePD, {}}), static_cast<double>(b - a));
}
