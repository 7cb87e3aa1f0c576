// What stands in front of a job: the clearance height, and entries that are surely wrong.
#include "core/Cles.h"
#include "run/AvisPlan.h"
#include "run/Module_Fraisage.h"
#include "tests/unit/run/PlanEssai.h"
#include "toolpath/Module_Decalage.h"

namespace {

using namespace ovelin;
using namespace essai;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

std::vector<std::string> Cles() {
  std::vector<std::string> cles;
  for (const AvisPlan& a : AvisDuPlan()) cles.push_back(a.cle);
  return cles;
}

TEST(VerifieHautDeg, TakesEveryHeightAboveTheSurface) {
  HautDeg = 0.1F;
  EXPECT_FALSE(VerifieHautDeg().has_value());
}

TEST(VerifieHautDeg, RefusesTheSurfaceItselfAndWhatIsBelow) {
  for (const float h : {0.0F, -3.0F}) {
    HautDeg = h;
    EXPECT_EQ(VerifieHautDeg().value().cle.Cle(), "HautDeg_nul");
  }
}

TEST(VerifieHautDeg, TellsWhereTheHeightComesFrom) {
  EcrireCle("HautDeg", "-3");
  LitMateriau();
  EXPECT_THAT(VerifieHautDeg().value().Texte(), HasSubstr("HautDeg = -3 (réglages " + CheminIni() + ")"));
  const std::string projet = EcritFichierEssai("p.OVL", "$$HautDeg=-2\r\n");
  FichierProjet = FichierCourant = projet;
  LitMateriau();
  EXPECT_THAT(VerifieHautDeg().value().Texte(), HasSubstr("HautDeg = -2 (projet " + projet + ")"));
  Magasin.Surcharge["HautDeg"] = "-1";
  LitMateriau();
  EXPECT_THAT(VerifieHautDeg().value().Texte(), HasSubstr("HautDeg = -1 (--set)"));
  HautDeg = 5;
  EXPECT_TRUE(EntreHautDeg("0"));
  EXPECT_THAT(VerifieHautDeg().value().Texte(), HasSubstr("HautDeg = 0 (champ)"));
}

TEST(VerifieHautDeg, StandsBeforeThePlanOfTheWindowAndItsFile) {
  ReglagesPlan();
  AjouteTrajet(" A", -2, Carre);
  HautDeg = 0;
  EXPECT_EQ(PlanifiePourFenetre().refus.value().cle.Cle(), "HautDeg_nul");
  EcritureNC ecriture;
  Attend("F_Fraisage", "HautDeg_nul");
  EXPECT_FALSE(GenereGCode("3", "1", ecriture));
}

TEST(AvisDuPlan, HasNothingToSayOfAnOrdinaryJob) {
  ReglagesPlan();
  AjouteTrajet(" A", -2, Carre);
  EXPECT_THAT(Cles(), IsEmpty());
}

// The deepest path with a notch is 4 mm deep: a bridge of 4 mm is as high as the cut.
TEST(AvisDuPlan, TellsBridgesWithoutAHeightAndOneThatHolds) {
  ReglagesPlan();
  AjouteTrajet(" A", -3, {{0, 0}, {4, 0, "PE"}, {5, 0, "PC"}, {6, 0}, {10, 0}});
  AjouteTrajet(" B", -4, {{0, 0}, {4, 0, "PE"}, {5, 0, "PC"}, {6, 0}, {10, 0}});
  AjouteTrajet(" C", -9, Carre);
  ASSERT_THAT(Cles(), ElementsAre("Avis_attaches"));
  EXPECT_THAT(AvisDuPlan()[0].texte, HasSubstr("4.0 mm"));
  MiniEncoche = 0.5;
  EXPECT_THAT(Cles(), IsEmpty());
}

TEST(AvisDuPlan, SaysNothingOfBridgesOnPathsThatAreNotMilled) {
  ReglagesPlan();
  AjouteTrajet(" A", -3, {{0, 0}, {4, 0, "PE"}, {5, 0, "PC"}, {6, 0}, {10, 0}}, false);
  EXPECT_THAT(Cles(), IsEmpty());
}

// A travel of 200 with a clearance of 5 leaves 195.
TEST(AvisDuPlan, TellsADepthThatTheTravelDoesNotReach) {
  ReglagesPlan();
  CourseZ = 200;
  AjouteTrajet(" A", -195, Carre);
  EXPECT_THAT(Cles(), IsEmpty());
  AjouteTrajet(" B", -196, Carre);
  ASSERT_THAT(Cles(), ElementsAre("Avis_profondeur"));
  EXPECT_THAT(AvisDuPlan()[0].texte, HasSubstr("196.0 mm > 195.0 mm"));
}

// A square of 2 mm is 8 mm long.
TEST(AvisDuPlan, TellsANotchThatIsWiderThanItsPath) {
  ReglagesPlan();
  AjouteCarre(" A", 0, 0, 2);
  LargeurEncoche = 9;
  EXPECT_THAT(Cles(), IsEmpty()) << "no attachment point";
  TraceInitial[2].Cde = CodePC;
  ASSERT_THAT(Cles(), ElementsAre("Avis_encoche"));
  EXPECT_THAT(AvisDuPlan()[0].texte, HasSubstr("9.0 mm > 8.0 mm"));
  LargeurEncoche = 8;
  EXPECT_THAT(Cles(), IsEmpty());
}

TEST(AvisDuPlan, TellsARadiusAboveFifty) {
  ReglagesPlan();
  AjouteTrajet(" A", -2, Carre);
  RayonFraise = 50;
  EXPECT_THAT(Cles(), IsEmpty());
  RayonFraise = 50.5;
  EXPECT_THAT(Cles(), ElementsAre("Avis_rayon"));
}

TEST(AvisDuPlan, TellsAnOverlapOfPocketsThatIsNone) {
  ReglagesPlan();
  AjouteTrajet(" A", -2, Carre);
  PCPoche = 1000;
  EXPECT_THAT(Cles(), IsEmpty()) << "no pocket";
  Sequences[0].Poche = Vrai;
  EXPECT_THAT(Cles(), ElementsAre("TB_PCPoche_plus"));
  EXPECT_THAT(AvisDuPlan()[0].texte, HasSubstr("PCPoche = 1000"));
  PCPoche = 100;
  EXPECT_THAT(Cles(), ElementsAre("TB_PCPoche_100"));
  PCPoche = -1;
  EXPECT_THAT(Cles(), ElementsAre("TB_PCPoche_negatif"));
  for (const std::int16_t usuel : {std::int16_t{0}, std::int16_t{99}}) {
    PCPoche = usuel;
    EXPECT_THAT(Cles(), IsEmpty()) << usuel;
  }
}

}  // namespace
