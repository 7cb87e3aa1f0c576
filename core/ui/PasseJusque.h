// A pass that the user may end, beside a live window: which of his events are done at once, which wait.
#pragma once

#include <QEvent>
#include <QWidget>
#include <functional>

#include "core/ServicesPasse.h"

namespace ovelin {

// What becomes of an event of the user's while such a pass computes.
enum class SortEvenement {
  Tient,   // comes behind the pass, in the order of all that is held
  Laisse,  // comes now
  Refuse,  // is forgotten
  Arrete,  // ends the pass, and is forgotten
};
// Of an event on its way to that control.
using JugeEvenement = std::function<SortEvenement(const QWidget& cible, const QEvent& evenement)>;

// Runs the kernel to its end with rounds of events meanwhile. True: an event has ended it. What the kernel has
// thrown is thrown here. A modal window that opens meanwhile gets all of its input.
bool MenePasse(const PasseInterruptible& passe, const JugeEvenement& juge);

}  // namespace ovelin
