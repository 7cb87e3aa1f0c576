// Choice of the engine: the raw curve itself where it doesn't meet itself, else the arc engine, and Clipper where
// that one can't vouch for its result.
#include "closed/pathwerk/decalage/Moteur.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <exception>
#include <span>

#include "base/Arret.h"
#include "base/Indices.h"
#include "closed/pathwerk/commun/ArbreSegments.h"
#include "closed/pathwerk/commun/Numero32.h"
#include "closed/pathwerk/decalage/ArcSource.h"
#include "closed/pathwerk/decalage/ArcsOuverts.h"
#include "closed/pathwerk/decalage/Jeu.h"
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

// Cosine of the greatest turn to the side `sens` (+1 left), and of every turn right back; 1 where there is none.
double CosinusDuPlusVif(const Chemin& c, double sens) {
  const std::size_t n = c.size();
  double r = 1;
  Vec2 u = Unite(c[0] - c[n - 1]);
  for (std::size_t i = 0; i < n; ++i) {
    const Vec2 v = Unite(c[base::Suivant(i, n)] - c[i]);
    if (Vectoriel(u, v) * sens > -1e-9) r = std::min(r, Scalaire(u, v));
    u = v;
  }
  return std::max(r, -1.0);
}

}  // namespace

CompteDuMoteur CompteDecaleRegion() { return {nbSimples, nbArcs, nbReplis, nbReplisLobes}; }

Region RegionDe(const Chemin& chemin, int signe, bool deuxSens) {
  Region r;
  r.signe = signe;
  r.contours.push_back(chemin);
  r.entiere = !deuxSens;
  if (!deuxSens) return r;
  const auto n = Numero32(chemin.size());
  Origines o(n);
  for (std::uint32_t i = 0; i < n; ++i) o[i] = {i, 0, 1};
  r.contours.push_back(chemin);
  r.origines.assign(2, o);
  Retourne(r.contours[1], r.origines[1]);
  return r;
}

Origines Remonte(const Region& region, Origines origines) {
  if (region.entiere) {
    if (region.contours.size() == 1) return origines;
    const std::size_t n = region.contours[0].size();
    for (Origine& o : origines) {
      if (o.segment >= n) o = {};
    }
    return origines;
  }
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
    const std::size_t k =
        debut.size() == 1
            ? 0
            : base::Indice(std::upper_bound(debut.begin(), debut.end(), o.segment) - debut.begin()) - 1;
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
    const auto [d, fleche] =
        JeuDe(region, distance, tolerance, std::min(0.06 * tolerance, std::abs(distance) / 20));
    const bool positif = region.signe > 0 || (region.signe == 0 && distance < 0);
    if (CoinServi(region.contours[0], d)) return false;
    Origines o;
    Chemin brute = ParalleleBrute(region.contours[0], d, fleche, origines != nullptr ? &o : nullptr);
    if (brute.size() < 3) return true;
    if (PeutSeCroiser(brute)) return false;
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

// Each contour of a region, walked both ways. Its segments know where they lie among the region's.
Region DeuxSensDe(const Region& region) {
  Region deux;
  std::uint32_t debut = 0;  // of the contour's segments
  for (const Chemin& c : region.contours) {
    const Region un = RegionDe(c, 0, true);
    if (c.size() < 2) continue;
    for (std::size_t k = 0; k < un.contours.size(); ++k) {
      deux.contours.push_back(un.contours[k]);
      deux.origines.push_back(un.origines[k]);
      for (Origine& o : deux.origines.back()) o.segment += debut;
    }
    debut += Numero32(c.size());
  }
  deux.ecart = region.ecart;
  return deux;
}

}  // namespace

// A region of contours that cross: all of them as walls, and which places lie in it.
class Fouillis {
 public:
  explicit Fouillis(const Region& region)
      : murs_(DeuxSensDe(region)),
        bord_(std::span(region.contours).first(region.contours.size() - region.iles)),
        dedans_(region.signe > 0 ? 1 : 0) {
    for (const Chemin& ile : std::span(region.contours).last(region.iles)) iles_.emplace_back(std::span(&ile, 1));
  }
  [[nodiscard]] const Region& Murs() const { return murs_; }
  // `p` lies on none of the contours.
  [[nodiscard]] bool Contient(Vec2 p, bool gauche) const {
    const int tours = bord_.Tours(p);
    if (gauche ? tours < dedans_ : tours >= dedans_) return false;
    return std::all_of(iles_.begin(), iles_.end(), [p](const ArcSource& ile) { return ile.Tours(p) == 0; });
  }

 private:
  Region murs_;
  ArcSource bord_;
  std::vector<ArcSource> iles_;
  int dedans_;  // to the left of the outline the winding number is this or more
};

namespace {

// The border around all strands on both sides, of which the loops on the wanted side stay.
bool DecaleFouillis(const Region& region, double distance, double tolerance, std::vector<Chemin>& boucles,
                    std::vector<Origines>* origines, MemoireDeRegion* memoire) {
  std::shared_ptr<const Fouillis> fouillis = memoire != nullptr ? memoire->fouillis : nullptr;
  if (!fouillis) fouillis = std::make_shared<const Fouillis>(region);
  if (memoire != nullptr) memoire->fouillis = fouillis;
  if (!Decale(fouillis->Murs(), distance, tolerance, boucles, origines, memoire)) return false;
  std::size_t garde = 0;
  for (std::size_t k = 0; k < boucles.size(); ++k) {
    if (!fouillis->Contient(boucles[k][0], distance > 0)) continue;
    std::swap(boucles[garde], boucles[k]);
    if (origines != nullptr) (*origines)[garde] = Remonte(fouillis->Murs(), std::move((*origines)[k]));
    ++garde;
  }
  boucles.resize(garde);
  if (origines != nullptr) origines->resize(garde);
  return true;
}

// A raw curve that meets itself at one distance is not the whole answer at a greater one either.
bool Decale(const Region& region, double distance, double tolerance, std::vector<Chemin>& boucles,
            std::vector<Origines>* origines, MemoireDeRegion* memoire) {
  boucles.clear();
  if (base::ArretDemande()) return false;
  if (region.fouillis) {
    try {
      return DecaleFouillis(region, distance, tolerance, boucles, origines, memoire);
    } catch (const std::exception&) {
      boucles.clear();
      return false;
    }
  }
  if (memoire == nullptr || std::abs(distance) < memoire->croise) {
    if (DecaleRegionSimple(region, distance, tolerance, boucles, origines)) {
      ++nbSimples;
      return true;
    }
    if (memoire != nullptr) memoire->croise = std::abs(distance);
  }
  if (DecaleRegionArcs(region, distance, tolerance, boucles, origines, memoire)) {
    ++nbArcs;
    return true;
  }
  if (base::ArretDemande()) return false;
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

// Of the raw curve alone each edge keeps its foot but for its ends at inner corners. There the borders are farther
// apart than the distances by as much as the corner is sharp, and nowhere more.
bool DansLaPortee(const Region& region, const MemoireDeRegion& memoire, double entre, double loin, double portee,
                  double tolerance) {
  if (std::abs(loin) >= memoire.croise || region.fouillis) {
    return DansLaPorteeArcs(memoire, entre, loin, portee, tolerance);
  }
  if (region.contours.size() != 1) return false;
  const double cosinus = std::sqrt((1 + CosinusDuPlusVif(region.contours[0], loin > 0 ? 1 : -1)) / 2);
  return std::abs(loin - entre) <= (portee - 3 * tolerance) * cosinus;
}

bool DecaleAllerRetour(const Region& allerRetour, double distance, double tolerance, Contacts& contacts,
                       std::vector<Chemin>& boucles, std::vector<Origines>& origines) {
  boucles.clear();
  if (base::ArretDemande()) return false;
  if (DecaleRegionSimple(allerRetour, distance, tolerance, boucles, &origines)) {
    ++nbSimples;
    return true;
  }
  if (DecaleOuvertArcs(allerRetour, distance, tolerance, contacts, boucles, origines)) {
    ++nbArcs;
    return true;
  }
  return Decale(allerRetour, distance, tolerance, boucles, &origines, nullptr);
}

bool SepareLobes(const Chemin& chemin, double tolerance, std::vector<Region>& regions) {
  regions.clear();
  try {
    auto source = std::make_shared<const ArcSource>(std::span(&chemin, 1));
    if (!source->PeutSeCroiser()) {
      const double aire = Aire(chemin);
      regions.push_back(RegionDe(chemin, aire > 0 ? 1 : aire < 0 ? -1 : 0));
      regions.back().source = std::move(source);
      return true;
    }
  } catch (const std::exception&) {
    return false;
  }
  if (SepareLobesCoupes(chemin, tolerance, regions)) return true;
  if (base::ArretDemande()) return false;
  ++nbReplisLobes;
  return SepareLobesClipper(chemin, tolerance, regions);
}

}  // namespace pathwerk::decalage
