// The window of manual control, with real keys and a real pointer, on a virtual board under the test's clock.
#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QStackedWidget>
#include <QTimer>
#include <cmath>
#include <functional>
#include <random>
#include <set>

#include "closed/CarteVirtuelle.h"
#include "controller/ClsCdeZENIK.h"
#include "core/Cles.h"
#include "core/ReglagesCourants.h"
#include "core/RunCourant.h"
#include "core/ui/ChampNombre.h"
#include "core/ui/Fenetres.h"
#include "core/ui/Pointeur.h"
#include "machine/Module_Table.h"
#include "manual/Module_PilMan.h"
#include "manual/Module_PlaceMan.h"
#include "manual/Touches.h"
#include "manual/ui/F_PilMan.h"
#include "manual/ui/ImageClavier.h"
#include "manual/ui/TouchesQt.h"
#include "tests/ui/support/SupportUi.h"

namespace {

using namespace ovelin;
using namespace essai;
using zenikcom::Axes3;

// 100, 50 and 200 steps a mm.
constexpr const char* TableEssai =
    "[OVELIN]\r\nTableDefaut=Essai\r\n[table_Essai]\r\nTB_SAV_0=2\r\nTB_SAV_1=4\r\nTB_SAV_2=1\r\nTB_SAV_3=200\r\n"
    "TB_SAV_4=200\r\nTB_SAV_5=200\r\nCombo_SAV_12=0\r\nCombo_SAV_13=0\r\nCombo_SAV_14=0\r\nTB_SAV_12=4\r\n"
    "TB_SAV_13=4\r\nTB_SAV_14=4\r\nTB_SAV_15=20\r\nTB_SAV_16=16\r\nTB_SAV_17=8\r\nTB_SAV_30=30\r\nTB_SAV_31=80\r\n";

class FPilMan : public testing::Test {
 protected:
  FPilMan() : bouge_(BougePointeur) {
    EcritFichierEssai("OVELIN.ini", TableEssai);
    OublieCles();
    TableDefaut = "Essai";
    ChargeGlobalesTable();
    Svc.Horloge = [this] { return heure_; };
    Svc.Attend = [this](double s) { heure_ += s; };
    Svc.LaisseEvenements = [this](ovelin::Evenements) {
      heure_ += 0.0005;
      if (aChaqueTour_) aChaqueTour_();
    };
    BougePointeur = [this](int dx, int dy) { sauts_.emplace_back(dx, dy); };
    zenikcom::ConditionsCarte c;
    c.horloge = [this] { return std::llround(heure_ * 1e9); };
    carte_ = zenikcom::CreeCarteVirtuelle(std::move(c));
    CdeZENIK = std::make_unique<ClsCdeZENIK>(zenikcom::LiaisonVirtuelle(carte_));
    CdeZENIK->ChargeParametres();
    f_ = std::make_unique<F_PilMan>();
  }
  ~FPilMan() override {
    f_.reset();
    BougePointeur = bouge_;
    CdeZENIK = std::make_unique<ClsCdeZENIK>();
  }

  void Ouvre() {
    f_->Form_Load();
    Montre(*f_);
    ASSERT_TRUE(f_->isActiveWindow());
  }
  [[nodiscard]] Axes3 Lieu() const { return carte_->Lieu(); }
  QLabel* L(const char* nom) { return Controle<QLabel>(*f_, nom); }
  QPushButton* B(const char* nom) { return Controle<QPushButton>(*f_, nom); }
  ImageClavier* Image() { return Controle<ImageClavier>(*f_, "Img_Clavier"); }
  QTimer* Timer(const char* nom) {
    auto* timer = f_->findChild<QTimer*>(nom);
    if (timer == nullptr) qFatal("no timer %s", nom);
    return timer;
  }
  void Touche(int cle, Qt::KeyboardModifiers avec = {}) {
    QTest::keyClick(QApplication::focusWidget(), Qt::Key(cle), avec);
  }
  QWidget* Page() { return Controle<QStackedWidget>(*f_, "Pages")->currentWidget(); }
  // Does `quoi` once, that long after the machine has begun to move.
  void Apres(double secondes, std::function<void()> quoi) {
    aChaqueTour_ = [this, secondes, quoi = std::move(quoi), depart = -1.0, fait = false]() mutable {
      if (depart < 0 && PilMan.JogActif && carte_->Compteurs().ticks > 0) depart = heure_;
      if (fait || depart < 0 || heure_ - depart < secondes) return;
      fait = true;
      instant_ = heure_;
      quoi();
    };
  }
  // A continuous jog at 20 mm/s, ended by `quoi`: within a tenth of a second and the ramp of 0.279 s.
  void AttendArretPar(const std::function<void()>& quoi) {
    Ouvre();
    PilMan.Vitesse = 20;
    Touche(Qt::Key_F5);
    Apres(1, quoi);
    QTest::keyPress(QApplication::focusWidget(), Qt::Key_Right);
    ASSERT_GT(instant_, 0) << "nothing has happened";
    EXPECT_LT(heure_ - instant_, 0.1 + 0.279);
    EXPECT_GT(heure_ - instant_, 0.2) << "not by the ramp";
    EXPECT_EQ(Lieu()[0], CdeZENIK->PasX);
    EXPECT_FALSE(PilMan.JogActif);
  }

  double heure_ = 1000, instant_ = 0;  // s
  std::vector<std::pair<int, int>> sauts_;
  std::shared_ptr<zenikcom::CarteVirtuelle> carte_;
  std::function<void()> aChaqueTour_;
  std::unique_ptr<F_PilMan> f_;

 private:
  std::function<void(int, int)> bouge_;
};

struct CasTouche {
  int cle;
  Qt::KeyboardModifiers avec;
  Axes3 pas;  // steps of 1 mm
};
class FPilManTouche : public FPilMan, public testing::WithParamInterface<CasTouche> {};
constexpr auto Pave = Qt::KeypadModifier;
INSTANTIATE_TEST_SUITE_P(
    Touches, FPilManTouche,
    testing::Values(CasTouche{Qt::Key_7, Pave, {-100, 50, 0}}, CasTouche{Qt::Key_Home, {}, {-100, 50, 0}},
                    CasTouche{Qt::Key_8, Pave, {0, 50, 0}}, CasTouche{Qt::Key_Up, {}, {0, 50, 0}},
                    CasTouche{Qt::Key_9, Pave, {100, 50, 0}}, CasTouche{Qt::Key_4, Pave, {-100, 0, 0}},
                    CasTouche{Qt::Key_Left, {}, {-100, 0, 0}}, CasTouche{Qt::Key_6, Pave, {100, 0, 0}},
                    CasTouche{Qt::Key_Right, {}, {100, 0, 0}}, CasTouche{Qt::Key_1, Pave, {-100, -50, 0}},
                    CasTouche{Qt::Key_End, {}, {-100, -50, 0}}, CasTouche{Qt::Key_2, Pave, {0, -50, 0}},
                    CasTouche{Qt::Key_Down, {}, {0, -50, 0}}, CasTouche{Qt::Key_3, Pave, {100, -50, 0}},
                    CasTouche{Qt::Key_PageUp, {}, {0, 0, 200}}, CasTouche{Qt::Key_PageDown, {}, {0, 0, -200}}),
    [](const auto& cas) {
      return "Touche" + std::to_string(cas.param.cle) + (cas.param.avec == Pave ? "Pave" : "");
    });

TEST_P(FPilManTouche, OfTheKeyboardMovesTheMachine) {
  Ouvre();
  Touche(Qt::Key_F7);
  Touche(GetParam().cle, GetParam().avec);
  EXPECT_EQ(Lieu(), GetParam().pas);
}

TEST_P(FPilManTouche, OfThePictureMovesTheMachineTooWhenThePointerPressesIt) {
  Ouvre();
  Touche(Qt::Key_F7);
  const QKeyEvent cle(QEvent::KeyPress, GetParam().cle, GetParam().avec);
  const QPoint milieu = Image()->Milieu(CodeTouche(cle));
  ASSERT_FALSE(milieu.isNull());
  QTest::mouseClick(Image(), Qt::LeftButton, {}, milieu);
  EXPECT_EQ(Lieu(), GetParam().pas);
}

TEST(CodeTouche, AKeyOfTheNumericPadIsItsDigitWhateverTheLockSays) {
  const QKeyEvent neuf(QEvent::KeyPress, Qt::Key_PageUp, Qt::KeypadModifier | Qt::ShiftModifier);
  EXPECT_EQ(CodeTouche(neuf), touche::Pave(9));
  const QKeyEvent sept(QEvent::KeyPress, Qt::Key_Home, Qt::KeypadModifier);
  EXPECT_EQ(CodeTouche(sept), touche::Pave(7));
  const QKeyEvent cinq(QEvent::KeyPress, Qt::Key_5, Qt::KeypadModifier);
  EXPECT_EQ(CodeTouche(cinq), touche::Pave(5)) << "which moves nothing";
  const QKeyEvent alt(QEvent::KeyPress, Qt::Key_V, Qt::AltModifier);
  EXPECT_EQ(CodeTouche(alt), 0);
}

TEST_F(FPilMan, KeysMoveWhicheverButtonHasTheKeyboard) {
  Ouvre();
  Touche(Qt::Key_F7);
  B("Lbl_RAZ")->setFocus();
  Touche(Qt::Key_Right);
  EXPECT_EQ(Lieu(), (Axes3{100, 0, 0}));
  EXPECT_TRUE(B("Lbl_RAZ")->hasFocus());
}

TEST_F(FPilMan, AHeldKeyThatRepeatsIsNeitherPressedNorLetGoAgain) {
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

TEST_F(FPilMan, ALetGoKeyEndsAJog) {
  AttendArretPar([] { QTest::keyRelease(QApplication::focusWidget(), Qt::Key_Right); });
}

TEST_F(FPilMan, TheLossOfTheKeyboardEndsAJog) {
  QWidget autre;
  AttendArretPar([&] { Montre(autre); });
}

TEST_F(FPilMan, HidingTheWindowEndsAJog) {
  AttendArretPar([&] { f_->hide(); });
}

TEST_F(FPilMan, ClosingTheWindowEndsAJogAndKeepsThePlace) {
  AttendArretPar([&] { f_->close(); });
  EXPECT_EQ(LireCleIni("F_PilMan_posX", ""), std::to_string(Lieu()[0]));
}

TEST_F(FPilMan, ALockedScreenEndsAJog) {
  AttendArretPar([&] { f_->EcranVerrouille(); });
}

TEST_F(FPilMan, ThePointerLetGoAnywhereEndsAJogOfThePicture) {
  Ouvre();
  QWidget autre;
  autre.resize(50, 50);
  PilMan.Vitesse = 20;
  Touche(Qt::Key_F5);
  Apres(1, [&] { QTest::mouseRelease(B("Lbl_RAZ"), Qt::LeftButton); });
  QTest::mousePress(Image(), Qt::LeftButton, {}, Image()->Milieu(touche::Droite));
  ASSERT_GT(instant_, 0);
  EXPECT_LT(heure_ - instant_, 0.1 + 0.279);
  EXPECT_GT(Lieu()[0], 1000);
}

TEST_F(FPilMan, EscapeAndTheStopLabelEndAJogAtOnce) {
  Ouvre();
  PilMan.Vitesse = 20;
  Touche(Qt::Key_F5);
  Apres(1, [&] { QTest::keyPress(QApplication::focusWidget(), Qt::Key_Escape); });
  QTest::keyPress(QApplication::focusWidget(), Qt::Key_Right);
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

TEST_F(FPilMan, TheLinkIsWatchedInAJobAlone) {
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

TEST_F(FPilMan, AUnpluggedBoardIsToldAndTheWindowGoesOn) {
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

TEST_F(FPilMan, ThePlaceIsShownInAMoveAndAtRest) {
  Ouvre();
  Touche(Qt::Key_F6);
  std::set<QString> lieux;
  aChaqueTour_ = [&] { lieux.insert(L("Lbl_PosX")->text()); };
  Touche(Qt::Key_Right);  // 10 mm in 2.5 s
  EXPECT_GE(lieux.size(), 50U);
  EXPECT_EQ(L("Lbl_PosX")->text(), "10.0");
  EXPECT_EQ(L("Lbl_PosY")->text(), "0.00");
}

TEST_F(FPilMan, ThePollIsAsOftenAsTheSettingSays) {
  Regl.TimerInterval = 400;
  Ouvre();
  EXPECT_EQ(Timer("TimerPosition")->interval(), 400);
  Regl.TimerInterval = 1;
  f_->Form_Load();
  EXPECT_EQ(Timer("TimerPosition")->interval(), 25) << "no board is asked without a pause";
}

TEST_F(FPilMan, TheSpeedIsShownAndMarkedWithAModifier) {
  Ouvre();
  auto* v = Controle<QLineEdit>(*f_, "TB_Vitesse_Manuel");
  EXPECT_EQ(v->text(), "4.0 mm/s");
  EXPECT_EQ(v->styleSheet(), "");
  QTest::keyPress(QApplication::focusWidget(), Qt::Key_Shift);
  EXPECT_EQ(v->text(), "0.2 mm/s");
  EXPECT_NE(v->styleSheet(), "");
  QTest::keyRelease(QApplication::focusWidget(), Qt::Key_Shift);
  EXPECT_EQ(v->text(), "4.0 mm/s");
  Touche(Qt::Key_Plus, Pave);
  EXPECT_EQ(v->text(), "4.5 mm/s");
  Touche(Qt::Key_Asterisk, Pave);
  EXPECT_EQ(v->text(), "16.0 mm/s");
}

TEST_F(FPilMan, AModifierOfThePictureStaysUntilTheNextPressAndGoesWithTheKeyboard) {
  Ouvre();
  const auto presse = [&](int code) { QTest::mouseClick(Image(), Qt::LeftButton, {}, Image()->Milieu(code)); };
  presse(touche::Majuscule);
  EXPECT_EQ(PilMan.Shift, Vrai);
  presse(touche::Majuscule);
  EXPECT_EQ(PilMan.Shift, Faux);
  presse(touche::Controle);
  EXPECT_EQ(PilMan.Ctrl, Vrai);
  QWidget autre;
  Montre(autre);
  EXPECT_EQ(PilMan.Ctrl, Faux);
}

TEST_F(FPilMan, TheArrowPicturesChangeTheSpeedAndMoveThePointerInTurn) {
  Ouvre();
  auto* plus = Controle<QAbstractButton>(*f_, "Img_Fleche_1");
  auto* moins = Controle<QAbstractButton>(*f_, "Img_Fleche_0");
  QTest::mousePress(plus, Qt::LeftButton);
  EXPECT_EQ(PilMan.Vitesse, 4.5F);
  EXPECT_TRUE(Timer("TimerFleche")->isActive());
  EXPECT_EQ(Timer("TimerFleche")->interval(), Regl.TimerInterval);
  Timer("TimerFleche")->setInterval(0);
  ASSERT_TRUE(QTest::qWaitFor([] { return PilMan.Vitesse >= 6; }));
  QTest::mouseRelease(plus, Qt::LeftButton);
  EXPECT_FALSE(Timer("TimerFleche")->isActive());
  const float avant = PilMan.Vitesse;
  Clique(*moins);
  EXPECT_EQ(PilMan.Vitesse, avant - 0.5F);
  Clique(*moins);
  EXPECT_EQ(sauts_, (std::vector<std::pair<int, int>>{{-3, -3}, {3, 3}, {-3, -3}}));
}

TEST_F(FPilMan, AWhiteCircleLiesOverThePressedKeyForAMoment) {
  Ouvre();
  Touche(Qt::Key_F6);
  EXPECT_EQ(Image()->Encerclee(), touche::F6);
  const QImage image = Image()->grab().toImage();
  const QPoint milieu = Image()->Milieu(touche::F6) - QPoint(0, 11);
  EXPECT_GT(image.pixelColor(milieu * image.devicePixelRatio()).lightness(), 230);
  EXPECT_TRUE(Timer("TimerCarre")->isActive());
  Timer("TimerCarre")->setInterval(0);
  Timer("TimerCarre")->start();
  essai::Evenements();
  EXPECT_EQ(Image()->Encerclee(), 0);
}

TEST_F(FPilMan, TheStatusLineSaysHowFarAKeyGoes) {
  Ouvre();
  EXPECT_EQ(L("SB")->text(), "...");
  Touche(Qt::Key_F8);
  EXPECT_EQ(L("SB")->text(), " = 0.1 mm");
}

TEST_F(FPilMan, F1ShowsTheHelpAndTakesItAway) {
  Ouvre();
  EXPECT_EQ(Page(), Image());
  Touche(Qt::Key_F1);
  EXPECT_EQ(Page()->objectName(), "Frame_Aide");
  Touche(Qt::Key_F1);
  EXPECT_EQ(Page(), Image());
}

TEST_F(FPilMan, DistancesAreTypedWithoutMovingTheMachine) {
  Ouvre();
  Touche(Qt::Key_V);
  ASSERT_EQ(Page()->objectName(), "Frame_Valeurs");
  ASSERT_EQ(QApplication::focusWidget()->objectName(), "TB_ValeurX");
  Tape(*Controle<QLineEdit>(*f_, "TB_ValeurX"), "2.5");
  Tape(*Controle<QLineEdit>(*f_, "TB_ValeurY"), "-4", essai::Sortie::Entree);
  EXPECT_EQ(Page(), Image());
  EXPECT_EQ(Lieu(), (Axes3{0, 0, 0}));
  EXPECT_EQ(L("SB")->text(), "X=2.5 mm Y=-4 mm Z=0 mm");
  Touche(Qt::Key_9, Pave);
  EXPECT_EQ(Lieu(), (Axes3{250, -200, 0}));
}

TEST_F(FPilMan, ADistanceThatIsNoneIsRefused) {
  Ouvre();
  for (const char* texte : {"", "-", "2001", "-1e9"}) {
    Touche(Qt::Key_F5);
    Touche(Qt::Key_V);
    auto* champ = Controle<ChampNombre>(*f_, "TB_ValeurX");
    champ->setText(QString::fromLatin1(texte));
    Clique(*B("Btn_OKValeurs"));
    EXPECT_TRUE(champ->EstRefuse()) << texte;
    EXPECT_EQ(Page()->objectName(), "Frame_Valeurs") << texte;
    EXPECT_EQ(PilMan.ValeurX, 0);
  }
}

TEST_F(FPilMan, TheOriginIsSetOnTheCheckedAxes) {
  Ouvre();
  Touche(Qt::Key_F7);
  Touche(Qt::Key_9, Pave);
  Clique(*B("Lbl_RAZ"));
  ASSERT_EQ(Page()->objectName(), "FrameOrigine");
  Controle<QListWidget>(*f_, "List_Origine")->item(1)->setCheckState(Qt::Checked);
  Clique(*B("Btn_OKOrigine"));
  EXPECT_EQ(Page(), Image());
  EXPECT_TRUE(Image()->hasFocus());
  EXPECT_EQ(CdeZENIK->PasX, 100);
  EXPECT_EQ(CdeZENIK->PasY, 0);
  EXPECT_EQ(L("Lbl_PosY")->text(), "0.00");
}

TEST_F(FPilMan, TheMachineReturnsWithTheKeyboardAlone) {
  Ouvre();
  HautDeg = 3;
  Touche(Qt::Key_F7);
  Touche(Qt::Key_9, Pave);
  B("Lbl_Origine")->setFocus();
  Touche(Qt::Key_Space);
  ASSERT_EQ(Page()->objectName(), "FrameR_Origine");
  EXPECT_EQ(B("Btn_OKR_Origine_0")->text(), "4.0 mm/s");
  ASSERT_EQ(QApplication::focusWidget()->objectName(), "List_R_Origine");
  Touche(Qt::Key_Space);  // X
  Touche(Qt::Key_Down);
  Touche(Qt::Key_Space);  // Y
  B("Btn_OKR_Origine_0")->setFocus();
  Touche(Qt::Key_Space);
  EXPECT_EQ(Lieu(), (Axes3{0, 0, 0}));
  EXPECT_EQ(Page(), Image());
}

TEST_F(FPilMan, OriginsAreNotOfferedWithoutABoard) {
  Ouvre();
  carte_->Debranche(true);
  Clique(*B("Lbl_RAZ"));
  Clique(*B("Lbl_Origine"));
  EXPECT_EQ(Page(), Image());
}

TEST_F(FPilMan, MotorsAreHeldForTheirTimeAndTheSpindleFollowsTheNextTick) {
  Ouvre();
  EXPECT_EQ(B("Lbl_Motor")->text(), QStringLiteral("Moteurs libres"));
  Clique(*B("Lbl_Motor"));
  EXPECT_EQ(B("Lbl_Motor")->text(), QStringLiteral("Moteurs bloqués"));
  EXPECT_TRUE(carte_->Sorties().moteur);
  EXPECT_EQ(Timer("TimerMotorOn")->interval(), 30'000);
  Timer("TimerMotorOn")->start(0);
  essai::Evenements();
  EXPECT_EQ(B("Lbl_Motor")->text(), QStringLiteral("Moteurs libres"));
  Clique(*B("Lbl_Broche"));
  EXPECT_EQ(B("Lbl_Broche")->text(), QStringLiteral("Broche en marche"));
  Timer("TimerPosition")->setInterval(0);
  EXPECT_TRUE(QTest::qWaitFor([this] { return carte_->Sorties().broche; }));
}

TEST_F(FPilMan, SwitchesAreShownOnTheStopLabelAndTheToolZeroIsOffered) {
  Ouvre();
  const auto tic = [&] {
    Timer("TimerPosition")->start(0);
    essai::Evenements();
    Timer("TimerPosition")->stop();
  };
  tic();
  EXPECT_EQ(B("Lbl_Stop")->text(), "STOP");
  EXPECT_FALSE(B("Lbl_Palpeur")->isEnabled());
  carte_->Origine(true);
  EcrireCleSection("table_Essai", "CB_SAV_12", "1");
  tic();
  EXPECT_EQ(B("Lbl_Stop")->text(), "END/ORIG");
  EXPECT_TRUE(B("Lbl_Palpeur")->isEnabled());
  Clique(*B("Lbl_Palpeur"));
  EXPECT_EQ(Lieu(), (Axes3{0, 0, 0})) << "it is only offered";
}

TEST_F(FPilMan, IsLoweredWhileSomebodyElseDrivesAndComesBack) {
  Ouvre();
  EXPECT_EQ(f_->height(), 520);
  Svc.Pilotage(DemandePilotage::Reduit);
  essai::Evenements();
  EXPECT_LE(f_->height(), 230);
  EXPECT_TRUE(B("Lbl_Stop")->isVisible());
  EXPECT_TRUE(L("Lbl_PosX")->isVisible());
  EXPECT_FALSE(Image()->isVisible());
  EXPECT_EQ(TextesCoupesEnTexte(*f_), "");
  Svc.Pilotage(DemandePilotage::Retablit);
  essai::Evenements();
  EXPECT_EQ(f_->height(), 520);
  EXPECT_TRUE(Image()->isVisible());
  Svc.Pilotage(DemandePilotage::SansOrigine);
  EXPECT_FALSE(B("Lbl_RAZ")->isEnabled());
  Svc.Pilotage(DemandePilotage::Retablit);
  EXPECT_TRUE(B("Lbl_RAZ")->isEnabled());
}

TEST_F(FPilMan, KeepsItsPlaceAndWhatWasSet) {
  Ouvre();
  f_->move(40, 30);
  Touche(Qt::Key_F8);
  Touche(Qt::Key_Plus, Pave);
  f_->close();
  EXPECT_FALSE(Timer("TimerPosition")->isActive());
  EXPECT_EQ(LireCleIni("F_PilMan_Left", ""), "600") << "twips";
  EXPECT_EQ(LireCleIni("F_PilMan_Top", ""), "450");
  EXPECT_EQ(LireCleIni("F_PilMan_Pas", ""), "4");
  EXPECT_EQ(LireCleIni("F_PilMan_Vitesse", ""), "4.5");
  EXPECT_EQ(LireCleIni("F_PilMan_Course", ""), "0");
}

TEST_F(FPilMan, AnEndThatWasNotCleanIsSaidInTheWindowWithoutABox) {
  EcritFichierEssai("OVELIN.ini", std::string(TableEssai).replace(0, 10, "[OVELIN]\r\nF_PilMan_Course=-1\r\n"));
  OublieCles();
  Ouvre();
  EXPECT_TRUE(L("Lbl_Place")->isVisible());
  EXPECT_TRUE(B("Btn_Place")->isVisible());
  EXPECT_EQ(TextesCoupesEnTexte(*f_), "");
  Capture(*f_, "F_PilMan-place");
}

TEST_F(FPilMan, TheDigitsOfAListOrAFieldStayTheirs) {
  Ouvre();
  Touche(Qt::Key_F7);
  Clique(*B("Lbl_RAZ"));
  Touche(Qt::Key_Down);
  EXPECT_EQ(Controle<QListWidget>(*f_, "List_Origine")->currentRow(), 1);
  EXPECT_EQ(Lieu(), (Axes3{0, 0, 0}));
  Touche(Qt::Key_Escape);
  EXPECT_EQ(Page(), Image());
}

// Random keys, presses and events of the machine: counters and machine agree whatever happens.
TEST_F(FPilMan, RandomActionsLeaveMachineAndCountersInAgreement) {
  const auto entier = [](const char* nom, unsigned long sinon) {
    const char* valeur = std::getenv(nom);
    return valeur != nullptr ? std::strtoul(valeur, nullptr, 10) : sinon;
  };
  std::mt19937 hasard(static_cast<std::uint32_t>(entier("OVELIN_MONKEY_SEED", 20261122)));
  const auto un = [&](int n) { return static_cast<int>(hasard() % static_cast<unsigned>(n)); };
  const auto actions = static_cast<int>(entier("OVELIN_MONKEY_ACTIONS", 400));
  Svc.Montre = [&](const BoiteMessage& boite) {
    EXPECT_FALSE(boite.texte.empty()) << boite.cle;
    return boite.boutons == Boutons::OuiNon ? Reponse::Non : Reponse::Ok;
  };
  static constexpr int Cles[]{Qt::Key_Left,     Qt::Key_Right,  Qt::Key_Up,      Qt::Key_Down,  Qt::Key_Home,
                              Qt::Key_End,      Qt::Key_PageUp, Qt::Key_F1,      Qt::Key_F5,    Qt::Key_F6,
                              Qt::Key_F7,       Qt::Key_F8,     Qt::Key_V,       Qt::Key_Plus,  Qt::Key_Minus,
                              Qt::Key_Asterisk, Qt::Key_Escape, Qt::Key_Tab,     Qt::Key_Space, Qt::Key_Return,
                              Qt::Key_7,        Qt::Key_3,      Qt::Key_PageDown};
  const auto foyer = [&]() -> QWidget* {
    QWidget* w = QApplication::focusWidget();
    return w != nullptr && w->window() == f_.get() ? w : f_.get();
  };
  Axes3 zero{};  // machine's steps at the counters' zero
  std::function<void()> agit;
  int dedans = 0;
  aChaqueTour_ = [&] {
    if (PilMan.JogActif && dedans == 0 && un(200) == 0) {
      ++dedans;
      agit();
      --dedans;
    }
    if (PilMan.JogActif && un(3000) == 0) ArreteAussitot();
    if (RunActif && un(20000) == 0) {
      carte_->Debranche(true);
      CdeZENIK->IsAvailable();
      carte_->Debranche(false);
    }
  };
  agit = [&] {
    const auto avec =
        un(4) == 0 ? Qt::KeyboardModifiers(Qt::ShiftModifier) : Qt::KeyboardModifiers(Qt::KeypadModifier);
    switch (un(8)) {
      case 0:
      case 1:
      case 2:
        QTest::keyClick(foyer(), Qt::Key(Cles[un(static_cast<int>(std::size(Cles)))]), avec);
        break;
      case 3: {
        const QPoint p(un(Image()->width()), un(Image()->height()));
        QTest::mousePress(Image(), Qt::LeftButton, {}, p);
        QTest::mouseRelease(Image(), Qt::LeftButton, {}, p);
        break;
      }
      case 4: {
        std::vector<QAbstractButton*> boutons;
        for (auto* b : f_->findChildren<QAbstractButton*>()) {
          if (b->isVisible() && b->isEnabled()) boutons.push_back(b);
        }
        if (!boutons.empty()) Clique(*boutons[static_cast<std::size_t>(un(static_cast<int>(boutons.size())))]);
        break;
      }
      case 5:
        carte_->Appuie(static_cast<std::uint8_t>(un(3) == 0 ? un(256) & 0xF3 : 0));
        if (dedans == 0) {
          Timer("TimerPosition")->start(0);
          essai::Evenements();
          carte_->Appuie(0);
        }
        break;
      case 6:
        if (auto* champ = qobject_cast<QLineEdit*>(foyer())) champ->setText(QString::number(un(40) - 20));
        if (auto* liste = qobject_cast<QListWidget*>(foyer())) {
          liste->item(un(3))->setCheckState(un(2) == 0 ? Qt::Checked : Qt::Unchecked);
        }
        break;
      default:
        if (un(10) == 0) {
          f_->close();
          f_->Form_Load();
          f_->show();
          f_->activateWindow();
        }
        heure_ += 0.01 * un(50);
    }
  };
  Ouvre();
  for (int i = 0; i < actions && !HasFailure(); ++i) {
    agit();
    ASSERT_FALSE(PilMan.JogActif || RunActif || OperationCarte) << i;
    if (CdeZENIK->TravailIncertain == Faux) {
      const Axes3 ici = Lieu();
      const Axes3 compte{CdeZENIK->PasX, CdeZENIK->PasY, CdeZENIK->PasZ};
      for (std::size_t a = 0; a < 3; ++a) {
        if (compte[a] == 0) zero[a] = ici[a];  // an origin may have been set
        EXPECT_EQ(ici[a] - zero[a], compte[a]) << "axis " << a << " after action " << i;
      }
    }
  }
}

}  // namespace
