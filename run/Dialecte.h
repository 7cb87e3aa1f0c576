// How a G-code file is spelled for one kind of control. The rows that come with the program stand in Dialectes.h,
// those of the user's files are read by TexteDialecte.h.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace ovelin {

enum class FormeCommentaire : std::uint8_t { Parentheses, PointVirgule, Aucun };
// Windows1252: the set of the program's other files, and what it lacks as UTF-8. Ascii: letters, digits and quiet
// marks alone, for controls that act on single bytes wherever they stand.
enum class JeuCommentaire : std::uint8_t { Ascii, Windows1252 };

// Lines and words are ASCII. "{S}" in `broche` stands for the speed of the spindle, "{s}" and "{ms}" in `attente`
// for the seconds or milliseconds that it takes to get there.
struct Dialecte {
  std::string nom;        // in the setting, on the command line; of a user's file its name without extension
  std::string titre;      // for people, UTF-8
  std::string extension;  // of its files, small letters, no point
  // The program's own spelling: its extension is the only one, the spindle starts before the first row and stops
  // behind the last, and a row is a line whatever it changes.
  bool prescrit = false;

  bool pourcent = false;           // "%" before the first line and behind the last
  std::string unites;              // word for millimetres, a line of its own
  std::vector<std::string> debut;  // lines behind it
  std::vector<std::string> outil;  // of the change of the tool, before the first row
  std::string broche;              // starts the spindle
  std::string attente;             // waits until it turns
  std::string arret;               // stops it
  std::vector<std::string> fin;    // last lines
  FormeCommentaire commentaires = FormeCommentaire::Parentheses;
  JeuCommentaire jeu = JeuCommentaire::Ascii;

  bool motsLongs = false;      // "G01", otherwise "G1"
  bool repete = true;          // the word of the move on each line, otherwise where it changes
  int decimales = 3;           // of lengths, mm
  int decimalesAvance = 3;     // of F, mm/min
  bool avanceSeule = false;    // F on a line of its own, otherwise in the line of the move
  int numeros = 0;             // step of line numbers, 0 for none
  int longueur = 0;            // characters of a line at most, its end not counted; 0 for any
  bool arcs = false;           // G02 and G03 with I and J, the centre as seen from the start
  double ecartRayons = 0.002;  // mm that the distances of both ends of an arc from its centre may differ

  bool operator==(const Dialecte&) const = default;
};

}  // namespace ovelin
