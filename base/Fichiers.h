// Files whole or not at all. Failures come back as the system's error number, 0 when it worked.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace base {

// "No space left on device"; "" for 0.
std::string TexteErreur(int numero);

// Reads a regular file whole. A folder is refused with EISDIR, any other that is no file with EINVAL, one larger
// than the memory with ENOMEM; `octets` is then empty. Of a longer file than `auPlus` the first bytes alone, so
// that it can be judged.
int LitFichier(const std::string& chemin, std::string& octets, std::size_t auPlus = std::string::npos);

// What a written file outlives: a power cut (flushed to disk before it takes its name), or the end of the program
// alone (undo snapshots).
enum class Garantie { Disque, Processus };
// Whole or not at all: written beside the target, flushed to disk, renamed over it. Keeps the target's mode and,
// where that is allowed, its owner; a link stays a link. A target without write permission is refused, also for
// root. Content that has not changed is not written again. A device or a pipe takes the bytes as they come.
int EcritFichier(const std::string& chemin, std::string_view octets, Garantie garantie = Garantie::Disque);
// Appends to a file, which is made where there is none: all of `octets` or nothing.
int AjouteAuFichier(const std::string& chemin, std::string_view octets);
// Why EcritFichier would refuse this path before anything is written.
int RefusEcriture(const std::string& chemin);

std::string DossierDe(const std::string& chemin);  // "" without a folder
std::string NomDe(const std::string& chemin);      // without the folder
// Behind the last point of the name, as it is written; "" when there is none.
std::string_view ExtensionBrute(std::string_view chemin);

}  // namespace base
