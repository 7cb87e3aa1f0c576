// What the tests of pockets hold a fill against.
#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <string>
#include <vector>

#include "tests/unit/closed/pathwerk/controle/Couverture.h"

namespace controle {

inline constexpr double Tolerance = 0.01;  // mm
inline constexpr int Recouvrements[] = {0, 10, 25, 40, 50, 60, 75, 90, 99};

// The failing case, ready to paste.
inline std::string Cas(const Trace& contour, const std::vector<Trace>& ilots, double rayon, int recouvrement) {
  std::string s =
      "R " + std::to_string(rayon) + ", overlap " + std::to_string(recouvrement) + "\n" + Texte(contour);
  for (const Trace& i : ilots) s += "\nisland " + Texte(i);
  return s;
}

// Nothing that the cutter could reach stands, and nothing else is cut.
inline void Juge(const Trace& contour, const std::vector<Trace>& ilots, const Trace& chemin, double rayon,
                 int recouvrement) {
  const Couverture c = MesureCouverture(contour, ilots, chemin, std::abs(rayon));
  EXPECT_GT(c.cellules, 0) << Cas(contour, ilots, rayon, recouvrement);
  EXPECT_LE(c.debout, Tolerance) << Cas(contour, ilots, rayon, recouvrement);
  EXPECT_LE(c.entaille, Tolerance) << Cas(contour, ilots, rayon, recouvrement);
}

// A star of so many points.
inline Forme EtoileA(int branches, double dehors, double dedans) {
  Forme f;
  for (int i = 0; i < 2 * branches; ++i) {
    const double a = std::numbers::pi * i / branches;
    const double r = i % 2 == 0 ? dehors : dedans;
    f.push_back({r * std::cos(a), r * std::sin(a)});
  }
  return f;
}

}  // namespace controle
