#include "gcode/Module_FraisageGcode.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "base/Indices.h"
#include "controller/ClsCdeZENIK.h"
#include "controller/Module_ZENIK.h"
#include "core/Cadence.h"
#include "core/Cles.h"
#include "core/ClesReglages.h"
#include "core/Etat.h"
#include "core/Nombres.h"
#include "core/ReglagesCourants.h"
#include "core/RunCourant.h"
#include "core/Services.h"
#include "core/Textes.h"
#include "core/Traduction.h"
#include "gcode/Interprete.h"
#include "gcode/Module_Gcode.h"
#include "machine/Module_Table.h"
#include "machine/TableCourante.h"

namespace ovelin {

VueGcode Vue_Gcode;

namespace {

constexpr double PauseBoucle = 0.0015;  // s, while the board takes nothing
constexpr std::uint8_t BrochePleine = 100;

using Pas3 = std::array<std::int32_t, 3>;

// The switches that a program sets, so that a change of the tool and a resume find them again.
struct Sorties {
  bool auxiliaire = true;  // the run begins with it on
  bool broche = false;
};

// The program's coordinates in those of the run, whose origin is the place where it began. They part at each G92,
// which moves nothing.
class Repere {
 public:
  // The place where this move ends, mm from the run's origin.
  Lieu Arrivee(const MouvementLigne& m) {
    origine_.X += dernier_.X - m.depart.X;
    origine_.Y += dernier_.Y - m.depart.Y;
    origine_.Z += dernier_.Z - m.depart.Z;
    dernier_ = m.arrivee;
    return {origine_.X + m.arrivee.X, origine_.Y + m.arrivee.Y, origine_.Z + m.arrivee.Z};
  }
  [[nodiscard]] Lieu Place() const {
    return {origine_.X + dernier_.X, origine_.Y + dernier_.Y, origine_.Z + dernier_.Z};
  }
  // A place of the run in the program's coordinates.
  [[nodiscard]] Lieu EnProgramme(const Lieu& lieu) const {
    return {lieu.X - origine_.X, lieu.Y - origine_.Y, lieu.Z - origine_.Z};
  }

 private:
  Lieu origine_, dernier_;
};

// What a stop leaves.
struct Reste {
  std::size_t ligne = 0;  // under way, from 0
  Pas3 depart{};          // steps of the machine at the run's origin
  Sorties sorties;
  std::uint32_t numero = 0;  // moves before that line
};
std::optional<Reste> Laisse;

[[maybe_unused]] const bool Enregistree = EnregistreRemise([] {
  Vue_Gcode = VueGcode{};
  Laisse.reset();
});

Pas3 PasDeLaMachine() { return {CdeZENIK->PasX, CdeZENIK->PasY, CdeZENIK->PasZ}; }
std::array<double, 3> MmParPas() { return {CdeZENIK->MmParPasX(), CdeZENIK->MmParPasY(), CdeZENIK->MmParPasZ()}; }

bool Arrete() { return StopDemande != Faux || FinProgramme; }

// Interprets without moving, to find what holds before a line.
class Suiveur : public Recepteur {
 public:
  explicit Suiveur(Repere& repere) : repere_(repere) {}
  void Deplace(const MouvementLigne& m) override {
    repere_.Arrivee(m);
    ++mouvements;
  }
  void Machine(MotMachine) override {}
  void Pause(double) override {}
  void Broche(double) override {}
  void Rejete(const Mot&) override {}
  void Arc(DefautArc) override {}
  std::uint32_t mouvements = 0;

 private:
  Repere& repere_;
};

class Run : public Recepteur {
 public:
  Run(const Programme& programme, const MesureProgramme& mesure) : programme_(programme), mesure_(mesure) {}

  IssueGcode Commence();
  IssueGcode Continue(const Reste& reste);

  void Deplace(const MouvementLigne& mouvement) override;
  void Machine(MotMachine mot) override;
  void Pause(double secondes) override;
  void Broche(double tours) override;
  void Rejete(const Mot& mot) override;
  void Arc(DefautArc defaut) override;

 private:
  void PrendTable();
  bool Ouvre();
  void Occupe(bool occupe);
  IssueGcode Execute(std::size_t premiere);
  void Lignes(std::size_t premiere);
  bool Va(const Lieu& lieu, double vitesse);
  void Envoie(const PointXYZ& depart, const PointXYZ& arrivee, double vitesse);
  void Vide();
  void AttendOutil();
  bool OutilChange();
  void Rouvre();
  void Respire(bool attend);
  void NoteBlocs(std::int32_t avant);
  void ConstateArret();
  void Termine();
  void Arretee();
  void Montre();

  const Programme& programme_;
  const MesureProgramme& mesure_;
  EtatModal etat_;
  Repere repere_;
  Pas3 origine_{};  // steps of the machine at the run's origin
  Pas3 pas_{};      // steps sent since then
  Sorties sorties_;
  double brocheMaxi_ = 0;  // turns a minute
  bool ouvert_ = false;    // a job is open on the board
  std::size_t ligne_ = 0;
  std::uint32_t numero_ = 0;
  std::vector<std::uint32_t> lignesDesBlocs_;  // line of each record of the open job
  double laisse_ = 0;                          // s, when events ran last
};

// The table of the settings, on the board and in the limits. A search that finds nothing makes nothing default.
void Run::PrendTable() {
  CdeZENIK->TableVerif();
  {
    const SansProjet reglages;
    EcrireCle(cles::TableDefaut, TableDefaut);
  }
  ChargeGlobalesTable();
  brocheMaxi_ = LireNombreTable(ChampsMachine::VitesseBroche);
  const std::int16_t numero = CdeZENIK->TableRecherche(TableDefaut);
  if (numero >= 0) CdeZENIK->TableDefautEcrire(static_cast<std::uint8_t>(numero));
  for (float* v : {&VitesseMaxX, &VitesseMaxY, &VitesseMaxZ}) {
    *v = EnFloat(NombreDuTexte(Formate(*v, "0.000")).value_or(double{*v}));
  }
}

bool Run::Ouvre() {
  CdeZENIK->MotorOnOff(true);
  CdeZENIK->TableVerif();
  ouvert_ = CdeZENIK->EnvoiUSB();
  lignesDesBlocs_.clear();
  if (!ouvert_) return false;
  CdeZENIK->IO1OnOff(sorties_.auxiliaire);
  return CdeZENIK->GoBuffer();
}

void Run::Occupe(bool occupe) {
  OperationCarte = occupe;
  Svc.RetientVeille(occupe);
  Svc.MontreStop(occupe);
  Svc.MontreRun(occupe);
  if (occupe) {
    Svc.Pilotage(DemandePilotage::Reduit);
    Svc.Pilotage(DemandePilotage::SeTait);
  } else {
    Svc.Pilotage(DemandePilotage::Retablit);
    Svc.Pilotage(DemandePilotage::Interroge);
  }
}

IssueGcode Run::Commence() {
  StopDemande = Faux;
  Occupe(true);
  PrendTable();
  const bool ouvert = Ouvre();
  origine_ = PasDeLaMachine();
  if (!ouvert) StopDemande = Vrai;
  return Execute(0);
}

// What holds before the line comes from the program itself; the way back to its start from the machine's own steps.
IssueGcode Run::Continue(const Reste& reste) {
  StopDemande = Faux;
  Occupe(true);
  PrendTable();
  origine_ = reste.depart;
  sorties_ = reste.sorties;
  Suiveur suiveur(repere_);
  std::vector<Mot> mots;
  for (std::size_t i = 0; i < reste.ligne; ++i) {
    if (!EstValide(programme_.JugementDe(i))) continue;
    JugeLigne(programme_.Ligne(i), mots);
    InterpreteMots(mots, etat_, suiveur);
  }
  numero_ = suiveur.mouvements;
  ligne_ = reste.ligne;
  if (!Ouvre()) StopDemande = Vrai;
  const Pas3 ici = PasDeLaMachine();
  for (std::size_t i = 0; i < 3; ++i) pas_[i] = ici[i] - origine_[i];
  const std::array<double, 3> mm = MmParPas();
  const Lieu but = repere_.Place();
  const double surete = std::max({but.Z, pas_[2] * mm[2], mesure_.bornes.Zmax, double{HautDeg}});
  const double avance = etat_.VitesseF > 0 ? etat_.VitesseF : static_cast<double>(Vitesse_Mat_V);
  Va({pas_[0] * mm[0], pas_[1] * mm[1], surete}, VitesseRapide);
  Va({but.X, but.Y, surete}, VitesseRapide);
  if (sorties_.broche && !Arrete()) CdeZENIK->CommandePWM(1, BrochePleine);
  Va(but, avance);
  return Execute(reste.ligne);
}

IssueGcode Run::Execute(std::size_t premiere) {
  Laisse.reset();
  laisse_ = Svc.Horloge();
  Lignes(premiere);
  const bool arretee = Arrete();
  const bool perdue = CdeZENIK->TravailIncertain != Faux || !CdeZENIK->IsAvailable();
  if (arretee) {
    Arretee();
  } else {
    Termine();
  }
  Occupe(false);
  if (arretee && perdue) Message(Textes::GcodeSansCarte, Icone::Critique);
  return arretee ? IssueGcode::Arretee : IssueGcode::Terminee;
}

void Run::Lignes(std::size_t premiere) {
  std::vector<Mot> mots;
  for (ligne_ = premiere; ligne_ < programme_.NombreLignes() && !Arrete(); ++ligne_) {
    if (!EstValide(programme_.JugementDe(ligne_))) continue;
    JugeLigne(programme_.Ligne(ligne_), mots);
    InterpreteMots(mots, etat_, *this);
    Respire(false);
  }
  if (!Arrete()) Vide();
}

// Events run by time, so that a long program without moves stays stoppable, too.
void Run::Respire(bool attend) {
  const double maintenant = Svc.Horloge();
  if (!attend && maintenant - laisse_ < PeriodeCadence) return;
  laisse_ = maintenant;
  Svc.LaisseEvenements(Evenements::Tous);
  Montre();
  if (attend) Svc.Attend(PauseBoucle);
}

void Run::Montre() {
  if (!Vue_Gcode.Outil) return;
  const Pas3 ici = PasDeLaMachine();
  const std::array<double, 3> mm = MmParPas();
  Vue_Gcode.Outil(repere_.EnProgramme(
      {(ici[0] - origine_[0]) * mm[0], (ici[1] - origine_[1]) * mm[1], (ici[2] - origine_[2]) * mm[2]}));
}

void Run::Deplace(const MouvementLigne& mouvement) {
  if (Arrete()) return;
  const Lieu but = repere_.Arrivee(mouvement);
  ++numero_;
  if (Va(but, mouvement.vitesse) && Vue_Gcode.Mouvement) Vue_Gcode.Mouvement(ligne_, numero_);
}

// From the place that the steps sent so far make to this one, so that no rounding adds up. False: stopped.
bool Run::Va(const Lieu& lieu, double vitesse) {
  if (Arrete()) return false;
  const std::array<double, 3> mm = MmParPas();
  const PointXYZ depart{pas_[0] * mm[0], pas_[1] * mm[1], pas_[2] * mm[2]};
  const PointXYZ arrivee{lieu.X, lieu.Y, lieu.Z};
  const std::array<double, 3> ecart{arrivee.X - depart.X, arrivee.Y - depart.Y, arrivee.Z - depart.Z};
  Pas3 pas{};
  for (std::size_t i = 0; i < 3; ++i) pas[i] = Arrondi32(EnFloat(ecart[i]) / mm[i]);
  if (pas == Pas3{}) return true;  // no step: nothing is sent
  Envoie(depart, arrivee, vitesse);
  if (Arrete()) return false;
  for (std::size_t i = 0; i < 3; ++i) pas_[i] += pas[i];
  return true;
}

void Run::Envoie(const PointXYZ& depart, const PointXYZ& arrivee, double vitesse) {
  if (!ouvert_) Rouvre();
  while (!Arrete()) {
    float v = EnFloat(vitesse);  // lowered for each try
    const std::int32_t avant = NbBlocsTotal;
    const bool pris = DeplacePoint(depart, arrivee, v);
    NoteBlocs(avant);
    ConstateArret();
    if (pris || Arrete()) return;
    Respire(true);
  }
}

void Run::NoteBlocs(std::int32_t avant) {
  for (; avant < NbBlocsTotal; ++avant) lignesDesBlocs_.push_back(static_cast<std::uint32_t>(ligne_));
}

// A board that has stopped by itself, by a limit switch say, takes no more; of one whose reply was lost nobody
// knows what it runs.
void Run::ConstateArret() {
  if (CdeZENIK->Arret != Faux || CdeZENIK->TravailIncertain != Faux) StopDemande = Vrai;
}

// The job that a drained one leaves: the count of seven begins again.
void Run::Rouvre() {
  CdeZENIK->MotorOnOff(true);
  ouvert_ = CdeZENIK->EnvoiUSB();
  lignesDesBlocs_.clear();
  CdeZENIK->IO1OnOff(sorties_.auxiliaire);
  if (!ouvert_) StopDemande = Vrai;
}

// Everything that has been sent is done.
void Run::Vide() {
  if (!ouvert_) return;
  while (!Arrete() && !CdeZENIK->CommandeDATAend()) {
    CdeZENIK->DemandeInformation();  // a board that has stopped by itself refuses the end for ever
    ConstateArret();
    Respire(true);
  }
  // What was sent is under way until the board says otherwise: a look that fails leaves this as it is.
  CdeZENIK->EnCours = Vrai;
  while (!Arrete()) {
    if (!CdeZENIK->IsStepProcessed()) {
      CdeZENIK->DemandeInformation();
      ConstateArret();
      if (CdeZENIK->EnCours == Faux) break;
    }
    ConstateArret();
    Respire(true);
  }
  if (Arrete()) return;
  ouvert_ = false;
}

void Run::Machine(MotMachine mot) {
  if (Arrete()) return;
  switch (mot) {
    case MotMachine::M03:
      sorties_ = {true, true};
      CdeZENIK->IO1OnOff(true);
      CdeZENIK->CommandePWM(1, BrochePleine);
      return;
    case MotMachine::M05:
      Vide();
      if (Arrete()) return;
      sorties_ = {false, false};
      CdeZENIK->IO1OnOff(false);
      CdeZENIK->CommandePWM(0, BrochePleine);
      return;
    case MotMachine::M06:
      Vide();
      return AttendOutil();
    case MotMachine::M07:
    case MotMachine::M09:
      sorties_.auxiliaire = mot == MotMachine::M07;
      CdeZENIK->IO1OnOff(sorties_.auxiliaire);
      return;
  }
}

// True: go on.
bool Run::OutilChange() {
  if (!Vue_Gcode.AttendOutil) {
    if (Message(Textes::GcodeChangeOutil, Icone::Question, Boutons::OkAnnuler) == Reponse::Ok) return true;
    StopDemande = Vrai;
    return false;
  }
  ovelin::Pause = Vrai;
  Vue_Gcode.AttendOutil(true);
  while (ovelin::Pause != Faux && !Arrete()) Respire(true);
  Vue_Gcode.AttendOutil(false);
  ovelin::Pause = Faux;
  return !Arrete();
}

void Run::AttendOutil() {
  if (!Arrete() && OutilChange()) Rouvre();
}

void Run::Pause(double secondes) {
  const double fin = Svc.Horloge() + secondes;
  while (!Arrete() && Svc.Horloge() < fin) Respire(true);
}

void Run::Broche(double tours) {
  const auto part = PartBroche(tours, brocheMaxi_);
  if (part && Vue_Gcode.Broche) Vue_Gcode.Broche(*part);
}

void Run::Rejete(const Mot& mot) {
  BoiteMessage boite = BoiteDe(Textes::MotRejete, Icone::Critique);
  boite.texte += " " + std::string(mot.texte);
  Svc.Montre(boite);
}

void Run::Arc(DefautArc defaut) {
  MesureProgramme un;
  un.defauts.push_back(defaut);
  DitDefauts(un);
}

void Run::Termine() {
  CdeZENIK->EnvoiUSB();  // clears the job
  Svc.Panneau(PanneauEtat::Statut, Traduire(Textes::GcodeTermine));
  Svc.Bip();
}

// The machine stands, then spindle and output are off. The record under way names the line that a resume begins
// with.
void Run::Arretee() {
  const bool perdue = CdeZENIK->TravailIncertain != Faux;
  CdeZENIK->StopResume(1, CdeZENIK->Calc_FDEC());
  CdeZENIK->CommandePWM(0, BrochePleine);
  CdeZENIK->IO1OnOff(false);
  if (perdue || FinProgramme || !CdeZENIK->IsAvailable()) return;
  Reste reste;
  reste.depart = origine_;
  reste.sorties = sorties_;
  reste.ligne = ligne_;
  const std::int32_t bloc = CdeZENIK->NbBlocsTraites;
  if (ouvert_ && bloc >= 1 && base::Indice(bloc) <= lignesDesBlocs_.size()) {
    reste.ligne = lignesDesBlocs_[base::Indice(bloc) - 1];
  }
  if (reste.ligne < programme_.NombreLignes()) Laisse = reste;
}

// Lines that will be skipped can hold a lift: who runs the program knows of them.
bool AccepteLignesRefusees(const Programme& programme) {
  if (programme.Comptes().refusees == 0) return true;
  return Svc.Montre(BoiteLignesRefusees(Textes::GcodeSauteLignes, Boutons::OuiNon, programme)) == Reponse::Oui;
}

bool Refuse(const Programme& programme, const MesureProgramme& mesure) {
  if (OperationCarte) {
    Svc.Bip();
    return true;
  }
  if (!CdeZENIK->IsAvailable()) {
    Message(Textes::GcodeSansCarte, Icone::Critique);
    return true;
  }
  if (mesure.sansVitesse > 0) {
    BoiteMessage boite = BoiteDe(Textes::GcodeSansVitesse, Icone::Critique);
    boite.texte = TexteSansVitesse(mesure);
    boite.ligne = base::Compte(mesure.ligneSansVitesse);
    Svc.Montre(boite);
    return true;
  }
  return !AccepteLignesRefusees(programme);
}

}  // namespace

IssueGcode LanceGcode(const Programme& programme, const MesureProgramme& mesure) {
  if (Refuse(programme, mesure)) return IssueGcode::Refusee;
  Run run(programme, mesure);
  return run.Commence();
}

bool ResteGcode() { return Laisse.has_value(); }

IssueGcode ReprendGcode(const Programme& programme, const MesureProgramme& mesure) {
  if (!Laisse || OperationCarte) return IssueGcode::Refusee;
  if (!CdeZENIK->IsAvailable()) {
    Message(Textes::GcodeSansCarte, Icone::Critique);
    return IssueGcode::Refusee;
  }
  BoiteMessage boite = BoiteDe(Textes::GcodeReprend, Icone::Question, Boutons::OuiNon);
  boite.texte += " " + std::to_string(Laisse->ligne + 1);
  if (Svc.Montre(boite) != Reponse::Oui) return IssueGcode::Refusee;
  const Reste reste = *Laisse;
  Run run(programme, mesure);
  return run.Continue(reste);
}

void OublieGcode() { Laisse.reset(); }

void ReprendOutil() { Pause = Faux; }

}  // namespace ovelin
