#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <vector>

#include "closed/zenikcom/virtual/Cadences.h"

namespace {

using namespace zenikcom;

TEST(Cadences, PeriodsAtMultiplierOneAndTwo) {
  const std::vector<int> niveaux{0, 1, 2, 10, 128, 254, 255};
  const std::vector<std::int64_t> un{65535, 46008, 35447, 12497, 1185, 602, 600};
  const std::vector<std::int64_t> deux{65535, 35372, 24223, 6879, 595, 301, 300};
  const Cadences a(1, 5), b(2, 5);
  for (std::size_t i = 0; i < niveaux.size(); ++i) {
    EXPECT_EQ(a.Periode(niveaux[i]), un[i]) << niveaux[i];
    EXPECT_EQ(b.Periode(niveaux[i]), deux[i]) << niveaux[i];
  }
}

TEST(Cadences, ALevelLastsTwoToTheSlopePlusNineCountsOfTwelveMegahertz) {
  for (const int pente : {1, 5, 9}) {
    const Cadences c(3, pente);
    EXPECT_EQ(c.Palier() * 12'000'000 / c.UnitesParSeconde(), 1 << (9 + pente));
  }
}

TEST(Cadences, All256LevelsTogetherHaveAbout1764TicksOr3511) {
  EXPECT_NEAR(std::ldexp(static_cast<double>(Cadences(1, 5).Somme(256)), -32), 1764, 0.5);
  EXPECT_NEAR(std::ldexp(static_cast<double>(Cadences(2, 5).Somme(256)), -32), 3511, 0.5);
}

TEST(Cadences, KeepWithinTheirRange) {
  EXPECT_EQ(Cadences(0, 0).Palier(), Cadences(1, 1).Palier());
  EXPECT_EQ(Cadences(999, 99).Palier(), Cadences(255, 9).Palier());
  for (int niveau = 0; niveau < 256; ++niveau) EXPECT_GT(Cadences(255, 9).Periode(niveau), 0);
}

// The same board by brute force: one tick after the other, the unfinished part of a tick carried over each level's
// end, in counts of the 12 MHz clock.
struct Naif {
  std::vector<double> temps;  // of each tick, s
  int sommet = 255;
};

std::vector<double> Durees(int multiplicateur, int pente) {
  std::vector<double> durees;
  for (int i = 0; i < 256; ++i) {
    const double f = (255 - i) * 6e6 / 16'711'425 + multiplicateur * 1e4 / 255 * i;
    durees.push_back(std::ldexp(1.0, 9 + pente) / (2 * std::nearbyint(6e6 / f)));
  }
  return durees;
}

int SommetNaif(const std::vector<double>& durees, double ticks, int depart) {
  std::vector<double> somme(257, 0);
  for (int i = 1; i <= 256; ++i) {
    const auto n = static_cast<std::size_t>(i);
    somme[n] = i <= depart ? 0 : somme[n - 1] + durees[n - 1];
  }
  for (std::size_t i = 1; i < 255; ++i) {
    if (ticks - 2 * somme[i] >= 0 && ticks - 2 * somme[i + 1] < 0 && somme[i] > 0) return static_cast<int>(i);
  }
  return 255;
}

Naif Joue(int multiplicateur, int pente, const Record& r) {
  const std::vector<double> durees = Durees(multiplicateur, pente);
  const double palier = std::ldexp(1.0, 9 + pente) / 12e6;
  Naif naif;
  naif.sommet = SommetNaif(durees, r.ticks, r.depart);
  int niveau = r.depart;
  bool descend = false;
  double temps = 0, dansNiveau = 0, phase = 0;  // of the tick, 0 to 1
  for (int k = 0; k < r.ticks; ++k) {
    if (!descend && k >= r.descente) {
      descend = true;
      niveau = std::min(niveau, naif.sommet - 1);
      dansNiveau = 0;
    }
    while (true) {
      const double tick = palier / durees[static_cast<std::size_t>(niveau)];
      const bool change = descend ? niveau > r.fond : niveau < naif.sommet;
      const double reste = palier - dansNiveau;
      if (!change || (1 - phase) * tick <= reste) {
        temps += (1 - phase) * tick;
        dansNiveau += (1 - phase) * tick;
        phase = 0;
        break;
      }
      phase += reste / tick;
      temps += reste;
      dansNiveau = 0;
      niveau += descend ? -1 : 1;
    }
    naif.temps.push_back(temps);
  }
  return naif;
}

void Compare(int multiplicateur, int pente, const Record& r) {
  const Cadences cadences(multiplicateur, pente);
  const Allure allure(cadences, r);
  const Naif naif = Joue(multiplicateur, pente, r);
  ASSERT_EQ(allure.Sommet(), naif.sommet) << r.ticks << " from " << r.depart;
  const double unite = 1.0 / static_cast<double>(cadences.UnitesParSeconde());
  std::int64_t avant = 0;
  for (std::int64_t k = 1; k <= r.ticks; ++k) {
    const std::int64_t t = allure.Temps(k);
    ASSERT_NEAR(static_cast<double>(t) * unite, naif.temps[static_cast<std::size_t>(k - 1)], 2 * unite) << k;
    ASSERT_GE(t, avant);
    // Done at its unit, and not before.
    ASSERT_GE(static_cast<std::int64_t>(allure.Ticks(t) >> 32U), k) << k << " of " << r.ticks;
    ASSERT_LT(static_cast<std::int64_t>(allure.Ticks(t - 1) >> 32U), k) << k << " of " << r.ticks;
    avant = t;
  }
}

TEST(Allure, IsThatOfABoardThatCountsEveryTick) {
  std::mt19937 hasard(11);
  for (int essai = 0; essai < 150; ++essai) {
    const int multiplicateur = essai % 3 == 0 ? 1 + static_cast<int>(hasard() % 6) : 1 + essai % 2;
    const int pente = essai % 5 == 0 ? 1 + static_cast<int>(hasard() % 9) : 5;
    Record r{.ticks = 1 + static_cast<std::int32_t>(hasard() % 9000), .rampe = true};
    r.depart = r.fond = static_cast<int>(hasard() % 255);
    const std::vector<double> durees = Durees(multiplicateur, pente);
    double descend = 0;
    for (int i = r.depart; i < SommetNaif(durees, r.ticks, r.depart); ++i)
      descend += durees[static_cast<std::size_t>(i)];
    r.descente = static_cast<std::int32_t>(std::nearbyint(r.ticks - descend));
    SCOPED_TRACE(essai);
    Compare(multiplicateur, pente, r);
    if (testing::Test::HasFatalFailure()) return;
  }
}

// What the host foresees for a row, by its own arithmetic: from the ratio of speed and start speed to the level,
// the ramp sums, the top, both ramps and the plateau.
TEST(Allure, LastsWhatIsForeseenToOneTickOfItsSlowestLevel) {
  std::mt19937 hasard(17);
  int compares = 0;
  for (int essai = 0; essai < 4000; ++essai) {
    const int multiplicateur = 1 + static_cast<int>(hasard() % 6), pente = 1 + static_cast<int>(hasard() % 9);
    const double ratio = 1.0001 + static_cast<double>(hasard() % 4000) / 100;
    const int ticks = 1 + static_cast<int>(hasard() % 60'000);
    const std::vector<double> durees = Durees(multiplicateur, pente);
    const double palier = std::ldexp(1.0, 9 + pente);
    const double cherche = std::ceil(ratio * 600 / multiplicateur);
    int n = 0;
    while (palier / (2 * durees[static_cast<std::size_t>(n)]) > cherche + 1e-6) ++n;
    n = std::max(n - 1, 0);
    const int sommet = SommetNaif(durees, ticks, n);
    double cumul = 0;
    for (int i = n; i < sommet; ++i) cumul += durees[static_cast<std::size_t>(i)];
    if (ticks - 2 * cumul < 0) continue;  // too short to climb: what is foreseen has a negative plateau
    ++compares;
    const double periode = palier / (2 * durees[static_cast<std::size_t>(sommet)]);
    const double prevu = 2 * (sommet - n) * palier / 12e6 + (ticks - 2 * cumul) * periode / 6e6;
    Record r{.ticks = ticks, .rampe = true, .depart = n, .fond = n};
    r.descente = static_cast<std::int32_t>(std::nearbyint(ticks - cumul));
    const Cadences c(multiplicateur, pente);
    const double temps = static_cast<double>(Allure(c, r).Temps(ticks)) / static_cast<double>(c.UnitesParSeconde());
    ASSERT_NEAR(temps, prevu, static_cast<double>(c.Periode(n)) / 6e6)
        << ticks << " from " << n << " to " << sommet;
  }
  EXPECT_GT(compares, 2000);
}

TEST(Allure, OneTooShortToClimbStaysOnItsFirstLevel) {
  const Cadences c(1, 5);
  const Record r{.ticks = 3, .rampe = true, .depart = 126, .fond = 126, .descente = -1500};
  const Allure allure(c, r);
  EXPECT_EQ(allure.Sommet(), 255);
  EXPECT_EQ(allure.Temps(3), 3 * c.Tick(126));
}

TEST(Allure, TimeOfALongRowIsBothRampsAndThePlateau) {
  // From level 126 at multiplier 2: 129 levels each way, and the ticks between them at 20,000 a second.
  const Cadences c(2, 5);
  const double montee = std::ldexp(static_cast<double>(c.Somme(255) - c.Somme(126)), -32);
  Record r{.ticks = 40'000, .rampe = true, .depart = 126, .fond = 126};
  r.descente = static_cast<std::int32_t>(std::nearbyint(r.ticks - montee));
  const double secondes =
      static_cast<double>(Allure(c, r).Temps(r.ticks)) / static_cast<double>(c.UnitesParSeconde());
  const double prevu = 2 * 129 * 16'384 / 12e6 + (40'000 - 2 * montee) / 20'000;
  EXPECT_NEAR(secondes, prevu, static_cast<double>(c.Tick(126)) / 24e6);
}

TEST(Allure, WithoutRampEveryTickIsOneOfTheFullRate) {
  for (const int multiplicateur : {1, 2, 6, 7, 255}) {
    const Cadences c(multiplicateur, 5);
    const Allure allure(c, {.ticks = 10'000 * multiplicateur});
    EXPECT_EQ(allure.Temps(10'000 * multiplicateur), c.UnitesParSeconde()) << "one second";
    EXPECT_EQ(allure.Ticks(c.UnitesParSeconde() / 2) >> 32U, 5'000U * static_cast<unsigned>(multiplicateur));
  }
}

TEST(Allure, AnyBytesGiveAPaceThatEnds) {
  std::mt19937 hasard(3);
  const Cadences c(255, 9);
  for (int essai = 0; essai < 20'000; ++essai) {
    Record r{.ticks = static_cast<std::int32_t>(1 + hasard() % 2'147'483'647U), .rampe = true};
    r.depart = static_cast<int>(hasard() % 256);
    r.fond = static_cast<int>(hasard() % 256);
    r.descente = static_cast<std::int32_t>(hasard());
    const Allure allure(c, r);
    const std::int64_t fin = allure.Temps(r.ticks);
    ASSERT_GT(fin, 0);
    ASSERT_EQ(static_cast<std::int64_t>(allure.Ticks(fin) >> 32U), r.ticks);
    ASSERT_LT(static_cast<std::int64_t>(allure.Ticks(fin - 1) >> 32U), r.ticks);
  }
}

}  // namespace
