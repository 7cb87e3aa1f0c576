// What the painters of a picture share: the walk over its primitives and the places on them, in logical pixels.
#pragma once

#include "image/Scene.h"
#include "image/Vue.h"

namespace ovelin {

inline constexpr double Pixels = 1.0 / TwipsParPixel;  // of a twip

// A painter draws one primitive of a kind; this one calls it for each of a picture, in their order. `Peintre` has a
// procedure for each kind, by its name.
template <class Peintre>
void PeintPrimitives(Peintre& peintre, const Scene& scene) {
  for (const Primitive& p : scene.Primitives) {
    switch (p.genre) {
      case Genre::Ligne:
        peintre.Ligne(p);
        break;
      case Genre::Aire:
        peintre.Aire(p);
        break;
      case Genre::Points:
        peintre.Points(p);
        break;
      case Genre::Carres:
        peintre.Carres(p);
        break;
      case Genre::Disque:
        peintre.Disque(p);
        break;
      case Genre::Fleches:
        peintre.Fleches(p);
        break;
      case Genre::Texte:
        peintre.Texte(p);
        break;
    }
  }
}

// Where the foot of a text's first letter stands, from the text's place; `avance` is its width, `montee` and
// `descente` those of the font above and below the foot.
constexpr double PiedX(double x, Ancre ancre, double avance) { return ancre == Ancre::Centre ? x - avance / 2 : x; }
constexpr double PiedY(double y, Ancre ancre, double montee, double descente) {
  return y + (ancre == Ancre::Centre ? (montee - descente) / 2 : montee);
}

}  // namespace ovelin
