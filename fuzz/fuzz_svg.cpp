// SVG, with letters that are squares: the fonts of the machine are no part of a file. Read on one thread, and with
// its shapes shared out on two, which must make no difference.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "closed/pathwerk/lecture/FormatDeDessin.h"
#include "closed/pathwerk/lecture/svg/Svg.h"
#include "fuzz/PointsLus.h"

namespace {

bool Carres(const pathwerk::lecture::svg::StyleLettres& s, const std::string& texte,
            pathwerk::lecture::svg::LigneLettres& ligne) {
  for (std::size_t i = 0; i < texte.size(); ++i) {
    const double x = ligne.avance;
    ligne.contours.push_back({{x, 0}, {x, s.hauteur}, {x + s.hauteur, s.hauteur}});
    ligne.avance += s.hauteur + s.espace;
  }
  return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace pathwerk;
  const std::string_view texte(reinterpret_cast<const char*>(data), size);
  lecture::EstSvg(texte);
  lecture::Lecture lecture;
  lecture::svg::LireSvgAvec(texte, OptionsLecture{}, Carres, lecture);
  constexpr std::size_t OctetsParPartage = 32;
  lecture::Lecture partagee;
  lecture::svg::LireSvgAvec(texte, essai::AvecDeuxFils(), Carres, partagee, OctetsParPartage);
  essai::ExigePareilles(lecture, partagee);
  for (const lecture::Trait& t : lecture.traits) {
    if (t.points.empty()) std::abort();
    if (t.nature == lecture::Nature::Percage && t.points.size() != 1) std::abort();
  }
  essai::ExigePointsLus(lecture, OptionsLecture{});
  return 0;
}
