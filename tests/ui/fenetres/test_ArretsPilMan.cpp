// Whatever ends a jog in the window of manual control: keys, pointer, windows, screen and link.
#include "tests/ui/fenetres/BancPilMan.h"

namespace essai {
namespace {

using ArretPilMan = BancPilMan;

TEST_F(ArretPilMan, AHeldKeyThatRepeatsIsNeitherPressedNorLetGoAgain) {
  Ouvre();
  Touche(Qt::Key_F5);
  int tours = 0;
  Apres(0.5, [&] {
    for (; tours < 20; ++tours) {
      QKeyEvent lache(QEvent::KeyRelease, Qt::Key_Right, {}, {}, true);
      QKeyEvent presse(QEvent::KeyPress, Qt::Key_Right, {}, {}, true);
      QApplication::sendEvent(QApplication::focusWidget(), &lache);
      QApplication::sendEvent(QApplication::focusWidget(), &presse);
    }
    EXPECT_TRUE(PilMan.JogActif && StopDemande == Faux);
    QTest::keyRelease(QApplication::focusWidget(), Qt::Key_Right);
    EXPECT_EQ(StopDemande, Vrai);
  });
  QTest::keyPress(QApplication::focusWidget(), Qt::Key_Right);
  EXPECT_EQ(tours, 20);
}

TEST_F(ArretPilMan, ALetGoKeyEndsAJog) {
  AttendArretPar([] { QTest::keyRelease(QApplication::focusWidget(), Qt::Key_Right); });
}

TEST_F(ArretPilMan, TheLossOfTheKeyboardEndsAJog) {
  QWidget autre;
  AttendArretPar([&] { Montre(autre); });
}

TEST_F(ArretPilMan, HidingTheWindowEndsAJog) {
  AttendArretPar([&] { f_->hide(); });
}

TEST_F(ArretPilMan, ClosingTheWindowEndsAJogAndKeepsThePlace) {
  AttendArretPar([&] { f_->close(); });
  EXPECT_EQ(LireCleIni("F_PilMan_posX", ""), std::to_string(Lieu()[0]));
}

TEST_F(ArretPilMan, ALockedScreenEndsAJog) {
  AttendArretPar([&] { f_->EcranVerrouille(); });
}

TEST_F(ArretPilMan, ThePointerLetGoAnywhereEndsAJogOfThePicture) {
  Ouvre();
  Touche(Qt::Key_F5);
  QWidget autre;
  autre.resize(50, 50);
  const auto presse = [this] { QTest::mousePress(Image(), Qt::LeftButton, {}, Image()->Milieu(touche::Droite)); };
  AttendArretDe(presse, [this] { QTest::mouseRelease(B("Lbl_RAZ"), Qt::LeftButton); });
  instant_ = 0;
  AttendArretDe(presse, [&autre] { QTest::mouseRelease(&autre, Qt::LeftButton); });
}

TEST_F(ArretPilMan, ALoweredWindowEndsAJog) {
  AttendArretPar([&] { f_->showMinimized(); });
}

// The link is watched by a timer of the window: silent for a fifth of a second, the jog is over, and the board gets
// its stop as soon as it answers.
TEST_F(ArretPilMan, ASilentLinkEndsAJog) {
  Ouvre();
  Touche(Qt::Key_F5);
  carte_->Modele(MachineJog());
  PilMan.Vitesse = 20;
  double muette = 0;
  aChaqueTour_ = [&] {
    if (muette == 0 && carte_->Compteurs().ticks > 60'000) {
      muette = heure_;
      carte_->Debranche(true);
    }
    if (muette == 0 || instant_ != 0) return;
    Sonne("TimerLiaison");
    if (StopDemande == Faux) return;
    instant_ = heure_;
    carte_->Debranche(false);
  };
  QTest::keyPress(QApplication::focusWidget(), Qt::Key_Right);
  EXPECT_NEAR(instant_ - muette, 0.2, 0.01);
  AttendArrete();
}

TEST_F(ArretPilMan, EscapeAndTheStopLabelEndAJogAtOnce) {
  Ouvre();
  PilMan.Vitesse = 20;
  Touche(Qt::Key_F5);
  Apres(1, [&] { QTest::keyPress(QApplication::focusWidget(), Qt::Key_Escape); });
  QTest::keyPress(QApplication::focusWidget(), Qt::Key_Right);
  EXPECT_GE(stop_, instant_);
  EXPECT_LT(heure_ - instant_, 0.02);
  EXPECT_TRUE(f_->isVisible()) << "Escape closes nothing";
  EXPECT_TRUE(B("Lbl_Stop")->isDown());
  Timer("TimerFlash")->setInterval(0);
  Timer("TimerFlash")->start();
  essai::Evenements();
  EXPECT_FALSE(B("Lbl_Stop")->isDown());
  instant_ = 0;
  Apres(1, [&] { QTest::mousePress(B("Lbl_Stop"), Qt::LeftButton); });
  QTest::keyPress(QApplication::focusWidget(), Qt::Key_Right);
  ASSERT_GT(instant_, 0);
  EXPECT_LT(heure_ - instant_, 0.02);
  QTest::mouseRelease(B("Lbl_Stop"), Qt::LeftButton);
}

TEST_F(ArretPilMan, TheLinkIsWatchedInAJobAlone) {
  Ouvre();
  EXPECT_FALSE(Timer("TimerLiaison")->isActive());
  Touche(Qt::Key_F7);
  bool veille = false, interroge = true;
  Apres(0.1, [&] {
    veille = Timer("TimerLiaison")->isActive();
    interroge = Timer("TimerPosition")->isActive();
  });
  Touche(Qt::Key_Right);
  EXPECT_TRUE(veille);
  EXPECT_FALSE(interroge) << "the reader of replies keeps the display";
  EXPECT_FALSE(Timer("TimerLiaison")->isActive());
  EXPECT_TRUE(Timer("TimerPosition")->isActive());
}

TEST_F(ArretPilMan, AUnpluggedBoardIsToldAndTheWindowGoesOn) {
  Ouvre();
  Touche(Qt::Key_F5);
  Attend("F_Fraisage", "Run_liaison");
  Apres(0.5, [&] { carte_->Debranche(true); });
  QTest::keyPress(QApplication::focusWidget(), Qt::Key_Right);
  EXPECT_FALSE(PilMan.JogActif);
  EXPECT_TRUE(L("Lbl_Place")->isVisible()) << "nobody knows where it stands";
  Clique(*B("Btn_Place"));
  EXPECT_FALSE(L("Lbl_Place")->isVisible());
}

}  // namespace
}  // namespace essai
