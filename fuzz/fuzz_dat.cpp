// Coordinate files, up to the assembled drawing.
#include <cstdint>
#include <string_view>
#include <vector>

#include "closed/pathwerk/Lecture.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* donnees, std::size_t taille) {
  const std::string_view data(reinterpret_cast<const char*>(donnees), taille);
  pathwerk::Lecture lecture;
  std::vector<pathwerk::PointTrace> points;
  pathwerk::LireDat(data, {}, lecture);
  // The same rows as loose pieces take the road of welding too.
  lecture.souder = taille % 2 == 0;
  pathwerk::Assemble(lecture, {}, points);
  return 0;
}
