// Every edge of an offset names the stretch of the source that it runs beside. Held against nothing but distances:
// both ends of the edge lie at the distance of the offset from both ends of that stretch.
#include <gtest/gtest.h>

#include <cmath>

#include "tests/unit/closed/pathwerk/controle/ControleRegion.h"

using namespace controle;
using pathwerk::Vec2;
using namespace pathwerk;
using namespace pathwerk::decalage;

namespace {

constexpr double Tolerance = 0.0088;

Vec2 LieuDe(const Chemin& c, const Origine& o, float part) {
  const Vec2 a = c[o.segment];
  return a + (c[(o.segment + 1) % c.size()] - a) * static_cast<double>(part);
}

struct Compte {
  std::size_t aretes = 0;
  std::size_t inconnues = 0;
};

// All edges of the offset of a path, lobe by lobe, against the path itself.
Compte Verifie(const controle::Chemin& c, double d) {
  Compte n;
  std::vector<Region> regions;
  EXPECT_TRUE(SepareLobes(c, Tolerance, regions));
  for (const Region& region : regions) {
    std::vector<Chemin> boucles;
    std::vector<Origines> origines;
    EXPECT_TRUE(DecaleRegion(region, d, Tolerance, boucles, origines));
    EXPECT_EQ(boucles.size(), origines.size());
    for (std::size_t k = 0; k < boucles.size(); ++k) {
      const Origines o = Remonte(region, origines[k]);
      EXPECT_EQ(o.size(), boucles[k].size());
      for (std::size_t i = 0; i < o.size(); ++i) {
        ++n.aretes;
        if (!o[i].Connue()) {
          ++n.inconnues;
          continue;
        }
        const Vec2 a = boucles[k][i];
        const Vec2 b = boucles[k][(i + 1) % o.size()];
        EXPECT_NEAR(Norme(a - LieuDe(c, o[i], o[i].de)), std::abs(d), Tolerance) << i;
        EXPECT_NEAR(Norme(b - LieuDe(c, o[i], o[i].a)), std::abs(d), Tolerance) << i;
      }
    }
  }
  return n;
}

void VerifieLesDeuxCotes(const Forme& f, std::initializer_list<double> rayons) {
  Compte total;
  for (const double r : rayons) {
    for (const double d : {r, -r}) {
      const Compte n = Verifie(EnChemin(f), d);
      total.aretes += n.aretes;
      total.inconnues += n.inconnues;
      ASSERT_FALSE(testing::Test::HasFailure()) << "R = " << d;
    }
  }
  EXPECT_GT(total.aretes, 0U);
  EXPECT_LE(total.inconnues, total.aretes / 10) << "only chords over gaps may belong nowhere";
}

}  // namespace

TEST(Origines, HoldOnStars) {
  for (unsigned g = 0; g < 20; ++g) VerifieLesDeuxCotes(Etoile(g), {0.2, 1.5, 4});
}

TEST(Origines, HoldOnHeapsOfSquares) {
  for (unsigned g = 0; g < 40; ++g) VerifieLesDeuxCotes(Polyomino(g), {0.2, 0.3, 0.45});
}

TEST(Origines, HoldOnCombsKochOutlinesAndSpirals) {
  VerifieLesDeuxCotes(Peigne(12, 6, 20, 1), {0.5, 1.3, 3});
  VerifieLesDeuxCotes(Koch(4, 60), {0.3, 1.5, 6});
  VerifieLesDeuxCotes(Spirale(6, 4, 1, 500), {0.3, 1.4, 3});
}

TEST(Origines, HoldOnNoisyCircles) { VerifieLesDeuxCotes(CercleBruite(3, 1500, 0.02), {0.5, 3}); }

TEST(Origines, HoldOnTheLobesOfPathsThatCrossThemselves) {
  std::mt19937_64 g(7);
  for (int k = 0; k < 60; ++k) VerifieLesDeuxCotes(Croisee(g, 4 + static_cast<int>(g() % 30)), {0.31});
}

TEST(Origines, HoldWhereTheRawCurveIsTheAnswer) {
  Forme f = Cercle(20, 30);
  f.insert(f.begin() + 3, f[2]);
  f[3].x += 4;  // a tooth, so that both kinds of corners occur
  const Region region{{EnChemin(f)}, 1};
  for (const double d : {0.5, -0.5}) {
    std::vector<Chemin> boucles;
    std::vector<Origines> origines;
    ASSERT_TRUE(DecaleRegionSimple(region, d, Tolerance, boucles, &origines)) << d;
    ASSERT_EQ(origines.size(), 1U);
    ASSERT_EQ(origines[0].size(), boucles[0].size());
    for (std::size_t i = 0; i < origines[0].size(); ++i) {
      ASSERT_TRUE(origines[0][i].Connue());
      const Vec2 b = boucles[0][(i + 1) % boucles[0].size()];
      EXPECT_NEAR(Norme(boucles[0][i] - LieuDe(region.contours[0], origines[0][i], origines[0][i].de)), 0.5,
                  Tolerance);
      EXPECT_NEAR(Norme(b - LieuDe(region.contours[0], origines[0][i], origines[0][i].a)), 0.5, Tolerance);
    }
  }
}

TEST(Origines, PathTurnedRoundKeepsThePlacesOfItsEdges) {
  Chemin c{{0, 0}, {4, 0}, {4, 3}};
  Origines o{{0, 0, 1}, {1, 0, 1}, {2, 0.25F, 0.75F}};
  pathwerk::decalage::Retourne(c, o);
  EXPECT_EQ(c[0].y, 3);
  EXPECT_EQ(o[0].segment, 1U);  // from (4, 3) to (4, 0)
  EXPECT_EQ(o[0].de, 1.0F);
  EXPECT_EQ(o[0].a, 0.0F);
  EXPECT_EQ(o[1].segment, 0U);
  EXPECT_EQ(o[2].segment, 2U);  // from (0, 0) back to (4, 3)
  EXPECT_EQ(o[2].de, 0.75F);
}

TEST(Origines, OfTheLastResortAreUnknown) {
  // A bow tie given as one region, against the contract: the arc engine refuses it.
  const Region noeud{{{{0, 0}, {20, 10}, {20, 0}, {0, 10}}}, 1};
  std::vector<Chemin> boucles;
  std::vector<Origines> origines;
  ASSERT_TRUE(DecaleRegion(noeud, -1, Tolerance, boucles, origines));
  ASSERT_EQ(origines.size(), boucles.size());
  ASSERT_FALSE(boucles.empty());
  EXPECT_TRUE(origines[0].empty());
}

// What the offset of a region says of its contours; the first one is the path, an island behind it no part of it.
TEST(Origine, BesideAnIslandThereIsNoPlaceOfThePath) {
  Region region = RegionDe({{0, 0}, {10, 0}, {10, 10}, {0, 10}}, 1);
  region.contours.push_back({{4, 4}, {4, 6}, {6, 6}, {6, 4}});
  const Origines o = Remonte(region, {{3, 0, 1}, {4, 0, 1}, {7, 0.5F, 1}, {}});
  ASSERT_EQ(o.size(), 4U);
  EXPECT_EQ(o[0].segment, 3U);
  EXPECT_EQ(o[0].a, 1);
  EXPECT_FALSE(o[1].Connue());
  EXPECT_FALSE(o[2].Connue());
  EXPECT_FALSE(o[3].Connue());
}
