// Whether the border at one depth lies near the border at another one, told without drawing either.
#pragma once

#include "closed/pathwerk/decalage/ArcLibres.h"

namespace pathwerk::decalage {

// What is left of the raw pieces at a signed depth, and what could still take from it there; null: all segments.
struct ReliefDe {
  double d = 0;
  const PiecesVives& vives;
  const Tueurs* tueurs = nullptr;
};

// Does every place that lives at the signed depth `d` lie within `portee` mm of one that lives at the depth of
// `apres`? `apres` has come of `avant`; |avant.d| < |d|, all of one sign, 0 < portee <= |d|. Never a wrong yes, but
// for the rounding.
bool ToutPres(const ArcSource& source, const ReliefDe& avant, const ReliefDe& apres, double d, double portee,
              double bruit);

}  // namespace pathwerk::decalage
