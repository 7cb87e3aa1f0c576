#include "base/ComposeEnMorceaux.h"

#include <algorithm>
#include <vector>

#include "base/Equipe.h"

namespace base {

namespace {

constexpr std::size_t AvanceParFil = 4;  // pieces that are ready before their turn

}  // namespace

void ComposeEnMorceaux(std::string& texte, unsigned fils, std::size_t n, std::size_t grain,
                       const std::function<void(std::string&, Plage)>& compose,
                       const std::function<void(Plage)>& suit) {
  const std::size_t nombre = (n + grain - 1) / grain;
  const auto plage = [&](std::size_t i) { return Plage{i * grain, std::min((i + 1) * grain, n)}; };
  if (fils < 2 || nombre < 2) {
    for (std::size_t i = 0; i < nombre; ++i) {
      compose(texte, plage(i));
      if (suit) suit(plage(i));
    }
    return;
  }
  std::vector<std::string> morceaux(nombre);
  Equipe equipe(
      fils, nombre, [&](std::size_t i) { compose(morceaux[i], plage(i)); }, AvanceParFil * fils);
  for (std::size_t i = 0; i < nombre; ++i) {
    equipe.Attend(i);
    texte += morceaux[i];
    std::string().swap(morceaux[i]);
    if (suit) suit(plage(i));
  }
}

}  // namespace base
