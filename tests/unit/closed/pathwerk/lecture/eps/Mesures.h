// What the tests of the EPS reader share. Those that run drawings need Ghostscript and are skipped without it.
#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <string>
#include <string_view>

#include "closed/pathwerk/lecture/Lecture.h"
#include "closed/pathwerk/lecture/eps/Eps.h"
#include "tests/support/DossierEssai.h"

namespace pathwerk::lecture::eps::mesures {

inline constexpr double PointPostScript = 25.4 / 72;  // mm

inline bool GsInstalle() {
  return ::access("/usr/bin/gs", X_OK) == 0 || ::access("/usr/local/bin/gs", X_OK) == 0 ||
         ::access("/bin/gs", X_OK) == 0;
}

using essai::DossierEssai;

inline Lecture Lit(std::string_view texte) {
  Lecture lecture;
  LireEps(texte, OptionsLecture{}, lecture);
  return lecture;
}

// The drawing behind the header line must be read without refusal.
inline std::vector<Trait> Traits(const std::string& corps) {
  Lecture lecture = Lit("%!PS-Adobe-3.0 EPSF-3.0\n" + corps + "\n");
  EXPECT_EQ(lecture.rapport.Numero, Erreur::Aucune) << lecture.rapport.Detail << " line " << lecture.rapport.Ligne;
  return std::move(lecture.traits);
}

inline long Ignores(const Lecture& l, const std::string& genre) {
  const auto it = l.rapport.Ignores.find(genre);
  return it == l.rapport.Ignores.end() ? 0 : it->second;
}

struct Boite {
  double xmin = 1e300, xmax = -1e300, ymin = 1e300, ymax = -1e300;
};

inline Boite BoiteDe(const std::vector<Trait>& traits) {
  Boite b;
  for (const Trait& t : traits) {
    for (const Vec2 p : t.points) {
      b.xmin = std::min(b.xmin, p.x);
      b.xmax = std::max(b.xmax, p.x);
      b.ymin = std::min(b.ymin, p.y);
      b.ymax = std::max(b.ymax, p.y);
    }
  }
  return b;
}

inline double Aire(const Trait& t) {
  double a = 0;
  for (std::size_t i = 0; i < t.points.size(); ++i) {
    const Vec2 p = t.points[i];
    const Vec2 q = t.points[i + 1 < t.points.size() ? i + 1 : 0];
    a += p.x * q.y - q.x * p.y;
  }
  return a / 2;
}

// The path has exactly these points, given in points of 1/72 inch. The grid of the output is 0.0002 mm.
inline void AttendPoints(const Trait& t, const std::vector<Vec2>& points) {
  ASSERT_EQ(t.points.size(), points.size());
  for (std::size_t i = 0; i < points.size(); ++i) {
    EXPECT_NEAR(t.points[i].x, points[i].x * PointPostScript, 2e-4) << "point " << i;
    EXPECT_NEAR(t.points[i].y, points[i].y * PointPostScript, 2e-4) << "point " << i;
  }
}

}  // namespace pathwerk::lecture::eps::mesures

#define AVEC_GS() \
  if (!GsInstalle()) GTEST_SKIP() << "needs Ghostscript"
