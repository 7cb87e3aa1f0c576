#include "run/Module_Profil.h"

#include "controller/ClsCdeZENIK.h"
#include "core/PlanCourant.h"
#include "core/RunCourant.h"
#include "run/NoyauPlan.h"

namespace ovelin {

double SommeDurees(const std::function<float(Deplacement&)>& duree) {
  double somme = 0;
  for (Deplacement& ligne : LignesMues(Plan)) somme += duree(ligne);
  return somme;
}

double TempsPrevu() {
  return SommeDurees([](Deplacement& ligne) {
    float t = 0;
    CdeZENIK->CommandeDATA(ligne.dX, ligne.dY, ligne.dZ, ligne.Vitesse, t, true);
    return t;
  });
}

double TempsDecoupe() {
  if (!CdeZENIK->IsAvailable()) return 0;
  if (ModeEnvoiTable == 0) {
    CdeZENIK->EnvoiUSB();
  } else {
    CdeZENIK->EnvoiFLASH(0, 0);
  }
  return TempsPrevu();
}

}  // namespace ovelin
