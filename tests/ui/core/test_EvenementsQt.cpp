// Events with and without the user's input, long kernels beside a live window, wishes that wait for the end of a
// pass.
#include <QApplication>
#include <QCloseEvent>
#include <QCursor>
#include <QDropEvent>
#include <QLineEdit>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>
#include <atomic>
#include <stdexcept>
#include <thread>

#include "tests/ui/core/BancServices.h"

namespace {

using namespace ovelin;
using essai::UneBoite;
using testing::ElementsAre;
using testing::IsEmpty;

class EvenementsQt : public essai::BancServices {};

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

TEST_F(EvenementsQt, PaintingAndTimersGoOnWhileTheUsersInputIsHeldBack) {
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
TEST_F(EvenementsQt, InputThatWasHeldBackComesWithTheNextEvents) {
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
  // The platform may hand it over a turn later.
  for (int tour = 0; tour < 50 && piste.mouvements == 0; ++tour) Svc.LaisseEvenements(Evenements::Tous);
  EXPECT_EQ(piste.mouvements, 1);
  QCursor::setPos(10, 10);
  essai::Evenements();
}

// An arrow or a scroll bar that is held down goes on by a timer, which is the user's hand all the same.
TEST_F(EvenementsQt, AnArrowHeldDownRepeatsBehindThePassOnly) {
  QWidget fenetre;
  auto* boite = new QVBoxLayout(&fenetre);
  auto* fleche = new QToolButton;
  fleche->setAutoRepeat(true);
  fleche->setAutoRepeatDelay(0);
  fleche->setAutoRepeatInterval(0);
  boite->addWidget(fleche);
  essai::Montre(fenetre, 200, 100);
  int clics = 0;
  QObject::connect(fleche, &QToolButton::clicked, [&] { ++clics; });
  QTest::mousePress(fleche, Qt::LeftButton);
  clics = 0;
  for (int i = 0; i < 5; ++i) Svc.LaisseEvenements(Evenements::Affichage);
  EXPECT_EQ(clics, 0);
  essai::Evenements();
  EXPECT_GT(clics, 0);
  QTest::mouseRelease(fleche, Qt::LeftButton);
}

TEST_F(EvenementsQt, TheLoopsOfARunTakeEverything) {
  Temoin temoin;
  QTimer::singleShot(0, [&] {
    temoin.EnvoieTouche();
    temoin.EnvoieClic();
  });
  Svc.LaisseEvenements(Evenements::Tous);
  EXPECT_EQ(temoin.clics, 1);
  EXPECT_EQ(temoin.Texte(), "a");
}

TEST_F(EvenementsQt, TheLoopsOfARunTakeEverythingInsideAPassToo) {
  Temoin temoin;
  QTimer::singleShot(0, [&] {
    QTimer::singleShot(0, [&] { temoin.EnvoieClic(); });
    Svc.LaisseEvenements(Evenements::Tous);
  });
  Svc.LaisseEvenements(Evenements::Affichage);
  EXPECT_EQ(temoin.clics, 1);
}

TEST_F(EvenementsQt, ABoxThatATimerOpensInsideAPassCanBeAnswered) {
  Reponse reponse = Reponse::Ok;
  QTimer::singleShot(0, [&] {
    Quand<QMessageBox>([](QMessageBox& box) { essai::Clique(*box.button(QMessageBox::No)); });
    reponse = Svc.Montre(UneBoite(Boutons::OuiNon));
  });
  Svc.LaisseEvenements(Evenements::Affichage);
  EXPECT_EQ(reponse, Reponse::Non);
}

TEST_F(EvenementsQt, AFileDroppedDuringAPassIsRefused) {
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

TEST_F(EvenementsQt, ALongKernelLeavesTheWindowAliveAndTheInputHeldBack) {
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

TEST_F(EvenementsQt, WhatAKernelThrowsReachesItsCaller) {
  EXPECT_THROW(Travaille([] { throw std::runtime_error("no memory"); }), std::runtime_error);
  EXPECT_FALSE(PasseEnCours());
  bool fait = false;
  Travaille([&] { fait = true; });
  EXPECT_TRUE(fait);
}

TEST_F(EvenementsQt, AKernelInsideAKernelsEventsRunsToItsEndFirst) {
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

TEST_F(EvenementsQt, AKernelOnAnotherThreadRunsWhereItIs) {
  bool fait = false;
  std::thread fil([&] { Svc.EnFond([&] { fait = true; }); });
  fil.join();
  EXPECT_TRUE(fait);
}

// ---- wishes

TEST_F(EvenementsQt, WishesComeInTheirOrderAfterTheLastEnd) {
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

TEST_F(EvenementsQt, AWishOfARoundOfEventsDoesNotRunInTheNextOne) {
  std::vector<int> ordre;
  QTimer::singleShot(0, [&] { Apres([&] { ordre.push_back(PasseEnCours() ? -1 : 1); }); });
  for (int i = 0; i < 4; ++i) Svc.LaisseEvenements(Evenements::Affichage);
  EXPECT_THAT(ordre, IsEmpty());
  essai::Evenements();
  EXPECT_THAT(ordre, ElementsAre(1));
}

TEST_F(EvenementsQt, AWishThatStartsSomethingLongKeepsTheNextOnesWaiting) {
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

TEST_F(EvenementsQt, AWishWithoutAnythingLongComesWithTheNextEvents) {
  bool fait = false;
  Apres([&] { fait = true; });
  EXPECT_FALSE(fait);
  essai::Evenements();
  EXPECT_TRUE(fait);
}

TEST_F(EvenementsQt, AWindowThatIsToCloseDuringAPassClosesBehindIt) {
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

TEST_F(EvenementsQt, AWindowThatIsGoneMeanwhileIsNotClosedAgain) {
  {
    const Passe passe;
    Temoin temoin;
    temoin.close();
    EXPECT_TRUE(temoin.isVisible());
  }
  essai::Evenements();
}

}  // namespace
