#include "run/NoyauReprise.h"

#include <algorithm>
#include <cstddef>
#include <cstdio>

#include "base/Indices.h"
#include "core/Duree.h"
#include "core/Nombres.h"

namespace ovelin {

namespace {

bool Immobile(const Deplacement& d) { return d.dX == 0 && d.dY == 0 && d.dZ == 0; }

}  // namespace

void CompacteTable(EtatPlan& plan) {
  if (plan.NbDeplacements < 1) return;
  const auto debut = plan.TableDecoupe.begin() + 1;
  plan.TableDecoupe.resize(base::Indice(plan.NbDeplacements) + 1);
  plan.TableDecoupe.erase(std::remove_if(debut, plan.TableDecoupe.end(), Immobile), plan.TableDecoupe.end());
  plan.NbDeplacements = base::Compte(plan.TableDecoupe.size()) - 1;
}

std::vector<Deplacement> LignesDepuis(const EtatPlan& plan, std::int32_t premiere) {
  std::vector<Deplacement> reste(1);
  if (premiere >= 1 && premiere <= plan.NbDeplacements) {
    reste.insert(reste.end(), plan.TableDecoupe.begin() + premiere,
                 plan.TableDecoupe.begin() + plan.NbDeplacements + 1);
  }
  return reste;
}

Deplacement ArriveeReprise(const Deplacement& premiere, double mmParPasZ) {
  Deplacement arrivee = premiere;
  if (premiere.dZ == 0 || (premiere.dX == 0 && premiere.dY == 0)) return arrivee;
  arrivee.Z = EnFloat(premiere.Z - premiere.dZ * mmParPasZ);
  arrivee.dZ = 0;
  return arrivee;
}

void CaleApproche(EtatPlan& plan, const std::array<std::int32_t, 3>& ici, const std::array<std::int32_t, 3>& depart,
                  const Deplacement& arrivee) {
  std::int32_t x = depart[0] - ici[0];
  std::int32_t y = depart[1] - ici[1];
  std::int32_t z = depart[2] + arrivee.dZ - ici[2];
  Deplacement* plane = nullptr;
  Deplacement* descente = nullptr;
  for (std::size_t i = 2; i < plan.TableDecoupe.size(); ++i) {
    Deplacement& d = plan.TableDecoupe[i];
    const Deplacement& avant = plan.TableDecoupe[i - 1];
    (d.X != avant.X || d.Y != avant.Y ? plane : descente) = &d;
    z -= d.dZ;
  }
  if (descente == nullptr) return;
  descente->dZ += z;
  descente->Z = arrivee.Z;                 // three sums of 32 bits may have missed it by their last digit
  if (plane == nullptr) plane = descente;  // less than a step apart: the descent takes it along
  plane->dX = x;
  plane->dY = y;
}

void AjouteReste(EtatPlan& plan, const std::vector<Deplacement>& reste, float vitesse) {
  for (std::size_t i = 1; i < reste.size(); ++i) {
    Deplacement d = reste[i];
    if (d.dZ == 0 || ((d.dX != 0 || d.dY != 0) && vitesse < d.Vitesse)) d.Vitesse = vitesse;
    if (d.Z == plan.TableDecoupe.back().Z) d.dZ = 0;
    d.Ticks = 0;
    plan.TableDecoupe.push_back(d);
  }
  plan.NbDeplacements = base::Compte(plan.TableDecoupe.size()) - 1;
}

std::string TexteTempsRestant(double secondes) {
  const Duree d = DureeDe(secondes);
  char tampon[48];
  if (d.heures > 0) {
    std::snprintf(tampon, sizeof tampon, "%ld:%02ld:%02ld", d.heures, d.minutes, d.secondes);
  } else if (d.minutes > 0) {
    std::snprintf(tampon, sizeof tampon, "%02ld:%02ld", d.minutes, d.secondes);
  } else {
    std::snprintf(tampon, sizeof tampon, "%02ld", d.secondes);
  }
  return tampon;
}

}  // namespace ovelin
