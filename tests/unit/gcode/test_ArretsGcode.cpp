// A run that is stopped in each of its states, and exchanges with the board that fail, each one once.
#include <string>

#include "tests/unit/gcode/FraisageEssai.h"

namespace essai {
namespace {

// Every word of the machine, a wait, a change of the tool, more moves than the board holds.
const std::string Tout = "F600\nM03\nG00 Z5\nG01 Z-1\n" + Moves(80) +
                         "M05\nP0.02\nM07\nX60\nM06\nM03\nX20 Y3\nM09\n" + Moves(8, 21) + "X0 Y0\n";

class ArretsGcode : public FraisageGcode {
 protected:
  void Lance1() {
    Branche();
    CdeZENIK->ChargeParametres();
    issue_ = Lance(Tout);
  }
  // What holds behind each stop, and that a resume ends where the program ends.
  void AttendArret() {
    ASSERT_EQ(issue_, IssueGcode::Arretee);
    EXPECT_FALSE(carte_->Sorties().broche);
    EXPECT_FALSE(carte_->Sorties().auxiliaire);
    EXPECT_EQ(Pause, Faux);
    EXPECT_FALSE(OperationCarte);
    const zenikcom::Axes3 lieu = carte_->Lieu();
    EXPECT_EQ((zenikcom::Axes3{CdeZENIK->PasX, CdeZENIK->PasY, CdeZENIK->PasZ}), lieu);
    ASSERT_TRUE(ResteGcode());
    Attend("F_Gcode", "lib021", Reponse::Oui);
    EXPECT_EQ(ReprendGcode(programme_, mesure_), IssueGcode::Terminee);
    AttendPlace(0, 0, -1);
    EXPECT_FALSE(carte_->Sorties().auxiliaire) << "M09 is the last word";
    EXPECT_TRUE(carte_->Sorties().broche) << "M03 has the last word of the spindle";
  }
  // The change of the tool: whether somebody waits, and one who takes it at once.
  void OutilPrisAussitot() {
    Vue_Gcode.AttendOutil = [](bool attend) {
      if (attend) ReprendOutil();
    };
  }

  IssueGcode issue_ = IssueGcode::Refusee;
};

TEST_F(ArretsGcode, AtEachMoveTheMachineStandsAndAResumeEndsTheProgram) {
  const MesureProgramme m = MesureDe(Programme(Tout), {}, false);
  for (std::uint32_t n = 1; n < m.mouvements; n += n < 4 || n > 80 ? 1 : 9) {
    SCOPED_TRACE(n);
    OutilPrisAussitot();
    Vue_Gcode.Mouvement = [&](std::size_t, std::uint32_t numero) {
      if (numero == n && !ResteGcode()) StopDemande = Vrai;
    };
    Lance1();
    Vue_Gcode.Mouvement = {};
    AttendArret();
  }
}

// Pending events run where the run waits: for room on the board, for its last step, for the clock, for the tool.
TEST_F(ArretsGcode, InEachWaitTheMachineStandsAndAResumeEndsTheProgram) {
  int tours = 0;
  Svc.LaisseEvenements = [&](Evenements) { ++tours; };
  OutilPrisAussitot();
  Lance1();
  ASSERT_EQ(issue_, IssueGcode::Terminee);
  const int tous = tours;
  ASSERT_GT(tous, 20);
  for (int n = 1; n <= tous; ++n) {
    SCOPED_TRACE(n);
    tours = 0;
    Svc.LaisseEvenements = [&](Evenements) {
      if (++tours == n) StopDemande = Vrai;
    };
    Lance1();
    Svc.LaisseEvenements = [](Evenements) {};
    if (issue_ == IssueGcode::Terminee) {
      EXPECT_GT(n, tous - 3) << "the last step was done when the stop came";
      continue;
    }
    AttendArret();
  }
}

TEST_F(ArretsGcode, BeforeTheFirstMoveNothingHasMoved) {
  Svc.LaisseEvenements = [&](Evenements) { StopDemande = Vrai; };
  EXPECT_EQ(Lance("F600\nP1\n" + Moves(3)), IssueGcode::Arretee);
  EXPECT_EQ(carte_->Lieu(), (zenikcom::Axes3{}));
}

TEST_F(ArretsGcode, APauseLastsUntilItIsTakenBackAndAStopEndsIt) {
  for (const bool arret : {false, true}) {
    Branche();
    CdeZENIK->ChargeParametres();
    int tours = 0;
    Vue_Gcode.Mouvement = [&](std::size_t, std::uint32_t numero) {
      if (numero == 2) Pause = Vrai;
    };
    Svc.LaisseEvenements = [&](Evenements) {
      if (Pause == Faux || StopDemande != Faux || ++tours < 5) return;
      if (arret) {
        StopDemande = Vrai;
      } else {
        Pause = Faux;
      }
    };
    EXPECT_EQ(Lance("F600\n" + Moves(4)), arret ? IssueGcode::Arretee : IssueGcode::Terminee);
    EXPECT_EQ(tours, 5);
    if (!arret) AttendPlace(4, 0, 0);
    Pause = Faux;
  }
}

TEST_F(ArretsGcode, WhatTheProgramClosesTheRunEndsWith) {
  Svc.LaisseEvenements = [&](Evenements) { FinProgramme = true; };
  EXPECT_EQ(Lance("F600\nP1\n" + Moves(3)), IssueGcode::Arretee);
  EXPECT_FALSE(ResteGcode());
}

TEST_F(ArretsGcode, ALimitSwitchEndsTheRunWithoutAKeypadToo) {
  EcrireCleSection("table_" + TableDefaut, "CB_SAV_17", "0");
  for (const std::uint32_t n : {2U, 75U, 80U}) {
    Branche();
    CdeZENIK->ChargeParametres();
    Vue_Gcode.Mouvement = [&](std::size_t, std::uint32_t numero) {
      if (numero == n) carte_->FinDeCourse(true);
    };
    EXPECT_EQ(Lance("F600\nM03\n" + Moves(80)), IssueGcode::Arretee) << n;
    EXPECT_FALSE(carte_->Sorties().broche) << n;
    EXPECT_LT(Place()[0], 79.5) << n;
    EXPECT_EQ(CdeZENIK->PasX, carte_->Lieu()[0]) << n;
  }
}

// Every exchange of a program fails once, in each way.
TEST_F(ArretsGcode, EveryFaultAtEveryExchangeEndsTheRun) {
  const Programme programme("F600\nM03\n" + Moves(9) + "M05\nP0.01\nM06\nM07\nX3 Y1\nM09\nX0 Y0\n");
  const MesureProgramme mesure = MesureDe(programme, {}, false);
  OutilPrisAussitot();
  Branche();
  CdeZENIK->ChargeParametres();
  ASSERT_EQ(LanceGcode(programme, mesure), IssueGcode::Terminee);
  const std::int64_t echanges = carte_->Compteurs().echanges;
  ASSERT_GT(echanges, 40);
  Svc.Montre = [](const BoiteMessage& boite) {
    return boite.boutons == Boutons::OuiNon ? Reponse::Oui : Reponse::Ok;
  };
  for (const zenikcom::NomFaute& faute : zenikcom::NomsFautes) {
    for (std::int64_t n = 1; n <= echanges; ++n) {
      SCOPED_TRACE(std::string(faute.nom) + " at " + std::to_string(n));
      Branche();
      CdeZENIK->ChargeParametres();
      carte_->Fautes({{n, faute.genre, 0}});
      const double debut = Svc.Horloge();
      const IssueGcode issue = LanceGcode(programme, mesure);
      EXPECT_LT(Svc.Horloge() - debut, 120) << "no wait outlives the link";
      EXPECT_FALSE(OperationCarte);
      EXPECT_FALSE(issue == IssueGcode::Arretee && carte_->Branchee() && carte_->Sorties().broche)
          << "the spindle turns behind a stop";
      if (issue == IssueGcode::Terminee) AttendPlace(0, 0, 0);
      OublieGcode();
    }
  }
}

}  // namespace
}  // namespace essai
