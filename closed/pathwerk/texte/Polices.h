// Which file of the system's fonts draws a family in a style.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace pathwerk::texte {

// One face of a family.
struct FacePolice {
  std::string fichier;
  long indice = 0;        // face in the file; named instance of a variable font in the upper 16 bits
  int graisse = 80;       // weight on fontconfig's scale: 80 regular, 180 demibold, 200 bold
  int largeur = 100;      // width in per cent: 75 condensed
  bool italique = false;  // italic or oblique
  bool variable = false;  // the whole design space instead of one instance of it
  bool sfnt = true;       // TrueType or OpenType, whose kerning and ligatures are in the file
};

// From this weight on a face counts as bold and is not made bolder.
inline constexpr int GraisseGras = 180;

// The face of `faces` that suits the style best; nullptr when there is none. Pure.
const FacePolice* ChoisitFace(const std::vector<FacePolice>& faces, bool italique, bool gras);

// The best face of a family by its name (without regard to case), or of a font file by its path (a name with a
// slash). Nothing for a family that isn't installed: a substitute would cut other letters than those chosen.
std::optional<FacePolice> TrouveFace(const std::string& police, bool italique, bool gras);

}  // namespace pathwerk::texte
