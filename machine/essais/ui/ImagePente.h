// The sketch of the ramp.
#pragma once

#include <QWidget>

namespace ovelin {

class ImagePente : public QWidget {
  Q_OBJECT
 public:
  ImagePente(const QString& nom, const QString& bulle, QWidget* parent = nullptr);

  // The speed over the time for a slope of 1 to 9. The time axis is one of doublings, as the slopes are: each one
  // more moves the end of the rise by a ninth.
  void DessinePente(int curseur);
  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* e) override;

 private:
  int curseur_ = 1;
};

}  // namespace ovelin
