// Smoothing of one path.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "tests/unit/closed/pathwerk/controle/Controle.h"

using namespace controle;
using pathwerk::Code2;
using pathwerk::CodePC;
using pathwerk::CodePD;
using pathwerk::LissageSequence;
using pathwerk::PointTrace;

namespace {

Trace Lisse(Trace t) {
  LissageSequence(t);
  return t;
}

// Greatest turn between neighbouring segments, degrees; over the seam too when closed.
double TourMax(const Trace& t) {
  double pire = 0;
  const std::size_t n = t.size();
  const bool ferme = EstFermee(t);
  for (std::size_t i = ferme ? 0 : 1; i + 1 < n; ++i) {
    const PointTrace& a = i == 0 ? t[n - 2] : t[i - 1];
    const double ux = static_cast<double>(t[i].X - a.X), uy = static_cast<double>(t[i].Y - a.Y);
    const double vx = static_cast<double>(t[i + 1].X - t[i].X), vy = static_cast<double>(t[i + 1].Y - t[i].Y);
    pire = std::max(pire, std::abs(std::atan2(ux * vy - uy * vx, ux * vx + uy * vy)));
  }
  return pire * 180 / 3.14159265358979;
}

}  // namespace

TEST(LissageSequence, PolygonOfACircleComesNearerToTheCircle) {
  const Trace t = EnTrace(Cercle(20, 16), true);
  const Trace l = Lisse(t);
  EXPECT_GT(l.size(), t.size());
  for (const PointTrace& p : l)
    EXPECT_NEAR(std::hypot(static_cast<double>(p.X), static_cast<double>(p.Y)), 20, 0.03);
  EXPECT_NEAR(Aire(l), 3.14159265 * 400, 2.5);
}

TEST(LissageSequence, TurnsBecomeBlunterAcrossTheSeamToo) {
  const Trace t = EnTrace(Cercle(20, 12), true);
  const Trace l = Lisse(t);
  EXPECT_TRUE(EstFermee(l));
  EXPECT_NEAR(TourMax(t), 30, 0.01);
  EXPECT_LT(TourMax(l), 16);
}

TEST(LissageSequence, GivenPointsStayWhereTheyAreInTheirOrder) {
  const Trace t = EnTrace(Onde(30, 60, 6, 2), false);
  const Trace l = Lisse(t);
  std::size_t k = 0;
  for (const PointTrace& p : l) {
    if (k < t.size() && pathwerk::MemePlace(p, t[k])) ++k;
  }
  EXPECT_EQ(k, t.size());
}

TEST(LissageSequence, EndsOfAnOpenPathAreFixed) {
  const Trace t = EnTrace(Onde(30, 60, 6, 2), false);
  const Trace l = Lisse(t);
  EXPECT_TRUE(pathwerk::MemePlace(l.front(), t.front()));
  EXPECT_TRUE(pathwerk::MemePlace(l.back(), t.back()));
}

TEST(LissageSequence, SharpCornersAndStraightSidesStayAsTheyAre) {
  const Trace t = EnTrace(Carre(0, 0, 30), true);
  EXPECT_EQ(Lisse(t), t);
}

TEST(LissageSequence, StraightSidesBetweenRoundCornersStayStraight) {
  Forme f;
  for (int c = 0; c < 4; ++c) {
    const double mx = c == 0 || c == 3 ? 50 : -50, my = c < 2 ? 50 : -50;
    for (int i = 0; i <= 6; ++i) {
      const double a = (c * 90 + i * 15) * 3.14159265358979 / 180;
      f.push_back({mx + 5 * std::cos(a), my + 5 * std::sin(a)});
    }
  }
  const Boite b = BoiteDe(Lisse(EnTrace(f, true)));
  EXPECT_NEAR(b.x0, -55, 0.002);
  EXPECT_NEAR(b.x1, 55, 0.002);
  EXPECT_NEAR(b.y0, -55, 0.002);
  EXPECT_NEAR(b.y1, 55, 0.002);
}

TEST(LissageSequence, MarksAndCodesAreKept) {
  Trace t = EnTrace(Cercle(20, 16), true);
  t[5].Cde = CodePC;
  const Trace l = Lisse(t);
  long marques = 0;
  for (const PointTrace& p : l) {
    EXPECT_EQ(p.Seq, Code2(" A"));
    if (p.Cde == CodePC) {
      ++marques;
      EXPECT_TRUE(pathwerk::MemePlace(p, t[5]));
    } else {
      EXPECT_EQ(p.Cde, CodePD);
    }
  }
  EXPECT_EQ(marques, 1);
}

TEST(LissageSequence, TwoPointsHolesAndRepeatsAreLeftAlone) {
  for (const Trace& t : {Trace{}, EnTrace({{1, 2}}, false), EnTrace({{1, 2}, {5, 6}}, false),
                         EnTrace({{1, 2}, {1, 2}}, false), EnTrace({{1, 2}, {1, 2}, {1, 2}}, false),
                         EnTrace({{1, 2}, {5, 6}}, true), EnTrace({{1, 1}, {2, 1}, {2, 1}, {3, 1}}, false)}) {
    EXPECT_EQ(Lisse(t), t);
  }
}

TEST(LissageSequence, RepeatedSmoothingConverges) {
  Trace t = EnTrace(Cercle(20, 10), true);
  for (int i = 0; i < 12; ++i) {
    const Trace l = Lisse(t);
    ASSERT_GE(l.size(), t.size());
    ASSERT_LE(l.size(), 4 * t.size());
    t = l;
  }
  EXPECT_LT(t.size(), 600U);
  const Boite b = BoiteDe(t);
  EXPECT_NEAR(b.x1, 20, 0.3);
  EXPECT_NEAR(b.y0, -20, 0.4);
}

TEST(LissageSequence, NewPointsStayNearTheirSegment) {
  for (unsigned g = 0; g < 20; ++g) {
    for (const bool ferme : {true, false}) {
      const Trace t = EnTrace(ferme ? Etoile(g) : MarcheOuverte(g, 200), ferme);
      const Trace l = Lisse(t);
      ASSERT_GE(l.size(), t.size());
      ASSERT_LE(l.size(), 4 * t.size());
      EXPECT_EQ(EstFermee(l), EstFermee(t));
      double cote = 0;
      for (std::size_t i = 0; i + 1 < t.size(); ++i) cote = std::max(cote, Longueur({t[i], t[i + 1]}));
      for (const PointTrace& p : l) {
        // |T1 - T2| L / 8 with turns of 50 degrees at most on both ends.
        EXPECT_LE(Distance(t, {static_cast<double>(p.X), static_cast<double>(p.Y)}), 0.2 * cote);
      }
    }
  }
}

TEST(LissageSequence, CoordinatesThatAreNoNumbersLeaveThePathAlone) {
  Trace t = EnTrace(Cercle(20, 16), true);
  t[3].Y = std::numeric_limits<float>::quiet_NaN();
  LissageSequence(t);
  EXPECT_EQ(t.size(), 17U);
}
