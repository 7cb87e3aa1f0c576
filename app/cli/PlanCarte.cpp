#include "app/cli/PlanCarte.h"

#include "controller/ClsCdeZENIK.h"
#include "core/Nombres.h"
#include "core/PlanCourant.h"

namespace ovelin::cli {

PlanCarte CalculePlanCarte() {
  PlanCarte plan;
  for (std::int32_t i = 2; i <= NbDeplacements; ++i) {
    Deplacement& ligne = TableDecoupe[static_cast<std::size_t>(i)];
    Mouvement& m = plan.lignes.emplace_back();
    if (ligne.dX == 0 && ligne.dY == 0 && ligne.dZ == 0) continue;
    m = CdeZENIK->MouvementDe({ligne.dX, ligne.dY, ligne.dZ}, ligne.Vitesse);
    ligne.Vitesse = m.V;
    plan.prevu += static_cast<double>(EnFloat(m.T));
    zenikcom::TamponOctets tampon{};
    ComposeRecord(m, tampon);
    plan.records.append(tampon.begin(), tampon.end());
    plan.liste.append(tampon.begin() + 2, tampon.begin() + 2 + (m.rampe ? OctetsRecordRampe : OctetsRecord));
  }
  plan.liste += static_cast<char>(DrapeauFin);
  return plan;
}

}  // namespace ovelin::cli
