#include <algorithm>
#include <limits>
#include <random>

#include "core/DocumentCourant.h"
#include "tests/unit/toolpath/BiblioEssai.h"
#include "toolpath/Module_Decalage.h"
#include "toolpath/Module_Outils.h"
#include "toolpath/Module_Sequence.h"

using namespace ovelin;
using namespace essai;

namespace {

using Liste = std::vector<std::pair<float, float>>;

Liste Chemin(const char* code) {
  Liste xy;
  for (const auto& p : TraceInitial) {
    if (p.Seq == Code2(code)) xy.emplace_back(p.X, p.Y);
  }
  return xy;
}
// Paths " A", " B" ... of two points each; those in `choisies` are selected.
void Chemins(int n, const std::string& choisies) {
  Code2 code = CodeAucun;
  for (int i = 0; i < n; ++i) {
    code = CodeSuivant(code);
    const auto x = static_cast<float>(i) * 10;
    AjouteSequence(code.Texte(), {{x, 0}, {x + 1, 0}});
    Sequences.back().Selection = EnDrapeau(choisies.find(static_cast<char>(code.c[1])) != std::string::npos);
  }
}
std::string CodesFiches() {
  std::string s;
  for (const auto& f : Sequences) s += f.Code.Texte();
  return s;
}

}  // namespace

TEST(mnu_Optimisation_Click, StartsClosedPathsAtThePointNearestToTheStartOfTheOneBefore) {
  BiblioEssai biblio;
  // From (0, 0) the nearest corner of A is (10, 0); from there that of B is (30, 0), though B ends elsewhere.
  AjouteSequence(" A", {{20, 10}, {20, 0}, {10, 0}, {10, 10}, {20, 10}});
  AjouteSequence(" B", {{40, 10}, {40, 0}, {30, 0}, {30, 10}, {40, 10}});
  EXPECT_TRUE(mnu_Optimisation_Click());
  EXPECT_EQ(Chemin(" A"), (Liste{{10, 0}, {10, 10}, {20, 10}, {20, 0}, {10, 0}}));
  EXPECT_EQ(Chemin(" B"), (Liste{{30, 0}, {30, 10}, {40, 10}, {40, 0}, {30, 0}}));
  EXPECT_EQ(CodesTraces(), " A B");
  EXPECT_EQ(Modifie, Vrai);
  EXPECT_EQ(NbPoints, 10);
}

TEST(mnu_Optimisation_Click, AimsAtTheStartOfTheOneBeforeAndNotAtItsEnd) {
  BiblioEssai biblio;
  // The open path is met at (0, 1), its own start; its far end lies next to (100, 0) of the square.
  AjouteSequence(" A", {{0, 1}, {99, 0}});
  AjouteSequence(" B", {{100, 0}, {100, 5}, {50, 5}, {50, 0}, {100, 0}});
  mnu_Optimisation_Click();
  EXPECT_EQ(Chemin(" B").front(), (std::pair<float, float>{50, 0}));
}

TEST(mnu_Optimisation_Click, GoesOnFromTheChosenPointOfAnOpenPath) {
  BiblioEssai biblio;
  // The nearest point of the open path is its end at (2, 0); the path stays as it is, the position moves there.
  AjouteSequence(" A", {{90, 0}, {2, 0}});
  AjouteSequence(" B", {{80, 0}, {80, 5}, {3, 5}, {3, 0}, {80, 0}});
  mnu_Optimisation_Click();
  EXPECT_EQ(Chemin(" A"), (Liste{{90, 0}, {2, 0}}));
  EXPECT_EQ(Chemin(" B").front(), (std::pair<float, float>{3, 0}));
}

TEST(mnu_Optimisation_Click, ChangesNoPointOfOpenPathsAndStillMarksTheDocument) {
  BiblioEssai biblio;
  AjouteSequence(" A", {{9, 0}, {5, 0}, {1, 0}});
  AjouteSequence(" B", {{8, 8}, {2, 2}});
  const auto avant = TraceInitial;
  EXPECT_TRUE(mnu_Optimisation_Click());
  EXPECT_EQ(TraceInitial, avant);
  EXPECT_EQ(Modifie, Vrai);
  EXPECT_EQ(biblio.appels.size(), 2U);
}

TEST(mnu_Optimisation_Click, CancelLeavesAllMarks) {
  BiblioEssai biblio;
  AjouteSequence(" A", {{9, 0}, {5, 0}, {1, 0}, {9, 0}});
  TraceInitial[1].Cde = CodePC;
  const auto avant = TraceInitial;
  Attend("F_Representation", "lib320", Reponse::Annuler);
  EXPECT_FALSE(mnu_Optimisation_Click());
  EXPECT_EQ(Boites()[0].icone, Icone::Critique);
  EXPECT_EQ(Boites()[0].boutons, Boutons::OkAnnuler);
  EXPECT_EQ(TraceInitial, avant);
  EXPECT_EQ(Modifie, Faux);
  EXPECT_TRUE(biblio.appels.empty());
}

TEST(mnu_Optimisation_Click, OkRemovesAllMarksAlsoOnPathsThatAreNotTurned) {
  BiblioEssai biblio;
  AjouteSequence(" A", {{9, 0}, {5, 0}, {1, 0}});
  AjouteSequence(" B", {{2, 0}, {6, 0}, {6, 6}, {2, 0}});
  TraceInitial[1].Cde = CodePC;
  TraceInitial[4].Cde = CodePE;
  Attend("F_Representation", "lib320", Reponse::Ok);
  EXPECT_TRUE(mnu_Optimisation_Click());
  for (const auto& p : TraceInitial) EXPECT_EQ(p.Cde, CodePD);
}

TEST(mnu_Optimisation_Click, DoesNotRewriteAPathThatStartsAtItsNearestPoint) {
  BiblioEssai biblio;
  AjouteCarre(" A", 1, 1, 10);
  // A closing point that differs beside its place shows whether it was made anew.
  TraceInitial[4].Cde = Code2("XX");
  mnu_Optimisation_Click();
  EXPECT_EQ(TraceInitial[4].Cde, Code2("XX"));
}

TEST(mnu_Optimisation_Click, MakesTheClosingPointEqualFieldByField) {
  BiblioEssai biblio;
  AjouteSequence(" A", {{9, 9}, {1, 1}, {5, 1}, {9, 9}});
  TraceInitial[1].Cde = Code2("XX");
  mnu_Optimisation_Click();
  EXPECT_EQ(TraceInitial[0].X, 1);
  EXPECT_EQ(TraceInitial[3], TraceInitial[0]);
  EXPECT_EQ(TraceInitial[3].Cde, Code2("XX"));
}

TEST(mnu_Optimisation_Click, TakesTheFirstOfEquallyNearPoints) {
  BiblioEssai biblio;
  AjouteSequence(" A", {{9, 9}, {0, 5}, {5, 0}, {9, 9}});
  mnu_Optimisation_Click();
  EXPECT_EQ(Chemin(" A").front(), (std::pair<float, float>{0, 5}));
}

TEST(mnu_Optimisation_Click, SearchesEveryRunOfACodeAndTurnsTheFirstAlone) {
  BiblioEssai biblio;
  AjouteSequence(" A", {{50, 50}, {60, 50}, {60, 60}, {50, 50}});
  AjouteSequence(" B", {{4, 0}, {4, 90}, {90, 90}, {4, 0}});
  for (const auto& p : Trace(" A", {{3, 80}, {2, 80}, {3, 80}})) TraceInitial.push_back(p);
  NbPoints = static_cast<std::int32_t>(TraceInitial.size());
  mnu_Optimisation_Click();
  // First to (50, 50), then to (90, 90) of B, from there back to (60, 60) of A: its first run is turned again.
  EXPECT_EQ(CodesDessin(), " A B A");
  EXPECT_EQ(Lieux({TraceInitial.begin(), TraceInitial.begin() + 5}),
            (Liste{{60, 60}, {50, 50}, {60, 50}, {60, 60}, {90, 90}}));
  EXPECT_EQ(Lieux({TraceInitial.begin() + 8, TraceInitial.end()}), (Liste{{3, 80}, {2, 80}, {3, 80}}));
  // Nearer now by the second run: the position follows it, but no run is turned.
  TraceInitial[9].X = 1;
  TraceInitial[9].Y = 1;
  const auto avant = TraceInitial;
  mnu_Optimisation_Click();
  EXPECT_EQ(std::vector<PointTrace>(TraceInitial.begin(), TraceInitial.begin() + 4),
            std::vector<PointTrace>(avant.begin(), avant.begin() + 4));
  EXPECT_EQ(std::vector<PointTrace>(TraceInitial.begin() + 8, TraceInitial.end()),
            std::vector<PointTrace>(avant.begin() + 8, avant.end()));
}

TEST(mnu_Optimisation_Click, ShowsItsStatusAndClearsIt) {
  BiblioEssai biblio;
  AjouteSequence(" A", {{9, 9}, {1, 1}, {5, 1}, {9, 9}});
  mnu_Optimisation_Click();
  ASSERT_GE(Panneaux().size(), 3U);
  EXPECT_FALSE(Panneaux()[0].second.empty());
  EXPECT_EQ(Panneaux().back(), (std::pair<int, std::string>{5, ""}));
}

TEST(ChangeOrdre, MovesTheSelectedPathTowardsTheStart) {
  BiblioEssai biblio;
  Chemins(4, "C");
  EXPECT_TRUE(ChangeOrdre(PasOrdre::PlusTot));
  EXPECT_EQ(CodesDessin(), " A C B D");
  EXPECT_EQ(CodesFiches(), " A C B D");
  EXPECT_EQ(AbscissesDessin(), (std::vector<float>{0, 1, 20, 21, 10, 11, 30, 31}));
  EXPECT_EQ(CodesTraces(), " A C B D");
  EXPECT_EQ(Modifie, Vrai);
}

TEST(ChangeOrdre, MovesTheSelectedPathTowardsTheEnd) {
  BiblioEssai biblio;
  Chemins(4, "B");
  EXPECT_TRUE(ChangeOrdre(PasOrdre::PlusTard));
  EXPECT_EQ(CodesDessin(), " A C B D");
  EXPECT_EQ(Sequences[2].Selection, Vrai);
}

TEST(ChangeOrdre, KeepsTheOrderOfNeighboursThatMoveTogether) {
  BiblioEssai biblio;
  Chemins(5, "BC");
  EXPECT_TRUE(ChangeOrdre(PasOrdre::PlusTard));
  EXPECT_EQ(CodesDessin(), " A D B C E");
  EXPECT_TRUE(ChangeOrdre(PasOrdre::PlusTot));
  EXPECT_EQ(CodesDessin(), " A B C D E");
}

TEST(ChangeOrdre, MovesSeveralPathsByOnePlaceEach) {
  BiblioEssai biblio;
  Chemins(6, "BE");
  EXPECT_TRUE(ChangeOrdre(PasOrdre::PlusTot));
  EXPECT_EQ(CodesDessin(), " B A C E D F");
}

TEST(ChangeOrdre, BeepsWhenASelectedPathStandsAtTheEdge) {
  BiblioEssai biblio;
  Chemins(4, "AC");
  EXPECT_FALSE(ChangeOrdre(PasOrdre::PlusTot));
  EXPECT_EQ(CodesDessin(), " A B C D");
  Sequences[3].Selection = Vrai;
  EXPECT_FALSE(ChangeOrdre(PasOrdre::PlusTard));
  EXPECT_EQ(Bips(), 2);
  EXPECT_EQ(Modifie, Faux);
  EXPECT_TRUE(biblio.appels.empty());
}

TEST(ChangeOrdre, BeepsWithEverythingSelectedWhicheverWay) {
  BiblioEssai biblio;
  Chemins(3, "ABC");
  EXPECT_FALSE(ChangeOrdre(PasOrdre::PlusTot));
  EXPECT_FALSE(ChangeOrdre(PasOrdre::PlusTard));
  EXPECT_EQ(Bips(), 2);
}

TEST(ChangeOrdre, LosesNoRecordOfACodeWithoutPoints) {
  BiblioEssai biblio;
  Chemins(3, "C");
  Sequences.insert(Sequences.begin(), {Code2("ZZ"), Vrai, -9, Faux, 2, Faux});
  EXPECT_TRUE(ChangeOrdre(PasOrdre::PlusTot));
  EXPECT_EQ(CodesFiches(), " A C BZZ");
  EXPECT_EQ(Sequences[3].Profondeur, -9);
}

TEST(ChangeOrdre, RecomputesTheSelectedPathsOnceMore) {
  BiblioEssai biblio;
  Chemins(3, "B");
  ChangeOrdre(PasOrdre::PlusTot);
  EXPECT_EQ(biblio.appels.size(), 4U);
  EXPECT_EQ(biblio.appels[3].points.front().Seq, Code2(" B"));
  EXPECT_EQ(CodesTraces(), " B A C");
}

TEST(ChangeOrdre, DoesNothingOnAnEmptyDrawing) {
  EXPECT_FALSE(ChangeOrdre(PasOrdre::PlusTot));
  EXPECT_EQ(Bips(), 0);
}

TEST(ChangeDepart, TurnsAClosedPathToThePoint) {
  BiblioEssai biblio;
  Chemins(1, "");
  AjouteCarre(" X", 100, 100, 10);
  EXPECT_TRUE(ChangeDepart(4));
  EXPECT_EQ(Chemin(" X"), (Liste{{110, 110}, {110, 100}, {100, 100}, {100, 110}, {110, 110}}));
  EXPECT_EQ(CodesTraces(), " X");
  EXPECT_EQ(Modifie, Vrai);
  EXPECT_EQ(Panneaux().back(), (std::pair<int, std::string>{5, ""}));
}

TEST(ChangeDepart, DoesNothingForTheFirstPoint) {
  BiblioEssai biblio;
  AjouteCarre(" A", 0, 0, 10);
  AjouteSequence(" B", {{50, 0}, {60, 0}});
  const auto avant = TraceInitial;
  EXPECT_TRUE(ChangeDepart(0));
  EXPECT_TRUE(ChangeDepart(5));
  EXPECT_EQ(TraceInitial, avant);
  EXPECT_EQ(Modifie, Faux);
  EXPECT_TRUE(biblio.appels.empty());
}

TEST(ChangeDepart, LeavesThePathAloneForItsClosingPoint) {
  BiblioEssai biblio;
  AjouteCarre(" A", 0, 0, 10);
  const auto avant = TraceInitial;
  EXPECT_TRUE(ChangeDepart(4));
  EXPECT_EQ(TraceInitial, avant);
  // Equal to the first, field by field.
  TraceInitial[4].Cde = CodePC;
  EXPECT_TRUE(ChangeDepart(4));
  EXPECT_EQ(TraceInitial, avant);
}
TEST(ChangeDepart, LeavesADrillingPointAlone) {
  BiblioEssai biblio;
  AjouteSequence(" A", {{3, 4}, {3, 4}});
  const auto avant = TraceInitial;
  EXPECT_TRUE(ChangeDepart(1));
  EXPECT_EQ(TraceInitial, avant);
  EXPECT_EQ(CodesTraces(), " A");
  EXPECT_TRUE(biblio.appels.empty());
}

TEST(ChangeDepart, RefusesAnOpenPathWithMessageAndBeep) {
  BiblioEssai biblio;
  AjouteSequence(" A", {{0, 0}, {1, 0}, {2, 0}});
  const auto avant = TraceInitial;
  Attend("F_Representation", "lib370");
  EXPECT_FALSE(ChangeDepart(1));
  EXPECT_EQ(Boites()[0].icone, Icone::Critique);
  EXPECT_EQ(Bips(), 1);
  EXPECT_EQ(TraceInitial, avant);
  EXPECT_EQ(Modifie, Faux);
}

TEST(ChangeDepart, BeepsForAPointThatIsNotThere) {
  AjouteCarre(" A", 0, 0, 10);
  EXPECT_FALSE(ChangeDepart(-1));
  EXPECT_FALSE(ChangeDepart(5));
  EXPECT_EQ(Bips(), 2);
}

TEST(InverseSelectionnees, ReversesTheSelectedPathsAndKeepsTheSide) {
  BiblioEssai biblio;
  Chemins(3, "AC");
  InverseSelectionnees();
  EXPECT_EQ(AbscissesDessin(), (std::vector<float>{1, 0, 10, 11, 21, 20}));
  for (const auto& s : Sequences) EXPECT_EQ(s.Decalage, 1);
  EXPECT_EQ(CodesTraces(), " A B C");
  EXPECT_EQ(Modifie, Vrai);
}

namespace {

// The automatic choice by the letter: for each change of code all points are looked at, and the turn is done at
// once.
void OptimiseDUnTrait() {
  PointTrace position;
  for (const Code2 code : ListeCodes()) {
    double meilleur = 1e15;
    std::int32_t choisi = -1;
    for (std::size_t i = 0; i < TraceInitial.size(); ++i) {
      const double d = DistancePoints(position, TraceInitial[i]);
      if (TraceInitial[i].Seq != code || !(d < meilleur)) continue;
      meilleur = d;
      choisi = static_cast<std::int32_t>(i);
    }
    position = TraceInitial[static_cast<std::size_t>(choisi)];
    const std::int32_t premier = IndexSequence(code);
    const std::int32_t nombre = NbPointsSequence(premier);
    const Etendue e{code, static_cast<std::size_t>(premier), static_cast<std::size_t>(nombre)};
    if (choisi > premier && choisi < premier + nombre - 1 && EstFermee(e)) {
      const auto debut = TraceInitial.begin() + premier;
      std::rotate(debut, TraceInitial.begin() + choisi, debut + nombre - 1);
      *(debut + nombre - 1) = *debut;
    }
  }
}

}  // namespace

TEST(mnu_Optimisation_Click, OfCodesInManyRunsIsThatOfEachRunAfterTheOther) {
  std::mt19937 hasard(9);
  const auto tire = [&](int n) { return static_cast<int>(hasard() % static_cast<unsigned>(n)); };
  for (int essai = 0; essai < 300; ++essai) {
    BiblioEssai biblio;
    Doc = Document{};
    // On a small grid, so that there are equal distances and points on each other.
    const int grille = 2 + tire(essai % 2 == 0 ? 5 : 500);
    const int runs = 1 + tire(60);
    for (int r = 0; r < runs; ++r) {
      const Code2 code(u' ', static_cast<char16_t>(u'A' + tire(1 + essai % 5)));
      const std::size_t debut = TraceInitial.size();
      for (int k = 1 + tire(r < 6 ? 40 : 3); k > 0; --k) {
        const auto x = static_cast<float>(tire(grille)), y = static_cast<float>(tire(grille));
        TraceInitial.push_back({x, y, tire(9) == 0 ? CodePU : CodePD, code});
      }
      if (tire(4) != 0) {
        const PointTrace premier = TraceInitial[debut];
        TraceInitial.push_back({premier.X, premier.Y, CodePD, code});
      }
    }
    NbPoints = static_cast<std::int32_t>(TraceInitial.size());
    const auto avant = TraceInitial;
    OptimiseDUnTrait();
    const auto attendu = TraceInitial;
    TraceInitial = avant;
    mnu_Optimisation_Click();
    ASSERT_EQ(TraceInitial, attendu) << essai;
  }
}

TEST(mnu_Optimisation_Click, LeavesOutPointsBeyondReachInEveryRun) {
  BiblioEssai biblio;
  const float loin = std::numeric_limits<float>::infinity();
  TraceInitial = Trace(" A", {{loin, 0}, {5, 5}, {loin, 0}});
  for (const auto& p : Trace(" B", {{6, 5}, {9, 9}})) TraceInitial.push_back(p);
  for (const auto& p : Trace(" A", {{loin, 2}})) TraceInitial.push_back(p);
  NbPoints = static_cast<std::int32_t>(TraceInitial.size());
  mnu_Optimisation_Click();
  EXPECT_EQ(Lieux({TraceInitial.begin(), TraceInitial.begin() + 3}), (Liste{{5, 5}, {loin, 0}, {5, 5}}));
}
