// The check of windows for texts that have no translation, and for controls without a name.
#include <QAction>
#include <QComboBox>
#include <QDialog>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenuBar>
#include <QPushButton>
#include <QTabWidget>
#include <QToolBar>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "core/ui/TraduitFenetre.h"
#include "tests/ui/support/SupportUi.h"

namespace {

using essai::SansNom;
using essai::SansTraduction;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

class SansTraductionEssai : public testing::Test {
 protected:
  SansTraductionEssai() { fenetre_.setObjectName("F_Essai"); }
  std::vector<std::string> Avec(const std::string& lignes) {
    essai::EcritFichierEssai("OVELINen.trad", "[F_Essai]\n" + lignes);
    essai::ChoisitLangue("en");
    ovelin::TraduireFenetre(fenetre_);
    return SansTraduction(fenetre_);
  }
  QMainWindow fenetre_;
};

TEST_F(SansTraductionEssai, NamesEveryKindOfTextWithoutItsKey) {
  fenetre_.setWindowTitle("Essai");
  auto* centre = new QWidget;
  auto* boite = new QVBoxLayout(centre);
  const auto ajoute = [&](auto* w, const char* nom) {
    w->setObjectName(nom);
    boite->addWidget(w);
    return w;
  };
  ajoute(new QLabel("texte"), "Label1");
  ajoute(new QPushButton("texte"), "Btn_OK")->setToolTip("bulle");
  ajoute(new QGroupBox("texte"), "Frame1");
  ajoute(new QTabWidget, "SSTab1")->addTab(new QWidget, "texte");
  ajoute(new QTreeWidget, "TreeView1")->setHeaderLabels({"texte"});
  fenetre_.setCentralWidget(centre);
  QMenu* menu = fenetre_.menuBar()->addMenu("texte");
  menu->setObjectName("mnu_Fichier");
  menu->addAction("texte")->setObjectName("mnu_Ouvrir");
  EXPECT_THAT(Avec(""),
              UnorderedElementsAre("F_Essai/0 \"Essai\"", "F_Essai/Label1 \"texte\"", "F_Essai/Btn_OK \"texte\"",
                                   "F_Essai/Btn_OKtt \"bulle\"", "F_Essai/Frame1 \"texte\"",
                                   "F_Essai/SSTab1_0 \"texte\"", "F_Essai/TreeView1_0 \"texte\"",
                                   "F_Essai/mnu_Fichier \"texte\"", "F_Essai/mnu_Ouvrir \"texte\""));
  EXPECT_THAT(Avec("0=t\nLabel1=t\nBtn_OK=t\nBtn_OKtt=t\nFrame1=t\nSSTab1_0=t\nTreeView1_0=t\nmnu_Fichier=t\n"
                   "mnu_Ouvrir=t\n"),
              IsEmpty());
}

TEST_F(SansTraductionEssai, ATextWithoutAnyNameIsNamedByItsKindOfControl) {
  fenetre_.setCentralWidget(new QLabel("texte"));
  EXPECT_THAT(Avec(""), ElementsAre("F_Essai/QLabel \"texte\""));
}

TEST_F(SansTraductionEssai, NumbersSignsAndTextsOfTheUserNeedNone) {
  auto* centre = new QWidget;
  auto* boite = new QVBoxLayout(centre);
  boite->addWidget(new QLabel("12,5 %"));
  auto* chemin = new QLabel("/home/a.dxf");
  chemin->setProperty("texteLibre", true);
  boite->addWidget(chemin);
  auto* combo = new QComboBox;
  combo->addItem("Balsa");
  boite->addWidget(combo);
  fenetre_.setCentralWidget(centre);
  EXPECT_THAT(Avec(""), IsEmpty());
}

TEST_F(SansTraductionEssai, AButtonOfAToolBarIsNamedOnce) {
  auto* barre = fenetre_.addToolBar("");
  barre->setObjectName("TB1");
  barre->addAction("texte")->setObjectName("TB1_Ouvrir");
  EXPECT_THAT(Avec(""), ElementsAre("F_Essai/TB1_Ouvrir \"texte\""));
  EXPECT_THAT(Avec("TB1_Ouvrir=open\n"), IsEmpty());
}

TEST(SansNom, NamesControlsThatCannotBeToldByEarOrLackATip) {
  QDialog d;
  auto* boite = new QVBoxLayout(&d);
  auto* champ = new QLineEdit;
  champ->setObjectName("TB_A");
  auto* bouton = new QPushButton("x");
  bouton->setObjectName("Btn_B");
  bouton->setAccessibleName("b");
  boite->addWidget(champ);
  boite->addWidget(bouton);
  boite->addWidget(new QLabel("only read"));
  EXPECT_THAT(SansNom(d), ElementsAre("TB_A: no accessible name", "TB_A: no tool tip", "Btn_B: no tool tip"));
  bouton->setToolTip("t");
  champ->setToolTip("t");
  champ->setAccessibleName("a");
  EXPECT_THAT(SansNom(d), IsEmpty());
}

}  // namespace
