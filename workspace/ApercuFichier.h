// A drawing that is not open as a small picture.
#pragma once

#include <string>
#include <vector>

#include "core/Reglages.h"
#include "core/Types.h"

namespace ovelin {

// The points of that file, thinned (image/Apercu.h). None where a look would take long: beyond 1 MiB, or a kind
// that another program reads; nor where the file is refused. Nothing in force is touched and nothing is told.
std::vector<PointTrace> PointsDuFichier(const std::string& chemin, const Reglages& reglages);

// The drawings that come with the product and are there, by their paths, the one for a beginner first.
std::vector<std::string> DessinsExemples();

}  // namespace ovelin
