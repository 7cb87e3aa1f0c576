// The arc engine by itself: what it promises on regions, and above all where things coincide.
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "closed/pathwerk/decalage/MoteurArcs.h"
#include "closed/pathwerk/decalage/MoteurClipper.h"
#include "closed/pathwerk/decalage/MoteurLobes.h"
#include "tests/unit/closed/pathwerk/controle/ControleRegion.h"

using namespace controle;
using pathwerk::Vec2;
using pathwerk::decalage::CompteDecaleRegion;
using pathwerk::decalage::CompteDuMoteur;
using pathwerk::decalage::DecaleRegionArcs;
using pathwerk::decalage::DecaleRegionClipper;

namespace {

constexpr double Tolerance = 0.0088;
using Boucles = std::vector<Chemin>;

Boucles Arcs(const Region& region, double distance) {
  Boucles b;
  EXPECT_TRUE(DecaleRegionArcs(region, distance, Tolerance, b)) << "the engine doesn't vouch for its result";
  return b;
}

void Tient(const Region& region, double distance) {
  Boucles b;
  ASSERT_TRUE(DecaleRegionArcs(region, distance, Tolerance, b)) << "distance " << distance;
  const EcartsRegion e = MesureRegion(region, b, distance);
  ASSERT_LE(e.tropPres, Tolerance) << "distance " << distance;
  ASSERT_LE(e.tropLoin, 1e-6) << "distance " << distance;
  ASSERT_LE(e.manque, Tolerance) << "distance " << distance;
  ASSERT_FALSE(e.mauvaisCote) << "distance " << distance;
}

Region Plein(const Forme& f) { return {{EnChemin(f)}, 1}; }

}  // namespace

TEST(MoteurArcs, HoldsOnHeapsOfSquaresWithHolesAndTouchingCorners) {
  std::mt19937_64 g(1);
  for (int k = 0; k < 250; ++k) {
    const double cotes[] = {1, 2, 0.1, 10, 1.0 / 3};
    const double cote = cotes[g() % 5];
    const Region r = Damier(g, 0.3 + 0.1 * static_cast<double>(g() % 6), cote, g() % 2 != 0);
    const double parts[] = {0.25, 0.3, 0.5, std::sqrt(0.125), std::sqrt(0.5), 1, 1.5};
    const double d = parts[g() % 7] * cote;
    SCOPED_TRACE(k);
    Tient(r, g() % 2 != 0 ? d : -d);
  }
}

TEST(MoteurArcs, HoldsOnPathsThatLieOnThemselvesManyTimes) {
  std::mt19937_64 g(2);
  for (int k = 0; k < 250; ++k) {
    const Region r{{AllerRetour(MarcheSurGrille(g, 3 + static_cast<int>(g() % 22)))}, 0};
    const double rayons[] = {0.25, 0.5, 1, 0.7, 1.5, 2};
    SCOPED_TRACE(k);
    Tient(r, rayons[g() % 6]);
  }
}

TEST(MoteurArcs, HoldsOnTheLobesOfPathsThatCrossThemselves) {
  std::mt19937_64 g(3);
  for (int k = 0; k < 250; ++k) {
    const Chemin c = EnChemin(Croisee(g, 4 + static_cast<int>(g() % 30)));
    std::vector<Region> regions;
    ASSERT_TRUE(pathwerk::decalage::SepareLobesCoupes(c, Tolerance, regions));
    for (const Region& r : regions) {
      SCOPED_TRACE(k);
      Tient(r, g() % 2 != 0 ? 0.5 : -0.8);
    }
  }
}

TEST(MoteurArcs, HoldsOnStarsFromTinyDistancesToFarMoreThanTheShape) {
  for (unsigned k = 0; k < 30; ++k) {
    for (const double d : {0.003, 0.02, 0.5, 3.0, 40.0, 3000.0}) {
      SCOPED_TRACE(k);
      Tient(Plein(Etoile(k)), d);
      Tient(Plein(Etoile(k)), -d);
    }
  }
}

TEST(MoteurArcs, HoldsOnKochOutlinesAtDistancesThatFitTheirTriangles) {
  for (const int niveau : {1, 2, 3}) {
    const double cote = 60 / std::pow(3.0, niveau);
    for (const double d : {cote / 2, cote, cote * std::sqrt(3.0) / 2, cote / std::sqrt(12.0)}) {
      const Region r{{EnChemin(Koch(niveau, 60))}, -1};
      Tient(r, d);
      Tient(r, -d);
    }
  }
}

TEST(MoteurArcs, ChainOfCirclesThatJustTouchIsRoundedOffAsOne) {
  Region r{{}, 1};
  for (int i = 0; i < 4; ++i) r.contours.push_back(EnChemin(Cercle(3, 72, {6.0 * i, 0})));
  const Boucles b = Arcs(r, -1);
  EXPECT_EQ(b.size(), 1U);
  Tient(r, -1);
  Tient(r, 1);
}

TEST(MoteurArcs, SlotOfExactlyTwiceTheDistanceGivesALoopWithoutWidth) {
  for (const double angle : {0.0, 0.3, 1.1}) {
    Chemin c{{0, 0}, {40, 0}, {40, 3}, {0, 3}};
    for (Vec2& p : c)
      p = {p.x * std::cos(angle) - p.y * std::sin(angle), p.x * std::sin(angle) + p.y * std::cos(angle)};
    const Boucles b = Arcs({{c}, 1}, 1.5);
    ASSERT_EQ(b.size(), 1U);
    EXPECT_NEAR(pathwerk::Perimetre(b[0]), 2 * 37, 0.01);
    EXPECT_LT(pathwerk::Aire(b[0]), 0.1);
  }
}

TEST(MoteurArcs, SegmentWalkedManyTimesHasOneBorder) {
  const Chemin une{{0, 0}, {10, 0}};
  const Chemin cinq{{0, 0}, {10, 0}, {0, 0}, {7, 0}, {2, 0}, {10, 0}};
  const Boucles a = Arcs({{une}, 0}, 2);
  const Boucles b = Arcs({{cinq}, 0}, 2);
  ASSERT_EQ(a.size(), 1U);
  ASSERT_EQ(b.size(), 1U);
  EXPECT_NEAR(std::abs(AireDe(a)), 40 + 4 * std::numbers::pi, 0.3);
  EXPECT_NEAR(AireDe(a), AireDe(b), 0.01);
}

TEST(MoteurArcs, SpikeOutOfARegionCountsOutsideAndNotInside) {
  const Region carre{{{{0, 0}, {20, 0}, {20, 20}, {0, 20}}}, 1};
  const Region epi{{{{0, 0}, {20, 0}, {20, 20}, {12, 20}, {12, 29}, {12, 20}, {0, 20}}}, 1};
  EXPECT_NEAR(AireDe(Arcs(epi, 2)), 16 * 16, 0.1);
  EXPECT_NEAR(AireDe(Arcs(epi, 2)), AireDe(Arcs(carre, 2)), 0.01);
  EXPECT_EQ(Arcs(epi, 2).size(), 1U);
  // The band around the spike above the band around the square: 7 mm straight, and half a disc.
  EXPECT_NEAR(AireDe(Arcs(epi, -2)), AireDe(Arcs(carre, -2)) + 4 * 7 + 2 * std::numbers::pi, 0.3);
}

TEST(MoteurArcs, SlitIntoARegionIsAWall) {
  const Region fente{{{{0, 0}, {20, 0}, {20, 20}, {10, 20}, {10, 6}, {10, 20}, {0, 20}}}, 1};
  const Boucles b = Arcs(fente, 2);
  ASSERT_EQ(b.size(), 1U);
  // 16 x 16 without the band of the slit: 12 mm straight, and half a disc.
  EXPECT_NEAR(AireDe(b), 256 - 4 * 12 - 2 * std::numbers::pi, 0.2);
}

TEST(MoteurArcs, OutlineWithoutRoomGivesNothing) {
  EXPECT_TRUE(Arcs(Plein(Carre(0, 0, 10)), 5.01).empty());
  EXPECT_EQ(Arcs(Plein(Carre(0, 0, 10)), 4.99).size(), 1U);
}

TEST(MoteurArcs, CoordinatesOutOfRangeAreRefused) {
  Boucles b{{{1, 1}}};
  EXPECT_FALSE(DecaleRegionArcs({{{{0, 0}, {2e9, 0}, {0, 2e9}}}, 1}, 1, Tolerance, b));
  EXPECT_TRUE(b.empty());
}

TEST(MoteurArcs, AgreesWithClipperOnTheAreaOfStars) {
  for (unsigned k = 0; k < 40; ++k) {
    const Region r = Plein(Etoile(k));
    for (const double d : {0.4, -0.4, 2.5, -2.5}) {
      Boucles b;
      ASSERT_TRUE(DecaleRegionClipper(r, d, Tolerance, b));
      double p = 0;
      for (const Chemin& c : b) p += pathwerk::Perimetre(c);
      EXPECT_NEAR(AireDe(Arcs(r, d)), AireDe(b), Tolerance * p + 0.01) << k << " at " << d;
    }
  }
}

TEST(MoteurArcs, GreatNoisyOutlineNeedsNoFallback) {
  const Trace s = EnTrace(CercleBruite(5, 60000, 0.02), true);
  const CompteDuMoteur avant = CompteDecaleRegion();
  const auto [r, t] = Decale(s, 3);
  const CompteDuMoteur apres = CompteDecaleRegion();
  EXPECT_GT(r, 1000);
  EXPECT_EQ(apres.arcs, avant.arcs + 1);
  EXPECT_EQ(apres.replis, avant.replis);
  EXPECT_EQ(apres.replisLobes, avant.replisLobes);
  const Ecarts e = Mesure(s, t, 3, 200);
  EXPECT_LE(e.Pire(), 0.01);
}

TEST(MoteurArcs, ConvexOutlineNeedsNoEngineAtAll) {
  const CompteDuMoteur avant = CompteDecaleRegion();
  const auto [r, t] = Decale(EnTrace(Carre(0, 0, 10), true), 1);
  EXPECT_GT(r, 0);
  EXPECT_EQ(CompteDecaleRegion().simples, avant.simples + 1);
  EXPECT_EQ(CompteDecaleRegion().arcs, avant.arcs);
}

TEST(MoteurArcs, OutlineThatCrossesAgainstTheContractIsLeftToTheFallbackAndCounted) {
  // A bow tie given as one region: where the ends of its curve find no partner the engine must not close them.
  const Region noeud{{{{0, 0}, {20, 10}, {20, 0}, {0, 10}}}, 1};
  Boucles b;
  EXPECT_FALSE(DecaleRegionArcs(noeud, -1, Tolerance, b));
  EXPECT_TRUE(b.empty());
  const CompteDuMoteur avant = CompteDecaleRegion();
  ASSERT_TRUE(pathwerk::decalage::DecaleRegion(noeud, -1, Tolerance, b));
  EXPECT_EQ(CompteDecaleRegion().replis, avant.replis + 1);
  EXPECT_EQ(CompteDecaleRegion().arcs, avant.arcs);
  EXPECT_EQ(b.size(), 1U);
}

TEST(MoteurArcs, WayBackBesideTheWayOutGivesTheBandAroundBoth) {
  // A curve walked out and back by other points, so that both ways cross many times within a micrometre.
  Forme f;
  for (int i = 0; i <= 40; ++i) f.push_back({2.5 * i, 20 * std::sin(0.1 * i)});
  for (int i = 57; i-- > 1;) f.push_back({100.0 / 57 * i, 20 * std::sin(4.0 / 57 * i) + 0.001 * (i % 2)});
  for (P& p : f) p.y *= 0.01;  // flat enough for the chords of both to agree
  std::vector<Region> regions;
  ASSERT_TRUE(pathwerk::decalage::SepareLobesCoupes(EnChemin(f), Tolerance, regions));
  ASSERT_EQ(regions.size(), 1U);
  ASSERT_EQ(regions[0].signe, 0);
  const Boucles b = Arcs(regions[0], 15);
  ASSERT_EQ(b.size(), 1U);
  EXPECT_NEAR(std::abs(AireDe(b)), 100 * 30 + std::numbers::pi * 225, 2);
}
