#include "core/Nombres.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>

#include "base/Indices.h"
#include "base/Texte.h"
#include "core/Services.h"
#include "core/Texte8.h"

namespace ovelin {

namespace {

using base::EstBlanc;
using base::EstChiffre;

// Room for any double in fixed notation: 309 digits before the mark, 324 zeros and 17 digits behind it.
constexpr std::size_t TailleTampon = 768;

void PoseMarque(std::string& texte) {
  if (Svc.MarqueDecimale == '.') return;
  const std::size_t point = texte.find('.');
  if (point != std::string::npos) texte[point] = Svc.MarqueDecimale;
}

template <typename Reel>
std::string TexteReel(Reel v) {
  if (!std::isfinite(v) || v == 0) return "0";
  char tampon[TailleTampon];
  const Reel grandeur = std::abs(v);
  const bool fixe = grandeur >= static_cast<Reel>(1e-7) && grandeur < static_cast<Reel>(1e15);
  const auto fin = std::to_chars(tampon, tampon + sizeof tampon, v,
                                 fixe ? std::chars_format::fixed : std::chars_format::scientific);
  std::string texte(tampon, fin.ptr);
  std::replace(texte.begin(), texte.end(), 'e', 'E');
  PoseMarque(texte);
  return texte;
}

// Length of the number at the start of `s`: sign, digits, point, digits, exponent. 0 when there is no digit. The
// sign counts; a "+" is accepted though the library's conversion refuses it.
std::size_t LongueurNombre(std::string_view s) {
  std::size_t i = 0;
  if (i < s.size() && (s[i] == '+' || s[i] == '-')) ++i;
  std::size_t chiffres = 0;
  while (i < s.size() && EstChiffre(s[i])) ++i, ++chiffres;
  if (i < s.size() && s[i] == '.') {
    ++i;
    while (i < s.size() && EstChiffre(s[i])) ++i, ++chiffres;
  }
  if (chiffres == 0) return 0;
  if (i < s.size() && (s[i] == 'e' || s[i] == 'E')) {
    std::size_t j = i + 1;
    if (j < s.size() && (s[j] == '+' || s[j] == '-')) ++j;
    const std::size_t debut = j;
    while (j < s.size() && EstChiffre(s[j])) ++j;
    if (j > debut) i = j;
  }
  return i;
}

// A text that LongueurNombre has measured. `deborde` is set when the magnitude is beyond the type; what is too
// small for it is 0.
template <typename Reel>
Reel Convertit(std::string_view nombre, bool& deborde) {
  deborde = false;
  const bool moins = !nombre.empty() && nombre.front() == '-';
  if (!nombre.empty() && (nombre.front() == '+' || nombre.front() == '-')) nombre.remove_prefix(1);
  Reel v = 0;
  const auto lu = std::from_chars(nombre.data(), nombre.data() + nombre.size(), v);
  if (lu.ec == std::errc::result_out_of_range) {
    // Too large or too small: the decimal exponent of the first digit that counts tells which.
    const std::size_t e = nombre.find_first_of("eE");
    long exposant = 0;
    if (e != std::string_view::npos) {
      std::string_view texte = nombre.substr(e + 1);
      const bool negatif = !texte.empty() && texte.front() == '-';
      if (!texte.empty() && (texte.front() == '+' || texte.front() == '-')) texte.remove_prefix(1);
      if (std::from_chars(texte.data(), texte.data() + texte.size(), exposant).ec != std::errc{}) {
        exposant = std::numeric_limits<long>::max() / 2;
      }
      if (negatif) exposant = -exposant;
    }
    const std::string_view mantisse = nombre.substr(0, e);
    const std::size_t point = std::min(mantisse.find('.'), mantisse.size());
    const std::size_t premier = mantisse.find_first_of("123456789");
    const long rang = static_cast<long>(point) - static_cast<long>(premier == std::string_view::npos ? 0 : premier);
    deborde = exposant + rang > 0;
    return 0;
  }
  return moins ? -v : v;
}

template <typename Reel>
Reel Debut(std::string_view texte) {
  while (!texte.empty() && EstBlanc(texte.front())) texte.remove_prefix(1);
  const std::size_t n = LongueurNombre(texte);
  if (n == 0) return 0;
  bool deborde = false;
  return Convertit<Reel>(texte.substr(0, n), deborde);
}

// Decimal digits of a magnitude: value = 0.d1d2d3... x 10^rang.
struct Chiffres {
  std::string d;
  int rang = 0;
};

Chiffres EnChiffres(double grandeur) {
  Chiffres c;
  if (grandeur == 0) return c;
  char tampon[64];
  const auto fin = std::to_chars(tampon, tampon + sizeof tampon, grandeur, std::chars_format::scientific);
  const std::string_view texte(tampon, fin.ptr);
  const std::size_t e = texte.find('e');
  for (const char k : texte.substr(0, e)) {
    if (EstChiffre(k)) c.d += k;
  }
  const char* debut = texte.data() + e + 1;
  if (*debut == '+') ++debut;
  std::from_chars(debut, fin.ptr, c.rang);
  ++c.rang;
  return c;
}

// Keeps `apres` digits behind the mark, halves away from zero.
void ArronditChiffres(Chiffres& c, int apres) {
  const int garde = c.rang + apres;  // digits that stay
  if (garde >= std::ssize(c.d)) return;
  if (garde < 0) {
    c = {};
    return;
  }
  const bool monte = c.d[base::Indice(garde)] >= '5';
  c.d.resize(base::Indice(garde));
  if (!monte) return;
  for (std::size_t i = c.d.size(); i-- > 0;) {
    if (c.d[i] != '9') {
      ++c.d[i];
      return;
    }
    c.d[i] = '0';
  }
  c.d.insert(c.d.begin(), '1');
  ++c.rang;
}

template <typename Entier>
Entier ArrondiEntier(double v) {
  if (std::isnan(v)) return 0;
  // Halves to even by hand: the result must not hang on the processor's rounding mode.
  double bas = std::floor(v);
  const double reste = v - bas;
  if (reste > 0.5 || (reste == 0.5 && std::fmod(bas, 2.0) != 0.0)) bas += 1.0;
  if (bas <= static_cast<double>(std::numeric_limits<Entier>::min())) return std::numeric_limits<Entier>::min();
  if (bas >= static_cast<double>(std::numeric_limits<Entier>::max())) return std::numeric_limits<Entier>::max();
  return static_cast<Entier>(bas);
}

}  // namespace

std::string TexteNombre(float v) { return TexteReel(v); }
std::string TexteNombre(double v) { return TexteReel(v); }
std::string TexteNombre(long v) { return std::to_string(v); }

std::string TexteNombreLimite(double v, std::size_t largeur) {
  std::string texte = TexteNombre(v);
  if (texte.size() <= largeur) return texte;
  char tampon[TailleTampon];
  const double grandeur = std::abs(v);
  const bool fixe = grandeur >= 1e-7 && grandeur < 1e15;
  // Fewer digits until it fits. Never a cut text: a lost exponent would be another number altogether.
  for (int precision = base::Compte(largeur); precision >= 0; --precision) {
    const auto fin = std::to_chars(tampon, tampon + sizeof tampon, v,
                                   fixe ? std::chars_format::fixed : std::chars_format::scientific, precision);
    if (base::Indice(fin.ptr - tampon) > largeur) continue;
    texte.assign(tampon, fin.ptr);
    std::replace(texte.begin(), texte.end(), 'e', 'E');
    PoseMarque(texte);
    return texte;
  }
  return texte.substr(0, largeur);
}

std::string TexteNombreLimite(float v, std::size_t largeur) {
  std::string texte = TexteNombre(v);
  if (texte.size() <= largeur) return texte;
  char tampon[TailleTampon];
  const auto fin = std::to_chars(tampon, tampon + sizeof tampon, v, std::chars_format::scientific);
  texte.assign(tampon, fin.ptr);
  if (texte.size() > largeur) return TexteNombreLimite(double{v}, largeur);
  std::replace(texte.begin(), texte.end(), 'e', 'E');
  PoseMarque(texte);
  return texte;
}

// Digits by pattern: "0" stands for a digit that is always there, "#" for one that is there when it counts. The
// rounding works on the decimal text of the value (the shortest one that reads back), not on its binary expansion:
// 2.675 with "0.00" is "2.68", as on paper, though the double lies a little below 2.675.
std::string Formate(double v, std::string_view motif) {
  if (!std::isfinite(v)) return "0";
  const std::size_t mark = motif.find('.');
  const std::string_view entiers = motif.substr(0, mark);
  const std::string_view decimales = mark == std::string_view::npos ? std::string_view{} : motif.substr(mark + 1);
  const auto compte = [](std::string_view s, char c) { return base::Compte(std::count(s.begin(), s.end(), c)); };
  const int minEntiers = compte(entiers, '0');
  const int minDecimales = compte(decimales, '0');
  const int maxDecimales = minDecimales + compte(decimales, '#');

  Chiffres c = EnChiffres(std::abs(v));
  ArronditChiffres(c, maxDecimales);
  const auto chiffre = [&c](int place) {  // place 0 is the first digit in front of the mark, -1 the first behind it
    const int i = c.rang - 1 - place;
    return i >= 0 && i < std::ssize(c.d) ? c.d[base::Indice(i)] : '0';
  };

  std::string texte;
  for (int place = std::max(c.rang, minEntiers) - 1; place >= 0; --place) texte += chiffre(place);
  std::string suite;
  for (int place = 1; place <= maxDecimales; ++place) suite += chiffre(-place);
  while (std::ssize(suite) > minDecimales && suite.back() == '0') suite.pop_back();
  if (mark != std::string_view::npos && maxDecimales > 0) texte += Svc.MarqueDecimale + suite;
  const bool nul = c.d.find_first_not_of('0') == std::string::npos;
  return v < 0 && !nul ? "-" + texte : texte;
}

std::optional<double> NombreDuTexte(std::string_view texte) {
  std::string s = Rogne(texte);
  std::replace(s.begin(), s.end(), ',', '.');
  const std::size_t n = LongueurNombre(s);
  if (n == 0 || n != s.size()) return std::nullopt;
  bool deborde = false;
  const double v = Convertit<double>(s, deborde);
  if (deborde) return std::nullopt;
  return v;
}

double ValeurDebut(std::string_view texte) { return Debut<double>(texte); }
float ValeurDebutFloat(std::string_view texte) { return Debut<float>(texte); }

std::int32_t Arrondi32(double v) { return ArrondiEntier<std::int32_t>(v); }
std::int16_t Arrondi16(double v) { return ArrondiEntier<std::int16_t>(v); }

float EnFloat(double v) {
  if (std::isnan(v)) return 0;
  constexpr double limite = std::numeric_limits<float>::max();
  return static_cast<float>(std::clamp(v, -limite, limite));
}

std::string Majuscules(std::string_view texte) {
  std::string s;
  s.reserve(texte.size());
  for (std::size_t i = 0; i < texte.size(); ++i) {
    const char c = texte[i];
    const auto suivant = i + 1 < texte.size() ? base::Octet(texte[i + 1]) : 0U;
    s += c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
    if (suivant == 0) continue;
    const auto octet = base::Octet(c);
    if (octet == 0xC3 && suivant >= 0xA0 && suivant <= 0xBE && suivant != 0xB7) {  // a grave ... thorn, not the
      s += static_cast<char>(suivant - 0x20);                                      // division sign
      ++i;
    } else if (octet == 0xC3 && suivant == 0xBF) {  // y with diaeresis: its capital lies elsewhere
      s.back() = '\xC5';
      s += '\xB8';
      ++i;
    } else if (octet == 0xC5 && (suivant == 0x93 || suivant == 0xA1 || suivant == 0xBE)) {  // oe, s and z caron
      s += static_cast<char>(suivant - 1);
      ++i;
    }
  }
  return s;
}

std::string Rogne(std::string_view texte) { return std::string(base::SansBlancs(texte)); }

}  // namespace ovelin
