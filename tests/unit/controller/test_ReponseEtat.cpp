#include <gtest/gtest.h>

#include <limits>

#include "controller/ReponseEtat.h"

namespace {

using namespace ovelin;

TEST(ProlongeCompte, GoesOnWhereThreeBytesComeRound) {
  EXPECT_EQ(ProlongeCompte(0, 0), 0);
  EXPECT_EQ(ProlongeCompte(5, 5), 5);
  EXPECT_EQ(ProlongeCompte(5, 9), 9);
  EXPECT_EQ(ProlongeCompte(16'777'215, 0), 16'777'216);
  EXPECT_EQ(ProlongeCompte(16'777'215, 16'777'215), 16'777'215);
  EXPECT_EQ(ProlongeCompte(33'554'433, 3), 33'554'435);
  EXPECT_EQ(ProlongeCompte(10, 9), 16'777'225) << "a count does not go back";
}

TEST(TicksPossibles, LieWithinTheRecord) {
  EXPECT_TRUE(TicksPossibles(-1, 10));
  EXPECT_TRUE(TicksPossibles(9, 10));
  EXPECT_FALSE(TicksPossibles(10, 10));
  EXPECT_FALSE(TicksPossibles(-2, 10));
  EXPECT_TRUE(TicksPossibles(1'000'000, 0)) << "not known yet";
  EXPECT_FALSE(TicksPossibles(-2, 0));
}

TEST(PasAtteint, IsTheShareOfTheTicksDone) {
  EXPECT_EQ(PasAtteint(100, 30, 10, 9), 100);
  EXPECT_EQ(PasAtteint(100, 30, 10, 6), 109);
  EXPECT_EQ(PasAtteint(100, 30, 10, -1), 130);
  EXPECT_EQ(PasAtteint(100, -30, 10, 6), 91);
}

TEST(PasAtteint, HalfAStepGoesToTheEvenPlace) {
  // Half of one step from an even start stays, from an odd one it is done.
  EXPECT_EQ(PasAtteint(0, 1, 2, 0), 0);
  EXPECT_EQ(PasAtteint(1, 1, 2, 0), 2);
  EXPECT_EQ(PasAtteint(0, -1, 2, 0), 0);
  EXPECT_EQ(PasAtteint(1, -1, 2, 0), 0);
  EXPECT_EQ(PasAtteint(-3, 1, 2, 0), -2);
  EXPECT_EQ(PasAtteint(0, 3, 2, 0), 2);
}

TEST(PasAtteint, RecordOfUnknownTicksHasDoneNothing) { EXPECT_EQ(PasAtteint(7, 1000, 0, 3), 7); }

TEST(PasAtteint, IsExactWhereFractionsAreNot) {
  // 1,000,000,007 x 2,147,483,646 / 2,147,483,647 is 0.47 below the whole way.
  EXPECT_EQ(PasAtteint(1'000'000'000, 1'000'000'007, 2'147'483'647, 0), 2'000'000'007);
  EXPECT_EQ(PasAtteint(0, 1'500'000'000, 2'147'483'647, 0), 1'499'999'999);  // 0.70 below
  EXPECT_EQ(PasAtteint(std::numeric_limits<std::int32_t>::max(), 5, 2, -1),
            std::numeric_limits<std::int32_t>::max());
}

TEST(ReponseEtat, StateByteTellsEndAndStop) {
  ReponseEtat e;
  const auto juge = [&](std::uint8_t octet) {
    e.octet12 = octet;
    return (e.SansPosition() ? 1 : 0) + (e.Fini() ? 2 : 0) + (e.Arrete() ? 4 : 0);
  };
  EXPECT_EQ(juge(0), 0);
  EXPECT_EQ(juge(2), 1);
  EXPECT_EQ(juge(162), 1);
  EXPECT_EQ(juge(128), 2);
  EXPECT_EQ(juge(66), 4);
  EXPECT_EQ(juge(64), 0);
}

}  // namespace
