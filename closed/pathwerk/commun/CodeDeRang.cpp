// The codes that a reading gives to its paths.
#include <vector>

#include "base/Texte.h"
#include "closed/Pathwerk.h"

namespace pathwerk {

namespace {

// What may stand in a code beside the letters. "$" and "=" make the key lines of a project, "-" would let "-1" be
// formed, which means no path, and a comma of a point line turns into a point when the project is read.
constexpr bool Permis(char c) { return c >= ' ' && c <= '~' && c != '-' && c != '$' && c != '=' && c != ','; }

// First the codes of letters as the document counts them, " A" to "zz", then the other pairs in character order.
// The right character is never blank, so a code cut or trimmed on its right stays what it is.
std::vector<Code2> ToutesLesSortes() {
  std::vector<Code2> codes;
  const auto ajoute = [&codes](char g, char d) {
    codes.emplace_back(static_cast<char16_t>(g), static_cast<char16_t>(d));
  };
  for (char g = ' '; g <= 'z'; ++g) {
    if (g != ' ' && !base::EstLettre(g)) continue;
    for (char d = 'A'; d <= 'z'; ++d) {
      if (base::EstLettre(d)) ajoute(g, d);
    }
  }
  for (char g = ' '; g <= '~'; ++g) {
    for (char d = '!'; d <= '~'; ++d) {
      const bool faite = (g == ' ' || base::EstLettre(g)) && base::EstLettre(d);
      if (!faite && Permis(g) && Permis(d)) ajoute(g, d);
    }
  }
  return codes;
}

const std::vector<Code2>& Table() {
  static const std::vector<Code2> codes = ToutesLesSortes();
  return codes;
}

}  // namespace

std::size_t NbCodes() { return Table().size(); }

Code2 CodeDeRang(std::size_t rang) {
  const auto& codes = Table();
  return rang < codes.size() ? codes[rang] : CodeAucun;
}

}  // namespace pathwerk
