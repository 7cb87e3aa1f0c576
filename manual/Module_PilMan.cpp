#include "manual/Module_PilMan.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "controller/ClsCdeZENIK.h"
#include "controller/Module_ZENIK.h"
#include "core/ChampsMachine.h"
#include "core/Etat.h"
#include "core/Nombres.h"
#include "core/RunCourant.h"
#include "core/Services.h"
#include "machine/Module_Table.h"
#include "machine/TableCourante.h"
#include "manual/NoyauJog.h"
#include "manual/Touches.h"
#include "run/Module_Decoupe.h"
#include "run/Module_Planificateur.h"

namespace ovelin {

EtatPilMan PilMan;

namespace {

[[maybe_unused]] const bool Enregistree = EnregistreRemise([] { PilMan = EtatPilMan{}; });

constexpr float VitesseMin = 0.5F, PasVitesse = 0.5F;  // mm/s
constexpr double DelaiMuette = 0.2;                    // s without an answer that end a jog
constexpr double TicksMax = std::numeric_limits<std::int32_t>::max();

std::array<double, 3> VitessesTable() {
  return {LireNombreTable(ChampsMachine::JogMaxX), LireNombreTable(ChampsMachine::JogMaxY),
          LireNombreTable(ChampsMachine::JogMaxZ)};
}

// The highest that both axes of the plane can do.
float VitessePlan() {
  const auto v = VitessesTable();
  return EnFloat(std::min(v[0], v[1]));
}

// Somebody else has the board, or a move is on its way.
bool CarteOccupee() {
  return PilMan.JogActif || PilMan.prepare || RunActif || OperationCarte || CdeZENIK->EnCours != Faux;
}

EffetTouche ChangeVitesse(int code) {
  float& v = PilMan.Vitesse;
  if (code == touche::Multiplie) {
    v = VitessePlan();
  } else if (PilMan.JogActif) {
    return EffetTouche::Aucun;
  } else if (code == touche::Moins) {
    v = std::max(v - PasVitesse, VitesseMin);
  } else {
    v = std::min(v + PasVitesse, VitessePlan());
  }
  return EffetTouche::Vitesse;
}

// Keys that move nothing; nothing for the others.
EffetTouche Reglage(int code) {
  switch (code) {
    case touche::F1:
      return EffetTouche::Aide;
    case touche::Moins:
    case touche::Plus:
    case touche::Multiplie:
      return ChangeVitesse(code);
    case touche::F5:
    case touche::F6:
    case touche::F7:
    case touche::F8:
      PilMan.Pas = static_cast<std::int16_t>(code - touche::F5 + PasContinu);
      return EffetTouche::Mode;
    case touche::V:
      PilMan.Pas = PasValeurs;
      return EffetTouche::Valeurs;
    default:
      return EffetTouche::Aucun;
  }
}

ParametresJog Demande(int code, bool shift, bool ctrl) {
  ParametresJog p;
  p.sens = SensDe(code);
  p.distances = DistancesDe(PilMan.Pas, PilMan.Valeurs());
  p.vitesse = static_cast<double>(PilMan.Vitesse);
  p.lent = shift || PilMan.Shift != Faux;
  p.rapide = ctrl || PilMan.Ctrl != Faux;
  p.inverseY = LireNombreTable(ChampsMachine::Orientation) == 1;
  p.maxi = VitessesTable();
  p.doux = ClavierActif != Faux;
  p.dureeRecord = TicksMax / (CdeZENIK->Parametres().Multiplicateur * 10'000.0);
  return p;
}

void PlanifieJog(const Jog& jog) {
  InitDecoupe();
  for (const SegmentJog& s : jog.segments) {
    const float v = EnFloat(s.vitesse);
    if (s.mm[2] != 0) {
      AjoutDeplacementZ(EnFloat(s.mm[2]), Faux, v);
    } else {
      AjoutDeplacementRelatif(EnFloat(s.mm[0]), EnFloat(s.mm[1]), Faux, v);
    }
  }
}

// A box of the table's check may stand for a while: whoever lets the key go meanwhile wants no move any more.
EffetTouche Jogue(int code, bool shift, bool ctrl) {
  const ParametresJog p = Demande(code, shift, ctrl);
  const Jog jog = CalculeJog(p);
  if (jog.segments.empty() || CarteOccupee()) return EffetTouche::Aucun;
  PilMan.prepare = true;
  PilMan.annule = false;
  const bool pret = PretParMain();
  PilMan.prepare = false;
  if (!pret || PilMan.annule) return EffetTouche::Aucun;
  PilMan.DistX = p.distances[0];
  PilMan.DistY = p.distances[1];
  PilMan.DistZ = p.distances[2];
  PlanifieJog(jog);
  ClavierActif = Faux;
  LanceParMain(EnFloat(jog.vitesse), PilMan.Pas == PasContinu);
  return EffetTouche::Mouvement;
}

// The first key of the board's keypad that is down, in the order in which they count.
int ToucheDeLaCarte() {
  const std::array<std::pair<Drapeau, int>, 6> touches{{{CdeZENIK->ToucheHautZ, touche::PageHaut},
                                                        {CdeZENIK->ToucheBasZ, touche::PageBas},
                                                        {CdeZENIK->ToucheGauche, touche::Pave(4)},
                                                        {CdeZENIK->ToucheBas, touche::Pave(2)},
                                                        {CdeZENIK->ToucheHaut, touche::Pave(8)},
                                                        {CdeZENIK->ToucheDroite, touche::Pave(6)}}};
  for (const auto& [bas, code] : touches) {
    if (bas != Faux) return code;
  }
  return 0;
}

// A key that is still down from the move before begins no other one, whatever has ended that.
void SuitClavier() {
  const int code = ToucheDeLaCarte();
  if (code == PilMan.toucheCarte) return;
  PilMan.toucheCarte = code;
  if (code == 0) return;
  ClavierActif = Vrai;
  Form_KeyDown(code, false, false);
  ClavierActif = Faux;
  PilMan.toucheCarte = ToucheDeLaCarte();
}

void SuitBroche() {
  if ((CdeZENIK->BrocheActive != Faux) == (PilMan.Broche != Faux)) return;
  if (PilMan.Broche != Faux) {
    BrocheOn();
  } else {
    BrocheOff();
  }
}

// A job that has the board has its replies, too.
void Interroge() {
  if (OperationCarte || PilMan.dansTick || !CdeZENIK->IsAvailable()) return;
  PilMan.dansTick = true;
  CdeZENIK->DemandeInformation();
  SuitBroche();
  if (CdeZENIK->EnCours == Faux) SuitClavier();
  PilMan.dansTick = false;
}

}  // namespace

EffetTouche Form_KeyDown(int code, bool shift, bool ctrl) {
  if (code == touche::Echap) {
    ArreteAussitot();
    Form_KeyUp(code);
    return EffetTouche::Arret;
  }
  if (code == touche::Majuscule || code == touche::Controle) {
    if (PilMan.JogActif) return EffetTouche::Aucun;
    (code == touche::Majuscule ? PilMan.Shift : PilMan.Ctrl) = Vrai;
    return EffetTouche::Modificateur;
  }
  if (SensDe(code) != SensJog{}) return Jogue(code, shift, ctrl);
  return Reglage(code);
}

void Form_KeyUp(int code) {
  if (code == touche::Majuscule) {
    PilMan.Shift = Faux;
  } else if (code == touche::Controle) {
    PilMan.Ctrl = Faux;
  } else {
    ArreteJog();
  }
}

void ArreteJog() {
  if (PilMan.prepare) PilMan.annule = true;
  if (PilMan.JogActif && PilMan.continu) StopDemande = Vrai;
}

void ArreteAussitot() {
  if (PilMan.prepare) PilMan.annule = true;
  ArretRampe = Faux;
  StopDemande = Vrai;
}

void SurveilleLiaison() {
  if (PilMan.JogActif && CdeZENIK->Silence() >= DelaiMuette) ArreteJog();
}

// The spindle is left as it is: a start of the mill reads the table's wish again.
void LanceParMain(float vitesse, bool continu) {
  StopDemande = Faux;
  ArretRampe = Vrai;
  VitesseJog = vitesse;
  BrocheAuto = 0;
  PilMan.continu = continu;
  PilMan.JogActif = true;
  LanceDecoupe(vitesse, AppelantPilotage);
  PilMan.JogActif = PilMan.continu = false;
}

bool CartePresente() { return CdeZENIK->IsAvailable(); }

bool PretParMain() {
  return !PilMan.JogActif && !RunActif && !OperationCarte && CdeZENIK->EnCours == Faux && CdeZENIK->IsAvailable() &&
         CdeZENIK->TableVerif();
}

VueVitesse AfficheVitesse() {
  const bool lent = PilMan.Shift != Faux;
  const bool rapide = PilMan.Ctrl != Faux;
  double v = VitesseModifiee(static_cast<double>(PilMan.Vitesse), lent, rapide);
  if (rapide) v = std::min(v, static_cast<double>(VitessePlan()));
  return {TexteVitesseJog(v), lent || rapide, TexteMode(PilMan.Pas, PilMan.Valeurs())};
}

VuePosition DernierePosition() {
  VuePosition vue;
  vue.palpeur = LireNombreTable(ChampsMachine::FinsDeCourse) == 1;
  vue.enButee = CdeZENIK->Origine != Faux || CdeZENIK->FinDeCourse != Faux;
  vue.lieu = {TextePosition(CdeZENIK->PosX), TextePosition(CdeZENIK->PosY), TextePosition(CdeZENIK->PosZ)};
  return vue;
}

VuePosition TimerPosition() {
  Interroge();
  Svc.MarquePosition(CdeZENIK->PosX, CdeZENIK->PosY);
  return DernierePosition();
}

std::int32_t TientMoteur() {
  MoteurOn();
  constexpr double MsParSeconde = 1000;
  return std::max(Arrondi32(LireNombreTable(ChampsMachine::MaintienMoteur) * MsParSeconde), 0);
}

bool BasculeBroche() {
  PilMan.Broche = EnDrapeau(PilMan.Broche == Faux);
  return PilMan.Broche != Faux;
}

}  // namespace ovelin
