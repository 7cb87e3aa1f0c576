// Pockets that go around islands: all else is cleared, nothing of an island is touched, wherever they lie.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "tests/unit/closed/pathwerk/poche/AidePoche.h"

using namespace controle;
using pathwerk::Code2;
using pathwerk::CodePC;
using pathwerk::PointTrace;

namespace {

// Islands as the library takes them: runs of a `Seq` of their own.
Trace Runs(const std::vector<Trace>& ilots) {
  Trace r;
  for (std::size_t k = 0; k < ilots.size(); ++k) {
    for (PointTrace p : ilots[k]) {
      p.Seq = Code2(static_cast<char16_t>(u'A' + k / 26), static_cast<char16_t>(u'A' + k % 26));
      r.push_back(p);
    }
  }
  return r;
}

std::pair<int, Trace> Poche(const Trace& contour, const std::vector<Trace>& ilots, double decal, int recouvrement) {
  Trace t = contour;
  const int r = pathwerk::DecalSequenceIlots(t, 0.01F, static_cast<float>(decal), recouvrement, Runs(ilots));
  return {r, r == 0 ? Trace{} : t};
}

std::vector<Trace> Fermes(const std::vector<Forme>& formes) {
  std::vector<Trace> r;
  for (const Forme& f : formes) r.push_back(EnTrace(f, true));
  return r;
}

// Both senses and several overlaps. Returns the pieces of the fill at 40 per cent.
std::size_t Contourne(const Forme& forme, const std::vector<Forme>& formes, double rayon) {
  const Trace contour = EnTrace(forme, true);
  const std::vector<Trace> ilots = Fermes(formes);
  double signe = 1;
  std::size_t pieces = 0;
  for (const int recouvrement : {0, 25, 40, 60, 85}) {
    const auto [r, t] = Poche(contour, ilots, signe * rayon, recouvrement);
    EXPECT_GT(r, 0) << Cas(contour, ilots, rayon, recouvrement);
    if (r == 0) return 0;
    Juge(contour, ilots, t, rayon, recouvrement);
    if (recouvrement == 40) pieces = Pieces(t).size();
    signe = -signe;
  }
  return pieces;
}

Forme Place(Forme f, double dx, double dy, double echelle = 1) {
  for (P& p : f) p = {echelle * p.x + dx, echelle * p.y + dy};
  return f;
}

const Forme Grand = Carre(0, 0, 40);

}  // namespace

TEST(PocheIlots, AreLeftStandingAndAllAroundIsClearedInOneGo) {
  EXPECT_EQ(Contourne(Grand, {Carre(15, 15, 10)}, 1.5), 1U);
  EXPECT_EQ(Contourne(Grand, {Carre(5, 8, 7), Place(Cercle(5, 60), 28, 27)}, 1.5), 1U);
  EXPECT_EQ(Contourne(Retourne(Grand), {Retourne(Carre(22, 6, 11)), Carre(6, 22, 11)}, 1.2), 1U);
}

TEST(PocheIlots, TheirWallIsAsFarFromTheToolAsThePocketsOwn) {
  const Trace ilot = EnTrace(Carre(15, 15, 10), true);
  const auto [r, t] = Poche(EnTrace(Grand, true), {ilot}, 1.5, 40);
  ASSERT_GT(r, 0);
  for (std::size_t i = 0; i + 1 < ilot.size(); ++i) {
    for (double s = 0.05; s < 1; s += 0.1) {
      const P p{static_cast<double>(ilot[i].X) * (1 - s) + static_cast<double>(ilot[i + 1].X) * s,
                static_cast<double>(ilot[i].Y) * (1 - s) + static_cast<double>(ilot[i + 1].Y) * s};
      EXPECT_NEAR(Distance(t, p), 1.5, Tolerance) << p.x << " " << p.y;
    }
  }
}

TEST(PocheIlots, WithoutAnyTheFillIsThatOfThePocket) {
  const Trace contour = EnTrace(Etoile(5), true);
  const auto plat = controle::Decale(contour, 1.1, 40);
  EXPECT_EQ(Poche(contour, {}, 1.1, 40), plat);
  EXPECT_EQ(Poche(contour, Fermes({Place(Carre(0, 0, 5), 500, 0)}), 1.1, 40), plat) << "far outside";
  Trace ouvert = EnTrace({{-3, -3}, {3, -3}, {3, 3}}, false);
  EXPECT_EQ(Poche(contour, {ouvert}, 1.1, 40), plat) << "an open path runs around nothing";
  EXPECT_EQ(Poche(contour, {Trace(2, ouvert[0])}, 1.1, 40), plat) << "nor does a hole";
}

TEST(PocheIlots, AreNothingToAPlainContourOrAnOpenPath) {
  const Trace contour = EnTrace(Grand, true);
  const std::vector<Trace> ilots = Fermes({Carre(15, 15, 10)});
  EXPECT_EQ(Poche(contour, ilots, 1.5, 100), controle::Decale(contour, 1.5, 100));
  const Trace ouvert = EnTrace({{0, 0}, {40, 0}, {40, 40}}, false);
  EXPECT_EQ(Poche(ouvert, ilots, 1.5, 40), controle::Decale(ouvert, 1.5, 40));
}

TEST(PocheIlots, OneBesideThePocketTakesNothingAway) {
  const Trace contour = EnTrace(EtoileA(6, 25, 7), true);
  const auto [r, t] = Poche(contour, Fermes({Carre(17, 9, 4)}), 1, 40);  // between two branches
  ASSERT_GT(r, 0);
  EXPECT_EQ(t, controle::Decale(contour, 1, 40).second);
}

TEST(PocheIlots, ThatTouchEachOtherStandAsOne) {
  Contourne(Grand, {Carre(10, 10, 8), Carre(18, 10, 8)}, 1.5);                // a whole side
  Contourne(Grand, {Carre(10, 10, 8), Carre(18, 14, 8)}, 1.5);                // half a side
  Contourne(Grand, {Carre(10, 10, 8), Carre(18, 18, 8)}, 1.5);                // a corner
  Contourne(Grand, {Carre(10, 10, 8), {{18, 14}, {26, 10}, {26, 18}}}, 1.5);  // a corner on a side
}

TEST(PocheIlots, ThatOverlapStandAsOne) {
  Contourne(Grand, {Carre(10, 10, 12), Carre(17, 17, 12)}, 1.5);
  Contourne(Grand, {Carre(8, 18, 24), Carre(18, 8, 1), Carre(16, 8, 14)}, 1.2);
  Contourne(Grand, {Place(Cercle(7, 50), 16, 20), Place(Cercle(7, 50), 24, 20)}, 1.5);
}

TEST(PocheIlots, TwoEqualOnesStandAsOne) {
  const Forme f = Place(Etoile(3), 20, 20, 0.3);
  EXPECT_EQ(Contourne(Grand, {f, f}, 1), Contourne(Grand, {f}, 1));
  Contourne(Grand, {f, Retourne(f)}, 1);
}

TEST(PocheIlots, OneWithinAnotherChangesNothing) {
  Contourne(Grand, {Carre(10, 10, 20), Carre(17, 17, 5)}, 1.5);
  Contourne(Retourne(Grand), {Carre(17, 17, 5), Carre(10, 10, 20), Carre(18, 18, 2)}, 1.5);
}

TEST(PocheIlots, ThatTouchOrCrossTheOutlineLeaveTheRest) {
  EXPECT_EQ(Contourne(Grand, {Carre(0, 12, 10)}, 1.5), 1U);             // on a side of it
  EXPECT_EQ(Contourne(Grand, {Carre(0, 0, 10)}, 1.5), 1U);              // in its corner
  EXPECT_EQ(Contourne(Grand, {Carre(-5, 12, 12)}, 1.5), 1U);            // half outside
  EXPECT_EQ(Contourne(Grand, {Carre(30, 30, 20)}, 1.5), 1U);            // over a corner
  EXPECT_EQ(Contourne(Grand, {{{0, 20}, {9, 16}, {9, 24}}}, 1.5), 1U);  // by a corner
  EXPECT_EQ(Contourne(Grand, {{{-5, 18}, {45, 18}, {45, 22}, {-5, 22}}}, 1.5), 2U) << "a bar parts it";
  EXPECT_EQ(Contourne(Grand, {{{0, 18}, {40, 18}, {40, 22}, {0, 22}}}, 1.5), 2U);
}

TEST(PocheIlots, NearerToTheWallThanTheToolIsWideNothingIsCutBetween) {
  for (const double jeu : {0.5, 1.5, 2.9, 2.99, 3.01, 3.3}) {
    SCOPED_TRACE(jeu);
    Contourne(Grand, {Carre(jeu, 15, 10)}, 1.5);
    Contourne(Grand, {Carre(8, 15, 10), Carre(18 + jeu, 15, 10)}, 1.5);
  }
}

TEST(PocheIlots, ThatLeaveNoRoomLeaveNoFill) {
  const Trace contour = EnTrace(Grand, true);
  EXPECT_EQ(Poche(contour, {contour}, 1.5, 40).first, 0) << "the outline itself";
  EXPECT_EQ(Poche(contour, Fermes({Retourne(Grand)}), 1.5, 40).first, 0);
  EXPECT_EQ(Poche(contour, Fermes({Carre(-1, -1, 42)}), 1.5, 40).first, 0) << "all around";
  EXPECT_EQ(Poche(contour, Fermes({Carre(2, 2, 36)}), 1.5, 40).first, 0) << "a gap below the tool's width";
  EXPECT_GT(Poche(contour, Fermes({Carre(4, 4, 32)}), 1.5, 40).first, 0);
}

TEST(PocheIlots, OfNoNumbersThereIsNoFillRatherThanOneOverThem) {
  Trace ilot = EnTrace(Carre(15, 15, 10), true);
  ilot[2].X = std::numeric_limits<float>::quiet_NaN();
  EXPECT_EQ(Poche(EnTrace(Grand, true), {ilot}, 1.5, 40).first, 0);
  ilot[2].X = 3e8F;
  EXPECT_EQ(Poche(EnTrace(Grand, true), {ilot}, 1.5, 40).first, 0);
}

TEST(PocheIlots, ThatCrossThemselvesStandInBothTheirLoops) {
  Contourne(Grand, {{{12, 12}, {28, 12}, {12, 28}, {28, 28}}}, 1.2);
}

TEST(PocheIlots, StandInPocketsThatCrossThemselves) {
  const Forme huit{{-20, -30}, {20, -30}, {-20, 30}, {20, 30}};
  Contourne(huit, {Carre(-3, -24, 6)}, 1);
  Contourne(huit, {Carre(-3, -24, 6), Carre(-4, 18, 7)}, 1);
  Contourne(huit, {Carre(-4, -4, 8)}, 1);  // over the crossing
}

TEST(PocheIlots, ARowOfThemIsOnePieceOfPath) {
  std::vector<Forme> ilots;
  for (int k = 0; k < 36; ++k) {
    const int rang = k / 6;
    ilots.push_back(Carre(5 + 10 * (k % 6), 5 + 10 * rang, 5));
  }
  EXPECT_EQ(Contourne(Carre(0, 0, 65), ilots, 0.8), 1U);
}

TEST(PocheIlots, MarksOfThePocketStandOnItsOwnWall) {
  Trace contour = EnTrace(Grand, true);
  contour[1].Cde = CodePC;
  for (const std::vector<Forme>& formes :
       {std::vector<Forme>{Carre(15, 15, 10)}, std::vector<Forme>{Carre(15, 15, 10), Carre(20, 20, 9)}}) {
    const auto [r, t] = Poche(contour, Fermes(formes), 1.5, 40);
    ASSERT_GT(r, 0);
    int marques = 0;
    for (const PointTrace& p : t) {
      if (p.Cde != CodePC) continue;
      ++marques;
      EXPECT_NEAR(p.X, 38.5, 0.02);
      EXPECT_NEAR(p.Y, 1.5, 0.02);
    }
    EXPECT_EQ(marques, 1);
    EXPECT_TRUE(MemePlace(Pieces(t)[0].back(), t.back()));
    EXPECT_NEAR(t.back().X, 1.5, 0.02) << "the wall comes last and begins beside the outline's start";
    EXPECT_NEAR(t.back().Y, 1.5, 0.02);
  }
}

TEST(PocheIlots, OfRandomShapesAndPlacesAreLeftStanding) {
  int fraisees = 0;
  for (unsigned graine = 0; graine < 60; ++graine) {
    std::mt19937 g(graine);
    const auto entre = [&g](double a, double b) { return std::uniform_real_distribution<double>(a, b)(g); };
    const auto forme = [&](unsigned sorte, unsigned germe) {
      if (sorte == 0) return Place(Polyomino(germe), 0, 0, 4);
      if (sorte == 1) return Etoile(germe);
      if (sorte == 2) return CercleBruite(germe, 150, 0.6);
      return Carre(-15, -15, 30);
    };
    const Trace contour = EnTrace(forme(graine % 4, graine), true);
    const Boite b = BoiteDe(contour);
    const double large = std::min(b.x1 - b.x0, b.y1 - b.y0);
    std::vector<Trace> ilots;
    const unsigned nombre = 1 + g() % 4;
    for (unsigned k = 0; k < nombre; ++k) {
      Forme f = forme(g() % 4, 1000 + 7 * graine + k);
      const Boite bi = BoiteDe(EnTrace(f, true));
      const double echelle = large * entre(0.05, 0.4) / (bi.x1 - bi.x0);
      f = Place(f, entre(b.x0, b.x1), entre(b.y0, b.y1), echelle);
      if (g() % 2 == 0) f = Retourne(f);
      ilots.push_back(EnTrace(f, true));
      if (g() % 5 == 0) ilots.push_back(ilots.back());
      if (g() % 5 == 0) ilots.push_back(EnTrace(Place(f, f[0].x * 0.5, f[0].y * 0.5, 0.5), true));
    }
    const double rayon = large * entre(0.02, 0.05);
    const int recouvrement = Recouvrements[g() % 8];
    const double signe = g() % 2 == 0 ? 1 : -1;
    SCOPED_TRACE("seed " + std::to_string(graine));
    const auto [r, t] = Poche(contour, ilots, signe * rayon, recouvrement);
    if (r != 0) ++fraisees;
    if (r == 0) {
      EXPECT_EQ(MesureCouverture(contour, ilots, {}, rayon).cellules, 0)
          << Cas(contour, ilots, rayon, recouvrement);
    } else {
      Juge(contour, ilots, t, rayon, recouvrement);
    }
  }
  EXPECT_GT(fraisees, 50);
}
