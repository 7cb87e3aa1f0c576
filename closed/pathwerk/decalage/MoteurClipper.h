// The offset engine on Clipper, behind Moteur.h: where the others give up.
#pragma once

#include <vector>

#include "closed/pathwerk/decalage/Moteur.h"

namespace pathwerk::decalage {

// Contracts of DecaleRegion and SepareLobes.
bool DecaleRegionClipper(const Region& region, double distance, double tolerance, std::vector<Chemin>& boucles);
bool SepareLobesClipper(const Chemin& chemin, double tolerance, std::vector<Region>& regions);

// What two closed paths run around, mm2: each of them, and both.
struct AiresDeDeux {
  double premier = 0;
  double second = 0;
  double commune = 0;
};
// Quadratic where the paths are dense. Throws where Clipper does: figures out of range, no memory.
AiresDeDeux AiresCommunes(const Chemin& premier, const Chemin& second);

}  // namespace pathwerk::decalage
