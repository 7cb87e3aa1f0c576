// How the frame of an element with a viewport lies in the one around it.
#pragma once

#include <optional>
#include <string_view>

#include "closed/pathwerk/lecture/svg/Matrice.h"
#include "closed/pathwerk/lecture/svg/Valeurs.h"

namespace pathwerk::lecture::svg {

struct Rectangle {
  double x = 0, y = 0, largeur = 0, hauteur = 0;
};

// The attribute "viewBox"; nothing when it has no area or can't be read, which counts as if it weren't there.
std::optional<Rectangle> LitViewBox(std::string_view texte);
// The map that lays `vue` into a viewport of this size at (0, 0), by "preserveAspectRatio".
Matrice CadreVue(const Rectangle& vue, double largeur, double hauteur, std::string_view proportions);

// The outermost element: its size in user units of 96 to the inch, and whether the file says how large that is.
struct TailleDessin {
  double largeur = 0, hauteur = 0;  // 0: not said
  bool dite = false;                // a unit stands there
};
TailleDessin TailleDe(std::string_view largeur, std::string_view hauteur, const std::optional<Rectangle>& vue);

}  // namespace pathwerk::lecture::svg
