#include "core/RefusFichier.h"

#include "core/Textes.h"

namespace ovelin {

RefusFichier RefusDe(CleTexte texte, const std::string& suite, const std::string& fichier) {
  return {std::string(texte.Section()), std::string(texte.Cle()), suite, fichier, 0};
}

RefusFichier RefusErreur(std::int32_t numero) {
  if (const auto texte = TexteErreur(numero)) return RefusDe(*texte, "", "");
  RefusFichier refus = RefusDe(Textes::LectureRefusee, "", "");
  refus.cle = "lib" + std::to_string(-std::int64_t{numero});
  return refus;
}

}  // namespace ovelin
