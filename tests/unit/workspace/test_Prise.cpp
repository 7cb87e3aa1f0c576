// The selection in the hand: moved, scaled and turned by the mouse. A millimetre is 15 twips, a pixel; (x, y) mm is
// at (15 x, 1500 - 15 y).
#include <gtest/gtest.h>

#include <cmath>

#include "core/DocumentCourant.h"
#include "core/ReglagesCourants.h"
#include "core/RunCourant.h"
#include "tests/support/Support.h"
#include "toolpath/Module_Sequence.h"
#include "workspace/Module_Prise.h"

namespace {

using namespace ovelin;

constexpr TailleImage Image{3000, 1500};

EvenementSouris E(unsigned bouton, float x, float y, bool majuscule = false, bool controle = false) {
  return {bouton, controle, majuscule, 15 * x, 1500 - 15 * y};
}
SuiteSouris Presse(float x, float y, bool controle = false) {
  return PB1_MouseDown(E(Bouton1, x, y, false, controle), Image);
}
SuiteSouris Bouge(float x, float y, bool majuscule = false, bool controle = false) {
  return PB1_MouseMove(E(Bouton1, x, y, majuscule, controle), Image);
}
SuiteSouris Lache(float x, float y) { return PB1_MouseUp(E(Bouton1, x, y), Image); }

// 20 x 20 mm at (20, 20) and at (100, 20), cut on the line, none selected.
void DeuxCarres() {
  Zoom = 15;
  essai::AjouteCarre(" A", 20, 20, 20, 2);
  essai::AjouteCarre(" B", 100, 20, 20, 2);
  DeselectionneTout();
}

std::string Choisies() {
  std::string codes;
  for (const Code2 c : CodesSelectionnes()) codes += c.Texte();
  return codes;
}

float Gauche(std::size_t premier) { return TraceInitial[premier].X; }
float Bas(std::size_t premier) { return TraceInitial[premier].Y; }

TEST(Tirage, MovesTheSelectionOnceTheButtonComesUp) {
  DeuxCarres();
  int fois = 0;
  Svc.Rafraichit = [&fois] { ++fois; };
  Presse(20, 30);
  Bouge(25, 30);
  EXPECT_TRUE(Bouge(50, 37).prise);
  EXPECT_EQ(Gauche(0), 20) << "nothing before";
  EXPECT_EQ(fois, 0);
  EXPECT_TRUE(Lache(50, 37).prise);
  EXPECT_EQ(Gauche(0), 50);
  EXPECT_EQ(Bas(0), 27);
  EXPECT_EQ(Gauche(5), 100) << "the other one stays";
  EXPECT_EQ(fois, 1) << "one step, although it went both ways";
  EXPECT_EQ(Modifie, Vrai);
  EXPECT_EQ(Prise.sorte, SortePrise::Aucune);
}

TEST(Tirage, APressThatTremblesIsAClick) {
  DeuxCarres();
  Presse(20, 30);
  EXPECT_FALSE(Bouge(22, 32).prise);
  EXPECT_FALSE(Lache(22, 32).prise);
  EXPECT_EQ(Gauche(0), 20);
  EXPECT_EQ(Choisies(), " A");
  EXPECT_EQ(Modifie, Faux);
}

TEST(Tirage, OfASelectedPathBringsTheWholeSelectionBack) {
  DeuxCarres();
  SelectionneTout();
  Presse(20, 30);
  EXPECT_EQ(Choisies(), " A") << "the press acts as a click";
  const SuiteSouris suite = Bouge(30, 30);
  EXPECT_TRUE(suite.initSeq && suite.redessine);
  EXPECT_EQ(Choisies(), " A B");
  Lache(30, 30);
  EXPECT_EQ(Gauche(0), 30);
  EXPECT_EQ(Gauche(5), 110);
}

TEST(Tirage, OfAnotherPathTakesThatOneAlone) {
  DeuxCarres();
  BasculeSelection(Code2(" A"));
  Presse(100, 30);
  Bouge(110, 30);
  Lache(110, 30);
  EXPECT_EQ(Gauche(0), 20);
  EXPECT_EQ(Gauche(5), 110);
}

TEST(Tirage, FarFromEveryPathMovesNothing) {
  DeuxCarres();
  Presse(70, 70);
  EXPECT_FALSE(Bouge(90, 90).prise);
  Lache(90, 90);
  EXPECT_EQ(Gauche(0), 20);
  EXPECT_EQ(Gauche(5), 100);
}

TEST(Tirage, ShiftKeepsTheAxis) {
  DeuxCarres();
  Presse(20, 30);
  Bouge(50, 37, true);
  Lache(50, 37);
  EXPECT_EQ(Gauche(0), 50);
  EXPECT_EQ(Bas(0), 20);
}

TEST(Tirage, ControlSnapsTheBoxToAnotherPathAndToTheGrid) {
  DeuxCarres();
  Presse(20, 30);
  // The right edge, 40, would come to 99.6: the other square begins at 100. Lines each 10 mm: 22.8 is far from 20.
  Bouge(79.6F, 30.4F, false, true);
  EXPECT_NEAR(Prise.dx, 60, 1e-4);
  EXPECT_NEAR(Prise.dy, 0, 1e-4) << "the edges of both are level";
  Bouge(79.6F, 30.4F);
  EXPECT_NEAR(Prise.dx, 59.6, 1e-4) << "without the key it goes where it is led";
}

TEST(Tirage, EscapeTakesItBack) {
  DeuxCarres();
  Presse(20, 30);
  Bouge(50, 37);
  EXPECT_TRUE(Echappe().prise);
  Bouge(60, 37);
  EXPECT_FALSE(Lache(60, 37).prise);
  EXPECT_EQ(Gauche(0), 20);
  EXPECT_EQ(Choisies(), " A") << "the next Escape deselects";
  Echappe();
  EXPECT_EQ(Choisies(), "");
}

TEST(Tirage, ACornerScalesAboutTheMiddle) {
  DeuxCarres();
  BasculeSelection(Code2(" A"));
  // Box 20 ... 40 with 8 pixels around: its upper right corner is at (48, 48), the middle at (30, 30).
  Presse(48, 48);
  Bouge(66, 66);
  EXPECT_NEAR(Prise.rapport, 2, 1e-5);
  Lache(66, 66);
  EXPECT_NEAR(Gauche(0), 10, 1e-4);
  EXPECT_NEAR(Bas(0), 10, 1e-4);
  EXPECT_EQ(Choisies(), " A");
}

TEST(Tirage, TheGripAboveTheBoxTurns) {
  DeuxCarres();
  BasculeSelection(Code2(" A"));
  Presse(30, 74);  // 48 and a shaft of 26 pixels
  ASSERT_EQ(Prise.sorte, SortePrise::Tourne);
  Bouge(74, 30);
  EXPECT_NEAR(Prise.angle, -std::acos(0.0), 1e-5) << "clockwise a quarter";
  EXPECT_EQ(TexteTirage(), "-90.0°");
  Lache(74, 30);
  // The lower left corner has become the upper left one.
  EXPECT_NEAR(Gauche(0), 20, 1e-4);
  EXPECT_NEAR(Bas(0), 40, 1e-4);
}

TEST(Tirage, ThereAreNoGripsInThePlainPicture) {
  DeuxCarres();
  BasculeSelection(Code2(" A"));
  Regl.DessinSobre = false;
  Presse(48, 48);
  EXPECT_EQ(Prise.sorte, SortePrise::Aucune);
}

TEST(Tirage, TellsItsFigures) {
  DeuxCarres();
  Presse(20, 30);
  EXPECT_EQ(TexteTirage(), "");
  Bouge(32, 26.5F);
  EXPECT_EQ(TexteTirage(), "12.0, -3.5 mm");
}

TEST(Tirage, DoesNothingWhileTheMachineWorks) {
  DeuxCarres();
  Presse(20, 30);
  OperationCarte = true;
  EXPECT_FALSE(Bouge(50, 37).prise);
  Lache(50, 37);
  EXPECT_EQ(Gauche(0), 20);
}

TEST(Echappe, LaysAToolDownThenDeselects) {
  DeuxCarres();
  SelectionneTout();
  mnu_ZoomSelection_Click();
  EXPECT_TRUE(Echappe().outils);
  EXPECT_FALSE(Souris.mnu_ZoomSelection);
  EXPECT_EQ(Choisies(), " A B");
  const SuiteSouris suite = Echappe();
  EXPECT_TRUE(suite.initSeq && suite.redessine);
  EXPECT_EQ(Choisies(), "");
  EXPECT_FALSE(Echappe().redessine);
}

// The left side of the square at (20, 20) runs up from (20, 20) to (20, 40): a mark at (20, 30) is its second
// point.
void CarreAttache() {
  DeuxCarres();
  Regl.DessinSobre = true;
  LargeurEncoche = 2;
  RayonFraise = 0.5;
  TraceInitial.insert(TraceInitial.begin() + 1, PointTrace{20, 30, CodePC, Code2(" A")});
  NbPoints = static_cast<std::int32_t>(TraceInitial.size());
}

TEST(Tirage, MovesAnAttachmentPointAlongItsPath) {
  CarreAttache();
  const auto avant = TraceInitial;
  Presse(20, 30);
  EXPECT_EQ(Prise.sorte, SortePrise::Attache);
  Bouge(30, 41);
  EXPECT_EQ(TraceInitial, avant) << "nothing before";
  Bouge(32, 46);
  Lache(32, 46);
  ASSERT_EQ(TraceInitial.size(), avant.size());
  // The upper side is the nearest there: the mark stands behind the second corner now.
  EXPECT_EQ(TraceInitial[1], (PointTrace{20, 40, CodePD, Code2(" A")}));
  EXPECT_EQ(TraceInitial[2], (PointTrace{32, 40, CodePC, Code2(" A")}));
  EXPECT_EQ(Choisies(), "") << "the selection is that of before the press";
}

TEST(Tirage, AnAttachmentPointStaysWhereItWouldBeTooNearToTheStart) {
  CarreAttache();
  const auto avant = TraceInitial;
  Presse(20, 30);
  Bouge(20, 25);
  Bouge(20, 20.5F);
  Lache(20, 20.5F);
  EXPECT_EQ(TraceInitial, avant);
  EXPECT_EQ(essai::Bips(), 1);
}

TEST(Tirage, EscapeLeavesAnAttachmentPoint) {
  CarreAttache();
  const auto avant = TraceInitial;
  Presse(20, 30);
  Bouge(30, 41);
  Echappe();
  Lache(30, 41);
  EXPECT_EQ(TraceInitial, avant);
}

}  // namespace
