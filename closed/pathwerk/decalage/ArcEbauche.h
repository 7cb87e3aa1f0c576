// Free stretches from a draft of the raw parallel, of which only what meets something is cut by everything.
#pragma once

#include <optional>
#include <vector>

#include "closed/pathwerk/decalage/ArcLibres.h"

namespace pathwerk::decalage {

// What ArcsLibres() gives, sooner where the parallel seldom meets itself.
std::vector<ArcLibre> ArcsParEbauche(const ArcSource& source, double d, double bruit);

// The same, and nothing where the parallel meets itself all over.
std::optional<std::vector<ArcLibre>> ArcsSiPeuDeRencontres(const ArcSource& source, double d, double bruit);

}  // namespace pathwerk::decalage
