// The twelve states of the work in which the main window has to stay quiet and clear, with a drawing made for them.
#pragma once

#include <vector>

#include "tests/ui/captures/Scenes.h"

namespace captures {

// First screen, drawing, selection, pocket, notches, narrow contours, off the sheet, deep cuts, drag, repetition,
// list of steps, warnings of the milling window; the drawing has about so many points, 28 at least.
std::vector<Scene> DouzeScenes(int points);

}  // namespace captures
