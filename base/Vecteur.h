// Plane vectors in double precision.
#pragma once

#include <cmath>
#include <cstddef>
#include <vector>

#include "base/Point.h"

namespace base {

// Points of one path, mm. A closed path doesn't repeat its first point unless a procedure says so.
using Chemin = std::vector<Vec2>;

constexpr Vec2 operator+(Vec2 a, Vec2 b) { return {a.x + b.x, a.y + b.y}; }
constexpr Vec2 operator-(Vec2 a, Vec2 b) { return {a.x - b.x, a.y - b.y}; }
constexpr Vec2 operator*(Vec2 a, double s) { return {a.x * s, a.y * s}; }
constexpr double Scalaire(Vec2 a, Vec2 b) { return a.x * b.x + a.y * b.y; }
// Positive when `b` lies to the left of `a`.
constexpr double Vectoriel(Vec2 a, Vec2 b) { return a.x * b.y - a.y * b.x; }
inline double Norme(Vec2 a) { return std::sqrt(Scalaire(a, a)); }
constexpr Vec2 Gauche(Vec2 a) { return {-a.y, a.x}; }
inline Vec2 Unite(Vec2 a) {
  const double n = Norme(a);
  return n > 0 ? a * (1 / n) : Vec2{};
}

// What stands behind and before place i of a closed run of n.
constexpr std::size_t Suivant(std::size_t i, std::size_t n) { return i + 1 < n ? i + 1 : 0; }
constexpr std::size_t Precedent(std::size_t i, std::size_t n) { return (i > 0 ? i : n) - 1; }

// Signed area of a closed path, positive when it runs counter-clockwise.
inline double Aire(const Chemin& c) {
  double s = 0;
  for (std::size_t i = 0, n = c.size(); i < n; ++i) s += Vectoriel(c[i] - c[0], c[Suivant(i, n)] - c[0]);
  return s / 2;
}
inline double Perimetre(const Chemin& c) {
  double s = 0;
  for (std::size_t i = 0, n = c.size(); i < n; ++i) s += Norme(c[Suivant(i, n)] - c[i]);
  return s;
}
// Way along a closed path from its start to each of its points, and back to the start: one more than it has points.
inline std::vector<double> Abscisses(const Chemin& c) {
  std::vector<double> abscisses{0};
  abscisses.reserve(c.size() + 1);
  for (std::size_t i = 0, n = c.size(); i < n; ++i) {
    abscisses.push_back(abscisses.back() + Norme(c[Suivant(i, n)] - c[i]));
  }
  return abscisses;
}

}  // namespace base
