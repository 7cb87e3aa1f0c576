// The preview of the size window.
#pragma once

#include <QWidget>
#include <vector>

#include "core/Types.h"
#include "image/Apercu.h"

namespace ovelin {

class ApercuDimension : public QWidget {
  Q_OBJECT
 public:
  ApercuDimension(std::vector<PointTrace> points, QWidget* parent);

  void Montre(double rapportX, double rapportY);
  // Other points.
  void Prend(std::vector<PointTrace> points);
  [[nodiscard]] const Scene& Dessine() const { return scene_; }

  [[nodiscard]] QSize sizeHint() const override { return {300, 220}; }
  [[nodiscard]] QSize minimumSizeHint() const override { return {160, 120}; }

 protected:
  void paintEvent(QPaintEvent* e) override;
  void resizeEvent(QResizeEvent* e) override;

 private:
  void Refait();
  std::vector<PointTrace> points_;
  double rapportX_ = 1, rapportY_ = 1;
  Scene scene_;
};

}  // namespace ovelin
