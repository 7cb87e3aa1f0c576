// The arc engine: free stretches (ArcTaille), linked to loops and flattened once (ArcLibres), then checked.
//
// The distance is taken a hair shorter than asked, within the tolerance, so that what fits exactly is passed.
// Should the shape be in the way of just that distance (ends that find no partner), another hair is tried.
#include "closed/pathwerk/decalage/MoteurArcs.h"

#include <cmath>
#include <exception>
#include <memory>
#include <optional>

#include "base/Arret.h"
#include "closed/pathwerk/decalage/ArcAplatis.h"
#include "closed/pathwerk/decalage/ArcEbauche.h"
#include "closed/pathwerk/decalage/ArcLibres.h"
#include "closed/pathwerk/decalage/ArcSuite.h"
#include "closed/pathwerk/decalage/Epreuve.h"
#include "closed/pathwerk/decalage/ReglageArcs.h"

namespace pathwerk::decalage {

bool DecaleRegionArcs(const Region& region, double distance, double tolerance, std::vector<Chemin>& boucles,
                      std::vector<Origines>* origines, MemoireDeRegion* memoire) {
  boucles.clear();
  std::vector<Origines> propres;
  if (origines == nullptr) origines = &propres;
  origines->clear();
  try {
    if (memoire != nullptr && !memoire->suite) memoire->suite = std::make_shared<ArcSuite>(region.contours);
    std::optional<ArcSource> propre;
    if (memoire == nullptr && !region.source) propre.emplace(region.contours);
    const ArcSource& source = memoire != nullptr ? memoire->suite->Source()
                              : region.source    ? *region.source
                                                 : *propre;
    if (!(source.Etendue() + std::abs(distance) <= 1e9)) return false;
    if (source.Taille() == 0) return true;
    for (const double part : PartsDeJeu) {
      if (base::ArretDemande()) break;
      const auto [jeu, bruit, ecart] = ReglageDe(region, source, distance, tolerance, part);
      const double d = jeu.distance;
      // Should anything be wrong with what a draft gives, the next one goes without.
      std::vector<ArcLibre> libres = memoire != nullptr      ? memoire->suite->Libres(d, bruit)
                                     : part == PartsDeJeu[0] ? ArcsParEbauche(source, d, bruit)
                                                             : ArcsLibres(source, d, bruit);
      LieArcs(source, libres, std::abs(d), ecart, 0.5 * tolerance);
      if (OteMauvaisCote(source, libres, d, region.signe) > 0) continue;
      std::size_t omises = 0;
      boucles = AplatitBoucles(source, libres, d, jeu.fleche, tolerance / 50, origines, &omises);
      if (!Tiennent(source, boucles, *origines, std::abs(d), jeu.fleche)) continue;
      if (memoire != nullptr) memoire->suite->Retient(omises == 0);
      return true;
    }
  } catch (const std::exception&) {
  }
  boucles.clear();
  origines->clear();
  return false;
}

bool DansLaPorteeArcs(const MemoireDeRegion& memoire, double entre, double loin, double portee, double tolerance) {
  if (!memoire.suite) return false;
  // Chords over gaps lie up to half a tolerance too near to the outline; chords of arcs on both borders stand off
  // from them by a little less than a tolerance each.
  const double d = entre > 0 ? entre - tolerance : entre + tolerance;
  const double reste = portee - 3 * tolerance;
  if (!(reste > 0 && reste <= std::abs(d) && d * entre > 0)) return false;
  const double bruit = BruitDe(memoire.suite->Source(), std::abs(d));
  return memoire.suite->DansLaPortee(d, loin, 0.1 * tolerance, reste, bruit);
}

}  // namespace pathwerk::decalage
