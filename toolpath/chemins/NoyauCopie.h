// Paths copied with their records, as values.
#pragma once

#include <cstddef>
#include <functional>
#include <vector>

#include "core/Document.h"

namespace ovelin {

// Paths outside of a drawing: runs of equal `Seq`, each with the record of its code and what stands beside it.
struct Copie {
  std::vector<PointTrace> points;
  std::vector<SequenceInfo> fiches;  // one a run, in their order
  TableComplements complements;      // by the codes of the runs
  [[nodiscard]] bool Vide() const { return points.empty(); }
  bool operator==(const Copie&) const = default;
};

// Whether a document has no path. It may still hold the one empty record that a deletion leaves.
bool SansChemin(const Document& document);

// The selected paths in the order in which they are cut; of a code that stands in two runs the first.
Copie CopieDe(const Document& document);

// The rectangle around all points of a copy, mm; nothing of an empty one.
struct BoiteCopie {
  double xmin = 0, xmax = 0, ymin = 0, ymax = 0;
};
BoiteCopie BoiteDe(const Copie& copie);

// Where a point of a copy comes to lie, mm.
struct LieuCopie {
  double x = 0, y = 0;
};
using Pose = std::function<LieuCopie(const PointTrace&)>;

// Rows and columns; the first one is the original itself. Steps from corner to corner, mm, either sign.
struct Reseau {
  int colonnes = 1, rangees = 1;
  double pasX = 0, pasY = 0;
};
// Copies on a circle around a point, the original among them: `nombre` in all, `angle` (radians) from one to the
// next.
struct ReseauTournant {
  int nombre = 1;
  double angle = 0;
  double x = 0, y = 0;
};
// One for each copy beside the original.
std::vector<Pose> PosesDe(const Reseau& reseau);
std::vector<Pose> PosesDe(const ReseauTournant& reseau);

enum class IssueCopie { Faite, TropDeSequences, HorsLimites };
// Behind the last path of the document, once for each pose, with codes and records of their own; the new ones are
// the selection. What can't be done as a whole changes nothing. The traces are the caller's.
IssueCopie AjouteCopies(Document& document, const Copie& copie, const std::vector<Pose>& poses, double limite);

}  // namespace ovelin
