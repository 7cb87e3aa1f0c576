#include "app/cli/PlanCarte.h"

#include "controller/ClsCdeZENIK.h"
#include "core/Nombres.h"
#include "run/Module_Profil.h"

namespace ovelin::cli {

PlanCarte CalculePlanCarte() {
  PlanCarte plan;
  plan.prevu = SommeDurees([&plan](Deplacement& ligne) {
    Mouvement& m = plan.lignes.emplace_back();
    if (ligne.dX == 0 && ligne.dY == 0 && ligne.dZ == 0) return 0.0F;
    m = CdeZENIK->MouvementDe({ligne.dX, ligne.dY, ligne.dZ}, ligne.Vitesse);
    ligne.Vitesse = m.V;
    zenikcom::TamponOctets tampon{};
    ComposeRecord(m, tampon);
    ++plan.nombreRecords;
    plan.records.append(tampon.begin(), tampon.end());
    plan.liste.append(tampon.begin() + 2, tampon.begin() + 2 + (m.rampe ? OctetsRecordRampe : OctetsRecord));
    return EnFloat(m.T);
  });
  plan.liste += static_cast<char>(DrapeauFin);
  return plan;
}

}  // namespace ovelin::cli
