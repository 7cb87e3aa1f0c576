// Runs whose board is gone, stands, forgets or refuses: what is told, and what is left to resume.
#include <set>

#include "closed/ZenikCom.h"
#include "run/Module_Fraisage.h"
#include "tests/unit/run/UnRun.h"

namespace essai {
namespace {

class Guet : public zenikcom::Liaison {
 public:
  Guet(std::unique_ptr<zenikcom::Liaison> liaison, std::function<void(const zenikcom::TamponOctets&)> derriere)
      : liaison_(std::move(liaison)), derriere_(std::move(derriere)) {}
  std::int32_t EstConnectee() override { return liaison_->EstConnectee(); }
  std::int32_t Envoie(zenikcom::TamponOctets& tampon, std::int32_t& mode) override {
    const zenikcom::TamponOctets demande = tampon;
    const std::int32_t resultat = liaison_->Envoie(tampon, mode);
    derriere_(demande);
    return resultat;
  }
  void Ferme() override { liaison_->Ferme(); }

 private:
  std::unique_ptr<zenikcom::Liaison> liaison_;
  std::function<void(const zenikcom::TamponOctets&)> derriere_;
};

class Pannes : public UnRun {
 protected:
  // A board whose own clock stops at `gel_`: it answers, takes what its buffer holds, and does not move.
  void BrancheFigee() {
    zenikcom::ConditionsCarte c;
    c.horloge = [this] { return static_cast<std::int64_t>(std::min(heure_, gel_) * 1e9); };
    carte_ = zenikcom::CreeCarteVirtuelle(std::move(c));
    CdeZENIK = std::make_unique<ClsCdeZENIK>(zenikcom::LiaisonVirtuelle(carte_));
    CdeZENIK->TableVerif();
  }
  // A board behind a link that tells the test of each request once it has been answered.
  void BrancheGuettee() {
    Branche();
    CdeZENIK = std::make_unique<ClsCdeZENIK>(
        std::make_unique<Guet>(zenikcom::LiaisonVirtuelle(carte_), [this](const zenikcom::TamponOctets& demande) {
          if (derriere_) derriere_(demande);
        }));
    CdeZENIK->TableVerif();
  }
  // Whatever is told is kept.
  void Ecoute() {
    Svc.Montre = [this](const BoiteMessage& b) {
      dites_.insert(b.cle);
      return b.boutons == Boutons::OuiNon ? Reponse::Oui : Reponse::Ok;
    };
  }
  // The board without current and back: nothing of its job is left.
  void Eteint() {
    zenikcom::TamponOctets t{};
    t[1] = 'Z';
    t[2] = 85;
    t[3] = 170;
    carte_->Echange(t);
  }
  // A job of that many rows of half a millimetre.
  static void PlanifieRangs(int lignes) {
    CdeZENIK->TableVerif();
    InitDecoupe();
    for (int i = 0; i < lignes; ++i) AjoutDeplacementRelatif(0.5F, 0, Faux, 4);
  }

  double gel_ = 1e18;  // s
  std::function<void(const zenikcom::TamponOctets& demande)> derriere_;
  std::set<std::string> dites_;
};

TEST_F(Pannes, ABoardThatNeitherTakesNorMovesIsToldAfterTwoSeconds) {
  for (const Drapeau rampe : {Vrai, Faux}) {
    gel_ = 1e18;
    BrancheFigee();
    dites_.clear();
    Ecoute();
    double depuis = 0;
    aChaqueTour_ = [&] {
      ArretRampe = rampe;
      if (depuis != 0 || carte_->Compteurs().commences < 5) return;
      gel_ = depuis = heure_;
    };
    ASSERT_TRUE(Lance());
    aChaqueTour_ = nullptr;
    ASSERT_GT(depuis, 0);
    EXPECT_EQ(dites_, std::set<std::string>{"Run_immobile"});
    EXPECT_GE(heure_ - depuis, 2);
    EXPECT_LT(heure_ - depuis, 5) << "a ramp that does not come to its end is not waited for";
    EXPECT_EQ(StopDemande, Vrai);
    EXPECT_EQ(carte_->Compteurs().etat, zenikcom::EtatCarte::Arretee);
    EXPECT_FALSE(AttendCarte || PlacePerdue);
    EXPECT_EQ(Compte(), Pas()) << "its place is known all the same";
    gel_ = 1e18;
    ASSERT_TRUE(ReprendFraisage("3"));
    EXPECT_EQ(Pas(), (Axes3{0, 0, 0}));
  }
}

TEST_F(Pannes, ABoardThatWasWithoutCurrentInTheMiddleLosesItsPlace) {
  Ecoute();
  aChaqueTour_ = [this, fait = false]() mutable {
    if (std::exchange(fait, fait || carte_->Compteurs().commences >= 8) || !fait) return;
    Eteint();
  };
  ASSERT_TRUE(Lance());
  EXPECT_TRUE(PlacePerdue);
  EXPECT_TRUE(dites_.contains("Run_place"));
  EXPECT_EQ(CdeZENIK->EnCours, Faux) << "the board's own word is taken again";
  dites_.clear();
  EXPECT_FALSE(ReprendFraisage("3"));
  EXPECT_EQ(dites_, std::set<std::string>{"Run_place"});
  AbandonneFraisage();
  EXPECT_TRUE(PlanPermis());
}

TEST_F(Pannes, AShortJobThatTheBoardHasForgottenIsNotDone) {
  for (const int lignes : {1, 3, 6}) {
    BrancheGuettee();
    dites_.clear();
    Ecoute();
    Marche = EtatRun{};
    PlanifieRangs(lignes);
    bool eteinte = false;
    derriere_ = [&](const zenikcom::TamponOctets& demande) {
      if (demande[1] != 'B' || demande[2] != 128) return;
      Eteint();  // the go is answered; the next question finds a board at rest that has counted nothing
      eteinte = true;
    };
    float v = 4;
    LanceDecoupe(v, AppelantFraisage);
    EXPECT_TRUE(eteinte) << lignes;
    EXPECT_EQ(Pas(), (Axes3{0, 0, 0})) << lignes;
    EXPECT_EQ(StopDemande, Vrai) << lignes << " not told as done";
    EXPECT_TRUE(PlacePerdue) << lignes;
    EXPECT_EQ(dites_, std::set<std::string>{"Run_place"}) << lignes;
  }
}

TEST_F(Pannes, AShortJobIsToldAsDoneOnlyWhereItIsDone) {
  pas_ = 0.02;
  Ecoute();
  int faites = 0, arretees = 0;
  for (const int lignes : {1, 6, 7}) {
    for (const auto& [genre, nom] : zenikcom::NomsFautes) {
      const bool debranche = genre == zenikcom::GenreFaute::Debranche;
      for (const double secondes : debranche ? std::vector<double>{0, 0.1, 1, 10} : std::vector<double>{0}) {
        for (int i = 1; i <= 5 + lignes + 12; ++i) {
          Branche();
          Marche = EtatRun{};
          PlanifieRangs(lignes);
          carte_->Fautes({{carte_->Compteurs().echanges + i, genre, secondes}});
          float v = 4;
          LanceDecoupe(v, AppelantPilotage);
          const std::string quoi = std::to_string(lignes) + " rows, " + std::string(nom) + " for " +
                                   std::to_string(secondes) + " at " + std::to_string(i);
          ASSERT_FALSE(RunActif) << quoi;
          if (StopDemande != Faux) {
            ++arretees;
            continue;
          }
          ++faites;
          EXPECT_EQ(carte_->Compteurs().commences, lignes) << quoi;
          EXPECT_EQ(Pas()[0], Somme()[0]) << quoi;
          EXPECT_EQ(Compte(), Pas()) << quoi;
        }
      }
    }
  }
  EXPECT_GT(faites, 100);
  EXPECT_GT(arretees, 100);
}

// What fails before the go has moved nothing: the job is there as a whole, at the place where the machine stands.
TEST_F(Pannes, AFailureBeforeTheGoKeepsTheWholeJobAndThePlace) {
  for (int rang = 1; rang <= 10; ++rang) {  // twice the clearing and the opening, the spindle, five records
    Branche();
    CdeZENIK->TableVerif();
    Marche = EtatRun{};
    carte_->Fautes({{carte_->Compteurs().echanges + rang, zenikcom::GenreFaute::Apres, 0}});
    std::set<std::string> dites;
    Svc.Montre = [&](const BoiteMessage& b) {
      dites.insert(b.cle);
      return Reponse::Ok;
    };
    ASSERT_TRUE(Lance());
    if (StopDemande == Faux) continue;  // one that is tried again
    EXPECT_EQ(dites, std::set<std::string>{"Run_liaison"}) << rang;
    EXPECT_FALSE(AttendCarte || PlacePerdue) << rang << " it is there again";
    EXPECT_EQ(carte_->Compteurs().ticks, 0) << rang;
    EXPECT_EQ(FaceCourante(), FaceFraisage::Reprise);
    std::int64_t loin = 0;
    aChaqueTour_ = [&] { loin = std::max(loin, carte_->Lieu()[0]); };
    ASSERT_TRUE(ReprendFraisage("3")) << rang;
    aChaqueTour_ = nullptr;
    EXPECT_NEAR(static_cast<double>(loin) * CdeZENIK->MmParPasX(), 26, 0.2) << rang << " the whole job";
    EXPECT_EQ(Pas(), (Axes3{0, 0, 0})) << rang;
  }
}

TEST_F(Pannes, AResumeThatCanNotBeOpenedKeepsWhatWasLeft) {
  StoppeApres(12, Vrai);
  ASSERT_TRUE(Lance());
  aChaqueTour_ = nullptr;
  const std::vector<Deplacement> reste = TableReprise;
  const auto depart = DepartReprise;
  const Axes3 ici = Pas();
  ASSERT_GT(CdeZENIK->NbBlocsTraites, 0);
  const auto avant = carte_->Compteurs().echanges;
  CdeZENIK->TableVerif();
  const auto verification = carte_->Compteurs().echanges - avant;
  // Behind the look at the table and the spindle the clearing is the first exchange of the run.
  carte_->Fautes({{carte_->Compteurs().echanges + verification + 2, zenikcom::GenreFaute::Avant, 0}});
  Attend("F_Fraisage", "Run_liaison");
  ASSERT_TRUE(ReprendFraisage("3"));
  EXPECT_FALSE(AttendCarte || PlacePerdue);
  EXPECT_EQ(TableReprise, reste);
  EXPECT_EQ(DepartReprise, depart);
  EXPECT_EQ(Pas(), ici);
  ASSERT_TRUE(ReprendFraisage("3"));
  EXPECT_EQ(Pas(), (Axes3{0, 0, 0}));
}

TEST_F(Pannes, ALostLinkEndsTheRunAndTheJobGoesOnWhenItIsBack) {
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

TEST_F(Pannes, ABoardThatHasForgottenItsJobOffersNoResume) {
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

TEST_F(Pannes, AFailedExchangeNeverRunsARowTwice) {
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

TEST_F(Pannes, ALimitSwitchEndsIt) {
  aChaqueTour_ = [&] {
    if (carte_->Compteurs().commences >= 8) carte_->FinDeCourse(true);
  };
  ASSERT_TRUE(Lance());
  EXPECT_EQ(StopDemande, Vrai);
  EXPECT_EQ(FaceCourante(), FaceFraisage::Reprise);
  EXPECT_EQ(Compte(), Pas());
}

// The exchanges behind the list: 1 and 2 open the job, 3 is the go, 4 the first question.
TEST_F(Pannes, StoredAndStartedNoLostExchangeEndsItBeforeTheBoardDoes) {
  for (const auto& [apres, genre] : {std::pair{3, zenikcom::GenreFaute::Avant},
                                     {3, zenikcom::GenreFaute::Apres},
                                     {4, zenikcom::GenreFaute::Avant},
                                     {4, zenikcom::GenreFaute::Bruit}}) {
    Branche();
    CdeZENIK->TableVerif();
    Vue_Decoupe.Memorise = [this, apres = apres, genre = genre](bool ecrit) {
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

TEST_F(Pannes, AStoredJobThatCanNotBeOpenedIsToldAndNotStarted) {
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
    EXPECT_EQ(FaceCourante(), FaceFraisage::Depart) << apres;
  }
}

TEST_F(Pannes, AListThatIsTooLongIsRefusedBeforeAnythingIsErased) {
  for (int i = 0; i < 700; ++i) AjouteTrajet(" Z", -1, {{1, 1}, {static_cast<float>(i % 5) + 2, 2}});
  const auto avant = carte_->Compteurs().echanges;
  Attend("F_Fraisage", "Run_liste");
  ASSERT_TRUE(Lance(MemoireEtFraisage));
  EXPECT_LT(carte_->Compteurs().echanges - avant, 60) << "no page was written";
  EXPECT_EQ(Pas(), (Axes3{0, 0, 0}));
  EXPECT_EQ(FaceCourante(), FaceFraisage::Depart) << "nothing was begun, nothing is left to resume";
}

TEST_F(Pannes, PagesThatAreNotConfirmedAreToldAndNothingIsStarted) {
  Vue_Decoupe.Memorise = [&](bool ecrit) {
    if (ecrit) carte_->Fautes({{carte_->Compteurs().echanges + 3, zenikcom::GenreFaute::Bruit, 0}});
  };
  Attend("F_Fraisage", "Run_memoire");
  ASSERT_TRUE(Lance(MemoireEtFraisage));
  heure_ += 100;
  EXPECT_EQ(carte_->Compteurs().ticks, 0);
  EXPECT_EQ(FaceCourante(), FaceFraisage::Depart);
}

}  // namespace
}  // namespace essai
