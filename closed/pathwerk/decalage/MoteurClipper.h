// The offset engine on Clipper, behind Moteur.h: where the others give up.
#pragma once

#include <vector>

#include "closed/pathwerk/decalage/Moteur.h"

namespace pathwerk::decalage {

// Contracts of DecaleRegion and SepareLobes.
bool DecaleRegionClipper(const Region& region, double distance, double tolerance, std::vector<Chemin>& boucles);
bool SepareLobesClipper(const Chemin& chemin, double tolerance, std::vector<Region>& regions);

}  // namespace pathwerk::decalage
