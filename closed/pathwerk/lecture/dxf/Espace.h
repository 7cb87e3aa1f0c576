// Frames of DXF: vectors, affine maps of space, the frame of an entity from its extrusion.
#pragma once

#include <cmath>

#include "closed/pathwerk/lecture/Lecture.h"

namespace pathwerk::lecture::dxf {

struct Vec3 {
  double x = 0;
  double y = 0;
  double z = 0;
  constexpr bool operator==(const Vec3&) const = default;
};

constexpr Vec3 operator+(Vec3 a, Vec3 b) { return {a.x + b.x, a.y + b.y, a.z + b.z}; }
constexpr Vec3 operator-(Vec3 a, Vec3 b) { return {a.x - b.x, a.y - b.y, a.z - b.z}; }
constexpr Vec3 operator*(Vec3 a, double k) { return {a.x * k, a.y * k, a.z * k}; }
constexpr Vec3 Vectoriel(Vec3 a, Vec3 b) {
  return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}
inline double Norme(Vec3 a) { return std::sqrt(a.x * a.x + a.y * a.y + a.z * a.z); }
inline double Norme(Vec2 a) { return std::hypot(a.x, a.y); }

// Affine map of space: x ex + y ey + z ez + o.
struct Affine {
  Vec3 ex{1, 0, 0};
  Vec3 ey{0, 1, 0};
  Vec3 ez{0, 0, 1};
  Vec3 o;

  // Of a direction, and of a point.
  [[nodiscard]] constexpr Vec3 Direction(Vec3 v) const { return ex * v.x + ey * v.y + ez * v.z; }
  [[nodiscard]] constexpr Vec3 Point(Vec3 p) const { return Direction(p) + o; }
  // Seen from above, where the tool comes from.
  [[nodiscard]] constexpr Vec2 Projette(Vec3 p) const {
    return {ex.x * p.x + ey.x * p.y + ez.x * p.z + o.x, ex.y * p.x + ey.y * p.y + ez.y * p.z + o.y};
  }
  [[nodiscard]] constexpr Vec2 PlanDirection(Vec3 v) const {
    return {ex.x * v.x + ey.x * v.y + ez.x * v.z, ex.y * v.x + ey.y * v.y + ez.y * v.z};
  }
};

// First b, then a.
constexpr Affine operator*(const Affine& a, const Affine& b) {
  return {a.Direction(b.ex), a.Direction(b.ey), a.Direction(b.ez), a.Point(b.o)};
}

// The object frame that belongs to an extrusion, by the "arbitrary axis" rule of the format: its Z is the
// extrusion; its X lies in the world's XY plane, unless the extrusion is nearer than 1/64 to the world's Z in both
// X and Y, then it stands square to the world's Y.
inline Affine RepereObjet(Vec3 extrusion) {
  const double n = Norme(extrusion);
  if (!(n > 0) || !std::isfinite(n)) return {};
  Affine a;
  a.ez = extrusion * (1 / n);
  if (a.ez == Vec3{0, 0, 1}) return {};
  constexpr double Seuil = 1.0 / 64;
  const bool vertical = std::fabs(a.ez.x) < Seuil && std::fabs(a.ez.y) < Seuil;
  a.ex = Vectoriel(vertical ? Vec3{0, 1, 0} : Vec3{0, 0, 1}, a.ez);
  a.ex = a.ex * (1 / Norme(a.ex));
  a.ey = Vectoriel(a.ez, a.ex);
  a.ey = a.ey * (1 / Norme(a.ey));
  return a;
}

}  // namespace pathwerk::lecture::dxf
