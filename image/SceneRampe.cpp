#include "image/SceneRampe.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "core/Reglages.h"
#include "toolpath/chemins/BoucleEntree.h"

namespace ovelin {

void AjouteRampe(std::span<const PointTrace> points, double profondeur, const DescenteScene& descente,
                 unsigned sorte, Traceur& traceur) {
  const double hauteur = std::min(-descente.passe, -profondeur);
  if (!EstRampe(descente.angle) || !(hauteur > 0)) return;
  const auto boucle = BoucleDe(points);
  if (!boucle) return;
  double reste = LongueurRampe(hauteur, descente.angle, boucle->longueur);
  traceur.Commence(Role::Rampe, sorte);
  traceur.Suit(points.front());
  for (std::size_t i = 1; i <= boucle->dernier && reste > 0; ++i) {
    const PointTrace& a = points[i - 1];
    PointTrace b = points[i];
    const double longueur = std::hypot(double{b.X} - a.X, double{b.Y} - a.Y);
    if (longueur > reste) {
      b.X = static_cast<float>(a.X + (double{b.X} - a.X) * reste / longueur);
      b.Y = static_cast<float>(a.Y + (double{b.Y} - a.Y) * reste / longueur);
    }
    reste -= longueur;
    traceur.Suit(b);
  }
  traceur.Finit();
}

}  // namespace ovelin
