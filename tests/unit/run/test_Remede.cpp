// What mends a warning of the milling window.
#include "core/ReglagesCourants.h"
#include "run/AvisPlan.h"
#include "run/Module_Fraisage.h"
#include "run/Remede.h"
#include "tests/unit/run/PlanEssai.h"
#include "toolpath/Module_Decalage.h"

namespace {

using namespace ovelin;
using namespace essai;

// The deepest path with a notch is 4 mm deep.
TEST(Remedie, GivesBridgesTheHeightOfTheCut) {
  ReglagesPlan();
  AjouteTrajet(" A", -4, {{0, 0}, {4, 0, "PE"}, {5, 0, "PC"}, {6, 0}, {10, 0}});
  ASSERT_EQ(AvisDuPlan().size(), 1U);
  const Remede remede = AvisDuPlan()[0].remede;
  EXPECT_EQ(remede.sorte, SorteRemede::Pont);
  EXPECT_TRUE(Remedie(remede));
  EXPECT_EQ(MiniEncoche, 4);
  EXPECT_TRUE(AvisDuPlan().empty());
}

TEST(Remedie, GivesPocketsTheOverlapOfAFreshProgram) {
  ReglagesPlan();
  AjouteTrajet(" A", -2, Carre);
  Sequences[0].Poche = Vrai;
  PCPoche = 1000;
  ASSERT_EQ(AvisDuPlan().size(), 1U);
  EXPECT_TRUE(Remedie(AvisDuPlan()[0].remede));
  EXPECT_EQ(PCPoche, 15);
}

TEST(Remedie, LiftsAClearanceThatIsBelowTheSurface) {
  ReglagesPlan();
  HautDeg = -3;
  ASSERT_TRUE(VerifieHautDeg());
  EXPECT_TRUE(Remedie({SorteRemede::Degagement, "10"}));
  EXPECT_EQ(HautDeg, 10);
  EXPECT_FALSE(VerifieHautDeg());
}

TEST(Remedie, TakesTheSpeedAndPlacesTheDrawing) {
  EXPECT_TRUE(Remedie({SorteRemede::Vitesse, "12.5"}));
  EXPECT_EQ(Vitesse_Mat_H, 12.5);
  essai::AjouteCarre(" A", -40, 90, 30);
  RayonFraise = 8;
  RecalculDecalages();
  EXPECT_TRUE(Remedie({SorteRemede::Coin, ""}));
  EXPECT_NEAR(Xmin, 8, 1e-3) << "the tool path lies 8 mm outside";
  EXPECT_NEAR(Ymin, 8, 1e-3);
}

TEST(Remedie, WithoutARemedyDoesNothing) { EXPECT_FALSE(Remedie({})); }

TEST(TexteRemede, SaysWhatThePressDoes) {
  Regl.Langue = "fr";
  EXPECT_EQ(TexteRemede({SorteRemede::Pont, "4"}), "Pont de 4 mm");
  EXPECT_EQ(TexteRemede({SorteRemede::Vitesse, "20.0"}), "Prendre 20.0 mm/s");
  EXPECT_EQ(TexteRemede({SorteRemede::Recouvrement, "15"}), "Recouvrir 15 %");
  EXPECT_EQ(TexteRemede({}), "");
}

// A travel of 200 with a clearance of 5 leaves 195.
TEST(Remedie, EndsADepthWhereTheTravelEnds) {
  Regl.Langue = "fr";
  ReglagesPlan();
  CourseZ = 200;
  AjouteTrajet(" A", -196, Carre);
  AjouteTrajet(" B", -3, Carre);
  AjouteTrajet(" C", -300, Carre, false);
  ASSERT_EQ(AvisDuPlan().size(), 1U);
  const Remede remede = AvisDuPlan()[0].remede;
  EXPECT_EQ(TexteRemede(remede), "Profondeur -195 mm");
  EXPECT_TRUE(Remedie(remede));
  EXPECT_EQ(Sequences[0].Profondeur, -195);
  EXPECT_EQ(Sequences[1].Profondeur, -3);
  EXPECT_EQ(Sequences[2].Profondeur, -300) << "not milled";
  EXPECT_EQ(Modifie, Vrai);
  EXPECT_TRUE(AvisDuPlan().empty());
  EXPECT_FALSE(Remedie(remede)) << "nothing is left to do";
}

TEST(Remedie, HasNoDepthToOfferWhereTheClearanceTakesUpTheTravel) {
  ReglagesPlan();
  CourseZ = 4;
  AjouteTrajet(" A", -2, Carre);
  ASSERT_EQ(AvisDuPlan().size(), 1U);
  EXPECT_EQ(AvisDuPlan()[0].remede.sorte, SorteRemede::Aucun);
}

// A square of 3 mm is 12 mm long, a quarter of that 3.
TEST(Remedie, MakesNotchesAQuarterOfTheShortestPath) {
  Regl.Langue = "fr";
  ReglagesPlan();
  AjouteCarre(" A", 0, 0, 3);
  TraceInitial[2].Cde = CodePC;
  LargeurEncoche = 15;
  ASSERT_EQ(AvisDuPlan().size(), 1U);
  const Remede remede = AvisDuPlan()[0].remede;
  EXPECT_EQ(TexteRemede(remede), "Encoches de 3 mm");
  EXPECT_TRUE(Remedie(remede));
  EXPECT_EQ(LargeurEncoche, 3);
}

// 60 may be a diameter, hundredths or inches: nobody but the user knows.
TEST(Remedie, LeadsToTheFieldOfARadiusThatIsSurelyWrong) {
  ReglagesPlan();
  AjouteTrajet(" A", -2, Carre);
  RayonFraise = 60;
  ASSERT_EQ(AvisDuPlan().size(), 1U);
  const Remede remede = AvisDuPlan()[0].remede;
  EXPECT_STREQ(ChampDuRemede(remede), "TB_RayonFraise");
  EXPECT_EQ(ChampDuRemede({SorteRemede::Pont, "4"}), nullptr);
  EXPECT_NE(TexteRemede(remede), "");
  EXPECT_FALSE(Remedie(remede));
  EXPECT_EQ(RayonFraise, 60);
}

}  // namespace
