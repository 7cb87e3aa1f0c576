// The job on the board: opened, told to go, stopped; and how long a command is tried.
#include <algorithm>
#include <limits>
#include <utility>

#include "controller/ClsCdeZENIK.h"
#include "core/PlanCourant.h"
#include "core/RunCourant.h"
#include "core/Services.h"

namespace ovelin {

namespace {

constexpr double DelaiAbsence = 2;   // s for which the link has to say that nothing is there
constexpr double DelaiFreinage = 2;  // s without a tick, behind which a ramp is no longer believed
constexpr int ReponsesFausses =
    20;  // replies to a stop that can't be true, before the true one is no longer awaited
constexpr std::uint8_t Stop = 'S', Question = 3;

}  // namespace

// A link that is gone ends what waits for the board: its motion is no longer known here.
void ClsCdeZENIK::SuitLiaison(bool repondu) {
  if (repondu) {
    muetteDepuis_ = -1;
  } else if (muetteDepuis_ < 0) {
    muetteDepuis_ = Svc.Horloge();
  }
  if (repondu || liaison_->EstConnectee() == 1) {
    absenteDepuis_ = -1;
    return;
  }
  const double maintenant = Svc.Horloge();
  if (absenteDepuis_ < 0) absenteDepuis_ = maintenant;
  if (maintenant - absenteDepuis_ < DelaiAbsence) return;
  EnCours = Faux;
  if (travail_ == Travail::Aucun || TravailIncertain != Faux) return;
  Perdu();
  StopDemande = Vrai;
}

double ClsCdeZENIK::Silence() const { return muetteDepuis_ < 0 ? 0 : Svc.Horloge() - muetteDepuis_; }

bool ClsCdeZENIK::FinDesEssais() const {
  return FinProgramme || (absenteDepuis_ >= 0 && Svc.Horloge() - absenteDepuis_ >= DelaiAbsence);
}

bool ClsCdeZENIK::EnvoiUne() {
  std::int32_t mode = 0;
  return EnvoiCommande(mode);
}

// The events between may run another command, so the buffer is filled anew before each send.
bool ClsCdeZENIK::EnvoiSansFin(const std::function<void()>& ecrit) {
  for (;;) {
    ecrit();
    if (EnvoiUne()) return true;
    if (FinDesEssais()) return false;
    Svc.LaisseEvenements(Evenements::Tous);
    Svc.Attend(PauseEssai);
  }
}

// A board that takes the command leaves its byte as it stands. Where it comes back otherwise the command may not
// have been taken, and it does no harm twice.
bool ClsCdeZENIK::EnvoiTampon(std::uint8_t mode, std::uint8_t index, std::uint16_t taille) {
  for (int essai = 0; essai < 2; ++essai) {
    Tampon[1] = 'B';
    Tampon[2] = mode;
    if (mode == 2) {
      Tampon[3] = index;
      Tampon[4] = static_cast<std::uint8_t>(taille >> 8U);
      Tampon[5] = static_cast<std::uint8_t>(taille & 0xFFU);
    }
    if (!EnvoiUne()) return false;
    if (Tampon[2] == mode) break;
  }
  return true;
}

bool ClsCdeZENIK::ResetBuffer() {
  travail_ = Travail::Aucun;
  court_ = false;
  if (!EnvoiTampon(0)) return false;
  TravailIncertain = Faux;
  return true;
}

bool ClsCdeZENIK::EnvoiUSB() { return OuvreTravail(Travail::Flux, 0, 0); }

bool ClsCdeZENIK::EnvoiFLASH(std::uint8_t index, std::int16_t taille) {
  return OuvreTravail(Travail::Liste, index, static_cast<std::uint16_t>(taille));
}

bool ClsCdeZENIK::OuvreTravail(Travail travail, std::uint8_t index, std::uint16_t taille) {
  const bool ouvert = ResetBuffer() && EnvoiTampon(travail == Travail::Flux ? 1 : 2, index, taille);
  travail_ = ouvert ? travail : Travail::Aucun;
  TravailIncertain = EnDrapeau(!ouvert);
  if (ouvert) EnCours = Arret = Faux;
  NbBlocsTotal = NbBlocsEnvoyes = NbBlocsTraites = TicksRestants = 0;
  TempsBuffer = 0;
  FinTravail = FinDite = Faux;
  goDemande_ = false;
  IndexDuree = 0;
  IndexSuivi = 0;
  positionClose_ = vitesseDite_ = false;
  ligneUne_ = true;
  // A stored job counts the rows of the plan that it was made of.
  borneBlocs_ = travail == Travail::Flux ? 0
                : NbDeplacements > 0     ? NbDeplacements
                                         : std::numeric_limits<std::int32_t>::max();
  PoseResolutions();
  PasDebutX = PasX;
  PasDebutY = PasY;
  PasDebutZ = PasZ;
  return ouvert;
}

bool ClsCdeZENIK::GoBuffer() {
  goDemande_ = true;
  if (!EnvoiTampon(128)) return false;
  court_ = travail_ != Travail::Aucun;
  // Until the board says otherwise: a question that is lost now must not look like the end of the job.
  if (court_) EnCours = Vrai;
  return true;
}

bool ClsCdeZENIK::RepeteGo() {
  while (!GoBuffer()) {
    if (FinDesEssais()) {
      Perdu();
      return false;
    }
    Svc.LaisseEvenements(Evenements::Tous);
    Svc.Attend(PauseEssai);
  }
  return true;
}

// What a stop answers: number of the record, ticks left, whether the board stands. False: it can't be true.
bool ClsCdeZENIK::LitStop() {
  ReponseEtat etat;
  etat.compte24 = LitCompte24(Tampon, 3);
  etat.ticksRestants = LitTicks(Tampon, 6);
  if (!Croyable(etat, 0)) return false;
  if (travail_ != Travail::Aucun) {
    NbBlocsTraites = static_cast<std::int32_t>(ProlongeCompte(NbBlocsTraites, etat.compte24));
    TicksRestants = etat.ticksRestants;
  }
  const bool arretee = (Tampon[2] & 2U) != 0;
  EnCours = EnDrapeau(!arretee);
  if (arretee && (Tampon[2] & 128U) == 0) StopDemande = Vrai;
  return true;
}

// The places of the answer go out as what no answer can be, so that a board that did not take the stop can't be
// read as one that did.
void ClsCdeZENIK::StopResume(std::uint8_t mode, std::uint8_t palier) {
  const auto demande = [this](std::uint8_t quoi, std::uint8_t niveau) {
    for (int essai = 0; essai < ReponsesFausses; ++essai) {
      const bool repondu = EnvoiSansFin([&] {
        Tampon[1] = Stop;
        Tampon[2] = quoi;
        Tampon[3] = niveau;
        std::fill(Tampon.begin() + 4, Tampon.begin() + 10, std::uint8_t{255});
      });
      if (!repondu) return false;
      if (LitStop()) return true;
    }
    return false;
  };
  if (demande(mode, palier) && mode == 1) {
    std::pair avant{NbBlocsTraites, TicksRestants};
    double vivante = Svc.Horloge();
    while (EnCours != Faux && !FinProgramme) {
      Svc.LaisseEvenements(Evenements::Tous);
      if (!demande(Question, 0)) break;
      const std::pair ici{NbBlocsTraites, TicksRestants};
      if (std::exchange(avant, ici) != ici) vivante = Svc.Horloge();
      if (travail_ == Travail::Aucun || Svc.Horloge() - vivante < DelaiFreinage) continue;
      demande(0, 0);  // it says that it slows down and does nothing: at once, then
      break;
    }
    EnCours = Faux;
  }
  court_ = false;
  if (NbBlocsTraites != 0) DemandeInformation();
}

}  // namespace ovelin
