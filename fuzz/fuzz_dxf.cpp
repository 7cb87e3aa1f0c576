// Any bytes as a DXF drawing, as far as the points of its paths.
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "closed/pathwerk/lecture/dxf/Dxf.h"
#include "fuzz/PointsLus.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* donnees, std::size_t taille) {
  pathwerk::lecture::Lecture lecture;
  const pathwerk::OptionsLecture options;
  pathwerk::lecture::dxf::LireDxf(std::string_view(reinterpret_cast<const char*>(donnees), taille), options,
                                  lecture);
  essai::ExigePointsLus(lecture, options);
  return 0;
}
