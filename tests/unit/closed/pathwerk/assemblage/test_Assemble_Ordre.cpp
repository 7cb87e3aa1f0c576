// Direction by nesting, order, codes, refusals.
#include <algorithm>
#include <limits>

#include "tests/unit/closed/pathwerk/Aide.h"

using namespace aide;
using pathwerk::Erreur;

namespace {
// The sequence whose first point is `p`.
std::size_t Rang(const Assemblage& a, Vec2 p) {
  for (std::size_t i = 0; i < a.sequences.size(); ++i) {
    if (a.sequences[i].front() == p) return i;
  }
  return static_cast<std::size_t>(-1);
}
bool Horaire(const Assemblage& a, Vec2 p) { return Aire(a.sequences.at(Rang(a, p))) < 0; }
}  // namespace

TEST(AssembleSens, OutermostClockwiseThenEachLevelTheOtherWay) {
  const auto a = Assemble({Carre(0, 0, 100), Carre(10, 10, 80), Carre(20, 20, 60), Carre(30, 30, 40)});
  ASSERT_EQ(a.sequences.size(), 4U);
  EXPECT_TRUE(Horaire(a, {0, 0}));
  EXPECT_FALSE(Horaire(a, {10, 10}));
  EXPECT_TRUE(Horaire(a, {20, 20}));
  EXPECT_FALSE(Horaire(a, {30, 30}));
}

TEST(AssembleSens, ATurnedContourKeepsItsStart) {
  const auto a = Assemble({Ferme({{5, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 0}})});
  EXPECT_EQ(a.sequences[0], (std::vector<Vec2>{{5, 0}, {0, 0}, {0, 10}, {10, 10}, {10, 0}, {5, 0}}));
}

TEST(AssembleSens, OpenPathsKeepTheirDirection) {
  const auto a = Assemble({Carre(0, 0, 100), Ouvert({{20, 20}, {30, 20}, {30, 40}}), Ouvert({{200, 0}, {150, 5}})});
  EXPECT_EQ(a.sequences[Rang(a, {20, 20})].back(), (Vec2{30, 40}));
  EXPECT_EQ(a.sequences[Rang(a, {200, 0})].back(), (Vec2{150, 5}));
}

TEST(AssembleSens, ContoursSideBySideAreBothOutermost) {
  // The second one touches the first along an edge, the third at a corner, the fourth overlaps it.
  const auto a = Assemble({Carre(0, 0, 10), Carre(10, 0, 10), Carre(20, 10, 10), Carre(25, 15, 10)});
  for (const auto& s : a.sequences) EXPECT_LT(Aire(s), 0);
}

TEST(AssembleSens, AHoleThatTouchesItsPartFromInsideIsAHole) {
  // Sharing an edge, a corner, and sticking out by less than the tolerance.
  const auto a = Assemble({Carre(0, 0, 100), Carre(0, 40, 10), Carre(90, 90, 10), Carre(50, -0.005, 10)});
  EXPECT_TRUE(Horaire(a, {0, 0}));
  EXPECT_FALSE(Horaire(a, {0, 40}));
  EXPECT_FALSE(Horaire(a, {90, 90}));
  EXPECT_FALSE(Horaire(a, {50, static_cast<double>(-0.005F)}));
}

TEST(AssembleSens, ADiamondWithTheBoxOfItsSquareLiesInIt) {
  const auto a = Assemble({Ferme({{50, 0}, {100, 50}, {50, 100}, {0, 50}}), Carre(0, 0, 100)});
  EXPECT_TRUE(Horaire(a, {0, 0}));
  EXPECT_FALSE(Horaire(a, {50, 0}));
  EXPECT_EQ(Rang(a, {50, 0}), 0U);
}

TEST(AssembleSens, InTheNotchOfAnotherIsOutside) {
  const Trait u = Ferme({{0, 0}, {100, 0}, {100, 100}, {80, 100}, {80, 20}, {20, 20}, {20, 100}, {0, 100}});
  const auto a = Assemble({u, Carre(40, 40, 20), Carre(85, 50, 10)});
  EXPECT_TRUE(Horaire(a, {40, 40}));   // between the arms
  EXPECT_FALSE(Horaire(a, {85, 50}));  // in one arm
}

TEST(AssembleSens, AContourThatCrossesTheEdgeGoesWhereMostOfItLies) {
  const Trait u = Ferme({{0, 0}, {100, 0}, {100, 100}, {60, 100}, {60, 40}, {40, 40}, {40, 100}, {0, 100}});
  const auto a = Assemble(
      {u, Ferme({{10, 60}, {43, 60}, {43, 80}, {10, 80}}), Ferme({{38, 60}, {58, 60}, {58, 80}, {38, 80}})});
  EXPECT_FALSE(Horaire(a, {10, 60}));
  EXPECT_TRUE(Horaire(a, {38, 60}));
}

TEST(AssembleSens, SelfCrossingContourIsStillAContainer) {
  // A bow: two lobes; the small square lies in the greater one.
  const auto a = Assemble({Ferme({{0, 0}, {60, 60}, {60, 0}, {0, 30}}), Carre(52, 20, 4)});
  EXPECT_EQ(Rang(a, {52, 20}), 0U);
  EXPECT_GT(Aire(a.sequences[0]), 0);
}

TEST(AssembleSens, ManyPointsOnOneLevelLineDoNotMatter) {
  // Stairs: each level line through vertices and along edges.
  std::vector<Vec2> p;
  for (int i = 0; i < 50; ++i) {
    p.push_back({static_cast<double>(i), static_cast<double>(i)});
    p.push_back({static_cast<double>(i + 1), static_cast<double>(i)});
  }
  p.push_back({50, 50});
  p.push_back({0, 50});
  const auto a = Assemble({Ferme(p), Carre(5, 30, 5), Carre(30, 5, 5)});
  EXPECT_FALSE(Horaire(a, {5, 30}));
  EXPECT_TRUE(Horaire(a, {30, 5}));
}

TEST(AssembleSens, LargeContoursAreTestedThroughTheirTree) {
  const auto a = Assemble({Cercle({0, 0}, 100, 20000), Cercle({0, 0}, 99, 20000), Cercle({98.5, 0}, 0.3, 40),
                           Cercle({99.5, 0}, 0.3, 40), Cercle({70.8, 70.8}, 0.05, 40)});
  ASSERT_EQ(a.sequences.size(), 5U);
  const auto aire = [&](double r) {
    for (const auto& s : a.sequences) {
      const double v = Aire(s);
      if (std::fabs(std::fabs(v) - std::numbers::pi * r * r) < 0.02 * r * r) return v;
    }
    return 0.0;
  };
  EXPECT_LT(aire(100), 0);
  EXPECT_GT(aire(99), 0);
  EXPECT_LT(aire(0.05), 0);  // outside both, in the corner of their boxes
  // Of the two of radius 0.3 one lies two deep, the other in the ring.
  for (const auto& s : a.sequences) {
    if (std::fabs(Aire(s)) < 0.2 || std::fabs(Aire(s)) > 0.4) continue;
    EXPECT_EQ(Aire(s) < 0, s.front().x < 99) << s.front().x;
  }
}

TEST(AssembleOrdre, ContainedBeforeContainerOtherwiseTheFilesOrder) {
  const auto a = Assemble({Carre(0, 0, 50), Carre(100, 0, 50), Carre(10, 10, 10), Percage({30, 30}),
                           Ouvert({{110, 10}, {120, 10}}), Carre(12, 12, 5), Carre(200, 0, 5)});
  std::vector<Vec2> debuts;
  for (const auto& s : a.sequences) debuts.push_back(s.front());
  EXPECT_EQ(debuts, (std::vector<Vec2>{{12, 12}, {10, 10}, {30, 30}, {0, 0}, {110, 10}, {100, 0}, {200, 0}}));
}

TEST(AssembleOrdre, AnOpenPathThatLeavesAContourIsNotInIt) {
  const auto a = Assemble({Carre(0, 0, 50), Ouvert({{10, 10}, {60, 10}})});
  EXPECT_EQ(a.sequences[0].front(), (Vec2{0, 0}));
}

TEST(AssembleOrdre, DeepNestingComesInnermostFirst) {
  std::vector<Trait> s;
  for (int i = 0; i < 3000; ++i) s.push_back(Carre(i * 0.1, i * 0.1, 700 - i * 0.2));
  const auto a = Assemble(s);
  ASSERT_EQ(a.sequences.size(), 3000U);
  for (std::size_t i = 0; i < 3000; ++i) {
    const double aire = Aire(a.sequences[i]);
    EXPECT_EQ(aire < 0, (2999 - i) % 2 == 0);
    if (i > 0) {
      EXPECT_GT(std::fabs(aire), std::fabs(Aire(a.sequences[i - 1])));
    }
  }
}

TEST(AssembleCodes, RunOneByOneAndEveryPointIsOrdinary) {
  const auto a = Assemble({Carre(0, 0, 1), Carre(2, 0, 1), Carre(4, 0, 1)});
  EXPECT_EQ(a.points.front().Seq.Texte(), " A");
  EXPECT_EQ(a.points.back().Seq.Texte(), " C");
  for (const auto& p : a.points) EXPECT_EQ(p.Cde, pathwerk::CodePD);
}

TEST(AssembleCodes, MorePathsThanCodesAreRefused) {
  std::vector<Trait> s;
  for (std::size_t i = 0; i < pathwerk::NbCodes(); ++i) s.push_back(Percage({static_cast<double>(i), 0}));
  EXPECT_EQ(Assemble(s).n, static_cast<int>(2 * pathwerk::NbCodes()));
  s.push_back(Percage({-1, 0}));
  const auto a = Assemble(s);
  EXPECT_EQ(a.n, static_cast<int>(Erreur::TropDeSequences));
  EXPECT_TRUE(a.points.empty());
  EXPECT_EQ(a.rapport.Numero, Erreur::TropDeSequences);
  EXPECT_EQ(a.rapport.Detail, std::to_string(s.size()) + " > " + std::to_string(pathwerk::NbCodes()));
  s.back() = Percage({0, 0});  // a duplicate doesn't count
  EXPECT_EQ(Assemble(s).n, static_cast<int>(2 * pathwerk::NbCodes()));
}

TEST(AssembleRefus, CoordinatesBeyondTenKilometresOrNotFinite) {
  for (const double v : {1.0000001e7, -1.1e7, std::nan(""), std::numeric_limits<double>::infinity()}) {
    const auto a = Assemble({Ouvert({{0, 0}, {0, v}})});
    EXPECT_EQ(a.n, static_cast<int>(Erreur::Coordonnee)) << v;
    EXPECT_TRUE(a.points.empty());
  }
  EXPECT_EQ(Assemble({Ouvert({{0, 0}, {1e7, -1e7}})}).n, 2);
}

TEST(AssembleRefus, WhatTheReaderRefusedStaysRefused) {
  Lecture l;
  l.traits = {Carre(0, 0, 1)};
  l.Refuse(Erreur::Dxf, 12, "x");
  const auto a = Assemble(l);
  EXPECT_EQ(a.n, static_cast<int>(Erreur::Dxf));
  EXPECT_EQ(a.rapport.Ligne, 12);
}

TEST(AssembleRefus, NothingGivesNoPoint) { EXPECT_EQ(Assemble(std::vector<Trait>{}).n, 0); }

TEST(AssembleImpose, OrderDirectionStartAndEveryPointAreKept) {
  Lecture l;
  l.ordreImpose = true;
  l.traits = {Carre(0, 0, 100),                          // counter-clockwise, before what it contains
              Ouvert({{5, 5}, {5, 5}, {6, 5}, {6, 5}}),  // points that stand still
              Ouvert({{6, 5}, {7, 5}}),                  // starts where the last one ends
              Ouvert({{6, 5}, {7, 5}}),                  // a duplicate
              Percage({1, 1}),
              Ouvert({{2, 2}}),
              Ouvert({})};
  const auto a = Assemble(l);
  ASSERT_EQ(a.sequences.size(), 6U);
  EXPECT_EQ(a.sequences[0], (std::vector<Vec2>{{0, 0}, {100, 0}, {100, 100}, {0, 100}, {0, 0}}));
  EXPECT_EQ(a.sequences[1].size(), 4U);
  EXPECT_EQ(a.sequences[3], a.sequences[2]);
  EXPECT_EQ(a.sequences[4], (std::vector<Vec2>{{1, 1}, {1, 1}}));
  EXPECT_EQ(a.sequences[5], (std::vector<Vec2>{{2, 2}}));
  EXPECT_TRUE(a.rapport.Ignores.empty());
}

TEST(AssembleImpose, TooManyPathsAreRefusedToo) {
  Lecture l;
  l.ordreImpose = true;
  l.traits.assign(pathwerk::NbCodes() + 1, Percage({0, 0}));
  EXPECT_EQ(Assemble(l).n, static_cast<int>(Erreur::TropDeSequences));
}

TEST(AssembleSens, AHoleAlongThreeEdgesOfItsPartIsAHole) {
  const auto a = Assemble({Carre(0, 0, 50), Ferme({{0, 0}, {20, 0}, {20, 50}, {0, 50}})});
  ASSERT_EQ(a.sequences.size(), 2U);
  EXPECT_FALSE(Horaire(a, a.sequences[0].front()));
  EXPECT_GT(Aire(a.sequences[0]), 0);
  EXPECT_NEAR(std::fabs(Aire(a.sequences[0])), 1000, 1e-6) << "the inner one comes first";
}

TEST(AssembleOrdre, AnOpenPathBelongsWhereMostOfItLies) {
  // A part with a notch from above; the line starts in the notch and runs on inside the part.
  const Trait part = Ferme({{0, 0}, {60, 0}, {60, 60}, {35, 60}, {35, 30}, {25, 30}, {25, 60}, {0, 60}});
  const Trait ligne = Ouvert({{30, 50}, {30, 20}, {40, 20}, {50, 20}, {50, 30}, {50, 40}, {50, 50}, {45, 50}});
  const auto a = Assemble({part, ligne});
  ASSERT_EQ(a.sequences.size(), 2U);
  EXPECT_FALSE(EstFerme(a.sequences[0])) << "cut before the part that holds it";
  const Trait dehors = Ouvert({{30, 20}, {30, 32}, {30, 36}, {30, 40}, {30, 44}, {30, 48}, {30, 52}, {30, 56}});
  EXPECT_TRUE(EstFerme(Assemble({part, dehors}).sequences.at(0)));
}
