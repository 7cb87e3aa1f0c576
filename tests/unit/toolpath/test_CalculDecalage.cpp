#include <memory>
#include <random>

#include "core/DocumentCourant.h"
#include "core/Nombres.h"
#include "core/ReglagesCourants.h"
#include "tests/unit/toolpath/BiblioEssai.h"
#include "toolpath/Module_Decalage.h"
#include "toolpath/Module_Sequence.h"
#include "toolpath/Module_Vinyl.h"

using namespace ovelin;
using namespace essai;

namespace {

const std::vector<Code2> Cinq{Code2(" A"), Code2(" B"), Code2(" C"), Code2(" D"), Code2(" E")};

void CinqCarres() {
  for (std::size_t i = 0; i < Cinq.size(); ++i) {
    AjouteCarre(Cinq[i].Texte(), static_cast<float>(i) * 20, 0, 10);
  }
}

}  // namespace

TEST(CalculDecalage, AsksTheLibraryForTheSingleOffsetCurve) {
  BiblioEssai biblio;
  AjouteCarre(" A", 0, 0, 10);
  RayonFraise = 1.1;
  CalculDecalage(Code2(" A"));
  ASSERT_EQ(biblio.appels.size(), 1U);
  EXPECT_EQ(biblio.appels[0].points, TraceInitial);
  EXPECT_EQ(biblio.appels[0].tolerance, 0.01F);
  EXPECT_EQ(biblio.appels[0].decal, 1.1F);
  EXPECT_EQ(biblio.appels[0].recouvrement, 100);
}

TEST(CalculDecalage, TurnsTheDistanceRoundForTheOtherSide) {
  BiblioEssai biblio;
  AjouteCarre(" A", 0, 0, 10, 3);
  RayonFraise = 2;
  CalculDecalage(Code2(" A"));
  EXPECT_EQ(biblio.appels.at(0).decal, -2.0F);
}

TEST(CalculDecalage, TakesAnySideButOneAndTwoAsTheOther) {
  BiblioEssai biblio;
  AjouteCarre(" A", 0, 0, 10);
  RayonFraise = 2;
  for (const std::int16_t cote : {std::int16_t{0}, std::int16_t{4}, std::int16_t{-1}}) {
    Sequences[0].Decalage = cote;
    CalculDecalage(Code2(" A"));
    EXPECT_EQ(biblio.appels.back().decal, -2.0F) << cote;
  }
}

TEST(CalculDecalage, AsksForAPocketWithTheOverlap) {
  BiblioEssai biblio;
  AjouteCarre(" A", 0, 0, 10);
  Sequences[0].Poche = Vrai;
  PCPoche = 35;
  CalculDecalage(Code2(" A"));
  EXPECT_EQ(biblio.appels.at(0).recouvrement, 35);
}

TEST(CalculDecalage, CallsTheLibraryWithARadiusOfZero) {
  BiblioEssai biblio;
  AjouteCarre(" A", 0, 0, 10);
  RayonFraise = 0;
  CalculDecalage(Code2(" A"));
  EXPECT_EQ(biblio.appels.size(), 1U);
}

TEST(CalculDecalage, TreatsAPathWithoutARecordAsSideOne) {
  BiblioEssai biblio;
  AjouteCarre(" A", 0, 0, 10, 3);
  Sequences = {SequenceInfo{}};
  RayonFraise = 2;
  CalculDecalage(Code2(" A"));
  EXPECT_EQ(biblio.appels.at(0).decal, 2.0F);
}

TEST(CalculDecalage, StoresADrillingPointUnchangedAndNeverAsksTheLibrary) {
  BiblioEssai biblio;
  RayonFraise = 3;
  for (const std::int16_t decalage : {std::int16_t{1}, std::int16_t{2}, std::int16_t{3}}) {
    Doc = Document{};
    AjouteSequence(" A", {{5, 5}, {5, 5}}, decalage);
    TraceInitial[1].Cde = CodePC;
    CalculDecalage(Code2(" A"));
    ASSERT_EQ(TraceDecale.size(), 1U);
    EXPECT_EQ(TraceDecale[0].Points, TraceInitial);
  }
  EXPECT_TRUE(biblio.appels.empty());
}

TEST(CalculDecalage, ToolOnTheLineKeepsEveryPointButOpensNotches) {
  BiblioEssai biblio;
  AjouteSequence(" A", {{0, 0}, {20, 0}, {40, 0}}, 2);
  LargeurEncoche = 4;
  RayonFraise = 1;
  CalculDecalage(Code2(" A"));
  EXPECT_EQ(TraceDecale.at(0).Points, TraceInitial);
  TraceInitial[1].Cde = CodePC;
  CalculDecalage(Code2(" A"));
  EXPECT_EQ(Lieux(TraceDecale.at(0).Points),
            (std::vector<std::pair<float, float>>{{0, 0}, {17, 0}, {20, 0}, {23, 0}, {40, 0}}));
  EXPECT_TRUE(biblio.appels.empty());
}

TEST(CalculDecalage, GivesEachPieceAnEntryInTheOrderOfTheResult) {
  BiblioEssai biblio;
  biblio.morceaux = 3;
  AjouteCarre(" A", 0, 0, 10);
  CalculDecalage(Code2(" A"));
  EXPECT_EQ(CodesTraces(), " A A A");
  EXPECT_EQ(TraceDecale[0].Points.front().Seq, Code2("#0"));
  EXPECT_EQ(TraceDecale[2].Points.front().Seq, Code2("#2"));
  EXPECT_EQ(TraceDecale[2].Points.size(), 5U);
}

TEST(CalculDecalage, SplitsARunThatComesBackUnderItsFormerName) {
  BiblioEssai biblio;
  Biblio.DecalSequence = [](std::vector<PointTrace>& p, float, float, std::int32_t) {
    p = Trace("01", {{0, 0}, {1, 0}});
    for (const auto& q : Trace("02", {{2, 0}})) p.push_back(q);
    for (const auto& q : Trace("01", {{3, 0}, {4, 0}})) p.push_back(q);
    return 7;
  };
  AjouteCarre(" A", 0, 0, 10);
  CalculDecalage(Code2(" A"));
  ASSERT_EQ(TraceDecale.size(), 3U);
  EXPECT_EQ(TraceDecale[1].Points.size(), 1U);
  EXPECT_EQ(TraceDecale[2].Points[1].X, 4);
}

TEST(CalculDecalage, StoresNoEntryForASuccessWithoutPoints) {
  BiblioEssai biblio;
  CinqCarres();
  CalculDecalages(Cinq);
  Biblio.DecalSequence = [](std::vector<PointTrace>& p, float, float, std::int32_t) {
    p.clear();
    return 1;
  };
  CalculDecalage(Code2(" B"));
  EXPECT_EQ(CodesTraces(), " A C D E");
}

TEST(CalculDecalage, TakesAnyResultButZeroAsSuccess) {
  BiblioEssai biblio;
  Biblio.DecalSequence = [](std::vector<PointTrace>&, float, float, std::int32_t) { return -5; };
  AjouteCarre(" A", 0, 0, 10);
  CalculDecalage(Code2(" A"));
  EXPECT_EQ(TraceDecale.at(0).Points, TraceInitial);
}

TEST(CalculDecalage, LaysNotchesOnWhateverAFailureLeavesInTheBuffer) {
  BiblioEssai biblio;
  AjouteSequence(" A", {{0, 0}, {20, 0}, {40, 0}});
  TraceInitial[1].Cde = CodePC;
  std::size_t apres = 0;
  // The buffer is the caller's; an empty one must not be touched.
  Biblio.DecalSequence = [&](std::vector<PointTrace>& p, float, float, std::int32_t) {
    p.clear();
    ++apres;
    return 0;
  };
  CalculDecalage(Code2(" A"));
  Biblio.DecalSequence = [](std::vector<PointTrace>&, float, float, std::int32_t) { return 0; };
  CalculDecalage(Code2(" A"));
  EXPECT_EQ(apres, 1U);
  ASSERT_EQ(TraceDecale.size(), 1U);
  EXPECT_TRUE(TraceDecale[0].Points.empty());
}

TEST(CalculDecalage, KeepsThePlaceOfThePath) {
  BiblioEssai biblio;
  CinqCarres();
  CalculDecalages(Cinq);
  biblio.morceaux = 2;
  CalculDecalage(Code2(" C"));
  EXPECT_EQ(CodesTraces(), " A B C C D E");
  biblio.morceaux = 1;
  CalculDecalage(Code2(" C"));
  EXPECT_EQ(CodesTraces(), " A B C D E");
  EXPECT_EQ(TraceDecale[3].Points, std::vector<PointTrace>(TraceDecale[3].Points));
}

TEST(CalculDecalage, AppendsAPathThatHadNoEntry) {
  BiblioEssai biblio;
  CinqCarres();
  CalculDecalages({Code2(" B"), Code2(" D")});
  CalculDecalage(Code2(" A"));
  EXPECT_EQ(CodesTraces(), " B D A");
}

TEST(CalculDecalage, ReplacesTheFirstBlockOfASplitCodeAlone) {
  BiblioEssai biblio;
  CinqCarres();
  TraceDecale = {{Code2(" A"), {}}, {Code2(" B"), {}}, {Code2(" A"), {}}, {Code2(" A"), {}}};
  CalculDecalage(Code2(" A"));
  EXPECT_EQ(CodesTraces(), " A B A A");
  EXPECT_EQ(TraceDecale[0].Points.size(), 5U);
  EXPECT_TRUE(TraceDecale[2].Points.empty());
}

TEST(CalculDecalage, FailureOfTheThirdOfFiveLosesTheFourthAndFifth) {
  BiblioEssai biblio;
  CinqCarres();
  RecalculDecalages();
  biblio.echecs = {Code2(" C")};
  CalculDecalage(Code2(" C"));
  EXPECT_EQ(CodesTraces(), " A B C");
  EXPECT_EQ(TraceDecale[0].Points.size(), 5U);
  EXPECT_EQ(TraceDecale[1].Points.size(), 5U);
  EXPECT_TRUE(TraceDecale[2].Points.empty());
}

TEST(CalculDecalage, FailureOfAPathWithoutAnEntryLosesNothing) {
  BiblioEssai biblio;
  CinqCarres();
  biblio.echecs = {Code2(" C")};
  CalculDecalages({Code2(" A"), Code2(" B")});
  CalculDecalage(Code2(" C"));
  EXPECT_EQ(CodesTraces(), " A B C");
  EXPECT_EQ(TraceDecale[1].Points.size(), 5U);
}

TEST(CalculDecalage, ClearsTheStatusButNotBehindAFailure) {
  BiblioEssai biblio;
  CinqCarres();
  CalculDecalage(Code2(" A"));
  ASSERT_EQ(Panneaux().size(), 1U);
  EXPECT_EQ(Panneaux()[0], (std::pair<int, std::string>{5, ""}));
  biblio.echecs = {Code2(" B")};
  CalculDecalage(Code2(" B"));
  EXPECT_EQ(Panneaux().size(), 1U);
}

TEST(CalculDecalage, DoesNothingForNoPath) {
  BiblioEssai biblio;
  AjouteSequence("-1", {{0, 0}, {1, 1}});
  CalculDecalage(CodeAucun);
  CalculDecalages({CodeAucun});
  EXPECT_TRUE(TraceDecale.empty());
  EXPECT_TRUE(biblio.appels.empty());
}

TEST(CalculDecalage, LeavesAPathOfOnePointOrNoneWithItsOldEntry) {
  BiblioEssai biblio;
  AjouteSequence(" A", {{0, 0}});
  TraceDecale = {{Code2(" A"), Trace("01", {{9, 9}})}, {Code2(" Z"), Trace("02", {{8, 8}})}};
  const auto avant = TraceDecale;
  CalculDecalage(Code2(" A"));
  CalculDecalage(Code2(" Z"));
  CalculDecalages({Code2(" A"), Code2(" Z")});
  EXPECT_EQ(TraceDecale, avant);
}

TEST(CalculDecalage, LengthensClosedTracesWhenAsked) {
  BiblioEssai biblio;
  AjouteCarre(" A", 5, 5, 10);
  AjouteSequence(" B", {{0, 0}, {10, 0}});
  Prolongement = Vrai;
  CalculDecalages({Code2(" A"), Code2(" B")});
  EXPECT_EQ(TraceDecale.at(0).Points.size(), 8U);
  EXPECT_EQ(TraceDecale.at(1).Points.size(), 2U);
  CalculDecalage(Code2(" A"));
  EXPECT_EQ(TraceDecale.at(0).Points.size(), 8U);
}

// One call for many codes against one call for each, on tables with split blocks, failures, empty results and codes
// that have no path.
TEST(CalculDecalages, HasTheOutcomeOfCallingThemOneAfterTheOther) {
  std::mt19937 hasard(3);
  const auto tire = [&](int n) { return static_cast<int>(hasard() % static_cast<unsigned>(n)); };
  for (int essai = 0; essai < 3000; ++essai) {
    RayonFraise = 1;
    Doc = Document{};
    CinqCarres();
    if (tire(2) == 0) {
      // A code that stands in two runs.
      for (const auto& p : Trace(" B", {{70, 70}, {80, 80}})) TraceInitial.push_back(p);
      NbPoints = static_cast<std::int32_t>(TraceInitial.size());
    }
    TraceDecale.clear();
    for (int k = tire(9); k > 0; --k) {
      const Code2 code = Cinq[static_cast<std::size_t>(tire(5))];
      TraceDecale.push_back({code, Trace("99", {{static_cast<float>(k), 0}})});
    }
    std::vector<Code2> codes;
    for (int k = tire(12); k > 0; --k) {
      codes.push_back(tire(12) == 0 ? Code2("XX") : Cinq[static_cast<std::size_t>(tire(5))]);
    }
    const auto graine = hasard();
    const auto script = [&] {
      // The same answer for the same path.
      Biblio.DecalSequence = [graine](std::vector<PointTrace>& p, float, float, std::int32_t) {
        std::mt19937 suite(static_cast<std::uint32_t>(graine) ^ p.front().Seq.Cle());
        const auto r = suite() % 8;
        if (r < 2) return 0;
        const auto marque = static_cast<float>(suite() % 1000);
        if (r == 2) p.clear();
        if (r == 3) p = Trace("01", {{marque, 1}});
        if (r == 4) {
          p = Trace("01", {{marque, 1}});
          p.push_back({marque, 2, CodePD, Code2("02")});
        }
        return 1;
      };
    };
    const auto table = TraceDecale;
    script();
    for (const Code2 code : codes) CalculDecalage(code);
    const auto attendu = TraceDecale;
    TraceDecale = table;
    script();
    CalculDecalages(codes);
    ASSERT_EQ(TraceDecale, attendu) << essai;
  }
}

TEST(CalculDecalages, ClearsTheStatusOnceWhenOneCameToItsEnd) {
  BiblioEssai biblio;
  CinqCarres();
  biblio.echecs = {Code2(" C")};
  CalculDecalages({Code2(" C")});
  EXPECT_TRUE(Panneaux().empty());
  CalculDecalages({Code2(" A"), Code2(" C")});
  EXPECT_EQ(Panneaux().size(), 1U);
}

TEST(CalculDecalages, LeavesTheTableWholeWhileEventsRun) {
  BiblioEssai biblio;
  CinqCarres();
  CalculDecalages(Cinq);
  double heure = 0;
  Svc.Horloge = [&] { return heure += 1; };
  int passages = 0;
  Svc.LaisseEvenements = [&](Evenements mode) {
    ++passages;
    EXPECT_EQ(mode, Evenements::Affichage);
    EXPECT_EQ(CodesTraces(), " A B C D E");
    for (const auto& d : TraceDecale) EXPECT_EQ(d.Points.size(), 5U);
  };
  CalculDecalages(Cinq);
  EXPECT_EQ(passages, 5);
}

TEST(RecalculDecalages, IsFalseWithoutPoints) {
  BiblioEssai biblio;
  EXPECT_FALSE(RecalculDecalages());
}

TEST(RecalculDecalages, NumbersTheEntriesThatHavePoints) {
  BiblioEssai biblio;
  biblio.echecs = {Code2(" B")};
  CinqCarres();
  TraceDecale = {{Code2("XX"), {}}};
  EXPECT_TRUE(RecalculDecalages());
  EXPECT_EQ(CodesTraces(), " A B C D E");
  EXPECT_EQ(TraceDecale[0].Points.back().Seq, Code2("01"));
  EXPECT_TRUE(TraceDecale[1].Points.empty());
  EXPECT_EQ(TraceDecale[2].Points.front().Seq, Code2("02"));
  EXPECT_EQ(TraceDecale[4].Points.front().Seq, Code2("04"));
}

TEST(RecalculDecalages, KeepsAllPathsBehindAFailedOne) {
  BiblioEssai biblio;
  biblio.echecs = {Code2(" A"), Code2(" C")};
  CinqCarres();
  RecalculDecalages();
  EXPECT_EQ(CodesTraces(), " A B C D E");
}

TEST(RecalculDecalages, CutsNumbersFrom100OnToTheirFirstTwoDigits) {
  BiblioEssai biblio;
  Code2 code = CodeAucun;
  for (int i = 0; i < 121; ++i) {
    code = CodeSuivant(code);
    AjouteSequence(code.Texte(), {{0, 0}, {1, 1}});
  }
  RecalculDecalages();
  EXPECT_EQ(TraceDecale[8].Points[0].Seq, Code2("09"));
  EXPECT_EQ(TraceDecale[98].Points[0].Seq, Code2("99"));
  EXPECT_EQ(TraceDecale[99].Points[0].Seq, Code2("10"));
  EXPECT_EQ(TraceDecale[108].Points[0].Seq, Code2("10"));
  EXPECT_EQ(TraceDecale[109].Points[0].Seq, Code2("11"));
  EXPECT_EQ(TraceDecale[120].Points[0].Seq, Code2("12"));
}

TEST(RecalculDecalages, ComputesACodeInTwoRunsOnceAtItsFirstPlace) {
  BiblioEssai biblio;
  CinqCarres();
  for (const auto& p : Trace(" A", {{70, 70}, {80, 80}})) TraceInitial.push_back(p);
  NbPoints = static_cast<std::int32_t>(TraceInitial.size());
  RecalculDecalages();
  EXPECT_EQ(biblio.appels.size(), 5U);
  EXPECT_EQ(CodesTraces(), " A B C D E");
  EXPECT_EQ(TraceDecale[0].Points.front().X, TraceInitial.front().X);
  // A failing one drops, at its second turn, everything behind its entry.
  biblio.echecs = {Code2(" A")};
  RecalculDecalages();
  EXPECT_EQ(CodesTraces(), " A");
  EXPECT_EQ(biblio.appels.size(), 10U);
}

TEST(RecalculDecalages, ShowsItsProgressPathByPath) {
  BiblioEssai biblio;
  CinqCarres();
  long total = 0;
  int pas = 0, fins = 0;
  Svc.AvancementDebut = [&](const std::string&, long n) { total = n; };
  Svc.AvancementPlus = [&] { ++pas; };
  Svc.AvancementFin = [&] { ++fins; };
  RecalculDecalages();
  EXPECT_EQ(total, 5);
  EXPECT_EQ(pas, 5);
  EXPECT_EQ(fins, 1);
}

TEST(RecalculDecalages, LetsEventsRunByTimeAndNotByPath) {
  BiblioEssai biblio;
  Code2 code = CodeAucun;
  for (int i = 0; i < 300; ++i) {
    code = CodeSuivant(code);
    AjouteSequence(code.Texte(), {{0, 0}, {1, 1}});
  }
  double heure = 0;
  int passages = 0;
  Svc.Horloge = [&] { return heure; };
  Svc.LaisseEvenements = [&](Evenements mode) {
    EXPECT_EQ(mode, Evenements::Affichage);
    ++passages;
  };
  Biblio.DecalSequence = [&](std::vector<PointTrace>&, float, float, std::int32_t) {
    heure += 0.001;
    return 1;
  };
  RecalculDecalages();
  EXPECT_GE(passages, 300 / 17);
  EXPECT_LE(passages, 300 / 15 + 1);
}

TEST(ProlongeTrace, AddsTheStrokeInTheMarginAndTheOverlap) {
  TraceDecale = {{Code2(" A"), Trace("01", {{5, 10}, {8, 14}, {20, 14}, {5, 10}})}};
  ProlongeTrace(Code2(" A"));
  const auto& p = TraceDecale[0].Points;
  ASSERT_EQ(p.size(), 7U);
  // The first segment runs along (3, 4): 1 mm on it is (0.6, 0.8).
  EXPECT_EQ(p[0].X, 5);
  EXPECT_EQ(p[0].Y, -1);
  EXPECT_FLOAT_EQ(p[1].X, 5.6F);
  EXPECT_NEAR(p[1].Y, -0.2F, 1e-6);
  EXPECT_EQ(p[2].Y, 10);
  EXPECT_EQ(p[5].X, 5);
  EXPECT_FLOAT_EQ(p[6].X, 5.6F);
  EXPECT_FLOAT_EQ(p[6].Y, 10.8F);
  EXPECT_EQ(Marques(p), "PD PU PD PD PD PD PD");
  for (const auto& q : p) EXPECT_EQ(q.Seq, Code2("01"));
}

TEST(ProlongeTrace, LeavesOpenTracesOtherPathsAndDrillingPointsAlone) {
  TraceDecale = {{Code2(" A"), Trace("01", {{5, 10}, {8, 14}})},
                 {Code2(" A"), Trace("02", {{5, 10}, {5, 10}})},
                 {Code2(" A"), Trace("03", {{5, 10}})},
                 {Code2(" A"), {}},
                 {Code2(" B"), Trace("04", {{0, 0}, {8, 14}, {0, 0}})}};
  const auto avant = TraceDecale;
  ProlongeTrace(Code2(" A"));
  EXPECT_EQ(TraceDecale, avant);
}

TEST(ProlongeTrace, ReachesBeyondTheEndOfAFirstSegmentShorterThanTheStroke) {
  TraceDecale = {{Code2(" A"), Trace("01", {{0, 0}, {0.25F, 0}, {0, 9}, {0, 0}})}};
  ProlongeTrace(Code2(" A"));
  EXPECT_EQ(TraceDecale[0].Points.back().X, 1);
  EXPECT_EQ(TraceDecale[0].Points.back().Y, 0);
}

TEST(ProlongeTrace, TakesItsDirectionFromTheFirstPointThatIsElsewhere) {
  TraceDecale = {{Code2(" A"), Trace("01", {{0, 0}, {0, 0}, {0, 9}, {7, 9}, {0, 0}})}};
  ProlongeTrace(Code2(" A"));
  EXPECT_EQ(TraceDecale[0].Points.size(), 8U);
  EXPECT_EQ(TraceDecale[0].Points.back().Y, 1);
}

TEST(ProlongeTrace, LengthensEveryClosedPieceOfThePath) {
  TraceDecale = {{Code2(" A"), Trace("01", {{0, 0}, {5, 0}, {0, 0}})},
                 {Code2(" A"), Trace("02", {{0, 9}, {5, 9}, {0, 9}})}};
  ProlongeTrace(Code2(" A"));
  EXPECT_EQ(TraceDecale[0].Points.size(), 6U);
  EXPECT_EQ(TraceDecale[1].Points.size(), 6U);
  EXPECT_EQ(TraceDecale[1].Points[1].Y, -1);
}
