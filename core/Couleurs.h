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

inline constexpr double ContrasteGraphique = 3.0;  // graphics that must be told apart (WCAG 2, criterion 1.4.11)
inline constexpr double ContrasteTexte = 4.5;      // text that must be read (criterion 1.4.3)

// The colour, or the same hue lighter or darker, so that its contrast to `fond` is `contraste` at least. Black or
// white reaches 4.58 on any ground; more than that can't be asked for.
std::int32_t CouleurLisible(std::int32_t couleur, std::int32_t fond, double contraste = ContrasteGraphique);

}  // namespace ovelin
