// Letters of a text, as outlines by the fonts at hand.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "closed/pathwerk/commun/Point.h"

namespace pathwerk::lecture::svg {

struct StyleLettres {
  std::string familles;  // as a document lists them, the wanted one first
  bool gras = false, italique = false;
  double hauteur = 0;  // mm an em
  double espace = 0;   // between letters, mm
  double fleche = 0;   // mm
};

// A line of letters from (0, 0) to the right, Y upward, mm.
struct LigneLettres {
  std::vector<std::vector<Vec2>> contours;  // closed, without a second copy of the first point
  double avance = 0;
  long absentes = 0;      // letters that the font doesn't have
  std::string remplacee;  // the family that was wanted, when another one had to serve
};

// False when there is no font at all.
using TraceLettres = std::function<bool(const StyleLettres& style, const std::string& texte, LigneLettres& ligne)>;

// By the fonts of the system. The families found are remembered as long as the procedure lives.
TraceLettres LettresDuSysteme();

}  // namespace pathwerk::lecture::svg
