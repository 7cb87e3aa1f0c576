// Order in which the paths are cut, where each starts, and its direction.
#pragma once

#include <cstdint>

namespace ovelin {

bool mnu_Optimisation_Click();  // false when the loss of attachment points was refused (OptimisationSansAttaches)
bool ChangeOrdre(int sens);     // CB_Ordre: 0 towards the start, 1 towards the end; false: beep
bool ChangeDepart(std::int32_t index);  // CB_Depart: that point becomes the start; false: open path (DepartOuvert)
void InverseSelectionnees();            // CB_Inversion: reverses the points; the side is kept

}  // namespace ovelin
