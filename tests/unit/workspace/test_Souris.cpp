// The mouse over the picture. A millimetre is 15 twips, the drawing's origin stands in the lower left corner of a
// picture of 200 x 100 mm: (x, y) mm is at (15 x, 1500 - 15 y).
#include <gtest/gtest.h>

#include <algorithm>

#include "core/DocumentCourant.h"
#include "core/ReglagesCourants.h"
#include "tests/support/Support.h"
#include "toolpath/Module_Sequence.h"
#include "workspace/Module_Souris.h"

namespace {

using namespace ovelin;

constexpr TailleImage Image{3000, 1500};

EvenementSouris E(unsigned bouton, float x, float y, bool majuscule = false, bool controle = false) {
  return {bouton, controle, majuscule, 15 * x, 1500 - 15 * y};
}
SuiteSouris Presse(unsigned bouton, float x, float y, bool majuscule = false, bool controle = false) {
  return PB1_MouseDown(E(bouton, x, y, majuscule, controle), Image);
}
SuiteSouris Bouge(unsigned bouton, float x, float y) { return PB1_MouseMove(E(bouton, x, y), Image); }
SuiteSouris Lache(unsigned bouton, float x, float y, bool controle = false) {
  return PB1_MouseUp(E(bouton, x, y, false, controle), Image);
}

// Two horizontal strokes, one above the other, none selected.
void DeuxTraits() {
  Zoom = 15;
  essai::AjouteSequence(" A", {{10, 20}, {60, 20}});
  essai::AjouteSequence(" B", {{10, 40}, {60, 40}});
  DeselectionneTout();
}

std::string Choisies() {
  std::string codes;
  for (const Code2 c : CodesSelectionnes()) codes += c.Texte();
  return codes;
}

bool ReponseVide(const SuiteSouris& s) {
  return !s.redessine && !s.initSeq && !s.bande && !s.outils && !s.positions && !s.menu && !s.pageOutil;
}

int Attaches() {
  return static_cast<int>(
      std::count_if(TraceInitial.begin(), TraceInitial.end(), [](const PointTrace& p) { return p.Cde == CodePC; }));
}

// --- the nearest segment ---------------------------------------------------------------------------------------

SegmentProche Cherche(float x, float y) { return SegmentLePlusProche(TraceInitial, NbPoints, x, y); }

TEST(SegmentLePlusProche, IsBlankWithoutASegment) {
  EXPECT_EQ(Cherche(1, 1).code, Code2{});
  essai::AjouteSequence(" A", {{1, 1}});
  EXPECT_EQ(Cherche(1, 1).code, Code2{});
}

TEST(SegmentLePlusProche, GivesTheFootOfThePerpendicular) {
  essai::AjouteSequence(" A", {{0, 0}, {10, 10}});
  const SegmentProche s = Cherche(6, 2);
  EXPECT_EQ(s.code, Code2(" A"));
  EXPECT_FLOAT_EQ(s.X, 4);
  EXPECT_FLOAT_EQ(s.Y, 4);
}

TEST(SegmentLePlusProche, ClampsTheFootToTheEnds) {
  essai::AjouteSequence(" A", {{10, 10}, {20, 10}});
  EXPECT_EQ(Cherche(-5, 3).X, 10.0F);
  EXPECT_EQ(Cherche(95, 3).X, 20.0F);
  EXPECT_EQ(Cherche(95, 3).Y, 10.0F);
}

TEST(SegmentLePlusProche, NeverTakesTheGapBetweenTwoPaths) {
  essai::AjouteSequence(" A", {{0, 0}, {10, 0}});
  essai::AjouteSequence(" B", {{10, 50}, {0, 50}});
  const SegmentProche s = Cherche(10, 24);  // on the way from A to B
  EXPECT_EQ(s.code, Code2(" A"));
  EXPECT_EQ(s.Y, 0.0F);
}

TEST(SegmentLePlusProche, OnTiesTheFirstFoundStays) {
  essai::AjouteSequence(" A", {{0, 0}, {10, 0}});
  essai::AjouteSequence(" B", {{0, 20}, {10, 20}});
  EXPECT_EQ(Cherche(5, 10).code, Code2(" A"));
  EXPECT_EQ(Cherche(5, 10.01F).code, Code2(" B"));
}

TEST(SegmentLePlusProche, AHoleIsAPoint) {
  essai::AjouteSequence(" A", {{0, 0}, {10, 0}});
  essai::AjouteSequence(" B", {{50, 50}, {50, 50}});
  const SegmentProche s = Cherche(48, 47);
  EXPECT_EQ(s.code, Code2(" B"));
  EXPECT_EQ(s.X, 50.0F);
}

TEST(SegmentLePlusProche, IsBoundedByTheCountAndByTheArray) {
  essai::AjouteSequence(" A", {{0, 0}, {10, 0}});
  essai::AjouteSequence(" B", {{0, 20}, {10, 20}});
  EXPECT_EQ(SegmentLePlusProche(TraceInitial, 2, 5, 20).code, Code2(" A"));
  EXPECT_EQ(SegmentLePlusProche(TraceInitial, 999, 5, 20).code, Code2(" B"));
  EXPECT_EQ(SegmentLePlusProche(TraceInitial, -115, 5, 20).code, Code2{});
}

// --- selection -------------------------------------------------------------------------------------------------

TEST(PB1_MouseDown, SelectsTheNearestPathHoweverFar) {
  DeuxTraits();
  const SuiteSouris s = Presse(Bouton1, 190, 90);
  EXPECT_EQ(Choisies(), " B");
  EXPECT_EQ(SeqCourante, Code2(" B"));
  EXPECT_TRUE(s.initSeq);
  EXPECT_TRUE(s.redessine);
}

TEST(PB1_MouseDown, WithoutControlTheNewPathReplacesTheSelection) {
  DeuxTraits();
  SelectionneTout();
  Presse(Bouton1, 30, 21);
  EXPECT_EQ(Choisies(), " A");
  Presse(Bouton1, 30, 39);
  EXPECT_EQ(Choisies(), " B");
}

TEST(PB1_MouseDown, TwoClicksAtOnePointToggleThePathOnAndOff) {
  DeuxTraits();
  Presse(Bouton1, 30, 21);
  EXPECT_EQ(Choisies(), " A");
  Presse(Bouton1, 30, 21);
  EXPECT_EQ(Choisies(), "");
  Presse(Bouton1, 30, 21);
  EXPECT_EQ(Choisies(), " A");
}

TEST(PB1_MouseDown, WithControlThePathIsAddedOrTakenAway) {
  DeuxTraits();
  Presse(Bouton1, 30, 21, false, true);
  Presse(Bouton1, 30, 39, false, true);
  EXPECT_EQ(Choisies(), " A B");
  Presse(Bouton1, 30, 21, false, true);
  EXPECT_EQ(Choisies(), " B");
  Presse(Bouton1, 30, 39, false, true);
  EXPECT_EQ(Choisies(), "");
}

TEST(PB1_MouseDown, MarksThePointOnTheSegment) {
  DeuxTraits();
  Presse(Bouton1, 30, 24);
  EXPECT_FLOAT_EQ(OrigineX, 30);
  EXPECT_FLOAT_EQ(OrigineY, 20);
}

TEST(PB1_MouseDown, DoesNothingOnAnEmptyDocument) {
  for (const unsigned bouton : {Bouton1, Bouton2, BoutonMilieu}) {
    EXPECT_TRUE(ReponseVide(Presse(bouton, 30, 21)));
    EXPECT_TRUE(ReponseVide(Lache(bouton, 30, 21)));
  }
  Souris.mnu_Lever = true;
  EXPECT_TRUE(ReponseVide(Presse(Bouton1, 30, 21)));
  EXPECT_EQ(essai::Bips(), 0);
  EXPECT_EQ(SeqCourante, CodeAucun);
  EXPECT_EQ(CurseurSouris(), Curseur::CiblePetit);
}

TEST(PB1_MouseDown, WithoutASegmentDeselectsAllAndLeavesNoPathInFocus) {
  Zoom = 15;
  essai::AjouteSequence(" A", {{10, 20}});
  SeqCourante = Code2(" A");
  Presse(Bouton1, 10, 20);
  EXPECT_EQ(Choisies(), "");
  EXPECT_EQ(SeqCourante, CodeAucun);
}

// --- the tools -------------------------------------------------------------------------------------------------

TEST(mnu_Lever_Click, SwitchesTheAttachmentToolOnAndOff) {
  essai::EcritFichierEssai("OVELINfr.trad", "[F_Representation]\r\nlib311=Bulle\r\n");
  EXPECT_TRUE(mnu_Lever_Click().outils);
  EXPECT_TRUE(Souris.mnu_Lever);
  EXPECT_EQ(CurseurSouris(), Curseur::CiblePetit);
  EXPECT_EQ(BulleSouris(), "Bulle");
  EXPECT_TRUE(mnu_Lever_Click().outils);
  EXPECT_FALSE(Souris.mnu_Lever);
  EXPECT_EQ(CurseurSouris(), Curseur::Defaut);
  EXPECT_EQ(BulleSouris(), "");
}

TEST(mnu_Lever_Click, IsRefusedWithoutAWidthOfNotches) {
  for (const double largeur : {0.0, -1.0}) {
    LargeurEncoche = largeur;
    essai::Attend("F_Representation", "lib312");
    const SuiteSouris s = mnu_Lever_Click();
    EXPECT_TRUE(s.pageOutil);
    EXPECT_TRUE(s.outils);
    EXPECT_FALSE(Souris.mnu_Lever);
  }
  LargeurEncoche = 0.1;
  EXPECT_FALSE(mnu_Lever_Click().pageOutil);
  EXPECT_TRUE(Souris.mnu_Lever);
}

TEST(mnu_Lever_Click, CanBeSwitchedOffWhateverTheWidth) {
  mnu_Lever_Click();
  LargeurEncoche = 0;
  mnu_Lever_Click();
  EXPECT_FALSE(Souris.mnu_Lever);
}

TEST(mnu_ZoomSelection_Click, TheTwoToolsAreNeverOnAtOnce) {
  mnu_Lever_Click();
  mnu_ZoomSelection_Click();
  EXPECT_FALSE(Souris.mnu_Lever);
  EXPECT_TRUE(Souris.mnu_ZoomSelection);
  mnu_Lever_Click();
  EXPECT_TRUE(Souris.mnu_Lever);
  EXPECT_FALSE(Souris.mnu_ZoomSelection);
  mnu_ZoomSelection_Click();
  mnu_ZoomSelection_Click();
  EXPECT_FALSE(Souris.mnu_Lever);
  EXPECT_FALSE(Souris.mnu_ZoomSelection);
}

TEST(mnu_Lever_Click, ARefusalLeavesTheZoomToolOn) {
  mnu_ZoomSelection_Click();
  LargeurEncoche = 0;
  essai::Attend("F_Representation", "lib312");
  mnu_Lever_Click();
  EXPECT_TRUE(Souris.mnu_ZoomSelection);
}

TEST(RelacheOutils, BothToolsAreOffForANewDrawing) {
  DeuxTraits();
  mnu_ZoomSelection_Click();
  Presse(Bouton1, 30, 30);
  const SuiteSouris s = RelacheOutils();
  EXPECT_TRUE(s.outils);
  EXPECT_TRUE(s.bande);
  EXPECT_FALSE(Souris.mnu_ZoomSelection);
  EXPECT_TRUE(ReponseVide(Lache(Bouton1, 50, 50)));
}

// --- attachment points -----------------------------------------------------------------------------------------

TEST(PB1_MouseDown, TheAttachmentToolAddsAPointWithoutTouchingTheSelection) {
  DeuxTraits();
  int rafraichis = 0;
  Svc.Rafraichit = [&rafraichis] { ++rafraichis; };
  mnu_Lever_Click();
  const SuiteSouris s = Presse(Bouton1, 35, 21);
  EXPECT_EQ(Attaches(), 1);
  ASSERT_EQ(TraceInitial.size(), 5U);
  EXPECT_FLOAT_EQ(TraceInitial[1].X, 35);
  EXPECT_FLOAT_EQ(TraceInitial[1].Y, 20);
  EXPECT_EQ(Choisies(), "");
  EXPECT_EQ(rafraichis, 1);
  EXPECT_TRUE(ReponseVide(s)) << "drawn once, which is one step of undo";
}

TEST(PB1_MouseDown, TheAttachmentToolWithShiftRemovesTheNearest) {
  DeuxTraits();
  mnu_Lever_Click();
  Presse(Bouton1, 35, 21);
  int rafraichis = 0;
  Svc.Rafraichit = [&rafraichis] { ++rafraichis; };
  Presse(Bouton1, 34, 20, true);
  EXPECT_EQ(Attaches(), 0);
  EXPECT_EQ(rafraichis, 1);
}

TEST(PB1_MouseDown, ARefusedAttachmentChangesNothing) {
  DeuxTraits();
  mnu_Lever_Click();
  EXPECT_TRUE(ReponseVide(Presse(Bouton1, 10, 20)));  // too near to the end
  EXPECT_EQ(essai::Bips(), 1);
  EXPECT_TRUE(ReponseVide(Presse(Bouton1, 35, 20, true)));  // none to remove
  EXPECT_EQ(essai::Bips(), 2);
  EXPECT_TRUE(ReponseVide(Presse(Bouton1, 35, 80)));  // out of reach: silent
  EXPECT_EQ(essai::Bips(), 2);
}

TEST(PB1_MouseDown, TheAttachmentToolTakesAnyPressThatGetsThere) {
  DeuxTraits();
  mnu_Lever_Click();
  Presse(Bouton1, 35, 21);
  // Button 2 pans ...
  Presse(Bouton2, 35, 41);
  EXPECT_EQ(Attaches(), 1);
  EXPECT_EQ(CurseurSouris(), Curseur::Main);
  Lache(Bouton2, 35, 41);
  // ... but with Shift it gets to the tool, which then removes.
  Presse(Bouton2, 35, 21, true);
  EXPECT_EQ(Attaches(), 0);
}

// --- the zoom tool ---------------------------------------------------------------------------------------------

TEST(PB1_MouseDown, APressWithTheZoomToolAlsoSelects) {
  DeuxTraits();
  mnu_ZoomSelection_Click();
  const SuiteSouris s = Presse(Bouton1, 30, 39);
  EXPECT_EQ(Choisies(), " B");
  EXPECT_TRUE(s.initSeq);
  EXPECT_TRUE(s.bande);
  EXPECT_EQ(CurseurSouris(), Curseur::Rectangle);
}

TEST(PB1_MouseMove, TheRubberBandFollowsButtonOne) {
  DeuxTraits();
  mnu_ZoomSelection_Click();
  float x0 = 0;
  float y0 = 0;
  float x1 = 0;
  float y1 = 0;
  EXPECT_FALSE(BandeSouris(x0, y0, x1, y1));
  Presse(Bouton1, 10, 10);
  const SuiteSouris s = Bouge(Bouton1, 40, 30);
  EXPECT_TRUE(s.bande);
  EXPECT_FALSE(s.redessine);
  ASSERT_TRUE(BandeSouris(x0, y0, x1, y1));
  EXPECT_EQ(x0, 150.0F);
  EXPECT_EQ(y0, 1350.0F);
  EXPECT_EQ(x1, 600.0F);
  EXPECT_EQ(y1, 1050.0F);
  EXPECT_FALSE(Bouge(BoutonAucun, 90, 90).bande);
  EXPECT_TRUE(BandeSouris(x0, y0, x1, y1));
  EXPECT_EQ(x1, 600.0F);
}

TEST(PB1_MouseUp, ZoomsToTheRectangleAndReleasesTheTool) {
  DeuxTraits();
  mnu_ZoomSelection_Click();
  Presse(Bouton1, 20, 10);
  Bouge(Bouton1, 40, 30);
  const SuiteSouris s = Lache(Bouton1, 60, 30);
  EXPECT_TRUE(s.redessine);
  EXPECT_TRUE(s.bande);
  EXPECT_TRUE(s.outils);
  EXPECT_FALSE(Souris.mnu_ZoomSelection);
  EXPECT_FLOAT_EQ(OrigineDessinX, 40);
  EXPECT_FLOAT_EQ(OrigineDessinY, 20);
  EXPECT_FLOAT_EQ(Zoom, 57);  // (1500 - 360) / 20; the width would allow 66
  EXPECT_EQ(CurseurSouris(), Curseur::Defaut);
}

TEST(PB1_MouseUp, AClickWithoutMovementLeavesTheViewAndReleasesTheTool) {
  DeuxTraits();
  mnu_ZoomSelection_Click();
  const EtatVue avant = Vue;
  Presse(Bouton1, 20, 10);
  EXPECT_TRUE(Lache(Bouton1, 20, 10).redessine);
  EXPECT_EQ(Vue, avant);
  EXPECT_FALSE(Souris.mnu_ZoomSelection);
}

TEST(PB1_MouseDown, WithShiftTheZoomToolDrawsNoBandOfItsOwn) {
  DeuxTraits();
  mnu_ZoomSelection_Click();
  const EtatVue avant = Vue;
  Presse(Bouton1, 20, 10, true);
  EXPECT_EQ(Choisies(), " A");
  Lache(Bouton1, 60, 30);
  EXPECT_EQ(Vue, avant);
  EXPECT_TRUE(Souris.mnu_ZoomSelection);
}

TEST(PB1_MouseDown, AnotherButtonGivesTheBandUp) {
  DeuxTraits();
  mnu_ZoomSelection_Click();
  Presse(Bouton1, 20, 10);
  EXPECT_TRUE(Presse(Bouton2, 25, 15).outils);
  const EtatVue avant = Vue;
  Lache(Bouton1, 60, 30);
  EXPECT_EQ(Vue, avant);
}

// --- panning ---------------------------------------------------------------------------------------------------

TEST(PB1_MouseMove, ButtonTwoPansAndThePictureFollows) {
  DeuxTraits();
  for (const unsigned bouton : {Bouton2, BoutonMilieu}) {
    Vue = EtatVue{15, 0, 0, 100, 100};
    Presse(bouton, 50, 50);
    EXPECT_EQ(CurseurSouris(), Curseur::Main);
    EXPECT_TRUE(Bouge(bouton, 52, 51).redessine);  // 30 twips to the right, 15 upward
    EXPECT_EQ(OrigineEcranX, 130.0F);
    EXPECT_EQ(OrigineEcranY, 115.0F);
    Bouge(bouton, 50, 50);
    EXPECT_EQ(OrigineEcranX, 100.0F);
    EXPECT_EQ(OrigineEcranY, 100.0F);
    EXPECT_TRUE(Lache(bouton, 50, 50).outils);
    EXPECT_FALSE(Bouge(bouton, 80, 80).redessine);
    EXPECT_EQ(OrigineEcranX, 100.0F);
  }
}

TEST(PB1_MouseMove, DoesNotRedrawWithoutAMovementOrAHeldButton) {
  DeuxTraits();
  Presse(Bouton2, 50, 50);
  EXPECT_FALSE(Bouge(Bouton2, 50, 50).redessine);
  EXPECT_FALSE(Bouge(BoutonAucun, 60, 50).redessine);
  EXPECT_FALSE(Bouge(Bouton1, 70, 50).redessine);
}

TEST(PB1_MouseDown, PanningLeavesTheSelection) {
  DeuxTraits();
  Presse(Bouton1, 30, 21);
  const SuiteSouris s = Presse(Bouton2, 30, 39);
  EXPECT_EQ(Choisies(), " A");
  EXPECT_FALSE(s.initSeq);
}

TEST(PB1_MouseDown, ButtonTwoWithShiftDoesNotPan) {
  DeuxTraits();
  EXPECT_TRUE(ReponseVide(Presse(Bouton2, 30, 39, true)));
  EXPECT_FALSE(Bouge(Bouton2, 50, 39).redessine);
}

TEST(PB1_MouseUp, ButtonTwoWithoutAMovementAsksForTheMenu) {
  DeuxTraits();
  Presse(Bouton2, 50, 50);
  EXPECT_TRUE(Lache(Bouton2, 50, 50).menu);
  Presse(Bouton2, 50, 50);
  Bouge(Bouton2, 51, 50);  // a trembling hand
  EXPECT_TRUE(Lache(Bouton2, 51, 50).menu);
  Presse(Bouton2, 50, 50);
  Bouge(Bouton2, 60, 50);
  Bouge(Bouton2, 50, 50);  // there and back is a movement
  EXPECT_FALSE(Lache(Bouton2, 50, 50).menu);
  Presse(BoutonMilieu, 50, 50);
  EXPECT_FALSE(Lache(BoutonMilieu, 50, 50).menu);
}

TEST(PB1_MouseUp, WithoutADragDoesNothing) {
  DeuxTraits();
  EXPECT_TRUE(ReponseVide(Lache(Bouton1, 50, 50)));
  EXPECT_TRUE(ReponseVide(Lache(Bouton2, 50, 50)));
}

TEST(PB1_MouseUp, TheOtherButtonDoesNotEndADrag) {
  DeuxTraits();
  Presse(Bouton2, 50, 50);
  EXPECT_TRUE(ReponseVide(Lache(Bouton1, 50, 50)));
  EXPECT_TRUE(Bouge(Bouton2, 60, 50).redessine);
}

// --- position --------------------------------------------------------------------------------------------------

TEST(PB1_MouseMove, ShowsThePositionInTheDrawing) {
  DeuxTraits();
  const SuiteSouris s = Bouge(BoutonAucun, 12.5F, 40);
  EXPECT_TRUE(s.positions);
  EXPECT_EQ(s.panneaux[0], "x : 12.50 mm");
  EXPECT_EQ(s.panneaux[1], "y : 40.00 mm");
  EXPECT_EQ(s.panneaux[2], "");
}

TEST(PB1_MouseMove, ShowsThePositionWithTheUsersDecimalMark) {
  DeuxTraits();
  Svc.MarqueDecimale = ',';
  EXPECT_EQ(Bouge(BoutonAucun, 12.5F, 40).panneaux[0], "x : 12,50 mm");
}

TEST(PB1_MouseMove, ShowsThePositionAfterThePan) {
  DeuxTraits();
  Presse(Bouton2, 50, 50);
  EXPECT_EQ(Bouge(Bouton2, 60, 50).panneaux[0], "x : 50.00 mm");  // the drawing has followed
}

TEST(PB1_MouseMove, EmptiesThePanelsWithoutADrawing) {
  const SuiteSouris s = Bouge(BoutonAucun, 12, 40);
  EXPECT_TRUE(s.positions);
  for (const std::string& t : s.panneaux) EXPECT_EQ(t, "");
}

// --- rubber-band selection -------------------------------------------------------------------------------------

TEST(PB1_MouseUp, ADragWithShiftSelectsThePathsWithinTheBand) {
  DeuxTraits();
  essai::AjouteSequence(" C", {{10, 60}, {60, 60}});
  Presse(Bouton1, 5, 70, true);
  EXPECT_TRUE(Bouge(Bouton1, 40, 50).bande);
  const SuiteSouris s = Lache(Bouton1, 65, 30);
  EXPECT_EQ(Choisies(), " B C");
  EXPECT_TRUE(s.initSeq);
  EXPECT_TRUE(s.redessine);
}

TEST(PB1_MouseUp, APathThatLeavesTheBandIsNotSelected) {
  DeuxTraits();
  Presse(Bouton1, 5, 15, true);
  Lache(Bouton1, 50, 45);
  EXPECT_EQ(Choisies(), "");
}

TEST(PB1_MouseUp, ACodeThatStandsInTwoRunsNeedsBothWithinTheBand) {
  DeuxTraits();
  const auto suite = essai::Trace(" A", {{10, 90}, {20, 90}});
  TraceInitial.insert(TraceInitial.end(), suite.begin(), suite.end());
  NbPoints = 6;
  Presse(Bouton1, 5, 15, true);
  Lache(Bouton1, 65, 45);
  EXPECT_EQ(Choisies(), " B");
  Presse(Bouton1, 5, 15, true);
  Lache(Bouton1, 65, 95);
  EXPECT_EQ(Choisies(), " A B");
}

TEST(PB1_MouseUp, WithControlTheBandAddsToTheSelection) {
  DeuxTraits();
  Presse(Bouton1, 30, 21);
  Presse(Bouton1, 5, 30.1F, true, true);  // B is nearest: toggled, and as before once the band is drawn
  Lache(Bouton1, 65, 31, true);
  EXPECT_EQ(Choisies(), " A");
  Presse(Bouton1, 5, 45, true, true);
  Lache(Bouton1, 65, 35, true);
  EXPECT_EQ(Choisies(), " A B");
}

TEST(PB1_MouseUp, AClickWithShiftIsAnOrdinaryClick) {
  DeuxTraits();
  Presse(Bouton1, 30, 21, true);
  Lache(Bouton1, 30, 21);
  EXPECT_EQ(Choisies(), " A");
}

}  // namespace
