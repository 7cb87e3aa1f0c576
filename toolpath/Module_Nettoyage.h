// Clean-up and smoothing of the drawing.
#pragma once

#include "core/Document.h"

namespace ovelin {

// All paths cleaned with a tolerance in mm. The traces are the caller's.
void NettoieTout(float resolution);
// The command behind its window: false when no resolution was chosen (0), or the user has taken it back while the
// traces were computed; then nothing is done.
bool mnu_Nettoyage_Click(float resolution);
// False: fewer points came back (message), or the path isn't there; nothing is changed.
bool LisseSequence(Code2 code);
void LisseSelection();  // CB_Lissage

}  // namespace ovelin
