// Plain decimal numbers, as nearly all of a drawing are, read quickly.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "base/Texte.h"

namespace pathwerk::lecture {

// A minus or none, digits, a point with digits or none: the double nearest to it, as `std::from_chars` reads it.
// Returns the place behind the number. Null, and nothing is said, for any other number, which needs the general
// road: one with an exponent, with more digits than are exact, with a point at its end.
//
// Method: a whole number up to 2^53 and a power of ten up to 10^22 are exact in a double, so that their quotient is
// rounded once.
inline const char* LitDecimal(const char* p, const char* fin, double& valeur) {
  static constexpr std::array<double, 19> Puissances{1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8, 1e9,
                                                     1e10, 1e11, 1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18};
  constexpr std::ptrdiff_t ChiffresMax = 18;  // below 2^63
  constexpr std::uint64_t Exact = 1ULL << 53;
  const bool moins = p != fin && *p == '-';
  if (moins) ++p;
  const char* const debut = p;
  const char* const bout = fin - p > ChiffresMax + 2 ? p + ChiffresMax + 2 : fin;
  std::uint64_t entier = 0;
  for (; p != bout && base::EstChiffre(*p); ++p) entier = entier * 10 + static_cast<std::uint64_t>(*p - '0');
  std::ptrdiff_t chiffres = p - debut;
  std::ptrdiff_t decimales = 0;
  if (p != bout && *p == '.') {
    const char* const point = p++;
    for (; p != bout && base::EstChiffre(*p); ++p) entier = entier * 10 + static_cast<std::uint64_t>(*p - '0');
    decimales = p - point - 1;
    if (decimales == 0) return nullptr;
    chiffres += decimales;
  }
  if (chiffres == 0 || chiffres > ChiffresMax || entier > Exact) return nullptr;
  if (p != fin && (*p == 'e' || *p == 'E')) return nullptr;
  const double v = static_cast<double>(entier) / Puissances[static_cast<std::size_t>(decimales)];
  valeur = moins ? -v : v;
  return p;
}

}  // namespace pathwerk::lecture
