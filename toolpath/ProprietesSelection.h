// Properties of the selection that its traces depend on.
#pragma once

#include <cstdint>

namespace ovelin {

// What follows a change of a property of the selection.
void DecaleSelection(std::int16_t decalage);  // Option_Decal: to or from 3 reverses the points
void PocheSelection(bool poche);              // CB_Poche
void IlotSelection(bool ilot);                // CB_Ilot: the pockets around follow
void FraiserSelection(bool fraiser);          // CB_Fraiser
// A depth for the selection (TB_Profondeur). False: refused (ProfondeurNonNegative) or answered No
// (ProfondeursInegales).
bool ProfondeurSelection(double profondeur);
// No milled path goes deeper than `fond` (mm, negative): those that do end there, selected or not. False where none
// did.
bool LimiteProfondeur(double fond);

}  // namespace ovelin
