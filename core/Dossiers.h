// The folders of the program: its own, that of this process, and those of what comes with the product.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace ovelin {

// The path of a name in a folder.
inline std::string DansDossier(std::string_view dossier, std::string_view nom) {
  return std::string(dossier).append("/").append(nom);
}

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

// Takes away what dead processes left in the temporary folder of this program and this user, but for the newest
// whole snapshot of each: for a program that takes no snapshots itself. PrepareDossierTemp does the same. False
// when the folder can't be had.
bool RecueilleReprises();

}  // namespace ovelin
