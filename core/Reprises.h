// Work that a process left which ended without being asked: killed, or by a signal. Its newest whole undo snapshot
// is taken out of its temporary folder before that is cleared away, and waits beside it until the user has decided.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace ovelin {

struct Reprise {
  std::string fichier;     // a project file under another extension
  std::string dessin;      // the drawing that was open, "" when that isn't known
  std::int64_t heure = 0;  // of its last state, s since 1970
};

// Where it waits; "" before PrepareDossierTemp or RecueilleReprises.
extern std::string DossierReprises;
inline constexpr const char* NomDossierReprises = "reprises";

// Out of the folder of a dead process into `DossierReprises`. Nothing where no snapshot can be read whole.
void RecueilleReprise(const std::string& dossierMort);
// What waits, the newest first.
std::vector<Reprise> ListeReprises();
// It has been opened, or declined.
void OteReprise(const Reprise& reprise);

// The name of the open drawing beside the snapshots of this process, for a program that finds them later.
void NoteDessin(const std::string& chemin);

}  // namespace ovelin
