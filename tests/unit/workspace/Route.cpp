#include "tests/unit/workspace/Route.h"

#include <utility>

#include "run/NoyauNC.h"
#include "run/NoyauPlan.h"
#include "toolpath/chemins/NoyauOrdre.h"
#include "toolpath/traces/NoyauTrace.h"

namespace essai {

using namespace ovelin;

Route Parcourt(const std::string& chemin, const Reglages& reglages, const TableMachine& table) {
  Route route;
  route.lu = LitDessin(chemin, reglages, {});
  if (route.lu.refus) return route;
  route.document = std::move(route.lu.document);
  EtapesOuverture etapes;
  etapes.Dimensionne = [](DemandeDimension&) {};
  etapes.Nettoie = [] {};
  etapes.Optimise = [](Document& d) { ChoisitDeparts(d.TraceInitial, [] {}); };
  PrepareDessin(route.document, MesuresMachine{}, etapes);
  TraceDocument(route.document, ParametresTraceDe(reglages, false));

  const ParametresPlan parametres = ParametresPlanDe(reglages, table);
  const std::vector<UsinageTrace> usinages = UsinagesDe(route.document);
  if (EstimePlan(parametres, route.document.TraceDecale, usinages).jugement != JugementPlan::Bon) return route;
  EtatPlan plan;
  PlanifieTrace(plan, parametres, route.document.TraceDecale, usinages);
  const auto lignes = LignesDe(plan);
  route.lignes.assign(lignes.begin(), lignes.end());
  EcritureNC resultat;
  route.nc = ComposeNC(route.lignes, CadreNC{{"essai"}, "mm", "abs", "M", "S", "F"}, resultat);
  return route;
}

}  // namespace essai
