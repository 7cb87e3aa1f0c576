// The virtual board: what an exchange costs, how many records a second it runs. Google Benchmark.
//   build/bench/bin/bench_board
#include <benchmark/benchmark.h>

#include <array>
#include <cstdint>
#include <memory>

#include "closed/CarteVirtuelle.h"
#include "closed/ZenikCom.h"

namespace {

using namespace zenikcom;

struct Banc {
  std::shared_ptr<CarteVirtuelle> carte;
  std::unique_ptr<Liaison> liaison;
  explicit Banc(ModeleMachine modele = {}) {
    ConditionsCarte conditions;
    conditions.rapide = true;
    carte = CreeCarteVirtuelle(conditions);
    carte->Modele(modele);
    liaison = LiaisonVirtuelle(carte);
  }
  TamponOctets Envoie(char lettre, int deux = 0) {
    TamponOctets t{};
    t[1] = static_cast<std::uint8_t>(lettre);
    t[2] = static_cast<std::uint8_t>(deux);
    std::int32_t mode = 0;
    liaison->Envoie(t, mode);
    return t;
  }
  void Ouvre() {
    Envoie('B', 0);
    Envoie('B', 1);
    Envoie('B', 128);
  }
};

void Pose32(TamponOctets& t, std::size_t i, std::uint32_t v) {
  for (std::size_t n = 0; n < 4; ++n) t[i + n] = static_cast<std::uint8_t>(v >> 8 * n);
}

// A move of 200 steps on X and 77 on Y in 2,000 ticks, with a ramp from level 100.
TamponOctets Motion(bool rampe) {
  TamponOctets t{};
  t[1] = 'D';
  t[2] = static_cast<std::uint8_t>(rampe ? 39 : 7);
  Pose32(t, 3, 2000);
  Pose32(t, 7, 400);
  Pose32(t, 11, 154);
  if (!rampe) return t;
  t[27] = t[28] = 100;
  Pose32(t, 29, 1100);
  return t;
}

void Joue(benchmark::State& etat, Banc& banc, bool rampe) {
  const TamponOctets motion = Motion(rampe);
  banc.Ouvre();
  std::int32_t mode = 1;
  std::int64_t pris = 0;
  for (auto _ : etat) {
    TamponOctets t = motion;
    banc.liaison->Envoie(t, mode);
    pris += t[2] == 1 ? 1 : 0;
  }
  etat.SetItemsProcessed(pris);
}

void Records(benchmark::State& etat) {
  Banc banc;
  Joue(etat, banc, false);
}

void RecordsRampe(benchmark::State& etat) {
  Banc banc;
  Joue(etat, banc, true);
}

// Every edge weighed by the model of the machine: 277 of them a record.
void RecordsModele(benchmark::State& etat) {
  const ModeleAxe axe{.vitesseLibre = 600, .rampe = 20'000, .jeu = 4};
  Banc banc({axe, axe, axe});
  Joue(etat, banc, true);
}

void Statut(benchmark::State& etat) {
  Banc banc;
  for (auto _ : etat) benchmark::DoNotOptimize(banc.Envoie('I'));
}

BENCHMARK(Records);
BENCHMARK(RecordsRampe);
BENCHMARK(RecordsModele);
BENCHMARK(Statut);

}  // namespace

BENCHMARK_MAIN();
