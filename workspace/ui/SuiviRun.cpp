#include "workspace/ui/SuiviRun.h"

#include <utility>

#include "workspace/Module_Cycle.h"

namespace ovelin {

namespace {

constexpr int Periode = 34;  // ms

}  // namespace

SuiviRun::SuiviRun(ImagePB1& image, QObject* parent) : QObject(parent), image_(image) {
  rythme_.setSingleShot(true);
  rythme_.setInterval(Periode);
  connect(&rythme_, &QTimer::timeout, this, &SuiviRun::Montre);
}

void SuiviRun::Marque(double x, double y) {
  place_ = PointEcran{static_cast<float>(x), static_cast<float>(y)};
  if (!rythme_.isActive()) rythme_.start();
}

void SuiviRun::Ligne(float x0, float y0, float x1, float y1) {
  image_.AjouteRun(x0, y0, x1, y1);
  ligne_ = true;
  if (!rythme_.isActive()) rythme_.start();
}

void SuiviRun::Efface() {
  image_.EffaceRun();
  ligne_ = false;
}

void SuiviRun::Montre() {
  if (std::exchange(ligne_, false)) image_.update();
  if (!place_) return;
  Cycle.AfficheOutil = true;
  image_.PositionOutil(place_->X, place_->Y);
  place_.reset();
}

}  // namespace ovelin
