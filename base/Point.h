// A place or a direction in the plane, in double precision.
#pragma once

namespace base {

struct Vec2 {
  double x = 0;
  double y = 0;
  constexpr bool operator==(const Vec2&) const = default;
};

}  // namespace base
