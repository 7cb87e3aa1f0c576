// The parallel curve of a closed path: each loop that its crossings part has a side of its own.
#include "closed/pathwerk/decalage/DecaleFerme.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

#include "closed/pathwerk/decalage/Moteur.h"

namespace pathwerk::decalage {

namespace {

// What lies inside comes before what contains it, as in a drawing.
void RangeParAire(std::vector<Piece>& pieces) {
  std::vector<std::pair<double, Piece>> avecAire;
  avecAire.reserve(pieces.size());
  for (Piece& p : pieces) {
    const double aire = std::abs(Aire(p.points));
    avecAire.emplace_back(aire, std::move(p));
  }
  std::stable_sort(avecAire.begin(), avecAire.end(),
                   [](const auto& a, const auto& b) { return a.first < b.first; });
  for (std::size_t k = 0; k < pieces.size(); ++k) pieces[k] = std::move(avecAire[k].second);
}

}  // namespace

std::vector<Piece> DecaleFerme(const Source& source, double distance, double tolerance) {
  std::vector<Region> regions;
  if (!SepareLobes(source.chemin, tolerance, regions)) return {};
  std::vector<Piece> pieces;
  for (Region& region : regions) {
    region.ecart = source.ecart;
    std::vector<Chemin> b;
    std::vector<Origines> o;
    if (!DecaleRegion(region, distance, tolerance, b, o)) return {};
    for (std::size_t k = 0; k < b.size(); ++k) {
      pieces.push_back({std::move(b[k]), true, true, Remonte(region, std::move(o[k]))});
    }
  }
  if (pieces.size() > 1) RangeParAire(pieces);
  return pieces;
}

}  // namespace pathwerk::decalage
