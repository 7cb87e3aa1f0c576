#include "workspace/ui/Tolerance.h"

#include "core/Nombres.h"

namespace ovelin {

std::optional<float> LitTolerance(ChampNombre& champ, const char* section) {
  const auto refuse = [&](const char* cle, const char* sinon) {
    champ.Refuse(TextesFenetre{section}(cle, sinon));
    return std::nullopt;
  };
  const auto v = LitNombre(champ.Texte());
  if (!v) return refuse("lib001", "Ce n'est pas un nombre.");
  if (*v < 0) return refuse("lib002", "La tolérance ne peut pas être négative.");
  champ.Accepte();
  champ.Montre(TexteNombre(EnFloat(*v)));
  return EnFloat(*v);
}

}  // namespace ovelin
