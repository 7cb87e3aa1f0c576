// The path of the machine behind the virtual board, from above.
#pragma once

#include <QPolygonF>
#include <QWidget>
#include <array>
#include <vector>

#include "closed/CarteVirtuelle.h"

namespace ovelin {

class ImageParcours : public QWidget {
  Q_OBJECT
 public:
  ImageParcours(const QString& nom, const QString& bulle, QWidget* parent = nullptr);

  // Steps, and mm a step. The picture is fitted to the path; its last point is where the machine stands.
  void Montre(const std::vector<zenikcom::Axes3>& points, const std::array<double, 3>& mmParPas);
  [[nodiscard]] qsizetype NombrePoints() const { return points_.size(); }
  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* e) override;

 private:
  QPolygonF points_;  // mm, Y upward
};

}  // namespace ovelin
