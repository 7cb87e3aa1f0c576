// The path that the machine behind the virtual board has walked, as a file.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "closed/CarteVirtuelle.h"

namespace ovelin {

// Lines "X,Y,Z,PasX,PasY,PasZ" behind a header: mm with four decimals and a point, then the steps.
std::string ParcoursCsv(const std::vector<zenikcom::Axes3>& points, const std::array<double, 3>& mmParPas);
// The path from above in mm, Y upward: what lies below Z 0 in one colour, what lies at it or above in another.
std::string ParcoursSvg(const std::vector<zenikcom::Axes3>& points, const std::array<double, 3>& mmParPas);

// The kind of file by its extension, in either case: 's' svg, 'c' csv, 0 any other.
char GenreParcours(std::string_view chemin);
// Writes the file whole, by its extension. "", or the system's reason; an extension that is neither gives a reason,
// too.
std::string EcritParcours(const std::string& chemin, const std::vector<zenikcom::Axes3>& points,
                          const std::array<double, 3>& mmParPas);

}  // namespace ovelin
