// The window of the material presets with what a user does in it: rows and columns counted from 1, clicks, keys,
// the menu.
#pragma once

#include <QAction>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QPushButton>
#include <QTableWidget>
#include <string>
#include <utility>

#include "database/Module_BD.h"
#include "database/ui/F_BD.h"
#include "database/ui/SaisieBD.h"
#include "tests/ui/support/SupportUi.h"

namespace essai {

using namespace ovelin;

struct BancBD {
  F_BD f;
  QTableWidget* grille = Controle<QTableWidget>(f, "MSFlexGrid1");
  SaisieBD* saisie = Controle<SaisieBD>(f, "txtSaisie");

  explicit BancBD(bool defaut = true) : f((defaut ? EcritFichesDefaut() : void(), nullptr)) { Montre(f); }
  ~BancBD() { f.hide(); }
  BancBD(const BancBD&) = delete;
  BancBD& operator=(const BancBD&) = delete;

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

}  // namespace essai
