// The ends of the program while a job runs on the machine: a signal, the desktop's session, a fatal error.
#include <algorithm>
#include <csignal>

#include "app/ovelin/Signaux.h"
#include "closed/CarteVirtuelle.h"
#include "controller/ClsCdeZENIK.h"
#include "core/Cles.h"
#include "core/PlanCourant.h"
#include "core/RunCourant.h"
#include "machine/Module_Table.h"
#include "run/Module_Decoupe.h"
#include "run/Module_Planificateur.h"
#include "tests/ui/programme/ProgrammeEssai.h"

namespace essai {
namespace {

using namespace ovelin;
using zenikcom::Axes3;
using zenikcom::EtatCarte;

constexpr std::uint8_t Stop = 'S';

// Notes the requests for a stop.
class LiaisonNotee : public zenikcom::Liaison {
 public:
  LiaisonNotee(std::unique_ptr<zenikcom::Liaison> liaison, std::vector<int>& stops)
      : liaison_(std::move(liaison)), stops_(stops) {}
  std::int32_t EstConnectee() override { return liaison_->EstConnectee(); }
  std::int32_t Envoie(zenikcom::TamponOctets& tampon, std::int32_t& mode) override {
    if (tampon[1] == Stop && tampon[2] < 2) stops_.push_back(tampon[2]);
    return liaison_->Envoie(tampon, mode);
  }
  void Ferme() override { liaison_->Ferme(); }

 private:
  std::unique_ptr<zenikcom::Liaison> liaison_;
  std::vector<int>& stops_;
};

// The program with a virtual board on the clock of the test, and a job of 40 mm with ramps on it.
class FinPendantRun : public testing::Test {
 protected:
  FinPendantRun() {
    ConfigPresente(
        "[OVELIN]\r\nCarteZENIK=aucune\r\nTableDefaut=Essai\r\n[table_Essai]\r\nTB_SAV_30=30\r\nTB_SAV_31=80\r\n"
        "CB_SAV_16=1\r\nTB_SAV_12=4\r\nTB_SAV_13=4\r\nTB_SAV_14=4\r\nTB_SAV_15=20\r\nTB_SAV_16=20\r\n");
    p_ = std::make_unique<ProgrammeEssai>();
    EXPECT_TRUE(p_->Demarre());
    p_->programme->Quitte = [this](int statut) {
      statuts_.push_back(statut);
      Regarde();
    };
    Svc.Horloge = [this] { return heure_; };
    Svc.Attend = [this](double s) { heure_ += s; };
    Svc.LaisseEvenements = [this](ovelin::Evenements mode) {
      if (mode != ovelin::Evenements::Tous) return;
      heure_ += 0.0005;
      if (RunActif && !fait_ && carte_->Compteurs().commences >= 3) {
        fait_ = true;
        geste_();
      }
    };
    zenikcom::ConditionsCarte c;
    c.horloge = [this] { return static_cast<std::int64_t>(heure_ * 1e9); };
    carte_ = zenikcom::CreeCarteVirtuelle(std::move(c));
    CdeZENIK =
        std::make_unique<ClsCdeZENIK>(std::make_unique<LiaisonNotee>(zenikcom::LiaisonVirtuelle(carte_), stops_));
    ChargeGlobalesTable();
    CdeZENIK->ChargeParametres();
    CdeZENIK->TableVerif();
  }
  ~FinPendantRun() override {
    p_.reset();
    CdeZENIK = std::make_unique<ClsCdeZENIK>();
  }

  void Fraise(std::function<void()> geste) {
    geste_ = std::move(geste);
    InitDecoupe();
    for (int i = 0; i < 10; ++i) AjoutDeplacementRelatif(i % 2 == 0 ? 4.0F : -3.0F, 0, Faux, 20);
    StopDemande = Faux;
    ArretRampe = Faux;  // whatever the run would do at a stop of its own
    float v = 20;
    LanceDecoupe(v, AppelantFraisage);
  }
  // The machine as the program leaves it.
  void Regarde() {
    etat_ = carte_->Compteurs().etat;
    broche_ = carte_->Sorties().broche;
    exact_ = Axes3{CdeZENIK->PasX, CdeZENIK->PasY, CdeZENIK->PasZ} == carte_->Compteurs().pas;
  }
  void EstArretee(const char* quoi) {
    EXPECT_EQ(etat_, EtatCarte::Arretee) << quoi;
    EXPECT_FALSE(broche_) << quoi;
    EXPECT_TRUE(exact_) << quoi << ": a step lost";
    EXPECT_EQ(stops_.at(0), 1) << quoi << " stops by the ramp";
    EXPECT_EQ(std::count(stops_.begin(), stops_.end(), 0), 0) << quoi;
  }

  double heure_ = 1000;  // s
  std::shared_ptr<zenikcom::CarteVirtuelle> carte_;
  std::unique_ptr<ProgrammeEssai> p_;
  std::vector<int> statuts_, stops_;
  std::function<void()> geste_;
  bool fait_ = false, broche_ = true, exact_ = false;
  EtatCarte etat_ = EtatCarte::Repos;
};

class SignalPendantRun : public FinPendantRun, public testing::WithParamInterface<int> {};

TEST_P(SignalPendantRun, StopsTheMachineByItsRampBeforeTheProgramEnds) {
  Fraise([] {
    raise(GetParam());
    essai::Evenements();
  });
  ASSERT_EQ(statuts_, std::vector<int>{128 + GetParam()});
  EstArretee("signal");
  EXPECT_FALSE(RunActif);
}

INSTANTIATE_TEST_SUITE_P(Signaux, SignalPendantRun, testing::ValuesIn(Signaux::Ecoutes),
                         [](const auto& cas) { return std::to_string(cas.param); });

TEST_F(FinPendantRun, TheEndOfTheSessionStopsTheMachineWhetherItMayAskOrNot) {
  for (const bool peutDemander : {true, false}) {
    fait_ = false;
    stops_.clear();
    Fraise([this, peutDemander] {
      EXPECT_TRUE(p_->programme->FinDeSession(peutDemander));
      Regarde();
    });
    EXPECT_EQ(statuts_.empty(), peutDemander);
    EstArretee(peutDemander ? "asking" : "without asking");
  }
}

TEST_F(FinPendantRun, AFatalEndClearsTheBoard) {
  EtatCarte avant = EtatCarte::Repos, apres = EtatCarte::EnCours;
  Fraise([&] {
    avant = carte_->Compteurs().etat;
    ArretFatal();
    apres = carte_->Compteurs().etat;
    StopDemande = Vrai;
  });
  EXPECT_EQ(avant, EtatCarte::EnCours);
  EXPECT_EQ(apres, EtatCarte::Repos);
}

}  // namespace
}  // namespace essai
