// What counts as edited and never saved.
#include <gtest/gtest.h>

#include "core/Cles.h"
#include "core/DocumentCourant.h"
#include "core/ReglagesCourants.h"
#include "tests/support/Support.h"
#include "toolpath/Module_Sequence.h"
#include "workspace/Module_Annulation.h"
#include "workspace/Module_Ouverture.h"
#include "workspace/Module_Travail.h"

namespace {

using namespace ovelin;

void Carre() {
  essai::AjouteCarre(" A", 0, 0, 10);
  RetientTravail();
}

TEST(TravailChange, IsNothingWithoutADrawing) {
  RayonFraise = 7;
  EXPECT_FALSE(TravailChange());
}

TEST(TravailChange, LooksAtPointsRecordsAndToolValues) {
  Carre();
  EXPECT_FALSE(TravailChange());
  TraceInitial[1].X += 1;
  EXPECT_TRUE(TravailChange());
  TraceInitial[1].X -= 1;
  EXPECT_FALSE(TravailChange());
  Sequences[0].Profondeur = -4;
  EXPECT_TRUE(TravailChange());
  RetientTravail();
  for (double* v :
       {&RayonFraise, &LargeurEncoche, &MiniEncoche, &ProfFraisage, &ProfPasse, &Vitesse_Mat_H, &Vitesse_Mat_V}) {
    *v += 0.5;
    EXPECT_TRUE(TravailChange());
    *v -= 0.5;
    EXPECT_FALSE(TravailChange());
  }
  HautDeg += 1;
  EXPECT_TRUE(TravailChange());
}

TEST(TravailChange, LeavesSelectionAndColoursOut) {
  Carre();
  Sequences[0].Selection = Faux;
  Regl.CouleurInitial = 255;
  Regl.ConfirmSuppr = !Regl.ConfirmSuppr;
  EXPECT_FALSE(TravailChange());
}

TEST(TravailChange, CountsADrawingThatWasEmptied) {
  Carre();
  SupprimeSelection();
  EXPECT_TRUE(TravailChange());
}

TEST(TravailChange, CountsAnUndoEvenBackToWhatWasOpened) {
  Carre();
  PrendInstantane();
  TraceInitial[1].X += 1;
  PrendInstantane();
  CrochetsAnnulation crochets;
  crochets.Dessin = [] { PrendInstantane(); };
  ASSERT_TRUE(mnu_Undo(crochets).lu);
  EXPECT_TRUE(TravailChange());
}

TEST(ClesPlacees, NamesWhatAChosenMaterialHasPutIntoTheProject) {
  FichierProjet = FichierCourant = essai::EcritFichierEssai("p.OVL", "$$RayonFraise=3\r\n$$ProfFraisage=-3\r\n");
  Carre();
  EXPECT_TRUE(ClesPlacees().empty());
  EcrireCle("RayonFraise", "0.5");
  EcrireCle("F_Representation_Left", "10");  // a place isn't a setting of the job
  EXPECT_EQ(ClesPlacees(), std::vector<std::string>{"RayonFraise"});
}

TEST(ClesPlacees, NamesNothingForAForeignDrawing) {
  FichierProjet = FichierCourant = essai::EcritFichierEssai("p.dxf", "");
  Carre();
  EcrireCle("RayonFraise", "0.5");
  EXPECT_TRUE(ClesPlacees().empty());
}

TEST(TravailChange, CountsWhatStandsBesideTheRecords) {
  Carre();
  Complements.Pose(Code2(" A"), {true, "", std::nullopt});
  EXPECT_TRUE(TravailChange());
  Complements.Oublie(Code2(" A"));
  EXPECT_FALSE(TravailChange());
}

}  // namespace
