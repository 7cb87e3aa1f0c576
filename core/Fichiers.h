// Files and folders.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/Fichiers.h"

namespace ovelin {

// Folder of "OVELIN.ini": set once at the start (see TrouveDossierProgramme), no separator at the end.
extern std::string DossierProgramme;
// Folder of this process for undo snapshots; empty when there is none.
extern std::string DossierTemp;
// Gives this process its own folder, mode 0700, inside one of this program and this user alone in the system's
// temporary folder, and sets `DossierTemp` to it; takes away what dead processes left there. False, with
// `DossierTemp` empty, when it can't be had.
bool PrepareDossierTemp();
// Takes the folder of this process away with all that lies in it, at the end of the program.
void OteDossierTemp();

// "OVELIN.ini" or "OVELIN.inisav" beside the executable makes the installation portable; otherwise "ovelin" in the
// user's configuration folder, made with mode 0700. `dossierExecutable` without a separator at the end. Fills
// `DossiersProduit` too.
std::string TrouveDossierProgramme(const std::string& dossierExecutable);
// A file that comes with the product ("OVELINfr.trad"): the program's folder first, then share/ovelin of the
// installation, then the source tree's translations/ and samples/ while developing. Empty when nowhere.
std::string TrouveFichierProduit(const std::string& nom);
extern std::vector<std::string> DossiersProduit;  // where TrouveFichierProduit looks behind DossierProgramme
// Fills `DossiersProduit` for an installation or a build tree; for a program whose settings lie elsewhere
// (--config).
void TrouveDossiersProduit(const std::string& dossierExecutable);

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
