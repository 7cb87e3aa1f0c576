// Lines, blanks and numbers of text formats.
#pragma once

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

#include "base/Texte.h"
#include "closed/pathwerk/lecture/Decimaux.h"

namespace pathwerk::lecture {

using base::EstChiffre;
using base::Lignes;

// Between the words of a line of these formats.
constexpr bool EstBlanc(char c) { return base::EstBlanc(c) || c == '\v' || c == '\f'; }
constexpr std::string_view SansBlancs(std::string_view t) { return base::SansBlancs(t, EstBlanc); }

// The line of a byte, from 1, where LF or CR LF ends the lines.
inline long LigneDe(std::string_view texte, std::size_t position) {
  const std::string_view avant = texte.substr(0, position);
  return 1 + std::count(avant.begin(), avant.end(), '\n');
}

// A number for messages, ten digits at most.
inline std::string EnTexte(double v) {
  std::array<char, 32> t{};
  const auto [fin, erreur] = std::to_chars(t.data(), t.data() + t.size(), v, std::chars_format::general, 10);
  return erreur == std::errc() ? std::string(t.data(), fin) : std::string();
}

// A whole field as a number: sign, digits with one decimal mark (point or comma), exponent behind E or, as Fortran
// writes it, D. What is too large comes back infinite, what is too small as 0. Nothing for anything else.
inline std::optional<double> LitReel(std::string_view champ) {
  if (champ.empty() || champ.size() > 400) return std::nullopt;
  const char* const bout = champ.data() + champ.size();
  double simple = 0;
  if (LitDecimal(champ.data(), bout, simple) == bout) return simple;
  std::string t(champ);
  if (t[0] == '+') t.erase(0, 1);
  bool chiffre = false;
  for (char& c : t) {
    if (EstChiffre(c)) {
      chiffre = true;
    } else if (c == ',') {
      c = '.';
    } else if (c == 'd' || c == 'D') {
      c = 'e';
    } else if (c != '.' && c != '+' && c != '-' && c != 'e' && c != 'E') {
      return std::nullopt;
    }
  }
  if (!chiffre) return std::nullopt;
  double v = 0;
  const auto [fin, erreur] = std::from_chars(t.data(), t.data() + t.size(), v);
  if (fin != t.data() + t.size() || erreur == std::errc::invalid_argument) return std::nullopt;
  if (erreur == std::errc::result_out_of_range) {
    const std::size_t e = t.find_first_of("eE");
    const bool petit = e != std::string::npos && e + 1 < t.size() && t[e + 1] == '-';
    return petit || e == std::string::npos ? 0.0 : std::numeric_limits<double>::infinity();
  }
  return v;
}

}  // namespace pathwerk::lecture
