#include "run/Module_Profil.h"

#include "controller/ClsCdeZENIK.h"
#include "core/PlanCourant.h"
#include "core/RunCourant.h"

namespace ovelin {

double TempsPrevu() {
  double somme = 0;
  for (std::int32_t i = 2; i <= NbDeplacements; ++i) {
    Deplacement& ligne = TableDecoupe[static_cast<std::size_t>(i)];
    float t = 0;
    CdeZENIK->CommandeDATA(ligne.dX, ligne.dY, ligne.dZ, ligne.Vitesse, t, true);
    somme += static_cast<double>(t);
  }
  return somme;
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
