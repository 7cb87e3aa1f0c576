// What every reader of a drawing owes the assembly behind it, as far as the points of its paths.
#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <vector>

#include "closed/pathwerk/assemblage/Assemblage.h"
#include "closed/pathwerk/lecture/Lecture.h"

namespace essai {

// Assembles what was read and aborts when the count is not that of the points or a point lies nowhere. What was
// refused has no paths to assemble.
inline void ExigePointsLus(pathwerk::lecture::Lecture& lecture, const pathwerk::OptionsLecture& options) {
  if (lecture.Refuse()) return;
  std::vector<pathwerk::PointTrace> points;
  const std::int32_t n = pathwerk::assemblage::Assemble(lecture, options, points);
  if (n >= 0 && static_cast<std::size_t>(n) != points.size()) std::abort();
  for (const pathwerk::PointTrace& p : points) {
    if (!std::isfinite(p.X) || !std::isfinite(p.Y)) std::abort();
  }
}

inline bool Pareils(const pathwerk::lecture::Trait& a, const pathwerk::lecture::Trait& b) {
  const auto pareil = [](double x, double y) { return x == y || (x != x && y != y); };
  if (a.nature != b.nature || a.calque != b.calque || a.ligne != b.ligne || a.points.size() != b.points.size())
    return false;
  for (std::size_t i = 0; i < a.points.size(); ++i) {
    if (!pareil(a.points[i].x, b.points[i].x) || !pareil(a.points[i].y, b.points[i].y)) return false;
  }
  return true;
}

// Aborts where a file that was cut has been read otherwise than whole.
inline void ExigePareilles(const pathwerk::lecture::Lecture& entiere, const pathwerk::lecture::Lecture& coupee) {
  const auto& a = entiere.rapport;
  const auto& b = coupee.rapport;
  bool pareilles = a.Numero == b.Numero && a.Ligne == b.Ligne && a.Detail == b.Detail && a.Tronque == b.Tronque &&
                   a.Ignores == b.Ignores && a.PremieresLignes == b.PremieresLignes && a.Suppose == b.Suppose &&
                   entiere.ordreImpose == coupee.ordreImpose && entiere.calques.Tous() == coupee.calques.Tous() &&
                   entiere.traits.size() == coupee.traits.size();
  for (std::size_t i = 0; pareilles && i < entiere.traits.size(); ++i) {
    pareilles = Pareils(entiere.traits[i], coupee.traits[i]);
  }
  if (!pareilles) std::abort();
}

inline pathwerk::OptionsLecture AvecDeuxFils() {
  pathwerk::OptionsLecture options;
  options.Fils = 2;
  return options;
}

}  // namespace essai
