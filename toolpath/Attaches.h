// The attachment tool.
#pragma once

#include <cstdint>
#include <optional>

#include "core/Types.h"
#include "toolpath/chemins/PlacesAttaches.h"

namespace ovelin {

// A click of the attachment tool at (x, y), mm. False when refused (with a beep where one is due), and, as below,
// where the user has taken it back while the traces were computed.
bool AjouteAttache(float x, float y);
bool EnleveAttache(float x, float y);
// The attachment point at that index of TraceInitial goes along its path, to the place nearest to (x, y), mm.
// False, with a beep, where there is none, or where a click of the tool would be refused: too near to the start or
// to another one.
bool DeplaceAttache(std::int32_t index, float x, float y);
// Where it would come to lie; nothing where it can't.
std::optional<PointTrace> LieuAttache(std::int32_t index, float x, float y);

// Attachment points by themselves on the selected paths that are milled and are no pockets. The number placed; 0: a
// beep, and nothing has changed; -1: taken back.
std::int32_t PoseAttaches(const VoeuAttaches& voeu);

}  // namespace ovelin
