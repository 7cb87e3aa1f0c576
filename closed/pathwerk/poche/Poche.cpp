// Fill of a closed path by rings, linked to one path wherever the cutter can stay down: rings (PocheAnneaux), which
// of them hangs on which (PocheArbre), and the way over them (PocheTrajet).
//
// The fill is inside whichever the side. The side gives the sense of travel: a positive distance has the outline to
// the right of the tool, as the plain parallel curve has (counter-clockwise: a clockwise spindle climbs), a
// negative one to its left.
//
// Islands bound the region as the outline does: the depth of a place is its distance to the nearest contour, so
// that straight from there to the nearest contour it is free all along whatever that contour is.
#include "closed/pathwerk/poche/Poche.h"

#include <cmath>
#include <optional>
#include <utility>

#include "closed/pathwerk/poche/Iles.h"
#include "closed/pathwerk/poche/Trajet.h"

namespace pathwerk::poche {

std::vector<Piece> RemplitPoche(const Source& source, std::span<const Chemin> iles, double distance,
                                int recouvrement, double tolerance) {
  std::vector<Region> regions;
  if (!SepareLobes(source.chemin, tolerance, regions)) return {};
  const double rayon = std::abs(distance);
  const Report report(source, rayon, tolerance);
  std::vector<Piece> pieces;
  for (Region& region : regions) {
    if (region.signe == 0) continue;
    PoseIles(region, iles);
    std::optional<Remplissage> r = Anneaux(region, distance, recouvrement, tolerance);
    if (!r) return {};
    if (r->niveaux.empty()) continue;
    const Acces acces(region, rayon, tolerance);
    ArbreAnneaux arbre(std::move(*r), acces);
    for (Piece& p : Trajets(arbre, acces, report, tolerance)) pieces.push_back(std::move(p));
  }
  return pieces;
}

}  // namespace pathwerk::poche
