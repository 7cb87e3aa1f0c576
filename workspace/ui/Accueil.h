// What stands in the place of the picture while there is no drawing: where to drop one, and the files of last time
// and the examples as small pictures.
#pragma once

#include <QFrame>
#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <QToolButton>
#include <string>
#include <vector>

#include "core/Types.h"

namespace ovelin {

class Accueil : public QFrame {
  Q_OBJECT
 public:
  explicit Accueil(QWidget* parent);

  // The files of now: `recents` the newest first, `exemples` without those that are among them.
  void Montre(const std::vector<std::string>& recents, const std::vector<std::string>& exemples);
  // So many pixels at the foot are taken by another window; more than half of the height can't be kept free.
  void LaisseLibre(int pied);
  // A job runs on the machine: nothing is opened.
  void EnRun(bool enRun);

 Q_SIGNALS:
  void Ouvre();  // with the dialog
  void Choisit(const QString& chemin);

 protected:
  void resizeEvent(QResizeEvent* e) override;
  void showEvent(QShowEvent* e) override;
  void changeEvent(QEvent* e) override;

 private:
  struct Carte {
    QToolButton* bouton = nullptr;
    std::string chemin;
    bool lue = false;
    std::vector<PointTrace> points;
  };
  // A heading and its row of files.
  struct Rangee {
    QLabel* titre = nullptr;
    QWidget* cadre = nullptr;
    std::vector<Carte> cartes;
  };

  Rangee FaitRangee(const char* nom, const QString& titre);
  void Remplit(Rangee& rangee, const std::vector<std::string>& chemins);
  void Dispose();
  void LitSuivantes();
  void Peint(const Carte& carte);
  void Colore();

  QLabel* phrase_ = nullptr;
  QPushButton* ouvrir_ = nullptr;
  std::vector<Rangee> rangees_;  // recent files, examples
  QTimer* lecture_ = nullptr;
  int pied_ = 0;
};

}  // namespace ovelin
