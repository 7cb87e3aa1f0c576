#include <cmath>
#include <random>

#include "core/ReglagesCourants.h"
#include "tests/unit/toolpath/BiblioEssai.h"
#include "toolpath/Module_Decalage.h"
#include "toolpath/Module_Sequence.h"

using namespace ovelin;
using namespace essai;

namespace {

PointTrace P(float x, float y) { return {x, y, CodePD, Code2(" A")}; }

// LargeurEncoche / 2 + RayonFraise.
void Rayon(double t) {
  LargeurEncoche = 2;
  RayonFraise = t - 1;
}

std::vector<PointTrace> Ligne(const std::vector<float>& x, std::size_t marque) {
  std::vector<PointTrace> points;
  for (const float v : x) points.push_back(P(v, 0));
  points[marque].Cde = CodePC;
  return points;
}

}  // namespace

TEST(InterCercleSegment, NamesWhichOfTheTwoLiesOnTheSegment) {
  PointTrace p1, p2;
  const PointTrace c = P(0, 0);
  EXPECT_EQ(InterCercleSegment(P(-10, 0), P(10, 0), c, 3, p1, p2), 3);
  EXPECT_EQ(std::abs(p1.X), 3);
  EXPECT_EQ(p1.X, -p2.X);
  EXPECT_EQ(p1.Y, 0);
  const int unSeul = InterCercleSegment(P(0, 0), P(10, 0), c, 3, p1, p2);
  ASSERT_TRUE(unSeul == 1 || unSeul == 2);
  EXPECT_EQ((unSeul == 1 ? p1 : p2).X, 3);
  EXPECT_EQ((unSeul == 1 ? p2 : p1).X, -3);
  const int autre = InterCercleSegment(P(-10, 0), P(0, 0), c, 3, p1, p2);
  EXPECT_EQ(autre, 3 - unSeul);
}

TEST(InterCercleSegment, IsZeroBesideInsideAndBeyondTheCircle) {
  PointTrace p1, p2;
  EXPECT_EQ(InterCercleSegment(P(-10, 4), P(10, 4), P(0, 0), 3, p1, p2), 0);
  EXPECT_EQ(InterCercleSegment(P(-1, 0), P(1, 1), P(0, 0), 3, p1, p2), 0);
  EXPECT_EQ(InterCercleSegment(P(5, 0), P(9, 0), P(0, 0), 3, p1, p2), 0);
}

TEST(InterCercleSegment, GivesTheCrossingsOfTheLineAlsoOutsideTheSegment) {
  PointTrace p1, p2;
  EXPECT_EQ(InterCercleSegment(P(5, 0), P(9, 0), P(0, 0), 3, p1, p2), 0);
  EXPECT_EQ(p1.X + p2.X, 0);
  EXPECT_EQ(std::abs(p1.X), 3);
}

TEST(InterCercleSegment, LeavesThePointsAloneWhereTheLineMisses) {
  PointTrace p1 = P(77, 77), p2 = P(88, 88);
  EXPECT_EQ(InterCercleSegment(P(-10, 4), P(10, 4), P(0, 0), 3, p1, p2), 0);
  EXPECT_EQ(p1.X, 77);
  EXPECT_EQ(p2.X, 88);
}

TEST(InterCercleSegment, HasNoAnswerForASegmentWithoutLength) {
  PointTrace p1, p2;
  EXPECT_EQ(InterCercleSegment(P(3, 0), P(3, 0), P(0, 0), 3, p1, p2), 0);
}

TEST(InterCercleSegment, ToleratesAMicrometreThousandthBeyondTheEnd) {
  PointTrace p1, p2;
  // The circle crosses the line at 3; the segment ends 4e-7 short of it, then 2e-6 short.
  EXPECT_NE(InterCercleSegment(P(0, 0), P(2.9999998F, 0), P(0, 0), 3, p1, p2), 0);
  EXPECT_EQ(InterCercleSegment(P(0, 0), P(2.999998F, 0), P(0, 0), 3, p1, p2), 0);
}

TEST(PoseEncoches, OpensEntryAndExitAroundTheMark) {
  Rayon(4);
  auto points = Ligne({0, 20, 40}, 1);
  PoseEncoches(points);
  EXPECT_EQ(Lieux(points), (std::vector<std::pair<float, float>>{{0, 0}, {16, 0}, {20, 0}, {24, 0}, {40, 0}}));
  EXPECT_EQ(Marques(points), "PD PE PC PD PD");
  for (const auto& p : points) EXPECT_EQ(p.Seq, Code2(" A"));
}

TEST(PoseEncoches, MarksThePointsInsideTheNotch) {
  Rayon(4);
  auto points = Ligne({0, 10, 17, 19, 20, 22, 23, 30, 40}, 4);
  PoseEncoches(points);
  EXPECT_EQ(Marques(points), "PD PD PE PE PE PC PE PE PD PD PD");
  EXPECT_EQ(points[2].X, 16);
  EXPECT_EQ(points[8].X, 24);
}

TEST(PoseEncoches, UsesHalfTheWidthPlusTheRadius) {
  LargeurEncoche = 5;
  RayonFraise = 3;
  auto points = Ligne({0, 20, 40}, 1);
  PoseEncoches(points);
  EXPECT_EQ(points[1].X, 14.5F);
  EXPECT_EQ(points[3].X, 25.5F);
}

TEST(PoseEncoches, LeavesAMarkAtExactlyTheRadiusFromAnEndBare) {
  Rayon(4);
  auto debut = Ligne({0, 4, 40}, 1);
  const auto avant = debut;
  PoseEncoches(debut);
  EXPECT_EQ(debut, avant);
  auto fin = Ligne({0, 36, 40}, 1);
  PoseEncoches(fin);
  EXPECT_EQ(fin.size(), 3U);
  auto juste = Ligne({0, 4.001F, 40}, 1);
  PoseEncoches(juste);
  EXPECT_EQ(juste.size(), 5U);
}

TEST(PoseEncoches, OnAClosedPathWithOneMarkAddsExactlyTwoPoints) {
  Rayon(2);
  auto points = Trace(" A", {{0, 0}, {0, 20}, {10, 20}, {20, 20}, {20, 0}, {0, 0}});
  points[2].Cde = CodePC;
  PoseEncoches(points);
  EXPECT_EQ(points.size(), 8U);
  EXPECT_EQ(Marques(points), "PD PD PE PC PD PD PD PD");
}

TEST(PoseEncoches, GoesRoundACorner) {
  Rayon(5);
  auto points = Trace(" A", {{0, 0}, {0, 20}, {3, 20}, {20, 20}});
  points[2].Cde = CodePC;
  PoseEncoches(points);
  // Backward over the corner: the way comes out of the circle at (0, 16).
  EXPECT_EQ(Marques(points), "PD PE PE PC PD PD");
  EXPECT_FLOAT_EQ(points[1].X, 0);
  EXPECT_FLOAT_EQ(points[1].Y, 16);
  EXPECT_FLOAT_EQ(points[4].X, 8);
}

TEST(PoseEncoches, SwallowsASecondMarkNearerThanTheRadiusWhichStaysAMark) {
  Rayon(4);
  auto points = Ligne({0, 20, 22, 40}, 1);
  points[2].Cde = CodePC;
  PoseEncoches(points);
  EXPECT_EQ(Marques(points), "PD PE PC PC PD PD");
  EXPECT_EQ(points[1].X, 16);
  EXPECT_EQ(points[4].X, 24);
}

TEST(PoseEncoches, ReconsidersASwallowedMarkThreePlacesOn) {
  Rayon(4);
  auto points = Ligne({0, 20, 21, 22, 40}, 1);
  points[3].Cde = CodePC;
  PoseEncoches(points);
  // The second notch is opened over the first; the tool stays up from 16 to 26.
  EXPECT_EQ(Marques(points), "PD PE PE PC PE PC PE PD PD");
  EXPECT_EQ(points[1].X, 16);
  EXPECT_EQ(points[2].X, 18);
  EXPECT_EQ(points[7].X, 26);
}

TEST(PoseEncoches, OpensEachOfSeveralMarks) {
  Rayon(2);
  auto points = Ligne({0, 20, 40, 60, 80}, 1);
  points[2].Cde = points[3].Cde = CodePC;
  PoseEncoches(points);
  EXPECT_EQ(Marques(points), "PD PE PC PD PE PC PD PE PC PD PD");
}

TEST(PoseEncoches, StaysWithinItsPiece) {
  Rayon(4);
  // Two pieces end to end; the mark lies 3 from the end of its own.
  auto points = Ligne({0, 20, 23}, 1);
  for (auto p : Ligne({23, 24, 60}, 0)) {
    p.Cde = CodePD;
    p.Seq = Code2("02");
    points.push_back(p);
  }
  const auto avant = points;
  PoseEncoches(points);
  EXPECT_EQ(points, avant);
}

TEST(PoseEncoches, JudgesTheEndsPieceByPiece) {
  Rayon(4);
  // The first point of the buffer lies next to the mark, but it belongs to another piece.
  std::vector<PointTrace> points = {{20, 1, CodePD, Code2("01")}, {21, 1, CodePD, Code2("01")}};
  for (auto p : Ligne({0, 20, 40}, 1)) {
    p.Seq = Code2("02");
    points.push_back(p);
  }
  PoseEncoches(points);
  EXPECT_EQ(Marques(points), "PD PD PD PE PC PD PD");
  EXPECT_EQ(points[5].Seq, Code2("02"));
}

TEST(PoseEncoches, GivesNothingToAnEmptyBuffer) {
  std::vector<PointTrace> points;
  PoseEncoches(points);
  EXPECT_TRUE(points.empty());
}

TEST(PoseEncoches, OpensNothingWithoutAPositiveRadius) {
  LargeurEncoche = -10;
  RayonFraise = 3;
  auto points = Ligne({0, 20, 40}, 1);
  const auto avant = points;
  PoseEncoches(points);
  EXPECT_EQ(points, avant);
  LargeurEncoche = -6;
  PoseEncoches(points);
  EXPECT_EQ(points, avant);
}

TEST(PoseEncoches, EndsWithinThePieceWhenNoCoordinateIsANumber) {
  Rayon(4);
  auto points = Ligne({0, 20, 22, 25, 40}, 1);
  points[2].X = std::nanf("");
  PoseEncoches(points);
  EXPECT_EQ(points.size(), 7U);
  EXPECT_EQ(points.back().X, 40);
}

// Points at whole radii from the mark: each crossing lies at a vertex, where the rounding of 32 bits hides it from
// the test of one or both segments. Far from the origin one notch in ten would run off the trace.
TEST(PoseEncoches, MeetsTheCircleAtAVertexFarFromTheOrigin) {
  std::mt19937 hasard(7);
  for (const double loin : {0.0, 100.0, 500.0, 5000.0}) {
    for (int essai = 0; essai < 2000; ++essai) {
      const double t = 1.5 + (essai % 50) * 0.1;
      Rayon(t);
      std::uniform_real_distribution<double> angle(0, 2 * Pi);
      const double a = angle(hasard), mx = loin * std::cos(angle(hasard)), my = loin + essai * 0.01;
      std::vector<PointTrace> points;
      for (int k = -6; k <= 6; ++k) {
        points.push_back(P(static_cast<float>(mx + k * t * 0.5 * std::cos(a)),
                           static_cast<float>(my + k * t * 0.5 * std::sin(a))));
      }
      points[6].Cde = CodePC;
      const PointTrace marque = points[6];
      PoseEncoches(points);
      ASSERT_EQ(points.size(), 15U);
      std::size_t entree = 0;
      while (points[entree].Cde != CodePE) ++entree;
      std::size_t sortie = entree;
      while (points[sortie].Cde != CodePD) ++sortie;
      const double precision = 1e-3 + loin * 1e-6;
      EXPECT_NEAR(DistancePoints(points[entree], marque), t, precision) << loin << " " << essai;
      EXPECT_NEAR(DistancePoints(points[sortie], marque), t, precision) << loin << " " << essai;
      EXPECT_LE(sortie - entree, 6U);
    }
  }
}

TEST(PoseEncoches, KeepsTheReadingOrderOfANotchOnRandomPaths) {
  std::mt19937 hasard(11);
  std::uniform_real_distribution<float> pas(0.05F, 3.0F), pente(-0.6F, 0.6F);
  for (int essai = 0; essai < 300; ++essai) {
    Rayon(2.5);
    std::vector<PointTrace> points;
    float x = 100, y = 50, direction = 0;
    for (int i = 0; i < 120; ++i) {
      points.push_back(P(x, y));
      direction += pente(hasard) * 0.3F;
      const float d = pas(hasard);
      x += d * std::cos(direction);
      y += d * std::sin(direction);
    }
    points[40].Cde = CodePC;
    const std::size_t avant = points.size();
    const bool pres =
        DistancePoints(points[40], points.front()) <= 2.5 || DistancePoints(points[40], points.back()) <= 2.5;
    PoseEncoches(points);
    if (pres) continue;
    ASSERT_EQ(points.size(), avant + 2);
    // One stretch of PE with the mark in it, then the exit.
    std::string marques;
    for (const auto& p : points) {
      if (marques.empty() || marques.back() != p.Cde.Texte()[1]) marques += p.Cde.Texte()[1];
    }
    EXPECT_TRUE(marques == "DECED" || marques == "DECD") << marques;
  }
}
