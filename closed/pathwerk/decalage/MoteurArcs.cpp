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
#include "closed/pathwerk/decalage/Jeu.h"

namespace pathwerk::decalage {

namespace {

constexpr std::size_t Echantillons = 48;

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
    for (const double part : PartsDeJeu) {
      if (base::ArretDemande()) break;
      const auto [d, bruit, ecart] = JeuDe(source, distance, tolerance, part);
      const double r = std::abs(d);
      std::vector<ArcLibre> libres =
          memoire != nullptr ? memoire->suite->Libres(d, bruit) : ArcsLibres(source, d, bruit);
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
