// The engine on Clipper 6. Clipper only unites: the raw curve is ours (ParalleleBrute), because Clipper's own arcs
// come out up to 2.25 times as coarse as asked and every corner of a smooth contour would cost it a crossing. It is
// quadratic on dense input, so it only stands in where the arc engine can't vouch for its result.
#include "closed/pathwerk/decalage/MoteurClipper.h"

#include <algorithm>
#include <cmath>
#include <exception>
#include <polyclipping/clipper.hpp>
#include <span>

#include "closed/pathwerk/commun/ArbreSegments.h"
#include "closed/pathwerk/decalage/Jeu.h"
#include "closed/pathwerk/decalage/ParalleleBrute.h"

namespace pathwerk::decalage {

namespace {

namespace cl = ClipperLib;

// Grid of Clipper's integers: as fine as 1e-6 mm, and inside the range in which its products need no 128 bits while
// that leaves at least 1e-4 mm.
double PasDeGrille(double etendue) {
  const double echelle = std::exp2(std::floor(std::log2(1.0e9 / std::max(etendue, 1e-3))));
  return std::clamp(echelle, 8192.0, 1048576.0);
}

double Etendue(std::span<const Chemin> chemins) {
  double e = 0;
  for (const Chemin& c : chemins) {
    for (const Vec2 p : c) e = std::max({e, std::abs(p.x), std::abs(p.y)});
  }
  return e;
}

cl::Path VersGrille(const Chemin& chemin, double echelle) {
  cl::Path r;
  r.reserve(chemin.size());
  for (const Vec2 p : chemin) r.emplace_back(std::llround(p.x * echelle), std::llround(p.y * echelle));
  return r;
}

Chemin DeGrille(const cl::Path& chemin, double echelle) {
  Chemin r;
  r.reserve(chemin.size());
  for (const cl::IntPoint& p : chemin) {
    r.push_back({static_cast<double>(p.X) / echelle, static_cast<double>(p.Y) / echelle});
  }
  return r;
}

// Border of the places whose winding number is positive (or negative), outer loops counter-clockwise.
cl::Paths Unit(const std::vector<Chemin>& chemins, double echelle, bool positif) {
  cl::Clipper clipper;
  bool rien = true;
  for (const Chemin& c : chemins) rien &= !clipper.AddPath(VersGrille(c, echelle), cl::ptSubject, true);
  cl::Paths r;
  if (rien) return r;
  const cl::PolyFillType regle = positif ? cl::pftPositive : cl::pftNegative;
  clipper.Execute(cl::ctUnion, r, regle, regle);
  return r;
}

void Ajoute(const cl::Paths& chemins, double echelle, bool inverse, std::vector<Chemin>& boucles) {
  for (const cl::Path& c : chemins) {
    if (c.size() < 3) continue;
    Chemin b = DeGrille(c, echelle);
    if (inverse) std::reverse(b.begin(), b.end());
    boucles.push_back(std::move(b));
  }
}

// What is left of a region without its slivers: loops whose mean width is below `largeur`.
void OteCopeaux(std::vector<Chemin>& contours, double largeur) {
  std::erase_if(contours, [largeur](const Chemin& c) {
    const double p = Perimetre(c);
    return 2 * std::abs(Aire(c)) <= largeur * p;
  });
}

// Nothing wider than `largeur` is run around twice the same way: without the lobes, no winding number is left.
bool CouvreUneFois(const Chemin& chemin, const Region (&lobes)[2], double echelle, double largeur) {
  std::vector<Chemin> reste{chemin};
  double aire = Aire(chemin);
  for (const Region& lobe : lobes) {
    for (const Chemin& c : lobe.contours) {
      aire -= Aire(c);
      reste.emplace_back(c.rbegin(), c.rend());
    }
  }
  if (std::abs(aire) <= 2 * Perimetre(chemin) / echelle) return true;
  for (const bool positif : {true, false}) {
    std::vector<Chemin> double_;
    Ajoute(Unit(reste, echelle, positif), echelle, false, double_);
    OteCopeaux(double_, largeur);
    if (!double_.empty()) return false;
  }
  return true;
}

// Border of the free places from raw curves that cross. Runs of buried strips are left out first where the distance
// is well above the error of the arcs; the loops that come of that are told by one of their points.
void Demele(const Region& region, double d, double fleche, bool positif, std::vector<Chemin>& boucles) {
  const double rayon = std::abs(d);
  const double marge = 1.3 * fleche;
  const bool allege = rayon > 10 * marge;
  std::vector<Segment> segments;
  for (const Chemin& c : region.contours) {
    const std::vector<Segment> s = SegmentsDe(c, true);
    segments.insert(segments.end(), s.begin(), s.end());
  }
  const ArbreSegments source(std::move(segments));
  std::vector<Chemin> brutes;
  bool vide = true;
  for (const Chemin& c : region.contours) {
    Chemin b = allege ? ParalleleAllegee(c, d, fleche, marge, source) : ParalleleBrute(c, d, fleche);
    vide &= b.empty();
    if (b.empty()) b = c;  // a contour without strips still bounds the region
    brutes.push_back(std::move(b));
  }
  if (vide) return;
  const double echelle = PasDeGrille(Etendue(brutes));
  Ajoute(Unit(brutes, echelle, positif), echelle, !positif, boucles);
  if (!allege) return;
  // The true border keeps to rayon - fleche everywhere; a loop around places wrongly called free comes nearer than
  // rayon - marge, but maybe not in all its points: its corners can lie where strips end.
  const double limite = (rayon - 1.15 * fleche) * (rayon - 1.15 * fleche);
  std::erase_if(boucles, [&](const Chemin& c) {
    return std::any_of(c.begin(), c.end(), [&](Vec2 p) { return source.PlusProche(p).distance2 < limite; });
  });
}

int SigneDe(double aire) { return aire > 0 ? 1 : aire < 0 ? -1 : 0; }

}  // namespace

bool DecaleRegionClipper(const Region& region, double distance, double tolerance, std::vector<Chemin>& boucles) {
  boucles.clear();
  // A small share of the tolerance lets pass what fits exactly; the rest bounds the arcs.
  const auto [d, fleche] = JeuDe(region, distance, tolerance, std::min(0.06 * tolerance, std::abs(distance) / 20));
  const bool positif = region.signe > 0 || (region.signe == 0 && distance < 0);
  try {
    if (!(Etendue(region.contours) + std::abs(d) <= 1e9)) return false;
    Demele(region, d, fleche, positif, boucles);
    return true;
  } catch (const std::exception&) {
    boucles.clear();
    return false;
  }
}

bool SepareLobesClipper(const Chemin& chemin, double tolerance, std::vector<Region>& regions) {
  regions.clear();
  try {
    const double aire = Aire(chemin);
    if (!ArbreSegments(SegmentsDe(chemin, true)).PeutSeCroiser()) {
      regions.push_back(RegionDe(chemin, SigneDe(aire)));
      return true;
    }
    const double echelle = PasDeGrille(Etendue(std::span(&chemin, 1)));
    Region lobes[2];
    for (int k = 0; k < 2; ++k) {
      lobes[k].signe = k == 0 ? 1 : -1;
      Ajoute(Unit({chemin}, echelle, k == 0), echelle, k != 0, lobes[k].contours);
    }
    const bool simple = CouvreUneFois(chemin, lobes, echelle, tolerance / 2);
    for (Region& lobe : lobes) OteCopeaux(lobe.contours, tolerance / 2);
    const bool plus = !lobes[0].contours.empty();
    const bool moins = !lobes[1].contours.empty();
    // The path merely touches itself, or its crossings are slivers: as it stands it still has the spikes and slits
    // that a union loses.
    if (simple && !(plus && moins)) {
      regions.push_back(RegionDe(chemin, plus ? 1 : moins ? -1 : 0));
      return true;
    }
    for (Region& lobe : lobes) {
      if (!lobe.contours.empty()) regions.push_back(std::move(lobe));
    }
    return true;
  } catch (const std::exception&) {
    regions.clear();
    return false;
  }
}

AiresDeDeux AiresCommunes(const Chemin& premier, const Chemin& second) {
  const double echelle = PasDeGrille(std::max(Etendue(std::span(&premier, 1)), Etendue(std::span(&second, 1))));
  const auto aire = [echelle](cl::ClipType quoi, const Chemin& a, const Chemin& b) {
    cl::Clipper clipper;
    clipper.AddPath(VersGrille(a, echelle), cl::ptSubject, true);
    clipper.AddPath(VersGrille(b, echelle), cl::ptClip, true);
    cl::Paths r;
    clipper.Execute(quoi, r, cl::pftNonZero, cl::pftNonZero);
    double somme = 0;
    for (const cl::Path& c : r) somme += cl::Area(c);
    return somme / (echelle * echelle);
  };
  return {aire(cl::ctUnion, premier, premier), aire(cl::ctUnion, second, second),
          aire(cl::ctIntersection, premier, second)};
}

}  // namespace pathwerk::decalage
