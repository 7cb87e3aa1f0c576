// Coordinate files, up to the assembled drawing.
#include <cstdint>
#include <string_view>

#include "closed/pathwerk/lecture/dat/Dat.h"
#include "fuzz/PointsLus.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* donnees, std::size_t taille) {
  const std::string_view data(reinterpret_cast<const char*>(donnees), taille);
  pathwerk::lecture::Lecture lecture;
  pathwerk::lecture::dat::LireDat(data, {}, lecture);
  // The same rows as loose pieces take the road of welding too.
  lecture.souder = taille % 2 == 0;
  essai::ExigePointsLus(lecture, {});
  return 0;
}
