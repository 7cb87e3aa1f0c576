#include "core/Cles.h"
#include "core/DocumentCourant.h"
#include "core/ReglagesCourants.h"
#include "tests/unit/toolpath/BiblioEssai.h"
#include "toolpath/Module_Decalage.h"

using namespace ovelin;
using namespace essai;

namespace {

std::string Ecrite(const char* cle) { return LireCleSection("OVELIN", cle, "(absente)"); }

class Champ : public testing::Test {
 protected:
  BiblioEssai biblio;
  void SetUp() override {
    AjouteCarre(" A", 0, 0, 10);
    AjouteCarre(" B", 20, 0, 10);
  }
};
class EntreRayonFraiseTest : public Champ {};
class EntreLargeurEncocheTest : public Champ {};
class EntreMiniEncocheTest : public Champ {};
class EntreHautDegTest : public Champ {};
class EntrePCPocheTest : public Champ {};
class EntreProfPasseTest : public Champ {};
class EntreAngleRampeTest : public Champ {};

}  // namespace

TEST_F(EntreRayonFraiseTest, RecomputesAllTraces) {
  EXPECT_TRUE(EntreRayonFraise("1,25"));
  EXPECT_EQ(RayonFraise, 1.25);
  EXPECT_EQ(biblio.appels.size(), 2U);
  EXPECT_EQ(biblio.appels[1].decal, 1.25F);
  EXPECT_EQ(Modifie, Vrai);
  // The radius waits for the save, or for the end without a project.
  EXPECT_EQ(Ecrite("RayonFraise"), "(absente)");
}

TEST_F(EntreRayonFraiseTest, AcceptsZero) {
  EXPECT_TRUE(EntreRayonFraise("0"));
  EXPECT_EQ(RayonFraise, 0);
  EXPECT_EQ(biblio.appels.size(), 2U);
}

TEST_F(EntreRayonFraiseTest, RefusesANegativeValueThatStandsStored) {
  AttendTexte("< 0 !");
  EXPECT_FALSE(EntreRayonFraise("-2"));
  EXPECT_EQ(RayonFraise, -2);
  EXPECT_TRUE(biblio.appels.empty());
  EXPECT_EQ(Modifie, Faux);
  EXPECT_EQ(Ecrite("RayonFraise"), "(absente)");
}

TEST_F(EntreRayonFraiseTest, RefusesWhatIsNoNumber) {
  EXPECT_FALSE(EntreRayonFraise("3 mm"));
  EXPECT_FALSE(EntreRayonFraise(""));
  EXPECT_EQ(RayonFraise, 3);
  EXPECT_TRUE(biblio.appels.empty());
}

TEST_F(EntreLargeurEncocheTest, StoresWritesAndRecomputes) {
  EXPECT_TRUE(EntreLargeurEncoche("7.5"));
  EXPECT_EQ(LargeurEncoche, 7.5);
  EXPECT_EQ(biblio.appels.size(), 2U);
  EXPECT_EQ(Ecrite("LargeurEncoche"), "7.5");
  EXPECT_EQ(Modifie, Vrai);
}

TEST_F(EntreLargeurEncocheTest, RefusesZeroAndWhatIsNoNumber) {
  EXPECT_FALSE(EntreLargeurEncoche("0"));
  EXPECT_FALSE(EntreLargeurEncoche("x"));
  EXPECT_EQ(LargeurEncoche, 5);
  EXPECT_TRUE(biblio.appels.empty());
  EXPECT_EQ(Modifie, Faux);
}

TEST_F(EntreMiniEncocheTest, StoresAndWritesWithoutRecomputing) {
  EXPECT_TRUE(EntreMiniEncoche("0,75"));
  EXPECT_EQ(MiniEncoche, 0.75);
  EXPECT_EQ(Ecrite("MiniEncoche"), "0.75");
  EXPECT_EQ(Modifie, Vrai);
  EXPECT_TRUE(biblio.appels.empty());
}

TEST_F(EntreMiniEncocheTest, StoresANegativeValueBeforeItRefusesIt) {
  AttendTexte("< 0 !");
  EXPECT_FALSE(EntreMiniEncoche("-1"));
  EXPECT_EQ(MiniEncoche, -1);
  EXPECT_EQ(Ecrite("MiniEncoche"), "(absente)");
  EXPECT_EQ(Modifie, Faux);
  EXPECT_FALSE(EntreMiniEncoche("?"));
  EXPECT_EQ(MiniEncoche, -1);
}

TEST_F(EntreHautDegTest, TestsTheValueStoredSoFar) {
  EXPECT_TRUE(EntreHautDeg("-4"));
  EXPECT_EQ(HautDeg, -4);
  EXPECT_EQ(Modifie, Vrai);
  AttendTexte("< 0 !");
  EXPECT_FALSE(EntreHautDeg("12"));
  EXPECT_EQ(HautDeg, -4);
}

TEST_F(EntreHautDegTest, TakesAnotherHeightBehindZero) {
  HautDeg = 0;
  EXPECT_TRUE(EntreHautDeg("4"));
  EXPECT_EQ(HautDeg, 4);
}

TEST_F(EntreHautDegTest, StoresAndWrites) {
  EXPECT_TRUE(EntreHautDeg("12,5"));
  EXPECT_EQ(HautDeg, 12.5F);
  EXPECT_EQ(Ecrite("HautDeg"), "12.5");
  EXPECT_TRUE(biblio.appels.empty());
}

TEST_F(EntreHautDegTest, RefusesWhatNo32BitNumberHolds) {
  EXPECT_FALSE(EntreHautDeg("1e300"));
  EXPECT_FALSE(EntreHautDeg("abc"));
  EXPECT_EQ(HautDeg, 10);
}

TEST_F(EntrePCPocheTest, RecomputesAllTracesAlsoWithoutAPocket) {
  EXPECT_TRUE(EntrePCPoche("40"));
  EXPECT_EQ(PCPoche, 40);
  EXPECT_EQ(biblio.appels.size(), 2U);
  EXPECT_EQ(Ecrite("PCPoche"), "40");
  EXPECT_EQ(Modifie, Vrai);
}

TEST_F(EntrePCPocheTest, HasNoRangeTestAndTakesAnInteger) {
  EXPECT_TRUE(EntrePCPoche("-20"));
  EXPECT_EQ(PCPoche, -20);
  EXPECT_TRUE(EntrePCPoche("250"));
  EXPECT_EQ(PCPoche, 250);
  EXPECT_TRUE(EntrePCPoche("12.5"));
  EXPECT_EQ(PCPoche, 12);
  EXPECT_TRUE(EntrePCPoche("1e9"));
  EXPECT_EQ(PCPoche, 32767);
}

TEST_F(EntrePCPocheTest, IgnoresWhatIsNoNumber) {
  EXPECT_FALSE(EntrePCPoche("15 %"));
  EXPECT_EQ(PCPoche, 15);
  EXPECT_TRUE(biblio.appels.empty());
}

TEST_F(EntreProfPasseTest, StoresAndWritesANegativeDepth) {
  EXPECT_TRUE(EntreProfPasse("-0,8"));
  EXPECT_EQ(ProfPasse, -0.8);
  EXPECT_EQ(Ecrite("ProfPasse"), "-0.8");
  EXPECT_EQ(Modifie, Vrai);
  EXPECT_TRUE(biblio.appels.empty());
}

TEST_F(EntreProfPasseTest, KeepsARefusedDepthInForceWithoutWritingIt) {
  for (const char* texte : {"2", "0"}) {
    Attend("F_Representation", "lib361");
    EXPECT_FALSE(EntreProfPasse(texte));
    EXPECT_EQ(Boites().back().titre, "OVELIN");
  }
  EXPECT_EQ(ProfPasse, 0);
  EXPECT_EQ(Ecrite("ProfPasse"), "(absente)");
  EXPECT_EQ(Modifie, Faux);
}

TEST_F(EntreProfPasseTest, IgnoresWhatIsNoNumber) {
  EXPECT_FALSE(EntreProfPasse("-"));
  EXPECT_EQ(ProfPasse, -1);
}

TEST_F(EntreAngleRampeTest, StoresAndWritesAnAngleAndTurnsItOffAgain) {
  EXPECT_TRUE(EntreAngleRampe("3,5"));
  EXPECT_EQ(AngleRampe, 3.5);
  EXPECT_EQ(Ecrite("AngleRampe"), "3.5");
  EXPECT_EQ(Modifie, Vrai);
  EXPECT_TRUE(biblio.appels.empty());
  EXPECT_TRUE(EntreAngleRampe("45"));
  EXPECT_TRUE(EntreAngleRampe("0"));
  EXPECT_EQ(AngleRampe, 0);
  EXPECT_EQ(Ecrite("AngleRampe"), "0");
}

TEST_F(EntreAngleRampeTest, ShowsThePictureAnewWhichHasTheRamp) {
  int fois = 0;
  Svc.Rafraichit = [&] { ++fois; };
  EXPECT_TRUE(EntreProfPasse("-0.5"));
  EXPECT_EQ(fois, 0) << "without a ramp the picture knows no passes";
  EXPECT_TRUE(EntreAngleRampe("3"));
  EXPECT_EQ(fois, 1);
  EXPECT_TRUE(EntreProfPasse("-0.8"));
  EXPECT_EQ(fois, 2);
}

TEST_F(EntreAngleRampeTest, RefusesWhatIsNoAngleAndKeepsTheOneInForce) {
  ASSERT_TRUE(EntreAngleRampe("3"));
  for (const char* texte : {"-1", "45.01", "90"}) {
    Attend("F_Fraisage", "Rampe_limites");
    EXPECT_FALSE(EntreAngleRampe(texte));
  }
  EXPECT_FALSE(EntreAngleRampe("3 deg"));
  EXPECT_FALSE(EntreAngleRampe(""));
  EXPECT_EQ(AngleRampe, 3);
  EXPECT_EQ(Ecrite("AngleRampe"), "3");
}

TEST_F(EntreAngleRampeTest, TellsTheWayThatAPassNeeds) {
  EXPECT_FALSE(RampeDePasse());
  AngleRampe = 3;
  EXPECT_NEAR(RampeDePasse().value_or(0), 19.0811, 1e-4) << "1 mm / tan 3";
  ProfPasse = -0.5;
  EXPECT_NEAR(RampeDePasse().value_or(0), 9.5406, 1e-4);
  ProfPasse = 0;
  EXPECT_FALSE(RampeDePasse()) << "such passes are none";
}

TEST_F(EntreHautDegTest, NoEntryBelowZeroGetsToItsRule) {
  EXPECT_FALSE(LaisseHautDeg("-4"));
  EXPECT_EQ(HautDeg, 10);
  EXPECT_TRUE(LaisseHautDeg("0"));
  EXPECT_TRUE(LaisseHautDeg("7"));
  EXPECT_EQ(HautDeg, 10) << "the rule stores it";
}

TEST_F(EntreHautDegTest, AHeightBelowZeroThatIsInForceBecomesZeroBeforeItsRule) {
  for (const char* texte : {"8", "abc"}) {
    HautDeg = -4;
    EXPECT_TRUE(LaisseHautDeg(texte));
    EXPECT_EQ(HautDeg, 0) << texte;
  }
  HautDeg = -4;
  EXPECT_FALSE(LaisseHautDeg("-1"));
  EXPECT_EQ(HautDeg, -4);
}
