#include "run/Module_Planificateur.h"

#include <cmath>
#include <new>
#include <span>
#include <utility>
#include <vector>

#include "base/Indices.h"
#include "controller/ClsCdeZENIK.h"
#include "core/ChampsMachine.h"
#include "core/DocumentCourant.h"
#include "core/PlanCourant.h"
#include "core/ReglagesCourants.h"
#include "core/Services.h"
#include "core/Textes.h"
#include "core/Traduction.h"
#include "machine/Module_Table.h"
#include "machine/TableCourante.h"
#include "run/NoyauPlan.h"

namespace ovelin {

namespace {

ParametresPlan LitParametres() {
  ParametresPlan p = ParametresPlanDe(Regl, Table);
  p.PosX = CdeZENIK->PosX;
  p.PosY = CdeZENIK->PosY;
  p.PosZ = CdeZENIK->PosZ;
  p.MmParPasX = CdeZENIK->MmParPasX();
  p.MmParPasY = CdeZENIK->MmParPasY();
  p.MmParPasZ = CdeZENIK->MmParPasZ();
  return p;
}

std::optional<CleTexte> Refus(JugementPlan jugement) {
  if (jugement == JugementPlan::Bon) return std::nullopt;
  return jugement == JugementPlan::Passe ? Textes::PasseSansFin : Textes::PlanSansMesure;
}

// Room for the rows, taken before anything changes. The memory of the table before is given back first thing, and
// room that nothing was written to costs none, so two tables are never held at once.
bool Reserve(std::int64_t lignes) {
  const auto taille = base::Indice(lignes);
  if (TableDecoupe.capacity() >= taille) return true;
  try {
    std::vector<Deplacement> neuve;
    neuve.reserve(taille);
    TableDecoupe = std::move(neuve);
  } catch (const std::bad_alloc&) {
    return false;
  }
  return true;
}

// A table that nobody has begun is begun.
void Commence() {
  if (NbDeplacements < 1) InitDecoupe();
}

}  // namespace

void InitDecoupe() { InitialisePlan(Plan, LitParametres()); }

void AjoutDeplacement(const PointTrace& depart, const PointTrace& arrivee, Drapeau matiere, float v) {
  Commence();
  PlanAjoute(Plan, LitParametres(), depart, arrivee, matiere, v);
}

void AjoutDeplacementRelatif(float deltaX, float deltaY, Drapeau matiere, float v) {
  Commence();
  const Deplacement& derniere = LignesDe(Plan).back();
  PointTrace depart;
  depart.X = derniere.X;
  depart.Y = derniere.Y;
  PointTrace arrivee = depart;
  arrivee.X += deltaX;
  arrivee.Y += deltaY;
  AjoutDeplacement(depart, arrivee, matiere, v);
}

void AjoutDeplacementZ(float deltaZ, Drapeau matiere, float v) {
  Commence();
  PlanAjouteZ(Plan, LitParametres(), deltaZ, matiere, v);
}

std::optional<CleTexte> VerifiePlan() {
  return Refus(EstimePlan(LitParametres(), TraceDecale, UsinagesDe(Doc)).jugement);
}

bool Tableau_Decoupe() {
  if (TraceDecale.empty()) return false;
  const ParametresPlan p = LitParametres();
  const std::vector<UsinageTrace> usinages = UsinagesDe(Doc);
  const EstimationPlan estimation = EstimePlan(p, TraceDecale, usinages);
  auto refus = Refus(estimation.jugement);
  if (!refus && !Reserve(estimation.lignes)) refus = Refus(JugementPlan::Passe);
  if (refus) {
    Message(*refus, Icone::Critique);
    return false;
  }
  PlanifieTrace(Plan, p, TraceDecale, usinages);
  return true;
}

void Vitesse_Decoupe_H(double& vSansRampe, double& vMax, std::int16_t& reserve) {
  reserve = 0;
  vSansRampe = vMax = 1e10;
  const double sansRampeX = LireNombreTable(ChampsMachine::VitesseSansRampeX);
  const double sansRampeY = LireNombreTable(ChampsMachine::VitesseSansRampeY);
  const double maxX = LireNombreTable(ChampsMachine::VitesseMaxX);
  const double maxY = LireNombreTable(ChampsMachine::VitesseMaxY);
  if (NbDeplacements < 2) return;
  const std::span<const Deplacement> lignes = LignesDe(Plan);
  vSansRampe = VitesseLimite(lignes, sansRampeX, sansRampeY);
  vMax = VitesseLimite(lignes, maxX, maxY);
}

double CalculDeplac(double x1, double x2, double y1, double y2, double v, double& longueur) {
  const double distance = std::hypot(x2 - x1, y2 - y1);
  longueur += distance;
  if (distance == 0 || v == 0) return 0;
  return distance / v;
}

}  // namespace ovelin
