// Paths and messages as callers with fixed buffers hand them over.
#pragma once

#include <cstddef>
#include <string>

namespace pathwerk {

// Of a path: upper case, without the point; "" when there is none.
std::string Extension(const std::string& chemin);
// A path may come with a NUL behind it, as callers with fixed buffers hand it over.
std::string SansNul(const std::string& chemin);
// At most that many bytes, never ending inside a character.
std::string Coupe(std::string texte, std::size_t octets);
// Cut or padded with blanks to the length of a message, never inside a character.
std::string EnMessage(std::string texte);

}  // namespace pathwerk
