#include "core/BoiteRefus.h"

#include "core/Traduction.h"
#include "core/Types.h"

namespace ovelin {

BoiteMessage BoiteRefus(const RefusFichier& refus) {
  BoiteMessage boite;
  boite.section = refus.section;
  boite.cle = refus.cle;
  boite.texte = Traduire(refus.section, refus.cle) + refus.suite;
  boite.titre = NomProgramme;
  boite.icone = Icone::Critique;
  boite.fichier = refus.fichier;
  boite.ligne = refus.ligne;
  return boite;
}

BoiteMessage BoiteErreur(std::int32_t numero) { return BoiteRefus(RefusErreur(numero)); }

}  // namespace ovelin
