// The steps of undo as a list at the side of the picture: what each has changed, with a small picture. A click goes
// there, back or forward.
#pragma once

#include <QListView>
#include <QPushButton>
#include <QWidget>

#include "workspace/Module_Annulation.h"

namespace ovelin {

class ModeleHistorique;

class PanneauHistorique : public QWidget {
  Q_OBJECT
 public:
  explicit PanneauHistorique(QWidget* parent);

  // The list follows the snapshots; the present state is in sight. Nothing is done while it is hidden.
  void Suit();
  // A job runs on the machine: nothing is taken back.
  void EnRun(bool enRun);

 Q_SIGNALS:
  // To the state of that number.
  void Va(int numero);

 protected:
  void showEvent(QShowEvent* e) override;
  void changeEvent(QEvent* e) override;

 private:
  void Permet();

  ModeleHistorique* modele_ = nullptr;
  QListView* liste_ = nullptr;
  QPushButton* reculer_ = nullptr;
  QPushButton* avancer_ = nullptr;
  bool enRun_ = false;
};

}  // namespace ovelin
