// The main window while a job runs on the machine: what is off, what only beeps, and how the program ends.
#include <QComboBox>
#include <QMenu>
#include <map>
#include <set>

#include "core/DocumentCourant.h"
#include "core/ReglagesCourants.h"
#include "core/RunCourant.h"
#include "core/ui/AvisRun.h"
#include "tests/ui/principale/FenetrePrincipale.h"
#include "toolpath/Module_Sequence.h"
#include "workspace/Module_Souris.h"

namespace {

using namespace ovelin;

class PendantUnRun : public essai::Principale {
 protected:
  void TearDown() override {
    Run(false);
    essai::Principale::TearDown();
  }
  void Run(bool enCours) {
    OperationCarte = RunActif = enCours;
    TestEnCours = false;
    AvisRun::Unique().Note(enCours);
  }
};

TEST_F(PendantUnRun, WhatOpensSavesUndoesOrChangesIsOffAndViewAndSelectionStay) {
  Charge(Exemple("plaque.dxf"));
  std::map<std::string, bool> avant;
  for (const LigneCommande& c : TableCommandes()) {
    if (*c.menu != '\0' && fenetre_->findChild<QAction*>(c.nom) != nullptr) avant[c.nom] = Menu(c.nom)->isEnabled();
  }
  Run(true);
  for (const char* nom : {"mnu_Ouvrir", "mnu_Save", "mnu_SaveAs", "mnu_Undo", "mnu_Supprimer", "mnu_Lever",
                          "mnu_Optimisation", "mnu_Nettoyage", "mnu_BD", "mnu_Soudure", "mnu_Defaut"}) {
    EXPECT_FALSE(Menu(nom)->isEnabled()) << nom;
  }
  for (const char* nom :
       {"mnu_Fraisage", "mnu_Gcode", "mnu_Quitter", "mnu_Tout", "mnu_InverseSelection", "mnu_Historique",
        "mnu_ZoomPlus", "mnu_ZoomSelection", "mnu_NumPoint", "mnu_Panneau", "mnu_ParamAppli"}) {
    EXPECT_TRUE(Menu(nom)->isEnabled()) << nom;
  }
  EXPECT_FALSE(C<QComboBox>("CB_BD")->isEnabled());
  for (const char* nom : {"FRAME_Fraisage", "CB_Origine", "TB_RayonFraise", "CB_PositionOK"}) {
    EXPECT_FALSE(C<QWidget>(nom)->isEnabled()) << nom;
  }
  EXPECT_TRUE(C<QWidget>("TreeView1")->isEnabled());
  Run(false);
  for (const auto& [nom, actif] : avant) EXPECT_EQ(Menu(nom.c_str())->isEnabled(), actif) << nom;
  EXPECT_TRUE(C<QWidget>("FRAME_Fraisage")->isEnabled());
}

TEST_F(PendantUnRun, ExactlyTheCommandsOfViewSelectionAndWindowsStay) {
  Charge(Exemple("plaque.dxf"));
  Run(true);
  std::set<std::string> restent;
  for (const LigneCommande& c : TableCommandes()) {
    const auto* action = fenetre_->findChild<QAction*>(c.nom);
    if (*c.menu != '\0' && action != nullptr && action->isEnabled()) restent.insert(c.nom);
  }
  EXPECT_EQ(restent,
            (std::set<std::string>{"mnu_Fraisage",         "mnu_Gcode",   "mnu_Quitter",       "mnu_Tout",
                                   "mnu_InverseSelection", "mnu_Calque",  "mnu_Historique",    "mnu_ZoomPlus",
                                   "mnu_ZoomMoins",        "mnu_Zoom1",   "mnu_ZoomSelection", "mnu_NumPoint",
                                   "mnu_Sequence",         "mnu_Panneau", "mnu_Saignee",       "mnu_Sobre",
                                   "mnu_ParamAppli",       "mnu_PilMan",  "mnu_Help",          "mnu_APropos"}));
}

TEST_F(PendantUnRun, ACommandThatIsSwitchedMeanwhileComesBackAsItShouldBe) {
  Charge();
  Run(true);
  EXPECT_FALSE(Menu("mnu_Save")->isEnabled());
  Svc.DessinOuvert(true);
  EXPECT_FALSE(Menu("mnu_Save")->isEnabled());
  Run(false);
  EXPECT_TRUE(Menu("mnu_Save")->isEnabled());
}

TEST_F(PendantUnRun, TheAttachmentToolIsLaidDown) {
  Charge(Exemple("plaque.dxf"));
  LargeurEncoche = 5;
  Commande("mnu_Lever");
  ASSERT_TRUE(Souris.mnu_Lever);
  Run(true);
  EXPECT_FALSE(Souris.mnu_Lever);
  EXPECT_FALSE(Menu("mnu_Lever")->isChecked());
}

TEST_F(PendantUnRun, ByHandNothingIsShownAsOffAndNothingChangesTheDrawing) {
  Charge(Exemple("plaque.dxf"));
  Commande("mnu_Tout");
  LargeurEncoche = 5;
  Commande("mnu_Lever");
  const Document avant = Doc;
  OperationCarte = true;
  EXPECT_TRUE(C<QWidget>("FRAME_Fraisage")->isEnabled());
  int bips = essai::Bips();
  const auto bipe = [&](const char* quoi) {
    EXPECT_EQ(essai::Bips(), ++bips) << quoi;
    EXPECT_TRUE(Doc.TraceInitial == avant.TraceInitial) << quoi;
  };
  CliqueDessin(20, 20);
  bipe("a click of the attachment tool");
  QTest::keyClick(C<QWidget>("PB1"), Qt::Key_Left);
  bipe("an arrow key");
  QTest::mouseClick(C<QWidget>("CB_Poche"), Qt::LeftButton);
  bipe("a box of the panel");
  Commande("mnu_Supprimer");
  bipe("a command");
  fenetre_->Depose(Exemple("equerre.dxf"));
  essai::Evenements();
  bipe("a dropped file");
  EXPECT_EQ(Doc.Sequences.size(), avant.Sequences.size());
}

TEST_F(PendantUnRun, ACloseStopsByTheRampAndComesBehindTheRun) {
  Charge();
  Run(true);
  C<QTimer>("Timer_Fin")->setInterval(0);
  fenetre_->close();
  EXPECT_EQ(StopDemande, Vrai);
  EXPECT_EQ(ArretRampe, Vrai);
  essai::Evenements();
  EXPECT_TRUE(fenetre_->isVisible()) << "the machine still moves";
  Run(false);
  essai::Evenements();
  EXPECT_FALSE(fenetre_->isVisible());
}

// A test of the machine is ended in its own window: neither the cross nor "Quit" does, nor are they remembered.
TEST_F(PendantUnRun, InATestAClosingBeepsAndTheWindowStays) {
  Charge();
  C<QTimer>("Timer_Fin")->setInterval(0);
  OperationCarte = TestEnCours = true;
  EXPECT_FALSE(fenetre_->close());
  EXPECT_EQ(essai::Bips(), 1);
  Commande("mnu_Quitter");
  EXPECT_EQ(essai::Bips(), 2);
  EXPECT_EQ(StopDemande, Faux) << "the test goes on";
  StopDemande = Vrai;  // its stop is pressed: it runs out
  EXPECT_FALSE(fenetre_->close());
  EXPECT_EQ(essai::Bips(), 3);
  OperationCarte = TestEnCours = false;
  essai::Evenements();
  EXPECT_TRUE(fenetre_->isVisible()) << "what was refused does not come later";
  EXPECT_TRUE(fenetre_->close());
}

TEST_F(PendantUnRun, TheBarOfStatusHasTheStopAndEscapeStopsAtOnceInEveryWindow) {
  Charge(Exemple("plaque.dxf"));
  Run(true);
  ArretRampe = Vrai;
  QTest::keyClick(C<QWidget>("PB1"), Qt::Key_Escape);
  EXPECT_EQ(StopDemande, Vrai);
  EXPECT_EQ(ArretRampe, Faux);
}

}  // namespace
