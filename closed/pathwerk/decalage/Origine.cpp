#include "closed/pathwerk/decalage/Origine.h"

#include <algorithm>
#include <utility>

namespace pathwerk::decalage {

// Edge k then runs from point n-1-k to point n-2-k of before: what was edge n-2-k, and the last stays the last.
void Retourne(Chemin& chemin, Origines& origines) {
  std::reverse(chemin.begin(), chemin.end());
  if (origines.size() != chemin.size() || origines.empty()) return;
  std::reverse(origines.begin(), origines.end() - 1);
  for (Origine& o : origines) std::swap(o.de, o.a);
}

}  // namespace pathwerk::decalage
