// Work in pieces on several threads.
#include <gtest/gtest.h>

#include <atomic>
#include <set>
#include <stdexcept>
#include <string>

#include "base/Equipe.h"

namespace base {
namespace {

class NombreDeFils : public testing::TestWithParam<unsigned> {};

TEST_P(NombreDeFils, DoesEachPieceOnce) {
  std::vector<std::atomic<int>> fois(1000);
  {
    Equipe equipe(GetParam(), fois.size(), [&](std::size_t i) { ++fois[i]; });
    for (std::size_t i = 0; i < fois.size(); ++i) {
      equipe.Attend(i);
      EXPECT_EQ(fois[i], 1) << i;
      EXPECT_TRUE(equipe.Fait(i));
    }
  }
  for (const auto& f : fois) EXPECT_EQ(f, 1);
}

TEST_P(NombreDeFils, WhatAPieceThrowsIsThrownWhereItIsWaitedFor) {
  Equipe equipe(GetParam(), 3, [](std::size_t i) {
    if (i == 1) throw std::runtime_error("one");
  });
  EXPECT_NO_THROW(equipe.Attend(0));
  EXPECT_THROW(equipe.Attend(1), std::runtime_error);
  EXPECT_NO_THROW(equipe.Attend(2));
}

TEST_P(NombreDeFils, AnEndBeforeThePiecesAreTakenLosesNothingThatHasBegun) {
  std::atomic<int> commences{0};
  std::atomic<int> finis{0};
  {
    const Equipe equipe(GetParam(), 100'000, [&](std::size_t) {
      ++commences;
      ++finis;
    });
  }
  EXPECT_EQ(commences, finis);
}

INSTANTIATE_TEST_SUITE_P(Equipe, NombreDeFils, testing::Values(0U, 1U, 2U, 7U),
                         [](const auto& p) { return std::to_string(p.param); });

TEST(Equipe, BeginsNoMorePiecesAheadThanItMay) {
  constexpr std::size_t Avance = 3;
  std::atomic<std::size_t> attendus = 0;
  std::atomic<bool> tropLoin = false;
  Equipe equipe(
      7, 200,
      [&](std::size_t i) {
        if (i >= attendus + Avance) tropLoin = true;
      },
      Avance);
  for (std::size_t i = 0; i < 200; ++i) {
    attendus = i + 1;
    equipe.Attend(i);
  }
  EXPECT_FALSE(tropLoin);
}

TEST(Equipe, WhoWaitsForItsTurnIsLetGoAtTheEnd) {
  std::atomic<std::size_t> faits = 0;
  {
    Equipe equipe(
        7, 100, [&](std::size_t) { ++faits; }, 5);
    equipe.Attend(0);
  }
  EXPECT_GE(faits, 1U);
  EXPECT_LE(faits, 6U);  // the one that was waited for, and five ahead
}

TEST(FaitTout, DoesEachPieceOnceOnAnyNumberOfThreads) {
  for (const unsigned fils : {0U, 1U, 2U, 7U}) {
    std::vector<std::atomic<int>> fois(100);
    FaitTout(fils, fois.size(), [&](std::size_t i) { ++fois[i]; });
    for (const auto& f : fois) EXPECT_EQ(f, 1) << fils;
  }
}

TEST(FaitTout, ThrowsWhatTheFirstOfThePiecesHasThrown) {
  for (const unsigned fils : {1U, 2U, 7U}) {
    try {
      FaitTout(fils, 9, [](std::size_t i) {
        if (i >= 4) throw std::runtime_error(std::to_string(i));
      });
      ADD_FAILURE() << fils;
    } catch (const std::runtime_error& e) {
      EXPECT_EQ(std::string(e.what()), "4") << fils;
    }
  }
}

TEST(FaitParLots, RunsHoldEachPieceOnce) {
  for (const unsigned fils : {0U, 1U, 2U, 7U}) {
    for (const std::size_t n : {0U, 1U, 5U, 1000U}) {
      std::vector<std::atomic<int>> fois(n);
      FaitParLots(fils, n, [&](std::size_t debut, std::size_t fin) {
        EXPECT_LT(debut, fin);
        for (std::size_t i = debut; i < fin; ++i) ++fois[i];
      });
      for (const auto& f : fois) EXPECT_EQ(f, 1) << fils << ' ' << n;
    }
  }
}

TEST(Equipe, WithoutPiecesThereIsNothingToDo) {
  const Equipe equipe(3, 0, [](std::size_t) { FAIL(); });
}

// Two pieces that wait for each other come to their end on two threads alone.
TEST(Equipe, WorksOnSeveralPiecesAtOnce) {
  std::atomic<int> la{0};
  Equipe equipe(2, 2, [&](std::size_t) {
    ++la;
    while (la < 2) std::this_thread::yield();
  });
  equipe.Attend(0);
  equipe.Attend(1);
  EXPECT_EQ(la, 2);
}

TEST(Equipe, WithoutThreadsTheCallerDoesThePiecesThatItWaitsFor) {
  std::set<std::size_t> faits;
  Equipe equipe(0, 5, [&](std::size_t i) { faits.insert(i); });
  equipe.Attend(3);
  equipe.Attend(3);
  EXPECT_EQ(faits, std::set<std::size_t>{3});
}

}  // namespace
}  // namespace base
