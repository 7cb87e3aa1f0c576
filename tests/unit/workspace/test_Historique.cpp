// The list of the steps of undo: what they say, jumps in it, what a put-off picture leaves of it.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "core/DocumentCourant.h"
#include "core/Dossiers.h"
#include "core/Fichiers.h"
#include "core/ReglagesCourants.h"
#include "tests/support/Support.h"
#include "workspace/Module_Annulation.h"

namespace {

using namespace ovelin;
using Noms = std::vector<std::string>;
using S = SorteChangement;
using testing::ElementsAre;

Noms Instantanes() { return ListeFichiers(DossierTemp, "OVL"); }

CrochetsAnnulation AvecDessin() {
  CrochetsAnnulation c;
  c.Dessin = [] { PrendInstantane(); };
  return c;
}

void Decale(float dx) {
  for (PointTrace& p : TraceInitial) p.X += dx;
}

std::vector<S> Sortes() {
  std::vector<S> sortes;
  for (const PasHistorique& pas : HistoriqueCourant().pas) sortes.push_back(pas.changement.sorte);
  return sortes;
}

// 1 opened at X 0, 2 moved to 1, 3 another depth, 4 the view, 5 the selection, 6 moved to 3.
void SixPas() {
  essai::AjouteCarre(" A", 0, 0, 10);
  PrendInstantane();
  Decale(1);
  PrendInstantane();
  Sequences[0].Profondeur = -8;
  PrendInstantane();
  PrendInstantane();
  Sequences[0].Selection = Faux;
  PrendInstantane();
  Decale(2);
  PrendInstantane();
}

TEST(Historique, SaysOfEachStepWhatItHasChanged) {
  EXPECT_EQ(HistoriqueCourant().present, 0);
  EXPECT_TRUE(HistoriqueCourant().pas.empty());
  SixPas();
  EXPECT_THAT(Sortes(),
              ElementsAre(S::Ouverture, S::Deplacement, S::Profondeur, S::Affichage, S::Selection, S::Deplacement));
  EXPECT_EQ(HistoriqueCourant().present, 6);
}

TEST(Historique, StatesOfOneDrawingShareTheirPicture) {
  SixPas();
  const auto pas = HistoriqueCourant().pas;
  EXPECT_EQ(*pas[0].apercu, essai::Trace(" A", {{0, 0}, {0, 10}, {10, 10}, {10, 0}, {0, 0}}));
  EXPECT_NE(pas[1].apercu, pas[0].apercu);
  EXPECT_EQ(pas[3].apercu, pas[2].apercu);
  EXPECT_EQ(pas[4].apercu, pas[2].apercu);
}

TEST(VaAuPas, JumpsBackOverSeveralStepsAndForwardAgain) {
  SixPas();
  const ResultatAnnulation r = VaAuPas(2, AvecDessin());
  EXPECT_TRUE(r.fait);
  EXPECT_TRUE(r.lu);
  EXPECT_TRUE(r.bouton);
  EXPECT_EQ(TraceInitial[0].X, 1);
  EXPECT_EQ(Sequences[0].Profondeur, -3);
  EXPECT_EQ(Instantanes(), (Noms{"00001.OVL", "00002.OVL"})) << "as two states stand there";
  EXPECT_EQ(PasARefaire(), 4);
  EXPECT_EQ(HistoriqueCourant().present, 2);
  EXPECT_EQ(Sortes().size(), 6U) << "what was taken back stands behind";
  EXPECT_TRUE(VaAuPas(5, AvecDessin()).lu);
  EXPECT_EQ(TraceInitial[0].X, 1);
  EXPECT_EQ(Sequences[0].Profondeur, -8);
  EXPECT_EQ(Instantanes().size(), 5U);
  EXPECT_EQ(PasARefaire(), 1);
  EXPECT_TRUE(VaAuPas(6, AvecDessin()).lu);
  EXPECT_EQ(TraceInitial[0].X, 3);
  EXPECT_THAT(Sortes(),
              ElementsAre(S::Ouverture, S::Deplacement, S::Profondeur, S::Affichage, S::Selection, S::Deplacement));
}

TEST(VaAuPas, TheFirstStateLeavesNothingToUndo) {
  SixPas();
  EXPECT_FALSE(VaAuPas(1, AvecDessin()).bouton);
  EXPECT_EQ(TraceInitial[0].X, 0);
  EXPECT_EQ(Instantanes(), (Noms{"00001.OVL"}));
}

TEST(VaAuPas, WhereThereIsNoStateNothingIsDone) {
  SixPas();
  for (const int numero : {0, -1, 6, 7}) EXPECT_FALSE(VaAuPas(numero, AvecDessin()).fait) << numero;
  EXPECT_EQ(Instantanes().size(), 6U);
}

TEST(VaAuPas, AChangeAfterAJumpForgetsWhatLiesBehind) {
  SixPas();
  VaAuPas(2, AvecDessin());
  Decale(20);
  PrendInstantane();
  EXPECT_THAT(Sortes(), ElementsAre(S::Ouverture, S::Deplacement, S::Deplacement));
  EXPECT_EQ(PasARefaire(), 0);
}

TEST(VaAuPas, ALookAfterAJumpStandsBetween) {
  SixPas();
  VaAuPas(2, AvecDessin());
  PrendInstantane();
  EXPECT_THAT(Sortes(), ElementsAre(S::Ouverture, S::Deplacement, S::Affichage, S::Profondeur, S::Affichage,
                                    S::Selection, S::Deplacement));
  EXPECT_TRUE(VaAuPas(7, AvecDessin()).lu);
  EXPECT_EQ(TraceInitial[0].X, 3);
}

TEST(PasAvantChangement, LeavesOutTheViewAndTheSelection) {
  SixPas();
  EXPECT_EQ(PasAvantChangement(HistoriqueCourant()), 5);
  VaAuPas(5, AvecDessin());
  EXPECT_EQ(PasAvantChangement(HistoriqueCourant()), 2) << "in front of the depth";
  EXPECT_EQ(PasApresChangement(HistoriqueCourant()), 6);
  VaAuPas(3, AvecDessin());
  EXPECT_EQ(PasApresChangement(HistoriqueCourant()), 6) << "over the view and the selection";
  VaAuPas(1, AvecDessin());
  EXPECT_EQ(PasAvantChangement(HistoriqueCourant()), 0);
}

TEST(Historique, AnOpeningBeginsANewList) {
  SixPas();
  mnu_Undo(AvecDessin());
  EffaceTousInstantanes();
  EXPECT_TRUE(HistoriqueCourant().pas.empty());
  PrendInstantane();
  EXPECT_THAT(Sortes(), ElementsAre(S::Ouverture));
}

// The picture comes behind a pass that runs: nothing is drawn before the undo has returned.
TEST(mnu_Redo, IsKeptWhereThePictureOfTheUndoComesLater) {
  SixPas();
  mnu_Undo(CrochetsAnnulation{});
  EXPECT_EQ(PasARefaire(), 1);
  EXPECT_EQ(PrendInstantane().numero, 0) << "the state that has come back has its snapshot";
  EXPECT_EQ(Instantanes().size(), 5U);
  EXPECT_EQ(PasARefaire(), 1);
  EXPECT_TRUE(mnu_Redo(CrochetsAnnulation{}).lu);
  PrendInstantane();
  EXPECT_EQ(TraceInitial[0].X, 3);
  EXPECT_EQ(Instantanes().size(), 6U);
}

TEST(mnu_Redo, IsForgottenByAChangeInFrontOfThePicture) {
  SixPas();
  mnu_Undo(CrochetsAnnulation{});
  Decale(9);
  EXPECT_EQ(PrendInstantane().numero, 6);
  EXPECT_EQ(PasARefaire(), 0);
}

}  // namespace
