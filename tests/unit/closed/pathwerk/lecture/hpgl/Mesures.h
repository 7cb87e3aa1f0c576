// What the tests of the plot reader measure on its result.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <string_view>

#include "closed/pathwerk/lecture/Lecture.h"
#include "closed/pathwerk/lecture/hpgl/Hpgl.h"

namespace pathwerk::lecture::hpgl::mesures {

inline Lecture Lit(std::string_view texte, double fleche = 0.01) {
  Lecture lecture;
  OptionsLecture options;
  options.Fleche = fleche;
  LireHpgl(texte, options, lecture);
  return lecture;
}

// The plot must be read without refusal.
inline std::vector<Trait> Traits(std::string_view texte, double fleche = 0.01) {
  Lecture lecture = Lit(texte, fleche);
  EXPECT_EQ(lecture.rapport.Numero, Erreur::Aucune) << texte.substr(0, 80);
  return std::move(lecture.traits);
}

inline long Ignores(const Lecture& l, const std::string& genre) {
  const auto it = l.rapport.Ignores.find(genre);
  return it == l.rapport.Ignores.end() ? 0 : it->second;
}

struct Boite {
  double xmin = 1e300, xmax = -1e300, ymin = 1e300, ymax = -1e300;
  [[nodiscard]] double Large() const { return xmax - xmin; }
  [[nodiscard]] double Haute() const { return ymax - ymin; }
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

// Length of a path, the closing side of a contour included.
inline double Longueur(const Trait& t) {
  double l = 0;
  for (std::size_t i = 1; i < t.points.size(); ++i) {
    l += std::hypot(t.points[i].x - t.points[i - 1].x, t.points[i].y - t.points[i - 1].y);
  }
  if (t.nature == Nature::Ferme && !t.points.empty()) {
    l += std::hypot(t.points.back().x - t.points.front().x, t.points.back().y - t.points.front().y);
  }
  return l;
}

// Area inside a contour, positive counter-clockwise.
inline double Aire(const Trait& t) {
  double a = 0;
  for (std::size_t i = 0; i < t.points.size(); ++i) {
    const Vec2 p = t.points[i];
    const Vec2 q = t.points[i + 1 < t.points.size() ? i + 1 : 0];
    a += p.x * q.y - q.x * p.y;
  }
  return a / 2;
}

// The path has exactly these points, given in plotter units (40 to the millimetre).
inline void AttendUnites(const Trait& t, const std::vector<Vec2>& unites, double ecart = 1e-9) {
  ASSERT_EQ(t.points.size(), unites.size());
  for (std::size_t i = 0; i < unites.size(); ++i) {
    EXPECT_NEAR(t.points[i].x, unites[i].x / 40, ecart) << "point " << i;
    EXPECT_NEAR(t.points[i].y, unites[i].y / 40, ecart) << "point " << i;
  }
}

// Every point lies on the circle, and no chord leaves it by more than `fleche`.
inline void AttendSurCercle(const Trait& t, Vec2 centre, double rayon, double fleche) {
  for (std::size_t i = 0; i < t.points.size(); ++i) {
    const Vec2 p = t.points[i];
    EXPECT_NEAR(std::hypot(p.x - centre.x, p.y - centre.y), rayon, 1e-9);
    if (i == 0 && t.nature != Nature::Ferme) continue;
    const Vec2 q = t.points[i == 0 ? t.points.size() - 1 : i - 1];
    const double milieu = std::hypot((p.x + q.x) / 2 - centre.x, (p.y + q.y) / 2 - centre.y);
    EXPECT_LE(rayon - milieu, fleche + 1e-9) << "chord " << i;
  }
}

}  // namespace pathwerk::lecture::hpgl::mesures
