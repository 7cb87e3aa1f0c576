// A line of text in one face of a font.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "closed/Pathwerk.h"
#include "closed/pathwerk/commun/Point.h"
#include "closed/pathwerk/texte/Polices.h"

namespace pathwerk::texte {

struct StyleLigne {
  std::int32_t espace = 0;  // between letters, thousandths of an em
  bool italique = false, gras = false;
  double hauteur = 0;    // mm an em
  double fleche = 0.01;  // mm, between curves and their chords
};

// From (0, 0) to the right, Y upward, mm.
struct LigneTexte {
  // Closed, without a second copy of the first point; of one letter behind the other, the small ones of a letter
  // first, its body to the right of the direction of travel.
  std::vector<std::vector<Vec2>> contours;
  double avance = 0;  // where the next letter would begin
  long absents = 0;   // letters that the face doesn't have, drawn as it draws these
};

// PoliceFichier when the face can't be read, Memoire when memory runs out.
Erreur TraceLigne(const FacePolice& choix, const std::string& texte, const StyleLigne& voulu, LigneTexte& ligne);

}  // namespace pathwerk::texte
