// The project file ".OVL": one whole document, read by column.
#pragma once

#include <string>

#include "core/Fichiers.h"
#include "core/LectureProjet.h"

namespace ovelin {

// Writes the document. The settings in force go in first, through the key store. On failure the file that was
// there is whole, and the system's reason comes back.
ErreurSysteme EcrireProjet(const std::string& chemin);

// The settings lines of the project or snapshot `chemin`, in their order. They go to the settings file as well,
// which is written only where one differs.
std::string LignesReglages(const std::string& chemin);

// Reads a project into the document. False when the checks refuse it: the message has been shown (ProjetVide,
// PointsConfondus, LectureRefusee with the system's reason for a file that can't be read), and the document is
// unchanged apart from NbPoints and the bounds.
bool LireProjet(const std::string& chemin);
// The second half: a project that has been read comes into force, as by LireProjet.
bool PrendProjet(const std::string& chemin, ProjetLu&& lu);
// The first pass of a reading: NbPoints and the bounds out of what was read, also where that is refused. False with
// the message as above.
bool VerifierProjet(const ProjetLu& lu);
// That pass alone over a file.
bool VerifierProjet(const std::string& chemin);

// What lies above this folder and takes part in a reading. Empty functions are skipped.
struct CrochetsProjet {
  void (*ChargeTable)() = nullptr;      // machine table, colours and options follow it
  void (*ChercheMateriau)() = nullptr;  // the material record that agrees with the values, shown by its name
};
extern CrochetsProjet Crochets;

}  // namespace ovelin
