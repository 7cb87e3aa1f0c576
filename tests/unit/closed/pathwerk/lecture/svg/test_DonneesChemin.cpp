// Commands of a path, in drawings where a user unit is a millimetre.
#include "closed/pathwerk/lecture/svg/DonneesChemin.h"
#include "tests/unit/closed/pathwerk/lecture/svg/Mesures.h"

namespace pathwerk::lecture::svg {
namespace {

using namespace mesures;

std::string Trace(const std::string& d) { return "<path fill='none' stroke='black' d='" + d + "'/>"; }

TEST(TraceDonnees, LinesComeInBothWays) {
  AttendPoints(Seul(Trace("M10 10L20 10H30V20")), {{10, 90}, {20, 90}, {30, 90}, {30, 80}});
  AttendPoints(Seul(Trace("m10 10l10 0h10v10")), {{10, 90}, {20, 90}, {30, 90}, {30, 80}});
}

TEST(TraceDonnees, PlacesBehindAMoveAreLines) {
  AttendPoints(Seul(Trace("M10 10 20 10 20 20")), {{10, 90}, {20, 90}, {20, 80}});
  AttendPoints(Seul(Trace("m10 10 10 0 0 10")), {{10, 90}, {20, 90}, {20, 80}});
}

TEST(TraceDonnees, AClosedSubpathGoesBackToItsStart) {
  const auto traits = Traits(Trace("M10 10h10v10zl-5 0m20 0h5"));
  ASSERT_EQ(traits.size(), 3U);
  EXPECT_EQ(traits[0].nature, Nature::Ferme);
  AttendPoints(traits[0], {{10, 90}, {20, 90}, {20, 80}});
  AttendPoints(traits[1], {{10, 90}, {5, 90}});  // from the start of the closed one
  AttendPoints(traits[2], {{25, 90}, {30, 90}});
}

// B(1/2) = (p0 + 3 p1 + 3 p2 + p3) / 8 lies on the curve.
double EcartAuPoint(const Trait& t, Vec2 p) {
  double mini = 1e9;
  for (std::size_t i = 0; i + 1 < t.points.size(); ++i) {
    const Vec2 a = t.points[i];
    const Vec2 d{t.points[i + 1].x - a.x, t.points[i + 1].y - a.y};
    const double s = std::clamp(((p.x - a.x) * d.x + (p.y - a.y) * d.y) / (d.x * d.x + d.y * d.y), 0.0, 1.0);
    mini = std::min(mini, std::hypot(p.x - a.x - s * d.x, p.y - a.y - s * d.y));
  }
  return mini;
}

TEST(TraceDonnees, CubicCurvesPassTheirMiddle) {
  const Trait t = Seul(Trace("M10 50C10 10 90 10 90 50"));
  EXPECT_LE(EcartAuPoint(t, {50, 80}), 0.01);
  AttendPoints({{t.points.front(), t.points.back()}, Nature::Ouvert, 0}, {{10, 50}, {90, 50}});
}

TEST(TraceDonnees, ASmoothCubicMirrorsTheHandleBefore) {
  // The second half mirrored: its first handle is (50, 90), its middle (70, 50 + 30) in the file.
  const Trait t = Seul(Trace("M10 50C10 10 50 10 50 50S90 90 90 50"));
  EXPECT_LE(EcartAuPoint(t, {30, 80}), 0.01);
  EXPECT_LE(EcartAuPoint(t, {70, 20}), 0.01);
  EXPECT_EQ(Seul(Trace("M10 50S90 10 90 50")).points, Seul(Trace("M10 50C10 50 90 10 90 50")).points);
}

TEST(TraceDonnees, QuadraticCurvesPassTheirMiddle) {
  EXPECT_LE(EcartAuPoint(Seul(Trace("M10 50Q50 10 90 50")), {50, 70}), 0.01);
  const Trait t = Seul(Trace("M10 50Q30 10 50 50T90 50"));
  EXPECT_LE(EcartAuPoint(t, {30, 70}), 0.01);
  EXPECT_LE(EcartAuPoint(t, {70, 30}), 0.01);
}

TEST(TraceDonnees, AHalfCircleKeepsItsRadiusAndItsSide) {
  const Trait haut = Seul(Trace("M30 50A20 20 0 0 1 70 50"));
  EXPECT_LE(EcartAuCercle(haut, {50, 50}, 20), 0.01);
  EXPECT_NEAR(EtendueDe({haut}).y1, 70, 0.01);
  EXPECT_NEAR(EtendueDe({haut}).y0, 50, 1e-6);
  EXPECT_NEAR(EtendueDe({Seul(Trace("M30 50A20 20 0 0 0 70 50"))}).y0, 30, 0.01);
}

// Ends a quarter of the circle apart: the four arcs are a quarter or three quarters of one of two circles.
TEST(TraceDonnees, TheFlagsChooseOneOfFourArcs) {
  const auto longueur = [](const Trait& t) {
    double l = 0;
    for (std::size_t i = 0; i + 1 < t.points.size(); ++i) {
      l += std::hypot(t.points[i + 1].x - t.points[i].x, t.points[i + 1].y - t.points[i].y);
    }
    return l;
  };
  const double quart = 10 * 3.14159265358979 / 2;
  struct Cas {
    const char* drapeaux;
    Vec2 centre;
    double quarts;
  };
  for (const Cas& c :
       {Cas{"0 0", {40, 40}, 1}, Cas{"0 1", {50, 50}, 1}, Cas{"1 0", {50, 50}, 3}, Cas{"1 1", {40, 40}, 3}}) {
    // From (50, 60) of the file to (40, 50): results (50, 40) and (40, 50).
    const Trait t = Seul(Trace(std::string("M50 60A10 10 0 ") + c.drapeaux + " 40 50"));
    EXPECT_LE(EcartAuCercle(t, c.centre, 10), 0.01) << c.drapeaux;
    EXPECT_NEAR(longueur(t), c.quarts * quart, 0.05) << c.drapeaux;
  }
}

TEST(TraceDonnees, FlagsMayTouchWhatFollows) {
  EXPECT_EQ(Seul(Trace("M30 50a20 20 0 0140 0")).points, Seul(Trace("M30 50A20 20 0 0 1 70 50")).points);
}

TEST(TraceDonnees, RadiiTooSmallForTheEndsGrow) {
  EXPECT_LE(EcartAuCercle(Seul(Trace("M30 50A1 1 0 0 1 70 50")), {50, 50}, 20), 0.01);
}

TEST(TraceDonnees, AnArcWithoutRadiusIsALineAndOneWithoutWayIsNothing) {
  AttendPoints(Seul(Trace("M30 50A0 9 0 0 1 70 50")), {{30, 50}, {70, 50}});
  AttendPoints(Seul(Trace("M30 50A9 9 0 0 1 30 50L70 50")), {{30, 50}, {70, 50}});
}

// Half axes 20 and 10, turned by 90 degrees: 10 wide, 20 high.
TEST(TraceDonnees, ATurnedEllipseStandsUpright) {
  const Trait t = Seul(Trace("M40 50A20 10 90 0 1 60 50"));
  EXPECT_NEAR(EtendueDe({t}).y1, 70, 0.01);
  EXPECT_NEAR(EtendueDe({t}).x1 - EtendueDe({t}).x0, 20, 0.01);
}

TEST(TraceDonnees, AFaultEndsThePathAndKeepsWhatStandsBefore) {
  for (const char* fin : {"L", "Lx", "X5 5", "C1 2 3", "L5"}) {
    const std::string corps = Trace(std::string("M10 10H20") + fin);
    AttendPoints(Seul(corps), {{10, 90}, {20, 90}});
    EXPECT_EQ(Ignores(corps, "ROW"), 1) << fin;
  }
  EXPECT_TRUE(Traits(Trace("L10 10 20 20")).empty());
}

TEST(TraceDonnees, ACurveHoldsItsToleranceWhateverTheScalesOnItsWay) {
  const Trait t = Seul("<g transform='scale(0.01)'><g transform='scale(100)'>" + Trace("M30 50A20 20 0 0 1 70 50") +
                       "</g></g>");
  EXPECT_LE(EcartAuCercle(t, {50, 50}, 20), 0.01);
  // The same circle drawn in units of a hundredth.
  const Trait petit = Seul("<g transform='scale(100)'>" + Trace("M.3 .5A.2 .2 0 0 1 .7 .5") + "</g>");
  EXPECT_LE(EcartAuCercle(petit, {50, 50}, 20), 0.01);
}

}  // namespace
}  // namespace pathwerk::lecture::svg
