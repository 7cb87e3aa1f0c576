// Work of a program that died, opened again.
#pragma once

#include "core/Reprises.h"
#include "workspace/Module_Ouverture.h"

namespace ovelin {

// What the window of recovered work was left with.
extern Reprise RepriseChoisie;

// The document as it was. The drawing has its name again, and counts as changed: what was kept is in no file of the
// user's. As behind an undo, keys are looked up in the user's file and written to the settings file alone. It no
// longer waits once this process has a snapshot of it. A refusal is told, and leaves the open job and what waits.
Ouverture OuvreReprise(const Reprise& reprise);

}  // namespace ovelin
