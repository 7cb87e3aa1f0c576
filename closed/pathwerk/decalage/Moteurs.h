// The engines behind Moteur.h, for benches and tests that compare them.
#pragma once

#include "closed/pathwerk/decalage/Moteur.h"

namespace pathwerk::decalage {

// Same contracts as DecaleRegion and SepareLobes. DecaleRegionArcs answers false where it can't vouch for its
// result, SepareLobesCoupes where crossings are too close to tell.
bool DecaleRegionArcs(const Region& region, double distance, double tolerance, std::vector<Chemin>& boucles,
                      std::vector<Origines>* origines = nullptr);
bool DecaleRegionClipper(const Region& region, double distance, double tolerance, std::vector<Chemin>& boucles);
bool SepareLobesCoupes(const Chemin& chemin, double tolerance, std::vector<Region>& regions);
bool SepareLobesClipper(const Chemin& chemin, double tolerance, std::vector<Region>& regions);

// The raw curve alone, where it doesn't meet itself and so is the whole answer; false where it does.
bool DecaleRegionSimple(const Region& region, double distance, double tolerance, std::vector<Chemin>& boucles,
                        std::vector<Origines>* origines = nullptr);

// The region that a path bounds by itself, walked once forwards; both ways round where `signe` is 0 and `deuxSens`.
Region RegionDe(const Chemin& chemin, int signe, bool deuxSens = false);

}  // namespace pathwerk::decalage
