// Lines of a text in memory, and the characters that formats are made of.
#pragma once

#include <cstddef>
#include <string_view>

namespace base {

constexpr bool EstChiffre(char c) { return c >= '0' && c <= '9'; }
constexpr bool EstLettre(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }
// What stands between words: blank and tabulator. Formats that pass over more say so where they are read.
constexpr bool EstBlanc(char c) { return c == ' ' || c == '\t'; }

// The byte of a character, 0 to 255, whichever sign the machine gives to one.
constexpr unsigned char Octet(char c) { return static_cast<unsigned char>(c); }

// Without what `blanc` names at both ends.
template <class Blanc>
constexpr std::string_view SansBlancs(std::string_view t, Blanc blanc) {
  while (!t.empty() && blanc(t.front())) t.remove_prefix(1);
  while (!t.empty() && blanc(t.back())) t.remove_suffix(1);
  return t;
}
constexpr std::string_view SansBlancs(std::string_view t) { return SansBlancs(t, EstBlanc); }

// Where the first line ends: the place of its CR or LF, or the length. Read piece by piece, so that a text with one
// kind of line end alone isn't searched to its end for the other.
constexpr std::size_t LongueurLigne(std::string_view texte) {
  constexpr std::size_t Morceau = 256;
  for (std::size_t debut = 0; debut < texte.size(); debut += Morceau) {
    const std::string_view morceau = texte.substr(debut, Morceau);
    const std::size_t lf = morceau.find('\n');
    const std::size_t cr = morceau.substr(0, lf).find('\r');
    if (cr != std::string_view::npos) return debut + cr;
    if (lf != std::string_view::npos) return debut + lf;
  }
  return texte.size();
}

// Takes the next line off the front of `reste`, without its end: CR LF, LF or CR. False when nothing is left; a
// text that ends with a line end has no empty line behind it.
constexpr bool LigneSuivante(std::string_view& reste, std::string_view& ligne) {
  if (reste.empty()) return false;
  const std::size_t fin = LongueurLigne(reste);
  ligne = reste.substr(0, fin);
  const bool double_ = fin + 1 < reste.size() && reste[fin] == '\r' && reste[fin + 1] == '\n';
  reste.remove_prefix(fin == reste.size() ? fin : fin + (double_ ? 2U : 1U));
  return true;
}

// Walks over the lines of a text and counts them.
class Lignes {
 public:
  explicit constexpr Lignes(std::string_view texte) : reste_(texte) {}
  constexpr bool Suivante(std::string_view& ligne) {
    if (!LigneSuivante(reste_, ligne)) return false;
    ++numero_;
    return true;
  }
  [[nodiscard]] constexpr long Numero() const { return numero_; }  // of the line last given, from 1

 private:
  std::string_view reste_;
  long numero_ = 0;
};

}  // namespace base
