#include <cmath>

#include "manual/NoyauJog.h"
#include "tests/support/Support.h"

namespace {

using namespace ovelin;

ParametresJog Un(SensJog sens, double distance, double vitesse) {
  ParametresJog p;
  p.sens = sens;
  p.distances = {distance, distance, distance};
  p.vitesse = vitesse;
  p.maxi = {20, 16, 8};
  return p;
}

std::array<double, 3> Somme(const Jog& jog) {
  std::array<double, 3> somme{};
  for (const SegmentJog& s : jog.segments) {
    for (std::size_t i = 0; i < 3; ++i) somme[i] += s.mm[i];
  }
  return somme;
}

TEST(DistancesDe, AreThoseOfTheMode) {
  const std::array<double, 3> valeurs{3, 0, -7};
  EXPECT_EQ(DistancesDe(0, valeurs), valeurs);
  EXPECT_EQ(DistancesDe(1, valeurs), (std::array<double, 3>{2000, 2000, 2000}));
  EXPECT_EQ(DistancesDe(2, valeurs), (std::array<double, 3>{10, 10, 10}));
  EXPECT_EQ(DistancesDe(3, valeurs), (std::array<double, 3>{1, 1, 1}));
  EXPECT_EQ(DistancesDe(4, valeurs), (std::array<double, 3>{0.1, 0.1, 0.1}));
}

TEST(CalculeJog, MovesInASingleSegmentAtItsSpeed) {
  const Jog jog = CalculeJog(Un({1, -1, 0}, 10, 4));
  ASSERT_EQ(jog.segments.size(), 1U);
  EXPECT_NEAR(jog.segments[0].mm[0], 10, 1e-12);
  EXPECT_NEAR(jog.segments[0].mm[1], -10, 1e-12);
  EXPECT_EQ(jog.segments[0].mm[2], 0);
  EXPECT_EQ(jog.segments[0].vitesse, 4);
  EXPECT_EQ(jog.vitesse, 4);
}

TEST(CalculeJog, TypedDistancesKeepTheirSigns) {
  ParametresJog p = Un({1, 1, 0}, 0, 4);
  p.distances = {-3, 5, 9};
  EXPECT_NEAR(Somme(CalculeJog(p))[0], -3, 1e-12);
  EXPECT_NEAR(Somme(CalculeJog(p))[1], 5, 1e-12);
  EXPECT_EQ(Somme(CalculeJog(p))[2], 0);
}

TEST(CalculeJog, NothingMovesWithoutADistanceOrASpeed) {
  EXPECT_TRUE(CalculeJog(Un({0, 0, 0}, 10, 4)).segments.empty());
  EXPECT_TRUE(CalculeJog(Un({1, 0, 0}, 0, 4)).segments.empty());
  EXPECT_TRUE(CalculeJog(Un({1, 0, 0}, 10, 0)).segments.empty());
}

TEST(CalculeJog, SlowIsATwentiethAndFastTwiceTheSpeed) {
  ParametresJog p = Un({1, 0, 0}, 10, 4);
  p.lent = true;
  EXPECT_DOUBLE_EQ(CalculeJog(p).vitesse, 0.2);
  p.lent = false;
  p.rapide = true;
  EXPECT_EQ(CalculeJog(p).vitesse, 8);
}

TEST(CalculeJog, FastWinsOverSlow) {
  ParametresJog p = Un({1, 0, 0}, 10, 4);
  p.lent = p.rapide = true;
  EXPECT_EQ(CalculeJog(p).vitesse, 8);
}

TEST(CalculeJog, TheSpeedIsClippedByTheAxesThatMove) {
  EXPECT_EQ(CalculeJog(Un({1, 0, 0}, 10, 100)).vitesse, 20);
  EXPECT_EQ(CalculeJog(Un({0, 1, 0}, 10, 100)).vitesse, 16);
  EXPECT_EQ(CalculeJog(Un({1, 1, 0}, 10, 100)).vitesse, 16);
  EXPECT_EQ(CalculeJog(Un({0, 0, -1}, 10, 100)).vitesse, 8);
}

TEST(CalculeJog, TheOtherOrientationInvertsYAlone) {
  ParametresJog p = Un({1, 1, 0}, 10, 4);
  p.inverseY = true;
  EXPECT_NEAR(Somme(CalculeJog(p))[0], 10, 1e-12);
  EXPECT_NEAR(Somme(CalculeJog(p))[1], -10, 1e-12);
  p.sens = {0, 0, 1};
  EXPECT_EQ(Somme(CalculeJog(p))[2], 10);
}

// 10 mm/s: 2 x 10/20 = 1 mm at 0.5, 2 x 10/5 = 4 mm at 2, the other 5 mm at 10.
TEST(CalculeJog, AGentleStartGoesFirst) {
  ParametresJog p = Un({-1, 0, 0}, 10, 10);
  p.doux = true;
  const Jog jog = CalculeJog(p);
  ASSERT_EQ(jog.segments.size(), 3U);
  const double mm[] = {-1, -4, -5};
  const double vitesses[] = {0.5, 2, 10};
  for (std::size_t i = 0; i < 3; ++i) {
    EXPECT_NEAR(jog.segments[i].mm[0], mm[i], 1e-12) << i;
    EXPECT_NEAR(jog.segments[i].vitesse, vitesses[i], 1e-12) << i;
  }
  EXPECT_EQ(jog.vitesse, 10);
}

TEST(CalculeJog, AGentleStartIsCutToTheJog) {
  ParametresJog p = Un({0, 0, -1}, 0.1, 8);
  p.doux = true;
  Jog jog = CalculeJog(p);
  ASSERT_EQ(jog.segments.size(), 1U) << "0.8 mm would be the first part alone";
  EXPECT_NEAR(Somme(jog)[2], -0.1, 1e-12);
  EXPECT_NEAR(jog.segments[0].vitesse, 0.4, 1e-12);
  p.distances = {1, 1, 1};
  jog = CalculeJog(p);
  ASSERT_EQ(jog.segments.size(), 2U) << "0.8 mm, then 0.2 of 3.2";
  EXPECT_NEAR(jog.segments[1].mm[2], -0.2, 1e-12);
  EXPECT_NEAR(Somme(jog)[2], -1, 1e-12);
}

// 2000 mm at 0.025 mm/s are 80,000 s; a record of 2^31 ticks at 60 kHz holds 35,791.
TEST(CalculeJog, AWayThatIsTooSlowForARecordIsDivided) {
  ParametresJog p = Un({1, 0, 0}, 2000, 0.5);
  p.lent = true;
  p.dureeRecord = 2147483647.0 / 60'000;
  const Jog jog = CalculeJog(p);
  ASSERT_EQ(jog.segments.size(), 3U);
  EXPECT_NEAR(Somme(jog)[0], 2000, 1e-9);
  for (const SegmentJog& s : jog.segments) EXPECT_LE(s.mm[0] / s.vitesse, p.dureeRecord);
}

TEST(TexteVitesseJog, HasItsUnitAndWhatDecimalsItNeeds) {
  EXPECT_EQ(TexteVitesseJog(4), "4.0 mm/s");
  EXPECT_EQ(TexteVitesseJog(0.025), "0.025 mm/s");
  Svc.MarqueDecimale = ',';
  EXPECT_EQ(TexteVitesseJog(4.5), "4,5 mm/s");
}

TEST(TextePosition, HasTwoDecimalsBelowTenAndOneFromTenOn) {
  EXPECT_EQ(TextePosition(9.99), "9.99");
  EXPECT_EQ(TextePosition(10), "10.0");
  EXPECT_EQ(TextePosition(-9.99), "-9.99");
  EXPECT_EQ(TextePosition(-10), "-10.0");
  EXPECT_EQ(TextePosition(0), "0.00");
}

TEST(TexteMode, SaysHowFarAKeyGoes) {
  const std::array<double, 3> valeurs{1.5, 0, -20};
  EXPECT_EQ(TexteMode(1, valeurs), "...");
  EXPECT_EQ(TexteMode(2, valeurs), " = 10 mm");
  EXPECT_EQ(TexteMode(3, valeurs), " = 1 mm");
  EXPECT_EQ(TexteMode(4, valeurs), " = 0.1 mm");
  EXPECT_EQ(TexteMode(0, valeurs), "X=1.5 mm Y=0 mm Z=-20 mm");
}

}  // namespace
