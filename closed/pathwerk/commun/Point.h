// The place of `base/` under the geometry library's own name.
#pragma once

#include "base/Point.h"

namespace pathwerk {

using base::Vec2;

}  // namespace pathwerk
