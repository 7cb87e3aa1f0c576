// The run in the milling window: the three faces, what can be pressed meanwhile, stop, resume, a board that is
// gone.
#include <QGroupBox>
#include <QProgressBar>
#include <QRadioButton>
#include <QToolButton>
#include <set>

#include "core/Textes.h"
#include "tests/ui/fenetres/RunEssai.h"

namespace essai {
namespace {

using namespace ovelin;

class FFraisageRun : public RunEssai {
 protected:
  FFraisageRun() {
    f_ = std::make_unique<F_Fraisage>();
    Montre(*f_);
  }
  template <class T>
  T* C(const char* nom) {
    return Controle<T>(*f_, nom);
  }
  QPushButton& Depart() { return *C<QPushButton>("Btn_Fraiser_Serie"); }
  QPushButton& Abandon() { return *C<QPushButton>("Btn_Abandon"); }
  std::string Face() { return Depart().text().remove('&').toStdString(); }
  std::string Etat() { return C<QLabel>("Lbl_Etat")->text().toStdString(); }
  QColor Fond() { return f_->palette().color(QPalette::Window); }
  bool Possible(const char* nom) { return C<QWidget>(nom)->isEnabled(); }
  void Presse() { QTest::mousePress(&Depart(), Qt::LeftButton, {}, Depart().rect().center()); }
  // Started, and stopped by the button once that many records have begun.
  void LanceEtArrete(std::int64_t records) {
    Quand(records, [this] { Presse(); });
    Clique(Depart());
    QTest::mouseRelease(&Depart(), Qt::LeftButton, {}, Depart().rect().center());
    pendant_ = nullptr;
  }

  std::unique_ptr<F_Fraisage> f_;
};

TEST_F(FFraisageRun, TheButtonHasThreeFaces) {
  EXPECT_EQ(Face(), "Lancer le fraisage");
  EXPECT_FALSE(Abandon().isVisible());
  std::string pendant, bulle;
  Quand(4, [&] {
    pendant = Face();
    bulle = Depart().toolTip().toStdString();
    EXPECT_FALSE(Abandon().isVisible());
    Presse();
  });
  Clique(Depart());
  EXPECT_EQ(pendant, Traduire("F_Fraisage", "lib001").substr(1));
  EXPECT_EQ(bulle, Traduire("F_Fraisage", "lib002"));
  EXPECT_EQ(Face(), Traduire("F_Fraisage", "lib003").substr(1));
  EXPECT_EQ(Depart().toolTip().toStdString(), Traduire("F_Fraisage", "lib004"));
  EXPECT_TRUE(Abandon().isVisible() && Abandon().isEnabled() && Depart().isEnabled());
  QTest::mouseRelease(&Depart(), Qt::LeftButton, {}, Depart().rect().center());
  pendant_ = nullptr;
  Clique(Depart());
  EXPECT_EQ(Face(), "Lancer le fraisage");
  EXPECT_FALSE(Abandon().isVisible());
  EXPECT_EQ(carte_->Compteurs().pas, (zenikcom::Axes3{0, 0, 0}));
}

TEST_F(FFraisageRun, StopsOnThePressAndLettingGoDoesNotResume) {
  LanceEtArrete(4);
  EXPECT_FALSE(RunActif);
  EXPECT_EQ(FaceCourante(), FaceFraisage::Reprise);
  EXPECT_EQ(carte_->Compteurs().etat, zenikcom::EtatCarte::Arretee);
}

TEST_F(FFraisageRun, TheStopButtonStopsByTheRamp) {
  Drapeau rampe = Faux;
  Quand(4, [&] {
    Presse();
    rampe = ArretRampe;
  });
  Clique(Depart());
  EXPECT_EQ(rampe, Vrai);
}

TEST_F(FFraisageRun, IsRedWhileItRunsAndGreenAtItsEnd) {
  const QColor avant = Fond();
  QColor pendant;
  Quand(4, [&] { pendant = Fond(); });
  Clique(Depart());
  EXPECT_GT(pendant.red(), 2 * pendant.green());
  EXPECT_EQ(Fond(), QColor(0, 127, 0));
  f_->close();
  f_->Form_Load();
  Montre(*f_);
  EXPECT_EQ(Fond(), avant);
}

TEST_F(FFraisageRun, TheTimeCanBeReadOnEveryGround) {
  auto* temps = C<QLineEdit>("TB_TempsRestant");
  const auto clair = [temps] { return temps->palette().color(QPalette::Text).lightness() > 200; };
  // The ground as it is painted, at the left edge where nothing is written.
  const auto fond = [temps] {
    return temps->window()->grab().toImage().pixelColor(temps->mapTo(temps->window(), QPoint(2, 4)));
  };
  Tape(*C<ChampNombre>("TB_ProfPasse"), "-1");  // the plan is another one: a time on show turns grey
  EXPECT_FALSE(clair());
  bool pendant = false;
  QColor rouge;
  Quand(12, [&] {
    pendant = clair();
    rouge = fond();
    Presse();
  });
  Clique(Depart());
  QTest::mouseRelease(&Depart(), Qt::LeftButton, {}, Depart().rect().center());
  EXPECT_TRUE(pendant) << "white on red";
  EXPECT_LT(std::abs(rouge.red() - Fond().red()) + rouge.green() + rouge.blue(), 60) << "and the red is its ground";
  EXPECT_TRUE(clair()) << "stopped, too";
}

TEST_F(FFraisageRun, GivenUpItIsGreenAndReadyAgain) {
  LanceEtArrete(4);
  EXPECT_EQ(Etat(), Traduire("F_Fraisage", "Run_arrete"));
  Clique(Abandon());
  EXPECT_TRUE(TableReprise.empty());
  EXPECT_EQ(Fond(), QColor(0, 127, 0));
  EXPECT_EQ(Face(), "Lancer le fraisage");
  EXPECT_FALSE(Abandon().isVisible());
  EXPECT_FALSE(C<QWidget>("TB_TempsRestant")->isVisible());
}

TEST_F(FFraisageRun, AKeyStopsAtOnceAndTheTimeIsForeseenBehindTheRun) {
  Drapeau rampe = Vrai;
  bool prevuPendant = false;
  Quand(4, [&] {
    QTest::keyClick(f_.get(), Qt::Key_A);
    rampe = ArretRampe;
    EXPECT_EQ(StopDemande, Vrai);
    prevuPendant = C<QLineEdit>("TB_TempsRestant")->text() == QStringLiteral("...");
  });
  Clique(Depart());
  EXPECT_EQ(rampe, Faux);
  EXPECT_EQ(FaceCourante(), FaceFraisage::Reprise);
  EXPECT_FALSE(TableReprise.empty());
  EXPECT_TRUE(C<QWidget>("TB_TempsRestant")->isVisible());
  EXPECT_NE(C<QLineEdit>("TB_TempsRestant")->text(), QStringLiteral("..."));
  EXPECT_FALSE(prevuPendant && C<QLineEdit>("TB_TempsRestant")->text().isEmpty());
}

TEST_F(FFraisageRun, KeysOfANumberAndEnterDoNotStop) {
  Quand(4, [&] {
    auto* champ = C<ChampNombre>("TB_Vit_Mat_H");
    champ->setFocus();
    champ->selectAll();
    for (const auto touche :
         {Qt::Key_Backspace, Qt::Key_2, Qt::Key_Comma, Qt::Key_5, Qt::Key_Shift, Qt::Key_Return}) {
      QTest::keyClick(champ, touche);
      EXPECT_EQ(StopDemande, Faux) << touche;
    }
  });
  Clique(Depart());
  EXPECT_EQ(Vitesse_Mat_H, 2.5);
  EXPECT_EQ(FaceCourante(), FaceFraisage::Depart);
}

TEST_F(FFraisageRun, WhatWouldDisturbItIsDisabledMeanwhile) {
  const std::vector<const char*> eteints{"TB_RayonFraise", "TB_LargeurEncoche", "TB_HautDeg",    "TB_PCPoche",
                                         "TB_ProfPasse",   "TB_Vit_Mat_V",      "Option_Mode_0", "Option_Mode_2",
                                         "Command1",       "Btn_Gener_GCODE"};
  for (const char* nom : eteints) EXPECT_TRUE(Possible(nom)) << nom;
  bool vu = false;
  Quand(4, [&] {
    vu = true;
    for (const char* nom : eteints) EXPECT_FALSE(Possible(nom)) << nom;
    for (const char* nom : {"TB_Vit_Mat_H", "CB_VitMat_1", "Btn_Fraiser_Serie", "Btn_Fermer"}) {
      EXPECT_TRUE(Possible(nom)) << nom;
    }
  });
  Clique(Depart());
  EXPECT_TRUE(vu);
  for (const char* nom : eteints) EXPECT_TRUE(Possible(nom)) << nom;
}

TEST_F(FFraisageRun, ASpeedOfTheRunScalesTheRowsBehindItAndGreysTheTime) {
  std::vector<float> vitesses;
  bool gris = false;
  Quand(4, [&] {
    Clique(*C<QToolButton>("CB_VitMat_1"));
    gris = C<QLineEdit>("TB_TempsRestant")->styleSheet().contains(QStringLiteral("200, 200, 200"));
    Vue_Decoupe.Accepte = [&](std::int32_t ligne, float& v) {
      const Deplacement& d = TableDecoupe[static_cast<std::size_t>(ligne)];
      if (d.dZ == 0 && d.Vitesse == 3) vitesses.push_back(v);
    };
  });
  for (int i = 0; i < 30; ++i) AjouteCarre(" Z", 20, static_cast<float>(4 + 3 * i), 2, 2, -1);
  RecalculDecalages();
  Clique(Depart());
  EXPECT_TRUE(gris);
  ASSERT_FALSE(vitesses.empty());
  for (const float v : vitesses) EXPECT_FLOAT_EQ(v, 2);
}

TEST_F(FFraisageRun, TheModeIsRememberedWithTheSettings) {
  Clique(*C<QRadioButton>("Option_Mode_2"));
  EXPECT_EQ(LireCle("ModeZENIK", ""), "2");
  f_.reset();
  F_Fraisage autre;
  EXPECT_TRUE(Controle<QRadioButton>(autre, "Option_Mode_2")->isChecked());
  EXPECT_FALSE(Controle<QRadioButton>(autre, "Option_Mode_0")->isChecked());
}

TEST_F(FFraisageRun, ClosedItGoesOnAndOpenedAgainItShowsTheRun) {
  std::string face;
  bool marche = false;
  Quand(4, [&] {
    f_->close();
    EXPECT_FALSE(f_->isVisible());
    marche = StopDemande == Faux;
    f_->Form_Load();
    Montre(*f_);
    face = Face();
    EXPECT_GT(Fond().red(), 2 * Fond().green());
  });
  Clique(Depart());
  EXPECT_TRUE(marche);
  EXPECT_EQ(face, Traduire("F_Fraisage", "lib001").substr(1));
  EXPECT_EQ(carte_->Compteurs().pas, (zenikcom::Axes3{0, 0, 0}));
}

TEST_F(FFraisageRun, ALostBoardIsWaitedForAndThenResumed) {
  Quand(8, [&] { carte_->Debranche(true); });
  Attend("F_Fraisage", "Run_liaison");
  Clique(Depart());
  pendant_ = nullptr;
  EXPECT_EQ(Etat(), Traduire("F_Fraisage", "Run_attente"));
  EXPECT_FALSE(Depart().isEnabled());
  EXPECT_TRUE(Abandon().isVisible());
  auto* regard = C<QTimer>("Timer_Carte");
  EXPECT_TRUE(regard->isActive());
  heure_ += 1;
  carte_->Debranche(false);
  regard->setInterval(0);
  Evenements();
  EXPECT_FALSE(regard->isActive());
  EXPECT_EQ(Etat(), Traduire("F_Fraisage", "Run_arrete"));
  ASSERT_TRUE(Depart().isEnabled());
  Clique(Depart());
  EXPECT_EQ(carte_->Compteurs().pas, (zenikcom::Axes3{0, 0, 0}));
}

TEST_F(FFraisageRun, ABoardThatHasForgottenItsJobLeavesOnlyTheGivingUp) {
  Quand(8, [&] { carte_->Debranche(true); });
  Attend("F_Fraisage", "Run_liaison");
  Clique(Depart());
  pendant_ = nullptr;
  carte_->Debranche(false);
  zenikcom::TamponOctets t{};
  t[1] = 'B';
  carte_->Echange(t);  // its buffer is cleared, its count begins anew
  C<QTimer>("Timer_Carte")->setInterval(0);
  Evenements();
  EXPECT_EQ(Etat(), Traduire("F_Fraisage", "Run_place"));
  EXPECT_FALSE(Depart().isEnabled());
  Clique(Abandon());
  EXPECT_TRUE(Depart().isEnabled());
  EXPECT_EQ(Face(), "Lancer le fraisage");
}

TEST_F(FFraisageRun, AnAcceptedSpeedForeseesTheTimeOfTheBoard) {
  EXPECT_FALSE(C<QWidget>("TB_TempsRestant")->isVisible());
  Tape(*C<ChampNombre>("TB_Vit_Mat_H"), "1");
  // Twice 48 mm at 1 mm/s round the square of 12 mm make a minute and a half, and what moves above it.
  const QString temps = C<QLineEdit>("TB_TempsRestant")->text();
  ASSERT_TRUE(C<QWidget>("TB_TempsRestant")->isVisible());
  ASSERT_EQ(temps.section(':', 0, 0), QStringLiteral("01")) << temps.toStdString();
  EXPECT_GE(temps.section(':', 1, 1).toInt(), 36);
}

TEST_F(FFraisageRun, WithoutABoardNoTimeIsForeseen) {
  carte_->Debranche(true);
  Tape(*C<ChampNombre>("TB_Vit_Mat_H"), "1");
  EXPECT_FALSE(C<QWidget>("TB_TempsRestant")->isVisible());
}

TEST_F(FFraisageRun, WhileTheMachineIsBusyElsewhereItNeitherPlansNorStarts) {
  const EtatPlan avant = Plan;
  OperationCarte = true;
  AvisRun::Unique().Note(true);
  EXPECT_FALSE(Depart().isEnabled());
  EXPECT_EQ(Etat(), Traduire("F_Fraisage", "Run_autre"));
  Tape(*C<ChampNombre>("TB_Vit_Mat_H"), "1");
  EXPECT_EQ(Plan.TableDecoupe.size(), avant.TableDecoupe.size());
  EXPECT_EQ(carte_->Compteurs().acceptes, 0);
  OperationCarte = false;
  AvisRun::Unique().Note(false);
  EXPECT_TRUE(Depart().isEnabled());
}

TEST_F(FFraisageRun, WhileTheBoardMovesATypedSpeedOnlyGreysTheTime) {
  Tape(*C<ChampNombre>("TB_Vit_Mat_H"), "1");
  const std::int64_t avant = carte_->Compteurs().echanges;
  const EtatPlan plan = Plan;
  CdeZENIK->EnCours = Vrai;
  Tape(*C<ChampNombre>("TB_Vit_Mat_H"), "2");
  EXPECT_EQ(Plan, plan);
  EXPECT_EQ(carte_->Compteurs().echanges, avant) << "no job is opened under it";
  EXPECT_TRUE(C<QLineEdit>("TB_TempsRestant")->styleSheet().contains(QStringLiteral("200, 200, 200")));
  CdeZENIK->EnCours = Faux;
}

TEST_F(FFraisageRun, TheAdviceOfTheSpeedAllowsForArithmetic) {
  auto* avis = C<QLabel>("Lbl_Avis");
  Tape(*C<ChampNombre>("TB_Vit_Mat_H"), "20.0000001");  // the axes allow 20
  EXPECT_FALSE(avis->text().contains(QString::fromStdString(Traduire(Textes::VitesseMatiereHaute))));
  Tape(*C<ChampNombre>("TB_Vit_Mat_H"), "20.1");
  EXPECT_TRUE(avis->text().contains(QString::fromStdString(Traduire(Textes::VitesseMatiereHaute))));
}

TEST_F(FFraisageRun, AStartWhileTheMachineIsMovedByHandOnlyBeeps) {
  OperationCarte = true;
  EXPECT_TRUE(Depart().isEnabled()) << "nothing is shown as disabled for a jog";
  Clique(Depart());
  EXPECT_EQ(Bips(), 1);
  EXPECT_EQ(carte_->Compteurs().acceptes, 0);
  OperationCarte = false;
}

TEST_F(FFraisageRun, TheSpeedThatTheAxesFollowIsWrittenIntoItsField) {
  Tape(*C<ChampNombre>("TB_Vit_Mat_H"), "35");
  Attend("F_Fraisage", "lib005", Reponse::Ok);
  std::string pendant;
  Quand(4, [&] { pendant = C<ChampNombre>("TB_Vit_Mat_H")->Texte(); });
  Clique(Depart());
  EXPECT_EQ(pendant, "20.00");
  EXPECT_EQ(Vitesse_Mat_H, 20);
}

TEST_F(FFraisageRun, ARefusedStartLeavesTheWindowAsItWas) {
  const QColor avant = Fond();
  Tape(*C<ChampNombre>("TB_Vit_Mat_H"), "35");
  Attend("F_Fraisage", "lib005", Reponse::Annuler);
  Clique(Depart());
  EXPECT_EQ(Face(), "Lancer le fraisage");
  EXPECT_EQ(Fond(), avant);
  EXPECT_FALSE(C<QTimer>("Timer_MotorOff")->isActive());
}

TEST_F(FFraisageRun, ProgressAndTimeFollowTheRunAndGoWithIt) {
  int maximum = 0, valeur = 0;
  std::string temps;
  Quand(12, [&] {
    auto* barre = C<QProgressBar>("ProgressBar1");
    EXPECT_TRUE(barre->isVisible());
    maximum = barre->maximum();
    valeur = barre->value();
    temps = C<QLineEdit>("TB_TempsRestant")->text().toStdString();
  });
  Clique(Depart());
  EXPECT_GT(valeur, 0);
  EXPECT_LT(valeur, maximum);
  EXPECT_NE(temps, "...");
  EXPECT_FALSE(C<QProgressBar>("ProgressBar1")->isVisible());
  EXPECT_FALSE(C<QWidget>("TB_TempsRestant")->isVisible());
  EXPECT_EQ(Etat(), Traduire(Textes::RunTermine));
}

TEST_F(FFraisageRun, TheFigureWalksOnlyDuringTheLongWrite) {
  Clique(*C<QRadioButton>("Option_Mode_2"));
  auto* figure = C<QLabel>("picStanding");
  auto* pas = C<QTimer>("Timer_Pic");
  EXPECT_FALSE(figure->isVisible());
  int marche = 0, immobile = 0;
  bool etat = false;
  pendant_ = [&] {
    EXPECT_EQ(figure->isVisible(), pas->isActive());
    pas->isActive() ? ++marche : ++immobile;
    etat = etat || Etat() == Traduire("F_Fraisage", "Run_ecrit");
  };
  Clique(Depart());
  EXPECT_GT(marche, 10) << "one look a page";
  EXPECT_GT(immobile, 100) << "the job itself";
  EXPECT_TRUE(etat);
  EXPECT_FALSE(figure->isVisible());
}

TEST_F(FFraisageRun, TheFigureStepsThroughItsFourPictures) {
  Clique(*C<QRadioButton>("Option_Mode_1"));
  std::set<qint64> images;
  pendant_ = [&] {
    auto* pas = C<QTimer>("Timer_Pic");
    if (!pas->isActive()) return;
    pas->setInterval(0);
    QApplication::processEvents();
    images.insert(C<QLabel>("picStanding")->pixmap(Qt::ReturnByValue).cacheKey());
  };
  Clique(Depart());
  EXPECT_GE(images.size(), 4U);
}

TEST_F(FFraisageRun, MotorsAreOffAfterAWhileButNotUnderARun) {
  Clique(Depart());
  auto* minuterie = C<QTimer>("Timer_MotorOff");
  EXPECT_TRUE(minuterie->isActive());
  EXPECT_EQ(minuterie->interval(), 30'000);
  CdeZENIK->MotorOnOff(true);
  OperationCarte = true;
  f_->Timer_MotorOff_Timer();
  EXPECT_TRUE(carte_->Sorties().moteur);
  OperationCarte = false;
  f_->Timer_MotorOff_Timer();
  EXPECT_FALSE(carte_->Sorties().moteur);
  EXPECT_TRUE(minuterie->isSingleShot());
}

TEST_F(FFraisageRun, AStartStopsTheTimerOfTheMotors) {
  Clique(Depart());
  bool actif = true;
  Quand(4, [&] { actif = C<QTimer>("Timer_MotorOff")->isActive(); });
  Clique(Depart());
  EXPECT_FALSE(actif);
}

TEST_F(FFraisageRun, EssaiFlashStoresTheJobWithoutEmptyRowsAndRunsItWithTheSpindleOff) {
  EcrireCleSection("table_Essai", "CB_SAV_16", "1");
  bool broche = false;
  std::int64_t loin = 0;
  pendant_ = [&] {
    broche = broche || carte_->Sorties().broche;
    loin = std::max(loin, carte_->Lieu()[0]);
  };
  Attend("erreurs", "2", Reponse::Oui);
  Clique(*C<QPushButton>("Command1"));
  EXPECT_FALSE(broche);
  EXPECT_NEAR(static_cast<double>(loin) * CdeZENIK->MmParPasX(), 15, 0.1) << "a radius beyond 14";
  EXPECT_EQ(carte_->Compteurs().pas, (zenikcom::Axes3{0, 0, 0}));
  EXPECT_EQ(carte_->Compteurs().commences, NbDeplacements);
  EXPECT_EQ(ListeFlash.back(), 128);
  EXPECT_EQ(ModeEnvoiTable, 0);
  EXPECT_THAT(Vu().pilotage, testing::Contains(DemandePilotage::SansOrigine));
}

TEST_F(FFraisageRun, EssaiFlashNeedsABoard) {
  carte_->Debranche(true);
  Attend("erreurs", "91");
  Clique(*C<QPushButton>("Command1"));
}

TEST_F(FFraisageRun, TheBannerStandsThereWithTheVirtualBoardAlone) {
  EXPECT_FALSE(C<QLabel>("Lbl_Virtuelle")->isVisible());
  LaCarte.genre = GenreCarte::Virtuelle;
  F_Fraisage autre;
  Montre(autre);
  EXPECT_TRUE(Controle<QLabel>(autre, "Lbl_Virtuelle")->isVisible());
  EXPECT_EQ(Controle<QLabel>(autre, "Val_Carte")->text().toStdString(), Traduire(Textes::CarteVirtuelle));
  LaCarte.genre = GenreCarte::Aucune;
}

TEST_F(FFraisageRun, ToolFieldsFollowTheRulesOfTheTool) {
  auto* rayon = C<ChampNombre>("TB_RayonFraise");
  AttendTexte("< 0 !");
  Tape(*rayon, "-1");
  EXPECT_TRUE(rayon->EstRefuse());
  Tape(*rayon, "2");
  EXPECT_FALSE(rayon->EstRefuse());
  EXPECT_EQ(RayonFraise, 2);
  EXPECT_EQ(C<QLabel>("Val_EtendueX")->text().toStdString(), "2.0 / 16.0 mm") << "the plan follows";
  auto* passe = C<ChampNombre>("TB_ProfPasse");
  Attend("F_Representation", "lib361");
  Tape(*passe, "1");
  EXPECT_TRUE(passe->EstRefuse());
  Tape(*passe, "-1");
  EXPECT_EQ(C<QLabel>("Val_Passes")->text().toStdString(), "1");
}

TEST_F(FFraisageRun, FollowsAToolAndADrawingThatWereChangedElsewhere) {
  QWidget autre;
  Montre(autre);
  RayonFraise = 2.5;
  RecalculDecalages();
  Montre(*f_);
  EXPECT_EQ(C<ChampNombre>("TB_RayonFraise")->Texte(), "2.5");
  EXPECT_EQ(C<QLabel>("Val_EtendueX")->text().toStdString(), "1.5 / 16.5 mm");
}

}  // namespace
}  // namespace essai
