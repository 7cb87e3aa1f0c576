// Numbers and text. `marque` is the user's decimal mark, '.' or ','; it comes from Svc.MarqueDecimale.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace ovelin {

// The shortest text that reads back to the same value, with the user's decimal mark; no exponent for magnitudes
// between 1e-7 and 1e15.
std::string TexteNombre(float v);
std::string TexteNombre(double v);
std::string TexteNombre(long v);
// The same for a field of `largeur` characters (15 or more): where the text is longer, another notation or fewer
// digits, never a cut exponent.
std::string TexteNombreLimite(float v, std::size_t largeur);
std::string TexteNombreLimite(double v, std::size_t largeur);

// Patterns "0.00", "#0.0", "####0.0", "000", "####", "###0.00": digits before and after the mark, "0" always there,
// "#" when it counts ("####" gives "" for 0); halves away from zero on the decimal text of the value (2.675 with
// "0.00" is "2.68"); no sign when every digit is 0; user's mark. NaN and infinities give "0".
std::string Formate(double v, std::string_view motif);

// The keys that a numeric field lets through: digits, sign, both marks, backspace.
inline constexpr std::string_view TouchesNumeriques = "0123456789-.,\b";

// A whole text as a number, either mark, blanks around allowed, no thousands marks; nothing else. Nothing for a
// text that isn't a finite number.
std::optional<double> NombreDuTexte(std::string_view texte);
inline bool EstNumerique(std::string_view texte) { return NombreDuTexte(texte).has_value(); }

// The leading number of a text, point as the mark, 0 when there is none ("12abc" 12, "abc" 0, " -3.5e2x" -350).
// What is beyond the range of the type gives 0 too. The second gives the float nearest to the text.
double ValeurDebut(std::string_view texte);
float ValeurDebutFloat(std::string_view texte);

// To the nearest integer, halves to even, clipped to the type's range (NaN gives 0).
std::int32_t Arrondi32(double v);
std::int16_t Arrondi16(double v);
// As a float, clipped to its range (NaN gives 0).
float EnFloat(double v);

std::string Majuscules(std::string_view texte);  // ASCII and Latin letters of Windows-1252, UTF-8 in and out
std::string Rogne(std::string_view texte);       // without blanks at both ends

}  // namespace ovelin
