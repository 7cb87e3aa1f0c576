#include "controller/ChangtTable.h"

#include "controller/ClsCdeZENIK.h"
#include "core/ReglagesCourants.h"

namespace ovelin {

std::array<std::string, TablesOffertes> LegendesTables() {
  std::array<std::string, TablesOffertes> legendes;
  for (std::uint8_t n = 0; n < TablesOffertes; ++n) legendes[n] = CdeZENIK->TableLectureNom(n);
  return legendes;
}

std::string RemplaceTable(std::uint8_t table) {
  CdeZENIK->TableEcrire(TableDefaut, table);
  return TableDefaut;
}

}  // namespace ovelin
