// Edited work that no file holds: what stands against what was opened or saved last.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace ovelin {

// What stands now is on the disk, or the user has said that it may go.
void RetientTravail();
// The same; the function that comes back retains again what was retained before.
std::function<void()> RetientTravailARendre();
// An undo counts as a change, and so does work that came back after the program had died: what was saved isn't it.
void MarqueTravail();
// Points, records or tool values differ from what was retained. The selection isn't part of it. False where there
// has been no drawing since the last RetientTravail.
bool TravailChange();

// Settings that the key store has placed in the open project since RetientTravail: a chosen material goes into the
// file at once, also where its drawing isn't saved in the end. Empty for anything but a project.
std::vector<std::string> ClesPlacees();

}  // namespace ovelin
