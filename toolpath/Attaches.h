// The attachment tool.
#pragma once

namespace ovelin {

// A click of the attachment tool at (x, y), mm. False when refused (with a beep where one is due).
bool AjouteAttache(float x, float y);
bool EnleveAttache(float x, float y);

}  // namespace ovelin
