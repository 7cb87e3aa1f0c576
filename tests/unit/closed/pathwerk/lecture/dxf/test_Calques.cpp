// Layers, layouts, units.
#include "closed/pathwerk/lecture/dxf/Sommaire.h"
#include "tests/unit/closed/pathwerk/lecture/dxf/Outils.h"

using namespace essai;
using pathwerk::Erreur;
using pathwerk::lecture::Lecture;
using pathwerk::lecture::dxf::UniteEnMm;

namespace {

const std::string Calques =
    "0=LAYER 2=0 70=0 62=7 0=LAYER 2=ouvert 70=0 62=1 0=LAYER 2=gele 70=1 62=2 0=LAYER 2=eteint 70=0 62=-3 0=LAYER "
    "2=verrou 70=4 62=5 ";
std::string Ligne(const std::string& calque, int x = 0) {
  return "0=LINE 8=" + calque + " 10=" + std::to_string(x) + " 20=0 11=" + std::to_string(x) + " 21=5 ";
}
// Layers, a block with a line on "0" and one on "ouvert", and the entities.
Lecture LitTout(const std::string& entites) {
  const Lecture l = Lit(Texte("0=SECTION 2=TABLES 0=TABLE 2=LAYER 70=5 " + Calques +
                              "0=ENDTAB 0=ENDSEC 0=SECTION 2=BLOCKS 0=BLOCK 8=0 2=A 10=0 20=0 " + Ligne("0", 1) +
                              Ligne("ouvert", 2) + "0=ENDBLK 0=ENDSEC " + Section(entites)));
  EXPECT_EQ(l.rapport.Numero, Erreur::Aucune);
  return l;
}
double PremierX(const std::string& variables) {
  return Lit(AvecEntete(variables, "0=LINE 10=1 20=0 11=2 21=0")).traits.at(0).points.at(0).x;
}

}  // namespace

TEST(Layers, FrozenAndOffAreLeftOutAndCounted) {
  const Lecture l = LitTout(Ligne("0") + Ligne("gele") + Ligne("ouvert") + Ligne("eteint") + Ligne("GELE") +
                            Ligne("inconnu") + Ligne("verrou"));
  EXPECT_EQ(l.traits.size(), 4u);
  EXPECT_EQ(Ignores(l, "LAYER"), 3);
}

TEST(Layers, ThingsThatAreNotDrawnAnywayCountAsHiddenThere) {
  const Lecture l = LitTout("0=TEXT 8=gele 1=x 0=TEXT 8=0 1=x");
  EXPECT_EQ(Ignores(l, "LAYER"), 1);
  EXPECT_EQ(Ignores(l, "TEXT"), 1);
}

TEST(Layers, PolylineFollowsItsOwnLayerAndTakesItsVerticesAlong) {
  const Lecture l =
      LitTout("0=POLYLINE 8=gele 66=1 70=0 0=VERTEX 8=0 10=0 20=0 0=VERTEX 8=0 10=1 20=0 0=SEQEND 8=0");
  EXPECT_TRUE(l.traits.empty());
  EXPECT_EQ(Ignores(l, "LAYER"), 1);
  EXPECT_EQ(l.rapport.Ignores.size(), 1u);
}

TEST(Layers, InsertOnAFrozenLayerHidesAllOfItsBlock) {
  const Lecture l = LitTout("0=INSERT 8=gele 2=A 10=0 20=0");
  EXPECT_TRUE(l.traits.empty());
  EXPECT_EQ(Ignores(l, "LAYER"), 1);
}

TEST(Layers, InsertOnALayerThatIsOffHidesWhatLiesOnZero) {
  const Lecture l = LitTout("0=INSERT 8=eteint 2=A 10=0 20=0");
  ASSERT_EQ(l.traits.size(), 1u);
  AttendPoint(l.traits[0].points[0], 2, 0);
  EXPECT_EQ(Ignores(l, "LAYER"), 1);
}

TEST(Layers, ZeroInABlockIsTheLayerOfTheOutermostInsertThatSaysSo) {
  const Lecture l = Lit(Texte("0=SECTION 2=TABLES 0=TABLE 2=LAYER " + Calques +
                              "0=ENDTAB 0=ENDSEC 0=SECTION 2=BLOCKS 0=BLOCK 2=A 10=0 20=0 " + Ligne("0") +
                              "0=ENDBLK 0=BLOCK 2=B 10=0 20=0 0=INSERT 8=0 2=A 10=0 20=0 0=INSERT 8=ouvert 2=A "
                              "10=0 20=0 0=ENDBLK 0=ENDSEC " +
                              Section("0=INSERT 8=eteint 2=B 10=0 20=0")));
  EXPECT_EQ(l.traits.size(), 1u);
  EXPECT_EQ(Ignores(l, "LAYER"), 1);
}

TEST(Layers, InvisibleEntitiesAreLeftOut) {
  const Lecture l = LitEntites("0=LINE 60=1 10=0 20=0 11=1 21=1 0=LINE 60=0 10=0 20=0 11=1 21=1");
  EXPECT_EQ(l.traits.size(), 1u);
  EXPECT_EQ(Ignores(l, "LAYER"), 1);
}

TEST(Layers, FirstOfTwoWithOneNameCounts) {
  EXPECT_EQ(Lit(AvecCalques("0=LAYER 2=x 70=1 0=LAYER 2=X 70=0 ", Ligne("x"))).traits.size(), 0u);
}

TEST(Paper, EntitiesOfLayoutsAreLeftOutAndCounted) {
  const Lecture l = LitEntites("0=LINE 67=1 10=0 20=0 11=1 21=1 0=LINE 67=0 10=0 20=0 11=1 21=1 0=TEXT 67=1 1=x");
  EXPECT_EQ(l.traits.size(), 1u);
  EXPECT_EQ(Ignores(l, "PAPER_SPACE"), 2);
  EXPECT_EQ(Ignores(l, "TEXT"), 0);
}

TEST(Paper, LayoutsKeptAmongTheBlocksAreCountedByEntity) {
  const Lecture l = Lit(AvecBlocs("0=BLOCK 2=*Model_Space 10=0 20=0 0=ENDBLK 0=BLOCK 2=*Paper_Space0 10=0 20=0 " +
                                      Ligne("0") + Ligne("0") +
                                      "0=POLYLINE 66=1 0=VERTEX 10=0 20=0 0=VERTEX 10=1 20=1 0=SEQEND 0=ENDBLK "
                                      "0=BLOCK 2=$PAPER_SPACE 10=0 20=0 " +
                                      Ligne("0") + "0=ENDBLK",
                                  Ligne("0")));
  EXPECT_EQ(l.traits.size(), 1u);
  EXPECT_EQ(Ignores(l, "PAPER_SPACE"), 4);
}

// Figures of the units themselves: the yard is 0.9144 m, the survey foot 1200/3937 m.
TEST(Units, EveryNumberOfInsunitsThatADrawingCanHave) {
  const std::vector<std::pair<int, double>> mm{{1, 25.4},
                                               {2, 304.8},
                                               {3, 1609344},
                                               {4, 1},
                                               {5, 10},
                                               {6, 1000},
                                               {7, 1e6},
                                               {8, 25.4e-6},
                                               {9, 25.4e-3},
                                               {10, 914.4},
                                               {11, 1e-7},
                                               {12, 1e-6},
                                               {13, 1e-3},
                                               {14, 100},
                                               {15, 1e4},
                                               {16, 1e5},
                                               {21, 1200000.0 / 3937},
                                               {22, 100000.0 / 3937},
                                               {23, 3600000.0 / 3937},
                                               {24, 5280 * 1200000.0 / 3937}};
  for (const auto& [numero, un] : mm) {
    EXPECT_DOUBLE_EQ(PremierX("9=$INSUNITS 70=" + std::to_string(numero)), un) << numero;
  }
}

TEST(Units, InsunitsNamesTheUnit) {
  EXPECT_DOUBLE_EQ(PremierX("9=$INSUNITS 70=1"), 25.4);
  EXPECT_DOUBLE_EQ(PremierX("9=$INSUNITS 70=2"), 304.8);
  EXPECT_DOUBLE_EQ(PremierX("9=$INSUNITS 70=4"), 1);
  EXPECT_DOUBLE_EQ(PremierX("9=$INSUNITS 70=5"), 10);
  EXPECT_DOUBLE_EQ(PremierX("9=$INSUNITS 70=6"), 1000);
  EXPECT_DOUBLE_EQ(PremierX("9=$INSUNITS 70=13"), 0.001);
}

TEST(Units, RuleOfTheThreeVariables) {
  EXPECT_EQ(UniteEnMm(-1, -1, -1), 1);    // nothing said
  EXPECT_EQ(UniteEnMm(0, 1, 2), 1);       // unitless, metric
  EXPECT_EQ(UniteEnMm(0, 0, 2), 1);       // unitless: the choice of patterns says nothing
  EXPECT_EQ(UniteEnMm(-1, 0, -1), 25.4);  // before R2000 it was all there was
  EXPECT_EQ(UniteEnMm(-1, 1, -1), 1);
  EXPECT_EQ(UniteEnMm(4, 0, 2), 1);  // the unit wins
  EXPECT_EQ(UniteEnMm(4, 0, 4), 1);
  EXPECT_EQ(UniteEnMm(0, 1, 4), 25.4);  // shown in feet and inches
  EXPECT_EQ(UniteEnMm(-1, -1, 3), 25.4);
  EXPECT_EQ(UniteEnMm(1, 1, 2), 25.4);
  EXPECT_EQ(UniteEnMm(99, -1, -1), 1);  // no such unit
  EXPECT_EQ(UniteEnMm(9, -1, -1), 0.0254);
  EXPECT_EQ(UniteEnMm(10, -1, -1), 914.4);
  EXPECT_EQ(UniteEnMm(14, -1, -1), 100);
  EXPECT_NEAR(UniteEnMm(21, -1, -1), 304.8006096, 1e-7);
  EXPECT_NEAR(UniteEnMm(22, -1, -1), 25.4000508, 1e-7);
  EXPECT_NEAR(UniteEnMm(24, -1, -1), 1609347.2187, 1e-4);
}

TEST(Units, MeasurementAloneMeansInches) {
  EXPECT_DOUBLE_EQ(PremierX("9=$MEASUREMENT 70=0"), 25.4);
  EXPECT_DOUBLE_EQ(PremierX("9=$MEASUREMENT 70=1"), 1);
  EXPECT_DOUBLE_EQ(PremierX("9=$INSUNITS 70=0 9=$MEASUREMENT 70=0"), 1);
}

TEST(Units, ToleranceIsInMillimetres) {
  const Lecture l = Lit(AvecEntete("9=$INSUNITS 70=1", "0=CIRCLE 10=0 20=0 40=1"));
  // pi / acos(1 - 0.01 / 25.4) = 111.95, rounded up to a multiple of four
  EXPECT_EQ(l.traits.at(0).points.size(), 112u);
}
