// The attachment tool.
#pragma once

#include <cstdint>

#include "toolpath/chemins/PlacesAttaches.h"

namespace ovelin {

// A click of the attachment tool at (x, y), mm. False when refused (with a beep where one is due).
bool AjouteAttache(float x, float y);
bool EnleveAttache(float x, float y);

// Attachment points by themselves on the selected paths that are milled and are no pockets. The number placed; 0: a
// beep, and nothing has changed.
std::int32_t PoseAttaches(const VoeuAttaches& voeu);

}  // namespace ovelin
