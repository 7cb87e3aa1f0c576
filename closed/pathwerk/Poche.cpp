// Fill of a closed path by rings.
//
// Ring k lies at the distance l_k = R + k s from the outline, s = 2 R (100 - recouvrement) / 100. Each ring is
// computed from the outline, not from the ring before it, so errors don't add up. They come from the inside
// outwards, one piece a ring, the last ones at R.
//
// What rings leave standing: a place at the distance e from the outline, l_k < e < l_k+1, is e - l_k away from ring
// k at most (walk straight towards the outline). So with s <= R nothing is left. With a longer step places with e >
// l_k + R that ring k+1 doesn't reach either stay uncut: spots in corners, and the middle behind the last ring:
//
//     +-----------------------
//     | .---------------------  ring k        rest_k = (places deeper than l_k + R)
//     | |  *  spot                                     - (disc R around all places deeper than l_k+1)
//     | |   .-----------------  ring k+1
//
// The border of the rest is milled as a ring of its own, after ring k+1 and before ring k. That clears it: walking
// from one of its places towards the outline one leaves the rest within s - R <= R. And it is safe: everything in
// it is deeper than R.
//
// The fill is inside whichever the side. The side gives the sense of travel: a positive distance has the outline to
// the right of the tool, as the plain parallel curve has (counter-clockwise: a clockwise spindle climbs), a
// negative one to its left.
#include <algorithm>
#include <cmath>
#include <utility>

#include "closed/pathwerk/Decalages.h"
#include "closed/pathwerk/Moteur.h"

namespace pathwerk::geo {

namespace {

constexpr double kTravail = 2.0e6;   // points times rings that a fill may cost before its step grows
constexpr double kAnneauxMin = 200;  // ... but never below so many rings
constexpr double kAnneauxMax = 2000;
constexpr double kAnneauxLimite = 20000;  // rings of a cutter far too thin for its pocket

// Loops of one depth; `boucles` counter-clockwise around what is deeper.
struct Niveau {
  std::vector<Chemin> anneaux;
  std::vector<Chemin> restes;
};

// Greatest depth that the region can have, from its box and its area.
double ProfondeurMax(const Region& region) {
  double x0 = 1e300, x1 = -1e300, y0 = 1e300, y1 = -1e300, aire = 0;
  for (const Chemin& c : region.contours) {
    aire += Aire(c);
    for (const Vec2 p : c) {
      x0 = std::min(x0, p.x);
      x1 = std::max(x1, p.x);
      y0 = std::min(y0, p.y);
      y1 = std::max(y1, p.y);
    }
  }
  return std::min({(x1 - x0) / 2, (y1 - y0) / 2, std::sqrt(std::abs(aire) / 3.14159265358979)});
}

// Distance between rings. An overlap so high that the rings would take minutes gets a longer step, up to R, where
// the fill is still complete; beyond the last limit the step grows further.
double Pas(const Region& region, double rayon, int recouvrement, double tolerance) {
  const double part = std::clamp(100 - recouvrement, 0, 100) / 100.0;
  double points = 0;
  for (const Chemin& c : region.contours) points += static_cast<double>(c.size());
  const double profondeur = ProfondeurMax(region);
  const double anneaux = std::clamp(kTravail / points, kAnneauxMin, kAnneauxMax);
  double pas = std::max(2 * rayon * part, std::min(rayon, profondeur / anneaux));
  pas = std::max({pas, tolerance, profondeur / kAnneauxLimite});
  return pas;
}

class Remplisseur {
 public:
  Remplisseur(const Region& region, double rayon, double tolerance)
      : region_(region), rayon_(rayon), tolerance_(tolerance) {}

  // Loops at `profondeur` inside the outline, counter-clockwise around what is deeper.
  std::vector<Chemin> Anneaux(double profondeur) const {
    std::vector<Chemin> b;
    const double d = region_.signe > 0 ? profondeur : -profondeur;
    if (!DecaleRegion(region_, d, tolerance_, b)) b.clear();
    if (region_.signe < 0) {
      for (Chemin& c : b) std::reverse(c.begin(), c.end());
    }
    return b;
  }

  std::vector<Niveau> Niveaux(double pas, bool unSeul) const {
    std::vector<Niveau> niveaux;
    for (std::size_t k = 0;; ++k) {
      const double profondeur = rayon_ + static_cast<double>(k) * pas;
      std::vector<Chemin> anneaux = Anneaux(profondeur);
      // A step stretched beyond the cutter's width can't be made good.
      if (k > 0 && pas > rayon_ && pas <= 2.001 * rayon_) {
        niveaux.back().restes = Reste(profondeur - pas + rayon_, anneaux);
      }
      if (anneaux.empty()) break;
      niveaux.push_back({std::move(anneaux), {}});
      if (unSeul) break;
    }
    return niveaux;
  }

 private:
  // Border of what lies deeper than `profondeur` and out of reach of the rings `dedans`. A hair of the tolerance is
  // taken off, so that rings that just touch leave no slivers.
  std::vector<Chemin> Reste(double profondeur, const std::vector<Chemin>& dedans) const {
    std::vector<Chemin> fond = Anneaux(profondeur + tolerance_ / 2);
    if (fond.empty() || dedans.empty()) return fond;
    std::vector<Chemin> atteint;
    std::vector<Chemin> reste;
    if (!DecaleRegion({dedans, 1}, -(rayon_ + tolerance_ / 2), tolerance_, atteint)) return fond;
    if (!Difference(fond, atteint, reste)) return fond;
    std::erase_if(reste, [this](const Chemin& c) {
      const double p = Perimetre(c);
      return p < tolerance_ || 2 * std::abs(Aire(c)) <= tolerance_ / 4 * p;
    });
    return reste;
  }

  const Region& region_;
  double rayon_;
  double tolerance_;
};

}  // namespace

std::vector<Piece> RemplitPoche(const Source& source, double distance, int recouvrement, double tolerance) {
  std::vector<Region> regions;
  if (!SepareLobes(source.chemin, tolerance, regions)) return {};
  const double rayon = std::abs(distance);
  std::vector<Piece> pieces;
  for (const Region& region : regions) {
    if (region.signe == 0) continue;
    const Remplisseur r(region, rayon, tolerance);
    std::vector<Niveau> niveaux = r.Niveaux(Pas(region, rayon, recouvrement, tolerance), recouvrement > 100);
    for (std::size_t k = niveaux.size(); k-- > 0;) {
      for (std::vector<Chemin>* boucles : {&niveaux[k].restes, &niveaux[k].anneaux}) {
        for (Chemin& c : *boucles) {
          if (distance < 0) std::reverse(c.begin(), c.end());
          pieces.push_back({std::move(c), true, k == 0 && boucles == &niveaux[k].anneaux});
        }
      }
    }
  }
  return pieces;
}

}  // namespace pathwerk::geo
