#include "closed/pathwerk/assemblage/Rangement.h"

#include <algorithm>
#include <atomic>
#include <cmath>

#include "base/Equipe.h"
#include "closed/pathwerk/assemblage/Mesures.h"

namespace pathwerk::assemblage {

namespace {

using lecture::Trait;

constexpr double CoordonneeMax = 1e7;  // mm

// Adding zero turns a negative zero into a positive one, so that equal places have equal bits.
PointF EnFloat(Vec2 p) { return {static_cast<float>(p.x) + 0.0F, static_cast<float>(p.y) + 0.0F}; }

// How many points of `sortie` the path takes, at most one more than it has; one alone has no length. Its nature may
// turn out to be another one.
std::size_t Range(const Trait& t, double tolerance, std::span<PointF> sortie, Nature& nature) {
  nature = t.nature;
  if (nature == Nature::Percage) {
    sortie[0] = sortie[1] = EnFloat(t.points[0]);
    return 2;
  }
  std::size_t n = 0;
  for (const Vec2 v : t.points) {
    const PointF p = EnFloat(v);
    if (n == 0 || sortie[n - 1] != p) sortie[n++] = p;
  }
  if (n < 2) return n;
  if (nature == Nature::Ferme) {
    const Vec2 a = t.points.front();
    const Vec2 b = t.points.back();
    // A closing point that was given, but not to the last digit, is moved; otherwise it is added.
    if (n > 3 && std::hypot(a.x - b.x, a.y - b.y) <= tolerance) {
      sortie[n - 1] = sortie[0];
      while (sortie[n - 1] == sortie[n - 2]) --n;
    }
    if (sortie[n - 1] != sortie[0]) sortie[n++] = sortie[0];
  } else if (sortie[n - 1] == sortie[0]) {
    nature = Nature::Ferme;
  }
  return n;
}

void NoteMoindre(std::atomic<std::size_t>& moindre, std::size_t i) {
  std::size_t avant = moindre;
  while (i < avant && !moindre.compare_exchange_weak(avant, i)) {
  }
}

// Each path has its room beforehand, a point more than it has, so that threads need not wait for each other.
std::vector<CheminAssemble> Places(const std::vector<Trait>& traits) {
  std::vector<CheminAssemble> places(traits.size());
  std::size_t debut = 0;
  for (std::size_t i = 0; i < traits.size(); ++i) {
    places[i].debut = debut;
    places[i].calque = traits[i].calque;
    if (!traits[i].points.empty()) debut += traits[i].points.size() + 1;
  }
  return places;
}

// What has no points, or none but one, goes.
void Serre(TraitsRanges& ranges) {
  std::vector<CheminAssemble>& chemins = ranges.assembles.chemins;
  std::size_t k = 0;
  for (std::size_t i = 0; i < chemins.size(); ++i) {
    ranges.nuls += chemins[i].nb == 1 ? 1 : 0;
    if (chemins[i].nb < 2) continue;
    chemins[k] = chemins[i];
    ranges.bouts[k++] = ranges.bouts[i];
  }
  chemins.resize(k);
  ranges.bouts.resize(k);
}

}  // namespace

bool EstLisible(Vec2 p) { return std::fabs(p.x) <= CoordonneeMax && std::fabs(p.y) <= CoordonneeMax; }

TraitsRanges RangeTraits(std::vector<Trait>& traits, double tolerance, unsigned fils) {
  TraitsRanges ranges;
  std::vector<CheminAssemble>& chemins = ranges.assembles.chemins;
  std::vector<PointF>& points = ranges.assembles.points;
  chemins = Places(traits);
  if (!traits.empty()) points.resize(chemins.back().debut + traits.back().points.size() + 1);
  ranges.bouts.resize(traits.size());
  std::atomic<std::size_t> illisible = base::Nulle;
  base::FaitParLots(fils, traits.size(), [&](std::size_t debut, std::size_t fin) {
    for (std::size_t i = debut; i < fin; ++i) {
      Trait& t = traits[i];
      if (t.points.empty()) continue;
      if (!std::all_of(t.points.begin(), t.points.end(), EstLisible)) return NoteMoindre(illisible, i);
      CheminAssemble& chemin = chemins[i];
      const std::span place = std::span(points).subspan(chemin.debut, t.points.size() + 1);
      chemin.nb = Range(t, tolerance, place, chemin.nature);
      ranges.bouts[i] = {t.points.front(), t.points.back()};
      if (chemin.nb > 1) MesureChemin(chemin, place.first(chemin.nb));
      std::vector<Vec2>().swap(t.points);
    }
  });
  ranges.illisible = illisible;
  if (ranges.illisible == base::Nulle) Serre(ranges);
  return ranges;
}

}  // namespace pathwerk::assemblage
