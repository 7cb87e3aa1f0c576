// Joining of loose ends, and what becomes of crumbs and duplicates.
#include <algorithm>
#include <array>
#include <map>
#include <random>

#include "tests/unit/closed/pathwerk/Aide.h"

using namespace aide;

namespace {

// Length of all sequences: what joining may not change.
double Longueur(const std::vector<std::vector<Vec2>>& s) {
  double l = 0;
  for (const auto& p : s) {
    for (std::size_t i = 1; i < p.size(); ++i) l += std::hypot(p[i].x - p[i - 1].x, p[i].y - p[i - 1].y);
  }
  return l;
}

}  // namespace

TEST(AssembleSoudure, FourLooseLinesBecomeOneContourClosedExactly) {
  auto s = EnSegments(Carre(0, 0, 10));
  std::swap(s[1].points[0], s[1].points[1]);  // drawn the other way
  std::swap(s[0], s[2]);
  const auto a = Assemble(s);
  ASSERT_EQ(a.sequences.size(), 1U);
  EXPECT_EQ(a.n, 5);
  EXPECT_TRUE(EstFerme(a.sequences[0]));
  EXPECT_EQ(std::fabs(Aire(a.sequences[0])), 100);
}

TEST(AssembleSoudure, EndsNearerThanTheToleranceAreJoinedOthersAreNot) {
  EXPECT_EQ(Assemble({Ouvert({{0, 0}, {10, 0}}), Ouvert({{10.009, 0}, {20, 5}})}).sequences.size(), 1U);
  EXPECT_EQ(Assemble({Ouvert({{0, 0}, {10, 0}}), Ouvert({{10.011, 0}, {20, 5}})}).sequences.size(), 2U);
  EXPECT_EQ(Assemble({Ouvert({{0, 0}, {10, 0}}), Ouvert({{10.011, 0}, {20, 5}})}, 0.02).sequences.size(), 1U);
  EXPECT_EQ(Assemble({Ouvert({{0, 0}, {10, 0}}), Ouvert({{10.001, 0}, {20, 5}})}, 0).sequences.size(), 2U);
  EXPECT_EQ(Assemble({Ouvert({{0, 0}, {10, 0}}), Ouvert({{10, 0}, {20, 5}})}, 0).sequences.size(), 1U);
}

TEST(AssembleSoudure, TheJointIsOnePoint) {
  const auto a = Assemble({Ouvert({{0, 0}, {10, 0}}), Ouvert({{10.005, 0}, {20, 5}})});
  EXPECT_EQ(a.sequences[0], (std::vector<Vec2>{{0, 0}, {10, 0}, {20, 5}}));
}

TEST(AssembleSoudure, AnOpenPathKeepsTheDirectionOfItsFirstPiece) {
  const auto a = Assemble({Ouvert({{10, 0}, {0, 0}}), Ouvert({{10, 0}, {20, 5}})});
  EXPECT_EQ(a.sequences[0], (std::vector<Vec2>{{20, 5}, {10, 0}, {0, 0}}));
}

TEST(AssembleSoudure, AContourWithAGapAtItsEndsIsClosedExactly) {
  const auto a = Assemble({Ouvert({{0, 0}, {10, 0}, {10, 10}, {0.004, 0.004}})});
  ASSERT_EQ(a.sequences.size(), 1U);
  EXPECT_EQ(a.sequences[0].size(), 4U);
  EXPECT_EQ(a.points.front().X, a.points.back().X);
  EXPECT_EQ(a.points.front().Y, a.points.back().Y);
}

TEST(AssembleSoudure, AStrokeShorterThanTheToleranceDoesNotCloseOnItself) {
  const auto a = Assemble({Ouvert({{0, 0}, {0.003, 0}, {0.003, 0.003}})});
  ASSERT_EQ(a.sequences.size(), 1U);
  EXPECT_EQ(a.sequences[0].size(), 3U);
  EXPECT_FALSE(EstFerme(a.sequences[0]));
}

TEST(AssembleSoudure, ALineOfStepsFinerThanTheToleranceKeepsAllItsPoints) {
  std::vector<Trait> s;
  for (int i = 0; i < 1000; ++i) s.push_back(Ouvert({{i * 0.003, 0}, {(i + 1) * 0.003, 0}}));
  const auto a = Assemble(s);
  ASSERT_EQ(a.sequences.size(), 1U);
  EXPECT_EQ(a.n, 1001);
  EXPECT_NEAR(Longueur(a.sequences), 3.0, 1e-6);
}

TEST(AssembleSoudure, WhereLinesCrossEachGoesStraightOn) {
  const auto a = Assemble({Ouvert({{-10, 0}, {0, 0}}), Ouvert({{0, 10}, {0, 0}}), Ouvert({{0, 0}, {10, 0.5}}),
                           Ouvert({{0, 0}, {0.5, -10}})});
  ASSERT_EQ(a.sequences.size(), 2U);
  EXPECT_EQ(a.sequences[0], (std::vector<Vec2>{{-10, 0}, {0, 0}, {10, 0.5}}));
  EXPECT_EQ(a.sequences[1], (std::vector<Vec2>{{0, 10}, {0, 0}, {0.5, -10}}));
}

TEST(AssembleSoudure, AtATeeTheStemStaysAlone) {
  const auto a = Assemble({Ouvert({{0, -10}, {0, 0}}), Ouvert({{-10, 0}, {0, 0}}), Ouvert({{0, 0}, {10, 0}})});
  ASSERT_EQ(a.sequences.size(), 2U);
  EXPECT_EQ(a.sequences[0].size(), 2U);
  EXPECT_EQ(a.sequences[1], (std::vector<Vec2>{{-10, 0}, {0, 0}, {10, 0}}));
}

TEST(AssembleSoudure, ATeeWhoseEndsDifferInTheLastDigitsIsTheSame) {
  const auto a =
      Assemble({Ouvert({{0, -10}, {0, 1e-6}}), Ouvert({{-10, 0}, {1e-6, 0}}), Ouvert({{-1e-6, -1e-6}, {10, 0}})});
  ASSERT_EQ(a.sequences.size(), 2U);
  EXPECT_EQ(a.sequences[0].size(), 2U);
  EXPECT_EQ(a.sequences[1].size(), 3U);
}

TEST(AssembleSoudure, TheNearerOfTwoEndsIsTaken) {
  const auto a =
      Assemble({Ouvert({{0, 0}, {10, 0}}), Ouvert({{10.008, 0}, {20, 0}}), Ouvert({{10.002, 0}, {20, 20}})});
  ASSERT_EQ(a.sequences.size(), 2U);
  EXPECT_EQ(a.sequences[0].back(), (Vec2{20, 20}));
}

TEST(AssembleSoudure, SquaresThatShareACornerStaySquares) {
  auto s = EnSegments(Carre(0, 0, 10));
  for (const auto& t : EnSegments(Carre(10, 10, 10))) s.push_back(t);
  std::mt19937 hasard(3);
  std::shuffle(s.begin(), s.end(), hasard);
  const auto a = Assemble(s);
  ASSERT_EQ(a.sequences.size(), 2U);
  for (const auto& p : a.sequences) {
    EXPECT_EQ(p.size(), 5U);
    EXPECT_TRUE(EstFerme(p));
    EXPECT_EQ(Aire(p), -100);
  }
}

TEST(AssembleSoudure, AStarOfManyRaysUsesEachOnce) {
  std::vector<Trait> s;
  constexpr int Rayons = 360;
  for (int i = 0; i < Rayons; ++i) {
    const double w = 2 * std::numbers::pi * i / Rayons;
    s.push_back(Ouvert({{0, 0}, {100 * std::cos(w), 100 * std::sin(w)}}));
  }
  const auto a = Assemble(s);
  EXPECT_EQ(a.sequences.size(), Rayons / 2U);
  EXPECT_NEAR(Longueur(a.sequences), 100.0 * Rayons, 0.01);
  for (const auto& p : a.sequences) {  // each a diameter
    ASSERT_EQ(p.size(), 3U);
    EXPECT_NEAR(p[0].x, -p[2].x, 1e-4);
    EXPECT_NEAR(p[0].y, -p[2].y, 1e-4);
  }
}

TEST(AssembleSoudure, NothingIsLostInARandomNet) {
  std::mt19937 hasard(7);
  for (int tour = 0; tour < 30; ++tour) {
    std::vector<Trait> s;
    std::uniform_int_distribution<int> u(0, 6);
    double avant = 0;
    std::vector<std::pair<Vec2, Vec2>> vus;
    while (s.size() < 60) {
      const Vec2 p{static_cast<double>(u(hasard)), static_cast<double>(u(hasard))};
      const Vec2 q{static_cast<double>(u(hasard)), static_cast<double>(u(hasard))};
      const auto deja = [&](const auto& v) {
        return (v.first == p && v.second == q) || (v.first == q && v.second == p);
      };
      if (p == q || std::any_of(vus.begin(), vus.end(), deja)) continue;
      vus.emplace_back(p, q);
      s.push_back(Ouvert({p, q}));
      avant += std::hypot(p.x - q.x, p.y - q.y);
    }
    const auto a = Assemble(s);
    EXPECT_NEAR(Longueur(a.sequences), avant, 1e-4);
    EXPECT_EQ(a.Ignores("DUPLICATE"), 0);
    // No two free ends are left in one place, but for the odd one.
    std::map<std::pair<double, double>, int> libres;
    for (const auto& p : a.sequences) {
      if (EstFerme(p)) continue;
      ++libres[{p.front().x, p.front().y}];
      ++libres[{p.back().x, p.back().y}];
    }
    for (const auto& [place, n] : libres) EXPECT_EQ(n, 1) << place.first << ' ' << place.second;
  }
}

TEST(AssembleSoudure, AMillionMetresFromTheOriginItStillCloses) {
  // Floats lie 0.0625 mm apart there; ends within the tolerance may round to different ones.
  auto s = EnSegments(Carre(1e6 + 0.03, 1e6 + 0.03, 50));
  for (auto& t : s) t.points[1] = {t.points[1].x + 0.004, t.points[1].y - 0.004};
  const auto a = Assemble(s);
  ASSERT_EQ(a.sequences.size(), 1U);
  EXPECT_EQ(a.n, 5);
  EXPECT_TRUE(EstFerme(a.sequences[0]));
}

TEST(AssembleSoudure, ACrowdOfCrumbsWithinTheToleranceIsReadQuietly) {
  std::mt19937 hasard(5);
  std::uniform_real_distribution<double> u(0, 0.02);
  std::vector<Trait> s;
  for (int i = 0; i < 20000; ++i) s.push_back(Ouvert({{u(hasard), u(hasard)}, {u(hasard), u(hasard)}}));
  const auto a = Assemble(s);
  EXPECT_GT(a.n, 20000);
  EXPECT_LT(a.sequences.size(), 100U);
}

TEST(AssembleSoudure, CompletePathsAreLeftAloneWhenTheFormatSaysSo) {
  Lecture l;
  l.souder = false;
  l.traits = {Ouvert({{0, 0}, {10, 0}}), Ouvert({{10, 0}, {20, 5}}), Ouvert({{0, 9}, {5, 9}, {5, 5}, {0.001, 9}})};
  const auto a = Assemble(l);
  ASSERT_EQ(a.sequences.size(), 3U);
  EXPECT_FALSE(EstFerme(a.sequences[2]));
}

TEST(AssembleNul, EqualNeighboursBecomeOnePoint) {
  const auto a = Assemble({Ouvert({{0, 0}, {0, 0}, {10, 0}, {10, 0}, {10 + 1e-9, 0}, {10, 5}})});
  EXPECT_EQ(a.sequences[0], (std::vector<Vec2>{{0, 0}, {10, 0}, {10, 5}}));
}

TEST(AssembleNul, APathWithoutLengthIsLeftOutAndCounted) {
  const auto a = Assemble({Ouvert({{3, 3}, {3, 3}}), Ferme({{1, 1}}), Ouvert({{0, 0}, {1, 0}}), Ouvert({})});
  EXPECT_EQ(a.sequences.size(), 1U);
  EXPECT_EQ(a.Ignores("ZERO_LENGTH"), 2);
}

// Four crumbs within the tolerance of each other, joined, leave a piece that goes nowhere.
TEST(AssembleNul, APieceThatTheJoiningLeavesWithoutLengthGoesWhereverItStands) {
  const std::vector<Trait> miettes{Ouvert({{3.003, 3.012}, {3.012, 3.009}}), Ouvert({{3.009, 3.006}, {3, 3.003}}),
                                   Ouvert({{3.009, 3.003}, {3.012, 3.009}}),
                                   Ouvert({{3.012, 3.009}, {3.009, 3.003}, {3, 3.003}})};
  std::array<std::size_t, 4> ordre{0, 1, 2, 3};
  long laissees = 0;
  do {
    std::vector<Trait> traits;
    for (const std::size_t i : ordre) traits.push_back(miettes[i]);
    traits.push_back(Ouvert({{0, 0}, {9, 0}}));
    const auto a = Assemble(traits);
    for (const auto& s : a.sequences) EXPECT_GE(s.size(), 2U);
    laissees += a.Ignores("ZERO_LENGTH");
  } while (std::next_permutation(ordre.begin(), ordre.end()));
  EXPECT_GT(laissees, 0);
}

TEST(AssembleNul, AHoleIsItsPointTwice) {
  const auto a = Assemble({Percage({4, 5})});
  EXPECT_EQ(a.sequences[0], (std::vector<Vec2>{{4, 5}, {4, 5}}));
}

TEST(AssembleNul, AContourOfTwoPointsGoesThereAndBack) {
  const auto a = Assemble({Ferme({{0, 0}, {10, 0}})});
  EXPECT_EQ(a.sequences[0], (std::vector<Vec2>{{0, 0}, {10, 0}, {0, 0}}));
}

TEST(AssembleNul, AClosingPointGivenAlmostIsNotASecondOne) {
  const auto a = Assemble({Ferme({{0, 0}, {10, 0}, {10, 10}, {0, 10}, {1e-4, -1e-4}})});
  EXPECT_EQ(a.n, 5);
  EXPECT_TRUE(EstFerme(a.sequences[0]));
}

TEST(AssembleDoublons, SamePathForwardsAndBackwards) {
  const auto a = Assemble({Ouvert({{0, 0}, {5, 1}, {9, 9}}), Ouvert({{0, 0}, {5, 1}, {9, 9}}),
                           Ouvert({{9, 9}, {5, 1}, {0, 0}}), Ouvert({{0, 0}, {5, 2}, {9, 9.5}})});
  EXPECT_EQ(a.Ignores("DUPLICATE"), 2);
  EXPECT_NEAR(Longueur(a.sequences), std::hypot(5, 1) + std::hypot(4, 8) + std::hypot(5, 2) + std::hypot(4, 7.5),
              1e-4);
}

TEST(AssembleDoublons, SameContourFromAnyStartEitherWay) {
  const Trait c = Ferme({{0, 0}, {10, 0}, {10, 10}, {4, 6}, {0, 10}});
  std::vector<Trait> s{c};
  for (int k = 1; k < 5; ++k) {
    Trait t = c;
    std::rotate(t.points.begin(), t.points.begin() + k, t.points.end());
    if (k % 2 == 0) std::reverse(t.points.begin(), t.points.end());
    s.push_back(t);
  }
  const auto a = Assemble(s);
  EXPECT_EQ(a.sequences.size(), 1U);
  EXPECT_EQ(a.Ignores("DUPLICATE"), 4);
  EXPECT_EQ(a.sequences[0][0], (Vec2{0, 0}));
}

TEST(AssembleDoublons, ARectangleDrawnTwiceInLooseLinesIsOne) {
  auto s = EnSegments(Carre(0, 0, 10));
  const auto encore = s;
  s.insert(s.end(), encore.begin(), encore.end());
  s.push_back(Carre(0, 0, 10));  // and once more as a contour
  const auto a = Assemble(s);
  ASSERT_EQ(a.sequences.size(), 1U);
  EXPECT_TRUE(EstFerme(a.sequences[0]));
  EXPECT_EQ(a.Ignores("DUPLICATE"), 5);
}

TEST(AssembleDoublons, TwoHolesAtOnePlaceAreOneAndKeepBothTheirPoints) {
  const auto a = Assemble({Percage({1, 2}), Percage({3, 4}), Percage({1, 2})});
  ASSERT_EQ(a.sequences.size(), 2U);
  EXPECT_EQ(a.sequences[0].size(), 2U);
  EXPECT_EQ(a.Ignores("DUPLICATE"), 1);
}

TEST(AssembleDoublons, SamePointsInAnotherOrderAreAnotherPath) {
  const auto a =
      Assemble({Ferme({{0, 0}, {10, 0}, {10, 10}, {0, 10}}), Ferme({{0, 0}, {10, 10}, {10, 0}, {0, 10}})});
  EXPECT_EQ(a.sequences.size(), 2U);
  EXPECT_EQ(a.Ignores("DUPLICATE"), 0);
}

// Directions in degrees; the pair nearest to half a turn goes on straight, then the next of the rest.
TEST(AssembleNoeud, OfThreeEndsTheStraightestTwoGoOn) {
  const auto rayon = [](double degres) {
    const double a = degres * std::numbers::pi / 180;
    return Vec2{10 * std::cos(a), 10 * std::sin(a)};
  };
  // 17 and 190 differ by 173; 17 and 110 by 93; 110 and 190 by 80.
  for (const auto& ordre :
       {std::array{17.0, 190.0, 110.0}, std::array{110.0, 190.0, 17.0}, std::array{190.0, 110.0, 17.0}}) {
    std::vector<Trait> s;
    for (const double d : ordre) s.push_back(Ouvert({rayon(d), {0, 0}}));
    const auto a = Assemble(s);
    ASSERT_EQ(a.sequences.size(), 2U);
    for (const auto& p : a.sequences) {
      const bool seule = p.size() == 2;
      EXPECT_EQ(seule, std::abs(p.front().y - rayon(110).y) < 1e-5) << "the one across stays alone";
    }
  }
}

TEST(AssembleNoeud, FiveAndManyEndsGoStraightOnAtOddAngles) {
  const auto place = [](double degres, double r) {
    const double a = degres * std::numbers::pi / 180;
    return Vec2{r * std::cos(a), r * std::sin(a)};
  };
  for (const int n : {2, 15}) {  // few ends, and so many that the hub has its own way
    for (const bool tige : {false, true}) {
      std::vector<Trait> s;
      for (int k = 0; k < n; ++k) {
        const double d = 7.3 + 170.0 * k / n;
        s.push_back(Ouvert({place(d, 10), {0, 0}}));
        s.push_back(k % 2 == 0 ? Ouvert({{0, 0}, place(d + 180, 10)}) : Ouvert({place(d + 180, 10), {0, 0}}));
      }
      if (tige) s.push_back(Ouvert({{0, 0}, place(7.3 + 170.0 * 0.5 / n, 5)}));
      const auto a = Assemble(s);
      ASSERT_EQ(a.sequences.size(), static_cast<std::size_t>(n) + (tige ? 1 : 0)) << n;
      for (const auto& p : a.sequences) {
        if (p.size() == 2) continue;
        ASSERT_EQ(p.size(), 3U);
        EXPECT_NEAR(p.front().x + p.back().x, 0, 1e-5);
        EXPECT_NEAR(p.front().y + p.back().y, 0, 1e-5);
      }
    }
  }
}

TEST(AssembleNoeud, TheStraightestPairIsTakenAmongEndsThatAlmostMeetToo) {
  const auto a = Assemble({Ouvert({{-10, 1}, {0, 0.000004}}), Ouvert({{1e-6, 10}, {0, 0.000002}}),
                           Ouvert({{0.000003, 0}, {10, -1}}), Ouvert({{0, -0.000002}, {0.5, -10}})});
  ASSERT_EQ(a.sequences.size(), 2U);
  EXPECT_EQ(a.sequences[0].front(), (Vec2{-10, 1}));
  EXPECT_EQ(a.sequences[0].back(), (Vec2{10, -1}));
  EXPECT_EQ(a.sequences[1].back(), (Vec2{0.5, -10}));
}

TEST(AssembleNul, OneIsCountedToo) {
  const auto a = Assemble({Ouvert({{3, 3}, {3, 3}}), Ouvert({{0, 0}, {1, 0}})});
  EXPECT_EQ(a.Ignores("ZERO_LENGTH"), 1);
}

TEST(AssembleNul, ATinyTriangleBehindAnotherContourKeepsItsPoints) {
  const auto a = Assemble({Carre(0, 0, 50), Ferme({{10, 10}, {10.004, 10.008}, {10.008, 10}})});
  ASSERT_EQ(a.sequences.size(), 2U);
  EXPECT_EQ(a.sequences[0].size(), 4U);
}

TEST(AssembleSoudure, AContourOfLooseLinesStartsWithItsFirstLineOfTheFile) {
  const auto cotes = EnSegments(Cercle({0, 0}, 10, 6));
  for (const auto& ordre : {std::array{3U, 0U, 4U, 1U, 5U, 2U}, std::array{5U, 4U, 3U, 2U, 1U, 0U},
                            std::array{1U, 5U, 0U, 2U, 4U, 3U}}) {
    std::vector<Trait> s;
    for (const unsigned k : ordre) s.push_back(cotes[k]);
    const auto a = Assemble(s);
    ASSERT_EQ(a.sequences.size(), 1U);
    EXPECT_NEAR(a.sequences[0][0].x, cotes[ordre[0]].points[0].x, 1e-5);
    EXPECT_NEAR(a.sequences[0][0].y, cotes[ordre[0]].points[0].y, 1e-5);
  }
}
