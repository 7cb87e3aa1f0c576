#include "closed/pathwerk/lecture/excellon/Outils.h"

#include <cmath>

#include "closed/pathwerk/lecture/Lignes.h"

namespace pathwerk::lecture::excellon {

// Diameters without a point are written in as many ways as coordinates, and tell nothing.
void Outils::Note(int numero, const Mots& mots, double echelle) {
  constexpr double DiametreMax = 1000;  // mm
  dernier_ = numero;
  for (std::size_t k = 0; k < mots.nb; ++k) {
    const Mot& mot = mots.mots[k];
    if (mot.lettre != 'C' || mot.texte.find('.') == std::string_view::npos) continue;
    const auto v = LitReel(mot.texte);
    if (v && *v > 0 && *v * echelle < DiametreMax) diametres_[numero] = *v * echelle;
  }
}

std::string Outils::Nom() const {
  std::string numero = std::to_string(dernier_);
  const auto diametre = diametres_.find(dernier_);
  if (diametre == diametres_.end()) return numero;
  return numero + " (" + EnTexte(std::round(diametre->second * 1000) / 1000) + " mm)";
}

}  // namespace pathwerk::lecture::excellon
