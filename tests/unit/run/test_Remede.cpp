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

// What a depth asks of the machine is nobody's to decide but the user's.
TEST(AvisDuPlan, NamesNoRemedyForADepthBeyondTheTravel) {
  ReglagesPlan();
  CourseZ = 200;
  AjouteTrajet(" A", -196, Carre);
  ASSERT_EQ(AvisDuPlan().size(), 1U);
  EXPECT_EQ(AvisDuPlan()[0].remede.sorte, SorteRemede::Aucun);
}

}  // namespace
