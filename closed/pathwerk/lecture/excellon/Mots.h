// Words and number formats of drill files.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "closed/pathwerk/lecture/Lecture.h"

namespace pathwerk::lecture::excellon {

// A letter with what follows it up to the next letter: "X+1000", "G85", "C0.8".
struct Mot {
  char lettre = 0;
  std::string_view texte;
};

struct Mots {
  static constexpr std::size_t MotsMax = 24;
  std::array<Mot, MotsMax> mots;
  std::size_t nb = 0;
};

// Splits a line into words. False when it holds anything else, or too many.
bool DecoupeMots(std::string_view ligne, Mots& mots);

// How coordinates without a decimal point are meant.
struct FormatExcellon {
  bool pouces = true;
  bool unitesDites = false;
  int entiers = 2;         // digits before the point
  int decimales = 4;       // digits behind it
  bool formatDit = false;  // by the file, not by the unit
  bool gardeTete = false;  // LZ: leading zeros are there, trailing ones may be left out
  bool zerosDits = false;
  bool devine = false;  // a coordinate was read whose place of the point nobody said
  void Unites(bool enPouces);
  void Chiffres(int avant, int apres);
  // mm; nothing for a text that isn't a number. A decimal point settles all by itself.
  [[nodiscard]] std::optional<double> Coordonnee(std::string_view texte);
  [[nodiscard]] double Echelle() const { return pouces ? 25.4 : 1.0; }
  // The header line that says what is in force: "METRIC,TZ,000.000".
  [[nodiscard]] std::string Ligne() const;
};

// "METRIC,TZ,000.000", "INCH,LZ", "M71,TZ", "METRIC": unit, zeros and format; `inconnus` takes the other words.
// False for another line.
bool LitUnites(std::string_view ligne, FormatExcellon& format, std::vector<std::string>& inconnus);
// The word of a header line that opens one of the known ones, which say nothing of coordinates; else empty.
bool EntreeConnue(std::string_view ligne);
// The line of extents that some writers put into a comment, ";EXTENTS ...".
bool EstEtendue(std::string_view ligne);
// Can a drawing of this size, mm, be what that line speaks of? Two numbers are a size, four two corners or
// two ranges; in the unit that the line names, else in that of the file, whole numbers also as coordinates of the
// file.
bool EtenduePossible(std::string_view ligne, const FormatExcellon& format, Vec2 taille);
// What a comment says of the format: ";FILE_FORMAT=2:4", "; FORMAT={3:3/ absolute / metric / suppress leading
// zeros}".
void LitCommentaireFormat(std::string_view ligne, FormatExcellon& format);
// Leading whole number of a text, -1 when there is none; large ones are held at 1,000,000.
int EntierDebut(std::string_view texte);

}  // namespace pathwerk::lecture::excellon
