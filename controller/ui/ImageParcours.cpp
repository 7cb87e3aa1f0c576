#include "controller/ui/ImageParcours.h"

#include <QPainter>
#include <algorithm>

#include "core/ui/Fabrique.h"
#include "core/ui/Theme.h"

namespace ovelin {

namespace {
constexpr double Marge = 10;               // logical pixels
constexpr std::size_t PointsMax = 20'000;  // painted: of a longer path every so many
}  // namespace

ImageParcours::ImageParcours(const QString& nom, const QString& bulle, QWidget* parent) : QWidget(parent) {
  Nomme(this, nom, bulle);
  setMinimumSize(160, 120);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

QSize ImageParcours::sizeHint() const { return {320, 200}; }

void ImageParcours::Montre(const std::vector<zenikcom::Axes3>& points, const std::array<double, 3>& mmParPas) {
  points_.clear();
  const std::size_t saut = points.size() / PointsMax + 1;
  const auto ajoute = [&](const zenikcom::Axes3& p) {
    points_ << QPointF(static_cast<double>(p[0]) * mmParPas[0], static_cast<double>(p[1]) * mmParPas[1]);
  };
  for (std::size_t i = 0; i < points.size(); i += saut) ajoute(points[i]);
  if (!points.empty()) ajoute(points.back());
  update();
}

void ImageParcours::paintEvent(QPaintEvent*) {
  QPainter p(this);
  p.setRenderHint(QPainter::Antialiasing);
  const QColor papier = Papier(*this);
  p.fillRect(rect(), papier);
  if (points_.isEmpty()) return;
  const QRectF boite = points_.boundingRect();
  const QRectF place = QRectF(rect()).adjusted(Marge, Marge, -Marge, -Marge);
  const double echelle =
      std::min(place.width() / std::max(boite.width(), 1.0), place.height() / std::max(boite.height(), 1.0));
  const auto ecran = [&](const QPointF& point) {
    return QPointF(place.center().x() + (point.x() - boite.center().x()) * echelle,
                   place.center().y() - (point.y() - boite.center().y()) * echelle);
  };
  QPolygonF trace;
  for (const QPointF& point : points_) trace << ecran(point);
  p.setPen(QPen(CouleurLisible(QColor(0x10, 0x40, 0xC0), papier), 1.2));
  p.drawPolyline(trace);
  p.setPen(QPen(CouleurLisible(QColor(0xE0, 0x70, 0x20), papier), 2));
  p.drawEllipse(trace.back(), 4, 4);
}

}  // namespace ovelin
