// The arc engine: free stretches (ArcTaille), linked to loops and flattened once (ArcLibres), then checked.
//
// The distance is taken a hair shorter than asked, within the tolerance, so that what fits exactly is passed.
// Should the shape be in the way of just that distance (ends that find no partner), another hair is tried.
#include "closed/pathwerk/decalage/MoteurArcs.h"

#include <algorithm>
#include <cmath>
#include <exception>
#include <memory>
#include <optional>

#include "base/Arret.h"
#include "closed/pathwerk/decalage/ArcLibres.h"
#include "closed/pathwerk/decalage/ArcSuite.h"

namespace pathwerk::decalage {

namespace {

constexpr double Jeux[] = {0.06, 0.047, 0.071, 0.033, 0.0813};  // shares of the tolerance
constexpr std::size_t Echantillons = 48;

// Depth below which a touch doesn't count: some units of the last place of the greatest coordinate.
double Bruit(double etendue, double r) { return std::max(1e-10, 4e-15 * (etendue + r)); }

// Samples of the loops lie where they must.
bool Verifie(const ArcSource& source, const std::vector<Chemin>& boucles, double r, double fleche) {
  std::size_t total = 0;
  for (const Chemin& c : boucles) total += c.size();
  const std::size_t pas = total / Echantillons + 1;
  const double bas = std::max(0.0, r - 1.02 * fleche);
  const double haut = r + 0.02 * fleche;
  std::size_t rang = 0;
  for (const Chemin& c : boucles) {
    for (std::size_t i = 0; i < c.size(); ++i) {
      if (rang++ % pas != 0) continue;
      const Vec2 b = c[base::Suivant(i, c.size())];
      for (const double t : {0.0, 0.37}) {
        const double e2 = source.Distance2(c[i] + (b - c[i]) * t, 1.01 * haut * haut);
        if (!(e2 >= bas * bas && e2 <= haut * haut)) return false;
      }
    }
  }
  return true;
}

}  // namespace

bool DecaleRegionArcs(const Region& region, double distance, double tolerance, std::vector<Chemin>& boucles,
                      std::vector<Origines>* origines, MemoireDeRegion* memoire) {
  boucles.clear();
  if (origines != nullptr) origines->clear();
  try {
    if (memoire != nullptr && !memoire->suite) memoire->suite = std::make_shared<ArcSuite>(region.contours);
    std::optional<ArcSource> propre;
    if (memoire == nullptr) propre.emplace(region.contours);
    const ArcSource& source = memoire != nullptr ? memoire->suite->Source() : *propre;
    const double fleche = 0.85 * tolerance;
    if (!(source.Etendue() + std::abs(distance) <= 1e9)) return false;
    if (source.Taille() == 0) return true;
    for (const double part : Jeux) {
      if (base::ArretDemande()) break;
      const double jeu = std::min(part * tolerance, std::abs(distance) * part);
      const double d = distance > 0 ? distance - jeu : distance + jeu;
      const double r = std::abs(d);
      const double bruit = Bruit(source.Etendue(), r);
      std::vector<ArcLibre> libres =
          memoire != nullptr ? memoire->suite->Libres(d, bruit) : ArcsLibres(source, d, bruit);
      const double ecart = std::min(0.05 * tolerance + 4 * std::sqrt(2 * r * bruit), 0.5 * tolerance + 0.1 * r);
      LieArcs(source, libres, r, ecart, 0.5 * tolerance);
      if (OteMauvaisCote(source, libres, d, region.signe) > 0) continue;
      boucles = AplatitBoucles(source, libres, d, fleche, tolerance / 50, origines);
      if (!Verifie(source, boucles, r, fleche)) continue;
      if (memoire != nullptr) memoire->suite->Retient();
      return true;
    }
  } catch (const std::exception&) {
  }
  boucles.clear();
  if (origines != nullptr) origines->clear();
  return false;
}

}  // namespace pathwerk::decalage
