// The heavy kernels, one at a time: read, offset, clean-up, plan, write, over 1k to 1M points. Google Benchmark.
//   build/bench/bin/bench_kernels [--benchmark_filter=...]
#include <benchmark/benchmark.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <numbers>

#include "bench/Formes.h"
#include "core/DocumentCourant.h"
#include "core/Dossiers.h"
#include "core/Fichiers.h"
#include "core/PlanCourant.h"
#include "core/Projet.h"
#include "core/ReglagesCourants.h"
#include "run/Dialectes.h"
#include "run/Module_GCode.h"
#include "run/Module_Planificateur.h"
#include "toolpath/Module_Decalage.h"
#include "toolpath/Module_Outils.h"
#include "toolpath/Module_Sequence.h"

namespace {

using namespace ovelin;

std::filesystem::path Temporaire() {
  const auto dossier = std::filesystem::temp_directory_path() / "ovelin-bench";
  std::filesystem::create_directories(dossier);
  return dossier;
}

// A document of contours of 1,000 points (at most), with their records.
void Charge(long points) {
  Doc = Document{};
  const int parContour = static_cast<int>(std::min<long>(points, 1000));
  const int contours = static_cast<int>(points / parContour);
  Sequences.clear();
  for (const auto& contour : banc::Contours(contours, parContour)) {
    TraceInitial.insert(TraceInitial.end(), contour.begin(), contour.end());
    Sequences.push_back({contour[0].Seq, Faux, -3, Vrai, 1, Vrai});
  }
  NbPoints = static_cast<std::int32_t>(TraceInitial.size());
  RayonFraise = 1.5;
}

void Compte(benchmark::State& etat) {
  etat.SetItemsProcessed(etat.iterations() * etat.range(0));
  etat.SetComplexityN(etat.range(0));
  etat.counters["peakMB"] = banc::MemoireMo();
}

void Lecture(benchmark::State& etat) {
  const long points = etat.range(0);
  const int parContour = static_cast<int>(std::min<long>(points, 1000));
  const std::string chemin = (Temporaire() / "lecture.dxf").string();
  std::ofstream(chemin, std::ios::binary) << banc::DessinDxf(static_cast<int>(points / parContour), parContour);
  for (auto _ : etat) {
    std::vector<PointTrace> lus;
    float x0 = 0;
    float x1 = 0;
    float y0 = 0;
    float y1 = 0;
    std::string message(pathwerk::LongueurMessage, ' ');
    benchmark::DoNotOptimize(pathwerk::LireFichier(lus, chemin, x0, x1, y0, y1, message));
  }
  Compte(etat);
}

void Decalage(benchmark::State& etat) {
  Charge(etat.range(0));
  for (auto _ : etat) RecalculDecalages();
  Compte(etat);
}

void DecalageUnContour(benchmark::State& etat) {
  const auto contour = banc::Contour(static_cast<int>(etat.range(0)));
  for (auto _ : etat) {
    auto points = contour;
    benchmark::DoNotOptimize(pathwerk::DecalSequence(points, 0.01F, 1.5F, 100));
  }
  Compte(etat);
}

void Nettoyage(benchmark::State& etat) {
  const auto contour = banc::Contour(static_cast<int>(etat.range(0)));
  for (auto _ : etat) {
    auto points = contour;
    benchmark::DoNotOptimize(pathwerk::NettoyageFichier(points, 0.005F));
  }
  Compte(etat);
}

void Plan_(benchmark::State& etat) {
  Charge(etat.range(0));
  RecalculDecalages();
  for (auto _ : etat) Tableau_Decoupe();
  etat.counters["rows"] = static_cast<double>(NbDeplacements);
  Compte(etat);
}

void GCode(benchmark::State& etat) {
  Charge(etat.range(0));
  RecalculDecalages();
  const std::string chemin = (Temporaire() / "job.nc").string();
  EcritureNC ecriture;
  for (auto _ : etat) EcritGCode(chemin, ecriture);
  etat.counters["lines"] = static_cast<double>(ecriture.lignes);
  Compte(etat);
}

// Rows of a plan as a file with arcs: rings of a spiral, 112 rows each, of which two arcs become one ring; or
// noise, in which hardly a row finds its arc.
void Arcs(benchmark::State& etat, bool bruit) {
  std::vector<Deplacement> lignes(static_cast<std::size_t>(etat.range(0)) + 1);
  for (std::size_t k = 0; k < lignes.size(); ++k) {
    const double a = 2 * std::numbers::pi * static_cast<double>(k % 112) / 112;
    const double r =
        5 + 0.02 * static_cast<double>(k / 112 % 2000) + (bruit ? 0.01 * static_cast<double>(k * 7 % 5) : 0);
    lignes[k].X = static_cast<float>(100 + r * std::cos(a));
    lignes[k].Y = static_cast<float>(100 + r * std::sin(a));
    lignes[k].Z = -1;
    lignes[k].Vitesse = 10;
  }
  const Dialecte& dialecte = *DialecteDeTable("grbl");
  EcritureNC ecriture;
  for (auto _ : etat) {
    ecriture = EcritureNC{};
    benchmark::DoNotOptimize(ComposeNC(lignes, CadreNC{}, dialecte, ecriture));
  }
  etat.counters["arcs"] = static_cast<double>(ecriture.arcs);
  Compte(etat);
}
void ArcsDeRonds(benchmark::State& etat) { Arcs(etat, false); }
void ArcsDeBruit(benchmark::State& etat) { Arcs(etat, true); }

void Projet(benchmark::State& etat) {
  Charge(etat.range(0));
  DossierProgramme = Temporaire().string();
  const std::string chemin = (Temporaire() / "projet.OVL").string();
  for (auto _ : etat) {
    FichierProjet = chemin;
    FichierCourant = chemin;
    EcrireProjet(chemin);
    LireProjet(chemin);
  }
  Compte(etat);
}

void Optimisation(benchmark::State& etat) {
  Charge(etat.range(0));
  RayonFraise = 0;
  for (SequenceInfo& s : Sequences) s.Decalage = 2;  // the start points alone, without the offset
  for (auto _ : etat) mnu_Optimisation_Click();
  Compte(etat);
}

#define CROISSANCE(nom) \
  BENCHMARK(nom)->Arg(1000)->Arg(10000)->Arg(100000)->Arg(1000000)->Unit(benchmark::kMillisecond)->Complexity()
CROISSANCE(Lecture);
CROISSANCE(Decalage);
CROISSANCE(DecalageUnContour);
CROISSANCE(Nettoyage);
CROISSANCE(Plan_);
CROISSANCE(GCode);
CROISSANCE(ArcsDeRonds);
CROISSANCE(ArcsDeBruit);
CROISSANCE(Projet);
CROISSANCE(Optimisation);

}  // namespace

BENCHMARK_MAIN();
