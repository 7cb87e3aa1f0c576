#include "manual/Module_PlaceMan.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>

#include "controller/ChoixCarte.h"
#include "controller/ClsCdeZENIK.h"
#include "core/Cles.h"
#include "core/ClesReglages.h"
#include "core/Nombres.h"
#include "core/RunCourant.h"
#include "manual/Module_PilMan.h"
#include "manual/NoyauJog.h"

namespace ovelin {

namespace {

namespace s = cles::suffixe;

std::string Cle(const char* suffixe) { return std::string("F_PilMan") + suffixe; }
double Lit(const char* suffixe, double defaut) { return LireNombre(Cle(suffixe), defaut); }
void Ecrit(const char* suffixe, double v) { EcrireCle(Cle(suffixe), TexteNombre(v)); }
void Ecrit(const char* suffixe, float v) { EcrireCle(Cle(suffixe), TexteNombre(v)); }
void Ecrit(const char* suffixe, std::int32_t v) { EcrireCle(Cle(suffixe), TexteNombre(static_cast<long>(v))); }

struct AxePlace {
  const char *pas, *mm;
  std::int32_t ClsCdeZENIK::*debut;
  std::int32_t ClsCdeZENIK::*compte;
  double ClsCdeZENIK::*lieu;
};
constexpr std::array<AxePlace, 3> Axes{{
    {s::PlacePasX, s::PlaceReelleX, &ClsCdeZENIK::PasDebutX, &ClsCdeZENIK::PasX, &ClsCdeZENIK::PosX},
    {s::PlacePasY, s::PlaceReelleY, &ClsCdeZENIK::PasDebutY, &ClsCdeZENIK::PasY, &ClsCdeZENIK::PosY},
    {s::PlacePasZ, s::PlaceReelleZ, &ClsCdeZENIK::PasDebutZ, &ClsCdeZENIK::PasZ, &ClsCdeZENIK::PosZ},
}};

// A mark that stands already is not written again: a jog waits for no disk.
void Marque(bool pose) {
  if (PilMan.marque == pose) return;
  PilMan.marque = pose;
  Ecrit(s::Course, pose ? -1 : 0);
}

// The steps count; the millimetres of the same moment are for who reads the file.
void EcritCompteurs() {
  CdeZENIK->PoseResolutions();
  for (const AxePlace& axe : Axes) {
    Ecrit(axe.pas, (*CdeZENIK).*axe.compte);
    Ecrit(axe.mm, (*CdeZENIK).*axe.lieu);
  }
}

void ReprendCompteurs() {
  ClsCdeZENIK& c = *CdeZENIK;
  c.PoseResolutions();
  for (const AxePlace& axe : Axes) c.*axe.debut = c.*axe.compte = Arrondi32(Lit(axe.pas, 0));
  c.PosX = c.Pas_mm_X(c.PasX);
  c.PosY = c.Pas_mm_Y(c.PasY);
  c.PosZ = c.Pas_mm_Z(c.PasZ);
}

// From here on the counters in force are those of the machine. The mark of an end that was not clean makes their
// place a doubtful one.
void CommenceSession() {
  PilMan.lue = true;
  PilMan.carte = LaCarte.rang;
  PilMan.marque = Lit(s::Course, 0) != 0;
  PilMan.placeDouteuse = PilMan.marque;
}

}  // namespace

void LitPilMan() {
  const SansProjet reglages;
  const double vitesse = Lit(s::VitesseMain, 4);
  PilMan.Vitesse = vitesse > 0 ? EnFloat(vitesse) : EtatPilMan{}.Vitesse;
  PilMan.DistX = Lit(s::DistanceX, 1);
  PilMan.DistY = Lit(s::DistanceY, 1);
  PilMan.DistZ = Lit(s::DistanceZ, 1);
  const double pas = Lit(s::PasMain, PasContinu);
  PilMan.Pas = pas >= PasValeurs && pas <= PasDernier ? Arrondi16(pas) : PasContinu;
  PilMan.ValeurX = EnFloat(Lit(s::ValeurX, 0));
  PilMan.ValeurY = EnFloat(Lit(s::ValeurY, 0));
  PilMan.ValeurZ = EnFloat(Lit(s::ValeurZ, 0));
  PilMan.Ctrl = PilMan.Shift = Faux;
  if (!PilMan.lue) {
    ReprendCompteurs();
    CommenceSession();
  }
  SuitCarte();
  Marque(true);
}

bool SuitCarte() {
  if (!PilMan.lue || PilMan.carte == LaCarte.rang) return false;
  PilMan.carte = LaCarte.rang;
  PilMan.placeDouteuse = true;
  return true;
}

void FermePilMan() {
  SuitCarte();
  const SansProjet reglages;
  const LotCles lot;
  Ecrit(s::VitesseMain, PilMan.Vitesse);
  Ecrit(s::DistanceX, PilMan.DistX);
  Ecrit(s::DistanceY, PilMan.DistY);
  Ecrit(s::DistanceZ, PilMan.DistZ);
  Ecrit(s::PasMain, std::int32_t{PilMan.Pas});
  Ecrit(s::ValeurX, PilMan.ValeurX);
  Ecrit(s::ValeurY, PilMan.ValeurY);
  Ecrit(s::ValeurZ, PilMan.ValeurZ);
  EcritCompteurs();
  if (OperationCarte) {
    PilMan.fermee = true;  // the end of the job takes the mark away
  } else {
    Marque(PilMan.placeDouteuse);
  }
}

void EcritPlace() {
  const SansProjet reglages;
  const LotCles lot;
  if (!PilMan.lue) return CommenceSession();
  EcritCompteurs();
}

void SuitPilotage(DemandePilotage demande) {
  const SansProjet reglages;
  const LotCles lot;
  if (!PilMan.lue) CommenceSession();
  SuitCarte();
  if (demande == DemandePilotage::SeTait) {
    PilMan.fermee = !PilMan.marque;
    Marque(true);
  } else if (demande == DemandePilotage::Interroge) {
    if (CdeZENIK->TravailIncertain != Faux) PilMan.placeDouteuse = true;
    EcritCompteurs();
    if (PilMan.fermee && !PilMan.placeDouteuse) Marque(false);
  }
}

void ConfirmePlace() { PilMan.placeDouteuse = false; }

bool LitCoin(int& gauche, int& haut) {
  const SansProjet reglages;
  if (LireCle(Cle(s::Gauche), "").empty()) return false;
  gauche = Arrondi32(Lit(s::Gauche, 0));
  haut = Arrondi32(Lit(s::Haut, 0));
  return true;
}

void EcritCoin(int gauche, int haut) {
  const SansProjet reglages;
  const LotCles lot;
  Ecrit(s::Gauche, gauche);
  Ecrit(s::Haut, haut);
}

}  // namespace ovelin
