#include "controller/ReponseEtat.h"

#include <algorithm>
#include <cstddef>
#include <limits>

namespace ovelin {

std::uint32_t LitCompte24(const zenikcom::TamponOctets& reponse, std::size_t i) {
  return std::uint32_t{reponse[i]} | std::uint32_t{reponse[i + 1]} << 8U | std::uint32_t{reponse[i + 2]} << 16U;
}

std::int32_t LitTicks(const zenikcom::TamponOctets& reponse, std::size_t i) {
  return static_cast<std::int32_t>(LitCompte24(reponse, i) | std::uint32_t{reponse[i + 3]} << 24U);
}

ReponseEtat LitReponseEtat(const zenikcom::TamponOctets& reponse) {
  ReponseEtat s;
  s.octet2 = reponse[2];
  s.octet3 = reponse[3];
  s.compte24 = LitCompte24(reponse, 4);
  s.octet7 = reponse[7];
  s.octet8 = reponse[8];
  s.analog1 = reponse[9];
  s.analog2 = reponse[10];
  s.touches = reponse[11];
  s.octet12 = reponse[12];
  s.ticksRestants = LitTicks(reponse, 13);
  return s;
}

std::int64_t ProlongeCompte(std::int32_t dernier, std::uint32_t compte24) {
  constexpr std::int64_t Tour = 1 << 24;
  const std::int64_t tours = dernier / Tour;
  const std::int64_t compte = tours * Tour + compte24;
  return compte < dernier ? compte + Tour : compte;
}

bool TicksPossibles(std::int32_t ticksRestants, std::int32_t ticks) {
  return ticksRestants >= -1 && (ticks <= 0 || ticksRestants < ticks);
}

std::int32_t PasAtteint(std::int32_t debut, std::int32_t pas, std::int32_t ticks, std::int32_t ticksRestants) {
  if (ticks <= 0) return debut;
  const std::int64_t faits = std::int64_t{ticks} - ticksRestants - 1;  // 0 to ticks
  const std::int64_t produit = pas * faits;                            // below 2^31 x 2^31
  std::int64_t entier = produit / ticks, reste = produit % ticks;
  if (reste < 0) {
    --entier;
    reste += ticks;
  }
  std::int64_t lieu = debut + entier;
  if (2 * reste > ticks || (2 * reste == ticks && lieu % 2 != 0)) ++lieu;
  using Bornes = std::numeric_limits<std::int32_t>;
  return static_cast<std::int32_t>(std::clamp<std::int64_t>(lieu, Bornes::min(), Bornes::max()));
}

}  // namespace ovelin
