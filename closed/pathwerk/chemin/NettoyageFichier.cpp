// Clean-up of one path: the points that stay are points of the path, every other lies within the tolerance of their
// line.
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <new>
#include <vector>

#include "base/Indices.h"
#include "closed/Pathwerk.h"
#include "closed/pathwerk/chemin/Simplifie.h"

namespace pathwerk {

namespace {

// Without a tolerance only repeats go: a "PD" point at the very place of its neighbour.
std::size_t RetireRepetes(std::vector<PointTrace>& points) {
  const std::size_t n = points.size();
  std::size_t m = 1;
  for (std::size_t i = 1; i + 1 < n; ++i) {
    const bool ordinaire = points[i].Cde == CodePD;
    // Before a mark or the end it is the ordinary point in front that gives way.
    const bool repete = MemePlace(points[i], points[m - 1]) ||
                        (MemePlace(points[i], points[i + 1]) && (points[i + 1].Cde != CodePD || i + 2 == n));
    if (ordinaire && repete) continue;
    points[m++] = points[i];
  }
  points[m++] = points[n - 1];
  return m;
}

bool TousFinis(const std::vector<PointTrace>& points) {
  return std::all_of(points.begin(), points.end(),
                     [](const PointTrace& p) { return std::isfinite(p.X) && std::isfinite(p.Y); });
}

}  // namespace

std::int32_t NettoyageFichier(std::vector<PointTrace>& points, float tolerance) {
  const std::size_t n = points.size();
  if (n <= 2) return base::Compte(n);
  if (!(tolerance > 0) || !std::isfinite(tolerance) || !TousFinis(points)) {
    return base::Compte(RetireRepetes(points));
  }
  try {
    Chemin chemin(n);
    std::vector<std::uint8_t> garde(n);
    for (std::size_t i = 0; i < n; ++i) {
      chemin[i] = {double{points[i].X}, double{points[i].Y}};
      garde[i] = points[i].Cde != CodePD;
    }
    const std::vector<std::size_t> reste = chemin::Simplifie(chemin, garde, tolerance);
    for (std::size_t i = 0; i < reste.size(); ++i) points[i] = points[reste[i]];
    return base::Compte(reste.size());
  } catch (const std::bad_alloc&) {
    return base::Compte(n);
  }
}

}  // namespace pathwerk
