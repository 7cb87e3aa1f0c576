// The words of a G-code line and the judgement of it: the one table that measuring, drawing and running share.
// Bytes in, no settings.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/Types.h"

namespace ovelin {

// What a line is. Lines that are refused, comments and empty ones among them, are skipped by every pass.
enum class Jugement : std::uint8_t {
  Valide,
  Douteuse,     // valid, but a G or M number with decimals is taken for its nearest whole ("G91.1" acts as G91)
  Commentaire,  // refused; begins with ";" or "("
  Refusee,
};
constexpr bool EstValide(Jugement j) { return j == Jugement::Valide || j == Jugement::Douteuse; }

struct Mot {
  char lettre = 0;
  bool chiffre = false;    // a number stands behind the letter, and it is within the range of a double
  double nombre = 0;       // that number, 0 without
  std::string_view texte;  // letter and all up to the next one
};

// The number in front of a text: sign, digits, a point, an exponent behind "e" or "d"; blanks count for nothing,
// what stands behind is passed over ("12 (move)" is 12). False when no digit comes first, or the number has no
// finite value.
bool NombreEnTete(std::string_view texte, double& nombre);

// Splits a line, its end taken off, into words and judges it. `mots` loses what it held and views `ligne`; what is
// refused at its first character has no words.
Jugement JugeLigne(std::string_view ligne, std::vector<Mot>& mots);

// Splits a line and judges it (doubtful ones are valid).
void DecoupeLigne(const std::string& Ligne, std::vector<std::string>& Mots, Drapeau& Valide);

// The number of a G or M word, to the nearest whole, halves to even.
std::int32_t NumeroMot(const Mot& mot);

}  // namespace ovelin
