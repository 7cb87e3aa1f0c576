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

}  // namespace essai
