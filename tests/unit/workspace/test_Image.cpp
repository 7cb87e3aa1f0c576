// The picture's options, what leaves the travel, and the line of the status bar.
#include <gtest/gtest.h>

#include "core/Cles.h"
#include "core/DocumentCourant.h"
#include "core/ReglagesCourants.h"
#include "tests/support/Support.h"
#include "toolpath/Module_Decalage.h"
#include "toolpath/Module_Sequence.h"
#include "toolpath/Module_Transforme.h"
#include "workspace/Module_Image.h"

namespace {

using namespace ovelin;

TEST(OptionsDuDocument, FollowToolTableAndSettings) {
  RayonFraise = 2;
  LargeurEncoche = 4;
  const OptionsScene o = OptionsDuDocument(true, false);
  EXPECT_TRUE(o.sobre);
  EXPECT_TRUE(o.numPoint);
  EXPECT_EQ(o.outil.rayon, 2);
  EXPECT_EQ(o.outil.largeurEncoche, 4);
  EXPECT_EQ(o.course.x, LimiteCourseX());
  BasculeSaignee();
  EXPECT_EQ(OptionsDuDocument(false, false).outil.rayon, 0);
  BasculeSobre();
  const OptionsScene plein = OptionsDuDocument(false, false);
  EXPECT_FALSE(plein.sobre);
  EXPECT_TRUE(plein.course.Vide());
}

TEST(BasculeSobre, LastsInTheSettingsFileAndNeverComesIntoAProject) {
  const std::string projet = essai::EcritFichierEssai("p.OVL", "$$PCPoche=20\r\n");
  FichierCourant = FichierProjet = projet;
  BasculeSobre();
  BasculeSaignee();
  EXPECT_EQ(essai::LitFichierEssai(projet), "$$PCPoche=20\r\n");
  OublieCles();
  Regl.DessinSobre = Regl.DessinSaignee = true;
  LitImage();
  EXPECT_FALSE(Regl.DessinSobre);
  EXPECT_FALSE(Regl.DessinSaignee);
}

TEST(LitImage, IsThatOfTheSettingsFileWhateverAProjectSays) {
  essai::EcritFichierEssai("OVELIN.ini", "[OVELIN]\r\nDessinSobre=Faux\r\nCouleurHalo=255\r\n");
  FichierCourant = FichierProjet = essai::EcritFichierEssai("p.OVL", "$$DessinSobre=Vrai\r\n$$CouleurHalo=7\r\n");
  LitReglagesDocument();
  EXPECT_FALSE(Regl.DessinSobre);
  EXPECT_EQ(Regl.CouleurHalo, 255);
}

TEST(PlaceAuCoin, BringsDrawingAndToolPathIntoTheTravel) {
  essai::AjouteCarre(" A", -40, 900, 30);
  RayonFraise = 8;
  RecalculDecalages();
  EXPECT_FALSE(DepassementCourant().Vide());
  ASSERT_TRUE(PlaceAuCoin());
  EXPECT_TRUE(DepassementCourant().Vide());
  // The path lies 8 mm outside of the square: more than the margin of 5.
  EXPECT_NEAR(Xmin, 8, 1e-3);
  EXPECT_NEAR(Ymin, 8, 1e-3);
}

TEST(PlaceAuCoin, PlacesTheWholeDrawingWhateverIsSelected) {
  essai::AjouteCarre(" A", -40, -40, 30, 2);
  essai::AjouteCarre(" B", 50, 70, 10, 2);
  RecalculDecalages();
  DeselectionneTout();
  BasculeSelection(Code2(" B"));
  ASSERT_TRUE(PlaceAuCoin());
  EXPECT_NEAR(Xmin, 5, 1e-3);
  EXPECT_NEAR(Ymin, 5, 1e-3);
  EXPECT_NEAR(TraceInitial[5].X, 95, 1e-3);
}

TEST(TexteDepassement, NamesTheSides) {
  EXPECT_EQ(TexteDepassement({}), "");
  const std::string texte = TexteDepassement({12.5, 0, 0, 3});
  EXPECT_NE(texte.find("12.5 mm"), std::string::npos) << texte;
  EXPECT_NE(texte.find("3.0 mm"), std::string::npos) << texte;
}

TEST(TexteEtat, TellsFileSelectionSizeAndDepth) {
  EXPECT_EQ(TexteEtat(false), "");
  FichierCourant = "/dessins/plaque.dxf";
  essai::AjouteCarre(" A", 0, 0, 45, 2, -1.2);
  essai::AjouteCarre(" B", 100, 0, 10, 2, -4);
  DeselectionneTout();
  EXPECT_EQ(TexteEtat(false), "plaque.dxf");
  EXPECT_EQ(TexteEtat(true), "plaque.dxf*");
  BasculeSelection(Code2(" A"));
  const std::string une = TexteEtat(false);
  EXPECT_NE(une.find("   1 "), std::string::npos) << une;
  EXPECT_NE(une.find("45.0 x 45.0 mm"), std::string::npos) << une;
  EXPECT_NE(une.find("-1.2"), std::string::npos) << une;
  SelectionneTout();
  const std::string deux = TexteEtat(false);
  EXPECT_NE(deux.find("110.0 x 45.0 mm"), std::string::npos) << deux;
  EXPECT_EQ(deux.find("-1.2"), std::string::npos) << "the depths differ: " << deux;
}

}  // namespace
