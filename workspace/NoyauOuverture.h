// The kernel of the opening: a file becomes a document with a report, the document a job of this machine. Values
// in, values out; nothing in force is touched, so that a refused file leaves the open job as it is.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "closed/Pathwerk.h"
#include "core/Document.h"
#include "core/LectureProjet.h"
#include "core/RefusFichier.h"
#include "core/Reglages.h"
#include "core/Services.h"

namespace ovelin {

// What a foreign drawing held before it was sized, cleaned and shifted.
struct ContenuLu {
  pathwerk::RapportLecture rapport;         // Format is "OVL" for a project
  std::string message;                      // the library's; of an opened drawing what was supposed and left out
  std::vector<ValeurIllisible> illisibles;  // of a project: its lines, and settings when they are in force
  std::int32_t points = 0;
  std::int32_t sequences = 0;
  float xmin = 0, xmax = 0, ymin = 0, ymax = 0;  // mm
};

// A file as it was read, once and whole.
struct DessinLu {
  bool renonce = false;  // the user has ended the reading: nothing else of it counts
  std::string chemin;
  std::string extension;              // upper case, without the point
  std::optional<RefusFichier> refus;  // why it can't be opened; file, line and reason
  ContenuLu contenu;                  // what was read and what was skipped
  Document document;                  // of a foreign drawing: points, count (or error number), records, bounds
  std::optional<ProjetLu> projet;     // of a project file, its document included
  std::vector<std::pair<std::string, std::string>> cles;  // keys that an opening of it wants written
};

// What the file itself may leave open.
struct SouhaitLecture {
  int page = 1;         // of a PDF
  double uniteSvg = 0;  // mm of a unit, where a drawing in SVG doesn't say; 0: pixels of 96 to the inch, and told
  // What pens and tools are called, before their number.
  std::string motPlume = "SP";
  std::string motOutil = "T";
};

// Reads a project or a foreign drawing. `reglages`: the weld tolerance, and the depth of a fresh path. `avancement`
// is called now and then with the share done, 0 to 1; it may be empty. May run on a thread: no service is called.
DessinLu LitDessin(const std::string& chemin, const Reglages& reglages,
                   const std::function<void(double)>& avancement, const SouhaitLecture& souhait = {});

bool EstProjet(const std::string& chemin);
// The keys that an opening of this path wants written, also when it is refused.
std::vector<std::pair<std::string, std::string>> ClesOuverture(const std::string& chemin);
// Why a foreign drawing with this negative number is refused. The library's message stands on a line of its own,
// unless the number is -101.
RefusFichier RefusLecture(std::int32_t numero, const std::string& chemin, const ContenuLu& contenu);

// What the machine's table says to an opening, mm.
struct MesuresMachine {
  float courseX = 600, courseY = 400;          // travel, as the dimension dialog takes it
  double diagonaleX = 1000, diagonaleY = 600;  // travel, as the clean-up takes it
  double resolution = 1;                       // the finer step of X and Y
};

// What happens from outside while a drawing is prepared.
struct EtapesOuverture {
  std::function<void(DemandeDimension&)> Dimensionne;  // asks for the size
  std::function<void()> Nettoie;                       // tells that the clean-up begins
  std::function<void(Document&)> Optimise;             // starts of the closed paths
};

// A freshly read foreign drawing becomes a job: size, clean-up, starts below 5000 points, margin of 5 mm. The
// traces are the caller's.
void PrepareDessin(Document& document, const MesuresMachine& machine, const EtapesOuverture& etapes);

}  // namespace ovelin
