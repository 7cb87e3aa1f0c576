// Files and folders.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/Fichiers.h"

namespace ovelin {

// "" when it worked, otherwise the system's text ("No space left on device").
using ErreurSysteme = std::string;

// The whole file, or nothing and the reason.
std::optional<std::string> LitFichierEntier(const std::string& chemin, ErreurSysteme* raison = nullptr);
using base::Garantie;
// Whole or not at all: written beside the target, flushed to disk, renamed over it. Keeps the target's mode. A
// target without write permission is refused, also for root. Content that has not changed is not written again.
// A device or a pipe takes the bytes as they come.
ErreurSysteme EcritFichierEntier(const std::string& chemin, std::string_view octets,
                                 Garantie garantie = Garantie::Disque);
// Why EcritFichierEntier would refuse this path before anything is written; "" when it would not.
ErreurSysteme EcritureRefusee(const std::string& chemin);

bool FichierExiste(const std::string& chemin);  // a regular file
bool LectureSeule(const std::string& chemin);   // exists, and nobody, or not this user, may write it
// The path from the root on, whatever the current folder. "." and ".." go where the result is still the same file:
// behind a link ".." is not the folder that stands in front of it. "" stays "".
std::string CheminComplet(const std::string& chemin);
// Both paths lead to one and the same file that is there, through links too.
bool MemeFichier(const std::string& a, const std::string& b);
using base::DossierDe;
using base::NomDe;
std::string NomSansExtension(const std::string& nom);  // last ".xyz" taken off, folder kept
std::string ExtensionDe(const std::string& chemin);    // upper case, without the point
// Names of files in a folder with that upper-case extension, sorted.
std::vector<std::string> ListeFichiers(const std::string& dossier, const std::string& extension);

}  // namespace ovelin
