// One motion record, read from the wire or from the flash memory.
#pragma once

#include <cstdint>
#include <span>

#include "closed/CarteVirtuelle.h"

namespace zenikcom {

struct Record {
  std::int32_t ticks = 0;
  Axes3 pas{};  // signed, whole steps
  bool rampe = false;
  int depart = 0, fond = 0;   // levels at which the way up begins and the way down ends
  std::int32_t descente = 0;  // tick at which the way down begins; below 0 where the row is too short to climb
};

enum class Lecture { Record, Fin, MalForme };

// The flags say how long a record is: this many bytes, the flags among them.
inline constexpr std::size_t OctetsSansRampe = 25, OctetsAvecRampe = 31;

// `octets`: the record from its flags on. A record has at least one tick and no negative count of edges; bit 7 of
// the flags is the end of the job. Two edges make a step; an odd one is none.
Lecture LitRecord(std::span<const std::uint8_t> octets, Record& record);

// Steps done after `k` of `ticks` ticks, `pas` and `k` not negative: to the nearest, halves to even.
std::int64_t PasFaits(std::int64_t pas, std::int64_t k, std::int64_t ticks);
// The first tick at which `rang` steps are done, 1 <= rang <= pas.
std::int64_t TickDuPas(std::int64_t rang, std::int64_t pas, std::int64_t ticks);
// The first tick from `k` on at which no axis stands on an exact half of a step, or the last one of the record.
// There every rounding agrees, whether it is done with the place at which the record began or without.
std::int64_t TickSansMoitie(const Record& record, std::int64_t k);

}  // namespace zenikcom
