// Sections, layers and blocks of files that are written in unusual ways, and where a file ends.
#include "closed/pathwerk/lecture/dxf/Sommaire.h"
#include "tests/unit/closed/pathwerk/lecture/dxf/Outils.h"

using namespace essai;
using pathwerk::Erreur;
using pathwerk::lecture::Lecture;

namespace {

const std::string Trait = "0=LINE 8=0 10=1 20=2 11=4 21=6 ";

}  // namespace

TEST(Sommaire, SectionsWithoutTheirEndAreEndedByTheNext) {
  const Lecture l = Lit(Texte(
      "0=SECTION 2=TABLES 0=TABLE 2=LAYER 0=LAYER 2=x 70=1 0=SECTION 2=BLOCKS 0=BLOCK 2=A 10=0 20=0 " + Trait +
      "0=SECTION 2=ENTITIES 0=INSERT 2=A 10=100 20=0 0=LINE 8=x 10=0 20=0 11=1 21=1 0=SECTION 2=OBJECTS " + Trait +
      "0=ENDSEC 0=EOF"));
  ASSERT_EQ(l.traits.size(), 1U);
  AttendPoint(l.traits[0].points[0], 101, 2);
  EXPECT_EQ(Ignores(l, "LAYER"), 1);
}

TEST(Sommaire, NothingBehindTheEndOfTheFileIsRead) {
  EXPECT_EQ(Lit(Texte(Section(Trait) + Section(Trait))).traits.size(), 1U);
  EXPECT_EQ(Lit(Texte("0=SECTION 2=ENTITIES " + Trait + "0=EOF " + Section(Trait))).traits.size(), 1U);
}

TEST(Sommaire, AFileThatEndsInsideASectionIsCutOff) {
  EXPECT_TRUE(Lit(Texte("0=SECTION 2=ENTITIES " + Trait)).rapport.Tronque);
  EXPECT_TRUE(
      Lit(Texte("0=SECTION 2=ENTITIES " + Trait + "0=ENDSEC 0=SECTION 2=OBJECTS 0=DICTIONARY")).rapport.Tronque);
  EXPECT_FALSE(Lit(Texte("0=SECTION 2=ENTITIES " + Trait + "0=EOF")).rapport.Tronque);
}

TEST(Sommaire, ASectionHasItsNameInGroupTwo) {
  const Lecture l = Lit(Texte("0=SECTION 1=ENTITIES " + Trait + "0=ENDSEC " + Section(Trait)));
  EXPECT_EQ(l.traits.size(), 1U);
}

TEST(Sommaire, LayersDoNotTellCapitalsFromSmallLettersFromAToZ) {
  EXPECT_TRUE(Lit(AvecCalques("0=LAYER 2=AmZ 70=1 ", "0=LINE 8=aMz 10=0 20=0 11=1 21=1")).traits.empty());
}

TEST(Sommaire, ALayerOfColourNothingIsOn) {
  EXPECT_EQ(Lit(AvecCalques("0=LAYER 2=x 70=0 62=0 ", "0=LINE 8=x 10=0 20=0 11=1 21=1")).traits.size(), 1U);
}

TEST(Sommaire, ALayerTakesNothingFromTheOneBefore) {
  const std::string calques = "0=LAYER 2=x 70=1 62=-3 0=LAYER 2=y ";
  EXPECT_EQ(Lit(AvecCalques(calques, "0=LINE 8=y 10=0 20=0 11=1 21=1")).traits.size(), 1U);
}

TEST(Sommaire, FirstOfTwoBlocksWithOneNameCounts) {
  const Lecture l = Lit(
      AvecBlocs("0=BLOCK 2=A 10=0 20=0 " + Trait + "0=ENDBLK 0=BLOCK 2=a 10=50 20=0 " + Trait + Trait + "0=ENDBLK",
                "0=INSERT 2=A 10=0 20=0"));
  ASSERT_EQ(l.traits.size(), 1U);
  AttendPoint(l.traits[0].points[0], 1, 2);
}

// An insertion seen along -y: its x stays, its y points up, its z runs against y.
TEST(Sommaire, TheBasePointOfABlockHasAHeight) {
  const Lecture l = Lit(AvecBlocs("0=BLOCK 2=A 10=0 20=0 30=5 0=LINE 8=0 10=1 20=0 30=7 11=4 21=0 31=7 0=ENDBLK",
                                  "0=INSERT 2=A 10=0 20=0 30=0 210=0 220=-1 230=0"));
  ASSERT_EQ(l.traits.size(), 1U);
  AttendPoint(l.traits[0].points[0], 1, -2);
  AttendPoint(l.traits[0].points[1], 4, -2);
}

TEST(Sommaire, TextsOfAnInsertionInALayoutAreNotCountedBesideIt) {
  const Lecture l =
      Lit(AvecBlocs("0=BLOCK 2=*Paper_Space 10=0 20=0 0=INSERT 66=1 2=A 10=0 20=0 0=ATTRIB 1=x 0=ATTRIB "
                    "1=y 0=SEQEND 0=ENDBLK",
                    Trait));
  EXPECT_EQ(Ignores(l, "PAPER_SPACE"), 1);
}

TEST(Sommaire, UnitsShownInFeetAreReadFromTheHeader) {
  const Lecture l = Lit(AvecEntete("9=$LUNITS 70=4", Trait));
  EXPECT_DOUBLE_EQ(l.traits.at(0).points.at(0).x, 25.4);
}

TEST(Sommaire, AVariableWithoutItsValueSpoilsNothing) {
  EXPECT_EQ(Lit(Texte("0=SECTION 2=HEADER 9=$INSUNITS 0=ENDSEC " + Section(Trait))).traits.size(), 1U);
}

// Paths of this system's own drawings keep their order and are not joined.
TEST(Sommaire, OwnDrawingsBeginWithACommentOfTheName) {
  EXPECT_TRUE(Lit(Texte("999=OVELIN " + Section(Trait))).ordreImpose);
  EXPECT_FALSE(Lit(Texte("9=OVELIN " + Section(Trait))).ordreImpose);
  EXPECT_FALSE(Lit(Texte("999=OVELINE " + Section(Trait))).ordreImpose);
}

TEST(Sommaire, ABinaryFileThatHoldsNothingIsRefusedWithoutALine) {
  const Lecture l = Lit(EnBinaire({}));
  EXPECT_EQ(l.rapport.Numero, Erreur::Dxf);
  EXPECT_EQ(l.rapport.Ligne, 0);
}

TEST(Sommaire, ManyInsertionsOfASmallBlockAreReadWhereverItStands) {
  std::string avant;
  for (int i = 0; i < 2000; ++i) avant += Trait;
  std::string insertions;
  for (int i = 0; i < 2000; ++i) insertions += "0=INSERT 2=B 10=" + std::to_string(10 * i) + " 20=0 ";
  const Lecture l = Lit(AvecBlocs(
      "0=BLOCK 2=A 10=0 20=0 " + avant + "0=ENDBLK 0=BLOCK 2=B 10=0 20=0 " + Trait + "0=ENDBLK", insertions));
  EXPECT_EQ(l.rapport.Numero, Erreur::Aucune);
  EXPECT_EQ(l.traits.size(), 2000U);
}

TEST(Sommaire, ABlockWithoutItsEndIsEndedByTheNext) {
  const Lecture l = Lit(AvecBlocs("0=BLOCK 2=A 10=0 20=0 " + Trait + "0=BLOCK 2=B 10=0 20=0 " + Trait + "0=ENDBLK",
                                  "0=INSERT 2=A 10=0 20=0"));
  EXPECT_EQ(l.traits.size(), 1U);
}

TEST(Sommaire, ARefusalShowsTheBeginningOfTheLineThatIsWrong) {
  const Lecture l = Lit("0\nSECTION\n2\nHEADER\n" + std::string(100, 'x') + "\n");
  EXPECT_EQ(l.rapport.Numero, Erreur::Dxf);
  EXPECT_EQ(l.rapport.Ligne, 5);
  EXPECT_EQ(l.rapport.Detail, std::string(60, 'x'));
}
