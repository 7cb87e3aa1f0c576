// The picture: from the document to the list of primitives, with the tool path, fitted and zoomed in.
//   build/bench/bin/bench_scene [--benchmark_filter=...]
#include <benchmark/benchmark.h>

#include <random>

#include "bench/Formes.h"
#include "core/DocumentCourant.h"
#include "image/SceneDocument.h"
#include "workspace/Module_Souris.h"
#include "workspace/Module_Vue.h"

namespace {

using namespace ovelin;

constexpr TailleImage Image{1600 * TwipsParPixel, 1000 * TwipsParPixel};

// The tool path has the points of the drawing, half a millimetre aside: its cost is that of its points.
void Ajoute(const std::vector<PointTrace>& contour) {
  TraceInitial.insert(TraceInitial.end(), contour.begin(), contour.end());
  Sequences.push_back({contour[0].Seq, Faux, -3, Vrai, 1, Faux});
  SequenceDecalee trace{contour[0].Seq, contour};
  for (PointTrace& p : trace.Points) p.X += 0.5F;
  TraceDecale.push_back(std::move(trace));
}

void Ajuste() {
  NbPoints = static_cast<std::int32_t>(TraceInitial.size());
  Xmin = Xmax = TraceInitial[0].X;
  Ymin = Ymax = TraceInitial[0].Y;
  for (const PointTrace& p : TraceInitial) {
    Xmin = std::min(Xmin, p.X), Xmax = std::max(Xmax, p.X);
    Ymin = std::min(Ymin, p.Y), Ymax = std::max(Ymax, p.Y);
  }
  mnu_Zoom1(Image);
}

void Charge(int contours, int points) {
  Doc = Document{};
  Sequences.clear();
  for (const auto& contour : banc::Contours(contours, points)) Ajoute(contour);
  Ajuste();
}

void Mesure(benchmark::State& etat, const OptionsScene& options) {
  Scene scene;
  for (auto _ : etat) {
    ConstruitScene(Doc, Vue, Image, options, scene);
    benchmark::DoNotOptimize(scene.Points.data());
  }
  etat.counters["points"] = static_cast<double>(scene.Points.size());
  etat.counters["primitives"] = static_cast<double>(scene.Primitives.size());
  etat.SetItemsProcessed(etat.iterations() * 2 * static_cast<std::int64_t>(TraceInitial.size()));
}

// Contours of 1,000 points.
void SceneAjustee(benchmark::State& etat) {
  const auto points = static_cast<int>(std::min<std::int64_t>(etat.range(0), 1000));
  Charge(static_cast<int>(etat.range(0)) / points, points);
  Mesure(etat, OptionsScene{});
}

void SceneUnContour(benchmark::State& etat) {
  Doc = Document{};
  Sequences.clear();
  Ajoute(banc::Contour(static_cast<int>(etat.range(0))));
  Ajuste();
  Mesure(etat, OptionsScene{});
}

void SceneAgrandie(benchmark::State& etat) {
  Charge(static_cast<int>(etat.range(0)) / 1000, 1000);
  Zoom *= 50;
  Mesure(etat, OptionsScene{});
}

void Scene8000Chemins(benchmark::State& etat) {
  Charge(8000, static_cast<int>(etat.range(0)) / 8000);
  OptionsScene options;
  options.numPoint = options.sequence = true;
  Mesure(etat, options);
}

// A scanned line that trembles by less than a pixel.
void SceneTremblee(benchmark::State& etat) {
  Doc = Document{};
  Sequences.clear();
  auto contour = banc::Contour(static_cast<int>(etat.range(0)));
  std::mt19937 hasard(3);
  std::uniform_real_distribution<float> ecart(-0.1F, 0.1F);
  for (PointTrace& p : contour) p.X += ecart(hasard), p.Y += ecart(hasard);
  Ajoute(contour);
  Ajuste();
  Mesure(etat, OptionsScene{});
}

// One click: the nearest of all segments.
void Clic(benchmark::State& etat) {
  Charge(static_cast<int>(etat.range(0)) / 1000, 1000);
  for (auto _ : etat) benchmark::DoNotOptimize(SegmentLePlusProche(TraceInitial, NbPoints, 50, 50));
  etat.SetItemsProcessed(etat.iterations() * etat.range(0));
}

BENCHMARK(SceneAjustee)->Arg(1000)->Arg(10000)->Arg(100000)->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK(SceneUnContour)->Arg(1000)->Arg(10000)->Arg(100000)->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK(SceneAgrandie)->Arg(100000)->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK(Scene8000Chemins)->Arg(480000)->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK(SceneTremblee)->Arg(100000)->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK(Clic)->Arg(100000)->Arg(1000000)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
