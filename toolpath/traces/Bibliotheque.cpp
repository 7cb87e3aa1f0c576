#include "toolpath/traces/Bibliotheque.h"

#include "core/Coeurs.h"
#include "core/Etat.h"

namespace ovelin {

Bibliotheque Biblio = BibliothequePathwerk();

namespace {
[[maybe_unused]] const bool Enregistree = EnregistreRemise([] { Biblio = BibliothequePathwerk(); });
}

Bibliotheque BibliothequePathwerk() {
  const auto ecrit = [](const Bibliotheque::Points& points, const std::string& fichier, std::string& commentaire) {
    return pathwerk::EcrireFichier(points, fichier, commentaire, NombreCoeurs);
  };
  return {pathwerk::DecalSequence,      pathwerk::NettoyageFichier,
          pathwerk::LissageSequence,    pathwerk::Texte,
          pathwerk::TexteHaut,          ecrit,
          pathwerk::DecalSequenceIlots, pathwerk::IlotsDans};
}

}  // namespace ovelin
