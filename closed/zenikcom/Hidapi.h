// The system's HID library.
#pragma once

#include "closed/zenikcom/Hid.h"

namespace zenikcom {

// The table filled with the functions of the library.
FonctionsHid Hidapi();

}  // namespace zenikcom
