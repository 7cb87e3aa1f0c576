// Any bytes as a DXF drawing, as far as the points of its paths; read whole, and cut into stretches on two threads,
// which must make no difference.
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "closed/pathwerk/lecture/dxf/Dxf.h"
#include "fuzz/PointsLus.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* donnees, std::size_t taille) {
  const std::string_view data(reinterpret_cast<const char*>(donnees), taille);
  constexpr std::size_t OctetsParTranche = 48;
  pathwerk::lecture::Lecture lecture, coupee;
  const pathwerk::OptionsLecture options;
  pathwerk::lecture::dxf::LireDxf(data, options, lecture, 0);
  pathwerk::lecture::dxf::LireDxf(data, essai::AvecDeuxFils(), coupee, OctetsParTranche);
  essai::ExigePareilles(lecture, coupee);
  essai::ExigePointsLus(lecture, options);
  return 0;
}
