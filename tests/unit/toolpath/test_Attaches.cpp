#include "core/DocumentCourant.h"
#include "core/ReglagesCourants.h"
#include "tests/unit/toolpath/BiblioEssai.h"
#include "toolpath/Module_Decalage.h"
#include "toolpath/Module_Sequence.h"

using namespace ovelin;
using namespace essai;

namespace {

// Reach T = 5 / 2 + 1.5 = 4.
void Outil() {
  LargeurEncoche = 5;
  RayonFraise = 1.5;
}

int Rafraichissements = 0;
void CompteRafraichissements() {
  Rafraichissements = 0;
  Svc.Rafraichit = [] { ++Rafraichissements; };
}

// --- moved along its path

TEST(DeplaceAttache, KeepsACornerThatCarriedAMark) {
  essai::AjouteSequence(" A", {{0, 0}, {50, 0}, {50, 50}}, 2);
  TraceInitial[1].Cde = CodePC;
  LargeurEncoche = 2;
  ASSERT_TRUE(DeplaceAttache(1, 52, 25));
  ASSERT_EQ(TraceInitial.size(), 4U);
  EXPECT_EQ(TraceInitial[1], (PointTrace{50, 0, CodePD, Code2(" A")}));
  EXPECT_EQ(TraceInitial[2], (PointTrace{50, 25, CodePC, Code2(" A")}));
}

TEST(DeplaceAttache, GoesNoNearerToAnotherThanTheWidthOfANotch) {
  essai::AjouteSequence(" A", {{0, 0}, {20, 0}, {60, 0}, {100, 0}}, 2);
  TraceInitial[1].Cde = TraceInitial[2].Cde = CodePC;
  LargeurEncoche = 5;
  EXPECT_FALSE(DeplaceAttache(1, 56, 3));
  EXPECT_EQ(TraceInitial[1].X, 20);
  EXPECT_FALSE(LieuAttache(1, 56, 3));
  EXPECT_EQ(essai::Bips(), 1);
  ASSERT_TRUE(DeplaceAttache(1, 54, 3));
  EXPECT_EQ(TraceInitial[1].X, 54);
  ASSERT_TRUE(DeplaceAttache(1, 80, 3)) << "over the other one";
  EXPECT_EQ(TraceInitial[1].X, 60);
  EXPECT_EQ(TraceInitial[2].X, 80);
}

TEST(DeplaceAttache, RefusesWhatIsNoAttachmentPoint) {
  essai::AjouteSequence(" A", {{0, 0}, {20, 0}, {60, 0}}, 2);
  for (const int index : {-1, 1, 99}) EXPECT_FALSE(DeplaceAttache(index, 10, 0)) << index;
}

}  // namespace

TEST(AjouteAttache, InsertsTheMarkAtTheFootOnTheNearestSegment) {
  BiblioEssai biblio;
  Outil();
  CompteRafraichissements();
  AjouteSequence(" A", {{0, 0}, {30, 0}});
  AjouteSequence(" B", {{0, 20}, {50, 20}, {50, 60}});
  EXPECT_TRUE(AjouteAttache(25, 17));
  ASSERT_EQ(NbPoints, 6);
  EXPECT_EQ(TraceInitial[3], (PointTrace{25, 20, CodePC, Code2(" B")}));
  EXPECT_EQ(CodesTraces(), " B");
  EXPECT_EQ(Marques(TraceDecale[0].Points), "PD PE PC PD PD PD");
  EXPECT_EQ(Modifie, Vrai);
  EXPECT_EQ(Rafraichissements, 1);
  EXPECT_EQ(Bips(), 0);
}

TEST(AjouteAttache, TakesTheNearerEndWhereThePerpendicularMisses) {
  BiblioEssai biblio;
  Outil();
  AjouteSequence(" A", {{0, 0}, {20, 0}, {20, 20}, {40, 20}});
  EXPECT_TRUE(AjouteAttache(22, -2));
  EXPECT_EQ(TraceInitial[1], (PointTrace{20, 0, CodePC, Code2(" A")}));
  EXPECT_EQ(TraceInitial[2], (PointTrace{20, 0, CodePD, Code2(" A")}));
}

TEST(AjouteAttache, IsSilentFarFromEverything) {
  BiblioEssai biblio;
  Outil();
  AjouteSequence(" A", {{0, 0}, {40, 0}});
  EXPECT_FALSE(AjouteAttache(20, 8.01F));
  EXPECT_EQ(Bips(), 0);
  EXPECT_EQ(NbPoints, 2);
  EXPECT_EQ(Modifie, Faux);
  // At exactly twice the reach it counts.
  EXPECT_TRUE(AjouteAttache(20, 8));
}

TEST(AjouteAttache, BeepsNearerThanTheReachToAnEnd) {
  BiblioEssai biblio;
  Outil();
  AjouteSequence(" A", {{0, 0}, {40, 0}});
  EXPECT_FALSE(AjouteAttache(3.9F, 0));
  EXPECT_FALSE(AjouteAttache(36.1F, 0));
  EXPECT_EQ(Bips(), 2);
  EXPECT_EQ(NbPoints, 2);
  EXPECT_TRUE(AjouteAttache(4, 0));
}

TEST(AjouteAttache, BeepsNearerThanTheWidthToAnotherMark) {
  BiblioEssai biblio;
  Outil();
  AjouteSequence(" A", {{0, 0}, {100, 0}});
  ASSERT_TRUE(AjouteAttache(50, 0));
  const auto avant = TraceInitial;
  EXPECT_FALSE(AjouteAttache(54.9F, 0));
  EXPECT_FALSE(AjouteAttache(45.1F, 0));
  EXPECT_EQ(Bips(), 2);
  EXPECT_EQ(TraceInitial, avant);
  EXPECT_TRUE(AjouteAttache(55, 0));
}

TEST(AjouteAttache, LooksForMarksInThatPathAlone) {
  BiblioEssai biblio;
  Outil();
  AjouteSequence(" A", {{0, 0}, {100, 0}});
  AjouteSequence(" B", {{0, 1}, {100, 1}});
  ASSERT_TRUE(AjouteAttache(50, 0));
  EXPECT_TRUE(AjouteAttache(50, 1));
}

TEST(AjouteAttache, TakesTheFirstOfEquallyNearSegments) {
  BiblioEssai biblio;
  Outil();
  AjouteSequence(" A", {{0, 0}, {100, 0}});
  AjouteSequence(" B", {{0, 4}, {100, 4}});
  ASSERT_TRUE(AjouteAttache(50, 2));
  EXPECT_EQ(TraceInitial[1].Cde, CodePC);
}

TEST(AjouteAttache, TreatsADrillingPointAsAPoint) {
  BiblioEssai biblio;
  Outil();
  AjouteSequence(" A", {{10, 10}, {10, 10}});
  EXPECT_FALSE(AjouteAttache(12, 10));
  EXPECT_EQ(Bips(), 1);
  EXPECT_FALSE(AjouteAttache(30, 10));
  EXPECT_EQ(Bips(), 1);
  EXPECT_EQ(NbPoints, 2);
}

TEST(AjouteAttache, DoesNothingOnAnEmptyDrawing) {
  EXPECT_FALSE(AjouteAttache(0, 0));
  EXPECT_EQ(Bips(), 0);
}

TEST(EnleveAttache, TakesTheNearestMarkAndItsPointOnAStraightLine) {
  BiblioEssai biblio;
  Outil();
  Biblio.NettoyageFichier = pathwerk::NettoyageFichier;
  CompteRafraichissements();
  AjouteSequence(" A", {{0, 0}, {100, 0}});
  const auto avant = TraceInitial;
  ASSERT_TRUE(AjouteAttache(50, 3));
  Modifie = Faux;
  EXPECT_TRUE(EnleveAttache(52, -3));
  EXPECT_EQ(TraceInitial, avant);
  EXPECT_EQ(Marques(TraceDecale.at(0).Points), "PD PD");
  EXPECT_EQ(Modifie, Vrai);
  EXPECT_EQ(Rafraichissements, 2);
}

TEST(EnleveAttache, CleansTheDrawingWithAHundredthOfAMillimetre) {
  BiblioEssai biblio;
  Outil();
  std::vector<float> tolerances;
  Biblio.NettoyageFichier = [&](std::vector<PointTrace>& p, float tolerance) {
    tolerances.push_back(tolerance);
    return static_cast<std::int32_t>(p.size());
  };
  AjouteSequence(" A", {{0, 0}, {50, 0}, {100, 0}});
  AjouteSequence(" B", {{0, 9}, {50, 9}});
  TraceInitial[1].Cde = CodePC;
  EXPECT_TRUE(EnleveAttache(50, 0));
  EXPECT_EQ(tolerances, (std::vector<float>{0.01F, 0.01F}));
  EXPECT_EQ(TraceInitial[1].Cde, CodePD);
  EXPECT_EQ(CodesTraces(), " A");
}

TEST(EnleveAttache, TakesTheNearerOfTwoMarksAndTheFirstOfEquals) {
  BiblioEssai biblio;
  Outil();
  AjouteSequence(" A", {{0, 0}, {50, 0}, {60, 0}, {100, 0}});
  TraceInitial[1].Cde = TraceInitial[2].Cde = CodePC;
  EXPECT_TRUE(EnleveAttache(56, 0));
  EXPECT_EQ(Marques(TraceInitial), "PD PC PD PD");
  TraceInitial[2].Cde = CodePC;
  EXPECT_TRUE(EnleveAttache(55, 0));
  EXPECT_EQ(Marques(TraceInitial), "PD PD PC PD");
}

TEST(EnleveAttache, BeepsWithoutAMarkAndFarFromOne) {
  BiblioEssai biblio;
  Outil();
  EXPECT_FALSE(EnleveAttache(0, 0));
  AjouteSequence(" A", {{0, 0}, {50, 0}, {100, 0}});
  EXPECT_FALSE(EnleveAttache(50, 0));
  TraceInitial[1].Cde = CodePC;
  EXPECT_FALSE(EnleveAttache(50, 8.01F));
  EXPECT_EQ(Bips(), 3);
  EXPECT_EQ(TraceInitial[1].Cde, CodePC);
  EXPECT_TRUE(EnleveAttache(50, 8));
}

TEST(EnleveAttache, LooksFromTheSecondPointOn) {
  BiblioEssai biblio;
  Outil();
  AjouteSequence(" A", {{0, 0}, {50, 0}});
  TraceInitial[0].Cde = CodePC;
  EXPECT_FALSE(EnleveAttache(0, 0));
  EXPECT_EQ(TraceInitial[0].Cde, CodePC);
}
