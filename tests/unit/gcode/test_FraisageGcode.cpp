// Programs run on the virtual board, as fast as it can.
#include <cmath>

#include "tests/unit/gcode/FraisageEssai.h"

namespace essai {
namespace {

using namespace ovelin;

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
  for (const int n : {1, 2, 6, 7, 8, 64, 65, 70}) {
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

TEST_F(FraisageGcode, OfAHundredThousandMovesNoneIsLost) {
  std::string texte = "F6000\n";
  double x = 0, y = 0;
  for (int i = 1; i <= 100'000; ++i) {
    x = std::round(1000 * (50 + 40 * std::cos(i * 0.01))) / 1000;
    y = std::round(1000 * (50 + 40 * std::sin(i * 0.01))) / 1000;
    texte += "X" + std::to_string(x) + " Y" + std::to_string(y) + "\n";
  }
  std::uint32_t moves = 0;
  Vue_Gcode.Mouvement = [&](std::size_t, std::uint32_t numero) { moves = numero; };
  EXPECT_EQ(Lance(texte), IssueGcode::Terminee);
  EXPECT_EQ(moves, 100'000U);
  AttendPlace(x, y, 0);
  const double rayon = 40 + 2 * CdeZENIK->MmParPasX();
  for (const zenikcom::Axes3& p : carte_->Parcours()) {
    const double r = std::hypot(static_cast<double>(p[0]) * CdeZENIK->MmParPasX() - 50,
                                static_cast<double>(p[1]) * CdeZENIK->MmParPasY() - 50);
    if (p == zenikcom::Axes3{}) continue;  // where it began
    ASSERT_LT(r, rayon);
    ASSERT_GT(r, 40 - 2 * CdeZENIK->MmParPasX());
  }
}

TEST_F(FraisageGcode, AMoveOfNoStepIsNotSent) {
  std::int64_t recus = 0;
  Vue_Gcode.Mouvement = [&](std::size_t, std::uint32_t) { recus = carte_->Compteurs().acceptes; };
  Lance("F600\nX1\nX1\nG01\nX1.001\nX2\n");
  EXPECT_EQ(recus, 2) << "the step is 0.005 mm";
}

TEST_F(FraisageGcode, SpeedsOfTheTableCountWithThreeDecimals) {
  Svc.MarqueDecimale = ',';
  const std::string section = "table_" + TableDefaut;
  EcrireCleSection(section, "TB_SAV_15", "12.34567");
  EcrireCleSection(section, "TB_SAV_16", "7.0004");
  EcrireCleSection(section, "TB_SAV_17", "3");
  Branche();
  Lance("F60\nX1\n");
  EXPECT_FLOAT_EQ(VitesseMaxX, 12.346F);
  EXPECT_FLOAT_EQ(VitesseMaxY, 7.0F);
  EXPECT_FLOAT_EQ(VitesseMaxZ, 3.0F);
}

TEST_F(FraisageGcode, SIsAShareOfTheSpindlesTopSpeedAndSwitchesNothing) {
  EcrireCleSection("table_" + TableDefaut, "TB_SAV_21", "24000");
  std::vector<double> parts;
  Vue_Gcode.Broche = [&](double pourcent) { parts.push_back(pourcent); };
  std::vector<zenikcom::SortiesCarte> vues;
  Vue_Gcode.Mouvement = [&](std::size_t, std::uint32_t) { vues.push_back(carte_->Sorties()); };
  Lance("F600\nS6000\nX1\nM03\nX2\nS12000 X3\nS48000\n");
  EXPECT_EQ(parts, (std::vector<double>{25, 50, 100}));
  ASSERT_EQ(vues.size(), 3U);
  EXPECT_FALSE(vues[0].broche);
  EXPECT_EQ(vues[0].pwm, 0);
  EXPECT_TRUE(vues[2].broche);
  EXPECT_EQ(vues[2].pwm, 100) << "as M03 has left it";
  parts.clear();
  EcrireCleSection("table_" + TableDefaut, "TB_SAV_21", "0");
  Lance("F600\nS6000\nX1\n");
  EXPECT_TRUE(parts.empty()) << "the top speed is not known";
}

TEST_F(FraisageGcode, BehindADrainedBoardTheCountOfSevenBeginsAgain) {
  std::vector<std::int32_t> envoyes;
  Vue_Gcode.Mouvement = [&](std::size_t, std::uint32_t) { envoyes.push_back(NbBlocsTotal); };
  Vue_Gcode.AttendOutil = [](bool attend) {
    if (attend) ReprendOutil();
  };
  Lance("F600\nX1\nX2\nX3\nM05\nX4\nX5\nM06\nX6\n");
  EXPECT_EQ(envoyes, (std::vector<std::int32_t>{1, 2, 3, 1, 2, 1}));
  AttendPlace(6, 0, 0);
}

TEST_F(FraisageGcode, BehindAToolChangeTheOutputIsAsItWas) {
  std::vector<bool> sorties;
  Vue_Gcode.Mouvement = [&](std::size_t, std::uint32_t) { sorties.push_back(carte_->Sorties().auxiliaire); };
  Vue_Gcode.AttendOutil = [](bool attend) {
    if (attend) ReprendOutil();
  };
  Lance("F600\nM09\nX1\nM06\nX2\nM07\nX3\nM06\nX4\n");
  EXPECT_EQ(sorties, (std::vector{false, false, true, true}));
}

TEST_F(FraisageGcode, AnEmptyListOfLinesThatAreAllCommentsMovesNothing) {
  EXPECT_EQ(Lance("(a)\n; b\n"), IssueGcode::Terminee);
  EXPECT_EQ(carte_->Lieu(), (zenikcom::Axes3{}));
}

}  // namespace
}  // namespace essai
