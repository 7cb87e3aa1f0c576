#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <numeric>
#include <random>
#include <set>
#include <vector>

#include "base/ArbreBoites.h"
#include "base/Segment.h"

namespace {

using base::Vec2;
using Arbre = base::ArbreBoites<double, 4>;

// Scattered places from a fixed linear congruence, 0 to 100.
std::vector<Vec2> Lieux(std::size_t nombre) {
  std::uint32_t etat = 12345;
  const auto tire = [&etat] {
    etat = etat * 1664525U + 1013904223U;
    return static_cast<double>(etat >> 8) * 100 / (1 << 24);
  };
  std::vector<Vec2> lieux(nombre);
  for (Vec2& p : lieux) {
    p.x = tire();
    p.y = tire();
  }
  return lieux;
}

Arbre ArbreDe(const std::vector<Vec2>& lieux) {
  return {lieux.size(), [&](std::size_t i, base::Boite<double>& b) { b.Etend(lieux[i].x, lieux[i].y); }};
}

double Carre(Vec2 a, Vec2 b) { return (a.x - b.x) * (a.x - b.x) + (a.y - b.y) * (a.y - b.y); }

TEST(ArbreBoites, EveryThingStandsInOneLeafAndBelowTheRoot) {
  for (const std::size_t n : {1U, 3U, 4U, 5U, 16U, 17U, 100U}) {
    const Arbre arbre = ArbreDe(Lieux(n));
    EXPECT_EQ(arbre.Debut(1), 0U) << n;
    EXPECT_EQ(arbre.Fin(1), n);
    std::vector<int> vus(n, 0);
    arbre.Parcourt([](std::size_t) { return true; }, [](std::size_t) { return true; },
                   [&](std::size_t k) {
                     EXPECT_LE(arbre.Fin(k) - arbre.Debut(k), 4U);
                     for (std::size_t i = arbre.Debut(k); i < arbre.Fin(k); ++i) {
                       ++vus[i];
                       EXPECT_EQ(arbre.FeuilleDe(i), k);
                     }
                     return true;
                   });
    EXPECT_EQ(vus, std::vector<int>(n, 1)) << n;
  }
}

TEST(ArbreBoites, AnEmptyTreeIsWalkedToItsEndWithoutAskingAnything) {
  const Arbre arbre = ArbreDe({});
  const auto jamais = [](std::size_t) {
    ADD_FAILURE();
    return true;
  };
  EXPECT_TRUE(arbre.Parcourt(jamais, jamais, jamais));
}

TEST(ArbreBoites, TheWalkGoesTheWayItIsToldAndEndsWhereALeafEndsIt) {
  const Arbre arbre = ArbreDe(Lieux(16));  // four leaves, 4 to 7
  const auto feuilles = [&](bool gauche, std::size_t derniere) {
    std::vector<std::size_t> vues;
    const bool fini = arbre.Parcourt([](std::size_t) { return true; }, [&](std::size_t) { return gauche; },
                                     [&](std::size_t k) {
                                       vues.push_back(k);
                                       return k != derniere;
                                     });
    EXPECT_EQ(fini, derniere == 0);
    return vues;
  };
  EXPECT_EQ(feuilles(true, 0), (std::vector<std::size_t>{4, 5, 6, 7}));
  EXPECT_EQ(feuilles(false, 0), (std::vector<std::size_t>{7, 6, 5, 4}));
  EXPECT_EQ(feuilles(true, 5), (std::vector<std::size_t>{4, 5}));
}

TEST(ArbreBoites, ANodeThatIsNotEnteredHidesAllBelowIt) {
  const Arbre arbre = ArbreDe(Lieux(16));
  std::vector<std::size_t> vues;
  arbre.Parcourt([](std::size_t k) { return k != 2; }, [](std::size_t) { return true; },
                 [&](std::size_t k) {
                   vues.push_back(k);
                   return true;
                 });
  EXPECT_EQ(vues, (std::vector<std::size_t>{6, 7}));
}

TEST(ArbreBoites, TheApproachFindsTheNearestThatALookAtAllFinds) {
  const std::vector<Vec2> lieux = Lieux(333);
  const Arbre arbre = ArbreDe(lieux);
  std::size_t regardes = 0;
  for (const Vec2 p : Lieux(50)) {
    const Vec2 q{p.y + 7, p.x - 3};
    double attendu = 1e300;
    for (const Vec2 l : lieux) attendu = std::min(attendu, Carre(l, q));
    double meilleur = 1e300;
    arbre.Approche(q, meilleur, [&](std::size_t k) {
      for (std::size_t i = arbre.Debut(k); i < arbre.Fin(k); ++i, ++regardes) {
        meilleur = std::min(meilleur, Carre(lieux[i], q));
      }
    });
    EXPECT_EQ(meilleur, attendu);
  }
  EXPECT_LT(regardes, 50U * 333U);
}

TEST(ArbreBoites, NeighboursComeToStandTogetherAndNothingIsLost) {
  for (const std::size_t n : {1U, 4U, 5U, 63U, 200U}) {
    std::vector<Vec2> lieux = Lieux(n);
    const auto cle = [](Vec2 p) { return std::pair(p.x, p.y); };
    std::multiset<std::pair<double, double>> avant;
    for (const Vec2 p : lieux) avant.insert(cle(p));
    Arbre::RangeParVoisinage(lieux.begin(), n, [](Vec2 p) { return p; });
    std::multiset<std::pair<double, double>> apres;
    for (const Vec2 p : lieux) apres.insert(cle(p));
    EXPECT_EQ(apres, avant) << n;
    // The children of the root share no more than an edge.
    const Arbre arbre = ArbreDe(lieux);
    if (arbre.Feuilles() < 2 || arbre.Fin(2) == n) continue;
    const auto& g = arbre.De(2);
    const auto& d = arbre.De(3);
    EXPECT_TRUE(g.x1 <= d.x0 || g.y1 <= d.y0) << n;
  }
}

TEST(Boite, ABoxHoldsWhatItWasWidenedBy) {
  base::Boite<float> b;
  EXPECT_FALSE(b.Rencontre(b));
  b.Etend(3, 4);
  b.Etend(-1, 10);
  EXPECT_EQ(b.x0, -1);
  EXPECT_EQ(b.x1, 3);
  EXPECT_EQ(b.y0, 4);
  EXPECT_EQ(b.y1, 10);
  EXPECT_TRUE(b.Rencontre(base::Boite<float>::De(3, 10)));
  EXPECT_FALSE(b.Rencontre(base::Boite<float>::De(3.5F, 10)));
  b.Etend(base::Boite<float>{0, -2, 8, 5});
  EXPECT_EQ(b.x1, 8);
  EXPECT_EQ(b.y0, -2);
}

TEST(Boite, TheDistanceIsThatOfTheNearestSideOrCorner) {
  const base::Boite<double> b{0, 0, 2, 1};
  EXPECT_EQ(base::Distance2(b, {1, 0.5}), 0);
  EXPECT_EQ(base::Distance2(b, {5, 0.5}), 9);
  EXPECT_EQ(base::Distance2(b, {5, 5}), 25);
  EXPECT_EQ(base::Distance2(b, {-3, -4}), 25);
}

TEST(Segment, TheNearestPlaceIsTheFootOrAnEnd) {
  const base::Segment s{{0, 0}, {10, 0}};
  EXPECT_EQ(base::LieuSurSegment(s, {3, 4}).t, 0.3);
  EXPECT_EQ(base::LieuSurSegment(s, {3, 4}).distance2, 16);
  EXPECT_EQ(base::LieuSurSegment(s, {-3, 4}).distance2, 25);
  EXPECT_EQ(base::LieuSurSegment(s, {13, 4}).point, (Vec2{10, 0}));
  EXPECT_EQ(base::LieuSurSegment({{1, 1}, {1, 1}}, {1, 3}).distance2, 4);
}

TEST(Segment, OfEqualPlacesTheFirstCountsAndAClosedPathHasTheEdgeBack) {
  const base::Chemin carre{{0, 0}, {2, 0}, {2, 2}, {0, 2}};
  EXPECT_EQ(base::NbAretes(carre, false), 3U);
  EXPECT_EQ(base::NbAretes(carre, true), 4U);
  EXPECT_EQ(base::NbAretes({{1, 1}}, true), 0U);
  EXPECT_EQ(base::Arete(carre, 3).b, (Vec2{0, 0}));
  const auto arete = [&](std::size_t i) { return base::Arete(carre, i); };
  EXPECT_EQ(base::LieuProche(4, arete, {1, 1}).segment, 0U);
  EXPECT_EQ(base::LieuProche(4, arete, {0.25, 1}).segment, 3U);
  EXPECT_EQ(base::LieuProche(0, arete, {1, 1}).distance2, std::numeric_limits<double>::infinity());
}

TEST(Segment, WhatLiesAsFarAsTheLimitIsNotFound) {
  const base::Chemin carre{{0, 0}, {2, 0}, {2, 2}, {0, 2}};
  const auto arete = [&](std::size_t i) { return base::Arete(carre, i); };
  EXPECT_EQ(base::LieuProche(4, arete, {2.5, 1}, 0.26).segment, 1U);
  EXPECT_EQ(base::LieuProche(4, arete, {2.5, 1}, 0.26).distance2, 0.25);
  EXPECT_EQ(base::LieuProche(4, arete, {2.5, 1}, 0.25).distance2, 0.25);
  EXPECT_EQ(base::LieuProche(4, arete, {2.5, 1}, 0.25).segment, 0U);  // none: the limit itself comes back
}

// Segments here and there, and the nearest of them by asking each: those passed over by their box are none of it.
TEST(Segment, TheNearestOfManyIsThatOfAllAskedOneByOne) {
  std::mt19937_64 g(5);
  std::uniform_real_distribution<double> u(-10, 10);
  std::vector<base::Segment> segments;
  for (int k = 0; k < 60; ++k) {
    const base::Vec2 a{u(g), u(g)};
    segments.push_back({a, a + base::Vec2{u(g) / 5, u(g) / 5}});
  }
  for (int essai = 0; essai < 500; ++essai) {
    const base::Vec2 p{u(g), u(g)};
    double meilleur = std::numeric_limits<double>::infinity();
    for (const base::Segment& s : segments) meilleur = std::min(meilleur, base::LieuSurSegment(s, p).distance2);
    EXPECT_EQ(base::LieuProche(
                  60, [&](std::size_t i) { return segments[i]; }, p)
                  .distance2,
              meilleur)
        << essai;
  }
}

TEST(Boite, OneThatHoldsNothingMeetsNothingAndLiesInfinitelyFar) {
  const base::Boite<double> rien;
  const auto tout = base::Boite<double>{-1e300, -1e300, 1e300, 1e300};
  EXPECT_FALSE(rien.Rencontre(tout));
  EXPECT_FALSE(tout.Rencontre(rien));
  EXPECT_EQ(base::Distance2(rien, {0, 0}), std::numeric_limits<double>::infinity());
}

TEST(Boite, ThoseThatTouchMeetAndThoseApartAlongOneAxisDoNot) {
  const base::Boite<double> b{0, 0, 2, 1};
  EXPECT_TRUE(b.Rencontre({2, 1, 3, 3}));
  EXPECT_FALSE(b.Rencontre({2.1, 0, 3, 1}));
  EXPECT_FALSE(b.Rencontre({-3, 0, -0.1, 1}));
  EXPECT_FALSE(b.Rencontre({0, 1.1, 2, 3}));
  EXPECT_FALSE(b.Rencontre({0, -3, 2, -0.1}));
}

TEST(Boite, TheDistanceOfAPlaceIsThatToItsNearestSideOrCorner) {
  const base::Boite<double> b{0, 0, 2, 1};
  EXPECT_EQ(base::Distance2(b, {1, 0.5}), 0);
  EXPECT_EQ(base::Distance2(b, {5, 0.5}), 9);
  EXPECT_EQ(base::Distance2(b, {-3, 0.5}), 9);
  EXPECT_EQ(base::Distance2(b, {1, 3}), 4);
  EXPECT_EQ(base::Distance2(b, {1, -2}), 4);
  EXPECT_EQ(base::Distance2(b, {5, 5}), 25);
}

}  // namespace
