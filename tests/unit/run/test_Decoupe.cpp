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

TEST_F(UnRun, ABoardThatNeitherTakesNorMovesIsToldAfterTwoSeconds) {
  double depuis = 0;
  aChaqueTour_ = [&] {
    if (depuis != 0 || carte_->Compteurs().commences < 5) return;
    depuis = heure_;
    // It answers, takes nothing more and stands.
    std::vector<zenikcom::Faute> fautes;
    zenikcom::TamponOctets t{};
    t[1] = 'S';
    carte_->Echange(t);
    for (int i = 1; i < 20'000; ++i) {
      fautes.push_back({carte_->Compteurs().echanges + i, zenikcom::GenreFaute::Refuse, 0});
    }
    carte_->Fautes(fautes);
  };
  std::vector<std::string> dites;
  Svc.Montre = [&](const BoiteMessage& b) {
    dites.push_back(b.cle);
    return Reponse::Ok;
  };
  ASSERT_TRUE(Lance());
  ASSERT_GT(depuis, 0);
  EXPECT_FALSE(RunActif);
  EXPECT_EQ(StopDemande, Vrai);
  EXPECT_LT(heure_ - depuis, 8);
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

TEST_F(UnRun, ALostLinkEndsTheRunAndTheJobGoesOnWhenItIsBack) {
  aChaqueTour_ = [&] {
    if (carte_->Compteurs().commences >= 8) carte_->Debranche(true);
  };
  Attend("F_Fraisage", "Run_liaison");
  ASSERT_TRUE(Lance());
  EXPECT_TRUE(AttendCarte);
  EXPECT_FALSE(RetrouveCarte()) << "still away";
  aChaqueTour_ = nullptr;
  heure_ += 1;
  carte_->Debranche(false);
  ASSERT_TRUE(RetrouveCarte());
  EXPECT_FALSE(PlacePerdue);
  EXPECT_EQ(Compte(), Pas());
  ASSERT_TRUE(ReprendFraisage("3"));
  EXPECT_EQ(Pas(), (Axes3{0, 0, 0}));
}

TEST_F(UnRun, ABoardThatHasForgottenItsJobOffersNoResume) {
  aChaqueTour_ = [&] {
    if (carte_->Compteurs().commences >= 8) carte_->Debranche(true);
  };
  Attend("F_Fraisage", "Run_liaison");
  ASSERT_TRUE(Lance());
  carte_->Debranche(false);
  zenikcom::TamponOctets t{};
  t[1] = 'B';
  carte_->Echange(t);  // its buffer is cleared, its count begins anew
  ASSERT_TRUE(RetrouveCarte());
  EXPECT_TRUE(PlacePerdue);
  Attend("F_Fraisage", "Run_place");
  EXPECT_FALSE(ReprendFraisage("3"));
  AbandonneFraisage();
  EXPECT_FALSE(PlacePerdue);
}

TEST_F(UnRun, AFailedExchangeNeverRunsARowTwice) {
  for (const auto genre : {zenikcom::GenreFaute::Avant, zenikcom::GenreFaute::Apres, zenikcom::GenreFaute::Bruit}) {
    for (const int apres : {3, 11, 25}) {
      Branche();
      CdeZENIK->TableVerif();
      bool posee = false;
      int recus = 0;
      Vue_Decoupe.Accepte = [&](std::int32_t, float&) {
        if (std::exchange(posee, ++recus >= apres) || recus < apres) return;
        carte_->Fautes({{carte_->Compteurs().echanges + 1, genre, 0}});
      };
      Svc.Montre = [](const BoiteMessage&) { return Reponse::Ok; };
      ASSERT_TRUE(Lance());
      const bool arrete = FaceCourante() == FaceFraisage::Reprise;
      if (arrete && !PlacePerdue && !AttendCarte) {
        EXPECT_EQ(Compte(), Pas()) << apres;
        ASSERT_TRUE(ReprendFraisage("3"));
      }
      if (!PlacePerdue && !AttendCarte) {
        EXPECT_EQ(Pas(), (Axes3{0, 0, 0})) << apres << ' ' << static_cast<int>(genre);
      }
      AbandonneFraisage();
    }
  }
}

TEST_F(UnRun, ALimitSwitchEndsIt) {
  aChaqueTour_ = [&] {
    if (carte_->Compteurs().commences >= 8) carte_->FinDeCourse(true);
  };
  ASSERT_TRUE(Lance());
  EXPECT_EQ(StopDemande, Vrai);
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

// The exchanges behind the list: 1 and 2 open the job, 3 is the go, 4 the first question.
TEST_F(UnRun, StoredAndStartedNoLostExchangeEndsItBeforeTheBoardDoes) {
  for (const auto& [apres, genre] : {std::pair{3, zenikcom::GenreFaute::Avant},
                                     {3, zenikcom::GenreFaute::Apres},
                                     {4, zenikcom::GenreFaute::Avant},
                                     {4, zenikcom::GenreFaute::Bruit}}) {
    Branche();
    CdeZENIK->TableVerif();
    Vue_Decoupe.Memorise = [&](bool ecrit) {
      if (!ecrit) carte_->Fautes({{carte_->Compteurs().echanges + apres, genre, 0}});
    };
    std::int64_t loin = 0;
    aChaqueTour_ = [&] { loin = std::max(loin, carte_->Lieu()[0]); };
    ASSERT_TRUE(Lance(MemoireEtFraisage));
    EXPECT_EQ(carte_->Compteurs().etat, zenikcom::EtatCarte::Fini) << apres;
    EXPECT_EQ(Pas(), (Axes3{0, 0, 0})) << apres;
    EXPECT_NEAR(static_cast<double>(loin) * CdeZENIK->MmParPasX(), 26, 0.2) << apres;
  }
}

TEST_F(UnRun, AStoredJobThatCanNotBeOpenedIsToldAndNotStarted) {
  for (const int apres : {1, 2}) {
    Branche();
    CdeZENIK->TableVerif();
    Vue_Decoupe.Memorise = [&](bool ecrit) {
      if (!ecrit) carte_->Fautes({{carte_->Compteurs().echanges + apres, zenikcom::GenreFaute::Avant, 0}});
    };
    Attend("cli", "cli_carte_echange");
    ASSERT_TRUE(Lance(MemoireEtFraisage));
    heure_ += 100;
    EXPECT_EQ(carte_->Compteurs().ticks, 0) << apres;
    EXPECT_FALSE(RunActif);
  }
}

TEST_F(UnRun, AListThatIsTooLongIsRefusedBeforeAnythingIsErased) {
  for (int i = 0; i < 700; ++i) AjouteTrajet(" Z", -1, {{1, 1}, {static_cast<float>(i % 5) + 2, 2}});
  const auto avant = carte_->Compteurs().echanges;
  Attend("F_Fraisage", "Run_liste");
  ASSERT_TRUE(Lance(MemoireEtFraisage));
  EXPECT_LT(carte_->Compteurs().echanges - avant, 60) << "no page was written";
  EXPECT_EQ(Pas(), (Axes3{0, 0, 0}));
}

TEST_F(UnRun, EssaiFlashNeedsAMemoryOnTheBoard) {
  zenikcom::ConditionsCarte c;
  c.rapide = true;
  c.flash = false;
  carte_ = zenikcom::CreeCarteVirtuelle(std::move(c));
  CdeZENIK = std::make_unique<ClsCdeZENIK>(zenikcom::LiaisonVirtuelle(carte_));
  Attend("erreurs", "96");
  EXPECT_FALSE(EssaiFlash());
  EXPECT_EQ(ModeEnvoiTable, 0);
}

TEST_F(UnRun, IsRefusedWithoutABoardADepthOrASpeed) {
  ProfPasse = 0;
  Attend("erreurs", "95");
  EXPECT_FALSE(Lance());
  ProfPasse = -0.5;
  Attend("F_Fraisage", "lib021");
  std::string nulle = "0";
  EXPECT_FALSE(LanceFraisage(nulle, EnvoiDirect));
  ProfFraisage = 1;
  Attend("F_Fraisage", "lib011_2");
  EXPECT_FALSE(Lance());
  ProfFraisage = -1;
  ProfPasse = 1;
  Attend("F_Fraisage", "lib011_3");
  EXPECT_FALSE(Lance());
  ProfPasse = -0.5;
  carte_->Debranche(true);
  Attend("erreurs", "91");
  EXPECT_FALSE(Lance());
  EXPECT_EQ(Pas(), (Axes3{0, 0, 0}));
  TraceDecale.clear();
  EXPECT_FALSE(Lance()) << "nothing to mill, and nothing is said";
}

TEST_F(UnRun, ASpeedBeyondTheAxesIsAskedForAndLowered) {
  Vitesse_Mat_H = 35;  // the diagonal of B allows 20 * sqrt 2 = 28.28, the sides of A 20
  Attend("F_Fraisage", "lib005", Reponse::Annuler);
  std::string vitesse = "35";
  EXPECT_FALSE(LanceFraisage(vitesse, EnvoiDirect));
  EXPECT_EQ(vitesse, "35");
  Attend("F_Fraisage", "lib005", Reponse::Ok);
  EXPECT_TRUE(LanceFraisage(vitesse, EnvoiDirect));
  EXPECT_EQ(vitesse, "20.00");
  EXPECT_EQ(Vitesse_Mat_H, 20);
  EXPECT_EQ(Pas(), (Axes3{0, 0, 0}));
}

TEST_F(UnRun, ASpeedThatNeedsRampsIsAskedFor) {
  Attend("F_Fraisage", "lib007", Reponse::Annuler);
  std::string vitesse = "12";
  EXPECT_FALSE(LanceFraisage(vitesse, EnvoiDirect));
  Attend("F_Fraisage", "lib007", Reponse::Ok);
  EXPECT_TRUE(LanceFraisage(vitesse, EnvoiDirect));
  EXPECT_EQ(Pas(), (Axes3{0, 0, 0}));
}

TEST_F(UnRun, ASpeedThatIsEqualButForArithmeticAsksNothing) {
  std::string vitesse = "4.0000001";  // the speed without a ramp is 4
  EXPECT_TRUE(LanceFraisage(vitesse, EnvoiDirect));
}

TEST_F(UnRun, ShowsItsLineItsRowAndTheTimeThatIsLeft) {
  std::vector<double> restes;
  Vue_Decoupe.Avance = [&](double reste, double) { restes.push_back(reste); };
  std::size_t lignes = 0;
  aChaqueTour_ = [&] { lignes = std::max(lignes, Vu().lignes.size()); };
  const double debut = heure_;
  ASSERT_TRUE(Lance());
  EXPECT_GT(lignes, 5U);
  EXPECT_TRUE(Vu().lignes.empty()) << "gone with the run";
  ASSERT_GT(restes.size(), 10U);
  EXPECT_LE(static_cast<double>(restes.size()), (heure_ - debut) * 30 + 1);
  EXPECT_TRUE(std::is_sorted(restes.rbegin(), restes.rend()));
  EXPECT_GE(restes.back(), 0);
  EXPECT_EQ(Panneaux().back().second, Traduire(Textes::RunTermine));
}

}  // namespace
}  // namespace essai
