// The status in a reply: what its bytes say, and whether that can be true. Values in, values out.
#pragma once

#include <cstddef>
#include <cstdint>

#include "closed/ZenikCom.h"

namespace ovelin {

// The reply to `I` and to `D`, byte by byte.
struct ReponseEtat {
  std::uint8_t octet2 = 0;  // of `D`: 1, the record was accepted
  std::uint8_t octet3 = 0;
  std::uint32_t compte24 = 0;  // lower 24 bits of the number of the record that runs
  std::uint8_t octet7 = 0, octet8 = 0;
  std::uint8_t analog1 = 0, analog2 = 0;  // 0 to 255
  std::uint8_t touches = 0;
  std::uint8_t octet12 = 0;
  std::int32_t ticksRestants = 0;

  [[nodiscard]] bool EnCours() const { return (octet7 & 1U) != 0; }
  [[nodiscard]] bool SansPosition() const { return octet12 == 2 || octet12 == 162; }
  [[nodiscard]] bool Fini() const { return !SansPosition() && (octet12 & 128U) != 0; }
  [[nodiscard]] bool Arrete() const { return (octet12 & 66U) == 66; }
};
ReponseEtat LitReponseEtat(const zenikcom::TamponOctets& reponse);

// Three bytes of a count at their place in a reply.
std::uint32_t LitCompte24(const zenikcom::TamponOctets& reponse, std::size_t i);
std::int32_t LitTicks(const zenikcom::TamponOctets& reponse, std::size_t i);

// The count goes on where its 24 bits come round: the least one from `dernier` on that ends in these bits.
std::int64_t ProlongeCompte(std::int32_t dernier, std::uint32_t compte24);

// Ticks left can be true in a record of `ticks`: -1 when it is done, one less than all at its beginning. A record
// whose ticks are not known (0) can have any.
bool TicksPossibles(std::int32_t ticksRestants, std::int32_t ticks);

// Place on an axis while a record runs: `debut` + `pas` x done / Ticks to the nearest whole step, halves to even.
// Exact, whatever the size of the numbers; a record whose ticks are not known has done nothing.
std::int32_t PasAtteint(std::int32_t debut, std::int32_t pas, std::int32_t ticks, std::int32_t ticksRestants);

}  // namespace ovelin
