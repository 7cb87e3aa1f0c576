// Whole files in and out.
#pragma once

#include <string>
#include <string_view>

namespace pathwerk {

// Reads a regular file whole. False with the system's reason.
bool LitTout(const std::string& chemin, std::string& octets, std::string& raison);

// Writes a file whole or not at all: into a file beside it, flushed to disk, renamed over it. The mode of a file
// that was there is kept, and one that nobody may write is refused, also for root. "" or the system's reason.
std::string EcritTout(const std::string& chemin, std::string_view octets);

// The name without its folder.
std::string NomSeul(const std::string& chemin);
// Upper case, without the point; "" when there is none.
std::string Extension(const std::string& chemin);
// A path may come with a NUL behind it, as callers with fixed buffers hand it over.
std::string SansNul(const std::string& chemin);
// Cut or padded with blanks to the length of a message, never inside a character.
std::string EnMessage(std::string texte);

}  // namespace pathwerk
