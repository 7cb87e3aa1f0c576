// What is selected, and what the pointer is on.
#pragma once

#include "core/Document.h"
#include "image/SceneDocument.h"

namespace ovelin {

// Bounds of the selected paths, mm; empty without one.
struct BoiteSelection {
  bool vide = true;
  float xmin = 0, xmax = 0, ymin = 0, ymax = 0;
  bool operator==(const BoiteSelection&) const = default;
};
BoiteSelection BoiteDe(const Document& document);
// The box on the screen, a little around the paths: upper left and lower right corner.
struct CadreEcran {
  PointEcran hautGauche, basDroite;
};
CadreEcran CadreDe(const BoiteSelection& boite, const EtatVue& vue, const TailleImage& taille);

// A wide line under the selected paths, to lie below their lines; none where all of several are selected.
void AjouteHalo(const Document& document, const EtatVue& vue, const TailleImage& taille,
                const OptionsScene& options, Scene& scene);
// Their box, with its size.
void AjouteCadre(const Document& document, const EtatVue& vue, const TailleImage& taille,
                 const OptionsScene& options, Scene& scene);
// A wide line over the path of this code.
void AjouteSurvol(const Document& document, Code2 code, const EtatVue& vue, const TailleImage& taille,
                  const OptionsScene& options, Scene& scene);

// The selected paths as thin lines, also where they lie beside the picture.
void AjouteContour(const Document& document, const EtatVue& vue, const TailleImage& taille,
                   const OptionsScene& options, Scene& scene);

// "45.0 x 30.5 mm"
std::string TexteDimensions(double largeur, double hauteur);

}  // namespace ovelin
