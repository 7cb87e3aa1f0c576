// Plots: the reader and the assembly behind it.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "closed/pathwerk/lecture/hpgl/Hpgl.h"
#include "fuzz/PointsLus.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace pathwerk;
  using namespace pathwerk::lecture::hpgl;
  using lecture::Lecture;
  Lecture lecture;
  const OptionsLecture options;
  LireHpgl({reinterpret_cast<const char*>(data), size}, options, lecture);
  if (lecture.Refuse() && !lecture.traits.empty()) std::abort();
  essai::ExigePointsLus(lecture, options);
  return 0;
}
