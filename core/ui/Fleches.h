// Two small arrows beside a field: one step up, one step down, repeated while held.
#pragma once

#include <QAbstractSlider>

namespace ovelin {

class Fleches : public QAbstractSlider {
  Q_OBJECT
 public:
  explicit Fleches(const QString& nom, QWidget* parent = nullptr);
  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void mousePressEvent(QMouseEvent* e) override;
  void mouseReleaseEvent(QMouseEvent* e) override;
  void sliderChange(SliderChange change) override;
  void paintEvent(QPaintEvent* e) override;

 private:
  SliderAction enfoncee_ = SliderNoAction;
};

}  // namespace ovelin
