// What the painters of a picture share: the walk over its primitives and the places on them, in logical pixels.
#pragma once

#include "image/Scene.h"
#include "image/Vue.h"

namespace ovelin {

inline constexpr double Pixels = 1.0 / TwipsParPixel;  // of a twip

// A painter draws one primitive of a kind; this one calls it. `Peintre` has a procedure for each kind, by its name.
template <class Peintre>
void PeintPrimitive(Peintre& peintre, const Primitive& p) {
  switch (p.genre) {
    case Genre::Ligne:
      return peintre.Ligne(p);
    case Genre::Aire:
      return peintre.Aire(p);
    case Genre::Points:
      return peintre.Points(p);
    case Genre::Carres:
      return peintre.Carres(p);
    case Genre::Disque:
      return peintre.Disque(p);
    case Genre::Fleches:
      return peintre.Fleches(p);
    case Genre::Texte:
      return peintre.Texte(p);
  }
}

// Each primitive of a picture, in their order. Neighbours that are one surface come together, to `PeintNappe`.
template <class Peintre>
void PeintPrimitives(Peintre& peintre, const Scene& scene) {
  const std::span<const Primitive> liste = scene.Primitives;
  for (std::size_t i = 0; i < liste.size();) {
    const Nappe nappe = NappeDe(liste[i].role);
    if (nappe == Nappe::Aucune) {
      PeintPrimitive(peintre, liste[i++]);
      continue;
    }
    std::size_t fin = i + 1;
    while (fin < liste.size() && NappeDe(liste[fin].role) == nappe) ++fin;
    peintre.PeintNappe(liste.subspan(i, fin - i));
    i = fin;
  }
}

// Where the foot of a text's first letter stands, from the text's place; `avance` is its width, `montee` and
// `descente` those of the font above and below the foot.
constexpr double PiedX(double x, Ancre ancre, double avance) { return ancre == Ancre::Centre ? x - avance / 2 : x; }
constexpr double PiedY(double y, Ancre ancre, double montee, double descente) {
  return y + (ancre == Ancre::Centre ? (montee - descente) / 2 : montee);
}

}  // namespace ovelin
