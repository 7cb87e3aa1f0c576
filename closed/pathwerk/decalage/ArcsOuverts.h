// The arc engine on an open path: one side of it, and of the other what is in question.
#pragma once

#include <vector>

#include "closed/pathwerk/decalage/Contacts.h"
#include "closed/pathwerk/decalage/Moteur.h"

namespace pathwerk::decalage {

// As DecaleRegion() of the path walked there and back, but for stretches of its border that run beside the way back
// alone, where the path doesn't touch itself: these are left out, or end somewhere. What is left is closed loops,
// and open chains with one origin less than points. `contacts`: of the path. False: the result can't be vouched
// for.
bool DecaleOuvertArcs(const Region& allerRetour, double distance, double tolerance, Contacts& contacts,
                      std::vector<Chemin>& boucles, std::vector<Origines>& origines);

}  // namespace pathwerk::decalage
