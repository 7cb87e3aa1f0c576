#include "run/Module_Decoupe.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

#include "base/Indices.h"
#include "controller/ClsCdeZENIK.h"
#include "controller/Module_ZENIK.h"
#include "core/Cadence.h"
#include "core/Etat.h"
#include "core/Nombres.h"
#include "core/PlanCourant.h"
#include "core/RunCourant.h"
#include "core/Services.h"
#include "core/Textes.h"
#include "machine/TableCourante.h"
#include "run/Alimentation.h"
#include "run/Module_Profil.h"
#include "run/NoyauReprise.h"

namespace ovelin {

VueDecoupe Vue_Decoupe;

namespace {

std::array<std::int32_t, 3> DepartRun{};  // steps of the board's counters where the job under way began

[[maybe_unused]] const bool Enregistree = EnregistreRemise([] {
  Vue_Decoupe = VueDecoupe{};
  DepartRun = {};
});

constexpr double PauseBoucle = 0.0015;        // s, while the board takes nothing
constexpr double PeriodeVue = 1.0 / 30;       // s between two looks of the user
constexpr double AvanceMini = 0.05;           // s of motion on the board below which nothing is painted
constexpr std::size_t OctetsMemoire = 65536;  // what a list can't reach

void MontreFace() {
  if (Vue_Decoupe.Face) Vue_Decoupe.Face(FaceCourante());
}

// The row under way and those behind it, and the steps at which it begins: by the table, for a board that has done
// its last tick counts from the end of that row.
void RetientReste() {
  TableReprise = LignesDepuis(Plan, CdeZENIK->NbBlocsTraites);
  DepartReprise = DepartRun;
  const std::int32_t fin = std::min(CdeZENIK->NbBlocsTraites - 1, NbDeplacements);
  for (std::int32_t i = 1; i <= fin; ++i) {
    const Deplacement& d = TableDecoupe[static_cast<std::size_t>(i)];
    DepartReprise[0] += d.dX;
    DepartReprise[1] += d.dY;
    DepartReprise[2] += d.dZ;
  }
}

// The count of the board's own reply, whether it is believed or not: 24 bits; -1 without an answer.
std::int32_t CompteDeLaCarte() {
  CdeZENIK->DemandeInformation();
  CdeZENIK->Tampon[1] = 'I';
  CdeZENIK->Tampon[2] = 0;
  std::int32_t mode = 0;
  if (!CdeZENIK->EnvoiCommande(mode)) return -1;
  return CdeZENIK->Tampon[4] | CdeZENIK->Tampon[5] << 8 | CdeZENIK->Tampon[6] << 16;
}

// One run, from its flags to its flags.
class Decoupe {
 public:
  Decoupe(float vRef, const std::string& appelant)
      : fraisage_(appelant == AppelantFraisage),
        pilotage_(appelant == AppelantPilotage),
        essai_(appelant == AppelantEssaiFlash),
        broche_(BrocheAuto == 1 && !essai_),
        alimentation_(fraisage_ ? vRef : 0) {}

  void Execute() {
    Commence();
    if (Prepare()) {
      Alimente();
    } else {
      panne_ = Alimentation::Panne::Liaison;
      StopDemande = Vrai;
    }
    Svc.Battement({});
    FraisageEnCours = Faux;
    if (StopDemande == Faux) {
      Termine();
    } else {
      Arretee();
    }
    Finit();
  }

 private:
  void Commence() {
    RunActif = OperationCarte = true;
    FraisageEnCours = Vrai;
    AttendCarte = PlacePerdue = false;
    if (!fraisage_ && !essai_) ModeEnvoiTable = 0;
    EcranVeilleActif = Vrai;
    Svc.RetientVeille(true);
    Svc.MontreStop(true);
    if (!pilotage_) {
      Svc.MontreRun(true);
      Svc.Pilotage(DemandePilotage::Reduit);
    }
    Svc.Pilotage(DemandePilotage::SeTait);
    if (Montree()) MontreFace();
  }

  // The job is open on the board, the table is what will run. False: the board does not answer.
  bool Prepare() {
    if (ModeEnvoiTable == 0 && !CdeZENIK->EnvoiUSB()) return false;
    if (broche_) BrocheOn();
    TempsTotal = TempsDecoupe();
    if (CdeZENIK->TravailIncertain != Faux) return false;
    if (Montree() && Vue_Decoupe.Debut) Vue_Decoupe.Debut(TempsTotal);
    HeureDebut = Svc.Horloge();
    DepartRun = {CdeZENIK->PasX, CdeZENIK->PasY, CdeZENIK->PasZ};
    CompacteTable(Plan);
    IndexTraceRun = 1;
    XTraceRun = EnFloat(CdeZENIK->PosX);
    YTraceRun = EnFloat(CdeZENIK->PosY);
    return true;
  }

  // Steps until nothing is left to do. A timer makes the same steps while somebody has a box open.
  void Alimente() {
    Svc.Battement([this] {
      while (alimentation_.Pas()) {
      }
    });
    double laisse = Svc.Horloge();
    while (!alimentation_.Finie()) {
      if (alimentation_.ListeFaite() && alimentation_.Ou() == Alimentation::Phase::Fin) {
        alimentation_.SuitListe(EcritListe());
        continue;
      }
      const bool fait = alimentation_.Pas();
      Montre();
      if (fait && Svc.Horloge() - laisse < PeriodeCadence) continue;
      Svc.LaisseEvenements(Evenements::Tous);
      laisse = Svc.Horloge();
      if (!fait && !alimentation_.Finie()) Svc.Attend(PauseBoucle);
    }
    panne_ = alimentation_.Pourquoi();
  }

  // The list into the board's memory, and its start where it is wanted. False: nothing runs.
  bool EcritListe() {
    if (ListeFlash.size() >= OctetsMemoire) {
      const auto tient =
          NbDeplacements * static_cast<double>(OctetsMemoire - 1) / static_cast<double>(ListeFlash.size());
      MessageFichier(Textes::MemoireTropPetite, " " + std::to_string(static_cast<long>(tient)), Icone::Critique,
                     "");
      return SansLancer();
    }
    ListeFlash.back() = 128;
    if (Vue_Decoupe.Memorise) Vue_Decoupe.Memorise(true);
    CdeZENIK->Flash_Tab(ListeFlash);
    if (Vue_Decoupe.Memorise) Vue_Decoupe.Memorise(false);
    if (CdeZENIK->PagesNonConfirmees != 0) {
      Message(Textes::MemoireNonConfirmee, Icone::Critique);
      return SansLancer();
    }
    if (ModeEnvoiTable != 2 || StopDemande != Faux) return false;
    if (!CdeZENIK->EnvoiFLASH(0, 0)) {
      Message(Textes::CarteSansReponse, Icone::Critique);
      return SansLancer();
    }
    // A go without an answer may have been taken: the job is then ended by its stop.
    if (!CdeZENIK->RepeteGo()) StopDemande = Vrai;
    return true;
  }

  // The list did not come into the memory: there is nothing to resume.
  bool SansLancer() {
    StopDemande = Vrai;
    TableReprise.clear();
    return false;
  }

  // Painting never starves the board: only with motion ahead of it, and no oftener than the eye sees.
  void Montre() {
    if (!Montree()) return;
    const double maintenant = Svc.Horloge();
    if (maintenant - montre_ < PeriodeVue) return;
    const std::int32_t bloc = CdeZENIK->NbBlocsTraites;
    const bool alimente = alimentation_.Ou() == Alimentation::Phase::Lignes;
    if (bloc < 1 || bloc > NbDeplacements || (alimente && CdeZENIK->TempsBuffer <= AvanceMini)) return;
    montre_ = maintenant;
    AffichageAvancement(TempsTotal, HeureDebut, bloc);
  }

  void Termine() {
    if (broche_) BrocheOff();
    if (Montree()) {
      Svc.Panneau(PanneauEtat::Statut, Traduire(Textes::RunTermine));
      MoteurOff();
    }
    if (fraisage_) TableReprise.clear();
    Svc.EffaceLigneRun();
  }

  void Arretee() {
    // Whoever answers behind a failure is asked first how far it has come.
    AttendCarte = fraisage_ && panne_ != Alimentation::Panne::Aucune;
    if (fraisage_ && CdeZENIK->NbBlocsTraites != 0 && !AttendCarte) RetientReste();
    if (broche_) BrocheOff();
  }

  void Finit() {
    ModeEnvoiTable = 0;
    Svc.MontreStop(false);
    Svc.RetientVeille(false);
    EcranVeilleActif = Faux;
    if (!pilotage_) Svc.Pilotage(DemandePilotage::Retablit);
    Svc.Pilotage(DemandePilotage::Interroge);
    RunActif = OperationCarte = false;
    if (!pilotage_) Svc.MontreRun(false);
    // A link that has failed once and is there can be asked at once.
    const bool retrouvee = AttendCarte && RetrouveCarte();
    if (Montree() && !retrouvee) MontreFace();
    if (PlacePerdue) {
      Message(Textes::PlaceDeLaCartePerdue, Icone::Critique);
    } else if (panne_ == Alimentation::Panne::Liaison) {
      Message(Textes::LiaisonPerdue, Icone::Critique);
    } else if (panne_ == Alimentation::Panne::Immobile) {
      Message(Textes::CarteImmobile, Icone::Critique);
    }
  }

  // The milling window's own: it shows the progress.
  [[nodiscard]] bool Montree() const { return fraisage_ || essai_; }

  bool fraisage_, pilotage_, essai_;
  bool broche_;  // the run switches the spindle
  Alimentation alimentation_;
  Alimentation::Panne panne_ = Alimentation::Panne::Aucune;
  double montre_ = 0;  // s, last look of the user
};

}  // namespace

FaceFraisage FaceCourante() {
  if (RunActif) return FaceFraisage::Arret;
  return TableReprise.empty() ? FaceFraisage::Depart : FaceFraisage::Reprise;
}

std::int16_t LanceDecoupe(float& VRef, const std::string& appelant) {
  if (!RunActif && CdeZENIK->IsAvailable()) Decoupe(VRef, appelant).Execute();
  return 0;
}

void AffichageAvancement(double tempsTotal, double heureDebut, std::int32_t index) {
  const std::int32_t fin = std::min(index, NbDeplacements);
  for (; IndexTraceRun <= fin; ++IndexTraceRun) {
    const Deplacement& d = TableDecoupe[base::Indice(IndexTraceRun)];
    if (IndexTraceRun > 1) Svc.LigneRun(XTraceRun, YTraceRun, d.X, d.Y);
    XTraceRun = d.X;
    YTraceRun = d.Y;
  }
  Svc.Panneau(PanneauEtat::Statut, Traduire(Textes::RunSegment) + " " + std::to_string(index));
  const double ecoule = Svc.Horloge() - heureDebut;
  if (Vue_Decoupe.Avance) Vue_Decoupe.Avance(std::max(0.0, tempsTotal - ecoule), ecoule);
}

bool RetrouveCarte() {
  if (!AttendCarte || RunActif || !CdeZENIK->IsAvailable()) return false;
  if (!CdeZENIK->GoDemande()) {  // nothing has moved: what was to be done is still to be done
    AttendCarte = false;
    MontreFace();
    return true;
  }
  CdeZENIK->StopResume(1, CdeZENIK->Calc_FDEC());
  const std::int32_t compte = CompteDeLaCarte();
  if (compte < 0) return false;
  AttendCarte = false;
  constexpr std::int32_t Tour = 1 << 24;  // where the board's count begins again
  PlacePerdue = compte == 0 || compte != CdeZENIK->NbBlocsTraites % Tour;
  if (PlacePerdue) {  // what it counts now is no job of this program
    CdeZENIK->ResetBuffer();
    CdeZENIK->DemandeInformation();
  } else {
    RetientReste();
  }
  MontreFace();
  return true;
}

}  // namespace ovelin
