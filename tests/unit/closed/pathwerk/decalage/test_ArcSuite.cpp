// Many depths of one outline, each looking only at what the one before left: the border is the true one at every
// depth.
#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <random>
#include <vector>

#include "closed/pathwerk/decalage/ArcSuite.h"
#include "closed/pathwerk/decalage/MoteurArcs.h"
#include "closed/pathwerk/decalage/MoteurLobes.h"
#include "tests/unit/closed/pathwerk/controle/ControleRegion.h"

using namespace controle;
using pathwerk::decalage::ArcSuite;
using pathwerk::decalage::CompteDecaleRegion;
using pathwerk::decalage::DecaleRegion;
using pathwerk::decalage::DecaleRegionArcs;
using pathwerk::decalage::MemoireDeRegion;

namespace {

constexpr double Tolerance = 0.0088;
constexpr double Bruit = 1e-10;  // mm
using Boucles = std::vector<Chemin>;

// The engine at each of these distances, in this order, and the judge behind it.
void Tient(const Region& region, const std::vector<double>& distances) {
  MemoireDeRegion memoire;
  for (const double d : distances) {
    Boucles b;
    ASSERT_TRUE(DecaleRegionArcs(region, d, Tolerance, b, nullptr, &memoire)) << "distance " << d;
    const EcartsRegion e = MesureRegion(region, b, d);
    ASSERT_LE(e.tropPres, Tolerance) << "distance " << d;
    ASSERT_LE(e.tropLoin, 1e-6) << "distance " << d;
    ASSERT_LE(e.manque, Tolerance) << "distance " << d;
    ASSERT_FALSE(e.mauvaisCote) << "distance " << d;
  }
}

std::vector<double> Rangs(double premier, double pas, int nombre) {
  std::vector<double> d;
  for (int k = 0; k < nombre; ++k) d.push_back(premier + pas * k);
  return d;
}

Region Plein(const Forme& f) { return {{EnChemin(f)}, 1}; }

double Longueur(const Boucles& b) {
  double l = 0;
  for (const Chemin& c : b) l += pathwerk::Perimetre(c);
  return l;
}

}  // namespace

TEST(ArcSuite, EveryDepthOfAHeapOfSquaresIsTheTrueBorder) {
  std::mt19937_64 g(11);
  for (int k = 0; k < 60; ++k) {
    SCOPED_TRACE(k);
    const double cote = k % 3 == 0 ? 1.0 / 3 : 2;
    const Region r = Damier(g, 0.3 + 0.1 * static_cast<double>(g() % 6), cote, g() % 2 != 0);
    const double signe = g() % 2 != 0 ? 1 : -1;
    // Depths at which sides, corners and middles of squares just touch are among them.
    Tient(r, Rangs(signe * cote / 4, signe * cote / 8, 14));
  }
}

TEST(ArcSuite, EveryDepthBesideAPathOnItselfIsTheTrueBorder) {
  std::mt19937_64 g(12);
  for (int k = 0; k < 60; ++k) {
    SCOPED_TRACE(k);
    const Region r{{AllerRetour(MarcheSurGrille(g, 3 + static_cast<int>(g() % 22)))}, 0};
    Tient(r, Rangs(0.25, 0.25, 10));
  }
}

TEST(ArcSuite, EveryDepthOfTheLobesOfACrossingPathIsTheTrueBorder) {
  std::mt19937_64 g(13);
  for (int k = 0; k < 40; ++k) {
    const Chemin c = EnChemin(Croisee(g, 4 + static_cast<int>(g() % 30)));
    std::vector<Region> regions;
    ASSERT_TRUE(pathwerk::decalage::SepareLobesCoupes(c, Tolerance, regions));
    for (const Region& r : regions) {
      SCOPED_TRACE(k);
      const double signe = r.signe >= 0 ? 1 : -1;
      Tient(r, Rangs(signe * 0.25, signe * 0.25, 8));
    }
  }
}

TEST(ArcSuite, EveryDepthOfStarsAndNoiseIsTheTrueBorder) {
  for (unsigned k = 0; k < 12; ++k) {
    SCOPED_TRACE(k);
    Tient(Plein(Etoile(k)), Rangs(0.4, 1.3, 14));
    Tient(Plein(Etoile(k)), Rangs(-0.4, -2.9, 14));
    Tient(Plein(CercleBruite(k, 300, 0.6)), Rangs(0.5, 3.7, 12));
  }
}

TEST(ArcSuite, EveryDepthOfAKochOutlineIsTheTrueBorder) {
  for (const int niveau : {2, 3}) {
    const Region r{{EnChemin(Koch(niveau, 60))}, -1};
    const double cote = 60 / std::pow(3.0, niveau);
    Tient(r, Rangs(cote / 4, cote / 4, 12));
    Tient(r, Rangs(-cote / 4, -cote / 4, 12));
  }
}

TEST(ArcSuite, ADepthALittleLessThanTheLastAndOneOfTheOtherSideAreRightToo) {
  const Region r = Plein(Etoile(5));
  Tient(r, {1, 3, 2.5, 4.5, 4, 0.2, 5, -1, -3, 6, -2});
}

TEST(ArcSuite, SlotThatFitsExactlyIsPassedAtItsDepthAndGoneBehindIt) {
  const Region r{{{{0, 0}, {40, 0}, {40, 3}, {0, 3}}}, 1};
  MemoireDeRegion memoire;
  Boucles b;
  ASSERT_TRUE(DecaleRegionArcs(r, 0.5, Tolerance, b, nullptr, &memoire));
  ASSERT_TRUE(DecaleRegionArcs(r, 1.5, Tolerance, b, nullptr, &memoire));
  ASSERT_EQ(b.size(), 1U);
  EXPECT_NEAR(Longueur(b), 2 * 37, 0.01);
  ASSERT_TRUE(DecaleRegionArcs(r, 1.6, Tolerance, b, nullptr, &memoire));
  EXPECT_TRUE(b.empty());
}

TEST(ArcSuite, OfANoisyOutlineOnlyTheTipsThatCarryTheRingsAreLookedAtAgain) {
  // 12,000 points on a circle of 40 mm, off by up to 0.3 mm: 0.02 mm along it from one to the next.
  const std::vector<Chemin> contours{EnChemin(CercleBruite(3, 12000, 0.3))};
  ArcSuite suite(contours);
  std::size_t premier = 0;
  for (const double d : {1.5, 3.3, 5.1, 15.0}) {
    EXPECT_FALSE(suite.Libres(d, Bruit).empty());
    suite.Retient();
    if (premier == 0) premier = suite.Vivantes();
    EXPECT_LE(suite.Vivantes(), premier) << d;
  }
  EXPECT_LT(premier, 12000U / 4);
  EXPECT_LT(suite.Vivantes(), 12000U / 12);
}

TEST(ArcSuite, WhatWasNotRetainedDoesNotCount) {
  const std::vector<Chemin> contours{EnChemin(Etoile(2))};
  ArcSuite suite(contours);
  suite.Libres(1, Bruit);
  suite.Retient();
  const std::size_t avant = suite.Vivantes();
  suite.Libres(9, Bruit);  // thrown away
  EXPECT_EQ(suite.Vivantes(), avant);
  EXPECT_EQ(suite.Libres(2, Bruit).size(), ArcSuite(contours).Libres(2, Bruit).size());
}

TEST(ArcSuite, ARingThatTheEngineCannotVouchForDoesNotSpoilTheNext) {
  // A bow tie against the contract: its curve is left to the fallback where ends find no partner.
  const Region noeud{{{{0, 0}, {20, 10}, {20, 0}, {0, 10}}}, 1};
  MemoireDeRegion memoire;
  const auto avant = CompteDecaleRegion();
  for (const double d : {-1.0, -2.0}) {
    Boucles b, seul;
    ASSERT_TRUE(DecaleRegion(noeud, d, Tolerance, b, nullptr, memoire));
    ASSERT_TRUE(DecaleRegion(noeud, d, Tolerance, seul));
    EXPECT_EQ(b.size(), seul.size());
    EXPECT_NEAR(Longueur(b), Longueur(seul), 0.02);
  }
  EXPECT_GT(CompteDecaleRegion().replis, avant.replis);
}
