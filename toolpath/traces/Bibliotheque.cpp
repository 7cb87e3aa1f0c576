#include "toolpath/traces/Bibliotheque.h"

#include "core/Etat.h"

namespace ovelin {

Bibliotheque Biblio = BibliothequePathwerk();

namespace {
[[maybe_unused]] const bool Enregistree = EnregistreRemise([] { Biblio = BibliothequePathwerk(); });
}

Bibliotheque BibliothequePathwerk() {
  return {pathwerk::DecalSequence, pathwerk::NettoyageFichier, pathwerk::LissageSequence,    pathwerk::Texte,
          pathwerk::TexteHaut,     pathwerk::EcrireFichier,    pathwerk::DecalSequenceIlots, pathwerk::IlotsDans};
}

}  // namespace ovelin
