// A section through a notch: the bridge that stays in the cut, with its two measures in the colours of their
// arrows.
#pragma once

#include <QWidget>

namespace ovelin {

// Drawn along the path: the tool comes from the left at its depth, lifts over the bridge and goes down again.
class CoupeEncoche : public QWidget {
  Q_OBJECT
 public:
  explicit CoupeEncoche(QWidget* parent = nullptr);

  // Width and height of the bridge and depth of the cut, mm; the height counts up to the depth.
  void Montre(double largeur, double hauteur, double profondeur);
  // How high the bridge is drawn, of the depth: 0 for none, 1 for a bridge as high as the cut.
  [[nodiscard]] double Part() const;

  [[nodiscard]] QSize sizeHint() const override { return {112, 44}; }
  [[nodiscard]] QSize minimumSizeHint() const override { return {84, 40}; }

 protected:
  void paintEvent(QPaintEvent* e) override;

 private:
  double largeur_ = 0, hauteur_ = 0, profondeur_ = 0;
};

}  // namespace ovelin
