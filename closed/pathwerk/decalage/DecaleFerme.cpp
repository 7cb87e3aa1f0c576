// The parallel curve of a closed path: each loop that its crossings part has a side of its own.
#include "closed/pathwerk/decalage/DecaleFerme.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

#include "closed/pathwerk/decalage/Moteur.h"

namespace pathwerk::decalage {

std::vector<Piece> DecaleFerme(const Source& source, double distance, double tolerance) {
  std::vector<Region> regions;
  if (!SepareLobes(source.chemin, tolerance, regions)) return {};
  std::vector<std::pair<double, Piece>> boucles;
  for (Region& region : regions) {
    region.ecart = source.ecart;
    std::vector<Chemin> b;
    std::vector<Origines> o;
    if (!DecaleRegion(region, distance, tolerance, b, o)) return {};
    for (std::size_t k = 0; k < b.size(); ++k) {
      const double aire = std::abs(Aire(b[k]));
      boucles.emplace_back(aire, Piece{std::move(b[k]), true, true, Remonte(region, std::move(o[k]))});
    }
  }
  // What lies inside comes before what contains it, as in a drawing.
  std::stable_sort(boucles.begin(), boucles.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
  std::vector<Piece> pieces;
  pieces.reserve(boucles.size());
  for (auto& [aire, p] : boucles) pieces.push_back(std::move(p));
  return pieces;
}

}  // namespace pathwerk::decalage
