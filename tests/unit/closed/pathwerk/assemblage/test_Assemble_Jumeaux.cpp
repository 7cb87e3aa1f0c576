// Paths that are drawn twice, a little beside each other.
#include <algorithm>

#include "tests/unit/closed/pathwerk/Aide.h"

using namespace aide;

namespace {

Trait Deplace(Trait t, double dx, double dy) {
  for (Vec2& p : t.points) p = {p.x + dx, p.y + dy};
  return t;
}
Trait Retourne(Trait t) {
  std::reverse(t.points.begin(), t.points.end());
  return t;
}
Trait Tourne(Trait t, std::ptrdiff_t depart) {
  std::rotate(t.points.begin(), t.points.begin() + depart, t.points.end());
  return t;
}
// The same path with points in the middle of all its edges.
Trait Coupe(const Trait& t) {
  Trait c{{}, t.nature};
  const std::size_t n = t.points.size();
  for (std::size_t i = 0; i < n; ++i) {
    const Vec2 a = t.points[i];
    const Vec2 b = t.points[(i + 1) % n];
    c.points.push_back(a);
    if (i + 1 < n || t.nature == Nature::Ferme) c.points.push_back({(a.x + b.x) / 2, (a.y + b.y) / 2});
  }
  return c;
}
const Trait TraitLigne = Ouvert({{0, 0}, {30, 10}, {60, 0}});

}  // namespace

TEST(AssembleJumeaux, AContourDrawnTwiceALittleBesideItselfStaysOne) {
  const Trait contour = Carre(0, 0, 50);
  for (const Trait& autre : {Deplace(contour, 0.0003, 0.0004), Retourne(Deplace(contour, -0.0006, 0)),
                             Tourne(Deplace(contour, 0, 0.0002), 2), Coupe(Deplace(contour, 0.0003, 0)),
                             Tourne(Coupe(Retourne(Deplace(contour, 0.0003, 0.0002))), 3)}) {
    const auto a = Assemble({contour, autre});
    ASSERT_EQ(a.sequences.size(), 1U);
    EXPECT_EQ(a.Ignores("DUPLICATE"), 1);
    for (const Vec2 p : contour.points) {
      EXPECT_EQ(std::count(a.sequences[0].begin(), a.sequences[0].end(), p) > 0, true) << "the first one stays";
    }
  }
}

TEST(AssembleJumeaux, ATwinIsNoLevelOfNesting) {
  // Outline, its twin, a hole, its twin: clockwise outside, counter-clockwise inside.
  const auto a = Assemble(
      {Carre(0, 0, 50), Carre(0.0003, 0.0003, 49.9994), Cercle({25, 25}, 10, 80), Cercle({25, 25}, 10.0004, 80)});
  ASSERT_EQ(a.sequences.size(), 2U);
  EXPECT_GT(Aire(a.sequences[0]), 0);
  EXPECT_LT(Aire(a.sequences[1]), 0);
}

TEST(AssembleJumeaux, ContoursWithOtherPointsOnTheSameLineAreOne) {
  // 360 and 500 chords of one circle of 20 mm lie within 0.0008 mm of each other (the sagitta of the coarser).
  const auto a = Assemble({Cercle({0, 0}, 20, 360), Cercle({0, 0}, 20, 500)});
  EXPECT_EQ(a.sequences.size(), 1U);
  EXPECT_EQ(a.sequences[0].size(), 361U);
}

TEST(AssembleJumeaux, ContoursFiveHundredthsApartAreTwo) {
  EXPECT_EQ(Assemble({Carre(0, 0, 50), Carre(0.05, 0.05, 49.9)}).sequences.size(), 2U);
  EXPECT_EQ(Assemble({Carre(0, 0, 50), Deplace(Carre(0, 0, 50), 0.05, 0)}).sequences.size(), 2U);
}

TEST(AssembleJumeaux, TheLimitIsAHundredthOrTheWeldToleranceIfThatIsLess) {
  const auto nombre = [](double ecart, double tolerance) {
    return Assemble({Carre(0, 0, 50), Deplace(Carre(0, 0, 50), ecart, 0)}, tolerance).sequences.size();
  };
  EXPECT_EQ(nombre(0.0099, 0.01), 1U);
  EXPECT_EQ(nombre(0.0101, 0.01), 2U);
  EXPECT_EQ(nombre(0.0101, 0.5), 2U);
  EXPECT_EQ(nombre(0.0009, 0.001), 1U);
  EXPECT_EQ(nombre(0.0011, 0.001), 2U);
  EXPECT_EQ(nombre(0.0001, 0), 2U);
}

TEST(AssembleJumeaux, OneFarPlaceMakesThemTwo) {
  // A tooth of 0.05 mm, 0.02 mm wide, between two points of a long edge: of either one.
  const Trait dent = Ferme({{0, 0}, {20, 0}, {20.01, -0.05}, {20.02, 0}, {50, 0}, {50, 50}, {0, 50}});
  EXPECT_EQ(Assemble({Carre(0, 0, 50), dent}).sequences.size(), 2U);
  EXPECT_EQ(Assemble({dent, Carre(0, 0, 50)}).sequences.size(), 2U);
  // Inside, so that the boxes are the same.
  const Trait creux = Ferme({{0, 0}, {20, 0}, {20.01, 0.05}, {20.02, 0}, {50, 0}, {50, 50}, {0, 50}});
  EXPECT_EQ(Assemble({Carre(0, 0, 50), creux}).sequences.size(), 2U);
  EXPECT_EQ(Assemble({creux, Carre(0, 0, 50)}).sequences.size(), 2U);
}

TEST(AssembleJumeaux, TheSameBoxMakesNoTwins) {
  // Both diagonals of a square, and two polygons inscribed in it.
  EXPECT_EQ(Assemble({Ouvert({{0, 0}, {50, 50}}), Ouvert({{0, 50}, {50, 0}})}).sequences.size(), 2U);
  EXPECT_EQ(Assemble({Ferme({{0, 10}, {10, 0}, {50, 40}, {40, 50}}), Ferme({{40, 0}, {50, 10}, {10, 50}, {0, 40}})})
                .sequences.size(),
            2U);
}

TEST(AssembleJumeaux, OpenPathsDrawnTwiceStayOne) {
  for (const Trait& autre : {Deplace(TraitLigne, 0.0005, 0.0005), Retourne(Deplace(TraitLigne, 0.0005, 0)),
                             Coupe(Deplace(TraitLigne, 0, -0.0005))}) {
    const auto a = Assemble({TraitLigne, autre});
    ASSERT_EQ(a.sequences.size(), 1U);
    EXPECT_EQ(a.n, 3);
    EXPECT_EQ(a.Ignores("DUPLICATE"), 1);
  }
}

TEST(AssembleJumeaux, ALineAlongAPartOfAnotherIsNone) {
  EXPECT_EQ(Assemble({TraitLigne, Ouvert({{0, 0.0003}, {29, 29.0 / 3 + 0.0003}})}).Ignores("DUPLICATE"), 0);
  EXPECT_EQ(Assemble({Carre(0, 0, 50), Ouvert({{10, 0.0003}, {40, 0.0003}})}).sequences.size(), 2U);
  // A whole turn along the contour, but open.
  EXPECT_EQ(Assemble({Carre(0, 0, 50), Ouvert({{0, 0.5}, {0, 50}, {50, 50}, {50, 0}, {0.5, 0}})}).sequences.size(),
            2U);
}

TEST(AssembleJumeaux, LooseLinesDrawnTwiceBecomeOneContour) {
  std::vector<Trait> lignes = EnSegments(Carre(0, 0, 50));
  for (const Trait& t : EnSegments(Deplace(Carre(0, 0, 50), 0.0003, 0.0002))) lignes.push_back(t);
  const auto a = Assemble(lignes);
  ASSERT_EQ(a.sequences.size(), 1U);
  EXPECT_TRUE(EstFerme(a.sequences[0]));
  EXPECT_EQ(a.Ignores("DUPLICATE"), 4);
  EXPECT_EQ(Aire(a.sequences[0]), -2500);
}

TEST(AssembleJumeaux, ContoursOfOtherPiecesAreComparedBehindTheWelding) {
  std::vector<Trait> lignes = EnSegments(Coupe(Deplace(Carre(0, 0, 50), 0.0003, 0.0002)));
  lignes.insert(lignes.begin(), Carre(0, 0, 50));
  const auto a = Assemble(lignes);
  ASSERT_EQ(a.sequences.size(), 1U);
  EXPECT_EQ(a.sequences[0].size(), 5U);
  EXPECT_EQ(a.Ignores("DUPLICATE"), 1);
}

TEST(AssembleJumeaux, APathOfTinyPiecesLosesNone) {
  // A quarter of a circle of 1 mm in steps of 0.004 mm.
  std::vector<Trait> pas;
  const int n = 393;
  const auto place = [&](int i) {
    const double a = std::numbers::pi / 2 * i / n;
    return Vec2{std::cos(a), std::sin(a)};
  };
  for (int i = 0; i < n; ++i) pas.push_back(Ouvert({place(i), place(i + 1)}));
  const auto a = Assemble(pas);
  ASSERT_EQ(a.sequences.size(), 1U);
  EXPECT_EQ(a.n, n + 1);
  EXPECT_EQ(a.Ignores("DUPLICATE"), 0);
}

TEST(AssembleJumeaux, HolesAHundredthApartAreDrilledOnce) {
  EXPECT_EQ(Assemble({Percage({5, 5}), Percage({5.003, 5.004})}).sequences.size(), 1U);
  EXPECT_EQ(Assemble({Percage({5, 5}), Percage({5.02, 5})}).sequences.size(), 2U);
  EXPECT_EQ(Assemble({Percage({5, 5})}).sequences.at(0), (std::vector<Vec2>{{5, 5}, {5, 5}}));
}

TEST(AssembleJumeaux, TheFirstOfThreeStaysAndTheOthersAreCounted) {
  const auto a =
      Assemble({Carre(0, 0, 50), Deplace(Carre(0, 0, 50), 0.004, 0), Deplace(Carre(0, 0, 50), -0.004, 0)});
  ASSERT_EQ(a.sequences.size(), 1U);
  EXPECT_EQ(a.Ignores("DUPLICATE"), 2);
  EXPECT_EQ(a.sequences[0][0], (Vec2{0, 0}));
  // Each is measured against the one that stays: the third lies 0.016 mm from it.
  const auto b =
      Assemble({Carre(0, 0, 50), Deplace(Carre(0, 0, 50), 0.008, 0), Deplace(Carre(0, 0, 50), 0.016, 0)});
  EXPECT_EQ(b.sequences.size(), 2U);
}

TEST(AssembleJumeaux, CoordinateFilesHaveNoMillimetres) {
  Lecture l;
  l.mesure = false;
  l.traits = {Carre(0, 0, 1), Deplace(Carre(0, 0, 1), 0.002, 0)};
  EXPECT_EQ(Assemble(l).sequences.size(), 2U);
}

TEST(AssembleJumeaux, AScribbleDrawnTwiceIsReadQuietly) {
  // 40,000 edges crossing each other within a millimetre, and the same a little beside.
  Trait gribouillis{{}, Nature::Ouvert};
  for (unsigned i = 0; i < 40000; ++i)
    gribouillis.points.push_back({(i * 7919) % 1000 / 1000.0, (i * 104729) % 997 / 997.0});
  const auto a = Assemble({gribouillis, Deplace(gribouillis, 0.0005, 0)});
  EXPECT_LE(a.sequences.size(), 2U);
  EXPECT_GE(a.n, 39000);
}

TEST(AssembleJumeaux, OffTheAxesTheDistanceIsTheSame) {
  // A long thin shape along 27 degrees; moved along its normal by 0.009 and by 0.012 mm, with other points on its
  // edges.
  const double a = 27 * std::numbers::pi / 180;
  const auto tourne = [&](double x, double y) {
    return Vec2{x * std::cos(a) - y * std::sin(a), x * std::sin(a) + y * std::cos(a)};
  };
  const Trait forme = Ferme({tourne(0, 0), tourne(80, 0), tourne(80, 9), tourne(0, 9)});
  const Vec2 n = tourne(0, 1);
  EXPECT_EQ(Assemble({forme, Coupe(Deplace(forme, 0.009 * n.x, 0.009 * n.y))}).sequences.size(), 1U);
  EXPECT_EQ(Assemble({Coupe(forme), Deplace(forme, -0.009 * n.x, -0.009 * n.y)}).sequences.size(), 1U);
  EXPECT_EQ(Assemble({forme, Coupe(Deplace(forme, 0.0102 * n.x, 0.0102 * n.y))}).sequences.size(), 2U);
  const Trait ligne = Ouvert({tourne(0, 0), tourne(80, 0)});
  EXPECT_EQ(
      Assemble({ligne, Ouvert({tourne(0, 0.009), tourne(33, -0.009), tourne(80, 0.009)})}).Ignores("DUPLICATE"), 1);
  EXPECT_EQ(
      Assemble({ligne, Ouvert({tourne(0, 0.009), tourne(33, -0.011), tourne(80, 0.009)})}).Ignores("DUPLICATE"), 0);
}

TEST(AssembleJumeaux, HolesAreMeasuredRound) {
  EXPECT_EQ(Assemble({Percage({5, 5}), Percage({5.009, 5.009})}).sequences.size(), 2U);
  EXPECT_EQ(Assemble({Percage({5, 5}), Percage({5.007, 5.007})}).sequences.size(), 1U);
}

TEST(AssembleJumeaux, WhereADrawingLiesMakesNoDifference) {
  for (const double loin : {-400.0, 0.0, 700.0}) {
    const Trait contour = Deplace(Carre(0, 0, 50), loin, 2 * loin);
    const auto un = Assemble({contour, Coupe(Tourne(Deplace(contour, 0.0003, 0.0004), 1))});
    EXPECT_EQ(un.sequences.size(), 1U) << loin;
    const auto deux = Assemble({contour, Deplace(contour, 0.05, 0)});
    EXPECT_EQ(deux.sequences.size(), 2U) << loin;
  }
}
