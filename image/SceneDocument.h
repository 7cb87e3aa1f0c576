// What the picture of a document shows: document, view and options in, primitives in drawing order out.
//
// Points that fall into one pixel are merged, and what lies outside the picture is cut off a few pixels beyond its
// edge, so that the list stays small whatever the drawing; no pixel that the whole drawing would touch stays
// untouched.
#pragma once

#include <string>

#include "core/Document.h"
#include "image/Scene.h"
#include "image/Vue.h"

namespace ovelin {

// Tool and notches in force, mm.
struct OutilScene {
  double rayon = 0;  // 0: what is cut isn't shown
  double largeurEncoche = 0;
  double miniEncoche = 0;  // height of a bridge
};

// Travel of the machine from its zero, mm.
struct CourseMachine {
  float x = 0, y = 0;
  [[nodiscard]] bool Vide() const { return !(x > 0 && y > 0); }
};

// How the tool comes down into a path: degrees (0: straight) and depth of a pass, mm, negative.
struct DescenteScene {
  double angle = 0, passe = 0;
};

struct OptionsScene {
  // The quiet picture: thinned, with what is cut, sheet, grid and selection. Without it, what follows isn't shown.
  bool sobre = false;
  OutilScene outil;
  CourseMachine course;         // none: no sheet
  DescenteScene descente;       // none: no ramp is shown
  bool echelle = false;         // a bar of a round length in the lower left corner
  bool numPoint = false;        // mnu_NumPoint: a mark at each point
  bool sequence = false;        // mnu_Sequence: numbers of the paths
  bool dessin = true;           // the drawing with its extent, attachment points, starts and numbers ...
  bool trajet = true;           // ... and the tool path are shown
  bool legende = true;          // what the colours of the two mean
  float pixel = TwipsParPixel;  // twips to a pixel of the device; 7.5 where two make a logical one
  std::string legendeDessin, legendeDecalage;
  MesureTexte mesureTexte;  // the font of the picture
};
// With the texts of the legend in the user's language.
OptionsScene OptionsCourantes(bool numPoint, bool sequence);

// The whole picture but its background. Empty for a document without points. `scene` is replaced.
void ConstruitScene(const Document& document, const EtatVue& vue, const TailleImage& taille,
                    const OptionsScene& options, Scene& scene);

// Side of the point mark, twips: the square root of the picture's area, divided by 75, a whole number.
float CoteMarque(const TailleImage& taille);

}  // namespace ovelin
