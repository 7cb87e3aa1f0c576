// Where the drawing lies: the travel of the machine as a sheet, a grid, the machine's zero, a bar of a round
// length, and what leaves the travel.
#pragma once

#include "core/Document.h"
#include "image/SceneDocument.h"

namespace ovelin {

// By how much the cuts leave the travel, mm, on each side; 0 where they don't. The paths of the tool count, those
// of the drawing where it has none.
struct Depassement {
  double gauche = 0, droite = 0, bas = 0, haut = 0;
  [[nodiscard]] bool Vide() const { return gauche <= 0 && droite <= 0 && bas <= 0 && haut <= 0; }
  bool operator==(const Depassement&) const = default;
};
Depassement DepassementDe(const Document& document, const CourseMachine& course);

// Sheet, grid and zero, under everything else. The finer lines of the grid come as there is room for them.
void AjouteFeuille(const EtatVue& vue, const TailleImage& taille, const OptionsScene& options, Scene& scene);
// Whatever of the cuts lies beyond the sheet.
void AjouteHors(const Document& document, const EtatVue& vue, const TailleImage& taille,
                const OptionsScene& options, Scene& scene);
// A bar of 1, 2 or 5 times a power of ten mm from this place (twips) on, at most `place` long, with its length.
void AjouteEchelle(const EtatVue& vue, const PointEcran& gauche, float place, Scene& scene);

}  // namespace ovelin
