#include "workspace/ui/dialogues/Tolerance.h"

#include "core/Nombres.h"
#include "core/ui/TraduitFenetre.h"

namespace ovelin {

std::optional<float> LitTolerance(ChampNombre& champ, CleTexte nonNombre, CleTexte negatif) {
  const auto refuse = [&](CleTexte raison) {
    champ.Refuse(TexteQt(raison));
    return std::nullopt;
  };
  const auto v = NombreDuTexte(champ.Texte());
  if (!v) return refuse(nonNombre);
  if (*v < 0) return refuse(negatif);
  champ.Accepte();
  champ.Montre(TexteNombre(EnFloat(*v)));
  return EnFloat(*v);
}

}  // namespace ovelin
