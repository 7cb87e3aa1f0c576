// How the rings of a pocket hang together: one path wherever the cutter can stay down.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <vector>

#include "tests/unit/closed/pathwerk/poche/AidePoche.h"

using namespace controle;
using pathwerk::PointTrace;

namespace {

P EnP(const PointTrace& p) { return {static_cast<double>(p.X), static_cast<double>(p.Y)}; }
double Pas(const PointTrace& a, const PointTrace& b) {
  return std::hypot(EnP(a).x - EnP(b).x, EnP(a).y - EnP(b).y);
}

std::vector<double> Profondeurs(const Trace& contour, const Trace& t) {
  std::vector<double> d;
  for (const PointTrace& p : t) d.push_back(Distance(contour, EnP(p)));
  return d;
}

// The records of the last round: from where the place of the last one came before, at one depth all along.
std::size_t DebutDuDernierTour(const Trace& t) {
  for (std::size_t i = t.size() - 1; i-- > 0;) {
    if (MemePlace(t[i], t.back())) return i;
  }
  return t.size() - 1;
}

void EstUnePiece(const Forme& forme, double rayon) {
  const Trace s = EnTrace(forme, true);
  for (const int recouvrement : Recouvrements) {
    for (const double signe : {1.0, -1.0}) {
      const auto [r, t] = Decale(s, signe * rayon, recouvrement);
      ASSERT_GT(r, 0);
      EXPECT_EQ(Pieces(t).size(), 1U) << "overlap " << recouvrement << "\n" << Texte(s);
    }
  }
}

Forme Regulier(int n, double rayon) {
  Forme f;
  for (int i = 0; i < n; ++i) {
    const double a = 6.28318530717959 * i / n + 0.1;
    f.push_back({rayon * std::cos(a), rayon * std::sin(a)});
  }
  return f;
}

// Two rooms of 20 mm and a corridor 20 mm long between them.
Forme Haltere(double couloir) {
  const double b = 10 - couloir / 2;
  const double h = 10 + couloir / 2;
  return {{0, 0},   {20, 0},  {20, b}, {40, b}, {40, 0},  {60, 0},
          {60, 20}, {40, 20}, {40, h}, {20, h}, {20, 20}, {0, 20}};
}

}  // namespace

TEST(PocheTrajet, OneRegionIsOnePiece) {
  EstUnePiece(Carre(0, 0, 40), 1.5);
  EstUnePiece(Regulier(7, 20), 1);
  EstUnePiece({{0, 0}, {30, 0}, {30, 10}, {10, 10}, {10, 40}, {0, 40}}, 1);
  EstUnePiece({{0, 0}, {8, 0}, {8, 18}, {20, 18}, {20, 26}, {8, 26}, {8, 40}, {26, 40}, {26, 48}, {0, 48}}, 1);
  EstUnePiece({{0, 20}, {10, 13}, {20, 20}, {14, 10}, {20, 0}, {10, 7}, {0, 0}, {6, 10}}, 0.7);
  EstUnePiece(Peigne(6, 9, 25, 4), 1.2);
  EstUnePiece({{0, 0}, {80, -4}, {80, 4}}, 1);
}

TEST(PocheTrajet, RoomsThatTheCutterPassesBetweenAreOnePiece) {
  for (const double couloir : {4.2, 5.0, 7.0, 9.0, 13.0}) EstUnePiece(Haltere(couloir), 2);
}

TEST(PocheTrajet, RoomsThatTheCutterCannotPassBetweenAreAPieceEach) {
  const Trace s = EnTrace(Haltere(3.9), true);
  const auto [r, t] = Decale(s, 2, 40);
  ASSERT_GT(r, 0);
  const std::vector<Trace> p = Pieces(t);
  ASSERT_EQ(p.size(), 2U);
  EXPECT_NE(p[0][0].Seq, p[1][0].Seq);
  for (const Trace& piece : p) {
    for (const PointTrace& q : piece) EXPECT_EQ(q.Seq, piece[0].Seq);
    const Boite b = BoiteDe(piece);
    // A room less the cutter, which noses into the mouth of the corridor until it touches both corners.
    EXPECT_NEAR(b.x1 - b.x0, 18 - std::sqrt(2 * 2 - 1.95 * 1.95), 0.02);
  }
}

TEST(PocheTrajet, AnIslandIsNotCrossed) {
  // A band around the middle whose ends overlap: the outline crosses itself and leaves a square standing inside.
  const Trace s =
      EnTrace({{0, 0}, {40, 0}, {40, 40}, {0, 40}, {0, -3}, {10, -3}, {10, 30}, {30, 30}, {30, 10}, {0, 10}}, true);
  Trace bord = EnTrace({{0, -3}, {10, -3}, {10, 0}, {40, 0}, {40, 40}, {0, 40}}, true);
  Trace ile = EnTrace({{10, 10}, {30, 10}, {30, 30}, {10, 30}}, true);
  for (PointTrace& p : ile) p.Seq = pathwerk::Code2("ZZ");
  bord.insert(bord.end(), ile.begin(), ile.end());
  for (const int recouvrement : {0, 25, 40, 60, 90}) {
    const auto [r, t] = Decale(s, 1, recouvrement);
    ASSERT_GT(r, 0);
    EXPECT_EQ(Pieces(t).size(), 1U) << "overlap " << recouvrement;
    const Couverture c = MesureCouverture(bord, t, 1);
    EXPECT_LE(c.debout, Tolerance) << "overlap " << recouvrement;
    EXPECT_LE(c.entaille, Tolerance) << "overlap " << recouvrement;
  }
}

TEST(PocheTrajet, RingsOfAPlainPocketComeFromTheInsideOutwards) {
  for (const Forme& f : {Carre(0, 0, 40), Regulier(9, 20), Forme{{0, 0}, {50, 0}, {35, 25}, {5, 20}}}) {
    const Trace s = EnTrace(f, true);
    const std::vector<double> d = Profondeurs(s, Decale(s, 1, 60).second);
    ASSERT_GT(d.size(), 20U);
    for (std::size_t i = 1; i < d.size(); ++i) ASSERT_LT(d[i], d[i - 1] + Tolerance);
  }
}

TEST(PocheTrajet, TheLastRoundIsTheWallWithoutInterruption) {
  for (const int recouvrement : {0, 40}) {
    for (const Forme& f : {Carre(0, 0, 40), Haltere(5), Peigne(4, 9, 25, 4)}) {
      const Trace s = EnTrace(f, true);
      const auto [r, t] = Decale(s, 1.9, recouvrement);
      ASSERT_GT(r, 0);
      const std::size_t debut = DebutDuDernierTour(t);
      const Trace tour(t.begin() + static_cast<long>(debut), t.end());
      const Trace seul = Decale(s, 1.9, 101).second;
      EXPECT_NEAR(Longueur(tour), Longueur(seul), 0.01);
      for (const double d : Profondeurs(s, tour)) EXPECT_NEAR(d, 1.9, Tolerance);
    }
  }
}

TEST(PocheTrajet, TheLastRoundBeginsBesideTheStartOfTheOutline) {
  const Forme f{{20, 0}, {40, 0}, {40, 40}, {0, 40}, {0, 0}};
  const auto [r, t] = Decale(EnTrace(f, true), 2, 40);
  ASSERT_GT(r, 0);
  EXPECT_NEAR(t.back().X, 20, 0.01);
  EXPECT_NEAR(t.back().Y, 2, 0.01);
  // In the blind end of a corridor that bends, too, which no straight move leads to.
  const Forme coude{{60, 30}, {55, 30}, {55, 10}, {20, 10}, {20, 20}, {0, 20}, {0, 0}, {20, 0}, {20, 5}, {60, 5}};
  const Trace s = EnTrace(coude, true);
  const auto [r2, t2] = Decale(s, 2, 40);
  ASSERT_GT(r2, 0);
  EXPECT_EQ(Pieces(t2).size(), 1U);
  EXPECT_NEAR(t2.back().X, 58, 0.01);
  EXPECT_NEAR(t2.back().Y, 28, 0.01);
  EXPECT_LE(MesureCouverture(s, t2, 2).entaille, Tolerance);
}

TEST(PocheTrajet, EveryRingRunsTheWayOfItsSide) {
  for (const Forme& f : {Carre(0, 0, 30), Haltere(7), Retourne(Haltere(7))}) {
    const Trace s = EnTrace(f, true);
    for (const double signe : {1.0, -1.0}) {
      const auto [r, t] = Decale(s, signe * 2, 60);
      ASSERT_GT(r, 0);
      const std::vector<double> d = Profondeurs(s, t);
      std::size_t vus = 0;
      for (std::size_t i = 0; i + 1 < t.size(); ++i) {
        const double l = Pas(t[i], t[i + 1]);
        if (l < 1 || std::abs(d[i] - d[i + 1]) > Tolerance) continue;
        const P a = EnP(t[i]), b = EnP(t[i + 1]);
        const P m{(a.x + b.x) / 2, (a.y + b.y) / 2};
        if (std::abs(Distance(s, m) - d[i]) > Tolerance) continue;  // a move through the middle
        const P gauche{m.x - (b.y - a.y) / l * 0.3, m.y + (b.x - a.x) / l * 0.3};
        EXPECT_EQ(Distance(s, gauche) > d[i], signe > 0) << "deeper ground is on the left of a positive fill";
        ++vus;
      }
      EXPECT_GT(vus, 20U);
    }
  }
}

TEST(PocheTrajet, PathIsHardlyLongerThanAreaOverStep) {
  const struct {
    Forme forme;
    double rayon;
    double aire;
  } cas[] = {{Carre(0, 0, 200), 0.5, 40000},
             {Carre(0, 0, 200), 3, 40000},
             {Regulier(6, 100), 1, 25980.76},
             {Regulier(100, 100), 1, 31395.26}};
  for (const auto& c : cas) {
    for (const int recouvrement : {0, 10, 25, 40, 50, 60, 75, 90}) {
      const double pas = 2 * c.rayon * (100 - recouvrement) / 100;
      const auto [r, t] = Decale(EnTrace(c.forme, true), c.rayon, recouvrement);
      ASSERT_GT(r, 0);
      EXPECT_LE(Longueur(t), 1.15 * c.aire / pas) << "R " << c.rayon << ", overlap " << recouvrement;
      EXPECT_GE(Longueur(t), 0.85 * c.aire / pas) << "R " << c.rayon << ", overlap " << recouvrement;
    }
  }
}

TEST(PocheTrajet, MovesBetweenTheRingsOfAPlainPocketAreOneStraightLine) {
  // From the middle of a square to the corner where it begins.
  const Trace s = EnTrace(Carre(0, 0, 200), true);
  const auto [r, t] = Decale(s, 0.5, 40);
  ASSERT_GT(r, 0);
  const std::vector<double> d = Profondeurs(s, t);
  double liens = 0;
  for (std::size_t i = 0; i + 1 < t.size(); ++i) {
    if (std::abs(d[i] - d[i + 1]) > 0.3) liens += Pas(t[i], t[i + 1]);
  }
  EXPECT_NEAR(liens, std::sqrt(2.0) * (99.5 - 0.5), 1);
}

TEST(PocheTrajet, TheWayAroundABendIsTheShorterOne) {
  // A room and a corridor with two bends, in whose blind end the wall's round begins.
  const Forme f{{60, 30}, {55, 30}, {55, 10}, {20, 10}, {20, 20}, {0, 20}, {0, 0}, {20, 0}, {20, 5}, {60, 5}};
  const auto [r, t] = Decale(EnTrace(f, true), 2, 40);
  ASSERT_GT(r, 0);
  const double mur = Longueur(Decale(EnTrace(f, true), 2, 101).second);
  // Rings of the room at 4.4, 6.8 and 9.2 mm, their moves, and from the room's edge to the corridor's end.
  const double dedans = 4 * (11.2 + 6.4 + 1.6) + 4 * 2.4 * 1.5;
  EXPECT_LT(Longueur(t), mur + dedans + std::hypot(40, 7) + 22 + 4);
}

TEST(PocheTrajet, WhatHangsOnTheWallIsVisitedTheShorterWay) {
  // Ten chambers in a row, doors that only the outermost ring passes: one way along all of them and back with the
  // wall, not a way around for each.
  Forme f{{0, 0}};
  for (int i = 0; i < 10; ++i) {
    const double x = 14.0 * i;
    f.insert(f.end(), {{x, -5}, {x + 10, -5}, {x + 10, 0}, {x + 14, 0}});
  }
  for (int i = 10; i-- > 0;) {
    const double x = 14.0 * i;
    f.insert(f.end(), {{x + 14, 3}, {x + 10, 3}, {x + 10, 8}, {x, 8}});
  }
  f.push_back({0, 3});
  const Trace s = EnTrace(f, true);
  const auto [r, t] = Decale(s, 1, 40);
  ASSERT_GT(r, 0);
  EXPECT_EQ(Pieces(t).size(), 1U);
  const double aire = 10 * (10 * 13 + 4 * 3);
  EXPECT_LT(Longueur(t), 1.15 * aire / 1.2 + 140);
}
