#include <cmath>
#include <random>

#include "core/Nombres.h"
#include "core/Textes.h"
#include "machine/essais/Module_EssaiVitesse.h"
#include "tests/unit/machine/essais/BancEssai.h"

namespace essai {
namespace {

using zenikcom::Axes3;

class EssaiVitesse : public BancEssai {
 protected:
  EssaiVitesse() {
    Vue_Essai.EnCours = [this](bool oui) { enCours_.push_back(oui); };
    Vue_Essai.Passe = [this](double v, double tenue) {
      vitesses_.push_back(v);
      tenues_.push_back(tenue);
    };
  }
  static ReglageEssai X(double depart, double arrivee, double increment, double distance = 5) {
    return {depart, arrivee, increment, distance, {true, false, false}};
  }

  std::vector<bool> enCours_;
  std::vector<double> vitesses_, tenues_;
};

TEST_F(EssaiVitesse, GoesThereAndBackAtEachSpeed) {
  carte_->Place({0, 0, 0});
  EXPECT_EQ(Cmd_GO({2, 4, 1, 5, {true, false, false}}, false), IssueEssai::Terminee);
  EXPECT_EQ(vitesses_, (std::vector<double>{2, 3, 4}));
  const std::vector<Axes3> attendu{{0, 0, 0}, {500, 0, 0}, {0, 0, 0}, {500, 0, 0},
                                   {0, 0, 0}, {500, 0, 0}, {0, 0, 0}};
  EXPECT_EQ(carte_->Parcours(), attendu);
  EXPECT_EQ(enCours_, (std::vector<bool>{true, false}));
}

TEST_F(EssaiVitesse, MovesTheAxesThatAreChecked) {
  EXPECT_EQ(Cmd_GO({2, 2, 1, -3, {false, true, true}}, false), IssueEssai::Terminee);
  const std::vector<Axes3> attendu{{0, 0, 0}, {0, -300, 0}, {0, -300, -300}, {0, 0, -300}, {0, 0, 0}};
  EXPECT_EQ(carte_->Parcours(), attendu);
}

// 5 mm at 2 mm/s there and back are 5 s without a ramp.
TEST_F(EssaiVitesse, RunsAtTheSpeedOfThePass) {
  Branche(false);
  Cmd_GO(X(2, 2, 1), false);
  EXPECT_NEAR(carte_->Compteurs().secondes, 5, 0.02);
}

TEST_F(EssaiVitesse, LeavesTheSpeedInTheMaterialAlone) {
  Vitesse_Mat_H = 7;
  Cmd_GO(X(2, 3, 1), false);
  EXPECT_EQ(Vitesse_Mat_H, 7);
}

TEST_F(EssaiVitesse, TellsWhatTheTableLeavesOfTheSpeed) {
  Cmd_GO(X(50, 70, 10, 20), false);
  ASSERT_EQ(tenues_.size(), 3U);
  EXPECT_NEAR(tenues_[0], 50, 1e-3);
  EXPECT_NEAR(tenues_[1], 60, 1e-3);
  EXPECT_NEAR(tenues_[2], 60, 1e-3) << "the table's 60 mm/s";
}

TEST_F(EssaiVitesse, NeverSwitchesTheSpindleAndGivesItsWishBack) {
  PoseTable("CB_SAV_16=1\r\n");
  Attend("erreurs", "2", Reponse::Oui);
  bool tournee = false;
  aChaqueTour_ = [&] { tournee = tournee || carte_->Sorties().broche; };
  Cmd_GO(X(2, 3, 1), false);
  EXPECT_FALSE(tournee);
  EXPECT_EQ(carte_->Sorties().pwm, 0);
  EXPECT_EQ(BrocheAuto, 1);
}

TEST_F(EssaiVitesse, WithoutABoardSaysSo) {
  CdeZENIK = std::make_unique<ClsCdeZENIK>();
  Attend("F_ParamMachine", "lib009");
  EXPECT_EQ(Cmd_GO(X(2, 3, 1), false), IssueEssai::Refusee);
  EXPECT_EQ(Boites()[0].titre, "OVELIN");
  EXPECT_TRUE(enCours_.empty());
}

TEST_F(EssaiVitesse, WithoutATableOnTheBoardDoesNotBegin) {
  carte_->Fautes({{carte_->Compteurs().echanges + 2, zenikcom::GenreFaute::Avant, 0}});
  EXPECT_EQ(Cmd_GO(X(2, 3, 1), false), IssueEssai::Refusee);
  EXPECT_TRUE(enCours_.empty());
  EXPECT_FALSE(TestEnCours);
}

TEST_F(EssaiVitesse, SaysThatItRunsWhileItDoes) {
  bool pendant = false;
  Vue_Essai.Passe = [&](double, double) { pendant = TestEnCours && OperationCarte; };
  Cmd_GO(X(2, 2, 1), false);
  EXPECT_TRUE(pendant);
  EXPECT_FALSE(TestEnCours);
  EXPECT_FALSE(OperationCarte);
}

TEST_F(EssaiVitesse, BeepsWhileSomethingElseMoves) {
  OperationCarte = true;
  EXPECT_EQ(Cmd_GO(X(2, 3, 1), false), IssueEssai::Refusee);
  EXPECT_EQ(Bips(), 1);
}

TEST_F(EssaiVitesse, APauseAsksAndANoEnds) {
  Attend("F_ParamMachine", "lib008", Reponse::Oui);
  Attend("F_ParamMachine", "lib008", Reponse::Non);
  EXPECT_EQ(Cmd_GO(X(2, 9, 1), true), IssueEssai::Arretee);
  EXPECT_EQ(vitesses_, (std::vector<double>{2, 3}));
}

TEST_F(EssaiVitesse, AsksNothingBehindTheLastPass) {
  Attend("F_ParamMachine", "lib008", Reponse::Oui);
  EXPECT_EQ(Cmd_GO(X(2, 3, 1), true), IssueEssai::Terminee);
}

TEST_F(EssaiVitesse, AStopEndsItAtOnce) {
  Branche(false);
  const double debut = heure_;
  aChaqueTour_ = [this, debut] {
    if (vitesses_.size() == 2 && StopDemande == Faux && heure_ > debut + 6) Cmd_Stop();
  };
  EXPECT_EQ(Cmd_GO(X(2, 9, 1), false), IssueEssai::Arretee);
  EXPECT_EQ(vitesses_.size(), 2U);
  EXPECT_EQ(carte_->Lieu(), Compte()) << "the counters are those of the machine, to the step";
  EXPECT_NE(carte_->Lieu()[0], 0) << "in the middle of a pass";
  EXPECT_EQ(enCours_, (std::vector<bool>{true, false}));
}

TEST_F(EssaiVitesse, UnpluggedInAPassEndsWithAText) {
  Branche(false);
  aChaqueTour_ = [this] {
    if (!vitesses_.empty() && heure_ > 1) carte_->Debranche(true);
  };
  Attend("F_Fraisage", "Run_liaison");
  EXPECT_EQ(Cmd_GO(X(2, 9, 1), false), IssueEssai::Arretee);
  EXPECT_EQ(enCours_, (std::vector<bool>{true, false}));
  EXPECT_FALSE(TestEnCours);
}

TEST_F(EssaiVitesse, UnpluggedBetweenTwoPassesEndsWithAText) {
  Vue_Essai.Passee = [this](double) { carte_->Debranche(true); };
  Attend("F_ParamMachine", "lib014");
  EXPECT_EQ(Cmd_GO(X(2, 9, 1), false), IssueEssai::Arretee);
  EXPECT_EQ(vitesses_.size(), 2U);
}

TEST_F(EssaiVitesse, ShowsThePlaceBehindEachPass) {
  Cmd_GO(X(2, 3, 1), false);
  ASSERT_GE(Vu().positions.size(), 2U);
  EXPECT_EQ(Vu().positions.back(), (std::array<double, 3>{0, 0, 0}));
}

// What the user does with it: raise the speed until the machine no longer stands where the counters say. The
// machine knows when an edge comes to one tick: at 20 steps a millimetre and 100,000 ticks a second that is less
// than half an increment.
TEST_F(EssaiVitesse, FindsTheFreeSpeedOfAMachineToOneIncrement) {
  constexpr int PasParMm = 20;
  constexpr double Increment = 0.5;  // mm/s
  std::mt19937 alea(std::random_device{}());
  for (std::size_t axe = 0; axe < 3; ++axe) {
    Regle("TB_SAV_" + std::to_string(3 + axe), std::to_string(PasParMm));
    Regle("Combo_SAV_11", "9");
    Regle("Sld_SAV_0", "1");
    Branche(true);
    const double libre = std::uniform_real_distribution<double>(6, 40)(alea);  // mm/s
    Modele(axe, {libre * PasParMm, 0, 0});
    double derniere = 0;
    bool perdu = false;
    std::size_t vus = 0;
    Vue_Essai.Passee = [&](double v) {
      // Steps lost there and back may cancel: the counters turn round at 30 mm, and so has the machine.
      const std::vector<Axes3> chemin = carte_->Parcours();
      std::int64_t bout = 0;
      for (; vus < chemin.size(); ++vus) bout = std::max(bout, chemin[vus][axe]);
      perdu = perdu || bout != std::int64_t{30} * PasParMm || carte_->Lieu() != Compte();
      if (!perdu) derniere = v;
    };
    ReglageEssai r{5, 45, Increment, 30, {}};
    r.axes[axe] = true;
    EXPECT_EQ(Cmd_GO(r, false), IssueEssai::Terminee);
    EXPECT_TRUE(perdu) << libre;
    EXPECT_LE(std::fabs(derniere - libre), Increment)
        << "axis " << axe << ", free " << libre << ", found " << derniere;
  }
}

TEST(ChampsEssaiGardes, ComeBackInTheUsersMark) {
  Svc.MarqueDecimale = ',';
  EcritChampsEssai({"5", "10", "0,25", "30,5", {true, false, true}});
  OublieCles();
  EXPECT_EQ(LitChampsEssai(), (ChampsEssai{"5", "10", "0,25", "30,5", {true, false, true}}));
  const std::string ini = LitFichierEssai(Dossier() + "/OVELIN.ini");
  for (const char* ligne : {"F_ParamMachine_VitDep=5", "F_ParamMachine_VitArr=10", "F_ParamMachine_Incr=0.25",
                            "F_ParamMachine_Depl=30.5", "F_ParamMachine_Axe0=1", "F_ParamMachine_Axe1=0"}) {
    EXPECT_NE(ini.find(ligne), std::string::npos) << ligne;
  }
}

TEST(ChampsEssaiGardes, AreEmptyBeforeTheFirstTest) { EXPECT_EQ(LitChampsEssai(), ChampsEssai{}); }

}  // namespace
}  // namespace essai
