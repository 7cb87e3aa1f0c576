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

constexpr double Jeux[] = {0.06, 0.047, 0.071, 0.033, 0.0813};  // shares of the tolerance
constexpr std::size_t Echantillons = 48;                        // looked at, at most
constexpr std::size_t AretesParRegard = 12;  // of small loops: one edge of so many, three at least

// Depth below which a touch doesn't count: some units of the last place of the greatest coordinate.
double Bruit(double etendue, double r) { return std::max(1e-10, 4e-15 * (etendue + r)); }

// Samples of the loops lie where they must, in proportion to their edges; and each chord over a gap does.
bool Verifie(const ArcSource& source, const std::vector<Chemin>& boucles, const std::vector<Origines>& origines,
             double r, double fleche) {
  std::size_t total = 0;
  for (const Chemin& c : boucles) total += c.size();
  const std::size_t nombre = std::clamp<std::size_t>(total / AretesParRegard, 3, Echantillons);
  const std::size_t pas = total / nombre + 1;
  const double bas = std::max(0.0, r - 1.02 * fleche);
  const double haut = r + 0.02 * fleche;
  const auto bon = [&](Vec2 p) {
    const double e2 = source.Distance2(p, 1.01 * haut * haut);
    return e2 >= bas * bas && e2 <= haut * haut;
  };
  std::size_t rang = 0;
  for (std::size_t k = 0; k < boucles.size(); ++k) {
    const Chemin& c = boucles[k];
    for (std::size_t i = 0; i < c.size(); ++i, ++rang) {
      const Vec2 b = c[base::Suivant(i, c.size())];
      if (!origines[k][i].Connue() && !bon((c[i] + b) * 0.5)) return false;
      if (rang % pas == 0 && !(bon(c[i]) && bon(c[i] + (b - c[i]) * 0.37))) return false;
    }
  }
  return true;
}

}  // namespace

bool DecaleRegionArcs(const Region& region, double distance, double tolerance, std::vector<Chemin>& boucles,
                      std::vector<Origines>* origines, MemoireDeRegion* memoire) {
  boucles.clear();
  std::vector<Origines> propres;
  if (origines == nullptr) origines = &propres;
  origines->clear();
  try {
    if (memoire != nullptr && !memoire->suite) memoire->suite = std::make_shared<ArcSuite>(region.contours);
    std::optional<ArcSource> propre;
    if (memoire == nullptr) propre.emplace(region.contours);
    const ArcSource& source = memoire != nullptr ? memoire->suite->Source() : *propre;
    if (!(source.Etendue() + std::abs(distance) <= 1e9)) return false;
    if (source.Taille() == 0) return true;
    for (const double part : Jeux) {
      if (base::ArretDemande()) break;
      const auto [d, fleche] =
          JeuDe(region, distance, tolerance, std::min(part * tolerance, std::abs(distance) * part));
      const double r = std::abs(d);
      const double bruit = Bruit(source.Etendue(), r);
      std::vector<ArcLibre> libres =
          memoire != nullptr ? memoire->suite->Libres(d, bruit) : ArcsLibres(source, d, bruit);
      const double ecart = std::min(0.05 * tolerance + 4 * std::sqrt(2 * r * bruit), 0.5 * tolerance + 0.1 * r);
      LieArcs(source, libres, r, ecart, 0.5 * tolerance);
      if (OteMauvaisCote(source, libres, d, region.signe) > 0) continue;
      std::size_t omises = 0;
      boucles = AplatitBoucles(source, libres, d, fleche, tolerance / 50, origines, &omises);
      if (!Verifie(source, boucles, *origines, r, fleche)) continue;
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
  const double bruit = Bruit(memoire.suite->Source().Etendue(), std::abs(d));
  return memoire.suite->DansLaPortee(d, loin, 0.1 * tolerance, reste, bruit);
}

}  // namespace pathwerk::decalage
