// Drill files, up to the assembled drawing.
#include <cstdint>
#include <string_view>
#include <vector>

#include "closed/pathwerk/assemblage/Assemblage.h"
#include "closed/pathwerk/lecture/Lecture.h"
#include "closed/pathwerk/lecture/excellon/Excellon.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* donnees, std::size_t taille) {
  const std::string_view data(reinterpret_cast<const char*>(donnees), taille);
  pathwerk::lecture::Lecture lecture;
  std::vector<pathwerk::PointTrace> points;
  pathwerk::lecture::excellon::LireExcellon(data, {}, lecture);
  lecture.souder = taille % 2 == 0;
  pathwerk::assemblage::Assemble(lecture, {}, points);
  return 0;
}
