// A document as a value: the drawing, its paths and the tool path. DocumentCourant.h holds the one in force.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "core/Complements.h"
#include "core/Types.h"

namespace ovelin {

// A path of the drawing. 24 bytes.
struct SequenceInfo {
  Code2 Code;                 // blank in the single record of an empty table
  Drapeau Poche = Faux;       // mill the inside of the closed path
  double Profondeur = 0;      // mm, negative downward
  Drapeau Fraiser = Faux;     // takes part in the run
  std::int16_t Decalage = 0;  // 1, 3: the two sides of the line; 2: on the line. To or from 3 reverses the points
  Drapeau Selection = Faux;
  bool operator==(const SequenceInfo&) const = default;
};
static_assert(sizeof(SequenceInfo) == 24);

// One piece of the tool path. A path of the drawing owns one or more consecutive records (pocket rings, pieces);
// the record of a failed offset has no points.
struct SequenceDecalee {
  Code2 Seq;                       // code of the path it belongs to
  std::vector<PointTrace> Points;  // their own `Seq` is only a number for the eye
  bool operator==(const SequenceDecalee&) const = default;
};

struct Document {
  // The source: paths as runs of equal `Seq`, in the order in which they are cut.
  std::vector<PointTrace> TraceInitial;
  // Points in TraceInitial, or the negative error number of a failed reading. After a refused project it may be
  // larger than the array: every walk is bounded by the array.
  std::int32_t NbPoints = 0;
  // One record a code; look-ups take the first match. Never empty: one blank record while there is no path.
  std::vector<SequenceInfo> Sequences = std::vector<SequenceInfo>(1);
  TableComplements Complements;  // what a path has beyond its record
  // Derived from the source, the table and the tool; never stored.
  std::vector<SequenceDecalee> TraceDecale;

  float Xmin = 0, Xmax = 0, Ymin = 0, Ymax = 0;  // bounds of TraceInitial, mm

  std::string FichierCourant;     // full path of the file last opened or saved
  std::string ExtensionCourante;  // its extension in upper case, without the point
  // Empty, "Chargt" while a project is read and after an undo, otherwise the project's path: then keys are looked
  // up in the file FichierCourant first.
  std::string FichierProjet;
  Drapeau Modifie = Faux;
  Drapeau Instantane = Faux;      // the project writer is writing an undo snapshot ...
  std::string FichierInstantane;  // ... to this file

  Code2 SeqCourante = CodeAucun;  // path in focus
  float PointCourantX = 0, PointCourantY = 0;
  float OrigineX = 0, OrigineY = 0;       // marked position on the plot, mm
  double EchelleX = 1.0, EchelleY = 1.0;  // ratios of the dimension dialog
  Drapeau Prolongement = Faux;            // drag knife: closed traces are lengthened. Off after each start
  bool operator==(const Document&) const = default;
};

}  // namespace ovelin
