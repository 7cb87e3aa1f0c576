// The offset engine on exact arcs, behind Moteur.h.
#pragma once

#include <vector>

#include "closed/pathwerk/decalage/Moteur.h"

namespace pathwerk::decalage {

// Contract of DecaleRegion; false where it can't vouch for its result. `memoire`: of this region alone.
bool DecaleRegionArcs(const Region& region, double distance, double tolerance, std::vector<Chemin>& boucles,
                      std::vector<Origines>* origines = nullptr, MemoireDeRegion* memoire = nullptr);

// DansLaPortee() of Moteur.h where the engine gave the border at `loin`; false where it didn't.
bool DansLaPorteeArcs(const MemoireDeRegion& memoire, double entre, double loin, double portee, double tolerance);

}  // namespace pathwerk::decalage
