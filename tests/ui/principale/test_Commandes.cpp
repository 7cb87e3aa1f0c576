// The table of commands, and what the window makes of it.
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>
#include <algorithm>
#include <set>

#include "core/RunCourant.h"
#include "core/ui/Theme.h"
#include "tests/ui/principale/FenetrePrincipale.h"
#include "workspace/Module_Cycle.h"
#include "workspace/ui/TableCommandes.h"

namespace {

using namespace ovelin;
using testing::ElementsAre;

class Commandes : public essai::Principale {
 protected:
  // Names of what stands there, "|" for a line.
  static std::vector<std::string> Noms(const QList<QAction*>& actions) {
    std::vector<std::string> noms;
    for (const QAction* a : actions) {
      if (!a->isVisible() && a->isSeparator()) continue;
      noms.push_back(a->isSeparator() ? "|" : a->objectName().toStdString());
    }
    return noms;
  }
};

TEST_F(Commandes, EachHasANameOfItsOwnAMenuThatExistsAndAPicture) {
  std::set<std::string> noms, menus;
  for (const LigneMenu& m : TableMenus()) menus.insert(m.nom);
  for (const LigneCommande& c : TableCommandes()) {
    EXPECT_TRUE(noms.insert(c.nom).second) << c.nom;
    if (*c.menu == '\0') continue;
    EXPECT_TRUE(menus.contains(c.menu)) << c.nom;
    EXPECT_FALSE(IconeProgramme(c.nom).isNull()) << c.nom;
  }
}

TEST_F(Commandes, NoTwoStandInOnePlace) {
  for (const auto place : {&LigneCommande::barre, &LigneCommande::contexte}) {
    std::set<int> places;
    for (const LigneCommande* c : ParPlace(place)) EXPECT_TRUE(places.insert(c->*place).second) << c->nom;
  }
}

TEST_F(Commandes, TheFileMenuHasALineBetweenItsGroups) {
  Charge();
  EXPECT_THAT(Noms(C<QMenu>("mnu_Fichier")->actions()),
              ElementsAre("mnu_Ouvrir", "mnu_Save", "mnu_SaveAs", "mnu_Exporter", "|", "mnu_Fraisage", "mnu_Gcode",
                          "|", "mnu_Quitter"));
}

TEST_F(Commandes, TheToolBarFollowsTheWork) {
  Charge();
  auto* barre = C<QToolBar>("TB1");
  std::vector<std::string> noms = Noms(barre->actions());
  noms.resize(9);
  EXPECT_THAT(noms, ElementsAre("TB1_mnu_Ouvrir", "TB1_mnu_Save", "TB1_mnu_SaveAs", "TB1_mnu_Exporter", "|", "",
                                "TB1_mnu_BD", "|", "TB1_mnu_Fraisage"));
}

TEST_F(Commandes, TheMenuOfThePictureOffersTheSelectionTheViewAndTheWork) {
  Charge(Exemple("equerre.dxf"));
  QContextMenuEvent demande(QContextMenuEvent::Keyboard, QPoint(50, 50), QPoint(50, 50));
  QApplication::sendEvent(C<QWidget>("PB1"), &demande);
  essai::Evenements();
  auto* menu = C<QMenu>("mnu_Contexte");
  EXPECT_THAT(
      Noms(menu->actions()),
      ElementsAre("mnu_Tout", "mnu_InverseSelection", "mnu_Calque", "mnu_Supprimer", "mnu_Copier", "mnu_Coller",
                  "mnu_Dupliquer", "mnu_Repeter", "|", "mnu_Undo", "mnu_Redo", "mnu_Historique", "|", "mnu_Zoom1",
                  "mnu_ZoomSelection", "|", "mnu_Lever", "mnu_Fraisage", "mnu_Attaches"));
  menu->close();
}

TEST_F(Commandes, WhatNeedsADrawingIsOffWithoutOneAndOnWithOne) {
  Charge();
  for (const bool ouvert : {false, true}) {
    if (ouvert) {
      essai::AttendFichier("mnu_Ouvrir", Exemple("equerre.dxf"));
      Commande("mnu_Ouvrir");
    }
    for (const LigneCommande& c : TableCommandes()) {
      const auto* action = fenetre_->findChild<QAction*>(c.nom);
      if (action == nullptr || !c.dessin) continue;
      EXPECT_EQ(action->isEnabled(), ouvert) << c.nom;
    }
  }
}

TEST_F(Commandes, OneThatOpensAWindowOpensThatOfItsRow) {
  Charge(Exemple("equerre.dxf"));
  Commande("mnu_Soudure");
  Commande("mnu_BD");
  Commande("mnu_Fraisage");
  EXPECT_THAT(ouvertes_, ElementsAre("F_Soudure", "F_BD", "F_Fraisage"));
}

TEST_F(Commandes, WhileTheBoardWorksOnlyTheViewMayChange) {
  Charge(Exemple("equerre.dxf"));
  int bips = 0;
  Svc.Bip = [&] { ++bips; };
  OperationCarte = true;
  Commande("mnu_BD");
  EXPECT_EQ(bips, 1);
  EXPECT_TRUE(ouvertes_.empty());
  const bool panneau = Menu("mnu_Panneau")->isChecked();
  Commande("mnu_Panneau");
  EXPECT_NE(Menu("mnu_Panneau")->isChecked(), panneau);
  EXPECT_EQ(bips, 1);
}

TEST_F(Commandes, AnotherBoardIsTakenByCommandAndTheStatusBarSaysSo) {
  Charge();
  for (const auto& [choix, nom] : {std::pair{"virtuelle", "Carte virtuelle"}, {"aucune", "Sans carte"}}) {
    essai::AttendSaisie("Carte_choix", choix);
    Commande("mnu_Carte");
    EXPECT_EQ(C<QLabel>("SB1_9")->text().toStdString(), nom);
  }
}

// Beside the choice of the board, as long as there is something behind it, in a run as well.
TEST_F(Commandes, ThePanelOfTheVirtualBoardIsOfferedWithThatBoardAlone) {
  Charge();
  const std::vector<std::string> noms = Noms(C<QMenu>("mnu_Options")->actions());
  const auto choix = std::find(noms.begin(), noms.end(), "mnu_Carte");
  ASSERT_NE(choix, noms.end());
  EXPECT_EQ(*(choix + 1), "mnu_CarteVirtuelle");
  for (const auto& [carte, offert] : {std::pair{"virtuelle", true}, {"aucune", false}}) {
    essai::AttendSaisie("Carte_choix", carte);
    Commande("mnu_Carte");
    EXPECT_EQ(Menu("mnu_CarteVirtuelle")->isVisible(), offert) << carte;
  }
  OperationCarte = true;
  Commande("mnu_CarteVirtuelle");
  EXPECT_THAT(ouvertes_, ElementsAre("F_CarteVirtuelle"));
}

TEST_F(Commandes, ASwitchThatIsRefusedStaysAsItWas) {
  Charge(Exemple("equerre.dxf"));
  Svc.Bip = [] {};
  OperationCarte = true;
  Commande("mnu_Lever");
  EXPECT_FALSE(Menu("mnu_Lever")->isChecked());
}

}  // namespace
