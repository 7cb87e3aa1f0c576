// The kernel of the project file's reading: a path in, a document out. Nothing in force is touched, so that a
// refused file leaves the open job as it is, and a long reading may run on a thread.
#pragma once

#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "core/Document.h"
#include "core/Empreinte.h"
#include "core/RefusFichier.h"
#include "core/ValeurIllisible.h"

namespace ovelin {

struct ProjetLu {
  std::optional<RefusFichier> refus;
  // Points, their count and bounds, records as the lines give them, and what stands beside them. Of a refused
  // project count and bounds alone, as far as they were known.
  Document document;
  std::optional<double> LargeurEncoche, MiniEncoche;      // mm, from the closing lines
  std::unordered_map<std::string, std::string> reglages;  // bytes of the settings lines, by key
  std::vector<ValeurIllisible> illisibles;                // values that 0 or their beginning has taken the place of
  magasin::Empreinte avant;                               // the file's state before the reading
  bool tronque = false;                                   // the end of the file is missing; what was whole is kept
};
ProjetLu LitProjet(const std::string& chemin);
// The same behind a guard: a file whose text can't be a project ("PasProjet" of "F_Representation") is refused
// before its lines are taken as points.
ProjetLu LitProjetGarde(const std::string& chemin);
// The first pass alone: count and bounds.
ProjetLu RecenseFichierProjet(const std::string& chemin);

}  // namespace ovelin
