// How each role of a picture looks: the one table of colours, widths and dashes, for light and dark paper.
#pragma once

#include <array>
#include <cstdint>
#include <span>

#include "core/Couleurs.h"
#include "core/Reglages.h"
#include "image/Scene.h"

namespace ovelin {

enum class StyleTrait : std::uint8_t { Plein = 0, Pointille = 2, TiretPointPoint = 4 };

// Dashes in widths of the line, drawn and left out in turn; none for a full line.
std::span<const float> MotifDe(StyleTrait style);

inline constexpr std::int32_t SansFond = -1;

// A role on its paper. Colours as in the settings, lifted where they could not be told from what lies under them.
struct Aspect {
  std::int32_t couleur = 0;       // lines, edges, dots, areas
  std::int32_t fond = SansFond;   // fill of a disc
  std::int32_t couleurTexte = 0;  // texts: on the fill where there is one
  float largeur = 1;              // of a line, logical pixels
  float opacite = 1;              // of lines, dots and areas; texts and fills of discs are never seen through
  StyleTrait style = StyleTrait::Plein;
};

struct Palette {
  std::int32_t papier = PapierDe(Theme::Clair);
  std::array<Aspect, NombreRoles> aspects;
  const Aspect& operator[](Role role) const { return aspects[static_cast<std::size_t>(role)]; }
};

// The table has two columns; the settings' DessinSobre chooses the one of the quiet picture. Order and colours are
// the same in both.
Palette ConstruitPalette(const Reglages& reglages, Theme theme);

// Width of a line, logical pixels: its own, or that of its role.
float LargeurDe(const Primitive& ligne, const Palette& palette);
// Opacity of a primitive: its share of that of its role.
inline float OpaciteDe(const Primitive& p, const Palette& palette) {
  return palette[p.role].opacite * static_cast<float>(p.force) / 255;
}

}  // namespace ovelin
