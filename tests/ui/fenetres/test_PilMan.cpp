// The window of manual control, with real keys and a real pointer, on a virtual board under the test's clock.
#include <set>

#include "controller/ChoixCarte.h"
#include "core/ui/ChampNombre.h"
#include "core/ui/Fenetres.h"
#include "manual/Module_PlaceMan.h"
#include "manual/ui/TouchesQt.h"
#include "tests/ui/fenetres/BancPilMan.h"

namespace essai {
namespace {

using FPilMan = BancPilMan;

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

TEST_F(FPilMan, ThePlaceIsThereFromTheOpeningOn) {
  EcritFichierEssai("OVELIN.ini", std::string(TableEssai).replace(0, 10, "[OVELIN]\r\nF_PilMan_posX=-250\r\n"));
  OublieCles();
  f_->Form_Load();
  EXPECT_EQ(L("Lbl_PosX")->text(), "-2.50");
  EXPECT_EQ(L("Lbl_PosZ")->text(), "0.00");
}

TEST_F(FPilMan, ThePictureShowsTheKeyOfTheModeInForce) {
  Ouvre();
  const auto touche = [this](int code) {
    const QPoint milieu = Image()->Milieu(code);
    const QImage image = Image()->grab().toImage();
    return image.copy(QRect(milieu - QPoint(22, 22), milieu + QPoint(22, 22)));
  };
  QImage avant[2]{touche(touche::F5), touche(touche::F8)};
  Touche(Qt::Key_F8);
  Image()->Encercle(0);
  EXPECT_NE(touche(touche::F5), avant[0]);
  EXPECT_NE(touche(touche::F8), avant[1]);
}

TEST_F(FPilMan, SaysWhichBoardItDrives) {
  LaCarte = {GenreCarte::Virtuelle, carte_, ""};
  Ouvre();
  EXPECT_EQ(L("Lbl_Carte")->text(), "Carte virtuelle");
  LaCarte = {GenreCarte::Aucune, nullptr, ""};
  CdeZENIK = std::make_unique<ClsCdeZENIK>();
  EXPECT_EQ(L("Lbl_Carte")->text(), "Carte virtuelle") << "until it is asked again";
  Sonne("TimerPosition");
  EXPECT_EQ(L("Lbl_Carte")->text(), "Sans carte");
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
  EXPECT_EQ(L("Lbl_Eq_Vitesse_Manuel")->text(), "240 mm/min");
  EXPECT_EQ(v->styleSheet(), "");
  QTest::keyPress(QApplication::focusWidget(), Qt::Key_Shift);
  EXPECT_EQ(v->text(), "0.2 mm/s");
  EXPECT_EQ(L("Lbl_Eq_Vitesse_Manuel")->text(), "12 mm/min");
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

TEST_F(FPilMan, OverTheDrawingIsLowUntilAHandIsInIt) {
  Ouvre();
  f_->move(40, 30);
  const auto plie = [this] {
    Svc.Pilotage(DemandePilotage::Plie);
    essai::Evenements();
    EXPECT_LE(f_->height(), 230);
    EXPECT_EQ(f_->y() + f_->height(), 30 + 520) << "its foot stays";
    EXPECT_FALSE(Image()->isVisible());
  };
  const auto entier = [this] {
    essai::Evenements();
    EXPECT_EQ(QRect(f_->pos(), f_->size()), QRect(40, 30, 470, 520));
    EXPECT_TRUE(Image()->isVisible());
  };
  plie();
  Clique(*B("Lbl_Motor"));
  entier();
  EXPECT_TRUE(Timer("TimerMotorOn")->isActive()) << "the press counts";
  plie();
  Touche(Qt::Key_F8);
  entier();
  plie();
  Svc.Pilotage(DemandePilotage::Reduit);
  Clique(*B("Lbl_Stop"));
  essai::Evenements();
  EXPECT_FALSE(Image()->isVisible()) << "while somebody else drives";
  Svc.Pilotage(DemandePilotage::Retablit);
  entier();
  plie();
  f_->close();
  EXPECT_EQ(LireCleIni("F_PilMan_Top", ""), "450") << "twips, of the whole window";
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
}  // namespace
}  // namespace essai
