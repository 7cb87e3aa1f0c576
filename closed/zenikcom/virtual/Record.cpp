#include "closed/zenikcom/virtual/Record.h"

#include <algorithm>
#include <cstdlib>

namespace zenikcom {

namespace {

std::int32_t Entier32(std::span<const std::uint8_t> octets, std::size_t i) {
  return static_cast<std::int32_t>(std::uint32_t{octets[i]} | std::uint32_t{octets[i + 1]} << 8U |
                                   std::uint32_t{octets[i + 2]} << 16U | std::uint32_t{octets[i + 3]} << 24U);
}

constexpr std::uint8_t Rampe = 32, Fin = 128;

}  // namespace

Lecture LitRecord(std::span<const std::uint8_t> octets, Record& record) {
  if (octets.empty() || (octets[0] & Fin) != 0) return Lecture::Fin;
  const bool rampe = (octets[0] & Rampe) != 0;
  if (octets.size() < (rampe ? OctetsAvecRampe : OctetsSansRampe)) return Lecture::MalForme;
  record = {};
  record.ticks = Entier32(octets, 1);
  if (record.ticks < 1) return Lecture::MalForme;
  for (std::size_t axe = 0; axe < 3; ++axe) {
    const std::int64_t fronts = Entier32(octets, 5 + 4 * axe);
    if (fronts < 0) return Lecture::MalForme;
    const bool positif = (unsigned{octets[0]} >> axe & 1U) != 0;
    record.pas[axe] = positif ? fronts / 2 : -(fronts / 2);
  }
  record.rampe = rampe;
  if (!rampe) return Lecture::Record;
  record.depart = octets[25];
  record.fond = octets[26];
  record.descente = Entier32(octets, 27);
  return Lecture::Record;
}

std::int64_t PasFaits(std::int64_t pas, std::int64_t k, std::int64_t ticks) {
  const std::int64_t produit = pas * k;  // below 2^30 x 2^31
  const std::int64_t entier = produit / ticks;
  const std::int64_t reste = 2 * (produit % ticks);
  const bool monte = reste > ticks || (reste == ticks && entier % 2 != 0);
  return entier + (monte ? 1 : 0);
}

std::int64_t TickDuPas(std::int64_t rang, std::int64_t pas, std::int64_t ticks) {
  // The step is done where pas * k / ticks passes rang - 1/2; a tie goes to the even side.
  const std::int64_t produit = (2 * rang - 1) * ticks;
  const std::int64_t k = produit / (2 * pas);
  const bool juste = produit % (2 * pas) == 0;
  return juste && rang % 2 == 0 ? k : k + 1;
}

std::int64_t TickSansMoitie(const Record& record, std::int64_t k) {
  const std::int64_t ticks = record.ticks;
  const auto moitie = [&](std::int64_t pas) { return 2 * ((std::abs(pas) * k) % ticks) == ticks; };
  while (k < ticks && std::any_of(record.pas.begin(), record.pas.end(), moitie)) ++k;
  return k;
}

}  // namespace zenikcom
