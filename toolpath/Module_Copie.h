// Copies of the selected paths in the document in force: duplicate, copy, paste, rows and columns, a circle. The
// copies are selected, their traces computed; lists and picture follow.
#pragma once

#include "toolpath/chemins/NoyauCopie.h"

namespace ovelin {

// What was copied last. It outlives the drawing that it comes from, so that the next one can take it.
extern Copie PressePapiers;

// The selection into PressePapiers; false: nothing is selected, and it keeps what it holds.
bool CopieSelection();
// PressePapiers into the document, (dx, dy) mm from where it was copied. False: it is empty, or refused with a box
// (more paths than codes, a coordinate beyond all bounds), or taken back while the traces were computed, and
// nothing has changed.
bool ColleCopie(double dx, double dy);
// One copy of the selection beside it; PressePapiers stays as it is. False as above, or nothing is selected.
bool DupliqueSelection(double dx, double dy);
// One for each pose.
bool RepeteSelection(const std::vector<Pose>& poses);

}  // namespace ovelin
