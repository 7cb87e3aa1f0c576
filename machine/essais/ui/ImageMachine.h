// The machine with its axes, seen from the front or from the other side.
#pragma once

#include <QWidget>

namespace ovelin {

class ImageMachine : public QWidget {
  Q_OBJECT
 public:
  ImageMachine(const QString& nom, const QString& bulle, bool inverse, QWidget* parent = nullptr);
  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* e) override;

 private:
  bool inverse_;
};

}  // namespace ovelin
