#include "machine/essais/ui/ImageMachine.h"

#include <QPainter>
#include <QPolygonF>
#include <algorithm>
#include <cmath>

#include "core/ui/Fabrique.h"
#include "core/ui/Theme.h"

namespace ovelin {

namespace {

constexpr double Largeur = 220, Hauteur = 140;  // of the drawing's own units

// An arrow with its letter behind the head.
void Fleche(QPainter& p, QPointF de, QPointF a, const QString& lettre) {
  p.drawLine(de, a);
  const double angle = std::atan2(a.y() - de.y(), a.x() - de.x());
  for (const double cote : {-0.45, 0.45}) {
    p.drawLine(a, a - 8 * QPointF(std::cos(angle + cote), std::sin(angle + cote)));
  }
  const QPointF centre = a + 9 * QPointF(std::cos(angle), std::sin(angle));
  p.drawText(QRectF(centre.x() - 8, centre.y() - 8, 16, 16), Qt::AlignCenter, lettre);
}

}  // namespace

ImageMachine::ImageMachine(const QString& nom, const QString& bulle, bool inverse, QWidget* parent)
    : QWidget(parent), inverse_(inverse) {
  Nomme(this, nom, bulle);
  setMinimumSize(150, 96);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

QSize ImageMachine::sizeHint() const { return {static_cast<int>(Largeur), static_cast<int>(Hauteur)}; }

// The table lies in perspective, the bridge stands over it with the spindle. Seen from the other side X goes to the
// left and Y comes towards the viewer; Z stays.
//
//          Z ^  ____________
//            | |____[]____ |      bridge, spindle
//         ___|_|____||____|_|__
//        /   Y ^             /
//       /______|__> X_______/     table
void ImageMachine::paintEvent(QPaintEvent*) {
  QPainter p(this);
  p.setRenderHint(QPainter::Antialiasing);
  const QColor papier = Papier(*this);
  p.fillRect(rect(), papier);
  const double echelle = std::min(width() / Largeur, height() / Hauteur);
  p.translate((width() - echelle * Largeur) / 2, (height() - echelle * Hauteur) / 2);
  p.scale(echelle, echelle);

  p.setPen(QPen(GrisLisible(papier), 1.5));
  p.drawPolygon(QPolygonF{{20, 130}, {60, 70}, {210, 70}, {170, 130}});
  p.drawLine(QPointF(44, 100), QPointF(44, 44));
  p.drawLine(QPointF(186, 100), QPointF(186, 44));
  p.drawRect(QRectF(40, 32, 150, 14));
  p.drawRect(QRectF(104, 26, 22, 40));
  p.drawLine(QPointF(115, 66), QPointF(115, 80));

  p.setPen(QPen(CouleurLisible(QColor(0xE0, 0x70, 0x20), papier), 2));
  const QPointF zero = inverse_ ? QPointF(158, 84) : QPointF(60, 118);
  const QPointF versX = inverse_ ? QPointF(-44, 0) : QPointF(44, 0);
  const QPointF versY = inverse_ ? QPointF(-17, 26) : QPointF(17, -26);
  Fleche(p, zero, zero + versX, QStringLiteral("X"));
  Fleche(p, zero, zero + versY, QStringLiteral("Y"));
  Fleche(p, QPointF(150, 62), QPointF(150, 12 + 6), QStringLiteral("Z"));
}

}  // namespace ovelin
