// What the tests of the SVG reader share: drawings of 100 x 100 mm in which a user unit is a millimetre, and what
// came of them. Y of the result goes upward, so that (x, y) of the file is (x, 100 - y).
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <string_view>
#include <vector>

#include "base/Vecteur.h"
#include "closed/pathwerk/lecture/Lecture.h"
#include "closed/pathwerk/lecture/svg/Svg.h"

namespace pathwerk::lecture::svg::mesures {

inline Lecture Lit(std::string_view texte, const OptionsLecture& options = {}, const TraceLettres& lettres = {}) {
  Lecture lecture;
  LireSvgAvec(texte, options, lettres, lecture);
  return lecture;
}

inline std::string Page(const std::string& corps) {
  return R"(<svg xmlns="http://www.w3.org/2000/svg" width="100mm" height="100mm" viewBox="0 0 100 100">)" + corps +
         "</svg>";
}

inline std::vector<Trait> Traits(const std::string& corps) {
  Lecture lecture = Lit(Page(corps));
  EXPECT_EQ(lecture.rapport.Numero, Erreur::Aucune) << lecture.rapport.Detail;
  return std::move(lecture.traits);
}

// The one path of a drawing.
inline Trait Seul(const std::string& corps) {
  auto traits = Traits(corps);
  EXPECT_EQ(traits.size(), 1U) << corps;
  return traits.empty() ? Trait{} : std::move(traits[0]);
}

inline long Ignores(const Lecture& l, const std::string& genre) {
  const auto i = l.rapport.Ignores.find(genre);
  return i == l.rapport.Ignores.end() ? 0 : i->second;
}
inline long Ignores(const std::string& corps, const std::string& genre) { return Ignores(Lit(Page(corps)), genre); }

inline void AttendPoints(const Trait& t, const std::vector<Vec2>& attendus, double ecart = 1e-6) {
  ASSERT_EQ(t.points.size(), attendus.size());
  for (std::size_t i = 0; i < attendus.size(); ++i) {
    EXPECT_NEAR(t.points[i].x, attendus[i].x, ecart) << i;
    EXPECT_NEAR(t.points[i].y, attendus[i].y, ecart) << i;
  }
}

struct Etendue {
  double x0 = 1e300, y0 = 1e300, x1 = -1e300, y1 = -1e300;
};
inline Etendue EtendueDe(const std::vector<Trait>& traits) {
  Etendue e;
  for (const Trait& t : traits) {
    for (const Vec2 p : t.points) {
      e = {std::min(e.x0, p.x), std::min(e.y0, p.y), std::max(e.x1, p.x), std::max(e.y1, p.y)};
    }
  }
  return e;
}
inline void AttendEtendue(const std::vector<Trait>& traits, double x0, double y0, double x1, double y1,
                          double ecart = 0.01) {
  const Etendue e = EtendueDe(traits);
  EXPECT_NEAR(e.x0, x0, ecart);
  EXPECT_NEAR(e.y0, y0, ecart);
  EXPECT_NEAR(e.x1, x1, ecart);
  EXPECT_NEAR(e.y1, y1, ecart);
}

// The greatest distance of the points and of the middles of the chords from a circle.
inline double EcartAuCercle(const Trait& t, Vec2 centre, double rayon) {
  double pire = 0;
  const auto juge = [&](Vec2 p) {
    pire = std::max(pire, std::fabs(std::hypot(p.x - centre.x, p.y - centre.y) - rayon));
  };
  for (std::size_t i = 0; i < t.points.size(); ++i) {
    juge(t.points[i]);
    if (i + 1 == t.points.size() && t.nature != Nature::Ferme) break;
    const Vec2 b = t.points[(i + 1) % t.points.size()];
    juge({(t.points[i].x + b.x) / 2, (t.points[i].y + b.y) / 2});
  }
  return pire;
}

inline double AireSignee(const Trait& t) {
  double a = 0;
  for (std::size_t i = 0; i < t.points.size(); ++i) {
    a += base::Vectoriel(t.points[i], t.points[(i + 1) % t.points.size()]);
  }
  return a / 2;
}

}  // namespace pathwerk::lecture::svg::mesures
