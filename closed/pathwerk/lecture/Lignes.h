// Lines and numbers of text formats.
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

namespace pathwerk::lecture {

// Walks over the lines of a text, whatever ends them (LF, CR LF, CR). No line behind the last line end.
class Lignes {
 public:
  explicit Lignes(std::string_view texte) : reste_(texte) {}
  bool Suivante(std::string_view& ligne) {
    if (reste_.empty()) return false;
    ++numero_;
    const std::size_t fin = reste_.find_first_of("\r\n");
    ligne = reste_.substr(0, fin);
    if (fin == std::string_view::npos) {
      reste_ = {};
    } else {
      const bool double_ = reste_[fin] == '\r' && fin + 1 < reste_.size() && reste_[fin + 1] == '\n';
      reste_.remove_prefix(fin + (double_ ? 2 : 1));
    }
    return true;
  }
  [[nodiscard]] long Numero() const { return numero_; }  // of the line last given, from 1

 private:
  std::string_view reste_;
  long numero_ = 0;
};

inline bool EstChiffre(char c) { return c >= '0' && c <= '9'; }
inline bool EstBlanc(char c) { return c == ' ' || c == '\t' || c == '\v' || c == '\f'; }

inline std::string_view SansBlancs(std::string_view t) {
  while (!t.empty() && EstBlanc(t.front())) t.remove_prefix(1);
  while (!t.empty() && EstBlanc(t.back())) t.remove_suffix(1);
  return t;
}

// The line of a byte, from 1, where LF or CR LF ends the lines.
inline long LigneDe(std::string_view texte, std::size_t position) {
  const std::string_view avant = texte.substr(0, position);
  return 1 + static_cast<long>(std::count(avant.begin(), avant.end(), '\n'));
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
