// What a machine that moves leaves in the main window: the mark of the tool and the line of the run. Both follow at
// most thirty times a second, whatever the board says how often.
#pragma once

#include <QObject>
#include <QTimer>
#include <optional>

#include "workspace/ui/ImagePB1.h"

namespace ovelin {

class SuiviRun : public QObject {
  Q_OBJECT
 public:
  explicit SuiviRun(ImagePB1& image, QObject* parent = nullptr);

  // mm
  void Marque(double x, double y);
  void Ligne(float x0, float y0, float x1, float y1);
  void Efface();

 private:
  void Montre();

  ImagePB1& image_;
  QTimer rythme_;
  std::optional<PointEcran> place_;  // mm, the last that has come
  bool ligne_ = false;               // something was added to the line
};

}  // namespace ovelin
