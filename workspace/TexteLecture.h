// What the reading of a drawing supposed and left out, in words.
#pragma once

#include <string>

#include "closed/Pathwerk.h"

namespace ovelin {

// On one line, kinds under their own names as the files have them: "Laissé de côté : TEXT 3, HATCH 1". "" where all
// was taken as it stands.
std::string TexteLecture(const pathwerk::RapportLecture& rapport);
// The same in plain words: "Laissé de côté : texte 3, hachure 1".
std::string PhraseLecture(const pathwerk::RapportLecture& rapport);
// On lines of their own: the file, then each kind with its own name, its count and the line where it came first;
// then what was supposed.
std::string DetailsLecture(const pathwerk::RapportLecture& rapport, const std::string& fichier);

}  // namespace ovelin
