// Programs run on the virtual board, as fast as it can.
#include <cmath>
#include <random>

#include "closed/CarteVirtuelle.h"
#include "controller/ClsCdeZENIK.h"
#include "core/Cles.h"
#include "core/ReglagesCourants.h"
#include "core/RunCourant.h"
#include "gcode/Module_FraisageGcode.h"
#include "gcode/Module_Gcode.h"
#include "machine/TableCourante.h"
#include "tests/support/Support.h"

namespace essai {
namespace {

using namespace ovelin;

class FraisageGcode : public testing::Test {
 protected:
  FraisageGcode() {
    // Without these two keys the board's table never agrees with that of the settings, and a question comes.
    EcrireCleSection("table_" + TableDefaut, "TB_SAV_30", "5");
    EcrireCleSection("table_" + TableDefaut, "TB_SAV_31", "5");
    Svc.Horloge = [this] { return temps_; };
    Svc.Attend = [this](double s) { temps_ += s; };
    Branche();
    CdeZENIK->ChargeParametres();
  }
  ~FraisageGcode() override { CdeZENIK = std::make_unique<ClsCdeZENIK>(); }

  void Branche() {
    zenikcom::ConditionsCarte conditions;
    conditions.rapide = true;
    carte_ = zenikcom::CreeCarteVirtuelle(std::move(conditions));
    CdeZENIK = std::make_unique<ClsCdeZENIK>(zenikcom::LiaisonVirtuelle(carte_));
  }
  IssueGcode Lance(const std::string& texte) {
    programme_ = Programme(texte);
    mesure_ = MesureDe(programme_, {}, false);
    return LanceGcode(programme_, mesure_);
  }
  // Where the machine stands, mm.
  [[nodiscard]] std::array<double, 3> Place() const {
    const zenikcom::Axes3 pas = carte_->Lieu();
    return {static_cast<double>(pas[0]) * CdeZENIK->MmParPasX(),
            static_cast<double>(pas[1]) * CdeZENIK->MmParPasY(),
            static_cast<double>(pas[2]) * CdeZENIK->MmParPasZ()};
  }
  void AttendPlace(double x, double y, double z) const {
    const auto p = Place();
    EXPECT_NEAR(p[0], x, CdeZENIK->MmParPasX() / 2 + 1e-9);
    EXPECT_NEAR(p[1], y, CdeZENIK->MmParPasY() / 2 + 1e-9);
    EXPECT_NEAR(p[2], z, CdeZENIK->MmParPasZ() / 2 + 1e-9);
  }

  double temps_ = 0;  // s; it passes when somebody waits
  std::shared_ptr<zenikcom::CarteVirtuelle> carte_;
  Programme programme_;
  MesureProgramme mesure_;
};

TEST_F(FraisageGcode, IsRefusedWithoutABoard) {
  CdeZENIK = std::make_unique<ClsCdeZENIK>();
  Attend("F_Gcode", "lib001");
  EXPECT_EQ(Lance("F60\nX1\n"), IssueGcode::Refusee);
  EXPECT_EQ(Boites()[0].titre, "OVELIN");
  EXPECT_EQ(Boites()[0].icone, Icone::Critique);
}

TEST_F(FraisageGcode, IsRefusedWithAMoveThatHasNoSpeed) {
  Attend("F_Gcode", "lib017");
  EXPECT_EQ(Lance("G01 X1\n"), IssueGcode::Refusee);
  EXPECT_EQ(Boites()[0].ligne, 1);
  EXPECT_EQ(carte_->Compteurs().acceptes, 0);
}

TEST_F(FraisageGcode, AsksOnceAboutLinesThatWillBeSkipped) {
  Attend("F_Gcode", "lib020", Reponse::Non);
  EXPECT_EQ(Lance("F60\nX1\nG02 X5\nx\n"), IssueGcode::Refusee);
  EXPECT_NE(Boites()[0].texte.find("\n2\n3: G02 X5"), std::string::npos) << Boites()[0].texte;
  Attend("F_Gcode", "lib020", Reponse::Oui);
  EXPECT_EQ(Lance("F60\nX1\nG02 X5\nx\n"), IssueGcode::Terminee);
  AttendPlace(1, 0, 0);
}

TEST_F(FraisageGcode, EndsWhereTheProgramEnds) {
  for (const int n : {1, 2, 6, 7, 8, 70}) {
    Branche();
    CdeZENIK->ChargeParametres();
    std::string texte = "F600\n";
    for (int i = 1; i <= n; ++i) texte += "G01 X" + std::to_string(i) + " Y" + std::to_string(i % 3) + "\n";
    EXPECT_EQ(Lance(texte), IssueGcode::Terminee) << n;
    AttendPlace(n, n % 3, 0);
    EXPECT_EQ(carte_->Compteurs().ticksFamine, 0) << n;
  }
}

TEST_F(FraisageGcode, AnEmptyProgramOpensAndClosesTheJob) {
  EXPECT_EQ(Lance(""), IssueGcode::Terminee);
  EXPECT_EQ(carte_->Lieu(), (zenikcom::Axes3{}));
  EXPECT_EQ(Bips(), 1);
}

TEST_F(FraisageGcode, RoundingNeverAddsUp) {
  const double pas = CdeZENIK->MmParPasX();
  std::string texte = "F600\nG91\n";
  for (int i = 0; i < 500; ++i) texte += "X" + std::to_string(pas * 0.3) + " Y" + std::to_string(pas * 0.7) + "\n";
  EXPECT_EQ(Lance(texte), IssueGcode::Terminee);
  AttendPlace(500 * std::stod(std::to_string(pas * 0.3)), 500 * std::stod(std::to_string(pas * 0.7)), 0);
}

TEST_F(FraisageGcode, AfterG92TheRestOfTheRoundingIsNotLost) {
  const double pas = CdeZENIK->MmParPasX();
  std::string texte = "F600\n";
  for (int i = 0; i < 200; ++i) texte += "X" + std::to_string(pas * 1.4) + "\nG92\n";
  EXPECT_EQ(Lance(texte), IssueGcode::Terminee);
  AttendPlace(200 * std::stod(std::to_string(pas * 1.4)), 0, 0);
}

TEST_F(FraisageGcode, EachMoveTakesItsNumberAndItsLine) {
  std::vector<std::pair<std::size_t, std::uint32_t>> vus;
  Vue_Gcode.Mouvement = [&](std::size_t ligne, std::uint32_t numero) { vus.emplace_back(ligne, numero); };
  Lance("(note)\nF600\nX1\nX1\nY2\n");
  EXPECT_EQ(vus, (std::vector<std::pair<std::size_t, std::uint32_t>>{{2, 1}, {3, 2}, {4, 3}}))
      << "a move of no step counts too";
}

TEST_F(FraisageGcode, MachineWordsSwitchSpindleAndOutput) {
  std::vector<zenikcom::SortiesCarte> vues;
  Vue_Gcode.Mouvement = [&](std::size_t, std::uint32_t) { vues.push_back(carte_->Sorties()); };
  Lance("F600\nX1\nM03\nX2\nM05\nX3\nM07\nX4\nM09\nX5\n");
  ASSERT_EQ(vues.size(), 5U);
  EXPECT_TRUE(vues[0].auxiliaire) << "on from the beginning";
  EXPECT_TRUE(vues[0].moteur);
  EXPECT_FALSE(vues[0].broche);
  EXPECT_TRUE(vues[1].broche);
  EXPECT_EQ(vues[1].pwm, 100);
  EXPECT_FALSE(vues[2].broche);
  EXPECT_FALSE(vues[2].auxiliaire);
  EXPECT_TRUE(vues[3].auxiliaire);
  EXPECT_FALSE(vues[4].auxiliaire);
  AttendPlace(5, 0, 0);
}

TEST_F(FraisageGcode, M05WaitsUntilEverythingSentIsDone) {
  zenikcom::Axes3 lors{};
  Vue_Gcode.Mouvement = [&](std::size_t ligne, std::uint32_t) {
    if (ligne == 12) lors = carte_->Lieu();
  };
  std::string texte = "F600\n";
  for (int i = 1; i <= 10; ++i) texte += "X" + std::to_string(i) + "\n";
  Lance(texte + "M05\nX11\n");
  EXPECT_GE(static_cast<double>(lors[0]) * CdeZENIK->MmParPasX(), 10 - 1e-9);
}

TEST_F(FraisageGcode, AToolChangeWaitsAndGoesOnWithTheNextWord) {
  int attentes = 0;
  bool pendant = false;
  Vue_Gcode.AttendOutil = [&](bool attend) {
    pendant = attend;
    if (attend) ++attentes;
  };
  int tours = 0;
  Svc.LaisseEvenements = [&](Evenements) {
    if (!pendant) return;
    AttendPlace(10, 0, 0);
    EXPECT_EQ(Pause, Vrai);
    if (++tours == 3) ReprendOutil();
  };
  EXPECT_EQ(Lance("F600\nX10\nM06 X20\nX30\n"), IssueGcode::Terminee);
  EXPECT_EQ(attentes, 1);
  EXPECT_EQ(tours, 3);
  AttendPlace(30, 0, 0);
}

TEST_F(FraisageGcode, AStopEndsTheWaitForTheTool) {
  bool pendant = false;
  Vue_Gcode.AttendOutil = [&](bool attend) { pendant = attend; };
  Svc.LaisseEvenements = [&](Evenements) {
    if (pendant) StopDemande = Vrai;
  };
  EXPECT_EQ(Lance("F600\nX10\nM06\nX30\n"), IssueGcode::Arretee);
  EXPECT_EQ(Pause, Faux);
  AttendPlace(10, 0, 0);
}

TEST_F(FraisageGcode, WithoutAWindowTheToolChangeIsAQuestion) {
  Attend("F_Gcode", "lib022", Reponse::Ok);
  EXPECT_EQ(Lance("F600\nX10\nM06\nX30\n"), IssueGcode::Terminee);
  AttendPlace(30, 0, 0);
  Attend("F_Gcode", "lib022", Reponse::Annuler);
  EXPECT_EQ(Lance("F600\nX10\nM06\nX30\n"), IssueGcode::Arretee);
}

TEST_F(FraisageGcode, PWaitsByTheClockAndAStopEndsIt) {
  const double debut = Svc.Horloge();
  EXPECT_EQ(Lance("F600\nX1\nP2.5\nX2\n"), IssueGcode::Terminee);
  EXPECT_GE(Svc.Horloge() - debut, 2.5);
  int tours = 0;
  Svc.LaisseEvenements = [&](Evenements) {
    if (++tours == 5) StopDemande = Vrai;
  };
  const double second = Svc.Horloge();
  EXPECT_EQ(Lance("F600\nX1\nP1000\nX2\n"), IssueGcode::Arretee);
  EXPECT_LT(Svc.Horloge() - second, 900);
}

TEST_F(FraisageGcode, AStopStandsWithSpindleAndOutputOff) {
  Vue_Gcode.Mouvement = [&](std::size_t, std::uint32_t numero) {
    if (numero == 20) StopDemande = Vrai;
  };
  std::string texte = "F600\nM03\n";
  for (int i = 1; i <= 100; ++i) texte += "X" + std::to_string(i) + "\n";
  EXPECT_EQ(Lance(texte), IssueGcode::Arretee);
  EXPECT_FALSE(carte_->Sorties().broche);
  EXPECT_FALSE(carte_->Sorties().auxiliaire);
  const auto etat = carte_->Compteurs().etat;
  EXPECT_TRUE(etat == zenikcom::EtatCarte::Arretee || etat == zenikcom::EtatCarte::Fini ||
              etat == zenikcom::EtatCarte::Repos);
  EXPECT_EQ(CdeZENIK->PasX, carte_->Lieu()[0]) << "the place shown is that of the machine, to the step";
  EXPECT_TRUE(ResteGcode());
  EXPECT_LE(Place()[0], 20.01);
}

TEST_F(FraisageGcode, AResumeGoesOverClearanceAndEndsWhereTheProgramEnds) {
  HautDeg = 7;
  Vue_Gcode.Mouvement = [&](std::size_t, std::uint32_t numero) {
    if (numero == 20) StopDemande = Vrai;
  };
  std::string texte = "F600\nM03\nG00 Z3\nX5\nG01 Z-1\n";
  for (int i = 1; i <= 60; ++i) texte += "X" + std::to_string(5 + i) + " Y" + std::to_string(i % 2) + "\n";
  ASSERT_EQ(Lance(texte), IssueGcode::Arretee);
  ASSERT_TRUE(ResteGcode());
  Vue_Gcode.Mouvement = {};
  Attend("F_Gcode", "lib021", Reponse::Oui);
  const std::size_t avant = carte_->Parcours().size();
  EXPECT_EQ(ReprendGcode(programme_, mesure_), IssueGcode::Terminee);
  AttendPlace(65, 0, -1);
  EXPECT_TRUE(carte_->Sorties().broche);
  // up first, then across, then down
  const auto chemin = carte_->Parcours();
  ASSERT_GT(chemin.size(), avant + 2);
  const auto haut = static_cast<std::int64_t>(std::nearbyint(7 / CdeZENIK->MmParPasZ()));
  const zenikcom::Axes3& leve = chemin[avant];
  EXPECT_EQ(leve[2], haut);
  EXPECT_EQ(leve[0], chemin[avant - 1][0]);
  EXPECT_FALSE(ResteGcode());
}

TEST_F(FraisageGcode, AResumeIsAsked) {
  Vue_Gcode.Mouvement = [&](std::size_t, std::uint32_t numero) {
    if (numero == 3) StopDemande = Vrai;
  };
  ASSERT_EQ(Lance("F600\nX10\nX20\nX30\nX40\nX50\nX60\nX70\nX80\n"), IssueGcode::Arretee);
  Attend("F_Gcode", "lib021", Reponse::Non);
  EXPECT_EQ(ReprendGcode(programme_, mesure_), IssueGcode::Refusee);
  EXPECT_TRUE(ResteGcode());
  OublieGcode();
  EXPECT_EQ(ReprendGcode(programme_, mesure_), IssueGcode::Refusee);
}

TEST_F(FraisageGcode, ABoardThatGoesAwayEndsTheRunAndIsTold) {
  Vue_Gcode.Mouvement = [&](std::size_t, std::uint32_t numero) {
    if (numero == 10) carte_->Debranche(true);
  };
  std::string texte = "F600\n";
  for (int i = 1; i <= 100; ++i) texte += "X" + std::to_string(i) + "\n";
  Attend("F_Gcode", "lib001");
  EXPECT_EQ(Lance(texte), IssueGcode::Arretee);
  EXPECT_FALSE(ResteGcode());
}

TEST_F(FraisageGcode, WhatTheOthersKnowOfTheRunIsGivenBack) {
  Lance("F600\nX1\n");
  EXPECT_EQ(Vu().stops, (std::vector<bool>{true, false}));
  EXPECT_EQ(Vu().veilles, (std::vector<bool>{true, false}));
  EXPECT_EQ(Vu().pilotage, (std::vector{DemandePilotage::Reduit, DemandePilotage::SeTait, DemandePilotage::Retablit,
                                        DemandePilotage::Interroge}));
  EXPECT_FALSE(OperationCarte);
}

TEST_F(FraisageGcode, ATableThatTheBoardDoesNotFindIsNoDefault) {
  TableDefaut = "NEUFLETTR";  // nine letters: never found
  const std::string avant = LireCleIni("TableDefaut", "");
  Lance("F600\nX1\n");
  EXPECT_EQ(LireCleIni("TableDefaut", ""), "NEUFLETTR");
  EXPECT_LE(CdeZENIK->TableDefautLire(), 3);
}

// Every exchange of a small program fails once, in each way.
TEST_F(FraisageGcode, EveryFaultAtEveryExchangeEndsTheRun) {
  std::string texte = "F600\nM03\n";
  for (int i = 1; i <= 9; ++i) texte += "X" + std::to_string(i) + "\n";
  texte += "M05\nX0\n";
  const Programme programme(texte);
  const MesureProgramme mesure = MesureDe(programme, {}, false);
  LanceGcode(programme, mesure);
  const std::int64_t echanges = carte_->Compteurs().echanges;
  ASSERT_GT(echanges, 20);
  for (const zenikcom::NomFaute& faute : zenikcom::NomsFautes) {
    for (std::int64_t n = 1; n <= echanges; n += 3) {
      SCOPED_TRACE(std::string(faute.nom) + " at " + std::to_string(n));
      Branche();
      CdeZENIK->ChargeParametres();
      carte_->Fautes({{n, faute.genre, 0}});
      Svc.Montre = [](const BoiteMessage& boite) {
        return boite.boutons == Boutons::OuiNon ? Reponse::Oui : Reponse::Ok;
      };
      const double debut = Svc.Horloge();
      const IssueGcode issue = LanceGcode(programme, mesure);
      EXPECT_LT(Svc.Horloge() - debut, 120) << "no wait outlives the link";
      EXPECT_FALSE(OperationCarte);
      if (issue == IssueGcode::Terminee) AttendPlace(0, 0, 0);
      OublieGcode();
    }
  }
}

}  // namespace
}  // namespace essai
