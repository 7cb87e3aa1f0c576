// The window of the material presets, by mouse and keys.
#include <QAction>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMenu>
#include <QPushButton>
#include <QTableWidget>

#include "core/Cles.h"
#include "core/Document.h"
#include "core/Fichiers.h"
#include "core/Traduction.h"
#include "core/ui/TraduitFenetre.h"
#include "database/Module_BD.h"
#include "database/ui/F_BD.h"
#include "database/ui/SaisieBD.h"
#include "tests/ui/support/SupportUi.h"

namespace essai {
namespace {

using namespace ovelin;

struct Banc {
  F_BD f;
  QTableWidget* grille = Controle<QTableWidget>(f, "MSFlexGrid1");
  SaisieBD* saisie = Controle<SaisieBD>(f, "txtSaisie");

  explicit Banc(bool defaut = true) : f((defaut ? EcritFichesDefaut() : void(), nullptr)) { Montre(f); }
  ~Banc() { f.close(); }
  Banc(const Banc&) = delete;
  Banc& operator=(const Banc&) = delete;

  // Rows and columns as the user counts them, from 1.
  std::string Cellule(int ligne, int colonne) { return grille->item(ligne - 1, colonne - 1)->text().toStdString(); }
  QPoint Milieu(int ligne, int colonne) {
    return grille->visualItemRect(grille->item(ligne - 1, colonne - 1)).center();
  }
  void CliqueEn(int ligne, int colonne) {
    QTest::mouseClick(grille->viewport(), Qt::LeftButton, {}, Milieu(ligne, colonne));
    Evenements();
  }
  // Current without the editor.
  void VaEn(int ligne, int colonne) {
    grille->setFocus();
    grille->setCurrentCell(ligne - 1, colonne - 1);
  }
  void Touche(Qt::Key touche, Qt::KeyboardModifiers m = {}) {
    QTest::keyClick(QApplication::focusWidget(), touche, m);
  }
  void Tape(const char* texte) {
    for (const QChar c : QString::fromUtf8(texte)) {
      QKeyEvent e(QEvent::KeyPress, c.unicode() < 128 ? c.toUpper().unicode() : 0, Qt::NoModifier, QString(c));
      QApplication::sendEvent(QApplication::focusWidget(), &e);
    }
  }
  void MenuEn(QPoint place) {
    QContextMenuEvent e(QContextMenuEvent::Mouse, place, grille->viewport()->mapToGlobal(place));
    QApplication::sendEvent(grille->viewport(), &e);
    Evenements();
  }
  QMenu* Menu() { return Controle<QMenu>(f, "mnu_DB"); }
  // Presses an entry of the open menu with the mouse.
  void Choisit(const char* nom) {
    QMenu* menu = Menu();
    ASSERT_TRUE(menu->isVisible());
    QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(Controle<QAction>(f, nom)).center());
    Evenements();
  }
  void Ok() { Clique(*Controle<QPushButton>(f, "Btn_OK")); }
  std::pair<int, int> Courante() { return {grille->currentRow() + 1, grille->currentColumn() + 1}; }
};
using Place = std::pair<int, int>;

TEST(F_BD, ShowsEveryPresetWithCommasAndAnEmptyRowBehind) {
  Banc b;
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
  Banc b(false);
  EXPECT_EQ(b.grille->rowCount(), 1);
}

TEST(F_BD, HasHeadingsOfTheirKeysAndBlankRowNumbers) {
  Banc b;
  for (int c = 0; c < 9; ++c) {
    QString titre = b.grille->horizontalHeaderItem(c)->text();
    EXPECT_FALSE(titre.isEmpty());
    titre.replace('\n', ' ');
    EXPECT_EQ(titre, TraduireOu("F_BD", QStringLiteral("lib0%1").arg(10 + c), titre));
  }
  for (int l = 0; l < 6; ++l) EXPECT_EQ(b.grille->verticalHeaderItem(l)->text(), "   ");
}

TEST(F_BD, AlignsNumbersRightAndNamesLeft) {
  Banc b;
  for (int c = 0; c < 9; ++c) {
    const bool droite = (b.grille->item(0, c)->textAlignment() & Qt::AlignRight) != 0;
    EXPECT_EQ(droite, c != 0 && c != 2) << c;
  }
}

TEST(F_BD, ClickLaysTheEditorOverTheCellWithItsText) {
  Banc b;
  b.CliqueEn(2, 6);
  ASSERT_TRUE(b.saisie->isVisible());
  EXPECT_EQ(b.saisie->text(), "8,33");
  EXPECT_TRUE(b.saisie->geometry().contains(b.Milieu(2, 6)));
  EXPECT_EQ(QApplication::focusWidget(), b.saisie);
}

TEST(F_BD, EnterStoresWithACommaAndOpensTheNextCell) {
  Banc b;
  b.CliqueEn(1, 2);
  b.Tape("1.25");
  b.Touche(Qt::Key_Return);
  EXPECT_EQ(b.Cellule(1, 2), "1,25");
  EXPECT_EQ(b.Courante(), Place(1, 3));
  EXPECT_TRUE(b.saisie->isVisible());
  EXPECT_EQ(b.saisie->text(), "2 lèvres");
}

TEST(F_BD, EnterInTheLastColumnOpensTheFirstOfTheNextRow) {
  Banc b;
  b.CliqueEn(1, 9);
  b.Touche(Qt::Key_Enter);
  EXPECT_EQ(b.Courante(), Place(2, 1));
  EXPECT_EQ(b.saisie->text(), "Dépron 6 mm");
}

TEST(F_BD, EscapeHidesTheEditorWithoutStoring) {
  Banc b;
  b.CliqueEn(1, 2);
  b.Tape("9");
  b.Touche(Qt::Key_Escape);
  EXPECT_FALSE(b.saisie->isVisible());
  EXPECT_EQ(b.saisie->text(), "");
  EXPECT_EQ(b.Cellule(1, 2), "0,5");
  EXPECT_EQ(QApplication::focusWidget(), b.grille);
  EXPECT_TRUE(b.f.isVisible());
}

TEST(F_BD, EscapeClosesOnlyWhileNothingHasBeenChanged) {
  Banc b;
  b.VaEn(1, 2);
  b.Touche(Qt::Key_Delete);
  b.Touche(Qt::Key_Escape);
  EXPECT_TRUE(b.f.isVisible());
  F_BD neuve;
  Montre(neuve);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
  EXPECT_FALSE(neuve.isVisible());
}

TEST(F_BD, MovingOffTheCellStores) {
  Banc b;
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
  Banc b;
  b.CliqueEn(1, 2);
  b.Tape("0,7");
  b.Ok();
  EXPECT_FALSE(b.f.isVisible());
  EXPECT_EQ(LitFiches()[0].champs[1], "0,7");
}

TEST(F_BD, NumericColumnsTakeDigitsMinusAndOneMark) {
  Banc b;
  b.CliqueEn(1, 4);
  b.Tape("a-1x.2,3");
  EXPECT_EQ(b.saisie->text(), "-1,23");
  b.Touche(Qt::Key_Escape);
  b.CliqueEn(1, 3);
  b.Tape("1.2 dents");
  EXPECT_EQ(b.saisie->text(), "1.2 dents");
}

TEST(F_BD, PastingIntoTheEditorOfANumberIsFilteredToo) {
  Banc b;
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
  Banc b;
  b.VaEn(1, 2);
  b.Touche(Qt::Key_7);
  ASSERT_TRUE(b.saisie->isVisible());
  EXPECT_EQ(b.saisie->text(), "7");
  b.Tape(",5");
  b.Touche(Qt::Key_Return);
  EXPECT_EQ(b.Cellule(1, 2), "7,5");
}

TEST(F_BD, KeyThatTheColumnRefusesOpensTheCellAsItIs) {
  Banc b;
  b.VaEn(1, 2);
  b.Touche(Qt::Key_X);
  ASSERT_TRUE(b.saisie->isVisible());
  EXPECT_EQ(b.saisie->text(), "0,5");
}

TEST(F_BD, F2OpensWithTheCaretBehindAndBackspaceWithTheTextSelected) {
  Banc b;
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
  Banc b;
  b.VaEn(2, 3);
  b.Touche(Qt::Key_Delete);
  EXPECT_EQ(b.Cellule(2, 3), "");
  EXPECT_FALSE(b.saisie->isVisible());
}

TEST(F_BD, CopiesAndPastesACell) {
  Banc b;
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
  Banc b;
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
  Banc b;
  b.VaEn(6, 9);
  b.Touche(Qt::Key_Tab);
  EXPECT_EQ(QApplication::focusWidget()->objectName(), "Btn_OK");
}

TEST(F_BD, FillingTheLastRowAddsAnEmptyOne) {
  Banc b;
  b.CliqueEn(6, 1);
  b.Tape("Liège");
  b.Touche(Qt::Key_Return);
  ASSERT_EQ(b.grille->rowCount(), 7);
  EXPECT_EQ(b.Cellule(6, 1), "Liège");
  for (int c = 1; c <= 9; ++c) EXPECT_EQ(b.Cellule(7, c), "") << c;
  EXPECT_EQ(b.grille->verticalHeaderItem(6)->text(), "   ");
}

TEST(F_BD, TypesAWholeRowWithEnterAlone) {
  Banc b;
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

TEST(F_BD, MenuOpensOverARowOfThePresetsOnly) {
  Banc b;
  b.MenuEn(b.Milieu(2, 3));
  EXPECT_TRUE(b.Menu()->isVisible());
  EXPECT_EQ(b.Courante(), Place(2, 3));
  b.Menu()->close();
  b.MenuEn(b.Milieu(6, 3));
  EXPECT_FALSE(b.Menu()->isVisible());
  b.MenuEn(QPoint(20, b.grille->viewport()->height() - 2));
  EXPECT_FALSE(b.Menu()->isVisible());
}

TEST(F_BD, MenuInsertsAnEmptyRowAtThePointer) {
  Banc b;
  b.MenuEn(b.Milieu(2, 3));
  b.Choisit("mnu_DB_Insert");
  ASSERT_EQ(b.grille->rowCount(), 7);
  EXPECT_EQ(b.Cellule(1, 1), "Dépron 3 mm");
  EXPECT_EQ(b.Cellule(2, 1), "");
  EXPECT_EQ(b.Cellule(3, 1), "Dépron 6 mm");
  EXPECT_EQ(b.Cellule(3, 2), "0,5");
  EXPECT_EQ(b.Courante(), Place(2, 1));
}

TEST(F_BD, MenuDeletesTheRowUnderThePointer) {
  Banc b;
  b.MenuEn(b.Milieu(3, 1));
  b.Choisit("mnu_DB_Delete");
  ASSERT_EQ(b.grille->rowCount(), 5);
  EXPECT_EQ(b.Cellule(3, 1), "CTP 3 mm");
  EXPECT_EQ(b.Cellule(5, 1), "");
}

TEST(F_BD, KeysInsertAndDeleteTheCurrentRow) {
  Banc b;
  b.VaEn(2, 4);
  b.Touche(Qt::Key_Insert);
  EXPECT_EQ(b.grille->rowCount(), 7);
  EXPECT_EQ(b.Cellule(2, 1), "");
  b.Touche(Qt::Key_Delete, Qt::ControlModifier);
  EXPECT_EQ(b.grille->rowCount(), 6);
  EXPECT_EQ(b.Cellule(2, 1), "Dépron 6 mm");
  b.VaEn(6, 1);
  b.Touche(Qt::Key_Delete, Qt::ControlModifier);
  EXPECT_EQ(b.grille->rowCount(), 6);
}

TEST(F_BD, DeletingTheThirdOfFiveLeavesFourKeys) {
  Banc b;
  b.MenuEn(b.Milieu(3, 1));
  b.Choisit("mnu_DB_Delete");
  b.Ok();
  EXPECT_FALSE(b.f.isVisible());
  EXPECT_EQ(b.f.result(), QDialog::Accepted);
  OublieCles();
  EXPECT_THAT(LireCle("DB3", "$$"), testing::StartsWith("CTP 3 mm\t"));
  EXPECT_NE(LireCle("DB4", "$$"), "$$");
  EXPECT_EQ(LireCle("DB5", "$$"), "$$");
}

TEST(F_BD, OkTellsTheMainWindowAfterTheWriting) {
  Banc b;
  std::size_t lues = 0;
  b.f.FichesChangees = [&] { lues = LitFiches().size(); };
  b.MenuEn(b.Milieu(1, 1));
  b.Choisit("mnu_DB_Delete");
  b.Ok();
  EXPECT_EQ(lues, 4U);
}

TEST(F_BD, CancelChangesNothing) {
  Banc b;
  bool change = false;
  b.f.FichesChangees = [&] { change = true; };
  const auto avant = LitFiches();
  b.MenuEn(b.Milieu(1, 1));
  b.Choisit("mnu_DB_Delete");
  b.CliqueEn(1, 2);
  b.Tape("5");
  Clique(*Controle<QPushButton>(b.f, "Btn_Annuler"));
  EXPECT_FALSE(b.f.isVisible());
  EXPECT_EQ(b.f.result(), QDialog::Rejected);
  EXPECT_EQ(LitFiches(), avant);
  EXPECT_FALSE(change);
}

struct Faute {
  int colonne;
  const char* mauvais;
  const char* bon;
};

TEST(F_BD, OkRefusesEachColumnByItsTestAndGoesThere) {
  for (const Faute& faute :
       {Faute{2, "-0,1", "0"}, Faute{2, "", "1"}, Faute{4, "1", "0"}, Faute{5, "0,5", "0"}, Faute{6, "0", "0,1"},
        Faute{6, "-1", "3"}, Faute{7, "0", "2"}, Faute{7, "1,2,3", "4"}}) {
    SCOPED_TRACE(std::to_string(faute.colonne) + " " + faute.mauvais);
    EcritFichesDefaut();
    Banc b;
    b.VaEn(2, faute.colonne);
    QApplication::clipboard()->setText(faute.mauvais);
    b.Touche(Qt::Key_V, Qt::ControlModifier);
    if (*faute.mauvais == '\0') b.Touche(Qt::Key_Delete);
    b.VaEn(1, 1);
    const std::size_t boites = Boites().size();
    Attend("F_BD", "lib001");
    b.Ok();
    EXPECT_TRUE(b.f.isVisible());
    ASSERT_EQ(Boites().size(), boites + 1);
    EXPECT_EQ(Boites().back().titre, "OVELIN");
    EXPECT_THAT(Boites().back().texte, testing::StartsWith(Traduire("F_BD", "lib001")));
    EXPECT_EQ(b.Courante(), Place(2, faute.colonne));
    EXPECT_FALSE(b.grille->item(1, faute.colonne - 1)->toolTip().isEmpty());
    b.Tape(faute.bon);
    b.Touche(Qt::Key_Return);
    EXPECT_TRUE(b.grille->item(1, faute.colonne - 1)->toolTip().isEmpty());
    b.Ok();
    EXPECT_FALSE(b.f.isVisible());
  }
}

TEST(F_BD, OkStopsAtTheFirstFaultInTheOrderOfTheRows) {
  Banc b;
  b.VaEn(2, 7);
  b.Touche(Qt::Key_Delete);
  b.VaEn(3, 2);
  b.Touche(Qt::Key_Delete);
  Attend("F_BD", "lib001");
  b.Ok();
  EXPECT_EQ(b.Courante(), Place(2, 7));
}

TEST(F_BD, OkRefusesAnInsertedRowThatWasLeftEmpty) {
  Banc b;
  b.VaEn(1, 1);
  b.Touche(Qt::Key_Insert);
  Attend("F_BD", "lib001");
  b.Ok();
  EXPECT_EQ(b.Courante(), Place(1, 2));
}

TEST(F_BD, OkRefusesARowThatIsLongerThanCanBeReadBack) {
  Banc b;
  b.VaEn(1, 1);
  QApplication::clipboard()->setText(QString(300, 'x'));
  b.Touche(Qt::Key_V, Qt::ControlModifier);
  Attend("F_BD", "lib001");
  b.Ok();
  EXPECT_EQ(b.Courante(), Place(1, 1));
  EXPECT_LT(Boites().back().texte.size(), 200U);  // the box stays readable
}

TEST(F_BD, SaysThatTheSettingsFileCannotBeWritten) {
  Banc b;
  b.VaEn(1, 2);
  b.Tape("3");
  b.Touche(Qt::Key_Return);
  const std::string avant = DossierProgramme;
  DossierProgramme = Dossier() + "/absent/tout";
  OublieCles();
  Attend("F_BD", "lib002");
  bool change = false;
  b.f.FichesChangees = [&] { change = true; };
  b.Ok();
  EXPECT_TRUE(b.f.isVisible());
  EXPECT_FALSE(change);
  DossierProgramme = avant;
  OublieCles();
  b.Ok();
  EXPECT_TRUE(change);
}

TEST(F_BD, WritesNothingIntoTheOpenProject) {
  const std::string projet = EcritFichierEssai("p.OVL", "$$DB1=Du projet\r\n");
  FichierCourant = FichierProjet = projet;
  Banc b;
  EXPECT_EQ(b.Cellule(1, 1), "Dépron 3 mm");
  b.CliqueEn(1, 1);
  b.Tape("Neuf");
  b.Ok();
  EXPECT_EQ(LitFichierEssai(projet), "$$DB1=Du projet\r\n");
}

TEST(F_BD, ShowsEveryColumnAtItsFirstSize) {
  Banc b;
  int largeur = 0;
  for (int c = 0; c < 9; ++c) largeur += b.grille->columnWidth(c);
  EXPECT_EQ(largeur, b.grille->viewport()->width());
}

TEST(F_BD, NamesGetWhatIsLeftOfAWideWindow) {
  Banc b;
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
