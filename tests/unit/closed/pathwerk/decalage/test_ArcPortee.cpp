// Whether one border lies near another one, told before it is drawn: never a wrong yes.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <vector>

#include "closed/pathwerk/decalage/MoteurArcs.h"
#include "closed/pathwerk/decalage/MoteurLobes.h"
#include "tests/unit/closed/pathwerk/controle/ControleRegion.h"

using namespace controle;
using pathwerk::Vec2;
using pathwerk::decalage::DansLaPortee;
using pathwerk::decalage::DansLaPorteeArcs;
using pathwerk::decalage::DecaleRegion;
using pathwerk::decalage::DecaleRegionArcs;
using pathwerk::decalage::MemoireDeRegion;

namespace {

constexpr double Tolerance = 0.0088;
using Boucles = std::vector<Chemin>;

// How far the farthest of many places of one border lies from the other one.
double Ecart(const Boucles& de, const Boucles& a) {
  double e = 0;
  for (const Chemin& c : de) {
    for (std::size_t i = 0; i < c.size(); ++i) {
      const Vec2 q = c[(i + 1) % c.size()];
      for (const double t : {0.0, 0.2, 0.4, 0.6, 0.8}) e = std::max(e, Distance(a, c[i] + (q - c[i]) * t));
    }
  }
  return e;
}

// The engine at two depths, and its answer for one between them; the exact arcs alone where `arcs`.
bool Dit(const Region& region, double avant, double entre, double loin, double portee, bool arcs) {
  MemoireDeRegion memoire;
  Boucles b;
  for (const double d : {avant, loin}) {
    const bool fait = arcs ? DecaleRegionArcs(region, d, Tolerance, b, nullptr, &memoire)
                           : DecaleRegion(region, d, Tolerance, b, nullptr, memoire);
    EXPECT_TRUE(fait);
  }
  if (b.empty()) return false;
  return arcs ? DansLaPorteeArcs(memoire, entre, loin, portee, Tolerance)
              : DansLaPortee(region, memoire, entre, loin, portee, Tolerance);
}

const Region CarreDe20{{{{0, 0}, {20, 0}, {20, 20}, {0, 20}}}, 1};

}  // namespace

TEST(ArcPortee, CornersOfASquareAreAsFarApartAsTheirDiagonal) {
  // Depths of 2.5 and 3: the corners are 0.5 times the root of 2 apart, 0.707.
  for (const bool arcs : {false, true}) {
    EXPECT_TRUE(Dit(CarreDe20, 1, 2.5, 3, 0.75, arcs)) << arcs;
    EXPECT_FALSE(Dit(CarreDe20, 1, 2.5, 3, 0.70, arcs)) << arcs;
  }
}

TEST(ArcPortee, TheTipsInAThinWedgeAreFartherApartThanTheDepths) {
  // 60 mm long and 16 wide at its end, a side of 60.53: of depths 0.2 mm apart the tips are 0.2 * 60.53 / 8 apart,
  // 1.513 mm.
  const Region coin{{{{0, 0}, {60, -8}, {60, 8}}}, 1};
  for (const bool arcs : {false, true}) {
    EXPECT_FALSE(Dit(coin, 3, 3.5, 3.7, 1.5, arcs)) << arcs;
    EXPECT_TRUE(Dit(coin, 3, 3.5, 3.7, 1.65, arcs)) << arcs;
  }
}

TEST(ArcPortee, BesideAnOutlineThatTurnsAwayTheDepthsAloneCount) {
  for (const bool arcs : {false, true}) {
    EXPECT_TRUE(Dit(CarreDe20, -1, -2.5, -3, 0.54, arcs)) << arcs;
    EXPECT_FALSE(Dit(CarreDe20, -1, -2.5, -3, 0.49, arcs)) << arcs;
  }
}

TEST(ArcPortee, ALoopTooShortToBeDrawnReachesNothing) {
  // A chamber of which a millionth of a millimetre is left at 2 mm less the engine's slack, and a large one behind
  // a door of 0.6 mm, into which the cutter noses until it touches both corners.
  const double d = 2 - 0.06 * Tolerance;
  const double h = d + 1e-6;
  const double w = d + std::sqrt(d * d - 0.3 * 0.3) + 1e-6;
  const Region r{{{{0, 0},
                   {w, 0},
                   {w, h - 0.3},
                   {w + 3, h - 0.3},
                   {w + 3, h - 5},
                   {w + 13, h - 5},
                   {w + 13, h + 5},
                   {w + 3, h + 5},
                   {w + 3, h + 0.3},
                   {w, h + 0.3},
                   {w, 2 * h},
                   {0, 2 * h}}},
                 1};
  Boucles b;
  ASSERT_TRUE(DecaleRegion(r, 2, Tolerance, b));
  ASSERT_EQ(b.size(), 1U) << "the large one alone";
  ASSERT_TRUE(DecaleRegion(r, 1.7, Tolerance, b));
  ASSERT_EQ(b.size(), 2U);
  EXPECT_FALSE(Dit(r, 1.6, 1.7, 2, 1, true));
}

TEST(ArcPortee, OfRandomOutlinesItNeverSaysNearOfWhatIsNot) {
  std::mt19937_64 g(21);
  const auto entre = [&g](double a, double b) { return std::uniform_real_distribution<double>(a, b)(g); };
  int oui = 0;
  int non = 0;
  for (unsigned k = 0; k < 240; ++k) {
    Region r;
    double taille = 20;  // of its finest parts, mm, roughly
    if (k % 4 == 0) {
      r = Damier(g, 0.3 + 0.1 * static_cast<double>(g() % 6), 2, g() % 2 != 0);
      taille = 2;
    } else if (k % 4 == 1) {
      r = {{EnChemin(Etoile(k))}, 1};
    } else if (k % 4 == 2) {
      r = {{EnChemin(CercleBruite(k, 200, 0.6))}, 1};
    } else {
      std::vector<Region> regions;
      const Chemin c = EnChemin(Croisee(g, 4 + static_cast<int>(g() % 30)));
      ASSERT_TRUE(pathwerk::decalage::SepareLobesCoupes(c, Tolerance, regions));
      if (regions.empty()) continue;
      r = regions[0];
      taille = 4;
    }
    const double signe = r.signe >= 0 ? 1 : -1;
    const double rayon = taille * entre(0.02, 0.2);
    const double avant = rayon * entre(1, 3);
    const double milieu = avant + rayon;
    const double loin = milieu + rayon * entre(-0.1, 0.9);
    SCOPED_TRACE(k);
    if (!Dit(r, signe * avant, signe * milieu, signe * loin, rayon, false)) {
      ++non;
      continue;
    }
    ++oui;
    Boucles b, vers;
    ASSERT_TRUE(DecaleRegion(r, signe * milieu, Tolerance, b));
    ASSERT_TRUE(DecaleRegion(r, signe * loin, Tolerance, vers));
    EXPECT_LE(Ecart(b, vers), rayon + 1e-9) << "depths " << avant << " " << milieu << " " << loin;
  }
  EXPECT_GT(oui, 40);
  EXPECT_GT(non, 40);
}
