#include "controller/ListeStockee.h"

namespace ovelin {

BilanListe LitListe(std::span<const std::uint8_t> octets) {
  constexpr std::size_t sansRampe = 25, avecRampe = 31;
  constexpr std::uint8_t fin = 128, rampe = 32;
  BilanListe bilan;
  std::size_t i = 0;
  while (i < octets.size()) {
    if ((octets[i] & fin) != 0) {
      bilan.finie = true;
      break;
    }
    const std::size_t taille = (octets[i] & rampe) != 0 ? avecRampe : sansRampe;
    if (octets.size() - i < taille) break;
    i += taille;
    ++bilan.records;
    if (i + 1 <= ListeMaxi) bilan.tiennent = bilan.records;
  }
  return bilan;
}

}  // namespace ovelin
