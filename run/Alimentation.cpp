#include "run/Alimentation.h"

#include <cstddef>

#include "base/Indices.h"
#include "controller/ClsCdeZENIK.h"
#include "core/PlanCourant.h"
#include "core/ReglagesCourants.h"
#include "core/RunCourant.h"
#include "core/Services.h"
#include "run/Module_Decoupe.h"

namespace ovelin {

namespace {

constexpr double DelaiImmobile = 2;  // s without a row accepted or a tick done

}  // namespace

Alimentation::Alimentation(float vRef) : vRef_(vRef), vivante_(Svc.Horloge()) {}

bool Alimentation::Pas() {
  if (dedans_ || Finie() || EcritListe()) return false;
  dedans_ = true;
  bool fait = false;
  if (StopDemande != Faux) {
    Arrete();
  } else if (phase_ == Phase::Lignes) {
    fait = PasLigne();
  } else if (phase_ == Phase::Fin) {
    fait = PasFin();
  } else if (phase_ == Phase::Attente) {
    fait = PasAttente();
  }
  if (!Finie() && !EcritListe()) Surveille(fait);
  dedans_ = false;
  return fait && !Finie();
}

bool Alimentation::PasLigne() {
  if (ligne_ > NbDeplacements) {
    listeFaite_ = ModeEnvoiTable != 0;
    phase_ = Phase::Fin;
    return true;
  }
  Deplacement& ligne = TableDecoupe[base::Indice(ligne_)];
  float v = ligne.Vitesse;
  const bool plane = ligne.dX != 0 || ligne.dY != 0;
  // A ramp has the speed that its depth allows: it follows a slower feed, never a faster one.
  if (vRef_ != 0 && (ligne.dZ == 0 || (plane && Vitesse_Mat_H < vRef_))) {
    v = static_cast<float>(Vitesse_Mat_H * (v / vRef_));
  }
  float t = 0;
  const bool accepte = CdeZENIK->CommandeDATA(ligne.dX, ligne.dY, ligne.dZ, v, t, false);
  if (Perdue() || !accepte) return false;
  if (CdeZENIK->Arret != Faux) {  // not accepted: the board has stopped by itself
    StopDemande = Vrai;
    return false;
  }
  TableDecoupe[base::Indice(ligne_)].Ticks = CdeZENIK->NbTicks;
  if (Vue_Decoupe.Accepte) Vue_Decoupe.Accepte(ligne_, v);
  ++ligne_;
  return true;
}

bool Alimentation::PasFin() {
  const bool accepte = CdeZENIK->CommandeDATAend();
  if (Perdue()) return false;
  if (accepte) {
    phase_ = Phase::Attente;
  } else {
    CdeZENIK->DemandeInformation();
  }
  return accepte;
}

bool Alimentation::PasAttente() {
  CdeZENIK->DemandeInformation();
  if (Perdue()) return false;
  if (CdeZENIK->Arret != Faux) StopDemande = Vrai;
  if (CdeZENIK->EnCours == Faux && StopDemande == Faux && !Oubliee()) phase_ = Phase::Finie;
  return false;
}

// A board at rest that has counted no record of a job that it was given has not come to its end: it is about to
// begin, or it was without current and knows nothing of the job.
bool Alimentation::Oubliee() const {
  const bool donnee = listeFaite_ ? NbDeplacements > 0 : NbBlocsTotal > 0;
  return donnee && CdeZENIK->NbBlocsTraites == 0 && CdeZENIK->FinDite == Faux;
}

// Nobody knows what the board has taken: the run ends by its stop.
bool Alimentation::Perdue() {
  if (CdeZENIK->TravailIncertain == Faux) return false;
  panne_ = Panne::Liaison;
  StopDemande = Vrai;
  return true;
}

void Alimentation::Arrete() {
  phase_ = Phase::Arret;
  CdeZENIK->StopResume(ArretRampe != Faux ? 1 : 0, CdeZENIK->Calc_FDEC());
  if (CdeZENIK->TravailIncertain != Faux) panne_ = Panne::Liaison;
  phase_ = Phase::Finie;
}

// A board that neither takes a row nor moves for two seconds has stopped for a reason of its own.
void Alimentation::Surveille(bool avance) {
  const double maintenant = Svc.Horloge();
  const bool bouge = CdeZENIK->NbBlocsTraites != blocs_ || CdeZENIK->TicksRestants != ticks_;
  blocs_ = CdeZENIK->NbBlocsTraites;
  ticks_ = CdeZENIK->TicksRestants;
  if (avance || bouge) vivante_ = maintenant;
  if (StopDemande != Faux || maintenant - vivante_ < DelaiImmobile) return;
  panne_ = CdeZENIK->IsAvailable() ? Panne::Immobile : Panne::Liaison;
  StopDemande = Vrai;
}

}  // namespace ovelin
