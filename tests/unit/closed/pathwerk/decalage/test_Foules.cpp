// Scans far denser than their noise: few points bury the rest, and nothing of the border is lost by that.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <random>
#include <set>

#include "base/Vecteur.h"
#include "closed/pathwerk/decalage/ArcLibres.h"
#include "closed/pathwerk/decalage/ArcSaillants.h"
#include "closed/pathwerk/decalage/Moteur.h"
#include "tests/unit/closed/pathwerk/controle/ControleRegion.h"

using namespace controle;
using pathwerk::Vec2;
using pathwerk::decalage::ArcSource;
using pathwerk::decalage::CompteDecaleRegion;
using pathwerk::decalage::Saillants;

namespace {

constexpr double Bruit = 0.05;  // mm

// Points along a line, each off by up to the noise both ways.
Forme LigneScannee(int n, double longueur) {
  std::mt19937_64 g(13);
  std::uniform_real_distribution<double> u(-Bruit, Bruit);
  Forme f;
  for (int i = 0; i < n; ++i) f.push_back({longueur * i / n + u(g), u(g)});
  return f;
}

// Points around a circle of 20 mm.
Forme CercleScanne(int n) {
  std::mt19937_64 g(7);
  std::uniform_real_distribution<double> u(-Bruit, Bruit);
  Forme f;
  for (int i = 0; i < n; ++i) {
    const double a = 2 * std::numbers::pi * i / n;
    f.push_back({10 * std::cos(a) + u(g), 10 * std::sin(a) + u(g)});
  }
  return f;
}

ArcSource SourceDe(const Chemin& c) { return ArcSource(std::span(&c, 1)); }

}  // namespace

TEST(Saillants, OutlineThatIsNoCrowdHasNone) {
  EXPECT_FALSE(Saillants(SourceDe(EnChemin(Cercle(10, 20000))), 1));
  EXPECT_FALSE(Saillants(SourceDe(AllerRetour(Onde(9000, 100, 5, 9))), 1));
  EXPECT_FALSE(Saillants(SourceDe(EnChemin(CercleBruite(3, 20000, 0.02))), 3));
}

TEST(Saillants, OfACrowdAreFewAndAmongThemWhatLiesFarthestOut) {
  const Chemin c = EnChemin(CercleScanne(100000));
  const auto t = Saillants(SourceDe(c), 1);
  ASSERT_TRUE(t);
  EXPECT_LT(t->segments.size(), c.size() / 8);
  EXPECT_EQ(std::set<std::uint32_t>(t->segments.begin(), t->segments.end()).size(), t->segments.size());
  const auto droite = std::max_element(c.begin(), c.end(), [](Vec2 p, Vec2 q) { return p.x < q.x; });
  const auto bas = std::min_element(c.begin(), c.end(), [](Vec2 p, Vec2 q) { return p.y < q.y; });
  for (const auto p : {droite, bas}) {
    EXPECT_TRUE(std::count(t->segments.begin(), t->segments.end(), static_cast<std::uint32_t>(p - c.begin())));
  }
}

TEST(Saillants, LeaveOfTheParallelWhatAllSegmentsLeave) {
  const Chemin c = EnChemin(LigneScannee(6000, 5));
  const ArcSource source = SourceDe(c);
  ASSERT_TRUE(Saillants(source, 1));
  const auto libres = pathwerk::decalage::ArcsLibres(source, 1, 1e-10);
  ASSERT_GT(libres.size(), 10U);
  // Piece by piece, cut by all segments in the order of the path.
  pathwerk::decalage::ArcTailleur tailleur(source, 1, 1e-10);
  std::size_t segments = 0;
  for (std::size_t i = 0; i < source.Taille(); ++i) {
    const Vec2 w = source.B(i) - source.A(i);
    if (tailleur.TailleSegment(i, w * (1 / base::Norme(w)), base::Norme(w), true, true)) {
      segments += tailleur.Reste().size();
    }
  }
  EXPECT_EQ(
      static_cast<std::size_t>(std::count_if(libres.begin(), libres.end(), [](const auto& a) { return !a.arc; })),
      segments);
}

TEST(Foules, OpenScanKeepsItsDistanceAndLosesNothing) {
  const Forme f = LigneScannee(6000, 6);
  ASSERT_TRUE(Saillants(SourceDe(AllerRetour(f)), 1));
  const Trace s = EnTrace(f, false);
  for (const double r : {1.0, -1.0}) {
    const Ecarts e = Mesure(s, Decale(s, r).second, r, 200);
    EXPECT_LE(e.Pire(), 0.01) << r;
  }
}

TEST(Foules, RoundScanIsOffsetAsTheRingBetweenItsPointsNearestAndFarthest) {
  const Forme f = CercleScanne(60000);
  const Trace s = EnTrace(f, true);
  const auto avant = CompteDecaleRegion();
  const auto [r, t] = Decale(s, 1);
  ASSERT_GT(r, 0);
  EXPECT_EQ(CompteDecaleRegion().replis, avant.replis);
  EXPECT_EQ(Pieces(t).size(), 1U);
  EXPECT_TRUE(EstFermee(t));
  // It crosses itself so often that every strand is a wall. No point lies farther in than the corner of its square
  // of noise, and of so many some come within 0.01 mm of that on every millimetre.
  for (const auto& p : t) {
    const double q = std::hypot(static_cast<double>(p.X), static_cast<double>(p.Y));
    EXPECT_GT(q, 9 - Bruit * std::numbers::sqrt2 - 0.001);
    EXPECT_LT(q, 9 - Bruit + 0.01);
  }
  EXPECT_NEAR(Longueur(t), 2 * std::numbers::pi * (9 - 0.06), 0.1);
  for (std::size_t i = 0; i < t.size(); i += 100) {
    const double d = Distance(s, {static_cast<double>(t[i].X), static_cast<double>(t[i].Y)});
    EXPECT_GE(d, 1 - 0.01);
    EXPECT_LE(d, 1 + 1e-5);
  }
}
