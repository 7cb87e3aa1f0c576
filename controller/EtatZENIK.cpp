// The reader of replies: the members of the last status, and the position to the step.
#include <algorithm>

#include "controller/ClsCdeZENIK.h"
#include "core/Nombres.h"
#include "core/PlanCourant.h"
#include "core/RunCourant.h"
#include "core/Services.h"
#include "machine/TableCourante.h"

namespace ovelin {

namespace {

constexpr double PeriodeLieu = 1.0 / 30;  // s between two places on show while the machine moves

// Held within its width: a table may hold more steps than that.
std::int32_t Ajoute(std::int32_t pas, std::int32_t ecart) { return Arrondi32(static_cast<double>(pas) + ecart); }

std::uint8_t PourCent(std::uint8_t valeur) { return static_cast<std::uint8_t>(Arrondi32(valeur * 100 / 255.0)); }

// Row `bloc` of the table of moves, nullptr beyond it.
const Deplacement* LigneDe(std::int64_t bloc) {
  if (bloc < 1 || bloc > NbDeplacements || bloc >= static_cast<std::int64_t>(TableDecoupe.size())) return nullptr;
  return &TableDecoupe[static_cast<std::size_t>(bloc)];
}

}  // namespace

void ClsCdeZENIK::DemandeInformation() {
  Tampon[1] = 'I';
  Tampon[2] = 0;
  if (!EnvoiUne()) return;
  const ReponseEtat etat = LitReponseEtat(Tampon);
  if (Croyable(etat, 0)) LectureEtat(etat);
}

bool ClsCdeZENIK::IsStepProcessed() {
  Tampon[1] = 'I';
  Tampon[2] = 0;
  if (!EnvoiUne()) return EnCours != Faux;
  const ReponseEtat etat = LitReponseEtat(Tampon);
  return Croyable(etat, 0) ? etat.EnCours() : EnCours != Faux;
}

bool ClsCdeZENIK::Touche() {
  Tampon[1] = 'I';
  Tampon[2] = 0;
  return EnvoiUne() && Tampon[11] != 0;
}

// What the board counts in a job of somebody else is not known here.
bool ClsCdeZENIK::Croyable(const ReponseEtat& etat, std::int32_t enPlus) const {
  if (travail_ == Travail::Aucun) return true;
  const std::int64_t compte = ProlongeCompte(NbBlocsTraites, etat.compte24);
  if (compte > borneBlocs_ + enPlus) return false;
  // The record that is just being accepted may already run.
  const bool nouveau = enPlus != 0 && compte > borneBlocs_;
  const Deplacement* ligne = nouveau ? nullptr : LigneDe(compte);
  const std::int32_t ticks = nouveau ? NbTicks : ligne != nullptr ? ligne->Ticks : 0;
  return TicksPossibles(etat.ticksRestants, ticks);
}

void ClsCdeZENIK::LectureEtat(const ReponseEtat& etat) {
  EtatOctet2 = EnDrapeau(etat.octet2 != 0);
  EtatOctet3 = etat.octet3;
  NbBlocsTraites = static_cast<std::int32_t>(
      travail_ == Travail::Aucun ? etat.compte24 : ProlongeCompte(NbBlocsTraites, etat.compte24));
  const auto bit = [](std::uint8_t octet, unsigned rang) {
    return EnDrapeau((static_cast<unsigned>(octet) >> rang & 1U) != 0);
  };
  EnCours = bit(etat.octet7, 0);
  Arret = bit(etat.octet7, 1);
  EtatBit3 = bit(etat.octet7, 3);
  BrocheActive = bit(etat.octet7, 4);
  EtatBit5 = bit(etat.octet7, 5);
  EtatBit6 = bit(etat.octet7, 6);
  EtatB8Bit0 = bit(etat.octet8, 0);
  FinDeCourse = bit(etat.octet8, 1);
  Origine = bit(etat.octet8, 2);
  EtatB8Bit5 = bit(etat.octet8, 5);
  Analog1 = PourCent(etat.analog1);
  Analog2 = PourCent(etat.analog2);
  LitTouches(etat.touches);
  TicksRestants = etat.ticksRestants;
  // The board says "stopped" until its buffer is cleared: only in a job of this program that runs is it news.
  if (etat.Arrete() && ClavierZENIK != 0 && court_) StopDemande = Vrai;
  if (etat.Arrete() || etat.Fini()) court_ = false;
  FinDite = EnDrapeau(etat.Fini());
  if (travail_ != Travail::Aucun) SuitPosition(etat);
  // As often as an eye can follow; the place at which the machine stands in any case.
  const double maintenant = Svc.Horloge();
  if (EnCours == Faux || maintenant - montree_ >= PeriodeLieu || maintenant < montree_) {
    montree_ = maintenant;
    Svc.MontrePosition(PosX, PosY, PosZ);
  }
  Svc.MarquePosition(PosX, PosY);
}

// Letting a key go stops what it had begun.
void ClsCdeZENIK::LitTouches(std::uint8_t touches) {
  const std::array<Drapeau*, 6> touche{&ToucheHautZ, &ToucheBasZ, &ToucheGauche,
                                       &ToucheBas,   &ToucheHaut, &ToucheDroite};
  constexpr std::array<unsigned, 6> Bits{0, 1, 4, 5, 6, 7};
  for (std::size_t i = 0; i < touche.size(); ++i) {
    *touche[i] = EnDrapeau(ClavierZENIK != 0 && (static_cast<unsigned>(touches) >> Bits[i] & 1U) != 0);
    if (ClavierZENIK == 0) continue;
    if (*touche[i] == Faux && EtatClavier[i] != Faux) StopDemande = Vrai;
    EtatClavier[i] = *touche[i];
  }
}

// PasDebut is where the record begins that the board counts: all rows before it are added up.
void ClsCdeZENIK::AvanceSuivi() {
  while (IndexSuivi < NbBlocsTraites) {
    if (const Deplacement* ligne = LigneDe(IndexSuivi)) {
      PasDebutX = Ajoute(PasDebutX, ligne->dX);
      PasDebutY = Ajoute(PasDebutY, ligne->dY);
      PasDebutZ = Ajoute(PasDebutZ, ligne->dZ);
    }
    ++IndexSuivi;
  }
}

void ClsCdeZENIK::SuitPosition(const ReponseEtat& etat) {
  if (etat.SansPosition() || FinTravail != Faux || positionClose_ || NbBlocsTraites == 0) return;
  if (mmParPas_ != mmParPasMachine_) PoseResolutions();  // a plan for a file has counted in steps of its own
  AvanceSuivi();
  if (const Deplacement* ligne = LigneDe(NbBlocsTraites)) {
    // At the end the last record that has run is done; in the debug log nothing of the table has.
    const std::int32_t reste = etat.Fini() ? -1 : TicksRestants;
    const std::int32_t ticks = etat.Fini() ? std::max(ligne->Ticks, 1) : ligne->Ticks;
    PasX = PasAtteint(PasDebutX, ligne->dX, ticks, reste);
    PasY = PasAtteint(PasDebutY, ligne->dY, ticks, reste);
    PasZ = PasAtteint(PasDebutZ, ligne->dZ, ticks, reste);
  }
  if (etat.Fini()) {
    PasDebutX = PasX;
    PasDebutY = PasY;
    PasDebutZ = PasZ;
    FinTravail = Vrai;
  }
  // The table may soon be another one.
  positionClose_ = etat.Arrete() && !etat.EnCours();
  PosX = Pas_mm_X(PasX);
  PosY = Pas_mm_Y(PasY);
  PosZ = Pas_mm_Z(PasZ);
}

}  // namespace ovelin
