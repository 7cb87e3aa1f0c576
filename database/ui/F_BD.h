// The material presets: a grid with one floating editor.
#pragma once

#include <QDialog>
#include <array>
#include <string>

#include "database/GrilleBD.h"

class QAction;
class QKeyEvent;
class QMenu;
class QTableWidget;

namespace ovelin {

class Equivalent;
class SaisieBD;

class F_BD : public QDialog {
  Q_OBJECT
 public:
  explicit F_BD(QWidget* parent = nullptr);

  // Escape and the window's cross: both ask where rows have changed.
  void reject() override;

 protected:
  bool eventFilter(QObject* objet, QEvent* e) override;
  void changeEvent(QEvent* e) override;

 private:
  enum class Choix { Tout, Fin };  // what of the cell's text is selected, or the caret behind it

  // F_BD.cpp: layout, filling, validation
  void Construit();
  void ConstruitGrille();
  void ConstruitMenu();
  void EnTetes();
  void Remplit();
  void MontreLigne(int ligne);
  void Elargit();
  void Valide();
  bool Refuse();  // says what is wrong and goes there; false when nothing is
  void MontreFaute(int ligne, int colonne, const QString& raison);
  void OteFaute();
  bool Ecrit();  // false, and said, when the settings file can't be written

  // F_BD_Saisie.cpp: the editor, the keys, the rows
  bool ToucheGrille(const QKeyEvent& e);
  bool ToucheSaisie(const QKeyEvent& e);
  void OuvreSaisie(int ligne, int colonne, Choix choix);
  void PlaceSaisie();
  void MontreEquivalent();    // diameter of a radius, mm/min of a speed; of what is being typed, too
  void RangeSaisie();         // its text into the cell, then as below
  void AbandonneSaisie();     // emptied and hidden
  bool Avance(bool enAvant);  // to the next cell or the one before; false at the end
  void Pose(int ligne, int colonne, const std::string& texte);
  void OuvreMenu(int ligne, int colonne, const QPoint& place);
  void Insere();
  void Supprime();
  void Copie() const;
  void Colle();

  GrilleBD grille_;
  bool modifiee_ = false;
  QTableWidget* MSFlexGrid1_ = nullptr;
  SaisieBD* txtSaisie_ = nullptr;
  Equivalent* Lbl_Equivalent_ = nullptr;  // of the cell in focus
  QMenu* mnu_DB_ = nullptr;
  QAction* mnu_DB_Insert_ = nullptr;
  QAction* mnu_DB_Delete_ = nullptr;
  std::array<QString, GrilleBD::Colonnes> titres_;
  int ligneSaisie_ = -1, colonneSaisie_ = -1;
  int ligneFaute_ = -1, colonneFaute_ = -1;
};

}  // namespace ovelin
