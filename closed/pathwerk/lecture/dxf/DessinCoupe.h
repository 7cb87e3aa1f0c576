// Draws a file whose sections of entities are cut, on several threads.
#pragma once

#include "closed/pathwerk/lecture/Lecture.h"
#include "closed/pathwerk/lecture/dxf/Groupes.h"
#include "closed/pathwerk/lecture/dxf/Sommaire.h"

namespace pathwerk::lecture::dxf {

// What the drawing of the whole file by one drawer gives, path by path and count by count. False, and `lecture` is
// as it was, for any file that isn't plain: one that is refused, ends early, or is cut where no entity begins. One
// drawer then tells what is wrong, and where.
bool DessineCoupe(const LecteurGroupes& lecteur, const Sommaire& sommaire, const OptionsLecture& options,
                  Lecture& lecture);

}  // namespace pathwerk::lecture::dxf
