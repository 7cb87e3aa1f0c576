// The grid of the material presets and its floating editor, by mouse and keys.
#include <QClipboard>
#include <QHeaderView>
#include <QLabel>

#include "core/ui/TraduitFenetre.h"
#include "tests/ui/fenetres/BdEssai.h"

namespace essai {
namespace {

TEST(F_BD, ShowsEveryPresetWithCommasAndAnEmptyRowBehind) {
  BancBD b;
  ASSERT_EQ(b.grille->rowCount(), 6);
  EXPECT_EQ(b.Cellule(1, 1), "Dépron 3 mm");
  EXPECT_EQ(b.Cellule(1, 2), "0,5");
  EXPECT_EQ(b.Cellule(1, 3), "2 lèvres");
  EXPECT_EQ(b.Cellule(1, 6), "8,33");
  EXPECT_EQ(b.Cellule(3, 1), "Formica 0,7 mm");
  EXPECT_EQ(b.Cellule(4, 4), "-4,5");
  for (int c = 1; c <= 9; ++c) EXPECT_EQ(b.Cellule(6, c), "") << c;
}

TEST(F_BD, ShowsTheEmptyRowAloneWithoutPresets) {
  BancBD b(false);
  EXPECT_EQ(b.grille->rowCount(), 1);
}

TEST(F_BD, HasHeadingsOfTheirKeysAndBlankRowNumbers) {
  BancBD b;
  for (int c = 0; c < 9; ++c) {
    QString titre = b.grille->horizontalHeaderItem(c)->text();
    EXPECT_FALSE(titre.isEmpty());
    titre.replace('\n', ' ');
    EXPECT_EQ(titre, TraduireOu("F_BD", QStringLiteral("lib0%1").arg(10 + c), titre));
  }
  for (int l = 0; l < 6; ++l) EXPECT_EQ(b.grille->verticalHeaderItem(l)->text(), "   ");
}

TEST(F_BD, AlignsNumbersRightAndNamesLeft) {
  BancBD b;
  for (int c = 0; c < 9; ++c) {
    const bool droite = (b.grille->item(0, c)->textAlignment() & Qt::AlignRight) != 0;
    EXPECT_EQ(droite, c != 0 && c != 2) << c;
  }
}

TEST(F_BD, ClickLaysTheEditorOverTheCellWithItsText) {
  BancBD b;
  b.CliqueEn(2, 6);
  ASSERT_TRUE(b.saisie->isVisible());
  EXPECT_EQ(b.saisie->text(), "8,33");
  EXPECT_TRUE(b.saisie->geometry().contains(b.Milieu(2, 6)));
  EXPECT_EQ(QApplication::focusWidget(), b.saisie);
}

TEST(F_BD, SaysTheOtherFigureOfARadiusAndOfASpeedWhileItIsTyped) {
  Svc.MarqueDecimale = ',';
  BancBD b;
  auto* dit = Controle<QLabel>(b.f, "Lbl_Equivalent");
  b.CliqueEn(1, 1);
  EXPECT_EQ(dit->text(), "");
  b.CliqueEn(1, 2);
  EXPECT_EQ(dit->text(), QStringLiteral("Ø 1,0"));
  b.Tape("1.25");
  EXPECT_EQ(dit->text(), QStringLiteral("Ø 2,5"));
  b.CliqueEn(2, 6);
  EXPECT_EQ(dit->text(), "499,8 mm/min");
  b.Touche(Qt::Key_Return);
  b.Touche(Qt::Key_Return);
  EXPECT_EQ(dit->text(), "") << "the width of the notches is neither";
}

TEST(F_BD, EnterStoresWithACommaAndOpensTheNextCell) {
  BancBD b;
  b.CliqueEn(1, 2);
  b.Tape("1.25");
  b.Touche(Qt::Key_Return);
  EXPECT_EQ(b.Cellule(1, 2), "1,25");
  EXPECT_EQ(b.Courante(), Place(1, 3));
  EXPECT_TRUE(b.saisie->isVisible());
  EXPECT_EQ(b.saisie->text(), "2 lèvres");
}

TEST(F_BD, EnterInTheLastColumnOpensTheFirstOfTheNextRow) {
  BancBD b;
  b.CliqueEn(1, 9);
  b.Touche(Qt::Key_Enter);
  EXPECT_EQ(b.Courante(), Place(2, 1));
  EXPECT_EQ(b.saisie->text(), "Dépron 6 mm");
}

TEST(F_BD, EscapeHidesTheEditorWithoutStoring) {
  BancBD b;
  b.CliqueEn(1, 2);
  b.Tape("9");
  b.Touche(Qt::Key_Escape);
  EXPECT_FALSE(b.saisie->isVisible());
  EXPECT_EQ(b.saisie->text(), "");
  EXPECT_EQ(b.Cellule(1, 2), "0,5");
  EXPECT_EQ(QApplication::focusWidget(), b.grille);
  EXPECT_TRUE(b.f.isVisible());
}

TEST(F_BD, EscapeAndTheCrossAskAlikeWhereRowsHaveChanged) {
  BancBD b;
  b.VaEn(1, 2);
  b.Touche(Qt::Key_Delete);
  Attend("F_BD", "lib024", Reponse::Annuler);
  b.Touche(Qt::Key_Escape);
  EXPECT_TRUE(b.f.isVisible());
  Attend("F_BD", "lib024", Reponse::Annuler);
  b.f.close();
  EXPECT_TRUE(b.f.isVisible());
  Attend("F_BD", "lib024", Reponse::Non);
  b.f.close();
  EXPECT_FALSE(b.f.isVisible());
  EXPECT_EQ(LitFiches().at(0).champs[1], "0.5");
}

TEST(F_BD, TheCrossSavesWhatIsBeingTypedWhereThatIsWanted) {
  BancBD b;
  b.CliqueEn(1, 2);
  b.Tape("0,75");
  Attend("F_BD", "lib024", Reponse::Oui);
  b.f.close();
  EXPECT_FALSE(b.f.isVisible());
  EXPECT_EQ(LitFiches().at(0).champs[1], "0,75");
}

TEST(F_BD, CancelClosesWithoutAQuestion) {
  BancBD b;
  b.VaEn(1, 2);
  b.Touche(Qt::Key_Delete);
  Clique(*Controle<QPushButton>(b.f, "Btn_Annuler"));
  EXPECT_FALSE(b.f.isVisible());
}

TEST(F_BD, EscapeClosesAtOnceWhereNothingHasBeenChanged) {
  EcritFichesDefaut();
  F_BD neuve;
  Montre(neuve);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
  EXPECT_FALSE(neuve.isVisible());
}

TEST(F_BD, MovingOffTheCellStores) {
  BancBD b;
  b.CliqueEn(1, 2);
  b.Tape("0,7");
  b.CliqueEn(3, 4);
  EXPECT_EQ(b.Cellule(1, 2), "0,7");
  EXPECT_EQ(b.saisie->text(), "-2");
  b.Tape("-3");
  b.Touche(Qt::Key_Down);
  EXPECT_EQ(b.Cellule(3, 4), "-3");
  EXPECT_EQ(b.Courante(), Place(4, 4));
  EXPECT_FALSE(b.saisie->isVisible());
  b.CliqueEn(1, 1);
  b.Tape("Liège");
  b.Touche(Qt::Key_Tab);
  EXPECT_EQ(b.Cellule(1, 1), "Liège");
  EXPECT_EQ(b.Courante(), Place(1, 2));
}

TEST(F_BD, OkStoresTheOpenEditorFirst) {
  BancBD b;
  b.CliqueEn(1, 2);
  b.Tape("0,7");
  b.Ok();
  EXPECT_FALSE(b.f.isVisible());
  EXPECT_EQ(LitFiches()[0].champs[1], "0,7");
}

TEST(F_BD, NumericColumnsTakeDigitsMinusAndOneMark) {
  BancBD b;
  b.CliqueEn(1, 4);
  b.Tape("a-1x.2,3");
  EXPECT_EQ(b.saisie->text(), "-1,23");
  b.Touche(Qt::Key_Escape);
  b.CliqueEn(1, 3);
  b.Tape("1.2 dents");
  EXPECT_EQ(b.saisie->text(), "1.2 dents");
}

TEST(F_BD, PastingIntoTheEditorOfANumberIsFilteredToo) {
  BancBD b;
  b.CliqueEn(1, 2);
  QApplication::clipboard()->setText("12 mm");
  b.Touche(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(b.saisie->text(), "0,5");
  QApplication::clipboard()->setText("0.75");
  b.Touche(Qt::Key_V, Qt::ControlModifier);
  b.Touche(Qt::Key_Return);
  EXPECT_EQ(b.Cellule(1, 2), "0,75");
}

TEST(F_BD, PrintableKeyOpensTheEditorAndReplacesTheText) {
  BancBD b;
  b.VaEn(1, 2);
  b.Touche(Qt::Key_7);
  ASSERT_TRUE(b.saisie->isVisible());
  EXPECT_EQ(b.saisie->text(), "7");
  b.Tape(",5");
  b.Touche(Qt::Key_Return);
  EXPECT_EQ(b.Cellule(1, 2), "7,5");
}

TEST(F_BD, KeyThatTheColumnRefusesOpensTheCellAsItIs) {
  BancBD b;
  b.VaEn(1, 2);
  b.Touche(Qt::Key_X);
  ASSERT_TRUE(b.saisie->isVisible());
  EXPECT_EQ(b.saisie->text(), "0,5");
}

TEST(F_BD, F2OpensWithTheCaretBehindAndBackspaceWithTheTextSelected) {
  BancBD b;
  b.VaEn(1, 2);
  b.Touche(Qt::Key_F2);
  EXPECT_TRUE(b.saisie->isVisible());
  EXPECT_EQ(b.saisie->selectedText(), "");
  EXPECT_EQ(b.saisie->cursorPosition(), 3);
  b.Touche(Qt::Key_Escape);
  b.Touche(Qt::Key_Backspace);
  EXPECT_EQ(b.saisie->text(), "0,5");
  EXPECT_EQ(b.saisie->selectedText(), "0,5");
}

TEST(F_BD, DeleteClearsTheCell) {
  BancBD b;
  b.VaEn(2, 3);
  b.Touche(Qt::Key_Delete);
  EXPECT_EQ(b.Cellule(2, 3), "");
  EXPECT_FALSE(b.saisie->isVisible());
}

TEST(F_BD, CopiesAndPastesACell) {
  BancBD b;
  b.VaEn(1, 6);
  b.Touche(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text(), "8,33");
  b.VaEn(3, 6);
  b.Touche(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(b.Cellule(3, 6), "8,33");
  EXPECT_FALSE(b.saisie->isVisible());
  QApplication::clipboard()->setText("1.5");
  b.Touche(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(b.Cellule(3, 6), "1,5");
}

TEST(F_BD, TabAndEnterOnTheGridMoveWithoutTheEditor) {
  BancBD b;
  b.VaEn(1, 8);
  b.Touche(Qt::Key_Tab);
  EXPECT_EQ(b.Courante(), Place(1, 9));
  b.Touche(Qt::Key_Return);
  EXPECT_EQ(b.Courante(), Place(2, 1));
  b.Touche(Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_EQ(b.Courante(), Place(1, 9));
  EXPECT_FALSE(b.saisie->isVisible());
  EXPECT_TRUE(b.f.isVisible());
}

TEST(F_BD, TabLeavesTheGridAtItsEnds) {
  BancBD b;
  b.VaEn(6, 9);
  b.Touche(Qt::Key_Tab);
  EXPECT_EQ(QApplication::focusWidget()->objectName(), "Btn_OK");
}

TEST(F_BD, FillingTheLastRowAddsAnEmptyOne) {
  BancBD b;
  b.CliqueEn(6, 1);
  b.Tape("Liège");
  b.Touche(Qt::Key_Return);
  ASSERT_EQ(b.grille->rowCount(), 7);
  EXPECT_EQ(b.Cellule(6, 1), "Liège");
  for (int c = 1; c <= 9; ++c) EXPECT_EQ(b.Cellule(7, c), "") << c;
  EXPECT_EQ(b.grille->verticalHeaderItem(6)->text(), "   ");
}

TEST(F_BD, TypesAWholeRowWithEnterAlone) {
  BancBD b;
  b.CliqueEn(6, 1);
  for (const char* texte : {"Liège, fin", "0.4", "Fraise", "-3", "-1.5", "6", "2", "1", "0"}) {
    b.Tape(texte);
    b.Touche(Qt::Key_Return);
  }
  EXPECT_EQ(b.Courante(), Place(7, 1));
  b.Ok();
  EXPECT_FALSE(b.f.isVisible());
  const auto fiches = LitFiches();
  ASSERT_EQ(fiches.size(), 6U);
  EXPECT_THAT(fiches[5].champs,
              testing::ElementsAre("Liège, fin", "0,4", "Fraise", "-3", "-1,5", "6", "2", "1", "0"));
}

TEST(F_BD, ShowsEveryColumnAtItsFirstSize) {
  BancBD b;
  int largeur = 0;
  for (int c = 0; c < 9; ++c) largeur += b.grille->columnWidth(c);
  EXPECT_EQ(largeur, b.grille->viewport()->width());
}

TEST(F_BD, NamesGetWhatIsLeftOfAWideWindow) {
  BancBD b;
  b.f.resize(1300, 400);
  Evenements();
  int largeur = 0;
  for (int c = 0; c < 9; ++c) largeur += b.grille->columnWidth(c);
  EXPECT_EQ(largeur, b.grille->viewport()->width());
  EXPECT_GT(b.grille->columnWidth(0), b.grille->columnWidth(2));
  EXPECT_GT(b.grille->columnWidth(2), b.grille->columnWidth(1));
}

}  // namespace
}  // namespace essai
