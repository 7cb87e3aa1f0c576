#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <random>

#include "closed/zenikcom/virtual/Record.h"

namespace {

using namespace zenikcom;

std::array<std::uint8_t, 31> Octets(std::uint8_t drapeaux, std::array<std::uint8_t, 4> ticks) {
  std::array<std::uint8_t, 31> octets{};
  octets[0] = drapeaux;
  for (std::size_t i = 0; i < 4; ++i) octets[1 + i] = ticks[i];
  return octets;
}

TEST(LitRecord, TakesTicksAndEdgesLittleEndian) {
  auto octets = Octets(1 + 2 + 4, {0x10, 0x27, 0, 0});  // 10,000
  octets[5] = 0x40;
  octets[6] = 0x06;  // 1,600 edges on X
  octets[9] = 2;     // one step on Y
  octets[15] = 1;    // 65,536 edges on Z
  Record r;
  ASSERT_EQ(LitRecord(octets, r), Lecture::Record);
  EXPECT_EQ(r.ticks, 10'000);
  EXPECT_EQ(r.pas, (Axes3{800, 1, 32'768}));
  EXPECT_FALSE(r.rampe);
}

TEST(LitRecord, AClearBitIsTheNegativeDirection) {
  auto octets = Octets(2, {9, 0, 0, 0});
  octets[5] = octets[9] = octets[13] = 6;
  Record r;
  ASSERT_EQ(LitRecord(octets, r), Lecture::Record);
  EXPECT_EQ(r.pas, (Axes3{-3, 3, -3}));
}

TEST(LitRecord, ReadsTheRampBehindTheFlag) {
  auto octets = Octets(32, {9, 0, 0, 0});
  octets[25] = 126;
  octets[26] = 120;
  octets[27] = 0xFE;
  octets[28] = octets[29] = octets[30] = 0xFF;  // -2
  Record r;
  ASSERT_EQ(LitRecord(octets, r), Lecture::Record);
  EXPECT_TRUE(r.rampe);
  EXPECT_EQ(r.depart, 126);
  EXPECT_EQ(r.fond, 120);
  EXPECT_EQ(r.descente, -2);
}

TEST(LitRecord, WithoutTheFlagTheRampBytesSayNothing) {
  auto octets = Octets(7, {9, 0, 0, 0});
  octets[25] = 126;
  Record r;
  ASSERT_EQ(LitRecord(octets, r), Lecture::Record);
  EXPECT_EQ(r.depart, 0);
}

TEST(LitRecord, BitSevenIsTheEndOfTheJob) {
  Record r;
  EXPECT_EQ(LitRecord(Octets(128, {}), r), Lecture::Fin);
  EXPECT_EQ(LitRecord(Octets(255, {255, 255, 255, 255}), r), Lecture::Fin) << "erased flash memory";
}

TEST(LitRecord, NoTickAndNegativeCountsAreNoRecord) {
  Record r;
  EXPECT_EQ(LitRecord(Octets(7, {0, 0, 0, 0}), r), Lecture::MalForme);
  EXPECT_EQ(LitRecord(Octets(7, {255, 255, 255, 255}), r), Lecture::MalForme);
  for (const std::size_t haut : {8U, 12U, 16U}) {
    auto octets = Octets(7, {1, 0, 0, 0});
    octets[haut] = 0x80;
    EXPECT_EQ(LitRecord(octets, r), Lecture::MalForme) << haut;
  }
}

TEST(LitRecord, NeedsTwentyFiveBytesOrThirtyOne) {
  Record r;
  const auto plat = Octets(7, {1, 0, 0, 0});
  EXPECT_EQ(LitRecord(std::span(plat).first(25), r), Lecture::Record);
  EXPECT_EQ(LitRecord(std::span(plat).first(24), r), Lecture::MalForme);
  const auto rampe = Octets(39, {1, 0, 0, 0});
  EXPECT_EQ(LitRecord(std::span(rampe).first(31), r), Lecture::Record);
  EXPECT_EQ(LitRecord(std::span(rampe).first(30), r), Lecture::MalForme);
}

TEST(PasFaits, RoundsHalvesToTheEvenStep) {
  // 5 steps in 10 ticks: 0.5, 1, 1.5, 2, 2.5 ...
  const std::array<std::int64_t, 11> attendus{0, 0, 1, 2, 2, 2, 3, 4, 4, 4, 5};
  for (std::int64_t k = 0; k <= 10; ++k) EXPECT_EQ(PasFaits(5, k, 10), attendus[static_cast<std::size_t>(k)]) << k;
}

TEST(PasFaits, HoldsForTheLargestRecord) {
  const std::int64_t ticks = 2'147'483'647, pas = 1'073'741'823;
  EXPECT_EQ(PasFaits(pas, ticks, ticks), pas);
  EXPECT_EQ(PasFaits(pas, 0, ticks), 0);
  // (2^30 - 1) (2^30) / (2^31 - 1) = 2^29 - 1/4 and a hair
  EXPECT_EQ(PasFaits(pas, 1'073'741'824, ticks), 536'870'912);
}

TEST(TickDuPas, IsTheFirstTickAtWhichTheStepIsDone) {
  std::mt19937 hasard(5);
  for (int essai = 0; essai < 300; ++essai) {
    const auto ticks = static_cast<std::int64_t>(1 + hasard() % 200),
               pas = static_cast<std::int64_t>(1 + hasard() % 250);
    for (std::int64_t rang = 1; rang <= pas; ++rang) {
      std::int64_t k = 0;  // by trial, one tick after the other
      while (std::nearbyint(static_cast<double>(pas * k) / static_cast<double>(ticks)) < static_cast<double>(rang))
        ++k;
      ASSERT_EQ(TickDuPas(rang, pas, ticks), k) << rang << " of " << pas << " in " << ticks;
    }
  }
}

TEST(TickSansMoitie, GoesOnWhileAnyAxisStandsOnAHalf) {
  // X stands on a half at every odd tick, Y at 2, 6, Z at 4: 1 to 7 are all of them.
  const Record r{.ticks = 16, .pas = {8, 4, -2}};
  for (std::int64_t k = 1; k <= 7; ++k) EXPECT_EQ(TickSansMoitie(r, k), 8) << k;
  EXPECT_EQ(TickSansMoitie(r, 8), 8);
  EXPECT_EQ(TickSansMoitie(r, 0), 0);
}

TEST(TickSansMoitie, EndsWithTheRecord) {
  const Record r{.ticks = 2, .pas = {1, 0, 0}};
  EXPECT_EQ(TickSansMoitie(r, 1), 2);
  EXPECT_EQ(TickSansMoitie(r, 2), 2);
}

}  // namespace
