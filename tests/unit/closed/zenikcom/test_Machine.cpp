// The machine behind the board: play, edges that an axis can't follow, the walked path.
#include <array>
#include <cmath>
#include <vector>

#include "closed/zenikcom/virtual/Machine.h"
#include "tests/unit/closed/zenikcom/Banc.h"

namespace {

using namespace essai;
using zenikcom::Axes3;
using zenikcom::Machine;
using zenikcom::ModeleAxe;
using zenikcom::SuiviAxe;

constexpr double Juste = 1e-9;  // s: edges whose moment is known

TEST(Jeu, TheFirstStepsAfterAReversalMoveNothing) {
  Machine m;
  m.Modele({ModeleAxe{.jeu = 5}, {}, {}});
  m.Avance(0, 1, 100);
  EXPECT_EQ(m.Lieu()[0], 100) << "no reversal yet";
  m.Avance(0, -1, 4);
  EXPECT_EQ(m.Lieu()[0], 100);
  m.Avance(0, -1, 4);
  EXPECT_EQ(m.Lieu()[0], 97);
  m.Avance(0, -1, 7);
  EXPECT_EQ(m.Lieu()[0], 90) << "the same way on: nothing to take up";
  EXPECT_EQ(m.Pas()[0], 85);
}

TEST(Jeu, WhatWasNotTakenUpNeedNotBeTakenUpOnTheWayBack) {
  Machine m;
  m.Modele({ModeleAxe{.jeu = 5}, {}, {}});
  m.Avance(0, 1, 10);
  m.Avance(0, -1, 3);  // three of five
  m.Avance(0, 1, 3);   // and back to where the flank was left
  EXPECT_EQ(m.Lieu()[0], 10);
  m.Avance(0, 1, 1);
  EXPECT_EQ(m.Lieu()[0], 11);
}

TEST(Jeu, EachAxisHasItsOwn) {
  Machine m;
  m.Modele({ModeleAxe{.jeu = 1}, ModeleAxe{.jeu = 2}, {}});
  for (std::size_t axe = 0; axe < 3; ++axe) {
    m.Avance(axe, 1, 10);
    m.Avance(axe, -1, 10);
  }
  EXPECT_EQ(m.Lieu(), (Axes3{1, 2, 0}));
}

int Perdus(const ModeleAxe& modele, double frequence, int fronts, double tick = Juste) {
  SuiviAxe axe;
  int perdus = 0;
  for (int i = 0; i < fronts; ++i) perdus += axe.Front(modele, i / frequence, tick, 1) ? 0 : 1;
  return perdus;
}

TEST(Suivi, FromRestAnAxisFollowsUpToItsFreeSpeed) {
  EXPECT_EQ(Perdus({.vitesseLibre = 1000}, 999, 500), 0);
  EXPECT_EQ(Perdus({.vitesseLibre = 1000}, 5, 500), 0);
}

TEST(Suivi, AtTwiceItsFreeSpeedEverySecondEdgeIsLost) {
  EXPECT_EQ(Perdus({.vitesseLibre = 1000}, 1998, 500), 250);
  EXPECT_EQ(Perdus({.vitesseLibre = 1000}, 2997, 501), 334) << "at three times two of three";
}

// Edges of a constant acceleration a from speed v: position v t + a t^2 / 2.
int PerdusAcceleration(const ModeleAxe& modele, double v, double a, int fronts) {
  SuiviAxe axe;
  int perdus = 0;
  for (int i = 0; i < fronts; ++i)
    perdus += axe.Front(modele, (std::sqrt(v * v + 2 * a * i) - v) / a, Juste, 1) ? 0 : 1;
  return perdus;
}

TEST(Suivi, TheRateMayRiseByTheRamp) {
  const ModeleAxe modele{.vitesseLibre = 500, .rampe = 10'000};
  EXPECT_EQ(PerdusAcceleration(modele, 450, 9'500, 2000), 0);
  EXPECT_GT(PerdusAcceleration(modele, 450, 15'000, 2000), 0);
}

TEST(Suivi, TheRateMayFallByTheRampAndNoQuicker) {
  const ModeleAxe modele{.vitesseLibre = 500, .rampe = 10'000};
  for (const double frein : {9'500.0, 40'000.0}) {
    SuiviAxe axe;
    double t = 0;
    for (int i = 0; i < 800; ++i) {  // up to 4,000 steps/s
      t = (std::sqrt(450.0 * 450 + 2 * 9'500.0 * i) - 450) / 9'500;
      ASSERT_TRUE(axe.Front(modele, t, Juste, 1));
    }
    const double v = 450 + 9'500 * t;
    int perdus = 0;
    for (int i = 1; v * v - 2 * frein * i > 600 * 600; ++i) {
      perdus += axe.Front(modele, t + (v - std::sqrt(v * v - 2 * frein * i)) / frein, Juste, 1) ? 0 : 1;
    }
    if (frein < 10'000) {
      EXPECT_EQ(perdus, 0);
    } else {
      EXPECT_GT(perdus, 0);
    }
  }
}

TEST(Suivi, TheUnevennessOfTicksIsNoChangeOfRate) {
  // 3,000 steps/s out of 20,000 ticks/s: intervals of six and seven ticks, which taken one by one would be 3,333
  // and 2,857 steps/s within a third of a millisecond.
  const ModeleAxe modele{.vitesseLibre = 500, .rampe = 10'000};
  SuiviAxe axe;
  double t0 = 0;
  for (int i = 0; i < 900; ++i) {  // up to speed first
    t0 = (std::sqrt(450.0 * 450 + 2 * 5'000.0 * i) - 450) / 5'000;
    ASSERT_TRUE(axe.Front(modele, t0, 1 / 20e3, 1));
  }
  const double v = 450 + 5'000 * t0;  // 3,034 steps/s
  for (int i = 1; i < 2000; ++i) {
    ASSERT_TRUE(axe.Front(modele, t0 + std::ceil(i / v * 20e3) / 20e3, 1 / 20e3, 1)) << i;
  }
}

TEST(Suivi, AReversalAboveTheFreeSpeedIsLost) {
  const ModeleAxe modele{.vitesseLibre = 500, .rampe = 10'000};
  SuiviAxe axe;
  double t = 0;
  for (int i = 0; i < 800; ++i) {
    t = (std::sqrt(450.0 * 450 + 2 * 9'500.0 * i) - 450) / 9'500;
    ASSERT_TRUE(axe.Front(modele, t, Juste, 1));
  }
  EXPECT_FALSE(axe.Front(modele, t + 1.0 / 4000, Juste, -1));
  SuiviAxe lent;
  ASSERT_TRUE(lent.Front(modele, 0, Juste, 1));
  EXPECT_TRUE(lent.Front(modele, 1 / 450.0, Juste, -1)) << "within it an axis turns at once";
}

TEST(Modele, ARampOfTheBoardIsFollowedByAMachineThatAllowsIt) {
  // 20 steps out of 100 ticks at the full rate, 2,000 steps/s, reached in 255 levels of 1.365 ms: 5,745 steps/s^2.
  for (const double rampe : {7'000.0, 1'000.0}) {
    Banc b;
    b.carte->Modele({zenikcom::ModeleAxe{.vitesseLibre = 300, .rampe = rampe}, {}, {}});
    b.Ouvre();
    b.Envoie(Move{.ticks = 20'000, .x = 4'000, .depart = 30, .descente = 18'300});
    b.Fin();
    b.Part();
    b.heure = 10 * Seconde;
    const auto c = b.carte->Compteurs();
    EXPECT_EQ(c.pas[0], 4'000);
    if (rampe > 5'745) {
      EXPECT_EQ(c.pasPerdus[0], 0);
    } else {
      EXPECT_GT(c.pasPerdus[0], 0);
    }
    EXPECT_EQ(b.carte->Lieu()[0], 4'000 - c.pasPerdus[0]);
  }
}

TEST(Modele, AStartAboveTheFreeSpeedLosesSteps) {
  Banc b;
  b.carte->Modele({zenikcom::ModeleAxe{.vitesseLibre = 600}, {}, {}});
  b.Ouvre();
  b.Envoie(Move{.ticks = 10'000, .x = 1000});  // 1,000 steps/s, an edge every tenth tick
  b.Fin();
  b.Part();
  b.heure = 2 * Seconde;
  EXPECT_EQ(b.carte->Compteurs().pasPerdus[0], 500) << "500 steps/s it can";
  EXPECT_EQ(b.carte->Lieu()[0], 500);
}

TEST(Modele, OfEdgesAtTheSameMomentOneCanBeFollowed) {
  Banc b;
  b.carte->Modele({zenikcom::ModeleAxe{.vitesseLibre = 20'000}, {}, {}});
  b.Ouvre();
  b.Envoie(Move{.ticks = 10, .x = 1'000'000'000});  // 100 million edges a tick
  b.Fin();
  b.Part();
  b.heure = Seconde;
  const auto c = b.carte->Compteurs();
  EXPECT_EQ(c.pas[0], 1'000'000'000);
  EXPECT_EQ(c.pasPerdus[0], 1'000'000'000 - 10);
  EXPECT_EQ(b.carte->Lieu()[0], 10);
}

TEST(Modele, AskingInBetweenChangesNothing) {
  std::array<std::int64_t, 2> lieux{};
  for (const bool demande : {false, true}) {
    Banc b;
    b.carte->Modele({zenikcom::ModeleAxe{.vitesseLibre = 300, .rampe = 4'000, .jeu = 3}, {}, {}});
    b.Ouvre();
    b.Envoie(Move{.ticks = 20'000, .x = 4'000, .depart = 30, .descente = 18'300});
    b.Envoie(Move{.ticks = 20'000, .x = -4'000, .depart = 30, .descente = 18'300});
    b.Fin();
    b.Part();
    if (demande) {
      for (; b.heure < 5 * Seconde; b.heure += 777'777) b.carte->Lieu();
    }
    b.heure = 10 * Seconde;
    lieux[demande ? 1 : 0] = b.carte->Lieu()[0];
  }
  EXPECT_EQ(lieux[0], lieux[1]);
}

TEST(Parcours, HasAPointWhereEachRecordEnded) {
  Banc b;
  b.Ouvre();
  b.Envoie(Move{.ticks = 10, .x = 10});
  b.Envoie(Move{.ticks = 10, .y = 5});
  b.Envoie(Move{.ticks = 10, .x = -10, .z = 10});
  b.Part();
  b.heure = 24 * Tick;
  const std::vector<Axes3> attendu{{0, 0, 0}, {10, 0, 0}, {10, 5, 0}, {6, 5, 4}};
  EXPECT_EQ(b.carte->Parcours(), attendu);
  b.Envoie('S', {0, 0});
  EXPECT_EQ(b.carte->Parcours(), attendu);
}

TEST(Parcours, BeginsAnewWhereTheMachineIsPut) {
  Banc b;
  b.carte->Place({100, 200, -300});
  EXPECT_EQ(b.carte->Lieu(), (Axes3{100, 200, -300}));
  EXPECT_EQ(b.carte->Parcours().size(), 1U);
  EXPECT_EQ(b.carte->Compteurs().pas, Axes3{}) << "no motor has moved";
}

TEST(Parcours, AVeryLongOneIsThinnedOut) {
  Machine m;
  for (int i = 0; i < 4'000'010; ++i) {
    m.Avance(0, 1, 1);
    m.Jalon();
  }
  const auto points = m.Parcours();
  EXPECT_LT(points.size(), 2'000'100U);
  EXPECT_EQ(points.front()[0], 0);
  EXPECT_EQ(points.back()[0], 4'000'010);
}

}  // namespace
