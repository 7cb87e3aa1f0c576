// Pairs of a path that may meet: all that do are among them, and of a path that goes one way there are none.
#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <initializer_list>
#include <random>
#include <set>
#include <utility>
#include <vector>

#include "base/ArbreBoites.h"
#include "base/Vecteur.h"
#include "closed/pathwerk/commun/Suites.h"

using pathwerk::Chemin;
using pathwerk::Pas;
using pathwerk::Suites;
using pathwerk::Vec2;

namespace {

using Arbre = base::ArbreBoites<double, 4>;
using Paires = std::set<std::pair<std::size_t, std::size_t>>;

// Of an open path.
Paires PairesDe(const Chemin& c) {
  const Arbre arbre(c.size() - 1, [&c](std::size_t i, base::Boite<double>& b) {
    b.Etend(c[i].x, c[i].y);
    b.Etend(c[i + 1].x, c[i + 1].y);
  });
  const Suites suites(arbre, false, [&c](std::size_t i, Pas& pas) { pas.Ajoute(c[i + 1] - c[i]); });
  Paires r;
  EXPECT_TRUE(suites.Parcourt([&r](std::size_t i, std::size_t j) {
    r.emplace(i, j);
    return true;
  }));
  return r;
}

bool SeCroisent(Vec2 a, Vec2 b, Vec2 c, Vec2 d) {
  const auto cote = [](Vec2 p, Vec2 q, Vec2 s) { return base::Vectoriel(q - p, s - p) > 0; };
  return cote(a, b, c) != cote(a, b, d) && cote(c, d, a) != cote(c, d, b);
}

}  // namespace

TEST(Suites, HoldAllSegmentsOfAWalkThatCross) {
  std::mt19937_64 g(3);
  std::uniform_real_distribution<double> u(-1, 1);
  for (int essai = 0; essai < 50; ++essai) {
    Chemin c{{0, 0}};
    for (int k = 0; k < 120; ++k) c.push_back(c.back() + Vec2{u(g) + 0.2, u(g)});
    const Paires paires = PairesDe(c);
    std::size_t croisements = 0;
    for (std::size_t i = 0; i + 1 < c.size(); ++i) {
      for (std::size_t j = i + 2; j + 1 < c.size(); ++j) {
        if (!SeCroisent(c[i], c[i + 1], c[j], c[j + 1])) continue;
        ++croisements;
        ASSERT_TRUE(paires.count({i, j}) == 1) << "walk " << essai << ": " << i << " and " << j;
      }
    }
    ASSERT_GT(croisements, 0U);
  }
}

TEST(Suites, OfAPathThatGoesOneWayHaveNoPair) {
  Chemin c;
  for (int k = 0; k < 1000; ++k) c.push_back({0.01 * k, 30 * std::sin(0.3 * k)});
  EXPECT_TRUE(PairesDe(c).empty());
}

TEST(Suites, EndWhereThePairSaysSo) {
  Chemin c;
  for (int k = 0; k < 200; ++k) c.push_back({std::cos(0.7 * k), std::sin(0.7 * k)});
  const Arbre arbre(c.size() - 1, [&c](std::size_t i, base::Boite<double>& b) { b.Etend(c[i].x, c[i].y); });
  const Suites suites(arbre, false, [](std::size_t, Pas& pas) { pas.AjouteTous(); });
  int vues = 0;
  EXPECT_FALSE(suites.Parcourt([&vues](std::size_t, std::size_t) { return ++vues < 5; }));
  EXPECT_EQ(vues, 5);
}

namespace {

bool VaDansUnSens(std::initializer_list<Vec2> directions) {
  Pas pas;
  for (const Vec2 d : directions) pas.Ajoute(d);
  return pathwerk::UnSeulSens(pas.Vus());
}

}  // namespace

TEST(Pas, KnowStepsAlongTheAxesAndTheDiagonals) {
  // A step along an axis goes neither way along the other one.
  EXPECT_TRUE(VaDansUnSens({{1, 0}}));
  EXPECT_TRUE(VaDansUnSens({{1, 1}, {1, -1}}));
  EXPECT_TRUE(VaDansUnSens({{-1, 0}, {0, -1}}));
  EXPECT_FALSE(VaDansUnSens({{1, 0}, {-1, 0}}));
  EXPECT_FALSE(VaDansUnSens({{0, 0}}));
}

// On each side of every axis but one, so that only that one tells.
TEST(Pas, GoOneWayAlongADiagonalAlone) {
  EXPECT_TRUE(VaDansUnSens({{3, -1}, {-1, 3}}));
  EXPECT_TRUE(VaDansUnSens({{3, 1}, {-1, -3}}));
  EXPECT_FALSE(VaDansUnSens({{3, -1}, {-1, 3}, {-1, -1}}));
}

TEST(Pas, ThatTurnRightRoundGoNoWay) {
  Pas pas;
  pas.Ajoute({1, 1});
  pas.AjouteTous();
  EXPECT_FALSE(pathwerk::UnSeulSens(pas.Vus()));
}
