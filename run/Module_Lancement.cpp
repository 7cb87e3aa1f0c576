#include "run/Module_Lancement.h"

#include <algorithm>
#include <optional>

#include "controller/ClsCdeZENIK.h"
#include "controller/Module_ZENIK.h"
#include "core/DocumentCourant.h"
#include "core/Nombres.h"
#include "core/PlanCourant.h"
#include "core/ReglagesCourants.h"
#include "core/RunCourant.h"
#include "core/Services.h"
#include "core/Textes.h"
#include "machine/Module_Table.h"
#include "run/AvisPlan.h"
#include "run/Module_Decoupe.h"
#include "run/Module_Fraisage.h"
#include "run/Module_Planificateur.h"
#include "run/NoyauPlan.h"
#include "run/NoyauReprise.h"

namespace ovelin {

namespace {

std::string Vitesse(double v) { return Formate(v, "0.00"); }

bool Question(CleTexte cle, const std::string& texte, Icone icone) {
  BoiteMessage boite = BoiteDe(cle, icone, Boutons::OkAnnuler);
  boite.texte = texte;
  return Svc.Montre(boite) == Reponse::Ok;
}

// What start and resume have in common: the machine's table, a board, a depth of pass and a speed.
bool Pret(const std::string& vitesse) {
  if (TraceDecale.empty()) return false;
  if (OperationCarte) {
    Svc.Bip();
    return false;
  }
  ChargeGlobalesTable();
  const bool presente = CdeZENIK->IsAvailable();
  if (presente) CdeZENIK->TableVerif();
  if (ProfPasse == 0) {
    Message(Textes::PasseSansFin, Icone::Critique);
    return false;
  }
  if (!presente) {
    Message(Textes::CarteNonConnectee, Icone::Critique);
    return false;
  }
  if (const auto refus = EntreVit_Mat_H(vitesse)) {
    Message(*refus, Icone::Critique);
    return false;
  }
  return true;
}

bool ProfondeursNegatives() {
  if (ProfFraisage > 0) {
    Message(Textes::ProfondeurPositive, Icone::Critique);
    return false;
  }
  if (ProfPasse > 0) {
    Message(Textes::PassePositive, Icone::Critique);
    return false;
  }
  return true;
}

bool Planifie() {
  if (const auto refus = VerifieHautDeg()) {
    MessageFichier(refus->cle, refus->suite, Icone::Critique, "");
    return false;
  }
  return Tableau_Decoupe();
}

// A speed that the axes can't follow becomes the one that they can, or there is no run; one that needs ramps is the
// user's to choose. False: cancelled.
bool AccepteVitesse(std::string& vitesse) {
  double vSansRampe = 0;
  double vMax = 0;
  std::int16_t reserve = 0;
  Vitesse_Decoupe_H(vSansRampe, vMax, reserve);
  if (Depasse(Vitesse_Mat_H, vMax)) {
    const std::string texte =
        Traduire(Textes::VitesseTropHaute) + " (" + Vitesse(vMax) + "). \n" + Traduire(Textes::VitesseRamenee);
    if (!Question(Textes::VitesseTropHaute, texte, Icone::Critique)) return false;
    vitesse = Vitesse(vMax);
    return !EntreVit_Mat_H(vitesse) && Planifie();
  }
  if (Depasse(Vitesse_Mat_H, vSansRampe)) {
    const std::string texte = Traduire(Textes::RampeJusque) + " " + Vitesse(vSansRampe) + " " +
                              Traduire(Textes::RampeAuDela) + "\n" + Traduire(Textes::RampeMaxi) + " " +
                              Vitesse(vMax) + " " + Traduire(Textes::RampeQuestion);
    return Question(Textes::RampeJusque, texte, Icone::Question);
  }
  return true;
}

void Lance() {
  float vRef = EnFloat(Vitesse_Mat_H);
  LanceDecoupe(vRef, AppelantFraisage);
}

}  // namespace

bool LanceFraisage(std::string& vitesse, std::uint8_t mode) {
  if (!Pret(vitesse) || !ProfondeursNegatives() || !Planifie()) return false;
  ArretRampe = Faux;
  if (!AccepteVitesse(vitesse)) return false;
  ModeEnvoiTable = mode;
  ListeFlash.assign(1, 0);
  ArretRampe = Vrai;
  StopDemande = Faux;
  AttendCarte = PlacePerdue = false;
  // A stop before the first record resumes at the beginning of this job, never in an older one.
  TableReprise = LignesDepuis(Plan, 2);
  DepartReprise = {CdeZENIK->PasX, CdeZENIK->PasY, CdeZENIK->PasZ};
  Lance();
  return true;
}

void ArreteFraisage() {
  StopDemande = Vrai;
  ModeEnvoiTable = 0;
  Svc.RetientVeille(false);
  BrocheOff();
  FraisageEnCours = Faux;
}

bool ReprendFraisage(const std::string& vitesse) {
  if (TableReprise.size() < 2 || CdeZENIK->EnCours != Faux || OperationCarte) return false;
  if (AttendCarte && !RetrouveCarte()) {
    Message(Textes::CarteNonConnectee, Icone::Critique);
    return false;
  }
  if (PlacePerdue) {
    Message(Textes::PlaceDeLaCartePerdue, Icone::Critique);
    return false;
  }
  if (!Pret(vitesse)) return false;
  ModeEnvoiTable = 0;
  ArretRampe = Vrai;
  StopDemande = Faux;
  FraisageEnCours = Vrai;
  BrocheOn();
  const Deplacement premiere = TableReprise[1];
  const Deplacement arrivee = ArriveeReprise(premiere, CdeZENIK->MmParPasZ());
  InitDecoupe();
  AjoutDeplacementZ(EnFloat(HautDeg - CdeZENIK->PosZ), Faux, 0);
  PointTrace depart;
  depart.X = EnFloat(CdeZENIK->Pas_mm_X(CdeZENIK->PasX));
  depart.Y = EnFloat(CdeZENIK->Pas_mm_Y(CdeZENIK->PasY));
  PointTrace reprise;
  reprise.X = EnFloat(premiere.X - CdeZENIK->Pas_mm_X(premiere.dX));
  reprise.Y = EnFloat(premiere.Y - CdeZENIK->Pas_mm_Y(premiere.dY));
  AjoutDeplacement(depart, reprise, Faux, 0);
  AjoutDeplacementZ(-HautDeg, Faux, 0);
  AjoutDeplacementZ(arrivee.Z, Vrai, 0);
  CaleApproche(Plan, {CdeZENIK->PasX, CdeZENIK->PasY, CdeZENIK->PasZ}, DepartReprise, arrivee);
  AjouteReste(Plan, TableReprise, EnFloat(Vitesse_Mat_H));
  Lance();
  return true;
}

void AbandonneFraisage() {
  TableReprise.clear();
  AttendCarte = PlacePerdue = false;
  if (Vue_Decoupe.Face) Vue_Decoupe.Face(FaceCourante());
}

bool EssaiFlash() {
  if (TraceDecale.empty()) return false;
  if (OperationCarte) {
    Svc.Bip();
    return false;
  }
  if (!CdeZENIK->IsAvailable()) {
    Message(Textes::CarteNonConnectee, Icone::Critique);
    return false;
  }
  if (!CdeZENIK->Flash_Model()) {
    Message(Textes::SansMemoireFlash, Icone::Critique);
    return false;
  }
  ChargeGlobalesTable();
  CdeZENIK->TableVerif();
  if (!Planifie()) return false;
  Svc.Pilotage(DemandePilotage::SansOrigine);
  ModeEnvoiTable = MemoireEtFraisage;
  ListeFlash.assign(1, 0);
  ArretRampe = Vrai;
  StopDemande = Faux;
  AttendCarte = PlacePerdue = false;
  float vRef = 0;
  LanceDecoupe(vRef, AppelantEssaiFlash);
  return true;
}

bool EteintMoteur() {
  if (OperationCarte || CdeZENIK->EnCours != Faux) return false;
  MoteurOff();
  return true;
}

void ArreteAvantFin() {
  StopDemande = ArretRampe = Vrai;
  if (!CdeZENIK->IsAvailable()) return;
  CdeZENIK->StopResume(1, CdeZENIK->Calc_FDEC());
  CdeZENIK->CommandePWM(0, 255);
  CdeZENIK->IO1OnOff(false);
  CdeZENIK->DemandeInformation();
  if (CdeZENIK->EnCours != Faux) CdeZENIK->Reset();
}

}  // namespace ovelin
