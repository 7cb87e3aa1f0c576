// The attribute "d" of a path.
#pragma once

#include <string_view>

#include "closed/pathwerk/lecture/svg/Plume.h"

namespace pathwerk::lecture::svg {

// Draws the commands with the pen. False when one can't be read: what stands before it is drawn, as viewers do.
bool TraceDonnees(std::string_view donnees, Plume& plume);

}  // namespace pathwerk::lecture::svg
