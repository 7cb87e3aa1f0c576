// The services of the core as the windows fill them: boxes, dialogs, events with and without the user's input, long
// kernels, wishes that wait.
#include <QApplication>
#include <QCloseEvent>
#include <QCursor>
#include <QDropEvent>
#include <QFileDialog>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>
#include <atomic>
#include <stdexcept>
#include <thread>

#include "core/Fichiers.h"
#include "core/Reglages.h"
#include "core/ui/Fenetres.h"
#include "core/ui/ServicesQt.h"
#include "tests/ui/support/SupportUi.h"

namespace {

using namespace ovelin;
using testing::ElementsAre;
using testing::IsEmpty;

class ServicesQt : public testing::Test {
 protected:
  void SetUp() override { InstalleServicesQt(); }
  void TearDown() override {
    ChoisitProprietaire(nullptr);
    ChoisitCouleur = nullptr;
    essai::Evenements();
  }

  // What happens to the dialog that comes up next.
  template <class D>
  void Quand(const std::function<void(D&)>& geste) {
    QTimer::singleShot(0, [geste] {
      auto* dialogue = qobject_cast<D*>(QApplication::activeModalWidget());
      ASSERT_NE(dialogue, nullptr);
      geste(*dialogue);
    });
  }
};

Boite UneBoite(Boutons boutons, Icone icone = Icone::Information) {
  Boite b;
  b.section = "F_Essai";
  b.cle = "lib001";
  b.texte = "Save <b>it</b>?";
  b.titre = "Title";
  b.icone = icone;
  b.boutons = boutons;
  return b;
}

// ---- boxes

TEST_F(ServicesQt, ABoxShowsTextTitleAndIconAsTheyAre) {
  const std::pair<Icone, QMessageBox::Icon> icones[] = {{Icone::Aucune, QMessageBox::NoIcon},
                                                        {Icone::Information, QMessageBox::Information},
                                                        {Icone::Question, QMessageBox::Question},
                                                        {Icone::Exclamation, QMessageBox::Warning},
                                                        {Icone::Critique, QMessageBox::Critical}};
  for (const auto& [icone, attendue] : icones) {
    Quand<QMessageBox>([attendue = attendue](QMessageBox& box) {
      EXPECT_EQ(box.text(), "Save <b>it</b>?");
      EXPECT_EQ(box.textFormat(), Qt::PlainText);
      EXPECT_EQ(box.windowTitle(), "Title");
      EXPECT_EQ(box.icon(), attendue);
      box.button(QMessageBox::Ok)->click();
    });
    EXPECT_EQ(Svc.Montre(UneBoite(Boutons::Ok, icone)), Reponse::Ok);
  }
}

TEST_F(ServicesQt, EachButtonGivesItsAnswer) {
  const std::tuple<Boutons, QMessageBox::StandardButton, Reponse> cas[] = {
      {Boutons::Ok, QMessageBox::Ok, Reponse::Ok},
      {Boutons::OkAnnuler, QMessageBox::Ok, Reponse::Ok},
      {Boutons::OkAnnuler, QMessageBox::Cancel, Reponse::Annuler},
      {Boutons::OuiNon, QMessageBox::Yes, Reponse::Oui},
      {Boutons::OuiNon, QMessageBox::No, Reponse::Non},
      {Boutons::OuiNonAnnuler, QMessageBox::Yes, Reponse::Oui},
      {Boutons::OuiNonAnnuler, QMessageBox::No, Reponse::Non},
      {Boutons::OuiNonAnnuler, QMessageBox::Cancel, Reponse::Annuler}};
  for (const auto& [boutons, bouton, reponse] : cas) {
    Quand<QMessageBox>([bouton = bouton](QMessageBox& box) { essai::Clique(*box.button(bouton)); });
    EXPECT_EQ(Svc.Montre(UneBoite(boutons)), reponse);
  }
}

TEST_F(ServicesQt, EnterTakesTheFirstButtonAndEscapeTheMostCareful) {
  const std::tuple<Boutons, Qt::Key, Reponse> cas[] = {{Boutons::Ok, Qt::Key_Return, Reponse::Ok},
                                                       {Boutons::Ok, Qt::Key_Escape, Reponse::Ok},
                                                       {Boutons::OkAnnuler, Qt::Key_Return, Reponse::Ok},
                                                       {Boutons::OkAnnuler, Qt::Key_Escape, Reponse::Annuler},
                                                       {Boutons::OuiNon, Qt::Key_Return, Reponse::Oui},
                                                       {Boutons::OuiNon, Qt::Key_Escape, Reponse::Non},
                                                       {Boutons::OuiNonAnnuler, Qt::Key_Return, Reponse::Oui},
                                                       {Boutons::OuiNonAnnuler, Qt::Key_Escape, Reponse::Annuler}};
  for (const auto& [boutons, touche, reponse] : cas) {
    Quand<QMessageBox>([touche = touche](QMessageBox& box) {
      QWidget* cible = box.focusWidget() != nullptr ? box.focusWidget() : &box;
      QTest::keyClick(cible, touche);
    });
    EXPECT_EQ(Svc.Montre(UneBoite(boutons)), reponse);
  }
}

TEST_F(ServicesQt, ButtonsAreTranslated) {
  essai::EcritFichierEssai("OVELINde.trad", "[Boites]\nBtn_Oui=Ja\nBtn_Non=Nein\nBtn_Annuler=Abbrechen\n");
  essai::ChoisitLangue("de");
  Quand<QMessageBox>([](QMessageBox& box) {
    EXPECT_EQ(box.button(QMessageBox::Yes)->text(), "Ja");
    EXPECT_EQ(box.button(QMessageBox::No)->text(), "Nein");
    EXPECT_EQ(box.button(QMessageBox::Cancel)->text(), "Abbrechen");
    box.reject();
  });
  EXPECT_EQ(Svc.Montre(UneBoite(Boutons::OuiNonAnnuler)), Reponse::Annuler);
}

TEST_F(ServicesQt, ABoxBelongsToTheWindowInFront) {
  QWidget derriere;
  QWidget devant;
  essai::Montre(derriere);
  ChoisitProprietaire(&derriere);
  essai::Montre(devant);
  EXPECT_EQ(Proprietaire(), &devant);
  Quand<QMessageBox>([&](QMessageBox& box) {
    EXPECT_EQ(box.parentWidget(), &devant);
    EXPECT_EQ(Proprietaire(), &box);
    box.accept();
  });
  Svc.Montre(UneBoite(Boutons::Ok));
  devant.hide();
  QApplication::setActiveWindow(nullptr);
  EXPECT_EQ(Proprietaire(), &derriere);
}

TEST_F(ServicesQt, AnOwnerThatIsGoneIsNobody) {
  {
    QWidget fenetre;
    ChoisitProprietaire(&fenetre);
    QApplication::setActiveWindow(nullptr);
    EXPECT_EQ(Proprietaire(), &fenetre);
  }
  EXPECT_EQ(Proprietaire(), nullptr);
}

// ---- files and texts

DialogueFichier Enregistre(const std::string& propose) {
  DialogueFichier d;
  d.enregistrer = true;
  d.cle = "Btn_Gener_GCODE";
  d.titre = "Write";
  d.filtre = "G-code";
  d.motif = "*.nc";
  d.propose = propose;
  return d;
}

TEST_F(ServicesQt, AFileToWriteGetsTheExtensionOfItsFilter) {
  Quand<QFileDialog>([](QFileDialog& d) {
    EXPECT_EQ(d.acceptMode(), QFileDialog::AcceptSave);
    EXPECT_EQ(d.windowTitle(), "Write");
    EXPECT_TRUE(d.nameFilters().constFirst().startsWith("G-code (*.nc"));
    EXPECT_EQ(d.directory().absolutePath().toStdString(), essai::Dossier());
    d.findChild<QLineEdit*>("fileNameEdit")->setText("part");
    QTest::keyClick(d.findChild<QLineEdit*>("fileNameEdit"), Qt::Key_Return);
  });
  EXPECT_EQ(Svc.ChoisitFichier(Enregistre(essai::Dossier() + "/a.nc")), essai::Dossier() + "/part.nc");
}

TEST_F(ServicesQt, AFileThatIsThereIsReplacedOnlyAfterAYes) {
  essai::EcritFichierEssai("a.nc", "G0\n");
  int boites = 0;
  const std::function<void()> valide = [&] {
    auto* d = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    ASSERT_NE(d, nullptr);
    QTimer::singleShot(0, [&] {
      auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      ASSERT_NE(box, nullptr);
      EXPECT_TRUE(box->text().contains("a.nc"));
      ++boites;
      if (boites == 1) QTimer::singleShot(0, valide);
      box->button(boites == 1 ? QMessageBox::No : QMessageBox::Yes)->click();
    });
    QTest::keyClick(d->findChild<QLineEdit*>("fileNameEdit"), Qt::Key_Return);
  };
  QTimer::singleShot(0, valide);
  EXPECT_EQ(Svc.ChoisitFichier(Enregistre(essai::Dossier() + "/a.nc")), essai::Dossier() + "/a.nc");
  EXPECT_EQ(boites, 2);
}

TEST_F(ServicesQt, AFileToOpenIsOneThatIsThereInEitherLetterCase) {
  const std::string chemin = essai::EcritFichierEssai("part.dxf", "0\nEOF\n");
  DialogueFichier d;
  d.cle = "mnu_Ouvrir";
  d.titre = "Open";
  d.filtre = "Drawings";
  d.motif = "*.DXF; *.DAT";
  d.propose = essai::Dossier() + "/";
  Quand<QFileDialog>([](QFileDialog& dialogue) {
    EXPECT_EQ(dialogue.acceptMode(), QFileDialog::AcceptOpen);
    EXPECT_EQ(dialogue.nameFilters().constFirst(), "Drawings (*.DXF *.dxf *.DAT *.dat)");
    dialogue.findChild<QLineEdit*>("fileNameEdit")->setText("part.dxf");
    QTest::keyClick(dialogue.findChild<QLineEdit*>("fileNameEdit"), Qt::Key_Return);
  });
  EXPECT_EQ(Svc.ChoisitFichier(d), chemin);
}

TEST_F(ServicesQt, ACancelledDialogGivesNothing) {
  Quand<QFileDialog>([](QFileDialog& d) { d.reject(); });
  EXPECT_EQ(Svc.ChoisitFichier(Enregistre("a.nc")), "");
  Quand<QInputDialog>([](QInputDialog& d) { d.reject(); });
  EXPECT_EQ(Svc.Saisit("F_BD", "lib002", "Name", "old"), "");
}

TEST_F(ServicesQt, APromptOffersATextAndGivesWhatIsTyped) {
  Quand<QInputDialog>([](QInputDialog& d) {
    EXPECT_EQ(d.labelText(), "Name");
    EXPECT_EQ(d.textValue(), "old");
    auto* champ = d.findChild<QLineEdit*>();
    champ->selectAll();
    QTest::keyClicks(champ, "new");
    QTest::keyClick(champ, Qt::Key_Return);
  });
  EXPECT_EQ(Svc.Saisit("F_BD", "lib002", "Name", "old"), "new");
}

// ---- events

// A window that counts what reaches it. Input arrives as from the screen, through the queue of the window system.
class Temoin : public QWidget {
 public:
  Temoin() {
    auto* boite = new QVBoxLayout(this);
    bouton_ = new QPushButton("x");
    champ_ = new QLineEdit;
    boite->addWidget(bouton_);
    boite->addWidget(champ_);
    connect(bouton_, &QPushButton::clicked, this, [this] { ++clics; });
    essai::Montre(*this, 200, 100);
    champ_->setFocus();
    essai::Evenements();
    peints = 0;
  }
  void EnvoieClic() {
    const QPointF ici = bouton_->mapTo(this, bouton_->rect().center());
    const QPointF global = mapToGlobal(ici);
    qt_handleMouseEvent(windowHandle(), ici, global, Qt::LeftButton, Qt::LeftButton, QEvent::MouseButtonPress, {},
                        1);
    qt_handleMouseEvent(windowHandle(), ici, global, Qt::NoButton, Qt::LeftButton, QEvent::MouseButtonRelease, {},
                        2);
  }
  void EnvoieTouche() {
    qt_handleKeyEvent(windowHandle(), QEvent::KeyPress, Qt::Key_A, {}, "a");
    qt_handleKeyEvent(windowHandle(), QEvent::KeyRelease, Qt::Key_A, {}, "a");
  }
  [[nodiscard]] QString Texte() const { return champ_->text(); }

  int clics = 0;
  int peints = 0;
  int fermetures = 0;

 protected:
  void paintEvent(QPaintEvent* /*e*/) override { ++peints; }
  void closeEvent(QCloseEvent* e) override {
    if (RemetFermeture(*this, *e)) return;
    ++fermetures;
  }

 private:
  QPushButton* bouton_;
  QLineEdit* champ_;
};

TEST_F(ServicesQt, PaintingAndTimersGoOnWhileTheUsersInputIsHeldBack) {
  Temoin temoin;
  int tics = 0;
  QTimer::singleShot(0, [&] {
    ++tics;
    EXPECT_TRUE(PasseEnCours());
    temoin.EnvoieTouche();
    temoin.EnvoieClic();
  });
  temoin.update();
  Svc.LaisseEvenements(Evenements::Affichage);
  EXPECT_EQ(tics, 1);
  EXPECT_GT(temoin.peints, 0);
  EXPECT_EQ(temoin.clics, 0);
  EXPECT_EQ(temoin.Texte(), "");
  EXPECT_FALSE(PasseEnCours());
}

// Here the input comes through the queue of the window system, as from a real mouse.
TEST_F(ServicesQt, InputThatWasHeldBackComesWithTheNextEvents) {
  class Piste : public QWidget {
   public:
    Piste() { setMouseTracking(true); }
    int mouvements = 0;

   protected:
    void mouseMoveEvent(QMouseEvent* /*e*/) override { ++mouvements; }
  } piste;
  piste.move(50, 50);
  essai::Montre(piste, 100, 100);
  QCursor::setPos(10, 10);
  essai::Evenements();
  piste.mouvements = 0;
  QCursor::setPos(piste.mapToGlobal(QPoint(20, 20)));
  Svc.LaisseEvenements(Evenements::Affichage);
  Svc.LaisseEvenements(Evenements::Affichage);
  EXPECT_EQ(piste.mouvements, 0);
  Svc.LaisseEvenements(Evenements::Tous);
  EXPECT_EQ(piste.mouvements, 1);
  QCursor::setPos(10, 10);
  essai::Evenements();
}

TEST_F(ServicesQt, TheLoopsOfARunTakeEverything) {
  Temoin temoin;
  QTimer::singleShot(0, [&] {
    temoin.EnvoieTouche();
    temoin.EnvoieClic();
  });
  Svc.LaisseEvenements(Evenements::Tous);
  EXPECT_EQ(temoin.clics, 1);
  EXPECT_EQ(temoin.Texte(), "a");
}

TEST_F(ServicesQt, TheLoopsOfARunTakeEverythingInsideAPassToo) {
  Temoin temoin;
  QTimer::singleShot(0, [&] {
    QTimer::singleShot(0, [&] { temoin.EnvoieClic(); });
    Svc.LaisseEvenements(Evenements::Tous);
  });
  Svc.LaisseEvenements(Evenements::Affichage);
  EXPECT_EQ(temoin.clics, 1);
}

TEST_F(ServicesQt, ABoxThatATimerOpensInsideAPassCanBeAnswered) {
  Reponse reponse = Reponse::Ok;
  QTimer::singleShot(0, [&] {
    Quand<QMessageBox>([](QMessageBox& box) { essai::Clique(*box.button(QMessageBox::No)); });
    reponse = Svc.Montre(UneBoite(Boutons::OuiNon));
  });
  Svc.LaisseEvenements(Evenements::Affichage);
  EXPECT_EQ(reponse, Reponse::Non);
}

TEST_F(ServicesQt, AFileDroppedDuringAPassIsRefused) {
  class Cible : public QWidget {
   public:
    Cible() { setAcceptDrops(true); }
    int depots = 0;

   protected:
    void dragEnterEvent(QDragEnterEvent* e) override { e->acceptProposedAction(); }
    void dropEvent(QDropEvent* /*e*/) override { ++depots; }
  } cible;
  essai::Montre(cible, 100, 100);
  const auto depose = [&] {
    QMimeData fichier;
    QDragEnterEvent entre(QPoint(1, 1), Qt::CopyAction, &fichier, Qt::LeftButton, {});
    QApplication::sendEvent(&cible, &entre);
    QDropEvent e(QPointF(1, 1), Qt::CopyAction, &fichier, Qt::LeftButton, {});
    QApplication::sendEvent(&cible, &e);
  };
  QTimer::singleShot(0, depose);
  Svc.LaisseEvenements(Evenements::Affichage);
  EXPECT_EQ(cible.depots, 0);
  depose();
  EXPECT_EQ(cible.depots, 1);
}

TEST_F(ServicesQt, ALongKernelLeavesTheWindowAliveAndTheInputHeldBack) {
  Temoin temoin;
  std::atomic<int> tics{0};
  std::atomic<bool> autreFil{false};
  const auto ici = std::this_thread::get_id();
  QTimer timer;
  QObject::connect(&timer, &QTimer::timeout, [&] {
    ++tics;
    EXPECT_TRUE(PasseEnCours());
    EXPECT_EQ(std::this_thread::get_id(), ici);
    temoin.update();
    temoin.EnvoieTouche();
    temoin.EnvoieClic();
  });
  timer.start(0);
  Svc.EnFond([&] {
    autreFil = std::this_thread::get_id() != ici;
    while (tics < 5) std::this_thread::yield();
  });
  timer.stop();
  EXPECT_TRUE(autreFil);
  EXPECT_GE(tics, 5);
  EXPECT_GT(temoin.peints, 0);
  EXPECT_EQ(temoin.clics, 0);
  EXPECT_EQ(temoin.Texte(), "");
  EXPECT_FALSE(PasseEnCours());
}

TEST_F(ServicesQt, WhatAKernelThrowsReachesItsCaller) {
  EXPECT_THROW(Travaille([] { throw std::runtime_error("no memory"); }), std::runtime_error);
  EXPECT_FALSE(PasseEnCours());
  bool fait = false;
  Travaille([&] { fait = true; });
  EXPECT_TRUE(fait);
}

TEST_F(ServicesQt, AKernelInsideAKernelsEventsRunsToItsEndFirst) {
  std::vector<int> ordre;
  std::atomic<bool> dedans{false};
  QTimer::singleShot(0, [&] {
    Svc.EnFond([&] { ordre.push_back(1); });
    dedans = true;
  });
  Svc.EnFond([&] {
    while (!dedans) std::this_thread::yield();
  });
  ordre.push_back(2);
  EXPECT_THAT(ordre, ElementsAre(1, 2));
}

TEST_F(ServicesQt, AKernelOnAnotherThreadRunsWhereItIs) {
  bool fait = false;
  std::thread fil([&] { Svc.EnFond([&] { fait = true; }); });
  fil.join();
  EXPECT_TRUE(fait);
}

// ---- wishes

TEST_F(ServicesQt, WishesComeInTheirOrderAfterTheLastEnd) {
  std::vector<int> ordre;
  {
    const Passe dehors;
    Apres([&] { ordre.push_back(1); });
    {
      const Passe dedans;
      EXPECT_TRUE(PasseEnCours());
      Apres([&] { ordre.push_back(2); });
    }
    EXPECT_TRUE(PasseEnCours());
    Svc.LaisseEvenements(Evenements::Affichage);
    Svc.LaisseEvenements(Evenements::Tous);
    Apres([&] { ordre.push_back(3); });
    EXPECT_THAT(ordre, IsEmpty());
  }
  EXPECT_FALSE(PasseEnCours());
  EXPECT_THAT(ordre, IsEmpty()) << "not before the event loop";
  essai::Evenements();
  EXPECT_THAT(ordre, ElementsAre(1, 2, 3));
}

TEST_F(ServicesQt, AWishOfARoundOfEventsDoesNotRunInTheNextOne) {
  std::vector<int> ordre;
  QTimer::singleShot(0, [&] { Apres([&] { ordre.push_back(PasseEnCours() ? -1 : 1); }); });
  for (int i = 0; i < 4; ++i) Svc.LaisseEvenements(Evenements::Affichage);
  EXPECT_THAT(ordre, IsEmpty());
  essai::Evenements();
  EXPECT_THAT(ordre, ElementsAre(1));
}

TEST_F(ServicesQt, AWishThatStartsSomethingLongKeepsTheNextOnesWaiting) {
  std::vector<int> ordre;
  {
    const Passe passe;
    Apres([&] {
      const Passe encore;
      Svc.LaisseEvenements(Evenements::Affichage);
      ordre.push_back(1);
    });
    Apres([&] { ordre.push_back(PasseEnCours() ? -2 : 2); });
  }
  essai::Evenements();
  EXPECT_THAT(ordre, ElementsAre(1, 2));
}

TEST_F(ServicesQt, AWishWithoutAnythingLongComesWithTheNextEvents) {
  bool fait = false;
  Apres([&] { fait = true; });
  EXPECT_FALSE(fait);
  essai::Evenements();
  EXPECT_TRUE(fait);
}

TEST_F(ServicesQt, AWindowThatIsToCloseDuringAPassClosesBehindIt) {
  Temoin temoin;
  {
    const Passe passe;
    temoin.close();
    EXPECT_TRUE(temoin.isVisible());
    EXPECT_EQ(temoin.fermetures, 0);
  }
  essai::Evenements();
  EXPECT_FALSE(temoin.isVisible());
  EXPECT_EQ(temoin.fermetures, 1);
}

TEST_F(ServicesQt, AWindowThatIsGoneMeanwhileIsNotClosedAgain) {
  {
    const Passe passe;
    Temoin temoin;
    temoin.close();
    EXPECT_TRUE(temoin.isVisible());
  }
  essai::Evenements();
}

// ---- the rest

TEST_F(ServicesQt, TheClockGoesForwardAndNothingIsWaitedForNoTime) {
  const double avant = Svc.Horloge();
  Svc.Attend(0);
  Svc.Attend(-5);
  Svc.Attend(std::numeric_limits<double>::quiet_NaN());
  Svc.Attend(0.001);
  EXPECT_GT(Svc.Horloge(), avant);
  Svc.Bip();
  EXPECT_TRUE(Svc.MarqueDecimale == '.' || Svc.MarqueDecimale == ',');
}

TEST_F(ServicesQt, AColourIsChosenOrNot) {
  ASSERT_TRUE(ChoisitCouleur);
  QTimer::singleShot(0, [] { qobject_cast<QDialog*>(QApplication::activeModalWidget())->accept(); });
  EXPECT_EQ(ChoisitCouleur(nullptr, Couleur(10, 20, 30)), Couleur(10, 20, 30));
  QTimer::singleShot(0, [] { qobject_cast<QDialog*>(QApplication::activeModalWidget())->reject(); });
  EXPECT_EQ(ChoisitCouleur(nullptr, Couleur(10, 20, 30)), -1);
}

}  // namespace
