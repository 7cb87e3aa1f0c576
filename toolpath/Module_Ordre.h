// Order in which the paths are cut, where each starts, and its direction. False is also a change that the user has
// taken back while its traces were computed (PasseTraces).
#pragma once

#include <cstdint>

#include "core/Gestes.h"

namespace ovelin {

bool mnu_Optimisation_Click();  // false when the loss of attachment points was refused (OptimisationSansAttaches)
// The milled paths in an order of short moves in the air (see NoyauTournee.h); a path that lies within the box of
// one behind it stays before it. Where each starts and its direction stay. The status tells the metres before and
// after; false: nothing gets shorter, and nothing has changed.
bool OrdonneTrajets();
bool ChangeOrdre(PasOrdre pas);         // CB_Ordre; false: beep
bool ChangeDepart(std::int32_t index);  // CB_Depart: that point becomes the start; false: open path (DepartOuvert)
void InverseSelectionnees();            // CB_Inversion: reverses the points; the side is kept

}  // namespace ovelin
