// The arithmetic of one record, against figures worked by hand.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "controller/Mouvement.h"

namespace {

using namespace ovelin;
using Pas = std::array<std::int32_t, 3>;

constexpr std::int32_t Palier5 = 16'384;

// 0.01 mm a step, start speeds 10, highest speeds 50 mm/s.
LimitesAxes Axes() {
  LimitesAxes axes;
  axes.MmParPas = {0.01, 0.01, 0.01};
  axes.VitesseDepart = {10, 10, 10};
  axes.VitesseMax = {50, 50, 50};
  return axes;
}

Mouvement Calcule(const LimitesAxes& axes, const Pas& pas, float v, int multiplicateur = 1) {
  return CalculMouvement(multiplicateur, Palier5).Calcule(axes, pas, v);
}

std::int32_t Lit32(const zenikcom::TamponOctets& t, std::size_t i) {
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(t[i]) | static_cast<std::uint32_t>(t[i + 1]) << 8U |
                                   static_cast<std::uint32_t>(t[i + 2]) << 16U |
                                   static_cast<std::uint32_t>(t[i + 3]) << 24U);
}

TEST(CalculMouvement, TenMillimetresAtTenASecondAreTenThousandTicks) {
  const Mouvement m = Calcule(Axes(), {0, 1000, 0}, 10);
  EXPECT_EQ(m.Ticks, 10'000);
  EXPECT_FALSE(m.rampe);
  EXPECT_DOUBLE_EQ(m.T, 1);
  EXPECT_EQ(Calcule(Axes(), {0, 1000, 0}, 10, 6).Ticks, 60'000);
}

TEST(CalculMouvement, TicksAreRoundedUpward) {
  EXPECT_EQ(Calcule(Axes(), {1, 0, 0}, 3).Ticks, 34);  // 0.01 / 3 s are 33.3 ticks
}

TEST(CalculMouvement, TicksEndAtTheirWidth) {
  EXPECT_EQ(Calcule(Axes(), {2'000'000'000, 0, 0}, 0.001F).Ticks, std::numeric_limits<std::int32_t>::max());
}

TEST(CalculMouvement, DiagonalIsLoweredUntilTheSlowestAxisCan) {
  LimitesAxes axes = Axes();
  axes.VitesseMax = {50, 20, 50};
  // 3 to 4: Y takes 4 fifths of 100 mm/s, four times what it can.
  const Mouvement m = Calcule(axes, {300, 400, 0}, 100);
  EXPECT_FLOAT_EQ(m.V, 25);
  EXPECT_EQ(m.Ticks, 2'000);  // 5 mm
}

TEST(CalculMouvement, ZIsLimitedToo) {
  LimitesAxes axes = Axes();
  axes.VitesseMax[2] = 5;
  EXPECT_FLOAT_EQ(Calcule(axes, {0, 0, -700}, 40).V, 5);
}

TEST(CalculMouvement, SpeedWithinTheAxesStaysAsItIs) {
  EXPECT_EQ(Calcule(Axes(), {100, 100, 0}, 7.3F).V, 7.3F);
  EXPECT_FALSE(Calcule(Axes(), {100, 100, 0}, 7.3F).vitesseTenue);
}

TEST(CalculMouvement, StartSpeedItselfNeedsNoRamp) {
  LimitesAxes axes = Axes();
  axes.VitesseDepart = {7.3F, 7.3F, 7.3F};
  EXPECT_FALSE(Calcule(axes, {100, 0, 0}, 7.3F).rampe);
  EXPECT_TRUE(Calcule(axes, {10'000, 0, 0}, std::nextafter(7.3F, 8.0F)).rampe);
}

TEST(CalculMouvement, OnlyTheMovingAxesCountForTheRamp) {
  LimitesAxes axes = Axes();
  axes.VitesseDepart = {10, 40, 10};
  EXPECT_FALSE(Calcule(axes, {0, 1000, 0}, 20).rampe);
  // The whole speed goes into each quotient: 20 / 10 for X, though X itself runs at 14.
  const Mouvement diagonale = Calcule(axes, {10'000, 10'000, 0}, 20);
  EXPECT_TRUE(diagonale.rampe);
  EXPECT_EQ(diagonale.N, 126);
}

TEST(PalierDe, GivesTheKnownLevels) {
  const CalculMouvement un(1, Palier5), deux(2, Palier5);
  const std::array<double, 5> rapports{1.0001, 2, 5, 10, 30};
  const std::array<int, 5> simples{254, 126, 49, 23, 6}, doubles{253, 126, 50, 24, 7};
  for (std::size_t i = 0; i < rapports.size(); ++i) {
    EXPECT_EQ(un.PalierDe(rapports[i]), simples[i]) << rapports[i];
    EXPECT_EQ(deux.PalierDe(rapports[i]), doubles[i]) << rapports[i];
  }
}

TEST(PalierDe, StaysWithinTheTable) {
  for (int m = 1; m <= 255; ++m) {
    const CalculMouvement calcul(m, Palier5);
    EXPECT_EQ(calcul.PalierDe(1e12), 0) << m;
    EXPECT_LE(calcul.PalierDe(1 + 1e-12), 255) << m;
  }
}

// Twice the start speed: from level 126 on. Up to 255 there are 129 levels of 16,384 / 12,000,000 s.
TEST(CalculMouvement, LongRowClimbsToTheFullRateAndComesDown) {
  const Mouvement m = Calcule(Axes(), {20'000, 0, 0}, 20);  // 200 mm, 10 s
  ASSERT_TRUE(m.rampe);
  EXPECT_EQ(m.Ticks, 100'000);
  EXPECT_EQ(m.N, 126);
  EXPECT_EQ(m.P, 255);
  const TableFrequences table = CalculTableFreq(1, Palier5);
  double somme = 0;
  for (std::size_t i = 126; i < 255; ++i) somme += table[i].Duree;
  const double rampe = 129 * 16'384 / 12e6;
  EXPECT_NEAR(m.T, 2 * rampe + (100'000 - 2 * somme) / 10'000, 1e-9);
  EXPECT_EQ(m.Descente, std::lround(100'000 - somme));
  // At full rate all the way the row lasts 10 s, and a ramp costs time.
  EXPECT_GT(m.T, 10);
}

TEST(CalculMouvement, ShortRowTurnsAtTheHighestLevelThatFits) {
  const Mouvement m = Calcule(Axes(), {400, 0, 0}, 20);  // 4 mm, 2,000 ticks
  const TableFrequences table = CalculTableFreq(1, Palier5);
  double somme = 0;
  int p = 126;
  while (2 * (somme + table[static_cast<std::size_t>(p)].Duree) <= 2'000)
    somme += table[static_cast<std::size_t>(p++)].Duree;
  EXPECT_GT(p, 200);
  EXPECT_LT(p, 255);
  EXPECT_EQ(m.P, p);
  EXPECT_EQ(m.Descente, std::lround(2'000 - somme));
}

// A level of the ramp lasts some seven ticks at least; two of them do not fit into five.
TEST(CalculMouvement, RowTooShortToClimbHasANegativePlateau) {
  const Mouvement m = Calcule(Axes(), {1, 0, 0}, 20);
  EXPECT_EQ(m.Ticks, 5);
  EXPECT_EQ(m.N, 126);
  EXPECT_EQ(m.P, 255);
  EXPECT_LT(m.Descente, 0);
  const TableFrequences table = CalculTableFreq(1, Palier5);
  double somme = 0;
  for (std::size_t i = 126; i < 255; ++i) somme += table[i].Duree;
  EXPECT_EQ(m.Descente, std::lround(5 - somme));
  EXPECT_NEAR(m.T, 2 * 129 * 16'384 / 12e6 + (5 - 2 * somme) * 600 / 6e6, 1e-9);
}

TEST(CalculMouvement, SpeedThatIsNoneIsTheSlowestThereIs) {
  for (const float v : {0.0F, -5.0F, std::numeric_limits<float>::quiet_NaN()}) {
    const Mouvement m = Calcule(Axes(), {100, 0, 0}, v);
    EXPECT_TRUE(m.vitesseTenue);
    EXPECT_FLOAT_EQ(m.V, 0.001F);
    EXPECT_EQ(m.Ticks, 10'000'000);  // 1 mm in 1000 s
  }
  EXPECT_FLOAT_EQ(Calcule(Axes(), {100, 0, 0}, std::numeric_limits<float>::infinity()).V, 50);
}

TEST(CalculMouvement, SignOfAResolutionDoesNotMatter) {
  LimitesAxes axes = Axes();
  axes.MmParPas[0] = -0.01;
  EXPECT_EQ(Calcule(axes, {1000, 0, 0}, 10).Ticks, 10'000);
  EXPECT_FLOAT_EQ(Calcule(axes, {1000, 0, 0}, 100).V, 50);
}

TEST(CalculMouvement, KeptSumsAreThoseOfAFreshTable) {
  CalculMouvement garde(6, Palier5);
  for (const float v : {11.0F, 20.0F, 33.0F, 49.9F, 20.0F, 11.0F}) {
    for (const std::int32_t pas : {3, 70, 900, 40'000}) {
      const Mouvement a = garde.Calcule(Axes(), {pas, -pas, 0}, v);
      const Mouvement b = CalculMouvement(6, Palier5).Calcule(Axes(), {pas, -pas, 0}, v);
      EXPECT_EQ(a.T, b.T);
      EXPECT_EQ(a.Descente, b.Descente);
      EXPECT_EQ(a.P, b.P);
    }
  }
}

TEST(ComposeRecord, PutsDirectionsTicksAndEdgesInTheirPlaces) {
  Mouvement m;
  m.pas = {-3, 0, 1'000'000};
  m.Ticks = 0x01020304;
  zenikcom::TamponOctets t{};
  t.fill(99);
  ComposeRecord(m, t);
  EXPECT_EQ(t[0], 0);
  EXPECT_EQ(t[1], 68);
  EXPECT_EQ(t[2], 2 + 4);  // none counts as positive
  EXPECT_EQ(t[3], 4);
  EXPECT_EQ(t[6], 1);
  EXPECT_EQ(Lit32(t, 7), 6);
  EXPECT_EQ(Lit32(t, 11), 0);
  EXPECT_EQ(Lit32(t, 15), 2'000'000);
  for (std::size_t i = 19; i <= 32; ++i) EXPECT_EQ(t[i], 0) << i;
  for (std::size_t i = 33; i <= 36; ++i) EXPECT_EQ(t[i], 99) << i << " is what the reply before left";
}

TEST(ComposeRecord, PutsTheRampBehind) {
  Mouvement m;
  m.pas = {1, 1, 1};
  m.Ticks = 10;
  m.rampe = true;
  m.N = 126;
  m.P = 255;
  m.Descente = -2;
  zenikcom::TamponOctets t{};
  ComposeRecord(m, t);
  EXPECT_EQ(t[2], 7 + 32);
  EXPECT_EQ(t[27], 126);
  EXPECT_EQ(t[28], 126);
  EXPECT_EQ(Lit32(t, 29), -2);
}

TEST(ComposeRecord, EdgesEndAtTheirWidth) {
  Mouvement m;
  m.pas = {std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max(), 1'073'741'823};
  zenikcom::TamponOctets t{};
  ComposeRecord(m, t);
  EXPECT_EQ(Lit32(t, 7), 2'147'483'646);
  EXPECT_EQ(Lit32(t, 11), 2'147'483'646);
  EXPECT_EQ(Lit32(t, 15), 2'147'483'646);
}

}  // namespace
