// Drill files, up to the assembled drawing.
#include <cstdint>
#include <string_view>

#include "closed/pathwerk/lecture/excellon/Excellon.h"
#include "fuzz/PointsLus.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* donnees, std::size_t taille) {
  const std::string_view data(reinterpret_cast<const char*>(donnees), taille);
  pathwerk::lecture::Lecture lecture;
  pathwerk::lecture::excellon::LireExcellon(data, {}, lecture);
  lecture.souder = taille % 2 == 0;
  essai::ExigePointsLus(lecture, {});
  return 0;
}
