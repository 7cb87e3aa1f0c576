#include "image/Hachures.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace ovelin {

// Each edge is asked for the lines that it crosses. In s = x + y and d = x - y a line is s = k * pas, and what lies
// inside is, along it, from its first crossing to its second, from its third to its fourth ... An edge counts its
// lower end and not its upper one, so that a corner is crossed once or twice, never by halves.
std::vector<PointEcran> Hachures(std::span<const PointEcran> bord, const TailleImage& taille, float pas) {
  std::vector<std::pair<long, double>> croisements;
  const double dernier = std::floor((double{taille.largeur} + taille.hauteur) / pas);
  for (std::size_t i = 0; i < bord.size(); ++i) {
    const PointEcran& a = bord[i];
    const PointEcran& b = bord[(i + 1) % bord.size()];
    const double sa = double{a.X} + a.Y;
    const double sb = double{b.X} + b.Y;
    const double bas = std::min(sa, sb);
    const double haut = std::max(sa, sb);
    if (!std::isfinite(bas) || !std::isfinite(haut)) continue;
    const auto premiere = static_cast<long>(std::clamp(std::ceil(bas / pas), 0.0, dernier + 1));
    const auto derniere = static_cast<long>(std::clamp(std::ceil(haut / pas) - 1, -1.0, dernier));
    for (long k = premiere; k <= derniere; ++k) {
      const double t = (static_cast<double>(k) * pas - sa) / (sb - sa);
      const double da = double{a.X} - a.Y;
      const double db = double{b.X} - b.Y;
      croisements.emplace_back(k, da + t * (db - da));
    }
  }
  std::sort(croisements.begin(), croisements.end());
  std::vector<PointEcran> traits;
  for (std::size_t i = 0; i + 1 < croisements.size(); i += 2) {
    const double s = static_cast<double>(croisements[i].first) * pas;
    for (const double d : {croisements[i].second, croisements[i + 1].second}) {
      traits.push_back({static_cast<float>((s + d) / 2), static_cast<float>((s - d) / 2)});
    }
  }
  return traits;
}

}  // namespace ovelin
