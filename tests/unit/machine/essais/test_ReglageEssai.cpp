#include "core/Textes.h"
#include "machine/essais/ReglageEssai.h"
#include "tests/support/Support.h"

namespace {

using namespace ovelin;

const ChampsEssai Bons{"5", "10", "0,5", "20", {true, false, false}};

ReglageEssai Lu(const ChampsEssai& champs) {
  ReglageEssai r;
  EXPECT_FALSE(LitReglageEssai(champs, r).has_value());
  return r;
}
std::pair<int, CleTexte> Refus(const ChampsEssai& champs) {
  ReglageEssai r;
  const auto refus = LitReglageEssai(champs, r);
  if (!refus) return {0, Textes::TableExiste};
  EXPECT_EQ(r.distance, 0) << "not touched";
  return {refus->champ, refus->texte};
}
ChampsEssai Avec(std::string ChampsEssai::*champ, const std::string& texte) {
  ChampsEssai c = Bons;
  c.*champ = texte;
  return c;
}

TEST(ActiveGO, NeedsADistanceAndAnAxis) {
  EXPECT_TRUE(ActiveGO(Bons));
  EXPECT_TRUE(ActiveGO(Avec(&ChampsEssai::Depl, "-3")));
  for (const char* nul : {"0", "0,0", "", "-", "abc"}) EXPECT_FALSE(ActiveGO(Avec(&ChampsEssai::Depl, nul))) << nul;
  ChampsEssai sansAxe = Bons;
  sansAxe.axes = {};
  EXPECT_FALSE(ActiveGO(sansAxe));
  sansAxe.axes[2] = true;
  EXPECT_TRUE(ActiveGO(sansAxe));
}

TEST(LitReglageEssai, ReadsTheFields) {
  const ReglageEssai r = Lu(Bons);
  EXPECT_EQ(r.depart, 5);
  EXPECT_EQ(r.arrivee, 10);
  EXPECT_EQ(r.increment, 0.5);
  EXPECT_EQ(r.distance, 20);
  EXPECT_EQ(r.axes, (std::array<bool, 3>{true, false, false}));
}

TEST(LitReglageEssai, RefusesAnIncrementOfZeroOrAgainstItsDirection) {
  for (const char* faux : {"0", "-1"}) {
    EXPECT_EQ(Refus(Avec(&ChampsEssai::Incr, faux)), std::pair(3, Textes::EssaiIncrement)) << faux;
  }
  ChampsEssai descend{"10", "5", "1", "20", {true, false, false}};
  EXPECT_EQ(Refus(descend), std::pair(3, Textes::EssaiIncrement));
  descend.Incr = "-1";
  EXPECT_EQ(NombrePasses(Lu(descend)), 6);
}

TEST(LitReglageEssai, RefusesSpeedsThatAreNone) {
  EXPECT_EQ(Refus(Avec(&ChampsEssai::VitDep, "0")), std::pair(1, Textes::EssaiVitesse));
  EXPECT_EQ(Refus(Avec(&ChampsEssai::VitArr, "-4")), std::pair(2, Textes::EssaiVitesse));
}

TEST(LitReglageEssai, RefusesEmptyAndHugeFieldsByTheirNumber) {
  std::string ChampsEssai::*champs[] = {&ChampsEssai::VitDep, &ChampsEssai::VitArr, &ChampsEssai::Incr,
                                        &ChampsEssai::Depl};
  for (int i = 0; i < 4; ++i) {
    for (const char* faux : {"", "-", "1e9", "-1000001", "1,2,3"}) {
      EXPECT_EQ(Refus(Avec(champs[i], faux)), std::pair(i + 1, Textes::EssaiNombre)) << i << " " << faux;
    }
  }
}

TEST(LitReglageEssai, RefusesATestThatGoesNowhere) {
  EXPECT_EQ(Refus(Avec(&ChampsEssai::Depl, "0")), std::pair(4, Textes::EssaiSansChemin));
  ChampsEssai sansAxe = Bons;
  sansAxe.axes = {};
  EXPECT_EQ(Refus(sansAxe), std::pair(4, Textes::EssaiSansChemin));
}

TEST(NombrePasses, CountsBothEnds) {
  EXPECT_EQ(NombrePasses(Lu(Bons)), 11);
  EXPECT_EQ(NombrePasses(Lu(Avec(&ChampsEssai::VitArr, "5"))), 1);
  EXPECT_EQ(NombrePasses(Lu(Avec(&ChampsEssai::Incr, "3"))), 2) << "5, 8; 11 is beyond the end";
}

// Sums of 0.1 stray: fifty of them are 4.999999999999998, so adding would make one pass too many or too few.
TEST(NombrePasses, IsExactForTenths) {
  const ReglageEssai r = Lu({"5", "10", "0.1", "20", {true, false, false}});
  EXPECT_EQ(NombrePasses(r), 51);
  EXPECT_DOUBLE_EQ(VitessePasse(r, 50), 10);
  EXPECT_EQ(NombrePasses(Lu({"0.1", "0.7", "0.1", "1", {true, false, false}})), 7);
  EXPECT_EQ(NombrePasses(Lu({"1", "1000", "0.1", "1", {true, false, false}})), 9991);
}

}  // namespace
