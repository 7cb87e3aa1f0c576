// Copied paths as a text, for another program of this kind: the lines of a project file.
#pragma once

#include <string>
#include <string_view>

#include "toolpath/chemins/NoyauCopie.h"

namespace ovelin {

std::string TexteDeCopie(const Copie& copie);
// Empty for a text that is none, or holds no path. A path without a line of its own has the values of a fresh one,
// at this depth (mm, negative).
Copie CopieDuTexte(std::string_view texte, double profondeur);

}  // namespace ovelin
