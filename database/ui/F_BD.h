// The material presets: a grid with one floating editor.
#pragma once

#include <QDialog>
#include <functional>
#include <string>

#include "database/GrilleBD.h"

class QMenu;
class QTableWidget;

namespace ovelin {

class SaisieBD;

class F_BD : public QDialog {
  Q_OBJECT
 public:
  explicit F_BD(QWidget* parent = nullptr);

  // Called when the OK has written the presets.
  std::function<void()> FichesChangees;

 protected:
  bool eventFilter(QObject* objet, QEvent* e) override;
  void resizeEvent(QResizeEvent* e) override;

 private:
  enum class Ouverture { ToutChoisi, Fin };

  void Construit();
  void ConstruitMenu();
  void EnTetes();
  void Remplit();
  void MontreLigne(int ligne);
  void Elargit();

  bool ToucheGrille(int touche, int modificateurs, const QString& texte);
  void OuvreSaisie(int ligne, int colonne, Ouverture ouverture);
  void PlaceSaisie();
  void RangeSaisie();  // its text into the cell; the editor is emptied and hidden
  void AbandonneSaisie();
  void Avance(bool enAvant, bool ouvre);
  void Monte(int lignes);
  void Pose(int ligne, int colonne, const std::string& texte);
  void MenuEn(int ligne, const QPoint& place);
  void Insere();
  void Supprime();
  void Copie() const;
  void Colle();

  void Valide();
  bool Refuse();  // says what is wrong and goes there; false when nothing is
  void MontreFaute(int ligne, int colonne, const QString& raison);
  void OteFaute();

  GrilleBD grille_;
  QTableWidget* MSFlexGrid1_ = nullptr;
  SaisieBD* txtSaisie_ = nullptr;
  QMenu* mnu_DB_ = nullptr;
  int ligneSaisie_ = -1, colonneSaisie_ = -1;
  int ligneMenu_ = -1;
  int ligneFaute_ = -1, colonneFaute_ = -1;
};

}  // namespace ovelin
