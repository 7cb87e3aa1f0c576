// Tick rates by level, and the pace of one record in closed form: ticks done at a moment, the moment of a tick.
//
//   rate  P          ________
//        P-1       _/        \_
//         .      _/            \_        one step of the stairs lasts one level time
//         N    _/                \__ N
//             |    |        |      |
//             0    top      D      Ticks
//
// Time within a job counts in units of 1 / (12 MHz x multiplier): then a level lasts a whole number of units, and
// so does a tick at every level and at the full rate.
#pragma once

#include <array>
#include <cstdint>

#include "base/Indices.h"
#include "closed/zenikcom/virtual/Record.h"

namespace zenikcom {

inline constexpr int NbNiveaux = 256, NiveauPlein = 255;

// Ticks with 32 binary digits behind the point: the phase of a tick is carried from level to level.
using TicksQ32 = std::uint64_t;

class Cadences {
 public:
  // Held within 1 to 255 and 1 to 9.
  Cadences(int multiplicateur, int pente);

  [[nodiscard]] std::int64_t UnitesParSeconde() const { return 12'000'000 * multiplicateur_; }
  [[nodiscard]] std::int64_t Palier() const { return palier_; }  // units on one level of the ramp
  // Counts of the 6 MHz clock that one tick lasts.
  [[nodiscard]] std::int64_t Periode(int niveau) const { return periode_[base::Indice(niveau)]; }
  [[nodiscard]] std::int64_t Tick(int niveau) const { return 2 * Periode(niveau) * multiplicateur_; }  // units
  static constexpr std::int64_t TickPlein = 1200;  // units of a tick at the full rate, 10,000 x multiplier a second
  // Ticks of all levels below this one, each held for its time; niveau 0 to 256.
  [[nodiscard]] TicksQ32 Somme(int niveau) const { return somme_[base::Indice(niveau)]; }

 private:
  std::int64_t multiplicateur_, palier_;
  std::array<std::int64_t, NbNiveaux> periode_{};
  std::array<TicksQ32, NbNiveaux + 1> somme_{};
};

// Down the stairs: one level time on each level from `haut` on, then on at `bas` without end.
class Descente {
 public:
  Descente() = default;
  Descente(const Cadences& cadences, TicksQ32 base, int haut, int bas);
  [[nodiscard]] TicksQ32 Ticks(std::int64_t t, std::int64_t limite) const;
  [[nodiscard]] std::int64_t Temps(std::int64_t tick) const;  // the first unit at which the tick is done
  [[nodiscard]] int Niveau(std::int64_t t) const;
  [[nodiscard]] std::int64_t JusquAuFond() const;  // units until `bas` is reached

 private:
  [[nodiscard]] TicksQ32 Base(int marches) const;
  const Cadences* cadences_ = nullptr;
  TicksQ32 base_ = 0;
  int haut_ = 0, bas_ = 0;
};

// How one record runs. Holds on to the rates.
class Allure {
 public:
  Allure() = default;
  Allure(const Cadences& cadences, const Record& record);
  // Ticks done `t` units after the start, at most those of the record.
  [[nodiscard]] TicksQ32 Ticks(std::int64_t t) const;
  [[nodiscard]] std::int64_t Temps(std::int64_t tick) const;
  [[nodiscard]] int Niveau(std::int64_t t) const;
  [[nodiscard]] std::int64_t DureeTick(std::int64_t t) const;  // units of a tick at that moment
  [[nodiscard]] int Sommet() const { return sommet_; }         // 0 without ramp

 private:
  [[nodiscard]] int CherchSommet(const Record& record) const;
  [[nodiscard]] TicksQ32 Montee(std::int64_t t) const;
  [[nodiscard]] std::int64_t TempsMontee(std::int64_t tick) const;
  [[nodiscard]] int NiveauMontee(std::int64_t t) const;

  const Cadences* cadences_ = nullptr;
  std::int64_t ticks_ = 0;
  bool rampe_ = false;
  int depart_ = 0, sommet_ = 0;
  std::int64_t tickDescente_ = 0, debutDescente_ = 0;  // tick and unit at which the way down begins
  Descente descente_;
};

}  // namespace zenikcom
