#include <random>

#include "machine/essais/Module_PasPerdus.h"
#include "machine/essais/TableOuverte.h"
#include "tests/unit/machine/essais/BancEssai.h"

namespace essai {
namespace {

using zenikcom::Axes3;

class PasPerdus : public BancEssai {
 protected:
  IssuePas Depl(int index, int axe = 0, const std::string& vitesse = "2") {
    return Cmd_Depl(index, axe, vitesse, compteur_);
  }
  static std::string Cle(const std::string& cle) {
    OublieCles();
    return LireCleSection("table_Essai", cle, "");
  }
  std::int32_t compteur_ = 0;
};

TEST_F(PasPerdus, OneStepOneWayAndOneTheOther) {
  EXPECT_EQ(Depl(0), IssuePas::Faite);
  EXPECT_EQ(carte_->Lieu(), (Axes3{-1, 0, 0}));
  EXPECT_EQ(Depl(1), IssuePas::Faite);
  EXPECT_EQ(Depl(1), IssuePas::Faite);
  EXPECT_EQ(carte_->Lieu(), (Axes3{1, 0, 0}));
  EXPECT_EQ(compteur_, 2);
}

TEST_F(PasPerdus, TheFirstWaySetsTheCounterToZero) {
  EXPECT_EQ(Depl(0), IssuePas::Faite);
  EXPECT_EQ(compteur_, 0);
  compteur_ = 7;
  EXPECT_EQ(Depl(0), IssuePas::Faite);
  EXPECT_EQ(compteur_, 0);
}

TEST_F(PasPerdus, MovesTheChosenAxis) {
  Depl(1, 1);
  Depl(1, 2);
  EXPECT_EQ(carte_->Lieu(), (Axes3{0, 1, 1}));
}

TEST_F(PasPerdus, AStepIsAWholeOneOfTheMotor) {
  Regle("Combo_SAV_12", "3");
  Branche(true);
  Depl(1);
  EXPECT_EQ(carte_->Lieu(), (Axes3{8, 0, 0})) << "eight parts of a step";
}

TEST_F(PasPerdus, HoldsTheMotorsAndLeavesTheSpindle) {
  Depl(1);
  EXPECT_TRUE(carte_->Sorties().moteur);
  EXPECT_FALSE(carte_->Sorties().broche);
}

TEST_F(PasPerdus, AnEmptySpeedOfTheTableDoesNothingAtAll) {
  TableOuverte.Lit = [](const ChampMachine& c) -> std::string {
    return c.index == ChampsMachine::VitesseSansRampeZ.index ? "" : "1";
  };
  const std::int64_t echanges = carte_->Compteurs().echanges;
  compteur_ = 3;
  EXPECT_EQ(Depl(1), IssuePas::Refusee);
  EXPECT_EQ(compteur_, 3) << "checked before it counts";
  EXPECT_EQ(carte_->Compteurs().echanges, echanges);
}

TEST_F(PasPerdus, ChecksBeforeItCounts) {
  compteur_ = 3;
  Attend("F_ParamMachine", "lib011");
  EXPECT_EQ(Depl(0, 0, "0"), IssuePas::Refusee);
  for (const char* vitesse : {"", "-3", "-1e300"}) {
    Attend("F_ParamMachine", "lib011");
    EXPECT_EQ(Depl(1, 0, vitesse), IssuePas::Refusee) << vitesse;
  }
  TableOuverte.Lit = [](const ChampMachine& c) -> std::string { return c.index == 3 ? "0" : "1"; };
  Attend("F_PasPerdus", "lib002");
  EXPECT_EQ(Depl(1), IssuePas::Refusee);
  CdeZENIK = std::make_unique<ClsCdeZENIK>();
  Attend("F_ParamMachine", "lib009");
  TableOuverte.Lit = nullptr;
  EXPECT_EQ(Depl(1), IssuePas::Refusee);
  EXPECT_EQ(compteur_, 3);
}

TEST_F(PasPerdus, WaitsUntilTheAxisStands) {
  Branche(false);
  const double debut = heure_;
  EXPECT_EQ(Depl(1, 0, "0.02"), IssuePas::Faite);
  EXPECT_GE(heure_ - debut, 0.5) << "0.01 mm at 0.02 mm/s";
  EXPECT_EQ(carte_->Lieu(), (Axes3{1, 0, 0}));
  EXPECT_FALSE(TestEnCours);
}

TEST_F(PasPerdus, TheWaitEndsWithTheLink) {
  Branche(false);
  bool pendant = false;
  aChaqueTour_ = [&] {
    pendant = pendant || TestEnCours;
    carte_->Debranche(true);
  };
  Attend("F_ParamMachine", "lib014");
  EXPECT_EQ(Depl(1, 0, "0.02"), IssuePas::Interrompue);
  EXPECT_TRUE(pendant);
  EXPECT_FALSE(TestEnCours);
}

TEST_F(PasPerdus, UnpluggedBeforeTheStepSaysSo) {
  carte_->Fautes({{carte_->Compteurs().echanges + 2, zenikcom::GenreFaute::Debranche, 0}});
  Attend("F_ParamMachine", "lib014");
  EXPECT_EQ(Depl(1), IssuePas::Interrompue);
}

TEST_F(PasPerdus, AStopEndsTheWait) {
  Branche(false);
  aChaqueTour_ = [] { StopDemande = Vrai; };
  EXPECT_EQ(Depl(1, 0, "0.02"), IssuePas::Interrompue);
  EXPECT_LT(heure_, 0.4);
  EXPECT_TRUE(PeutFermerPasPerdus());
}

TEST_F(PasPerdus, ASecondPressDuringTheStepBeeps) {
  Branche(false);
  int tours = 0;
  aChaqueTour_ = [&] {
    if (++tours == 1) {
      EXPECT_EQ(Depl(1), IssuePas::Refusee);
      EXPECT_FALSE(PeutFermerPasPerdus());
    }
  };
  EXPECT_EQ(Depl(1, 0, "0.05"), IssuePas::Faite);
  EXPECT_EQ(Bips(), 1);
  EXPECT_EQ(compteur_, 1);
}

TEST_F(PasPerdus, AHugeSpeedIsWhatTheTableLeavesOfIt) {
  EXPECT_EQ(Depl(1, 0, "1000000"), IssuePas::Faite);
  EXPECT_EQ(carte_->Lieu(), (Axes3{1, 0, 0}));
  for (const char* vitesse : {"1000001", "1e300"}) {
    Attend("F_ParamMachine", "lib013");
    EXPECT_EQ(Depl(1, 0, vitesse), IssuePas::Refusee) << vitesse;
  }
  EXPECT_EQ(compteur_, 1);
}

TEST_F(PasPerdus, SpeedsHaveTwoDecimals) {
  EXPECT_EQ(VitessePasPerdus("1.239"), "1.24");
  EXPECT_EQ(VitessePasPerdus("10"), "10");
  EXPECT_EQ(VitessePasPerdus("9.99"), "9.99");
  EXPECT_EQ(VitessePasPerdus("-"), "-");
  Svc.MarqueDecimale = ',';
  EXPECT_EQ(VitessePasPerdus("1.5"), "1,5");
}

TEST_F(PasPerdus, TheCounterGoesIntoTheTable) {
  MemorisePasPerdus(1, 12);
  EXPECT_EQ(Cle("TB_SAV_10"), "12");
  std::string cle, texte;
  TableOuverte.Pose = [&](const ChampMachine& c, const std::string& t) {
    cle = c.Cle();
    texte = t;
  };
  MemorisePasPerdus(2, 5);
  EXPECT_EQ(cle + "=" + texte, "TB_SAV_11=5") << "into the window while it is open";
  EXPECT_EQ(Cle("TB_SAV_11"), "");
}

// As its user goes about it: back until the dial moves, then forth; the steps that have left the dial alone are the
// play. So many steps take it up: the next one moves the dial.
TEST_F(PasPerdus, MeasuresThePlayOfAMachineExactly) {
  std::mt19937 alea(std::random_device{}());
  for (int modele = 0; modele < 3; ++modele) {
    Branche(true);
    const auto axe = static_cast<std::size_t>(modele);
    const std::int64_t jeu = std::uniform_int_distribution<int>(1, 40)(alea);
    Modele(axe, {0, 0, jeu});
    const auto jusquAuMouvement = [&](int index) {
      const std::int64_t avant = carte_->Lieu()[axe];
      std::int32_t immobiles = 0;
      while (Depl(index, modele) == IssuePas::Faite && carte_->Lieu()[axe] == avant) immobiles = compteur_;
      return immobiles;
    };
    Depl(1, modele);  // the dial is somewhere
    jusquAuMouvement(0);
    EXPECT_EQ(jusquAuMouvement(1), jeu) << "axis " << axe;
  }
}

}  // namespace
}  // namespace essai
