// Choice of the engine: the raw curve itself where it doesn't meet itself, else the arc engine, and Clipper where
// that one can't vouch for its result.
#include "closed/pathwerk/decalage/Moteur.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <exception>

#include "base/Indices.h"
#include "closed/pathwerk/commun/ArbreSegments.h"
#include "closed/pathwerk/commun/Numero32.h"
#include "closed/pathwerk/decalage/ArcSource.h"
#include "closed/pathwerk/decalage/MoteurArcs.h"
#include "closed/pathwerk/decalage/MoteurClipper.h"
#include "closed/pathwerk/decalage/MoteurLobes.h"
#include "closed/pathwerk/decalage/ParalleleBrute.h"

namespace pathwerk::decalage {

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
    const Vec2 v = c[base::Suivant(i, n)] - c[i];
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

Region RegionDe(const Chemin& chemin, int signe, bool deuxSens) {
  Region r{{chemin}, signe};
  const auto n = Numero32(chemin.size());
  Origines o(n);
  for (std::uint32_t i = 0; i < n; ++i) o[i] = {i, 0, 1};
  r.origines.push_back(std::move(o));
  if (deuxSens) {
    r.contours.push_back(r.contours[0]);
    r.origines.push_back(r.origines[0]);
    Retourne(r.contours[1], r.origines[1]);
  }
  return r;
}

Origines Remonte(const Region& region, Origines origines) {
  if (region.origines.size() != region.contours.size()) return {};
  std::vector<std::size_t> debut;  // first segment of each contour that counts
  std::vector<std::size_t> contour;
  std::size_t total = 0;
  for (std::size_t k = 0; k < region.contours.size(); ++k) {
    if (region.contours[k].size() < 2) continue;
    debut.push_back(total);
    contour.push_back(k);
    total += region.contours[k].size();
  }
  for (Origine& o : origines) {
    if (o.segment >= total) {
      o = {};
      continue;
    }
    const auto k = base::Indice(std::upper_bound(debut.begin(), debut.end(), o.segment) - debut.begin()) - 1;
    o.segment -= Numero32(debut[k]);
    o = Compose(o, region.origines[contour[k]]);
  }
  return origines;
}

bool DecaleRegionSimple(const Region& region, double distance, double tolerance, std::vector<Chemin>& boucles,
                        std::vector<Origines>* origines) {
  boucles.clear();
  if (origines != nullptr) origines->clear();
  if (region.contours.size() != 1) return false;
  try {
    double etendue = std::abs(distance);
    for (const Vec2 p : region.contours[0]) etendue = std::max({etendue, std::abs(p.x), std::abs(p.y)});
    if (!(etendue <= 1e9)) return false;
    const double jeu = std::min(0.06 * tolerance, std::abs(distance) / 20);
    const double d = distance > 0 ? distance - jeu : distance + jeu;
    const bool positif = region.signe > 0 || (region.signe == 0 && distance < 0);
    if (CoinServi(region.contours[0], d)) return false;
    Origines o;
    Chemin brute = ParalleleBrute(region.contours[0], d, 0.85 * tolerance, origines != nullptr ? &o : nullptr);
    if (brute.size() < 3) return true;
    if (ArbreSegments(SegmentsDe(brute, true)).PeutSeCroiser()) return false;
    if ((Aire(brute) > 0) == positif) {
      boucles.push_back(std::move(brute));
      if (origines != nullptr) origines->push_back(std::move(o));
    }
    return true;
  } catch (const std::exception&) {
    boucles.clear();
    return false;
  }
}

namespace {

bool Decale(const Region& region, double distance, double tolerance, std::vector<Chemin>& boucles,
            std::vector<Origines>* origines, MemoireDeRegion* memoire);

// The border around all strands on both sides, of which the loops on the wanted side stay.
bool DecaleFouillis(const Region& region, double distance, double tolerance, std::vector<Chemin>& boucles,
                    std::vector<Origines>* origines, MemoireDeRegion* memoire) {
  const Region deux = RegionDe(region.contours[0], 0, true);
  if (!Decale(deux, distance, tolerance, boucles, origines, memoire)) return false;
  const ArcSource source(region.contours);
  const int gauche = region.signe > 0 ? 1 : 0;
  std::size_t garde = 0;
  for (std::size_t k = 0; k < boucles.size(); ++k) {
    const int tours = source.Tours(boucles[k][0]);
    if (distance > 0 ? tours < gauche : tours >= gauche) continue;
    std::swap(boucles[garde], boucles[k]);
    if (origines != nullptr) (*origines)[garde] = Remonte(deux, std::move((*origines)[k]));
    ++garde;
  }
  boucles.resize(garde);
  if (origines != nullptr) origines->resize(garde);
  return true;
}

// A raw curve that meets itself at one distance is not the whole answer at a greater one either.
bool Decale(const Region& region, double distance, double tolerance, std::vector<Chemin>& boucles,
            std::vector<Origines>* origines, MemoireDeRegion* memoire) {
  if (region.fouillis) {
    try {
      return DecaleFouillis(region, distance, tolerance, boucles, origines, memoire);
    } catch (const std::exception&) {
      boucles.clear();
      return false;
    }
  }
  if (memoire == nullptr || memoire->simple) {
    if (DecaleRegionSimple(region, distance, tolerance, boucles, origines)) {
      ++nbSimples;
      return true;
    }
    if (memoire != nullptr) memoire->simple = false;
  }
  if (DecaleRegionArcs(region, distance, tolerance, boucles, origines, memoire)) {
    ++nbArcs;
    return true;
  }
  ++nbReplis;
  const bool fait = DecaleRegionClipper(region, distance, tolerance, boucles);
  if (origines != nullptr) origines->assign(boucles.size(), {});
  return fait;
}

}  // namespace

bool DecaleRegion(const Region& region, double distance, double tolerance, std::vector<Chemin>& boucles) {
  return Decale(region, distance, tolerance, boucles, nullptr, nullptr);
}

bool DecaleRegion(const Region& region, double distance, double tolerance, std::vector<Chemin>& boucles,
                  std::vector<Origines>& origines) {
  return Decale(region, distance, tolerance, boucles, &origines, nullptr);
}

bool DecaleRegion(const Region& region, double distance, double tolerance, std::vector<Chemin>& boucles,
                  std::vector<Origines>* origines, MemoireDeRegion& memoire) {
  return Decale(region, distance, tolerance, boucles, origines, &memoire);
}

bool SepareLobes(const Chemin& chemin, double tolerance, std::vector<Region>& regions) {
  regions.clear();
  try {
    if (!ArbreSegments(SegmentsDe(chemin, true)).PeutSeCroiser()) {
      const double aire = Aire(chemin);
      regions.push_back(RegionDe(chemin, aire > 0 ? 1 : aire < 0 ? -1 : 0));
      return true;
    }
  } catch (const std::exception&) {
    return false;
  }
  if (SepareLobesCoupes(chemin, tolerance, regions)) return true;
  ++nbReplisLobes;
  return SepareLobesClipper(chemin, tolerance, regions);
}

}  // namespace pathwerk::decalage
