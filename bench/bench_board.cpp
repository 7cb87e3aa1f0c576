// The virtual board by itself, and the class in front of it: what an exchange costs, how many records a second are
// computed, sent and run, how many exchanges the check of the tables takes. Google Benchmark.
//   build/bench/bin/bench_board
#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>
#include <random>

#include "closed/CarteVirtuelle.h"
#include "closed/ZenikCom.h"
#include "controller/ClsCdeZENIK.h"
#include "core/PlanCourant.h"
#include "core/RunCourant.h"
#include "core/Services.h"
#include "machine/TableCourante.h"
#include "run/Module_Decoupe.h"
#include "run/Module_Profil.h"

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

// --- the class in front of it -----------------------------------------------------------------------------------

constexpr int LignesMaxi = 1'000'000;

// The one board object over a virtual board that runs as fast as it can, with the values of a table without keys.
struct BancClasse {
  std::shared_ptr<CarteVirtuelle> carte;
  BancClasse() {
    ovelin::Svc = ovelin::ServicesMuets();
    ovelin::Svc.LaisseEvenements = [](ovelin::Evenements) {};
    ovelin::Svc.Attend = [](double) {};
    ovelin::VitesseMaxX = ovelin::VitesseMaxY = ovelin::VitesseMaxZ = 15;
    ConditionsCarte conditions;
    conditions.rapide = true;
    carte = CreeCarteVirtuelle(conditions);
    ovelin::CdeZENIK = std::make_unique<ovelin::ClsCdeZENIK>(LiaisonVirtuelle(carte));
    ovelin::CdeZENIK->ChargeParametres();
  }
};

// Rows of an engraving: mostly a few tenths of a millimetre, a rapid now and then, each at a speed of its own, half
// of them above the start speed.
void PoseLignes(int nombre) {
  std::mt19937 alea(7);
  const auto entre = [&alea](int a, int b) { return std::uniform_int_distribution<int>(a, b)(alea); };
  ovelin::Plan = ovelin::EtatPlan{};
  ovelin::TableDecoupe.resize(static_cast<std::size_t>(nombre) + 2);
  for (auto& ligne : ovelin::TableDecoupe) {
    const int taille = entre(0, 49) == 0 ? 9000 : 120;
    ligne.dX = entre(1, taille);
    ligne.dY = entre(-taille, taille);
    ligne.Vitesse = static_cast<float>(entre(10, 149)) / 10.0F;
  }
  ovelin::TableDecoupe[1] = {};  // where the machine stands
  ovelin::NbDeplacements = nombre + 1;
}

// The record of one row, nothing sent.
void CommandeDATA(benchmark::State& etat) {
  const BancClasse banc;
  PoseLignes(10'000);
  std::size_t i = 2;
  for (auto _ : etat) {
    ovelin::Deplacement& ligne = ovelin::TableDecoupe[i];
    float t = 0;
    benchmark::DoNotOptimize(ovelin::CdeZENIK->CommandeDATA(ligne.dX, ligne.dY, ligne.dZ, ligne.Vitesse, t, true));
    i = i == 10'001 ? 2 : i + 1;
  }
  etat.SetItemsProcessed(etat.iterations());
}

void TempsDecoupe(benchmark::State& etat) {
  const BancClasse banc;
  PoseLignes(LignesMaxi);
  for (auto _ : etat) benchmark::DoNotOptimize(ovelin::TempsDecoupe());
  etat.SetItemsProcessed(etat.iterations() * LignesMaxi);
}

// A question about the state with all that is read out of the reply.
void Echange(benchmark::State& etat) {
  const BancClasse banc;
  for (auto _ : etat) ovelin::CdeZENIK->DemandeInformation();
}

// A record computed, sent, run by the board, its reply read.
void RecordsEntiers(benchmark::State& etat) {
  const BancClasse banc;
  PoseLignes(10'000);
  ovelin::RunActif = true;
  ovelin::CdeZENIK->EnvoiUSB();
  std::size_t i = 2;
  for (auto _ : etat) {
    const ovelin::Deplacement& ligne = ovelin::TableDecoupe[i];
    float v = ligne.Vitesse;
    float t = 0;
    if (!ovelin::CdeZENIK->CommandeDATA(ligne.dX, ligne.dY, ligne.dZ, v, t, false)) {
      etat.SkipWithError("refused");
      break;
    }
    i = i == 10'001 ? 2 : i + 1;
  }
  ovelin::RunActif = false;
  etat.SetItemsProcessed(etat.iterations());
}

// A job from its estimate to its last step, as a run goes.
void Job(benchmark::State& etat) {
  constexpr int Lignes = 100'000;
  const BancClasse banc;
  for (auto _ : etat) {
    etat.PauseTiming();
    PoseLignes(Lignes);
    etat.ResumeTiming();
    float vRef = 0;
    ovelin::LanceDecoupe(vRef, ovelin::AppelantFraisage);
    if (banc.carte->Compteurs().acceptes != Lignes) etat.SkipWithError("not all of it ran");
  }
  etat.SetItemsProcessed(etat.iterations() * Lignes);
}

// The check of the tables, of a board that has the table: the exchanges of one.
void TableVerif(benchmark::State& etat) {
  const BancClasse banc;
  ovelin::Svc.Montre = [](const ovelin::BoiteMessage&) { return ovelin::Reponse::Non; };
  std::int64_t echanges = 0;
  for (auto _ : etat) {
    const std::int64_t avant = banc.carte->Compteurs().echanges;
    benchmark::DoNotOptimize(ovelin::CdeZENIK->TableVerif());
    echanges = std::max(echanges, banc.carte->Compteurs().echanges - avant);
  }
  etat.counters["exchanges"] = static_cast<double>(echanges);
}

BENCHMARK(Records);
BENCHMARK(RecordsRampe);
BENCHMARK(RecordsModele);
BENCHMARK(Statut);
BENCHMARK(CommandeDATA);
BENCHMARK(TempsDecoupe)->Unit(benchmark::kMillisecond);
BENCHMARK(Echange);
BENCHMARK(RecordsEntiers);
BENCHMARK(Job)->Unit(benchmark::kMillisecond);
BENCHMARK(TableVerif);

}  // namespace

BENCHMARK_MAIN();
