// Plots: the reader and the assembly behind it.
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>
#include <vector>

#include "closed/pathwerk/assemblage/Assemblage.h"
#include "closed/pathwerk/lecture/Lecture.h"
#include "closed/pathwerk/lecture/hpgl/Hpgl.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace pathwerk;
  using namespace pathwerk::lecture::hpgl;
  using lecture::Lecture;
  Lecture lecture;
  const OptionsLecture options;
  LireHpgl({reinterpret_cast<const char*>(data), size}, options, lecture);
  if (lecture.Refuse()) {
    if (!lecture.traits.empty()) std::abort();
    return 0;
  }
  std::vector<PointTrace> points;
  const std::int32_t n = assemblage::Assemble(lecture, options, points);
  if (n >= 0 && static_cast<std::size_t>(n) != points.size()) std::abort();
  for (const PointTrace& p : points) {
    if (!std::isfinite(p.X) || !std::isfinite(p.Y)) std::abort();
  }
  return 0;
}
