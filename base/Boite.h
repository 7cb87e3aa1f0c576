// A box with sides along the axes.
#pragma once

#include <algorithm>
#include <limits>

#include "base/Point.h"

namespace base {

// Empty as it is made: it holds nothing, and lies infinitely far from everything.
template <class T>
struct Boite {
  T x0 = std::numeric_limits<T>::infinity();
  T y0 = std::numeric_limits<T>::infinity();
  T x1 = -std::numeric_limits<T>::infinity();
  T y1 = -std::numeric_limits<T>::infinity();

  // The box of one point.
  static constexpr Boite De(T x, T y) { return {x, y, x, y}; }

  constexpr void Etend(T x, T y) {
    x0 = std::min(x0, x);
    y0 = std::min(y0, y);
    x1 = std::max(x1, x);
    y1 = std::max(y1, y);
  }
  constexpr void Etend(const Boite& b) {
    x0 = std::min(x0, b.x0);
    y0 = std::min(y0, b.y0);
    x1 = std::max(x1, b.x1);
    y1 = std::max(y1, b.y1);
  }
  // All four are compared, whatever the first one says: no processor foretells what a search finds, and a branch
  // that it foretold wrongly costs more than they do. So below.
  [[nodiscard]] constexpr bool Rencontre(const Boite& b) const {
    return static_cast<int>(x0 <= b.x1) & static_cast<int>(b.x0 <= x1) & static_cast<int>(y0 <= b.y1) &
           static_cast<int>(b.y0 <= y1);
  }
};

// Squared distance of a place to the box, 0 inside.
template <class T>
constexpr double Distance2(const Boite<T>& b, Vec2 p) {
  const double x0 = b.x0, y0 = b.y0, x1 = b.x1, y1 = b.y1;
  const double dx = std::max(std::max(x0 - p.x, p.x - x1), 0.0);
  const double dy = std::max(std::max(y0 - p.y, p.y - y1), 0.0);
  return dx * dx + dy * dy;
}

}  // namespace base
