#include "machine/essais/ReglageEssai.h"

#include <algorithm>
#include <cmath>

#include "base/Indices.h"
#include "core/Nombres.h"
#include "core/Textes.h"

namespace ovelin {

namespace {

constexpr double NombreMax = 1e6;  // mm, mm/s: beyond what any axis does
constexpr double Reste = 1e-6;     // of a pass: what the division of decimals may lack
constexpr double PassesMax = 1e12;

bool Lit(const std::string& texte, double& valeur) {
  const auto lu = NombreDuTexte(texte);
  if (!lu || std::fabs(*lu) > NombreMax) return false;
  valeur = *lu;
  return true;
}

bool UnAxe(const std::array<bool, 3>& axes) {
  return std::any_of(axes.begin(), axes.end(), [](bool a) { return a; });
}

}  // namespace

bool ActiveGO(const ChampsEssai& champs) {
  return NombreDuTexte(champs.Depl).value_or(0) != 0 && UnAxe(champs.axes);
}

std::optional<RefusEssai> LitReglageEssai(const ChampsEssai& champs, ReglageEssai& reglage) {
  ReglageEssai lu;
  lu.axes = champs.axes;
  const std::array<std::pair<const std::string*, double*>, 4> champsLus{{{&champs.VitDep, &lu.depart},
                                                                         {&champs.VitArr, &lu.arrivee},
                                                                         {&champs.Incr, &lu.increment},
                                                                         {&champs.Depl, &lu.distance}}};
  for (std::size_t i = 0; i < champsLus.size(); ++i) {
    if (!Lit(*champsLus[i].first, *champsLus[i].second))
      return RefusEssai{base::Compte(i) + 1, Textes::EssaiNombre};
  }
  if (lu.depart <= 0) return RefusEssai{1, Textes::EssaiVitesse};
  if (lu.arrivee <= 0) return RefusEssai{2, Textes::EssaiVitesse};
  if (lu.increment == 0 || (lu.arrivee - lu.depart) * lu.increment < 0)
    return RefusEssai{3, Textes::EssaiIncrement};
  if (lu.distance == 0 || !UnAxe(lu.axes)) return RefusEssai{4, Textes::EssaiSansChemin};
  reglage = lu;
  return std::nullopt;
}

std::int64_t NombrePasses(const ReglageEssai& reglage) {
  const double intervalles = std::floor((reglage.arrivee - reglage.depart) / reglage.increment + Reste);
  return static_cast<std::int64_t>(std::clamp(intervalles, 0.0, PassesMax)) + 1;
}

double VitessePasse(const ReglageEssai& reglage, std::int64_t i) {
  return reglage.depart + static_cast<double>(i) * reglage.increment;
}

}  // namespace ovelin
