// Any bytes as a DXF drawing, as far as the points of its paths.
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "closed/pathwerk/assemblage/Assemblage.h"
#include "closed/pathwerk/lecture/Lecture.h"
#include "closed/pathwerk/lecture/dxf/Dxf.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* donnees, std::size_t taille) {
  pathwerk::lecture::Lecture lecture;
  const pathwerk::OptionsLecture options;
  pathwerk::lecture::dxf::LireDxf(std::string_view(reinterpret_cast<const char*>(donnees), taille), options,
                                  lecture);
  if (!lecture.Refuse()) {
    std::vector<pathwerk::PointTrace> points;
    pathwerk::assemblage::Assemble(lecture, options, points);
  }
  return 0;
}
