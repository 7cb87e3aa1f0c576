// The engines behind Moteur.h, for benches and tests that compare them.
#pragma once

#include "closed/pathwerk/Moteur.h"

namespace pathwerk::geo {

// Same contracts as DecaleRegion and SepareLobes. The arc engine answers false where it can't vouch for its result;
// its lobes answer false where the path meets itself in a way that is neither a plain crossing nor a plain touch.
bool DecaleRegionArcs(const Region& region, double distance, double tolerance, std::vector<Chemin>& boucles);
bool DecaleRegionClipper(const Region& region, double distance, double tolerance, std::vector<Chemin>& boucles);
bool SepareLobesClipper(const Chemin& chemin, double tolerance, std::vector<Region>& regions);

// The raw curve alone, where it doesn't meet itself and so is the whole answer; false where it does.
bool DecaleRegionSimple(const Region& region, double distance, double tolerance, std::vector<Chemin>& boucles);

}  // namespace pathwerk::geo
