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
  [[nodiscard]] constexpr bool Rencontre(const Boite& b) const {
    return x0 <= b.x1 && b.x0 <= x1 && y0 <= b.y1 && b.y0 <= y1;
  }
};

// Squared distance of a place to the box, 0 inside.
template <class T>
constexpr double Distance2(const Boite<T>& b, Vec2 p) {
  const double x0 = b.x0, y0 = b.y0, x1 = b.x1, y1 = b.y1;
  const double dx = p.x < x0 ? x0 - p.x : p.x > x1 ? p.x - x1 : 0;
  const double dy = p.y < y0 ? y0 - p.y : p.y > y1 ? p.y - y1 : 0;
  return dx * dx + dy * dy;
}

}  // namespace base
