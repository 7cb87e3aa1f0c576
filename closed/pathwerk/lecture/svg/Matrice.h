// Maps of the plane as SVG writes them.
#pragma once

#include <cmath>

#include "closed/pathwerk/commun/Point.h"

namespace pathwerk::lecture::svg {

//   x' = a x + c y + e
//   y' = b x + d y + f
struct Matrice {
  double a = 1, b = 0, c = 0, d = 1, e = 0, f = 0;

  [[nodiscard]] constexpr Vec2 Place(Vec2 p) const { return {a * p.x + c * p.y + e, b * p.x + d * p.y + f}; }
  [[nodiscard]] constexpr Vec2 Direction(Vec2 v) const { return {a * v.x + c * v.y, b * v.x + d * v.y}; }
  // First `m`, then this one.
  [[nodiscard]] constexpr Matrice operator*(const Matrice& m) const {
    return {a * m.a + c * m.b, b * m.a + d * m.b,     a * m.c + c * m.d,
            b * m.c + d * m.d, a * m.e + c * m.f + e, b * m.e + d * m.f + f};
  }
  // By how much lengths grow at most: the larger singular value.
  [[nodiscard]] double Agrandissement() const {
    const double somme = (a * a + b * b + c * c + d * d) / 2;
    const double det = a * d - b * c;
    return std::sqrt(somme + std::sqrt(std::fmax(0, somme * somme - det * det)));
  }
};

constexpr Matrice Translation(double x, double y) { return {1, 0, 0, 1, x, y}; }
constexpr Matrice Echelle(double x, double y) { return {x, 0, 0, y, 0, 0}; }

}  // namespace pathwerk::lecture::svg
