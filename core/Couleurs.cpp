#include "core/Couleurs.h"

#include <algorithm>
#include <cmath>

namespace ovelin {

namespace {

// Shares of red, green and blue, 0 to 1.
struct Rvb {
  double r = 0, v = 0, b = 0;
};
// Hue in sixths of the circle, saturation and lightness 0 to 1.
struct Tsl {
  double teinte = 0, saturation = 0, clarte = 0;
};

Rvb EnParts(std::int32_t couleur) {
  const auto c = static_cast<std::uint32_t>(couleur);
  return {(c & 255U) / 255.0, ((c >> 8U) & 255U) / 255.0, ((c >> 16U) & 255U) / 255.0};
}

std::int32_t EnCouleur(const Rvb& c) {
  const auto octet = [](double part) { return static_cast<int>(std::lround(std::clamp(part, 0.0, 1.0) * 255)); };
  return Couleur(octet(c.r), octet(c.v), octet(c.b));
}

// Relative luminance as WCAG 2 defines it.
double Luminance(const Rvb& c) {
  const auto lineaire = [](double v) { return v <= 0.03928 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4); };
  return 0.2126 * lineaire(c.r) + 0.7152 * lineaire(c.v) + 0.0722 * lineaire(c.b);
}

double Contraste(const Rvb& a, const Rvb& b) {
  const double la = Luminance(a);
  const double lb = Luminance(b);
  return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}

// The double cone of hue, saturation and lightness (Joblove and Greenberg, 1978), there and back.
Tsl EnTsl(const Rvb& c) {
  const double haut = std::max({c.r, c.v, c.b});
  const double bas = std::min({c.r, c.v, c.b});
  const double ecart = haut - bas;
  Tsl t;
  t.clarte = (haut + bas) / 2;
  if (ecart <= 0) return t;
  t.saturation = ecart / (1 - std::abs(2 * t.clarte - 1));
  if (haut == c.r) {
    t.teinte = (c.v - c.b) / ecart;
  } else if (haut == c.v) {
    t.teinte = 2 + (c.b - c.r) / ecart;
  } else {
    t.teinte = 4 + (c.r - c.v) / ecart;
  }
  if (t.teinte < 0) t.teinte += 6;
  return t;
}

Rvb DeTsl(const Tsl& t) {
  const double demi = t.saturation * std::min(t.clarte, 1 - t.clarte);
  // Each share is a trapezium over the circle of hues: full for two sixths, none for two, a slope between.
  const auto part = [&](double decalage) {
    const double place = std::fmod(t.teinte + decalage, 6.0);
    return t.clarte + demi * std::clamp(std::abs(place - 3) - 1.0, 0.0, 1.0) * 2 - demi;
  };
  return {part(0), part(4), part(2)};
}

Rvb AvecClarte(Tsl t, double clarte) {
  t.clarte = std::clamp(clarte, 0.0, 1.0);
  return DeTsl(t);
}

}  // namespace

double Contraste(std::int32_t a, std::int32_t b) { return Contraste(EnParts(a), EnParts(b)); }

// What was chosen for another ground is mirrored in its lightness first: black on white becomes white on black,
// dark red a light one, and two colours that could be told apart still can. From there the lightness moves in small
// steps up and down at once; the first that is far enough from the ground is the nearest. One of black and white
// always is.
std::int32_t CouleurLisible(std::int32_t couleur, std::int32_t fond, double contraste) {
  if (Contraste(couleur, fond) >= contraste) return couleur;
  const Tsl teinte = EnTsl(EnParts(couleur));
  const double clarte = 1 - teinte.clarte;
  // What is judged is the colour in bytes that is drawn.
  const std::int32_t miroir = EnCouleur(AvecClarte(teinte, clarte));
  if (Contraste(miroir, fond) >= contraste) return miroir;
  for (int pas = 1; pas <= 100; ++pas) {
    for (const double sens : {0.01, -0.01}) {
      const std::int32_t essai = EnCouleur(AvecClarte(teinte, clarte + sens * pas));
      if (Contraste(essai, fond) >= contraste) return essai;
    }
  }
  return Luminance(EnParts(fond)) < 0.18 ? Couleur(255, 255, 255) : Couleur(0, 0, 0);
}

}  // namespace ovelin
