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

}  // namespace

CompteDuMoteur CompteDecaleRegion() { return {nbSimples, nbArcs, nbReplis}; }

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
  return SepareLobesClipper(chemin, tolerance, regions);
}

}  // namespace pathwerk::geo
