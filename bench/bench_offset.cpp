// The offset on hard outlines, both engines side by side: time, error, pieces, memory. `bench_offset [max points]`
// leaves larger outlines out. Clipper's own offset runs on at most 20,000 points and the union of raw curves on at
// most 200,000; `bench_offset N clipper` runs both on everything, which takes minutes to hours.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <functional>
#include <polyclipping/clipper.hpp>
#include <string>
#include <vector>

#include "FormesDecalage.h"
#include "bench/Formes.h"
#include "closed/Pathwerk.h"
#include "closed/pathwerk/ArbreSegments.h"
#include "closed/pathwerk/Decalages.h"
#include "closed/pathwerk/Moteurs.h"

using namespace pathwerk;
using namespace pathwerk::geo;
using banc::Chemin;

namespace {

constexpr double kTolerance = 0.0088;  // mm: what the offset of one path leaves to its engine

// Processor time, so that other work on the machine doesn't count.
double Secondes(const std::function<void()>& f) {
  const std::clock_t t = std::clock();
  f();
  return static_cast<double>(std::clock() - t) / CLOCKS_PER_SEC;
}

Source SourceDe(const Chemin& c, bool ferme) {
  std::vector<PointTrace> t;
  for (const Vec2 p : c) t.push_back({static_cast<float>(p.x), static_cast<float>(p.y), CodePD, Code2(" A")});
  if (ferme) t.push_back(t.front());
  return *PrepareSource(t, 0.001);
}

// Greatest error of samples of the result: off the distance, mm.
double Erreur(const std::vector<Region>& regions, const std::vector<Chemin>& boucles, double r) {
  std::vector<Segment> s;
  for (const Region& region : regions) {
    for (const Chemin& c : region.contours) {
      const auto q = SegmentsDe(c, true);
      s.insert(s.end(), q.begin(), q.end());
    }
  }
  const ArbreSegments arbre(std::move(s));
  std::size_t n = 0;
  for (const Chemin& c : boucles) n += c.size();
  const std::size_t pas = n / 20000 + 1;
  double pire = 0;
  std::size_t rang = 0;
  for (const Chemin& c : boucles) {
    for (std::size_t i = 0; i < c.size(); ++i) {
      if (rang++ % pas != 0) continue;
      for (const double t : {0.0, 0.5, 0.77}) {
        const Vec2 p = c[i] + (c[(i + 1) % c.size()] - c[i]) * t;
        pire = std::max(pire, std::abs(std::sqrt(arbre.PlusProche(p).distance2) - r));
      }
    }
  }
  return pire;
}

// Clipper's own offset of the thinned outline, arcs as fine as the tolerance needs.
std::size_t OffsetDeClipper(const std::vector<Region>& regions, double d) {
  const double echelle = 1e5;
  std::size_t n = 0;
  for (const Region& region : regions) {
    ClipperLib::Paths p;
    for (const Chemin& c : region.contours) {
      ClipperLib::Path q;
      for (const Vec2 v : c) q.emplace_back(std::llround(v.x * echelle), std::llround(v.y * echelle));
      p.push_back(std::move(q));
    }
    ClipperLib::ClipperOffset o(2, kTolerance * echelle / 2.25);
    o.AddPaths(p, ClipperLib::jtRound, ClipperLib::etClosedPolygon);
    ClipperLib::Paths r;
    o.Execute(r, (region.signe >= 0 ? -d : d) * echelle);
    n += r.size();
  }
  return n;
}

struct Cas {
  std::string nom;
  std::size_t points;
  Chemin (*forme)(std::size_t);
  bool ferme;
  double d;
};

void Compare(const Cas& cas, bool clipper, bool offset) {
  const Chemin c = cas.forme(cas.points);
  Source source;
  const double avant = banc::MemoireMo();
  const double tPrepare = Secondes([&] { source = SourceDe(c, cas.ferme); });
  std::vector<Region> regions;
  double tLobes = 0;
  if (cas.ferme) {
    tLobes = Secondes([&] { SepareLobes(source.chemin, kTolerance, regions); });
  } else {
    Region r;
    r.contours.push_back(source.chemin);
    for (std::size_t i = source.chemin.size() - 1; i-- > 1;) r.contours[0].push_back(source.chemin[i]);
    regions.push_back(std::move(r));
  }
  std::vector<Chemin> boucles;
  bool repli = false;
  const auto moteur = [&](bool notre) {
    boucles.clear();
    for (const Region& r : regions) {
      std::vector<Chemin> b;
      if (!DecaleRegionSimple(r, cas.d, kTolerance, b)) {
        if (notre) {
          if (!DecaleRegionArcs(r, cas.d, kTolerance, b)) repli = true;
        } else {
          DecaleRegionClipper(r, cas.d, kTolerance, b);
        }
      }
      boucles.insert(boucles.end(), b.begin(), b.end());
    }
  };
  const double t = Secondes([&] { moteur(true); });
  const double memoire = banc::MemoireMo() - avant;
  const std::size_t pieces = boucles.size();
  const double erreur = Erreur(regions, boucles, std::abs(cas.d));
  std::printf("%-14s %8zu %8zu R %-5g | prep %7.1f lobes %8.1f own %8.1f ms err %.4f pieces %5zu %5.0f B/pt%s",
              cas.nom.c_str(), cas.points, source.chemin.size(), cas.d, tPrepare * 1e3, tLobes * 1e3, t * 1e3,
              erreur, pieces, memoire * 1048576 / static_cast<double>(cas.points), repli ? " FALLBACK" : "");
  if (clipper) {
    std::size_t np = 0;
    const double tc = Secondes([&] { moteur(false); });
    const double ec = Erreur(regions, boucles, std::abs(cas.d));
    const double to = cas.ferme && offset ? Secondes([&] { np = OffsetDeClipper(regions, cas.d); }) : 0;
    std::printf(" | union %9.1f ms err %.4f pieces %5zu x%.1f | ClipperOffset %9.1f ms pieces %5zu x%.1f", tc * 1e3,
                ec, boucles.size(), tc / t, to * 1e3, np, to / t);
  }
  std::printf("\n");
  std::fflush(stdout);
}

// Every contour by itself, as the program calls it: what small shapes cost.
void CompareTexte() {
  std::vector<PointTrace> tout;
  for (const std::string& police : ListePolices()) {
    for (int i = 0; i < 30; ++i) {
      std::vector<PointTrace> t;
      if (Texte(t, "The quick brown fox jumps over 0123456789 & @ lazy dogs", police, 0, 0) <= 0) break;
      tout.insert(tout.end(), t.begin(), t.end());
    }
    if (!tout.empty()) break;
  }
  std::vector<std::vector<Region>> contours;
  Chemin c;
  for (std::size_t i = 0; i < tout.size(); ++i) {
    c.push_back({static_cast<double>(tout[i].X), static_cast<double>(tout[i].Y)});
    if (i + 1 < tout.size() && tout[i + 1].Seq == tout[i].Seq) continue;
    if (c.size() > 3) {
      const Source s = SourceDe(Chemin(c.begin(), c.end() - 1), true);
      std::vector<Region> r;
      SepareLobes(s.chemin, kTolerance, r);
      contours.push_back(std::move(r));
    }
    c.clear();
  }
  for (const double d : {0.5, -0.5, 3.0}) {
    double t[3] = {};
    for (const auto& regions : contours) {
      for (const Region& r : regions) {
        std::vector<Chemin> b;
        t[0] += Secondes([&] { DecaleRegion(r, d, kTolerance, b); });
        t[1] +=
            Secondes([&] { DecaleRegionSimple(r, d, kTolerance, b) || DecaleRegionClipper(r, d, kTolerance, b); });
      }
      t[2] += Secondes([&] { OffsetDeClipper(regions, d); });
    }
    std::printf("text, %zu contours, R %g: own %.1f ms | union %.1f ms x%.1f | ClipperOffset %.1f ms x%.1f\n",
                contours.size(), d, t[0] * 1e3, t[1] * 1e3, t[1] / t[0], t[2] * 1e3, t[2] / t[0]);
  }
}

// All rings of a fill, each from the outline.
void CompareRings(const char* nom, const Chemin& c, double rayon, int recouvrement) {
  const Source s = SourceDe(c, true);
  std::vector<Region> regions;
  SepareLobes(s.chemin, kTolerance, regions);
  const double pas = rayon * 2 * (100 - recouvrement) / 100.0;
  double t[2] = {};
  std::size_t anneaux[2] = {};
  for (const int k : {0, 1}) {
    for (const Region& r : regions) {
      for (double l = rayon;; l += pas) {
        std::vector<Chemin> b;
        const double d = r.signe >= 0 ? l : -l;
        t[k] += Secondes([&] {
          if (k == 0) {
            DecaleRegion(r, d, kTolerance, b);
          } else if (!DecaleRegionSimple(r, d, kTolerance, b)) {
            DecaleRegionClipper(r, d, kTolerance, b);
          }
        });
        anneaux[k] += b.size();
        if (b.empty()) break;
      }
    }
  }
  std::printf("%s, R %g, %d %%: own %.1f ms, %zu rings | union %.1f ms, %zu rings x%.1f\n", nom, rayon,
              recouvrement, t[0] * 1e3, anneaux[0], t[1] * 1e3, anneaux[1], t[1] / t[0]);
}

}  // namespace

int main(int argc, char** argv) {
  const std::size_t max = argc > 1 ? static_cast<std::size_t>(std::atol(argv[1])) : 2000000;
  const bool tout = argc > 2;
  const std::vector<Cas> cas{
      {"smooth", 10000, banc::Lisse, true, 3},
      {"smooth", 100000, banc::Lisse, true, 3},
      {"smooth", 1000000, banc::Lisse, true, 3},
      {"smooth out", 100000, banc::Lisse, true, -3},
      {"noisy", 100000, [](std::size_t n) { return banc::Bruite(n, 0.02); }, true, 3},
      {"noisy", 1000000, [](std::size_t n) { return banc::Bruite(n, 0.02); }, true, 3},
      {"noisy out", 100000, [](std::size_t n) { return banc::Bruite(n, 0.02); }, true, -3},
      {"noisy out", 1000000, [](std::size_t n) { return banc::Bruite(n, 0.02); }, true, -3},
      {"koch inside", 196608, banc::Koch, true, 0.5},
      {"koch inside", 786432, banc::Koch, true, 0.5},
      {"koch outside", 196608, banc::Koch, true, -0.5},
      {"comb", 10000, banc::Peigne, true, -1},
      {"comb", 100000, banc::Peigne, true, -1},
      {"comb", 1000000, banc::Peigne, true, -1},
      {"comb inside", 100000, banc::Peigne, true, 1},
      {"spiral", 10000, banc::Spirale, true, -1},
      {"spiral", 100000, banc::Spirale, true, -1},
      {"spiral", 1000000, banc::Spirale, true, -1},
      {"spiral inside", 100000, banc::Spirale, true, 0.5},
      {"open wave", 10000, banc::Onde, false, 1},
      {"open crossing", 100000, banc::Marche, false, 1},
  };
  for (const Cas& c : cas) {
    if (c.points <= max) Compare(c, tout || c.points <= 200000, tout || c.points <= 20000);
  }
  CompareTexte();
  CompareRings("square of 200 mm", {{0, 0}, {200, 0}, {200, 200}, {0, 200}}, 0.5, 40);
  CompareRings("star of 10,000 points", banc::Etoile(10000), 0.5, 40);
  const CompteDuMoteur n = CompteDecaleRegion();
  std::printf("calls: raw curve %lu, arcs %lu, fallback %lu\n", n.simples, n.arcs, n.replis);
  return 0;
}
