// The lines of a G-code file: the kernel of the writer. Values in, text out; no file, no settings.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "run/CumulLignes.h"

namespace ovelin {

// What the writing of one file carries from row to row. All zero at the start, wherever the machine stands.
struct EtatNC : CumulLignes {
  double DernierF = 0;  // mm/s
  long lignes = 0;      // lines so far
};

// Longest text of one number by EcritNombreNC: sign, 39 digits, point, 9 decimals.
inline constexpr std::size_t TailleNombreNC = 50;

// `v` with `decimales` (0 to 9) digits behind a point, halves away from zero, never a "-0.000". A value that is no
// finite number gives 0. Writes at `place`, which has room for TailleNombreNC, and returns the end.
char* EcritNombreNC(char* place, double v, int decimales);

// One row: an F line when the speed has changed, then the move line with the words that have changed.
void EcritLigneNC(std::string& texte, EtatNC& etat, float vitesse, float x, float y, float z);

// The state behind that row, without its text.
void PasseLigneNC(EtatNC& etat, float vitesse, float x, float y, float z);

// A comment line "(...)" in the file's 8-bit set; `contenu` is UTF-8. What would end the comment or the line early
// is replaced, so that no text of a translation can become a command.
void EcritCommentaireNC(std::string& texte, EtatNC& etat, std::string_view contenu);
// A line as it stands.
void EcritMotNC(std::string& texte, EtatNC& etat, std::string_view ligne);

}  // namespace ovelin
