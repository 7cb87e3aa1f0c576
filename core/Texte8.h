// 8-bit text of files (Windows-1252) and UTF-8 of memory. Nothing is lost either way: what the set can't hold is
// written as UTF-8, and a value whose bytes above 127 are valid UTF-8 is read as such.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace ovelin {

std::string DeTexte8(std::string_view octets);  // file -> memory
std::string EnTexte8(std::string_view utf8);    // memory -> file
// The first `longueur` bytes of a file's text; a character of several bytes is not cut in two.
std::string Coupe8(std::string_view octets, std::size_t longueur);

// Windows-1252 and nothing else, for who can read nothing else (the board). Nothing for a text with a character
// that the set lacks.
std::optional<std::string> EnWindows1252(std::string_view utf8);
std::string DeWindows1252(std::string_view octets);

}  // namespace ovelin
