// A section through a notch: the bridge that stays in the cut, with the fields of its two measures at their arrows.
#pragma once

#include <QGridLayout>
#include <QWidget>

namespace ovelin {

// Drawn along the path: the tool comes from the left at its depth, lifts over the bridge and goes down again.
class CoupeEncoche : public QWidget {
  Q_OBJECT
 public:
  explicit CoupeEncoche(QWidget* parent = nullptr);

  // The field of the width stands over the bridge, that of the height below it, each with its name before it.
  void LogeLargeur(QWidget* nom, QWidget* champ);
  void LogeHauteur(QWidget* nom, QWidget* champ);
  // Width and height of the bridge and depth of the cut, mm; the height counts up to the depth.
  void Montre(double largeur, double hauteur, double profondeur);
  // How high the bridge is drawn, of the depth: 0 for none, 1 for a bridge as high as the cut.
  [[nodiscard]] double Part() const;

 protected:
  void paintEvent(QPaintEvent* e) override;

 private:
  QGridLayout* grille_ = nullptr;
  QWidget *champLargeur_ = nullptr, *champHauteur_ = nullptr;
  double largeur_ = 0, hauteur_ = 0, profondeur_ = 0;
};

}  // namespace ovelin
