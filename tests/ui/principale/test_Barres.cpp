// The bars of the main window: its tool bar, the recent files of its menu, the status bar with its progress.
#include <QLabel>
#include <QMenu>
#include <QPointer>
#include <QProgressBar>
#include <QStatusBar>
#include <QToolBar>
#include <QToolButton>

#include "core/Cles.h"
#include "core/DocumentCourant.h"
#include "core/ReglagesCourants.h"
#include "core/Services.h"
#include "core/ui/Theme.h"
#include "tests/ui/principale/FenetrePrincipale.h"
#include "toolpath/Module_Outils.h"
#include "toolpath/Module_Sequence.h"
#include "workspace/ui/BarreEtat.h"
#include "workspace/ui/CommandesPrincipales.h"

namespace {

using namespace ovelin;
using essai::Clique;

class Barres : public essai::Principale {
 protected:
  void Plaque() { Charge(Exemple("plaque.dxf")); }
  // A timer has run off.
  void Sonne(const char* minuterie) {
    QTimerEvent e(C<QTimer>(minuterie)->timerId());
    QApplication::sendEvent(C<QTimer>(minuterie), &e);
  }
  std::string Etiquette(const char* nom) { return C<QLabel>(nom)->text().toStdString(); }
  // What stands between the last command of the file menu and the way out, by name.
  std::vector<std::string> Recents() {
    std::vector<std::string> noms;
    for (const QAction* a : C<QMenu>("mnu_Fichier")->actions()) {
      if (a->objectName().startsWith("mnu_MRU_")) noms.push_back(a->objectName().toStdString());
    }
    return noms;
  }
};

// --- tool bar

TEST_F(Barres, WhatNeedsADrawingWaitsForOneOnTheToolBarToo) {
  Charge();
  for (const char* nom : {"mnu_Save", "mnu_Fraisage", "mnu_Zoom1"}) {
    EXPECT_FALSE(Bouton(nom)->isEnabled()) << nom;
  }
  EXPECT_FALSE(C<QComboBox>("Combo_Zoom")->isEnabled());
  EXPECT_FALSE(Bouton("mnu_Undo")->isVisible());
  fenetre_.reset();
  Plaque();
  for (const char* nom : {"mnu_Save", "mnu_Fraisage", "mnu_Zoom1"}) EXPECT_TRUE(Bouton(nom)->isEnabled()) << nom;
  EXPECT_TRUE(C<QComboBox>("Combo_Zoom")->isEnabled());
  EXPECT_TRUE(Bouton("mnu_Undo")->isVisible());
}

TEST_F(Barres, NothingCanBeTakenBackBeforeAWindowIsLoaded) {
  fenetre_ = std::make_unique<F_Representation>();
  EXPECT_FALSE(Menu("mnu_Undo")->isEnabled());
}

TEST_F(Barres, NothingCanBeTakenBackWhileADrawingIsBeingOpened) {
  Plaque();
  QTest::keyClick(C<ImagePB1>("PB1"), Qt::Key_Right);
  essai::Evenements();
  ASSERT_TRUE(Menu("mnu_Undo")->isEnabled());
  Svc.DessinOuvert(false);
  EXPECT_FALSE(Menu("mnu_Undo")->isEnabled());
  EXPECT_FALSE(Bouton("mnu_Undo")->isVisible());
  Svc.DessinOuvert(true);
}

TEST_F(Barres, TheCaptionOfATextIsTheTextUntilItIsSaved) {
  Charge();
  EXPECT_FALSE(Menu("mnu_Save")->isEnabled());
  ASSERT_TRUE(GenereTexte("Été 2026", "DejaVu Sans", 0, 0));
  EXPECT_EQ(fenetre_->windowTitle(), QStringLiteral("OVELIN <-> Été 2026 *"));
  EXPECT_TRUE(Menu("mnu_Save")->isEnabled());
  EXPECT_TRUE(Menu("mnu_Fraisage")->isEnabled());
  essai::AttendFichier("mnu_Save", essai::Dossier() + "/lettres.OVL");
  Commande("mnu_Save");
  EXPECT_EQ(fenetre_->windowTitle(), QStringLiteral("OVELIN <-> lettres.OVL"));
}

TEST_F(Barres, ADrawingThatIsOpenedTakesTheCaptionOfATextAway) {
  Charge();
  ASSERT_TRUE(GenereTexte("I", "DejaVu Sans", 0, 0));
  Svc.DessinOuvert(false);
  FichierCourant = "/dessins/plaque.dxf";
  Svc.DessinOuvert(true);
  EXPECT_EQ(fenetre_->windowTitle(), QStringLiteral("OVELIN <-> plaque.dxf *"));
}

TEST_F(Barres, TheOneThatStandsOutHasItsTextBesideItsPicture) {
  Charge();
  EXPECT_EQ(C<QToolButton>("mnu_Fraisage")->toolButtonStyle(), Qt::ToolButtonTextBesideIcon);
  EXPECT_NE(C<QToolButton>("mnu_Save")->toolButtonStyle(), Qt::ToolButtonTextBesideIcon);
}

TEST_F(Barres, EveryButtonHasRoomInANarrowWindowInEveryLanguage) {
  for (const std::string& langue : essai::LanguesDuProduit()) {
    essai::ChoisitLangue(langue);
    Plaque();
    fenetre_->resize(1024, 700);
    essai::Evenements();
    auto* barre = C<QToolBar>("TB1");
    for (QAction* bouton : barre->actions()) {
      if (bouton->isSeparator() || !bouton->isVisible()) continue;
      EXPECT_TRUE(barre->widgetForAction(bouton)->isVisible())
          << langue << " " << bouton->objectName().toStdString();
    }
    fenetre_.reset();
  }
}

TEST_F(Barres, WordsOfTheToolBarComeBackWithItsRoom) {
  Plaque();
  auto* fraisage = C<QToolButton>("mnu_Fraisage");
  fenetre_->resize(1700, 800);
  essai::Evenements();
  EXPECT_TRUE(C<QLabel>("Lbl_BD")->isVisible());
  EXPECT_EQ(fraisage->toolButtonStyle(), Qt::ToolButtonTextBesideIcon);
  fenetre_->resize(800, 700);
  essai::Evenements();
  EXPECT_FALSE(C<QLabel>("Lbl_BD")->isVisible());
  EXPECT_EQ(fraisage->toolButtonStyle(), Qt::ToolButtonIconOnly);
  EXPECT_FALSE(Bouton("mnu_Fraisage")->toolTip().isEmpty());
  fenetre_->resize(1700, 800);
  essai::Evenements();
  EXPECT_TRUE(C<QLabel>("Lbl_BD")->isVisible());
  EXPECT_EQ(fraisage->toolButtonStyle(), Qt::ToolButtonTextBesideIcon);
}

TEST_F(Barres, AToolThatIsRefusedLeavesItsButtonUp) {
  Plaque();
  LargeurEncoche = 0;
  essai::Attend("F_Representation", "lib312");
  Clique(*C<QToolButton>("mnu_Lever"));
  EXPECT_FALSE(C<QToolButton>("mnu_Lever")->isChecked());
  EXPECT_FALSE(Bouton("mnu_Lever")->isChecked());
}

TEST_F(Barres, ThePointerShowsTheTool) {
  Plaque();
  auto* image = C<ImagePB1>("PB1");
  const Qt::CursorShape simple = image->cursor().shape();
  Commande("mnu_Lever");
  EXPECT_EQ(image->cursor().shape(), Qt::BitmapCursor);
  Commande("mnu_Lever");
  EXPECT_EQ(image->cursor().shape(), simple);
}

// --- recent files

TEST_F(Barres, TheRecentFilesStandAboveTheirLineAndGoWithTheirList) {
  Charge();
  const auto avant = Recents();
  Svc.FichierRecent(Exemple("plaque.dxf"));
  const auto un = Recents();
  Svc.FichierRecent(Exemple("equerre.dxf"));
  ASSERT_GE(Recents().size(), 3U);
  EXPECT_LE(Recents().size(), un.size() + 1) << "no entry of the list before stands beside the new ones";
  EXPECT_GE(un.size(), avant.size());
  EXPECT_EQ(Recents().front(), "mnu_MRU_1");
  EXPECT_EQ(Recents().back(), "mnu_MRU_0");
  EXPECT_TRUE(Menu("mnu_MRU_1")->text().contains("equerre.dxf"));
}

TEST_F(Barres, TheLineUnderTheRecentFilesIsThereWithThem) {
  Charge();
  auto* commandes = fenetre_->findChild<CommandesPrincipales*>();
  commandes->RemplitRecents({});
  EXPECT_FALSE(Menu("mnu_MRU_0")->isVisible());
  commandes->RemplitRecents({"&1 a.dxf"});
  EXPECT_TRUE(Menu("mnu_MRU_0")->isVisible());
}

TEST_F(Barres, AnEntryThatIsReplacedIsFreed) {
  Charge();
  auto* commandes = fenetre_->findChild<CommandesPrincipales*>();
  commandes->RemplitRecents({"a.dxf"});
  const QPointer<QAction> entree = Menu("mnu_MRU_1");
  commandes->RemplitRecents({});
  EXPECT_FALSE(entree.isNull()) << "it may be the one that is at work";
  QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_TRUE(entree.isNull());
}

// --- status bar and progress

TEST_F(Barres, TheStatusBarNamesTheFileAndFollowsTheMouse) {
  Plaque();
  EXPECT_EQ(Etiquette("SB1_1"), "plaque.dxf");
  auto* image = C<ImagePB1>("PB1");
  QTest::mouseMove(image, QPoint(40, 40));
  QTest::mouseMove(image, image->rect().center());
  essai::Evenements();
  EXPECT_THAT(Etiquette("SB1_6"), testing::StartsWith("x : "));
  EXPECT_THAT(Etiquette("SB1_7"), testing::StartsWith("y : "));
}

TEST_F(Barres, TheNameOfTheFileStandsOnceAndAnythingElseBesideIt) {
  Plaque();
  auto* panneau = C<QLabel>("SB1_1");
  EXPECT_FALSE(panneau->isVisible());
  EXPECT_TRUE(C<QLabel>("SB1_11")->text().startsWith("plaque.dxf"));
  CliqueLigne("TreeView1", 0);
  EXPECT_TRUE(panneau->isVisible());
  Svc.Panneau(PanneauEtat::Fichier, " p");
  EXPECT_TRUE(panneau->isVisible()) << "a code that the name begins with";
  Deplacement_Selection(Direction::X, 2);
  Svc.Rafraichit();
  Svc.Panneau(PanneauEtat::Fichier, " plaque.dxf");
  EXPECT_FALSE(panneau->isVisible()) << "with the star of a change behind it";
  EXPECT_TRUE(C<QLabel>("SB1_11")->text().startsWith("plaque.dxf*"));
}

TEST_F(Barres, TheNameOfTheFileIsWholeBesideTheWordsOfTheSelection) {
  Plaque();
  fenetre_->resize(1024, 700);
  auto* panneau = C<QLabel>("SB1_1");
  for (const char* nom : {"plaque.dx", "plaque-1000000.dxf", "un nom un peu long.dxf"}) {
    Svc.Panneau(PanneauEtat::Fichier, nom);
    essai::Evenements();
    EXPECT_GE(panneau->width(), panneau->sizeHint().width()) << nom;
  }
}

TEST_F(Barres, TheStatusBarShowsWhatACommandIsDoing) {
  Charge();
  Svc.Panneau(PanneauEtat::Points, "Lecture");
  EXPECT_EQ(Etiquette("SB1_2"), "Lecture");
  Svc.Panneau(PanneauEtat::Statut, "TEXT 2");
  EXPECT_EQ(Etiquette("SB1_5"), "TEXT 2");
}

// A picture of another height is laid out anew, which would be a step of undo behind an opening.
TEST_F(Barres, WhatComesAndGoesInTheStatusBarLeavesThePictureItsHeight) {
  Plaque();
  const int hauteur = C<ImagePB1>("PB1")->height();
  auto* barre = fenetre_->findChild<BarreEtat*>();
  const auto tient = [&](const char* quand) {
    essai::Evenements();
    EXPECT_EQ(C<ImagePB1>("PB1")->height(), hauteur) << quand;
  };
  barre->SB_Avancement("Lecture", 10);
  tient("a pass begins");
  barre->SB_AvancementFin();
  tient("it ends");
  barre->Ecarte("2 textes", "TEXT 2");
  tient("something was left out");
  barre->Ecarte("", "");
  tient("nothing was");
}

TEST_F(Barres, APassOfAKnownLengthStepsTheBarOfTheStatusBar) {
  Charge();
  auto* barre = C<QProgressBar>("PB_Avancement");
  ASSERT_FALSE(barre->isVisible());
  Svc.AvancementDebut("Calcul", 4);
  EXPECT_TRUE(barre->isVisible());
  EXPECT_EQ(Etiquette("SB1_2"), "Calcul");
  EXPECT_FALSE(C<QFrame>("Frame_Avancement")->isVisible());
  Svc.AvancementPlus();
  Svc.AvancementPlus();
  EXPECT_EQ(barre->value(), 2);
  EXPECT_EQ(barre->maximum(), 4);
  EXPECT_TRUE(C<QTimer>("Timer_Decalage")->isActive());
  const QImage debut = C<QLabel>("SB1_10")->pixmap().toImage();
  EXPECT_EQ(debut, IconeProgramme("picStanding").pixmap(16, 16).toImage());
  Sonne("Timer_Decalage");
  EXPECT_FALSE(C<QLabel>("SB1_10")->pixmap().toImage() == debut);
  Svc.AvancementFin();
  EXPECT_FALSE(barre->isVisible());
  EXPECT_FALSE(C<QTimer>("Timer_Decalage")->isActive());
  EXPECT_TRUE(C<QLabel>("SB1_10")->pixmap().isNull());
  EXPECT_EQ(Etiquette("SB1_2"), "");
  Svc.AvancementDebut("Encore", 7);
  EXPECT_EQ(barre->value(), 0) << "from the beginning";
  EXPECT_EQ(barre->maximum(), 7);
}

TEST_F(Barres, APassOfAnUnknownLengthHasTheFrame) {
  Charge();
  auto* cadre = C<QFrame>("Frame_Avancement");
  auto* barre = C<QProgressBar>("ProgressBar_Avancement");
  Svc.AvancementDebut("Enregistrement", 0);
  EXPECT_TRUE(cadre->isVisible());
  EXPECT_EQ(Etiquette("Lbl_Avancement"), "Enregistrement");
  EXPECT_FALSE(C<QProgressBar>("PB_Avancement")->isVisible());
  EXPECT_TRUE(C<QTimer>("Timer_Avancement")->isActive());
  EXPECT_EQ(barre->value(), 0);
  for (int pas = 1; pas <= 20; ++pas) {
    Sonne("Timer_Avancement");
    EXPECT_EQ(barre->value(), pas);
  }
  Sonne("Timer_Avancement");
  EXPECT_EQ(barre->value(), 0) << "full at 20, and from the beginning again";
  Svc.AvancementFin();
  EXPECT_FALSE(cadre->isVisible());
  EXPECT_FALSE(C<QTimer>("Timer_Avancement")->isActive());
}

// How often a widget is painted.
class Peintures : public QObject {
 public:
  int nombre = 0;
  bool eventFilter(QObject* objet, QEvent* e) override {
    if (e->type() == QEvent::Paint) ++nombre;
    return QObject::eventFilter(objet, e);
  }
};

TEST_F(Barres, TheStatusBarIsPaintedAtOnceBehindTheBounds) {
  Plaque();
  essai::Evenements();
  Peintures peintures;
  C<QStatusBar>("SB1")->installEventFilter(&peintures);
  EncombrementGeneral();
  EXPECT_EQ(peintures.nombre, 1);
}

}  // namespace
