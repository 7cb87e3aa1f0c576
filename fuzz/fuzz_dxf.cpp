// Any bytes as a DXF drawing, as far as the points of its paths; read whole, and cut into stretches on two threads,
// which must make no difference.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "closed/pathwerk/lecture/dxf/Dxf.h"
#include "fuzz/PointsLus.h"

namespace {

using pathwerk::lecture::Lecture;
using pathwerk::lecture::Trait;

bool Pareils(const Trait& a, const Trait& b) {
  const auto pareil = [](double x, double y) { return x == y || (x != x && y != y); };
  if (a.nature != b.nature || a.calque != b.calque || a.ligne != b.ligne || a.points.size() != b.points.size())
    return false;
  for (std::size_t i = 0; i < a.points.size(); ++i) {
    if (!pareil(a.points[i].x, b.points[i].x) || !pareil(a.points[i].y, b.points[i].y)) return false;
  }
  return true;
}

void CompareCoupe(std::string_view data, const Lecture& entiere) {
  constexpr std::size_t OctetsParTranche = 48;
  pathwerk::OptionsLecture options;
  options.Fils = 2;
  Lecture coupee;
  pathwerk::lecture::dxf::LireDxf(data, options, coupee, OctetsParTranche);
  const auto& a = entiere.rapport;
  const auto& b = coupee.rapport;
  bool pareilles = a.Numero == b.Numero && a.Ligne == b.Ligne && a.Detail == b.Detail && a.Tronque == b.Tronque &&
                   a.Ignores == b.Ignores && a.PremieresLignes == b.PremieresLignes &&
                   entiere.ordreImpose == coupee.ordreImpose && entiere.calques.Tous() == coupee.calques.Tous() &&
                   entiere.traits.size() == coupee.traits.size();
  for (std::size_t i = 0; pareilles && i < entiere.traits.size(); ++i) {
    pareilles = Pareils(entiere.traits[i], coupee.traits[i]);
  }
  if (!pareilles) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* donnees, std::size_t taille) {
  const std::string_view data(reinterpret_cast<const char*>(donnees), taille);
  Lecture lecture;
  const pathwerk::OptionsLecture options;
  pathwerk::lecture::dxf::LireDxf(data, options, lecture, 0);
  CompareCoupe(data, lecture);
  essai::ExigePointsLus(lecture, options);
  return 0;
}
