#include <gtest/gtest.h>

#include <cstdint>

#include "base/Equipe.h"
#include "closed/pathwerk/assemblage/Crible.h"

using namespace pathwerk::assemblage;

namespace {

constexpr std::uint64_t Nombre = 10'000;

// Odd, so that no two of them are the same.
std::uint64_t Cle(std::uint64_t i) { return i * 0xbf58476d1ce4e5b9ULL; }

}  // namespace

TEST(Crible, Every_key_that_was_noted_is_seen_whoever_noted_it) {
  for (const unsigned fils : {1U, 2U, 7U}) {
    Crible crible(Nombre);
    base::FaitParLots(fils, Nombre, [&](std::size_t debut, std::size_t fin) {
      for (std::size_t i = debut; i < fin; ++i) crible.Note(Cle(i));
    });
    for (std::uint64_t i = 0; i < Nombre; ++i) ASSERT_TRUE(crible.Vu(Cle(i))) << i;
  }
}

TEST(Crible, It_takes_few_others_for_one_of_them) {
  Crible crible(Nombre);
  for (std::uint64_t i = 0; i < Nombre; ++i) crible.Note(Cle(i));
  int faux = 0;
  for (std::uint64_t i = Nombre; i < 2 * Nombre; ++i) faux += crible.Vu(Cle(i)) ? 1 : 0;
  EXPECT_LT(faux, 1000);
}

TEST(CribleDeDoubles, A_key_that_comes_again_is_double_and_nearly_all_that_come_once_are_not) {
  CribleDeDoubles crible(Nombre);
  for (std::uint64_t i = 0; i < Nombre; ++i) crible.Note(Cle(i));
  for (std::uint64_t i = 0; i < 100; ++i) crible.Note(Cle(i));
  for (std::uint64_t i = 0; i < 100; ++i) ASSERT_TRUE(crible.Double(Cle(i))) << i;
  int faux = 0;
  for (std::uint64_t i = 100; i < Nombre; ++i) faux += crible.Double(Cle(i)) ? 1 : 0;
  EXPECT_LT(faux, 1000);
}
