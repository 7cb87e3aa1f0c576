// The pointer, moved by the program.
#pragma once

#include <functional>

namespace ovelin {

// Moves the pointer by so many pixels, where the platform lets a program move it. A test puts its own in its place.
extern std::function<void(int dx, int dy)> BougePointeur;

}  // namespace ovelin
