// Colours as the settings hold them, and how one is told from another.
#pragma once

#include <cstdint>

namespace ovelin {

// Red + 256 x green + 65536 x blue, 0 to 255 each.
constexpr std::int32_t Couleur(int rouge, int vert, int bleu) { return rouge + 256 * vert + 65536 * bleu; }

enum class Theme : std::uint8_t { Clair, Sombre };

// "Paper" of pictures and previews: white in a light theme, a dark grey in a dark one.
constexpr std::int32_t PapierDe(Theme theme) {
  return theme == Theme::Sombre ? Couleur(36, 38, 41) : Couleur(255, 255, 255);
}

// Contrast of two colours, 1 to 21 (WCAG 2).
double Contraste(std::int32_t a, std::int32_t b);

// The colour, or the same hue lighter or darker, so that it can be told from `fond` (contrast of 3 to 1).
std::int32_t CouleurLisible(std::int32_t couleur, std::int32_t fond);

}  // namespace ovelin
