// The engine that cuts a path at its crossings, behind Moteur.h.
#pragma once

#include <vector>

#include "closed/pathwerk/decalage/Moteur.h"

namespace pathwerk::decalage {

// Contract of SepareLobes; false where crossings are too close to tell.
bool SepareLobesCoupes(const Chemin& chemin, double tolerance, std::vector<Region>& regions);

}  // namespace pathwerk::decalage
