// What the fields of the tool panel do with their text when they are left. Each field has its own order of test and
// storing; a refused value may stand stored all the same.
#include "toolpath/ChampsOutil.h"

#include <cmath>
#include <limits>

#include "core/DocumentCourant.h"
#include "core/Nombres.h"
#include "core/ReglagesCourants.h"
#include "core/Services.h"
#include "core/Textes.h"
#include "toolpath/Deroulement.h"
#include "toolpath/Module_Decalage.h"

namespace ovelin {

namespace {

bool RefuseNegatif() {
  MessageFixe("< 0 !", Icone::Exclamation);
  return false;
}

void RecalculeTout() {
  RecalculDecalages();
  Modifie = Vrai;
  Svc.Rafraichit();
}

}  // namespace

bool EntreRayonFraise(const std::string& texte) {
  const auto v = NombreDuTexte(texte);
  if (!v) return false;
  RayonFraise = *v;
  if (*v < 0) return RefuseNegatif();
  RecalculeTout();
  return true;
}

bool EntreLargeurEncoche(const std::string& texte) {
  const auto v = NombreDuTexte(texte);
  if (!v || *v == 0) return false;
  LargeurEncoche = *v;
  EcritOutil();
  RecalculeTout();
  return true;
}

bool EntreMiniEncoche(const std::string& texte) {
  const auto v = NombreDuTexte(texte);
  if (!v) return false;
  MiniEncoche = *v;
  if (*v < 0) return RefuseNegatif();
  Modifie = Vrai;
  EcritMateriau();
  return true;
}

// The test looks at the height in force, not at the entry: a negative one gets through, and the next is refused.
bool EntreHautDeg(const std::string& texte) {
  if (HautDeg < 0) return RefuseNegatif();
  const auto v = NombreDuTexte(texte);
  if (!v || std::abs(*v) > std::numeric_limits<float>::max()) return false;
  HautDeg = static_cast<float>(*v);
  Regl.HautDegSaisie = true;
  Modifie = Vrai;
  EcritMateriau();
  return true;
}

bool LaisseHautDeg(const std::string& texte) {
  const auto v = NombreDuTexte(texte);
  if (v && *v < 0) return false;
  if (HautDeg < 0) HautDeg = 0;
  return true;
}

bool EntrePCPoche(const std::string& texte) {
  const auto v = NombreDuTexte(texte);
  if (!v) return false;
  PCPoche = Arrondi16(*v);
  EcritOptions();
  RecalculeTout();
  return true;
}

bool EntreProfPasse(const std::string& texte) {
  const auto v = NombreDuTexte(texte);
  if (!v) return false;
  ProfPasse = *v;
  if (!(*v < 0)) {
    Message(Textes::ProfondeurNonNegative, Icone::Exclamation);
    return false;
  }
  Modifie = Vrai;
  EcritMateriau();
  return true;
}

}  // namespace ovelin
