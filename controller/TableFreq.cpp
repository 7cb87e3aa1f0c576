#include "controller/TableFreq.h"

#include <cmath>
#include <cstddef>

#include "base/Indices.h"

namespace ovelin {

TableFrequences CalculTableFreq(int multiplicateur, std::int32_t tempsPalier) {
  TableFrequences table;
  for (int i = 0; i < NbPaliers; ++i) {
    const double f = (PalierPlein - i) * 6'000'000.0 / 16'711'425 + multiplicateur * 10'000.0 / PalierPlein * i;
    NiveauFreq& niveau = table[base::Indice(i)];
    niveau.Periode = static_cast<std::int32_t>(std::nearbyint(6'000'000 / f));
    niveau.Duree = static_cast<double>(tempsPalier) / (2 * niveau.Periode);
  }
  return table;
}

}  // namespace ovelin
