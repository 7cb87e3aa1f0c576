// The windows of the lost-step test and of one record by hand.
#include <QRadioButton>
#include <filesystem>
#include <utility>

#include "core/ui/ChampNombre.h"
#include "machine/essais/ui/F_PasPerdus.h"
#include "machine/essais/ui/F_Test.h"
#include "tests/ui/machine/BancMachine.h"

namespace essai {
namespace {

class PasPerdus : public BancMachine {
 protected:
  void Ouvre() {
    fenetre_.Form_Load();
    fenetre_.setModal(false);
    Montre(fenetre_);
  }
  QPushButton& Btn(const char* nom) { return *Controle<QPushButton>(fenetre_, nom); }
  std::string Compteur() { return Controle<QLabel>(fenetre_, "Label_Compteur")->text().toStdString(); }

  F_PasPerdus fenetre_;
};

TEST_F(PasPerdus, CountsTheStepsOfTheOtherWay) {
  Ouvre();
  EXPECT_EQ(Compteur(), "0");
  Clique(Btn("Cmd_Depl_0"));
  EXPECT_EQ(Compteur(), "0");
  Clique(Btn("Cmd_Depl_1"));
  Clique(Btn("Cmd_Depl_1"));
  EXPECT_EQ(Compteur(), "2");
  EXPECT_EQ(carte_->Lieu(), (zenikcom::Axes3{1, 0, 0}));
  Clique(Btn("Cmd_RAZ"));
  EXPECT_EQ(Compteur(), "0");
}

TEST_F(PasPerdus, MovesTheChosenAxisAndKeepsItsCounter) {
  Ouvre();
  Controle<QRadioButton>(fenetre_, "Option_Axe_2")->setChecked(true);
  for (int i = 0; i < 3; ++i) Clique(Btn("Cmd_Depl_1"));
  EXPECT_EQ(carte_->Lieu(), (zenikcom::Axes3{0, 0, 3}));
  Clique(Btn("CMD_Memoriser"));
  EXPECT_EQ(Cle("Essai", "TB_SAV_11"), "3");
}

TEST_F(PasPerdus, TheSpeedHasTwoDecimalsAtMost) {
  Ouvre();
  auto* vitesse = Controle<QLineEdit>(fenetre_, "TB_Vitesse");
  Tape(*vitesse, "2.347");
  EXPECT_EQ(vitesse->text(), "2.35");
  Tape(*vitesse, "10");
  EXPECT_EQ(vitesse->text(), "10");
  Tape(*vitesse, "");
  EXPECT_EQ(vitesse->text(), "");
}

TEST_F(PasPerdus, TheSpeedStandsInMillimetresAMinuteToo) {
  Ouvre();
  Tape(*Controle<QLineEdit>(fenetre_, "TB_Vitesse"), "2.5");
  EXPECT_EQ(Controle<QLabel>(fenetre_, "Lbl_Eq_Vitesse")->text(), "150 mm/min");
}

TEST_F(PasPerdus, TheButtonsComeBackOnEveryWayOut) {
  Ouvre();
  const auto libres = [this] { return Btn("Cmd_Depl_0").isEnabled() && Btn("Cmd_Depl_1").isEnabled(); };
  Tape(*Controle<QLineEdit>(fenetre_, "TB_Vitesse"), "");
  Attend("F_ParamMachine", "lib011");
  Clique(Btn("Cmd_Depl_1"));
  EXPECT_TRUE(libres());
  Tape(*Controle<QLineEdit>(fenetre_, "TB_Vitesse"), "1");
  carte_->Debranche(true);
  Attend("F_ParamMachine", "lib009");
  Clique(Btn("Cmd_Depl_1"));
  EXPECT_TRUE(libres());
  EXPECT_EQ(Compteur(), "0") << "checked before it counts";
}

TEST_F(PasPerdus, DuringAStepItBeepsAndStaysAndEscapeStops) {
  Branche(false);
  Ouvre();
  Tape(*Controle<QLineEdit>(fenetre_, "TB_Vitesse"), "0.01");
  bool vu = false;
  aChaqueTour_ = [&] {
    if (std::exchange(vu, true)) return;
    EXPECT_FALSE(Btn("Cmd_Depl_0").isEnabled());
    EXPECT_FALSE(fenetre_.close());
    EXPECT_EQ(Bips(), 1);
    QTest::keyClick(&fenetre_, Qt::Key_Escape);
    EXPECT_FALSE(fenetre_.close()) << "stopped, but the step has not come to its end";
    EXPECT_EQ(Bips(), 2);
  };
  Clique(Btn("Cmd_Depl_1"));
  EXPECT_TRUE(vu);
  EXPECT_LT(heure_, 0.9) << "a step of 0.01 mm would take a second";
  EXPECT_TRUE(Btn("Cmd_Depl_0").isEnabled());
  EXPECT_TRUE(fenetre_.close());
}

TEST_F(PasPerdus, ComesBackWhereItWas) {
  Ouvre();
  fenetre_.move(50, 60);
  fenetre_.close();
  F_PasPerdus autre;
  autre.Form_Load();
  EXPECT_EQ(autre.pos(), QPoint(50, 60));
  EXPECT_EQ(LireCleIni("F_PasPerdus_Left", ""), "750") << "15 a pixel";
}

TEST_F(PasPerdus, BringsTheBoardTheTableAtItsOpening) {
  EcrireCleSection("table_Essai", "TB_SAV_15", "31");
  Attend("erreurs", "2", Reponse::Oui);
  Ouvre();
}

using EnvoiMouvement = BancMachine;

TEST_F(EnvoiMouvement, ShowsTheStartSpeedAndSendsOneRecord) {
  F_Test f;
  f.setModal(false);
  Montre(f);
  Tape(*Controle<QLineEdit>(f, "TB_X"), "3");
  Tape(*Controle<QLineEdit>(f, "TB_Y"), "-4");
  EXPECT_EQ(Controle<QLineEdit>(f, "TB_VDeb")->text(), "5.00");
  Tape(*Controle<QLineEdit>(f, "TB_Vitesse"), "2");
  Clique(*Controle<QPushButton>(f, "CB_Envoi"));
  EXPECT_EQ(carte_->Compteurs().acceptes, 1);
  EXPECT_EQ(carte_->Lieu(), zenikcom::Axes3{});
  EXPECT_EQ(Controle<QLabel>(f, "Lbl_Temps")->text(), "2.500");
  f.close();
}

TEST_F(EnvoiMouvement, ShowsTheBytesOfTheDebugLog) {
  Svc.Montre = [](const BoiteMessage&) { return Reponse::Ok; };
  Regl.DebugZENIK = true;
  const auto avant = std::filesystem::current_path();
  std::filesystem::current_path(Dossier());
  F_Test f;
  f.setModal(false);
  Montre(f);
  Tape(*Controle<QLineEdit>(f, "TB_X"), "1");
  Clique(*Controle<QPushButton>(f, "CB_Envoi"));
  std::filesystem::current_path(avant);
  const QStringList groupes = Controle<QLabel>(f, "Lbl_Retour")->text().split(' ');
  ASSERT_EQ(groupes.size(), 12);
  EXPECT_EQ(groupes[1], "44");
  EXPECT_EQ(groupes[4], "C8000000") << "100 steps are 200 edges";
  EXPECT_EQ(carte_->Compteurs().acceptes, 0) << "nothing is sent in debug mode";
  f.close();
}

TEST_F(EnvoiMouvement, AnEmptyFieldIsRefusedAndNothingIsSent) {
  F_Test f;
  f.setModal(false);
  Montre(f);
  Tape(*Controle<QLineEdit>(f, "TB_Z"), "");
  Clique(*Controle<QPushButton>(f, "CB_Envoi"));
  EXPECT_TRUE(Controle<ChampNombre>(f, "TB_Z")->EstRefuse());
  EXPECT_EQ(carte_->Compteurs().acceptes, 0);
  f.close();
}

TEST_F(EnvoiMouvement, WithoutABoardSaysSo) {
  CdeZENIK = std::make_unique<ClsCdeZENIK>();
  F_Test f;
  f.setModal(false);
  Montre(f);
  Attend("F_Test", "lib001");
  Clique(*Controle<QPushButton>(f, "CB_Envoi"));
  f.close();
}

}  // namespace
}  // namespace essai
