// The motion records: computed, sent or stored, and what is counted of them.
#include <algorithm>
#include <cmath>
#include <numeric>

#include "controller/ClsCdeZENIK.h"
#include "core/Nombres.h"
#include "core/PlanCourant.h"
#include "core/ReglagesCourants.h"
#include "core/RunCourant.h"
#include "core/Services.h"
#include "core/Textes.h"
#include "machine/TableCourante.h"

namespace ovelin {

namespace {

constexpr std::int32_t BlocsAvantDepart = 7;  // the board begins when it has as many records ahead

float Vitesse(double v) { return EnFloat(std::max(v, VitesseMini)); }

}  // namespace

// A table that is written may have put another multiplier in force.
CalculMouvement& ClsCdeZENIK::Calcul() {
  if (!calcul_.Vaut(parametres_.Multiplicateur, parametres_.TempsPalier)) {
    calcul_ = CalculMouvement(parametres_.Multiplicateur, parametres_.TempsPalier);
  }
  return calcul_;
}

Mouvement ClsCdeZENIK::Calcule(const std::array<std::int32_t, 3>& pas, float v) {
  LimitesAxes axes;
  axes.MmParPas = mmParPas_;
  // Start speeds are as wide as V is: a row at exactly the start speed then has no ramp.
  for (std::size_t i = 0; i < 3; ++i) axes.VitesseDepart[i] = Vitesse(parametres_.VitesseDepart[i]);
  axes.VitesseMax = {Vitesse(static_cast<double>(VitesseMaxX)), Vitesse(static_cast<double>(VitesseMaxY)),
                     Vitesse(static_cast<double>(VitesseMaxZ))};
  return Calcul().Calcule(axes, pas, v);
}

bool ClsCdeZENIK::CommandeDATAmm(float dX, float dY, float dZ, float& V, float& T) {
  const std::array<float, 3> mm{dX, dY, dZ};
  std::array<std::int32_t, 3> pas{};
  for (std::size_t i = 0; i < 3; ++i) pas[i] = Arrondi32(static_cast<double>(mm[i]) / mmParPas_[i]);
  return CommandeDATA(pas[0], pas[1], pas[2], V, T, false);
}

// Nothing moves, so nothing is sent but the question; the record counts all the same.
bool ClsCdeZENIK::SansMouvement(float& t, bool simulation) {
  if (simulation) {
    t = 0;
    return false;
  }
  DemandeInformation();
  CompteBloc(t);
  return true;
}

bool ClsCdeZENIK::CommandeDATA(std::int32_t dX, std::int32_t dY, std::int32_t dZ, float& V, float& T,
                               bool simulation) {
  if (dX == 0 && dY == 0 && dZ == 0) return SansMouvement(T, simulation);
  const Mouvement m = Calcule({dX, dY, dZ}, V);
  V = m.V;
  T = EnFloat(m.T);
  NbTicks = m.Ticks;
  if (m.vitesseTenue && !vitesseDite_) {
    vitesseDite_ = true;
    Svc.Montre(BoiteDe(Textes::VitesseNulle, Icone::Exclamation));
  }
  if (simulation) return false;
  ComposeRecord(m, Tampon);
  if (ModeEnvoiTable != 0) {
    AjouteListe();
    return true;
  }
  if (Regl.DebugZENIK) return JournalDebug();
  bool accepte = false;
  if (!EnvoiRecord(1, accepte)) return Arret != Faux;
  const ReponseEtat etat = LitReponseEtat(Tampon);
  if (accepte) {
    ++borneBlocs_;
    AjouteLigne(m);
    CompteBloc(T);
  }
  // The go may have let other commands run: their reply is then the newer one.
  if (SansSuivi == Faux && Croyable(etat, 0)) LectureEtat(etat);
  return accepte || Arret != Faux;
}

bool ClsCdeZENIK::CommandeDATAend() {
  std::fill(Tampon.begin(), Tampon.begin() + 33, std::uint8_t{0});
  Tampon[1] = 'D';
  Tampon[2] = DrapeauFin;
  bool accepte = false;
  if (!EnvoiRecord(0, accepte)) return false;
  EnCours = EnDrapeau((Tampon[7] & 1U) != 0);
  if (accepte && NbBlocsEnvoyes < BlocsAvantDepart) RepeteGo();
  return accepte;
}

// A record whose exchange has failed is never sent again: nobody knows whether the board has it, and it must not
// run twice.
bool ClsCdeZENIK::EnvoiRecord(std::int32_t mode, bool& accepte) {
  if (TravailIncertain != Faux) return false;
  const bool repondu = EnvoiCommande(mode);
  const ReponseEtat etat = LitReponseEtat(Tampon);
  accepte = etat.octet2 == 1;
  if (repondu && Croyable(etat, accepte ? 1 : 0)) return true;
  Perdu();
  return false;
}

void ClsCdeZENIK::Perdu() { TravailIncertain = Vrai; }

void ClsCdeZENIK::CompteBloc(float t) {
  ++NbBlocsEnvoyes;
  if (NbBlocsEnvoyes == BlocsAvantDepart) RepeteGo();
  IndexDuree = static_cast<std::int16_t>(IndexDuree % 7 + 1);
  DureesBlocs[static_cast<std::size_t>(IndexDuree - 1)] = static_cast<double>(t);
  TempsBuffer = std::accumulate(DureesBlocs.begin(), DureesBlocs.end(), 0.0);
  ++NbBlocsTotal;
}

// The list always has one byte more than its records: the last one becomes the end mark.
void ClsCdeZENIK::AjouteListe() {
  const int octets = (Tampon[2] & DrapeauRampe) != 0 ? OctetsRecordRampe : OctetsRecord;
  if (!ListeFlash.empty()) ListeFlash.pop_back();
  ListeFlash.insert(ListeFlash.end(), Tampon.begin() + 2, Tampon.begin() + 2 + octets);
  ListeFlash.push_back(0);
}

// Moves without a plan get a table of their own, or their positions could not be followed. The rows of a run are
// there; how long one lasts is known now.
void ClsCdeZENIK::AjouteLigne(const Mouvement& m) {
  if (RunActif || FraisageEnCours != Faux) {
    const auto bloc = static_cast<std::size_t>(borneBlocs_);
    if (bloc < TableDecoupe.size()) TableDecoupe[bloc].Ticks = m.Ticks;
    return;
  }
  if (ligneUne_ || TableDecoupe.empty()) {
    Plan = EtatPlan{};
    TableDecoupe.resize(1);
    ligneUne_ = false;
  }
  Deplacement ligne;
  const Deplacement& avant = TableDecoupe.back();
  const bool premiere = NbDeplacements == 0;
  ligne.X = EnFloat((premiere ? PosX : static_cast<double>(avant.X)) + Pas_mm_X(m.pas[0]));
  ligne.Y = EnFloat((premiere ? PosY : static_cast<double>(avant.Y)) + Pas_mm_Y(m.pas[1]));
  ligne.Z = EnFloat((premiere ? PosZ : static_cast<double>(avant.Z)) + Pas_mm_Z(m.pas[2]));
  ligne.dX = m.pas[0];
  ligne.dY = m.pas[1];
  ligne.dZ = m.pas[2];
  ligne.Vitesse = m.V;
  ligne.Ticks = m.Ticks;
  TableDecoupe.push_back(ligne);
  ++NbDeplacements;
}

std::uint8_t ClsCdeZENIK::Calc_FDEC() {
  double rapport = 0;
  for (std::size_t i = 0; i < 3; ++i) {
    rapport = std::max(rapport, parametres_.VitesseRampe[i] / parametres_.VitesseDepart[i]);
  }
  return static_cast<std::uint8_t>(Calcul().PalierDe(rapport));
}

}  // namespace ovelin
