// Long paths in the trees: lines that are made when they are looked at, and the fold of the others.
#include <gtest/gtest.h>

#include <QAbstractItemModelTester>

#include "core/DocumentCourant.h"
#include "tests/ui/image/ArbreMontre.h"

namespace {

using namespace ovelin;
using essai::ArbreMontre;
using essai::DeuxCarres;

TEST(ArbreParesseux, PointLinesAreReadWhenTheyAreLookedAt) {
  DeuxCarres();
  const ArbreMontre a;
  TraceInitial[1].X = 12.5F;
  EXPECT_EQ(a.arbre.model()->data(a.Point(0, 1)).toString(), QStringLiteral("12.500 | 40.000"));
}

// A path along X, a point each millimetre, selected; the tool runs on it.
void LongueLigne(int points) {
  for (int i = 0; i < points; ++i) TraceInitial.push_back({static_cast<float>(i), 0, CodePD, Code2("AA")});
  NbPoints = points;
  Sequences = {{Code2("AA"), Faux, -3, Vrai, 1, Vrai}};
  TraceDecale = {{Code2("AA"), TraceInitial}};
}

TEST(ArbreParesseux, AMillionPointsAreTwoHundredLinesAndAFold) {
  for (const auto sorte : {SorteArbre::Initial, SorteArbre::Decale}) {
    Doc = Document{};
    LongueLigne(1'000'000);
    ArbreMontre a(sorte);
    a.arbre.SuitSelection();
    ASSERT_EQ(a.arbre.model()->rowCount(a.Groupe(0)), 201);
    EXPECT_EQ(a.arbre.model()->data(a.Point(0, 199)).toString(), QStringLiteral("199.000 | 0.000"));
    const QModelIndex pli = a.Point(0, 200);
    EXPECT_EQ(a.arbre.model()->rowCount(pli), 0) << "nobody has opened it";
    EXPECT_TRUE(a.arbre.model()->hasChildren(pli));
    EXPECT_FALSE(a.arbre.isExpanded(pli));
    EXPECT_TRUE(a.arbre.model()->data(pli).toString().startsWith(QStringLiteral("+ 999800 ")));
    EXPECT_TRUE(a.arbre.uniformRowHeights());
  }
}

TEST(ArbreParesseux, TwoHundredPointsNeedNoFold) {
  LongueLigne(200);
  const ArbreMontre a;
  EXPECT_EQ(a.arbre.model()->rowCount(a.Groupe(0)), 200);
  EXPECT_EQ(a.arbre.model()->rowCount(a.Point(0, 199)), 0);
  EXPECT_FALSE(a.arbre.model()->hasChildren(a.Point(0, 199)));
}

struct ArbreLong : ArbreMontre {
  explicit ArbreLong(SorteArbre sorte = SorteArbre::Initial) : ArbreMontre((LongueLigne(250), sorte)) {
    arbre.SuitSelection();
    arbre.setFocus();
  }
  [[nodiscard]] QModelIndex Pli() const { return Point(0, 200); }
  [[nodiscard]] QModelIndex Dedans(int rang) const { return arbre.model()->index(rang, 0, Pli()); }
};

TEST(PliArbre, AClickOpensItWithAllOtherPointsAndAnotherClosesIt) {
  for (const auto sorte : {SorteArbre::Initial, SorteArbre::Decale}) {
    Doc = Document{};
    ArbreLong a(sorte);
    a.Clique(a.Pli());
    EXPECT_TRUE(a.arbre.isExpanded(a.Pli()));
    ASSERT_EQ(a.arbre.model()->rowCount(a.Pli()), 50);
    EXPECT_EQ(a.arbre.model()->data(a.Dedans(0)).toString(), QStringLiteral("200.000 | 0.000"));
    EXPECT_EQ(a.arbre.model()->data(a.Dedans(49)).toString(), QStringLiteral("249.000 | 0.000"));
    EXPECT_TRUE(a.clics.empty()) << "nothing was chosen";
    a.Clique(a.Pli());
    EXPECT_FALSE(a.arbre.isExpanded(a.Pli()));
  }
}

TEST(PliArbre, TheKeysOpenItAndGoIntoIt) {
  ArbreLong a;
  a.arbre.setCurrentIndex(a.Point(0, 199));
  QTest::keyClick(&a.arbre, Qt::Key_Down);
  EXPECT_EQ(a.arbre.currentIndex(), a.Pli());
  EXPECT_TRUE(a.clics.empty());
  QTest::keyClick(&a.arbre, Qt::Key_Right);
  EXPECT_TRUE(a.arbre.isExpanded(a.Pli()));
  QTest::keyClick(&a.arbre, Qt::Key_Down);
  ASSERT_EQ(a.clics.size(), 1U);
  ASSERT_TRUE(a.clics[0].croix);
  EXPECT_EQ(a.clics[0].croix->X, 200);
  EXPECT_EQ(a.arbre.PointsChoisis(), std::vector<std::int32_t>{200});
}

TEST(PliArbre, PointsAreChosenOverItsEdgeAndItIsNoneOfThem) {
  ArbreLong a;
  a.Clique(a.Pli());
  a.Clique(a.Point(0, 198));
  a.Clique(a.Dedans(1), Qt::ShiftModifier);
  EXPECT_EQ(a.arbre.PointsChoisis(), (std::vector<std::int32_t>{198, 199, 200, 201}));
  a.Clique(a.Pli(), Qt::ControlModifier);
  EXPECT_EQ(a.arbre.PointsChoisis().size(), 4U);
}

TEST(PliArbre, AClickOnItLeavesWhatIsChosen) {
  ArbreLong a;
  a.Clique(a.Point(0, 198));
  a.Clique(a.Point(0, 196), Qt::ControlModifier);
  for (const bool ouvert : {true, false}) {
    a.Clique(a.Pli());
    EXPECT_EQ(a.arbre.isExpanded(a.Pli()), ouvert);
    EXPECT_EQ(a.arbre.PointsChoisis(), (std::vector<std::int32_t>{196, 198}));
  }
  QTest::keyClick(&a.arbre, Qt::Key_Up);
  QTest::keyClick(&a.arbre, Qt::Key_Down);
  EXPECT_EQ(a.arbre.currentIndex(), a.Pli());
  EXPECT_EQ(a.arbre.PointsChoisis(), std::vector<std::int32_t>{199}) << "the one that the keys came from";
}

TEST(PliArbre, StaysOpenWithItsChosenPointOverAChange) {
  ArbreLong a;
  a.Clique(a.Pli());
  a.Clique(a.Dedans(7));
  TraceInitial[207].Y = 3;
  a.arbre.Remplit();
  EXPECT_TRUE(a.arbre.isExpanded(a.Pli()));
  EXPECT_EQ(a.arbre.PointsChoisis(), std::vector<std::int32_t>{207});
  EXPECT_EQ(a.arbre.model()->data(a.Dedans(7)).toString(), QStringLiteral("207.000 | 3.000"));
  a.arbre.SuitSelection();
  EXPECT_TRUE(a.arbre.isExpanded(a.Pli()));
  DeselectionneTout();
  a.arbre.SuitSelection();
  EXPECT_FALSE(a.arbre.isExpanded(a.Pli())) << "its path is closed";
}

TEST(PliArbre, KeepsToTheRulesOfAModel) {
  ArbreLong a;
  QAbstractItemModelTester juge(a.arbre.model(), QAbstractItemModelTester::FailureReportingMode::Fatal);
  juge.setUseFetchMore(false);  // it would open folds itself, also while a reset is being told
  a.arbre.expandAll();
  essai::Evenements();
  EXPECT_EQ(a.arbre.model()->rowCount(a.Pli()), 50);
  EXPECT_EQ(a.Dedans(3).parent(), a.Pli());
  TraceInitial[230].Y = 40;
  a.arbre.RefaitTitres(Code2("AA"));
  a.arbre.Remplit();
  EXPECT_EQ(a.arbre.model()->rowCount(a.Groupe(0)), 201);
}

}  // namespace
