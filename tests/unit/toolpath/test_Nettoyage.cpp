#include <cmath>

#include "core/DocumentCourant.h"
#include "tests/unit/toolpath/BiblioEssai.h"
#include "toolpath/Module_Outils.h"
#include "toolpath/Module_Sequence.h"

using namespace ovelin;
using namespace essai;

namespace {

void TroisChemins() {
  AjouteSequence(" A", {{0, 0}, {1, 0}, {2, 0}});
  AjouteSequence(" B", {{10, 0}, {11, 0}});
  AjouteSequence(" C", {{20, 0}, {21, 0}, {22, 0}, {23, 0}});
}
// Keeps first and last point, says so, and leaves the buffer long and without codes.
std::int32_t GardeBouts(std::vector<PointTrace>& p, float) {
  p[1] = p.back();
  for (auto& q : p) q.Seq = Code2("??");
  return 2;
}
const std::string MessageLissage = "Problème lissage : nb de points";

}  // namespace

TEST(NettoieTout, HandsEachPathOverAndTakesTheFirstPointsBack) {
  BiblioEssai biblio;
  TroisChemins();
  std::vector<std::size_t> longueurs;
  Biblio.NettoyageFichier = [&](std::vector<PointTrace>& p, float tolerance) {
    longueurs.push_back(p.size());
    EXPECT_EQ(tolerance, 0.05F);
    return GardeBouts(p, tolerance);
  };
  NettoieTout(0.05F);
  EXPECT_EQ(longueurs, (std::vector<std::size_t>{3, 2, 4}));
  EXPECT_EQ(AbscissesDessin(), (std::vector<float>{0, 2, 10, 11, 20, 23}));
  EXPECT_EQ(CodesDessin(), " A B C");
  EXPECT_EQ(NbPoints, 6);
}

TEST(NettoieTout, KeepsBothPointsOfAPathOfTwo) {
  AjouteSequence(" A", {{0, 0}, {0.001F, 0}});
  const auto avant = TraceInitial;
  NettoieTout(0.01F);
  EXPECT_EQ(TraceInitial, avant);
  EXPECT_EQ(NbPoints, 2);
}

TEST(NettoieTout, LeavesNoMarkBehindTheLastPath) {
  BiblioEssai biblio;
  TroisChemins();
  NettoieTout(0.01F);
  EXPECT_EQ(TraceInitial.size(), 9U);
  for (const auto& p : TraceInitial) EXPECT_NE(p.Seq, CodeAucun);
}

TEST(NettoieTout, LeavesAPathAloneThatTheLibraryDoesNotAnswerFor) {
  BiblioEssai biblio;
  TroisChemins();
  const auto avant = TraceInitial;
  for (const std::int32_t m : {0, -3, 1000}) {
    Biblio.NettoyageFichier = [m](std::vector<PointTrace>& p, float) {
      for (auto& q : p) q.X = 77;
      return m;
    };
    NettoieTout(0.01F);
    EXPECT_EQ(TraceInitial, avant) << m;
  }
  Biblio.NettoyageFichier = [](std::vector<PointTrace>& p, float) {
    p.clear();
    return 2;
  };
  NettoieTout(0.01F);
  EXPECT_EQ(TraceInitial, avant);
}

TEST(NettoieTout, DoesNothingToAnEmptyDrawing) {
  NettoieTout(0.01F);
  EXPECT_TRUE(TraceInitial.empty());
  EXPECT_EQ(NbPoints, 0);
}

TEST(NettoieTout, KeepsTheDrawingWholeWhileEventsRun) {
  BiblioEssai biblio;
  TroisChemins();
  Biblio.NettoyageFichier = GardeBouts;
  double heure = 0;
  Svc.Horloge = [&] { return heure += 1; };
  int passages = 0;
  Svc.LaisseEvenements = [&](Evenements mode) {
    EXPECT_EQ(mode, Evenements::Affichage);
    EXPECT_EQ(TraceInitial.size(), 9U);
    ++passages;
  };
  NettoieTout(0.01F);
  EXPECT_EQ(passages, 3);
  EXPECT_EQ(TraceInitial.size(), 6U);
}

TEST(mnu_Nettoyage_Click, DoesNothingWithoutAChosenResolution) {
  BiblioEssai biblio;
  TroisChemins();
  Biblio.NettoyageFichier = GardeBouts;
  EXPECT_FALSE(mnu_Nettoyage_Click(0));
  EXPECT_FALSE(mnu_Nettoyage_Click(std::nanf("")));
  EXPECT_EQ(NbPoints, 9);
  EXPECT_EQ(Modifie, Faux);
}

TEST(mnu_Nettoyage_Click, CleansRecomputesAndShowsTheNumberOfPoints) {
  BiblioEssai biblio;
  TroisChemins();
  Biblio.NettoyageFichier = [](std::vector<PointTrace>& p, float) {
    return static_cast<std::int32_t>(p.size()) - 1;
  };
  OrigineX = OrigineY = 5;
  EXPECT_TRUE(mnu_Nettoyage_Click(0.1F));
  EXPECT_EQ(NbPoints, 6);
  EXPECT_EQ(Xmax, 22);
  EXPECT_EQ(CodesTraces(), " A C");  // " B" is down to one point
  EXPECT_EQ(OrigineX, 0);
  EXPECT_EQ(OrigineY, 0);
  EXPECT_EQ(Modifie, Vrai);
  ASSERT_FALSE(Panneaux().empty());
  EXPECT_EQ(Panneaux().back().first, 2);
  EXPECT_THAT(Panneaux().back().second, testing::EndsWith(" 6"));
}

TEST(LisseSequence, ChangesThePointsInPlaceWhenTheirNumberStays) {
  BiblioEssai biblio;
  TroisChemins();
  OrigineX = OrigineY = 3;
  Biblio.LissageSequence = [](std::vector<PointTrace>& p) {
    for (auto& q : p) q.Y = 1;
  };
  EXPECT_TRUE(LisseSequence(Code2(" B")));
  EXPECT_EQ(NbPoints, 9);
  EXPECT_EQ(TraceInitial[3], (PointTrace{10, 1, CodePD, Code2(" B")}));
  EXPECT_EQ(TraceInitial[2].Y, 0);
  EXPECT_EQ(TraceInitial[5].Y, 0);
  EXPECT_EQ(OrigineX, 0);
  EXPECT_EQ(OrigineY, 0);
}

TEST(LisseSequence, MakesRoomForMorePoints) {
  BiblioEssai biblio;
  TroisChemins();
  Biblio.LissageSequence = [](std::vector<PointTrace>& p) {
    p = Trace("??", {{5, 5}, {6, 6}, {7, 7}, {8, 8}, {9, 9}});
  };
  EXPECT_TRUE(LisseSequence(Code2(" B")));
  EXPECT_EQ(AbscissesDessin(), (std::vector<float>{0, 1, 2, 5, 6, 7, 8, 9, 20, 21, 22, 23}));
  EXPECT_EQ(CodesDessin(), " A B C");
  EXPECT_EQ(NbPoints, 12);
}

TEST(LisseSequence, RefusesFewerPoints) {
  BiblioEssai biblio;
  TroisChemins();
  OrigineX = 3;
  const auto avant = TraceInitial;
  Biblio.LissageSequence = [](std::vector<PointTrace>& p) { p.pop_back(); };
  AttendTexte(MessageLissage);
  EXPECT_FALSE(LisseSequence(Code2(" C")));
  EXPECT_EQ(Boites()[0].icone, Icone::Critique);
  EXPECT_EQ(TraceInitial, avant);
  EXPECT_EQ(OrigineX, 3);
}

TEST(LisseSequence, HasNothingToDoForAnUnknownCode) {
  BiblioEssai biblio;
  TroisChemins();
  EXPECT_FALSE(LisseSequence(Code2("ZZ")));
}

TEST(LisseSelection, SmoothsEachSelectedPathAndRecomputesIt) {
  BiblioEssai biblio;
  TroisChemins();
  Sequences[1].Selection = Faux;
  OrigineX = 3;
  Biblio.LissageSequence = [](std::vector<PointTrace>& p) {
    const PointTrace dernier = p.back();
    p.push_back(dernier);
  };
  LisseSelection();
  EXPECT_EQ(AbscissesDessin(), (std::vector<float>{0, 1, 2, 2, 10, 11, 20, 21, 22, 23, 23}));
  EXPECT_EQ(NbPoints, 11);
  EXPECT_EQ(CodesTraces(), " A C");
  EXPECT_EQ(TraceDecale[1].Points.size(), 5U);
  EXPECT_EQ(OrigineX, 0);
  EXPECT_EQ(Modifie, Vrai);
}

TEST(LisseSelection, GoesOnBehindARefusedPath) {
  BiblioEssai biblio;
  TroisChemins();
  Biblio.LissageSequence = [](std::vector<PointTrace>& p) {
    if (p.front().Seq == Code2(" A")) {
      p.clear();
    } else {
      for (auto& q : p) q.Y = 9;
    }
  };
  AttendTexte(MessageLissage);
  LisseSelection();
  EXPECT_EQ(TraceInitial[0].Y, 0);
  EXPECT_EQ(TraceInitial[3].Y, 9);
  EXPECT_EQ(TraceInitial[8].Y, 9);
  EXPECT_EQ(CodesTraces(), " A B C");
}
