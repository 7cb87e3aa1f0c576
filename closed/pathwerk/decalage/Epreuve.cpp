#include "closed/pathwerk/decalage/Epreuve.h"

#include <algorithm>
#include <cstddef>

#include "base/Indices.h"

namespace pathwerk::decalage {

namespace {

constexpr std::size_t Echantillons = 48;     // looked at, at most
constexpr std::size_t AretesParRegard = 24;  // of small curves: one edge of so many, three at least

}  // namespace

bool Tiennent(const ArcSource& source, const std::vector<Chemin>& courbes, const std::vector<Origines>& origines,
              double r, double fleche) {
  std::size_t total = 0;
  for (const Origines& o : origines) total += o.size();
  const std::size_t nombre = std::clamp<std::size_t>(total / AretesParRegard, 3, Echantillons);
  const std::size_t pas = total / nombre + 1;
  const double bas = std::max(0.0, r - 1.02 * fleche);
  const double haut = r + 0.02 * fleche;
  const auto bon = [&](Vec2 p) {
    const double e2 = source.Distance2(p, 1.01 * haut * haut);
    return e2 >= bas * bas && e2 <= haut * haut;
  };
  std::size_t rang = 0;
  for (std::size_t k = 0; k < courbes.size(); ++k) {
    const Chemin& c = courbes[k];
    for (std::size_t i = 0; i < origines[k].size(); ++i, ++rang) {
      const Vec2 b = c[base::Suivant(i, c.size())];
      if (!origines[k][i].Connue() && !bon((c[i] + b) * 0.5)) return false;
      if (rang % pas == 0 && !(bon(c[i]) && bon(c[i] + (b - c[i]) * 0.37))) return false;
    }
  }
  return true;
}

}  // namespace pathwerk::decalage
