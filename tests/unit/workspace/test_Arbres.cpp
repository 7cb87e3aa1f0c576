// The two trees of the main window: texts, keys, colours, clicks.
#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "core/DocumentCourant.h"
#include "core/ReglagesCourants.h"
#include "core/Services.h"
#include "core/Traduction.h"
#include "tests/support/Support.h"
#include "toolpath/Module_Sequence.h"
#include "workspace/Module_Arbres.h"

namespace {

using namespace ovelin;

// Texts of the roots as a translation file gives them.
void PoseTextes() {
  essai::EcritFichierEssai("OVELINfr.trad",
                           "[F_Representation]\r\nlib401=Cle1\r\nlib402=Cle2\r\nlib403=Trajets\r\n");
  Regl.Langue = "fr";
  OublieTraductions();
}

void AjouteTrajet(const std::string& code, const std::vector<std::pair<float, float>>& xy) {
  TraceDecale.push_back({Code2(code), essai::Trace("01", xy)});
}

TEST(RemplissageTraceInitial, AnEmptyDocumentLeavesTheRootAlone) {
  PoseTextes();
  Regl.CouleurInitial = 12;
  Arbre arbre;
  Remplissage_Trace_Initial(arbre);
  EXPECT_EQ(arbre.racine.texte, "Trajets");
  EXPECT_EQ(arbre.racine.cle, "Cle1");
  EXPECT_EQ(arbre.racine.couleur, 12);
  EXPECT_TRUE(arbre.racine.developpe);
  EXPECT_EQ(arbre.racine.niveau, NiveauNoeud::Racine);
  EXPECT_STREQ(arbre.racine.image, "Closed");
  EXPECT_STREQ(arbre.racine.imageDeveloppe, "Open");
  EXPECT_TRUE(arbre.groupes.empty());
}

TEST(RemplissageTraceInitial, ADrawingThatWasEmptiedLeavesTheRootAlone) {
  essai::AjouteCarre(" A", 0, 0, 10);
  SupprimeSelection();
  ASSERT_EQ(TraceInitial.size(), 1U);
  Arbre arbre;
  Remplissage_Trace_Initial(arbre);
  EXPECT_TRUE(arbre.groupes.empty());
}

TEST(RemplissageTraceInitial, AHeadlineGivesNumberPointsAndSize) {
  essai::AjouteCarre(" A", 5, 5, 40);
  essai::AjouteSequence(" B", {{0, 0}, {0.25F, -12.34F}, {-0.5F, 3}});
  Arbre arbre;
  Remplissage_Trace_Initial(arbre);
  ASSERT_EQ(arbre.groupes.size(), 2U);
  EXPECT_EQ(arbre.groupes[0].texte, "1:5pts 40.0x40.0");
  EXPECT_EQ(arbre.groupes[1].texte, "2:3pts 0.8x15.3");  // 0.75 and 15.34
  EXPECT_TRUE(arbre.groupes[0].cle.starts_with(" A"));
  EXPECT_TRUE(arbre.groupes[1].cle.starts_with(" B"));
  EXPECT_EQ(arbre.groupes[1].premier, 5);
  EXPECT_EQ(arbre.groupes[1].nombre, 3);
}

TEST(RemplissageTraceInitial, NumbersCarryTheUsersMark) {
  Svc.MarqueDecimale = ',';
  essai::AjouteSequence(" A", {{0, 0}, {1.5F, 2}});
  Arbre arbre;
  Remplissage_Trace_Initial(arbre);
  EXPECT_EQ(arbre.groupes[0].texte, "1:2pts 1,5x2,0");
  EXPECT_EQ(arbre.Point(0, 1)->texte, "1,500 | 2,000");
}

TEST(RemplissageTraceInitial, APointShowsItsPlaceAndCarriesItsIndex) {
  Regl.CouleurInitial = 77;
  essai::AjouteSequence(" A", {{0, 0}, {1, 1}});
  essai::AjouteSequence(" B", {{2.0004F, -3.1236F}, {4, 5}});
  Arbre arbre;
  Remplissage_Trace_Initial(arbre);
  const auto point = arbre.Point(1, 0);
  ASSERT_TRUE(point);
  EXPECT_EQ(point->texte, "2.000 | -3.124");
  EXPECT_EQ(point->etiquette, 2);
  EXPECT_EQ(point->couleur, 77);
  EXPECT_EQ(point->niveau, NiveauNoeud::Point);
  EXPECT_FALSE(point->gras);
}

TEST(RemplissageTraceInitial, APointOfAnotherKindIsBlue) {
  essai::AjouteSequence(" A", {{0, 0}, {1, 1}, {2, 2}});
  TraceInitial[1].Cde = CodePC;
  Arbre arbre;
  Remplissage_Trace_Initial(arbre);
  EXPECT_EQ(arbre.Point(0, 0)->couleur, Regl.CouleurInitial);
  EXPECT_EQ(arbre.Point(0, 1)->couleur, Couleur(0, 0, 200));
}

TEST(RemplissageTraceInitial, KeysAreUniqueEvenWhereACodeComesInTwoRuns) {
  essai::AjouteSequence(" A", {{0, 0}, {1, 1}});
  essai::AjouteSequence(" B", {{0, 0}, {1, 1}});
  essai::AjouteSequence(" A", {{5, 5}, {6, 6}});
  Arbre arbre;
  Remplissage_Trace_Initial(arbre);
  std::set<std::string> cles;
  for (std::size_t g = 0; g < arbre.groupes.size(); ++g) {
    cles.insert(arbre.Groupe(g)->cle);
    for (std::size_t p = 0; p < 2; ++p) cles.insert(arbre.Point(g, p)->cle);
  }
  EXPECT_EQ(cles.size(), 9U);
}

TEST(RemplissageTraceInitial, WhatStoodInTheTreeIsCleared) {
  essai::AjouteSequence(" A", {{0, 0}, {1, 1}});
  Arbre arbre;
  Remplissage_Trace_Initial(arbre);
  Remplissage_Trace_Initial(arbre);
  EXPECT_EQ(arbre.groupes.size(), 1U);
}

TEST(RemplissageTraceInitial, PlacesBeyondTheTreeOrTheDocumentGiveNothing) {
  essai::AjouteSequence(" A", {{0, 0}, {1, 1}});
  Arbre arbre;
  Remplissage_Trace_Initial(arbre);
  EXPECT_FALSE(arbre.Groupe(1));
  EXPECT_FALSE(arbre.Point(1, 0));
  EXPECT_FALSE(arbre.Point(0, 2));
  TraceInitial.resize(1);  // the document has changed under the tree
  EXPECT_TRUE(arbre.Point(0, 0));
  EXPECT_FALSE(arbre.Point(0, 1));
}

TEST(RemplissageTraceInitial, PointsBehindTheTwoHundredthStandInAFold) {
  Regl.Langue = "fr";
  std::vector<std::pair<float, float>> xy;
  for (int i = 0; i < 203; ++i) xy.emplace_back(static_cast<float>(i), 0.0F);
  essai::AjouteSequence(" A", xy);
  essai::AjouteSequence(" B", {xy.begin(), xy.begin() + 200});
  Arbre arbre;
  Remplissage_Trace_Initial(arbre);
  EXPECT_EQ(arbre.PointsDuPli(0), 3U);
  EXPECT_EQ(arbre.PointsDuPli(1), 0U);
  EXPECT_EQ(arbre.PointsDuPli(2), 0U);
  ASSERT_TRUE(arbre.Pli(0));
  EXPECT_EQ(arbre.Pli(0)->texte, "+ 3 autres points");
  EXPECT_EQ(arbre.Pli(0)->niveau, NiveauNoeud::Pli);
  EXPECT_NE(arbre.Pli(0)->cle, arbre.Point(0, 200)->cle);
  EXPECT_FALSE(arbre.Pli(1));
}

TEST(RemplissageTraceDecale, WithoutAToolPathTheRootStandsAlone) {
  PoseTextes();
  Regl.CouleurDecalage = 34;
  essai::AjouteCarre(" A", 0, 0, 10);
  Arbre arbre;
  Remplissage_Trace_Decale(arbre);
  EXPECT_EQ(arbre.racine.texte, "Trajets");
  EXPECT_EQ(arbre.racine.cle, "Cle2");
  EXPECT_EQ(arbre.racine.couleur, 34);
  EXPECT_TRUE(arbre.racine.developpe);
  EXPECT_TRUE(arbre.groupes.empty());
}

TEST(RemplissageTraceDecale, EachPieceWithPointsIsAGroup) {
  essai::AjouteCarre(" A", 0, 0, 10, 1, -3);
  essai::AjouteCarre(" B", 20, 0, 10, 1, -1.5);
  AjouteTrajet(" A", {{0, 0}, {1, 0}, {1, 1}});
  AjouteTrajet(" A", {{2, 2}, {3, 3}});
  TraceDecale.push_back({Code2(" A"), {}});
  AjouteTrajet(" B", {{4, 4}, {5, 5.5F}});
  Arbre arbre;
  Remplissage_Trace_Decale(arbre);
  ASSERT_EQ(arbre.groupes.size(), 3U);
  EXPECT_EQ(arbre.groupes[0].texte, "-1/3:3 points PF:-3");
  EXPECT_EQ(arbre.groupes[1].texte, "-2/3:2 points PF:-3");
  EXPECT_EQ(arbre.groupes[2].texte, "-3/3:2 points PF:-1.5");
  EXPECT_EQ(arbre.groupes[0].cle, " A-1");
  EXPECT_EQ(arbre.groupes[1].cle, " A-2");
  EXPECT_EQ(arbre.groupes[2].cle, " B-3");
  EXPECT_EQ(arbre.groupes[2].entree, 3);
  EXPECT_EQ(arbre.Point(2, 1)->texte, "5.000 | 5.500");
  EXPECT_EQ(arbre.Point(2, 1)->etiquette, 1);
}

TEST(RemplissageTraceDecale, WhatIsNotMilledIsGrey) {
  Regl.CouleurDecalage = 99;
  essai::AjouteCarre(" A", 0, 0, 10);
  essai::AjouteCarre(" B", 20, 0, 10);
  Sequences[1].Fraiser = Faux;
  AjouteTrajet(" A", {{0, 0}, {1, 0}});
  AjouteTrajet(" B", {{0, 0}, {1, 0}});
  TraceDecale[1].Points[1].Cde = CodePE;
  Arbre arbre;
  Remplissage_Trace_Decale(arbre);
  EXPECT_EQ(arbre.groupes[0].couleur, 99);
  EXPECT_EQ(arbre.groupes[1].couleur, Couleur(240, 240, 240));
  EXPECT_EQ(arbre.Point(0, 0)->couleur, 99);
  EXPECT_EQ(arbre.Point(1, 0)->couleur, Couleur(240, 240, 240));
  EXPECT_EQ(arbre.Point(1, 1)->couleur, Couleur(0, 0, 200));
}

TEST(RemplissageTraceDecale, APathWithoutARecordIsMilledAtDepthZero) {
  AjouteTrajet("ZZ", {{0, 0}, {1, 0}});
  Arbre arbre;
  Remplissage_Trace_Decale(arbre);
  EXPECT_EQ(arbre.groupes[0].texte, "-1/1:2 points PF:0");
  EXPECT_EQ(arbre.groupes[0].couleur, Regl.CouleurDecalage);
}

TEST(RemplissageTraceDecale, APieceThatIsGoneGivesNothing) {
  AjouteTrajet(" A", {{0, 0}, {1, 0}});
  Arbre arbre;
  Remplissage_Trace_Decale(arbre);
  TraceDecale.clear();
  EXPECT_FALSE(arbre.Point(0, 0));
}

TEST(MarqueSelection, SelectedGroupsAreOpenWithTheirFirstPointBold) {
  essai::AjouteCarre(" A", 0, 0, 10);
  essai::AjouteCarre(" B", 20, 0, 10);
  essai::AjouteCarre(" C", 40, 0, 10);
  AjouteTrajet(" B", {{0, 0}, {1, 0}});
  AjouteTrajet(" C", {{0, 0}, {1, 0}});
  Sequences[0].Selection = Faux;
  Sequences[2].Selection = Faux;
  Arbre initial, decale;
  Remplissage_Trace_Initial(initial);
  Remplissage_Trace_Decale(decale);
  EXPECT_EQ(MarqueSelection(initial), 1);
  EXPECT_EQ(MarqueSelection(decale), 0);
  EXPECT_FALSE(initial.Groupe(0)->developpe);
  EXPECT_TRUE(initial.Groupe(1)->developpe);
  EXPECT_TRUE(initial.Groupe(1)->visible);
  EXPECT_FALSE(initial.Groupe(2)->developpe);
  EXPECT_TRUE(initial.Point(1, 0)->gras);
  EXPECT_TRUE(initial.Point(1, 0)->visible);
  EXPECT_FALSE(initial.Point(1, 1)->gras);
  EXPECT_FALSE(initial.Point(0, 0)->gras);
  EXPECT_TRUE(decale.Groupe(0)->developpe);
  EXPECT_FALSE(decale.Groupe(1)->developpe);
}

TEST(MarqueSelection, ACollapsedTreeAgainWhenNothingIsSelected) {
  essai::AjouteCarre(" A", 0, 0, 10);
  Arbre arbre;
  Remplissage_Trace_Initial(arbre);
  EXPECT_EQ(MarqueSelection(arbre), 0);
  DeselectionneTout();
  EXPECT_EQ(MarqueSelection(arbre), -1);
  EXPECT_FALSE(arbre.Groupe(0)->developpe);
  EXPECT_FALSE(arbre.Point(0, 0)->gras);
}

TEST(RefaitTitre, TheTextBehindPtsIsReplaced) {
  EXPECT_EQ(RefaitTitre("12:340pts 1.0x2.0", 15.25, 0), "12:340pts 15.3x0.0");
  EXPECT_EQ(RefaitTitre("no such word", 1, 1), "no such word");
}

TEST(RefaitTitre, OnlyTheHeadlinesOfTheChangedPathFollow) {
  essai::AjouteCarre(" A", 0, 0, 10);
  essai::AjouteCarre(" B", 20, 0, 10);
  Arbre arbre;
  Remplissage_Trace_Initial(arbre);
  for (PointTrace& p : TraceInitial) p.X *= 2;
  RefaitTitres(arbre, Code2(" B"));
  EXPECT_EQ(arbre.groupes[0].texte, "1:5pts 10.0x10.0");
  EXPECT_EQ(arbre.groupes[1].texte, "2:5pts 20.0x10.0");
}

TEST(RefaitTitre, TheTreeOfTheToolPathIsLeft) {
  AjouteTrajet(" A", {{0, 0}, {1, 0}});
  Arbre arbre;
  Remplissage_Trace_Decale(arbre);
  const std::string avant = arbre.groupes[0].texte;
  RefaitTitres(arbre, Code2(" A"));
  EXPECT_EQ(arbre.groupes[0].texte, avant);
}

TEST(RefaitTitre, ADrawingThatHasShrunkIsNotReadBeyondItsEnd) {
  essai::AjouteCarre(" A", 0, 0, 10);
  Arbre arbre;
  Remplissage_Trace_Initial(arbre);
  TraceInitial.clear();
  RefaitTitres(arbre, Code2(" A"));
  EXPECT_EQ(arbre.groupes[0].texte, "1:5pts 0.0x0.0");
}

TEST(ClicArbre, APointComesIntoFocusWithItsPath) {
  essai::AjouteCarre(" A", 0, 0, 10);
  essai::AjouteSequence(" B", {{1.5F, 2}, {3, 4}});
  const auto selection = Sequences;
  Arbre arbre;
  Remplissage_Trace_Initial(arbre);
  const ResultatClic r = ClicPoint(arbre, 1, 0);
  EXPECT_TRUE(r.fait);
  EXPECT_TRUE(r.annuleEdition);
  EXPECT_FALSE(r.initSeq);
  ASSERT_TRUE(r.croix);
  EXPECT_EQ(r.croix->X, 1.5F);
  EXPECT_EQ(PointCourantX, 1.5F);
  EXPECT_EQ(PointCourantY, 2.0F);
  EXPECT_EQ(r.TB_X, "1.500");
  EXPECT_EQ(r.TB_Y, "2.000");
  EXPECT_EQ(SeqCourante, Code2(" B"));
  EXPECT_EQ(Sequences, selection);
  ASSERT_FALSE(essai::Panneaux().empty());
  EXPECT_EQ(essai::Panneaux().back(), std::make_pair(1, std::string(" B")));
}

TEST(ClicArbre, APointOfTheToolPathGivesThePathItBelongsTo) {
  essai::AjouteCarre(" A", 0, 0, 10);
  AjouteTrajet(" A", {{7, 8}, {9, 9}});
  Arbre arbre;
  Remplissage_Trace_Decale(arbre);
  const ResultatClic r = ClicPoint(arbre, 0, 0);
  EXPECT_FALSE(r.annuleEdition);
  EXPECT_EQ(SeqCourante, Code2(" A"));
  EXPECT_EQ(r.croix->Seq, Code2(" A"));
  EXPECT_EQ(PointCourantX, 7.0F);
}

TEST(ClicArbre, AGroupAloneIsSelected) {
  essai::AjouteCarre(" A", 0, 0, 10);
  essai::AjouteCarre(" B", 20, 0, 10);
  SeqCourante = Code2(" A");
  Arbre arbre;
  Remplissage_Trace_Initial(arbre);
  const ResultatClic r = ClicSequence(arbre, 1);
  EXPECT_TRUE(r.fait);
  EXPECT_TRUE(r.initSeq);
  EXPECT_TRUE(r.annuleEdition);
  EXPECT_EQ(Sequences[0].Selection, Faux);
  EXPECT_EQ(Sequences[1].Selection, Vrai);
  EXPECT_EQ(SeqCourante, Code2(" B"));
  EXPECT_EQ(essai::Panneaux().back(), std::make_pair(1, std::string(" B")));
}

TEST(ClicArbre, APlaceThatIsGoneDoesNothing) {
  essai::AjouteCarre(" A", 0, 0, 10);
  Arbre arbre;
  Remplissage_Trace_Initial(arbre);
  SeqCourante = Code2(" A");
  EXPECT_FALSE(ClicPoint(arbre, 0, 5).fait);
  EXPECT_FALSE(ClicSequence(arbre, 1).fait);
  EXPECT_EQ(Sequences[0].Selection, Vrai);
  EXPECT_TRUE(essai::Panneaux().empty());
}

}  // namespace
