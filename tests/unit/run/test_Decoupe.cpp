// Runs started, stopped, resumed, cut off from the board.
#include "core/Textes.h"
#include "tests/unit/run/UnRun.h"

namespace essai {
namespace {

TEST_F(UnRun, EndsAtTheCountsOfThePlanAndLeavesNothingBehind) {
  ASSERT_TRUE(Lance());
  EXPECT_EQ(carte_->Compteurs().etat, zenikcom::EtatCarte::Fini);
  EXPECT_EQ(Pas(), Somme());
  EXPECT_EQ(Pas(), (Axes3{0, 0, 0})) << "every job ends at the origin";
  EXPECT_EQ(Compte(), Pas());
  EXPECT_EQ(carte_->Compteurs().acceptes, NbDeplacements);
  EXPECT_FALSE(carte_->Sorties().broche);
  EXPECT_FALSE(RunActif || OperationCarte);
  EXPECT_EQ(FraisageEnCours, Faux);
  EXPECT_TRUE(TableReprise.empty());
  EXPECT_EQ(FaceCourante(), FaceFraisage::Depart);
  EXPECT_EQ(Vu().stops, (std::vector<bool>{true, false}));
  EXPECT_EQ(Vu().veilles, (std::vector<bool>{true, false}));
  EXPECT_THAT(Vu().pilotage, testing::ElementsAre(DemandePilotage::Reduit, DemandePilotage::SeTait,
                                                  DemandePilotage::Retablit, DemandePilotage::Interroge));
  EXPECT_FALSE(Vu().battement) << "nobody makes steps of a run that is over";
}

TEST_F(UnRun, CutsAtTheDepthsOfItsPasses) {
  std::int64_t fond = 0;
  aChaqueTour_ = [&] { fond = std::min(fond, carte_->Lieu()[2]); };
  ASSERT_TRUE(Lance());
  EXPECT_NEAR(static_cast<double>(fond) * CdeZENIK->MmParPasZ(), -1, CdeZENIK->MmParPasZ());
}

TEST_F(UnRun, TakesTheTimeThatWasForeseen) {
  double prevu = 0;
  Vue_Decoupe.Debut = [&](double total) { prevu = total; };
  ASSERT_TRUE(Lance());
  EXPECT_NEAR(carte_->Compteurs().secondes, prevu, NbDeplacements * 0.002) << "one tick of its slowest level a row";
}

TEST_F(UnRun, RowsThatMoveNothingAreNoRecords) {
  AjouteTrajet(" C", 0, {{30, 3}, {31, 3}});  // at the surface: its plunge has no height
  ASSERT_TRUE(Lance());
  for (std::int32_t i = 1; i <= NbDeplacements; ++i) {
    EXPECT_TRUE(Ligne(i).dX != 0 || Ligne(i).dY != 0 || Ligne(i).dZ != 0) << i;
    EXPECT_GT(Ligne(i).Ticks, 0) << i;
  }
  EXPECT_EQ(carte_->Compteurs().commences, NbDeplacements);
}

TEST_F(UnRun, OfOneSixAndSevenRowsStartAllTheSame) {
  for (const int lignes : {1, 6, 7, 8}) {
    CdeZENIK->TableVerif();
    const Axes3 avant = Pas();
    InitDecoupe();
    for (int i = 0; i < lignes; ++i) AjoutDeplacementRelatif(0.5F, 0, Faux, 4);
    float v = 4;
    LanceDecoupe(v, AppelantPilotage);
    EXPECT_EQ(Pas()[0] - avant[0], Somme()[0]) << lignes;
    EXPECT_GT(Somme()[0], 0);
    EXPECT_EQ(carte_->Compteurs().etat, zenikcom::EtatCarte::Fini) << lignes;
  }
}

TEST_F(UnRun, OfNoRowsAtAllEndsAtOnce) {
  CdeZENIK->TableVerif();
  InitDecoupe();
  AjoutDeplacementZ(0, Faux, 4);
  float v = 4;
  const double debut = heure_;
  LanceDecoupe(v, AppelantPilotage);
  EXPECT_EQ(NbDeplacements, 0);
  EXPECT_FALSE(RunActif || OperationCarte);
  EXPECT_EQ(StopDemande, Faux);
  EXPECT_LT(heure_ - debut, 1);
  EXPECT_EQ(Pas(), (Axes3{0, 0, 0}));
}

TEST_F(UnRun, TheEstimateOpensTheJobASecondTimeAndRowOneGoes) {
  int ouvertures = 0;
  double prevu = 0;
  Vue_Decoupe.Debut = [&](double total) {
    prevu = total;
    ouvertures = static_cast<int>(carte_->Compteurs().echanges);
  };
  const auto avant = carte_->Compteurs().echanges;
  CdeZENIK->TableVerif();
  InitDecoupe();
  AjoutDeplacementRelatif(1, 0, Faux, 4);
  ASSERT_EQ(NbDeplacements, 2);
  const auto verifiee = carte_->Compteurs().echanges;
  float v = 4;
  LanceDecoupe(v, AppelantFraisage);
  EXPECT_EQ(ouvertures - verifiee, 5) << "twice the clearing and the opening, and the spindle between";
  EXPECT_GT(verifiee, avant);
  EXPECT_GT(prevu, 0);
  EXPECT_EQ(NbDeplacements, 1) << "the first row is no record";
  EXPECT_GT(Ligne(1).dX, 0);
}

TEST_F(UnRun, WindowsAreToldOfAJobAndNotOfAMoveByHand) {
  ASSERT_TRUE(Lance());
  EXPECT_EQ(Vu().runs, (std::vector<bool>{true, false}));
  InitDecoupe();
  AjoutDeplacementRelatif(1, 0, Faux, 4);
  float v = 4;
  LanceDecoupe(v, AppelantPilotage);
  EXPECT_EQ(Vu().runs.size(), 2U);
  EXPECT_EQ(Vu().stops.size(), 4U);
}

TEST_F(UnRun, AMoveByHandSilencesThePollingAloneAndLeavesTheMotorsAndNoRest) {
  CdeZENIK->MotorOnOff(true);
  InitDecoupe();
  AjoutDeplacementRelatif(10, 0, Faux, 4);
  aChaqueTour_ = [&] {
    if (carte_->Compteurs().commences >= 1) StopDemande = Vrai;
  };
  float v = 4;
  LanceDecoupe(v, AppelantPilotage);
  EXPECT_THAT(Vu().pilotage, testing::ElementsAre(DemandePilotage::SeTait, DemandePilotage::Interroge));
  EXPECT_TRUE(carte_->Sorties().moteur);
  EXPECT_TRUE(TableReprise.empty());
  EXPECT_EQ(FaceCourante(), FaceFraisage::Depart);
  EXPECT_EQ(Compte(), Pas());
  EXPECT_NE(Pas()[0], 0);
}

TEST_F(UnRun, TheEndOfAJobTakesTheCurrentOffTheMotors) {
  CdeZENIK->MotorOnOff(true);
  bool pendant = false;
  aChaqueTour_ = [&] { pendant = carte_->Sorties().moteur; };
  ASSERT_TRUE(Lance());
  EXPECT_TRUE(pendant);
  EXPECT_FALSE(carte_->Sorties().moteur);
}

TEST_F(UnRun, AnEndOfTheProgramStopsByTheRampAndTurnsEverythingOff) {
  bool pendant = false;
  aChaqueTour_ = [&] {
    if (pendant || carte_->Compteurs().commences < 10) return;
    pendant = true;
    ArreteAvantFin();
    EXPECT_EQ(carte_->Compteurs().etat, zenikcom::EtatCarte::Arretee);
    EXPECT_FALSE(carte_->Sorties().broche);
    EXPECT_EQ(Compte(), Pas()) << "not a step lost";
  };
  ASSERT_TRUE(Lance());
  EXPECT_TRUE(pendant);
  EXPECT_EQ(StopDemande, Vrai);
}

TEST_F(UnRun, StoppedAtAnyMomentAndResumedEndsAtTheCountsOfThePlan) {
  for (const Drapeau rampe : {Vrai, Faux}) {
    for (double apres = 0.05; apres < 20; apres += 1.37) {
      StoppeApres(apres, rampe);
      ASSERT_TRUE(Lance());
      ASSERT_EQ(StopDemande, Vrai) << apres;
      EXPECT_EQ(FaceCourante(), FaceFraisage::Reprise);
      EXPECT_EQ(Compte(), Pas()) << apres << " the place is known to the step";
      aChaqueTour_ = nullptr;
      ASSERT_TRUE(ReprendFraisage("3")) << apres;
      EXPECT_EQ(Pas(), (Axes3{0, 0, 0})) << apres << (rampe != Faux ? " ramp" : " at once");
      EXPECT_EQ(Compte(), Pas());
      EXPECT_EQ(FaceCourante(), FaceFraisage::Depart);
    }
  }
}

TEST_F(UnRun, AResumedRunIsStoppedAndResumedAgain) {
  StoppeApres(7, Vrai);
  ASSERT_TRUE(Lance());
  for (const double apres : {0.3, 1.1, 4.0}) {  // in the rise, on the way back, in the cut
    StoppeApres(apres, Faux);
    ASSERT_TRUE(ReprendFraisage("3"));
    ASSERT_EQ(StopDemande, Vrai);
  }
  aChaqueTour_ = nullptr;
  ASSERT_TRUE(ReprendFraisage("3"));
  EXPECT_EQ(Pas(), (Axes3{0, 0, 0}));
}

TEST_F(UnRun, TheWayBackGoesOverTheStartOfTheInterruptedRow) {
  StoppeApres(12, Vrai);
  ASSERT_TRUE(Lance());
  const Deplacement interrompue = TableReprise.at(1);
  const auto depart = DepartReprise;
  ASSERT_NE(interrompue.dX + interrompue.dY, 0) << "in a cut";
  bool passe = false;
  Vue_Decoupe.Accepte = [&](std::int32_t ligne, float&) {
    if (ligne != 1) return;
    EXPECT_GT(Ligne(1).dZ, 0) << "up first";
  };
  aChaqueTour_ = [&] {
    const Axes3 ici = carte_->Lieu();
    passe = passe || (ici[0] == depart[0] && ici[1] == depart[1] && ici[2] == depart[2]);
  };
  ASSERT_TRUE(ReprendFraisage("3"));
  EXPECT_TRUE(passe) << "down to its level at its start";
}

TEST_F(UnRun, ASpeedTypedDuringTheStopCountsForWhatIsLeft) {
  StoppeApres(12, Vrai);
  ASSERT_TRUE(Lance());
  std::vector<float> plan;
  Vue_Decoupe.Accepte = [&](std::int32_t ligne, float& v) {
    if (ligne > 4 && Ligne(ligne).dZ == 0) plan.push_back(v);
  };
  aChaqueTour_ = nullptr;
  ASSERT_TRUE(ReprendFraisage("2"));
  ASSERT_FALSE(plan.empty());
  for (const float v : plan) EXPECT_FLOAT_EQ(v, 2);
}

TEST_F(UnRun, StoppedBeforeTheFirstRowItResumesAtTheBeginning) {
  Vue_Decoupe.Debut = [](double) { StopDemande = Vrai; };
  ASSERT_TRUE(Lance());
  EXPECT_EQ(Pas(), (Axes3{0, 0, 0}));
  EXPECT_EQ(CdeZENIK->NbBlocsTraites, 0);
  EXPECT_EQ(FaceCourante(), FaceFraisage::Reprise);
  Vue_Decoupe.Debut = nullptr;
  std::int64_t loin = 0;
  aChaqueTour_ = [&] { loin = std::max(loin, carte_->Lieu()[0]); };
  ASSERT_TRUE(ReprendFraisage("3"));
  EXPECT_NEAR(static_cast<double>(loin) * CdeZENIK->MmParPasX(), 26, 0.2) << "the whole job";
  EXPECT_EQ(Pas(), (Axes3{0, 0, 0}));
}

TEST_F(UnRun, GivenUpItCanNotBeResumed) {
  StoppeApres(7, Vrai);
  ASSERT_TRUE(Lance());
  AbandonneFraisage();
  EXPECT_EQ(FaceCourante(), FaceFraisage::Depart);
  EXPECT_FALSE(ReprendFraisage("3"));
}

TEST_F(UnRun, OnlyTheMillingWindowScalesItsSpeeds) {
  for (const char* appelant : {AppelantFraisage, AppelantPilotage, "F_Test"}) {
    CdeZENIK->TableVerif();
    InitDecoupe();
    AjoutDeplacementRelatif(1, 0, Vrai, 4);
    AjoutDeplacementZ(1, Vrai, 2);
    std::vector<float> envoyees;
    Vue_Decoupe.Accepte = [&](std::int32_t, float& v) { envoyees.push_back(v); };
    Vitesse_Mat_H = 3;
    float vRef = 6;
    LanceDecoupe(vRef, appelant);
    const float plane = appelant == std::string(AppelantFraisage) ? 2.0F : 4.0F;  // 3 * 4 / 6, or its own
    EXPECT_THAT(envoyees, testing::ElementsAre(plane, 2.0F)) << appelant;
  }
}

TEST_F(UnRun, ASpeedTypedInTheRunCountsFromTheNextRowOn) {
  std::vector<float> plan;
  Vue_Decoupe.Accepte = [&](std::int32_t ligne, float& v) {
    if (Ligne(ligne).dZ == 0 && Ligne(ligne).Z < 0) plan.push_back(v);
    if (plan.size() == 2) Vitesse_Mat_H = 1.5;
  };
  ASSERT_TRUE(Lance());
  ASSERT_GT(plan.size(), 3U);
  EXPECT_FLOAT_EQ(plan[1], 3);
  EXPECT_FLOAT_EQ(plan[2], 1.5);
}

TEST_F(UnRun, ABoxThatIsOpenHoldsNeitherTheFeedNorTheStop) {
  for (int i = 0; i < 200; ++i) {
    AjouteTrajet(" Z", -1, {{static_cast<float>(i % 7), 30}, {static_cast<float>(i % 7) + 0.3F, 30.2F}});
  }
  bool ouverte = false;
  aChaqueTour_ = [&] {
    if (ouverte || carte_->Compteurs().commences < 20) return;
    ouverte = true;
    const auto debut = carte_->Compteurs().commences;
    for (int i = 0; i < 600; ++i) {  // the loop of a box: nobody but the timer makes a step, for three seconds
      heure_ += 0.005;
      Vu().battement();
    }
    EXPECT_GT(carte_->Compteurs().commences, debut);
    EXPECT_EQ(carte_->Compteurs().ticksFamine, 0);
    StopDemande = Vrai;
    ArretRampe = Faux;
    Vu().battement();
    EXPECT_EQ(carte_->Compteurs().etat, zenikcom::EtatCarte::Arretee) << "with the box still open";
  };
  ASSERT_TRUE(Lance());
  EXPECT_TRUE(ouverte);
}

TEST_F(UnRun, ACallerThatIsNotTheStartFaceStreamsWhateverWasLeft) {
  CdeZENIK->TableVerif();
  InitDecoupe();
  AjoutDeplacementRelatif(1, 0, Faux, 4);
  ModeEnvoiTable = MemoireSeule;
  ListeFlash.assign(1, 0);
  float v = 4;
  LanceDecoupe(v, AppelantPilotage);
  EXPECT_GT(Somme()[0], 0);
  EXPECT_EQ(Pas()[0], Somme()[0]);
  EXPECT_EQ(ListeFlash.size(), 1U);
  EXPECT_EQ(ModeEnvoiTable, 0);
}

TEST_F(UnRun, AStopWhileTheJobIsStoredStartsNothing) {
  bool ecrit = false;
  Vue_Decoupe.Memorise = [&](bool e) {
    ecrit = ecrit || e;
    if (e) StopDemande = Vrai;
  };
  ASSERT_TRUE(Lance(MemoireEtFraisage));
  heure_ += 100;
  EXPECT_TRUE(ecrit);
  EXPECT_EQ(carte_->Compteurs().ticks, 0);
  EXPECT_EQ(FaceCourante(), FaceFraisage::Reprise);
  EXPECT_EQ(ModeEnvoiTable, 0);
}

TEST_F(UnRun, AStopByItsFaceLeavesNoModeAndNoSpindle) {
  aChaqueTour_ = [&] {
    if (carte_->Compteurs().commences < 5 || StopDemande != Faux) return;
    EXPECT_TRUE(carte_->Sorties().broche);
    ArreteFraisage();
    EXPECT_FALSE(carte_->Sorties().broche) << "before the run has found the wish";
    EXPECT_EQ(FraisageEnCours, Faux);
    EXPECT_TRUE(RunActif);
    EXPECT_EQ(ArretRampe, Vrai);
  };
  ASSERT_TRUE(Lance(MemoireEtFraisage));
  EXPECT_EQ(ModeEnvoiTable, 0);
  EXPECT_EQ(FaceCourante(), FaceFraisage::Reprise);
  EXPECT_EQ(Compte(), Pas());
}

TEST_F(UnRun, StoredOnlyItMovesNothing) {
  ASSERT_TRUE(Lance(MemoireSeule));
  EXPECT_EQ(Pas(), (Axes3{0, 0, 0}));
  EXPECT_EQ(carte_->Compteurs().ticks, 0);
  EXPECT_EQ(ListeFlash.back(), 128);
  EXPECT_EQ(ModeEnvoiTable, 0);
}

TEST_F(UnRun, StoredAndStartedItRunsFromTheMemory) {
  std::int64_t loin = 0;
  aChaqueTour_ = [&] { loin = std::max(loin, carte_->Lieu()[0]); };
  ASSERT_TRUE(Lance(MemoireEtFraisage));
  EXPECT_EQ(Pas(), (Axes3{0, 0, 0}));
  EXPECT_NEAR(static_cast<double>(loin) * CdeZENIK->MmParPasX(), 26, 0.2);
  EXPECT_EQ(Compte(), Pas());
  EXPECT_EQ(ModeEnvoiTable, 0);
}

TEST_F(UnRun, SleepsAMillisecondOrTwoWhileTheBoardTakesNothing) {
  std::vector<double> pauses;
  Svc.Attend = [&](double s) {
    pauses.push_back(s);
    heure_ += s;
  };
  const double debut = heure_;
  ASSERT_TRUE(Lance());
  double somme = 0;
  for (const double s : pauses) {
    EXPECT_GE(s, 0.001);
    EXPECT_LE(s, 0.002);
    somme += s;
  }
  // Half a millisecond of each round is the look at the events of this test.
  EXPECT_GT(somme, 0.7 * (heure_ - debut));
}

TEST_F(UnRun, PlacesAreShownThirtyTimesASecondAtMost) {
  const double debut = heure_;
  ASSERT_TRUE(Lance());
  const auto montrees = static_cast<double>(Vu().positions.size());
  EXPECT_GT(montrees, 20 * (heure_ - debut));
  EXPECT_LE(montrees, 30 * (heure_ - debut) + 5);
  EXPECT_EQ(Vu().positions.back(), (std::array<double, 3>{0, 0, 0})) << "and where it stands at the end";
}

TEST_F(UnRun, ShowsItsLineItsRowAndTheTimeThatIsLeft) {
  std::vector<double> restes;
  Vue_Decoupe.Avance = [&](double reste, double) { restes.push_back(reste); };
  std::vector<std::array<float, 4>> vues;
  aChaqueTour_ = [&] {
    if (Vu().lignes.size() > vues.size()) vues = Vu().lignes;
  };
  const double debut = heure_;
  ASSERT_TRUE(Lance());
  ASSERT_GT(vues.size(), 5U);
  EXPECT_EQ(vues[0], (std::array<float, 4>{0, 0, 2, 3})) << "from the end of the first row to that of the second";
  EXPECT_EQ(vues[1], (std::array<float, 4>{2, 3, 2, 3})) << "the descent";
  EXPECT_THAT(Panneaux(), testing::Contains(testing::Pair(static_cast<int>(PanneauEtat::Statut),
                                                          Traduire(Textes::RunSegment) + " 2")));
  EXPECT_TRUE(Vu().lignes.empty()) << "gone with the run";
  ASSERT_GT(restes.size(), 10U);
  EXPECT_LE(static_cast<double>(restes.size()), (heure_ - debut) * 30 + 1);
  EXPECT_TRUE(std::is_sorted(restes.rbegin(), restes.rend()));
  EXPECT_GE(restes.back(), 0);
  EXPECT_EQ(Panneaux().back().second, Traduire(Textes::RunTermine));
}

}  // namespace
}  // namespace essai
