#include "machine/essais/RecordLisible.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace ovelin {

namespace {
constexpr std::array<std::size_t, 12> OctetsGroupes{1, 1, 1, 4, 4, 4, 4, 4, 4, 1, 1, 4};
}

std::string GroupesRecord(std::string_view hexa) {
  std::string chiffres;
  for (const char c : hexa) {
    if (c != ' ') chiffres += c;
  }
  std::string groupes;
  std::size_t debut = 0;
  for (const std::size_t octets : OctetsGroupes) {
    if (debut + 2 * octets > chiffres.size()) break;
    if (!groupes.empty()) groupes += ' ';
    groupes += chiffres.substr(debut, 2 * octets);
    debut += 2 * octets;
  }
  return groupes;
}

double VitesseDepartDe(const std::array<double, 3>& mm, const std::array<double, 3>& departs) {
  double rapport = 0;
  for (std::size_t i = 0; i < mm.size(); ++i) {
    if (mm[i] == 0) continue;
    if (!(departs[i] > 0)) return 0;
    rapport = std::max(rapport, std::fabs(mm[i]) / departs[i]);
  }
  return rapport == 0 ? 0 : std::hypot(mm[0], mm[1], mm[2]) / rapport;
}

}  // namespace ovelin
