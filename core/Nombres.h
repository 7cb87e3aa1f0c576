// Numbers and text. `marque` is the user's decimal mark, '.' or ','; it comes from Svc.MarqueDecimale.
#pragma once

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

// Patterns "0.00", "#0.0", "####0.0", "000", "####", "###0.00": digits before and after the mark, halves away from
// zero as the pattern's formatter does; user's mark. NaN and infinities give "0".
std::string Formate(double v, std::string_view motif);

// A whole text as a number, either mark, blanks around allowed, no thousands marks; nothing else. Nothing for a
// text that isn't a finite number.
std::optional<double> LitNombre(std::string_view texte);
inline bool EstNumerique(std::string_view texte) { return LitNombre(texte).has_value(); }

// The leading number of a text, point as the mark, 0 when there is none ("12abc" 12, "abc" 0, " -3.5e2x" -350).
double ValeurDebut(std::string_view texte);

// To the nearest integer, halves to even, clipped to the type's range (NaN gives 0).
std::int32_t Arrondi32(double v);
std::int16_t Arrondi16(double v);

std::string Majuscules(std::string_view texte);  // ASCII and Latin letters of Windows-1252, UTF-8 in and out
std::string Rogne(std::string_view texte);       // without blanks at both ends

}  // namespace ovelin
