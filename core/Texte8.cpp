#include "core/Texte8.h"

#include <array>
#include <cstdint>

#include "base/Indices.h"
#include "base/Texte.h"

namespace ovelin {

namespace {

// Code points of the bytes 80 to 9F of Windows-1252. The five bytes that the set leaves open stand for the control
// characters of the same number, so that every byte comes back.
constexpr std::array<std::uint16_t, 32> Haut = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                                0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                                0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                                0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

constexpr std::uint32_t Invalide = 0xFFFFFFFF;

// One character of UTF-8 from position i on, which is moved behind it. Overlong forms, surrogates and what lies
// beyond U+10FFFF are invalid.
std::uint32_t Caractere(std::string_view s, std::size_t& i) {
  const auto octet = [&s](std::size_t k) { return std::uint32_t{base::Octet(s[k])}; };
  const std::uint32_t a = octet(i);
  std::size_t suite = 0;
  std::uint32_t c = 0;
  std::uint32_t minimum = 0;
  if (a < 0x80) {
    ++i;
    return a;
  }
  if (a >= 0xC2 && a <= 0xDF) {
    suite = 1, c = a & 0x1F, minimum = 0x80;
  } else if (a >= 0xE0 && a <= 0xEF) {
    suite = 2, c = a & 0x0F, minimum = 0x800;
  } else if (a >= 0xF0 && a <= 0xF4) {
    suite = 3, c = a & 0x07, minimum = 0x10000;
  } else {
    return Invalide;
  }
  if (s.size() - i <= suite) return Invalide;
  for (std::size_t k = 1; k <= suite; ++k) {
    const std::uint32_t b = octet(i + k);
    if ((b & 0xC0) != 0x80) return Invalide;
    c = (c << 6) | (b & 0x3F);
  }
  if (c < minimum || c > 0x10FFFF || (c >= 0xD800 && c <= 0xDFFF)) return Invalide;
  i += suite + 1;
  return c;
}

bool EstAscii(std::string_view s) {
  for (const char c : s) {
    if (base::Octet(c) >= 0x80) return false;
  }
  return true;
}

bool EstUtf8(std::string_view s) {
  for (std::size_t i = 0; i < s.size();) {
    if (Caractere(s, i) == Invalide) return false;
  }
  return true;
}

void AjouteUtf8(std::string& s, std::uint32_t c) {
  if (c < 0x80) {
    s += static_cast<char>(c);
  } else if (c < 0x800) {
    s += static_cast<char>(0xC0 | (c >> 6));
    s += static_cast<char>(0x80 | (c & 0x3F));
  } else {
    s += static_cast<char>(0xE0 | (c >> 12));
    s += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
    s += static_cast<char>(0x80 | (c & 0x3F));
  }
}

// The byte of a code point, or -1.
int Octet(std::uint32_t c) {
  if (c < 0x80 || (c >= 0xA0 && c <= 0xFF)) return static_cast<int>(c);
  for (std::size_t k = 0; k < Haut.size(); ++k) {
    if (Haut[k] == c) return base::Compte(0x80 + k);
  }
  return -1;
}

}  // namespace

std::string DeWindows1252(std::string_view octets) {
  std::string s;
  s.reserve(octets.size() + octets.size() / 4);
  for (const char c : octets) {
    const auto o = base::Octet(c);
    AjouteUtf8(s, o >= 0x80 && o <= 0x9F ? Haut[o - 0x80U] : o);
  }
  return s;
}

std::optional<std::string> EnWindows1252(std::string_view utf8) {
  std::string s;
  s.reserve(utf8.size());
  for (std::size_t i = 0; i < utf8.size();) {
    const std::uint32_t c = Caractere(utf8, i);
    const int octet = c == Invalide ? -1 : Octet(c);
    if (octet < 0) return std::nullopt;
    s += static_cast<char>(octet);
  }
  return s;
}

std::string DeTexte8(std::string_view octets) {
  return EstAscii(octets) || EstUtf8(octets) ? std::string(octets) : DeWindows1252(octets);
}

std::string EnTexte8(std::string_view utf8) {
  if (EstAscii(utf8)) return std::string(utf8);
  const auto octets = EnWindows1252(utf8);
  // A text such as "A tilde, copyright" would come back as one accented letter: its bytes happen to be UTF-8.
  return octets && !EstUtf8(*octets) ? *octets : std::string(utf8);
}

std::string Coupe8(std::string_view octets, std::size_t longueur) {
  if (octets.size() <= longueur) return std::string(octets);
  std::size_t fin = longueur;
  if (!EstAscii(octets) && EstUtf8(octets)) {
    while (fin > 0 && (base::Octet(octets[fin]) & 0xC0) == 0x80) --fin;
  }
  return std::string(octets.substr(0, fin));
}

}  // namespace ovelin
