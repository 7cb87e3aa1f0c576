#include "toolpath/chemins/TexteCopie.h"

#include <algorithm>
#include <utility>

#include "core/ProjetTexte.h"
#include "toolpath/chemins/Etendues.h"

namespace ovelin {

std::string TexteDeCopie(const Copie& copie) {
  std::string texte;
  ComposeSequences(texte, copie.points, copie.fiches, copie.complements);
  ComposePoints(texte, copie.points);
  return texte;
}

Copie CopieDuTexte(std::string_view texte, double profondeur) {
  Copie copie;
  if (!EstTexteProjet(texte)) return copie;
  ContenuProjet lu = LitTexteProjet(texte);
  CompleteSequences(lu.Sequences, lu.Points, profondeur);
  const IndexCodes index(lu.Points, lu.Sequences);
  for (const Etendue& e : EtenduesDe(lu.Points)) {
    const auto fiche = index.Fiche(e.code);
    if (e.nombre < 2 || !fiche) continue;
    const std::span<const PointTrace> run = PointsDe(lu.Points, e);
    copie.points.insert(copie.points.end(), run.begin(), run.end());
    copie.fiches.push_back(lu.Sequences[*fiche]);
    copie.complements.Pose(e.code, lu.Complements.De(e.code));
  }
  return copie;
}

}  // namespace ovelin
