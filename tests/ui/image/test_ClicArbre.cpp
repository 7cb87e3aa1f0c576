// Clicks and keys in the trees of the main window, and their menu.
#include <gtest/gtest.h>

#include <QContextMenuEvent>

#include "core/DocumentCourant.h"
#include "tests/ui/image/ArbreMontre.h"

namespace {

using namespace ovelin;
using essai::ArbreMontre;
using essai::DeuxCarres;

bool Choisie(const char* code) { return EstSelectionnee(Code2(code)) != Faux; }

TEST(ClicArbre, OnAPathSelectsItAlone) {
  DeuxCarres();
  BasculeSelection(Code2("AA"));
  ArbreMontre a;
  a.Clique(a.Groupe(1));
  EXPECT_FALSE(Choisie("AA"));
  EXPECT_TRUE(Choisie("AB"));
  ASSERT_EQ(a.clics.size(), 1U);
  EXPECT_TRUE(a.clics[0].initSeq);
  EXPECT_FALSE(a.clics[0].croix);
}

TEST(ClicArbre, OnAPointBringsItIntoFocus) {
  DeuxCarres();
  ArbreMontre a;
  a.arbre.expandAll();
  a.Clique(a.Point(1, 1));
  ASSERT_EQ(a.clics.size(), 1U);
  ASSERT_TRUE(a.clics[0].croix);
  EXPECT_EQ(a.clics[0].croix->X, 60);
  EXPECT_EQ(a.clics[0].TB_X, "60.000");
  EXPECT_EQ(a.clics[0].TB_Y, "40.000");
  EXPECT_EQ(PointCourantX, 60);
  EXPECT_EQ(PointCourantY, 40);
  EXPECT_EQ(SeqCourante, Code2("AB"));
  EXPECT_EQ(a.arbre.PointsChoisis(), std::vector<std::int32_t>{6});
}

TEST(ClicArbre, OnTheRootDoesNothing) {
  DeuxCarres();
  ArbreMontre a;
  a.Clique(a.Racine());
  EXPECT_TRUE(a.clics.empty());
}

TEST(ClicArbre, ShiftAndControlChooseSeveralPoints) {
  DeuxCarres();
  ArbreMontre a;
  a.arbre.expandAll();
  a.Clique(a.Point(0, 1));
  a.Clique(a.Point(0, 3), Qt::ShiftModifier);
  EXPECT_EQ(a.arbre.PointsChoisis(), (std::vector<std::int32_t>{1, 2, 3}));
  a.Clique(a.Point(1, 0), Qt::ControlModifier);
  EXPECT_EQ(a.arbre.PointsChoisis(), (std::vector<std::int32_t>{1, 2, 3, 5}));
  a.Clique(a.Point(0, 2), Qt::ControlModifier);
  EXPECT_EQ(a.arbre.PointsChoisis(), (std::vector<std::int32_t>{1, 3, 5}));
}

TEST(ClicArbre, PointsOfTheToolPathAreNoPointsOfTheDrawing) {
  DeuxCarres();
  ArbreMontre a(SorteArbre::Decale);
  a.arbre.expandAll();
  a.Clique(a.Point(0, 1));
  ASSERT_EQ(a.clics.size(), 1U);
  EXPECT_EQ(a.clics[0].croix->Seq, Code2("AA"));
  EXPECT_TRUE(a.arbre.PointsChoisis().empty());
}

TEST(ClicArbre, CannotBeEditedAndADoubleClickClosesNothing) {
  DeuxCarres();
  ArbreMontre a;
  QObject::connect(&a.arbre, &ArbreDocument::Clic, [&a](const ResultatClic&) { a.arbre.SuitSelection(); });
  a.Clique(a.Groupe(0));
  QTest::mouseDClick(a.arbre.viewport(), Qt::LeftButton, {}, a.arbre.visualRect(a.Groupe(0)).center());
  essai::Evenements();
  EXPECT_TRUE(a.arbre.isExpanded(a.Groupe(0)));
  EXPECT_EQ(a.arbre.editTriggers(), QAbstractItemView::NoEditTriggers);
  EXPECT_FALSE(a.arbre.model()->flags(a.Groupe(0)).testFlag(Qt::ItemIsEditable));
}

TEST(TouchesArbre, SelectLikeAClick) {
  DeuxCarres();
  ArbreMontre a;
  QObject::connect(&a.arbre, &ArbreDocument::Clic, [&a](const ResultatClic& r) {
    if (r.initSeq) a.arbre.SuitSelection();
  });
  a.arbre.setFocus();
  a.arbre.setCurrentIndex(a.Racine());
  EXPECT_TRUE(a.clics.empty());
  QTest::keyClick(&a.arbre, Qt::Key_Down);
  EXPECT_TRUE(Choisie("AA"));
  QTest::keyClick(&a.arbre, Qt::Key_Down);
  ASSERT_EQ(a.clics.size(), 2U);
  ASSERT_TRUE(a.clics[1].croix) << "into the points of the opened path";
  EXPECT_EQ(a.clics[1].croix->X, 0);
  QTest::keyClick(&a.arbre, Qt::Key_End);
  EXPECT_TRUE(Choisie("AB"));
  EXPECT_FALSE(Choisie("AA"));
}

TEST(MenuArbre, SelectsTheLineBelowThePointerFirst) {
  DeuxCarres();
  ArbreMontre a;
  const auto demande = [&a](const QModelIndex& index) {
    const QPoint place = a.arbre.visualRect(index).center();
    QTest::mousePress(a.arbre.viewport(), Qt::RightButton, {}, place);
    QContextMenuEvent e(QContextMenuEvent::Mouse, place, a.arbre.viewport()->mapToGlobal(place));
    QApplication::sendEvent(a.arbre.viewport(), &e);
    QTest::mouseRelease(a.arbre.viewport(), Qt::RightButton, {}, place);
  };
  demande(a.Groupe(1));
  EXPECT_TRUE(Choisie("AB"));
  EXPECT_EQ(a.clics.size(), 1U);
  ASSERT_EQ(a.menus.size(), 1U);
  BasculeSelection(Code2("AA"));
  a.arbre.SuitSelection();
  demande(a.Groupe(1));
  EXPECT_TRUE(Choisie("AA") && Choisie("AB")) << "the menu acts on all selected ones";
  EXPECT_EQ(a.menus.size(), 2U);
}

TEST(MenuArbre, ComesWithItsKey) {
  DeuxCarres();
  ArbreMontre a;
  QContextMenuEvent e(QContextMenuEvent::Keyboard, {5, 5}, {5, 5});
  QApplication::sendEvent(a.arbre.viewport(), &e);
  EXPECT_EQ(a.menus.size(), 1U);
  EXPECT_TRUE(a.clics.empty());
}

}  // namespace
