// Choice of the engine: the raw curve itself where it doesn't meet itself, else the arc engine, and Clipper where
// that one can't vouch for its result.
#include "closed/pathwerk/Moteur.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <exception>

#include "closed/pathwerk/ArbreSegments.h"
#include "closed/pathwerk/Moteurs.h"
#include "closed/pathwerk/ParalleleBrute.h"

namespace pathwerk::geo {

namespace {

std::atomic<unsigned long> nbSimples{0};
std::atomic<unsigned long> nbArcs{0};
std::atomic<unsigned long> nbReplis{0};
std::atomic<unsigned long> nbReplisLobes{0};

// Is there an inner corner whose parallels don't meet within their segments' halves? The raw curve then goes
// through the corner itself and crosses itself beside it, so there is no use in drawing it.
bool CoinServi(const Chemin& c, double d) {
  const std::size_t n = c.size();
  if (n < 3) return false;
  Vec2 u = c[0] - c[n - 1];
  double lu = Norme(u);
  for (std::size_t i = 0; i < n; ++i) {
    const Vec2 v = c[i + 1 < n ? i + 1 : 0] - c[i];
    const double lv = Norme(v);
    const double sinus = Vectoriel(u, v) / (lu * lv);
    if (sinus * d > 1e-12) {
      const double cosinus = Scalaire(u, v) / (lu * lv);
      if (std::abs(d * sinus) > 0.51 * std::min(lu, lv) * (1 + cosinus)) return true;
    }
    u = v;
    lu = lv;
  }
  return false;
}

}  // namespace

CompteDuMoteur CompteDecaleRegion() { return {nbSimples, nbArcs, nbReplis, nbReplisLobes}; }

bool DecaleRegionSimple(const Region& region, double distance, double tolerance, std::vector<Chemin>& boucles) {
  boucles.clear();
  if (region.contours.size() != 1) return false;
  try {
    double etendue = std::abs(distance);
    for (const Vec2 p : region.contours[0]) etendue = std::max({etendue, std::abs(p.x), std::abs(p.y)});
    if (!(etendue <= 1e9)) return false;
    const double jeu = std::min(0.06 * tolerance, std::abs(distance) / 20);
    const double d = distance > 0 ? distance - jeu : distance + jeu;
    const bool positif = region.signe > 0 || (region.signe == 0 && distance < 0);
    if (CoinServi(region.contours[0], d)) return false;
    Chemin brute = ParalleleBrute(region.contours[0], d, 0.85 * tolerance);
    if (brute.size() < 3) return true;
    if (ArbreSegments(SegmentsDe(brute, true)).PeutSeCroiser()) return false;
    if ((Aire(brute) > 0) == positif) boucles.push_back(std::move(brute));
    return true;
  } catch (const std::exception&) {
    boucles.clear();
    return false;
  }
}

bool DecaleRegion(const Region& region, double distance, double tolerance, std::vector<Chemin>& boucles) {
  if (DecaleRegionSimple(region, distance, tolerance, boucles)) {
    ++nbSimples;
    return true;
  }
  if (DecaleRegionArcs(region, distance, tolerance, boucles)) {
    ++nbArcs;
    return true;
  }
  ++nbReplis;
  return DecaleRegionClipper(region, distance, tolerance, boucles);
}

bool SepareLobes(const Chemin& chemin, double tolerance, std::vector<Region>& regions) {
  regions.clear();
  try {
    if (!ArbreSegments(SegmentsDe(chemin, true)).PeutSeCroiser()) {
      const double aire = Aire(chemin);
      regions.push_back({{chemin}, aire > 0 ? 1 : aire < 0 ? -1 : 0});
      return true;
    }
  } catch (const std::exception&) {
    return false;
  }
  if (SepareLobesCoupes(chemin, tolerance, regions)) return true;
  ++nbReplisLobes;
  return SepareLobesClipper(chemin, tolerance, regions);
}

}  // namespace pathwerk::geo
