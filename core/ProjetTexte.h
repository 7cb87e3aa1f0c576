// The text of a project file, to and from the arrays of the document. Values in, values out: no file, no global
// state, so that tests and fuzzing reach it directly.
//
//   $$key=value          settings (written and found by the key store)
//   $$SeqCC0PFdepth      path: code in columns 6-7, "0", pocket, mill, depth from column 11
//   $$SeDn               its companion: side of the tool
//   $$SeICC1, $$SeCCC... further ones, where there is something to tell: see core/Complements.h
//   X    Y    Cde  Seq   point: four fields of 15 columns
//   $$Mat01 n            width of the notches; $$Mat02 their height
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/Document.h"

namespace ovelin {

// Points that count, and their bounds (mm). "PE" points and "$$" lines do not.
struct RecensementProjet {
  std::size_t NbPoints = 0;
  float Xmin = 0, Xmax = 0, Ymin = 0, Ymax = 0;
};
RecensementProjet RecenseProjet(std::string_view contenu);

// A value that stands in no form in which it can be read, or beyond what a coordinate can be: 0 has taken its
// place, or what it begins with.
struct ValeurDouteuse {
  long ligne = 0;           // from 1
  std::string cle, valeur;  // "X", "Y", "Profondeur" ...; the bytes of the field
};

// The whole document of a file, with what the first pass would give.
struct ContenuProjet {
  RecensementProjet Recensement;
  std::vector<PointTrace> Points;
  // As the lines give them, selected; never empty: one blank record where no line names a path.
  std::vector<SequenceInfo> Sequences;
  TableComplements Complements;                       // of paths that have a line
  std::optional<double> LargeurEncoche, MiniEncoche;  // mm, from the closing lines
  std::vector<ValeurDouteuse> Douteuses;              // the first ones of many
};
// Whether a text can be a project at all: no control bytes, and a line that begins with "$$" or holds two numbers
// in columns 1 to 30. A text without any line can.
bool EstTexteProjet(std::string_view contenu);
// Read in parts of about that many bytes, on as many threads as there may be, to the same result for any size and
// number.
ContenuProjet LitTexteProjet(std::string_view contenu, std::size_t octetsParPart = std::size_t{1} << 20);
// The file was cut off in the middle of a line: its last line has no end, and no closing line "$$Mat02" stands in
// it. What is left of that line is read like any other stray line; as a point it stands alone under half a code, so
// that no trace follows from it.
bool EstTronque(std::string_view contenu);
// A record with the defaults of a fresh drawing for each run of points whose code has none. All selected.
void CompleteSequences(std::vector<SequenceInfo>& sequences, std::span<const PointTrace> points, double profondeur);

// Lines of the paths: for each run of equal `Seq` the first record with its code, or the defaults of an unknown
// code (no pocket, milled, depth 0, side 1); behind them what it has beyond its record.
void ComposeSequences(std::string& texte, std::span<const PointTrace> points,
                      std::span<const SequenceInfo> sequences, const TableComplements& complements);
void ComposePoints(std::string& texte, std::span<const PointTrace> points);  // their lines
// The two closing lines.
void ComposeEncoches(std::string& texte, double largeurEncoche, double miniEncoche);

}  // namespace ovelin
