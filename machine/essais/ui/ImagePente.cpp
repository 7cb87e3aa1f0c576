#include "machine/essais/ui/ImagePente.h"

#include <QPainter>
#include <QPainterPath>

#include "core/ui/Fabrique.h"
#include "core/ui/Theme.h"

namespace ovelin {

namespace {
constexpr int Marge = 8, Pentes = 9;  // logical pixels; slopes
}

ImagePente::ImagePente(const QString& nom, const QString& bulle, QWidget* parent) : QWidget(parent) {
  Nomme(this, nom, bulle);
  setMinimumSize(120, 60);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

QSize ImagePente::sizeHint() const { return {280, 90}; }

void ImagePente::DessinePente(int curseur) {
  curseur_ = curseur;
  update();
}

//      speed     ____________
//            ___/
//        ___/              the rise ends at n ninths of the width
//   ____/_________________ time
void ImagePente::paintEvent(QPaintEvent*) {
  QPainter p(this);
  p.setRenderHint(QPainter::Antialiasing);
  const QColor papier = Papier(*this);
  p.fillRect(rect(), papier);
  const QRectF cadre = QRectF(rect()).adjusted(Marge, Marge, -Marge, -Marge);
  p.setPen(QPen(GrisLisible(papier), 1));
  p.drawLine(cadre.bottomLeft(), cadre.topLeft());
  p.drawLine(cadre.bottomLeft(), cadre.bottomRight());
  const double bas = cadre.bottom() - cadre.height() * 0.4, haut = cadre.top() + 2;
  QPainterPath rampe(QPointF(cadre.left(), bas));
  rampe.lineTo(cadre.left() + cadre.width() * curseur_ / (Pentes + 1), haut);
  rampe.lineTo(cadre.right(), haut);
  p.setPen(QPen(CouleurLisible(QColor(0xE0, 0x70, 0x20), papier), 2));
  p.drawPath(rampe);
}

}  // namespace ovelin
