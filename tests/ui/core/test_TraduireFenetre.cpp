// The walk over the controls of a window: every kind takes its texts, what has none keeps its French.
#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QDockWidget>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMainWindow>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QStatusBar>
#include <QTabBar>
#include <QTabWidget>
#include <QTableWidget>
#include <QToolBar>
#include <QTreeWidget>

#include "core/Dossiers.h"
#include "core/Fichiers.h"
#include "core/Reglages.h"
#include "core/ui/Fenetres.h"
#include "core/ui/TraduitFenetre.h"
#include "tests/ui/support/SupportUi.h"

namespace {

using namespace ovelin;

class Traduction : public testing::Test {
 protected:
  Traduction() { fenetre_.setObjectName("F_Essai"); }

  // The file of a language in the program's folder, windows' section first.
  void Fichier(const char* langue, const std::string& lignes) {
    essai::EcritFichierEssai(std::string("OVELIN") + langue + ".trad", "[F_Essai]\n" + lignes);
    essai::ChoisitLangue(langue);
  }
  void Traduit(const std::string& lignes) {
    Fichier("en", lignes);
    TraduireFenetre(fenetre_);
  }
  template <class T, class... Arguments>
  T* Ajoute(const char* nom, Arguments... arguments) {
    auto* w = new T(arguments..., &fenetre_);
    w->setObjectName(nom);
    return w;
  }

  QMainWindow fenetre_;
};

TEST_F(Traduction, TheCaptionIsKeyZero) {
  fenetre_.setWindowTitle("Essai");
  Traduit("0=Trial\n");
  EXPECT_EQ(fenetre_.windowTitle(), "Trial");
}

TEST_F(Traduction, AMissingFileOrKeyKeepsTheFrench) {
  DossiersProduit.clear();
  fenetre_.setWindowTitle("Essai");
  auto* label = Ajoute<QLabel>("Label1", QString("Rayon"));
  auto* bouton = Ajoute<QPushButton>("Btn_OK", QString("Valider"));
  bouton->setToolTip("Applique");
  essai::ChoisitLangue("de");
  TraduireFenetre(fenetre_);
  EXPECT_EQ(fenetre_.windowTitle(), "Essai");
  EXPECT_EQ(label->text(), "Rayon");
  Traduit("Btn_OK=Apply\n");
  EXPECT_EQ(label->text(), "Rayon");
  EXPECT_EQ(bouton->text(), "Apply");
  EXPECT_EQ(bouton->toolTip(), "Applique");
}

TEST_F(Traduction, ControlsWithACaptionTakeTextAndTip) {
  auto* label = Ajoute<QLabel>("Label1", QString("a"));
  auto* bouton = Ajoute<QPushButton>("Btn_OK", QString("a"));
  auto* coche = Ajoute<QCheckBox>("CB_Tout", QString("a"));
  auto* option = Ajoute<QRadioButton>("Option_DI_0", QString("a"));
  auto* groupe = Ajoute<QGroupBox>("Frame1", QString("a"));
  Traduit(
      "Label1=l\nLabel1tt=lt\nBtn_OK=b\nBtn_OKtt=bt\nCB_Tout=c\nCB_Touttt=ct\nOption_DI_0=o\nOption_DI_0tt=ot\n"
      "Frame1=f\nFrame1tt=ft\n");
  EXPECT_EQ(label->text() + label->toolTip(), "llt");
  EXPECT_EQ(bouton->text() + bouton->toolTip(), "bbt");
  EXPECT_EQ(coche->text() + coche->toolTip(), "cct");
  EXPECT_EQ(option->text() + option->toolTip(), "oot");
  EXPECT_EQ(groupe->title() + groupe->toolTip(), "fft");
}

TEST_F(Traduction, ATextFieldKeepsItsContentAndTakesTheTip) {
  auto* champ = Ajoute<QLineEdit>("TB_Rayon", QString("12"));
  Traduit("TB_Rayon=Radius\nTB_Rayontt=Radius of the tool\n");
  EXPECT_EQ(champ->text(), "12");
  EXPECT_EQ(champ->toolTip(), "Radius of the tool");
  EXPECT_EQ(champ->accessibleName(), "Radius");
}

TEST_F(Traduction, TabsTakeTheirTextsByNumber) {
  auto* onglets = Ajoute<QTabWidget>("SSTab1");
  auto* barre = Ajoute<QTabBar>("TabStrip1");
  for (const char* texte : {"un", "deux"}) {
    onglets->addTab(new QWidget, texte);
    barre->addTab(texte);
  }
  Traduit("SSTab1_0=one\nSSTab1_0tt=first\nSSTab1_1=two\nTabStrip1_0=one\nTabStrip1_1tt=second\n");
  EXPECT_EQ(onglets->tabText(0), "one");
  EXPECT_EQ(onglets->tabToolTip(0), "first");
  EXPECT_EQ(onglets->tabText(1), "two");
  EXPECT_EQ(barre->tabText(0), "one");
  EXPECT_EQ(barre->tabText(1), "deux");
  EXPECT_EQ(barre->tabToolTip(1), "second");
}

TEST_F(Traduction, ButtonsOfAToolBarTakeTheirTip) {
  auto* barre = fenetre_.addToolBar("Outils");
  barre->setObjectName("TB1");
  QAction* ouvrir = barre->addAction("Ouvrir");
  ouvrir->setObjectName("TB1_Ouvrir");
  QAction* zoom = barre->addAction("Zoom");
  zoom->setObjectName("TB1_Zoom");
  Traduit("TB1_Ouvrir=Open\nTB1_Zoom=Zoom in\nTB1_Zoomtt=Enlarges the picture\n");
  EXPECT_EQ(ouvrir->toolTip(), "Open");
  EXPECT_EQ(zoom->toolTip(), "Enlarges the picture");
}

TEST_F(Traduction, MenusAndTheirEntriesTakeTheirTexts) {
  QMenu* menu = fenetre_.menuBar()->addMenu("Fichier");
  menu->setObjectName("mnu_Fichier");
  QAction* ouvrir = menu->addAction("Ouvrir");
  ouvrir->setObjectName("mnu_Ouvrir");
  QMenu* sous = menu->addMenu("Récents");
  sous->setObjectName("mnu_Recents");
  QAction* dedans = sous->addAction("Vider");
  dedans->setObjectName("mnu_Vider");
  QAction* libre = new QAction("Annuler", &fenetre_);
  libre->setObjectName("mnu_Undo");
  Traduit(
      "mnu_Fichier=&File\nmnu_Ouvrir=&Open\nmnu_Ouvrirtt=Opens a drawing\nmnu_Recents=Recent\nmnu_Vider=Clear\n"
      "mnu_Undo=Undo\n");
  EXPECT_EQ(menu->title(), "&File");
  EXPECT_EQ(ouvrir->text(), "&Open");
  EXPECT_EQ(ouvrir->toolTip(), "Opens a drawing");
  EXPECT_EQ(sous->title(), "Recent");
  EXPECT_EQ(dedans->text(), "Clear");
  EXPECT_EQ(libre->text(), "Undo");
}

TEST_F(Traduction, AnActionOfTheMenuInAToolBarKeepsItsText) {
  auto* barre = fenetre_.addToolBar("Outils");
  barre->setObjectName("TB1");
  QAction* ouvrir = barre->addAction("Ouvrir");
  ouvrir->setObjectName("mnu_Ouvrir");
  Traduit("mnu_Ouvrir=&Open\nmnu_Ouvrirtt=Opens a drawing\n");
  EXPECT_EQ(ouvrir->text(), "&Open");
  EXPECT_EQ(ouvrir->toolTip(), "Opens a drawing");
}

TEST_F(Traduction, LabelsOfTheStatusBarTakeTheirTexts) {
  auto* panneau = new QLabel("Prêt");
  panneau->setObjectName("StatusBar1_1");
  fenetre_.statusBar()->addWidget(panneau);
  Traduit("StatusBar1_1=Ready\nStatusBar1_1tt=What is going on\n");
  EXPECT_EQ(panneau->text(), "Ready");
  EXPECT_EQ(panneau->toolTip(), "What is going on");
}

TEST_F(Traduction, HeadersTakeTheirTextsByNumber) {
  auto* arbre = Ajoute<QTreeWidget>("TreeView1");
  arbre->setHeaderLabels({"Nom", "Points"});
  auto* table = Ajoute<QTableWidget>("ListView1");
  table->setColumnCount(2);
  table->setHorizontalHeaderLabels({"Nom", "Points"});
  Traduit("TreeView1_0=Name\nTreeView1_0tt=Code\nListView1_1=Dots\n");
  EXPECT_EQ(arbre->headerItem()->text(0), "Name");
  EXPECT_EQ(arbre->headerItem()->toolTip(0), "Code");
  EXPECT_EQ(arbre->headerItem()->text(1), "Points");
  EXPECT_EQ(table->horizontalHeaderItem(0)->text(), "Nom");
  EXPECT_EQ(table->horizontalHeaderItem(1)->text(), "Dots");
}

TEST_F(Traduction, CombosAndListsAreFilledUntilAKeyIsMissing) {
  auto* combo = Ajoute<QComboBox>("Combo_Outil");
  combo->addItems({"un", "deux", "trois"});
  combo->setItemData(1, 42);
  combo->setCurrentIndex(1);
  auto* liste = Ajoute<QListWidget>("LB_Outil");
  liste->addItem("un");
  int changes = 0;
  QObject::connect(combo, &QComboBox::currentIndexChanged, [&](int) { ++changes; });
  Traduit("Combo_Outil_0=one\nCombo_Outil_1=two\nCombo_Outil_3=four\nLB_Outil_0=one\nLB_Outil_1=two\n");
  ASSERT_EQ(combo->count(), 2);
  EXPECT_EQ(combo->itemText(0), "one");
  EXPECT_EQ(combo->itemText(1), "two");
  EXPECT_EQ(combo->itemData(1), 42);
  EXPECT_EQ(combo->currentIndex(), 1);
  EXPECT_EQ(changes, 0);
  ASSERT_EQ(liste->count(), 2);
  EXPECT_EQ(liste->item(1)->text(), "two");
}

TEST_F(Traduction, ACombosOwnItemsStayWithoutAnItemZero) {
  auto* combo = Ajoute<QComboBox>("CB_BD");
  combo->addItems({"Dépron 3 mm", "Balsa"});
  Traduit("CB_BD_1=something\n");
  EXPECT_EQ(combo->itemText(0), "Dépron 3 mm");
  EXPECT_EQ(combo->count(), 2);
}

TEST_F(Traduction, ADockTakesItsTitle) {
  auto* dock = Ajoute<QDockWidget>("Frame_Sequence", QString("Séquences"));
  Traduit("Frame_Sequence=Sequences\n");
  EXPECT_EQ(dock->windowTitle(), "Sequences");
}

TEST_F(Traduction, ControlsInsideOthersAreReached) {
  auto* groupe = Ajoute<QGroupBox>("Frame1", QString("a"));
  auto* boite = new QHBoxLayout(groupe);
  auto* onglets = new QTabWidget;
  auto* label = new QLabel("a");
  label->setObjectName("Label_Dedans");
  onglets->addTab(label, "x");
  boite->addWidget(onglets);
  Traduit("Label_Dedans=inside\n");
  EXPECT_EQ(label->text(), "inside");
}

TEST_F(Traduction, AnotherWindowBelowThisOneIsLeftToItself) {
  QDialog autre(&fenetre_);
  auto* label = new QLabel("a", &autre);
  label->setObjectName("Label1");
  Traduit("Label1=b\n");
  EXPECT_EQ(label->text(), "a");
}

TEST_F(Traduction, ASecondLanguageWithoutATextBringsTheFrenchBack) {
  auto* label = Ajoute<QLabel>("Label1", QString("Rayon"));
  auto* combo = Ajoute<QComboBox>("Combo_Outil");
  combo->addItems({"un", "deux"});
  Traduit("Label1=Radius\nLabel1tt=tip\nCombo_Outil_0=one\n");
  EXPECT_EQ(combo->count(), 1);
  Fichier("de", "0=Versuch\n");
  TraduireFenetre(fenetre_);
  EXPECT_EQ(label->text(), "Rayon");
  EXPECT_EQ(label->toolTip(), "");
  ASSERT_EQ(combo->count(), 2);
  EXPECT_EQ(combo->itemText(1), "deux");
}

TEST_F(Traduction, ATextThatTheProgramWroteStaysWhereNothingIsTranslated) {
  auto* label = Ajoute<QLabel>("LB_Fichier", QString());
  Traduit("0=Trial\n");
  label->setText("/home/a.dxf");
  TraduireFenetre(fenetre_);
  EXPECT_EQ(label->text(), "/home/a.dxf");
}

TEST_F(Traduction, AccentsAndSignsOfTheFileArrive) {
  auto* label = Ajoute<QLabel>("Label1", QString("a"));
  Traduit(
      "Label1=gr\xF6\xDF"
      "er als 20 \x80, 5 mm/s \xB0\n");
  EXPECT_EQ(label->text(), QString::fromUtf8("größer als 20 €, 5 mm/s °"));
}

// ---- names for those who hear the window

TEST_F(Traduction, AccessibleNamesComeFromTextLabelOrTip) {
  auto* bouton = Ajoute<QPushButton>("Btn_OK", QString("&Valider"));
  auto* champ = Ajoute<QLineEdit>("TB_Rayon");
  auto* label = Ajoute<QLabel>("Label1", QString("Rayon :"));
  label->setBuddy(champ);
  auto* barre = Ajoute<QSlider>("HScroll1");
  barre->setToolTip("Zoom");
  auto* sien = Ajoute<QLineEdit>("TB_Sien");
  sien->setAccessibleName("mine");
  auto* groupe = Ajoute<QGroupBox>("Frame1", QString("Outil"));
  groupe->setCheckable(true);
  Traduit("Btn_OK=&Apply\nLabel1=Radius:\nHScroll1tt=Scale\nTB_Sientt=tip\nFrame1=Tool\n");
  EXPECT_EQ(bouton->accessibleName(), "Apply");
  EXPECT_EQ(champ->accessibleName(), "Radius");
  EXPECT_EQ(barre->accessibleName(), "Scale");
  EXPECT_EQ(sien->accessibleName(), "mine");
  EXPECT_EQ(groupe->accessibleName(), "Tool");
  Fichier("de", "Btn_OK=Anwenden\n");
  TraduireFenetre(fenetre_);
  EXPECT_EQ(bouton->accessibleName(), "Anwenden");
  EXPECT_EQ(champ->accessibleName(), "Rayon");
}

// ---- helpers

TEST(TraduireOu, GivesTheTextOrWhatStandsInForIt) {
  essai::EcritFichierEssai("OVELINen.trad", "[F_Essai]\nlib001=Hello\n");
  essai::ChoisitLangue("en");
  EXPECT_EQ(TraduireOu("F_Essai", "lib001", "Bonjour"), "Hello");
  EXPECT_EQ(TraduireOu("F_Essai", "lib002", "Bonjour"), "Bonjour");
  EXPECT_EQ(TraduireOu("F_Essai", "", "Bonjour"), "Bonjour");
}

TEST(PrepareFenetre, GivesNameIconAndTexts) {
  essai::EcritFichierEssai("OVELINen.trad", "[F_Essai]\n0=Trial\n");
  essai::ChoisitLangue("en");
  QDialog fenetre;
  PrepareFenetre(fenetre, "F_Essai");
  EXPECT_EQ(fenetre.objectName(), "F_Essai");
  EXPECT_EQ(fenetre.windowTitle(), "Trial");
  EXPECT_FALSE(fenetre.windowIcon().isNull());
}

}  // namespace
