// Which places of a picture are taken, for marks that must not lie over each other.
#pragma once

#include <cmath>
#include <cstdint>
#include <unordered_map>
#include <vector>

#include "image/Scene.h"

namespace ovelin {

// Discs by the cells of a grid. A disc asks the nine cells around it, so none is larger than half a cell.
class PlacesPrises {
 public:
  explicit PlacesPrises(float rayonMax) : cote_(2 * rayonMax) {}

  // Takes the place of a disc unless it would overlap one that is there.
  bool Prend(const PointEcran& centre, float rayon) {
    if (!Libre(centre, rayon)) return false;
    cellules_[Cle(Rang(centre.X), Rang(centre.Y))].push_back({centre, rayon});
    return true;
  }

 private:
  struct Disque {
    PointEcran centre;
    float rayon;
  };
  [[nodiscard]] std::int32_t Rang(float v) const { return static_cast<std::int32_t>(std::floor(v / cote_)); }
  static std::uint64_t Cle(std::int32_t x, std::int32_t y) {
    return std::uint64_t{static_cast<std::uint32_t>(x)} << 32U | static_cast<std::uint32_t>(y);
  }
  [[nodiscard]] bool Libre(const PointEcran& centre, float rayon) const {
    const std::int32_t x = Rang(centre.X);
    const std::int32_t y = Rang(centre.Y);
    for (std::int32_t j = y - 1; j <= y + 1; ++j) {
      for (std::int32_t i = x - 1; i <= x + 1; ++i) {
        const auto it = cellules_.find(Cle(i, j));
        if (it == cellules_.end()) continue;
        for (const Disque& d : it->second) {
          if (std::hypot(d.centre.X - centre.X, d.centre.Y - centre.Y) < d.rayon + rayon) return false;
        }
      }
    }
    return true;
  }

  float cote_;
  std::unordered_map<std::uint64_t, std::vector<Disque>> cellules_;
};

}  // namespace ovelin
