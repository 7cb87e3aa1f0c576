#include "image/ui/Vignette.h"

#include <QPainter>

#include "core/ReglagesCourants.h"
#include "core/ui/Theme.h"
#include "image/Apercu.h"
#include "image/ui/PeintScene.h"

namespace ovelin {

QPixmap Vignette(const std::vector<PointTrace>& points, const QSize& taille, const QWidget& pour) {
  const double echelle = pour.devicePixelRatioF();
  QImage image((QSizeF(taille) * echelle).toSize(), QImage::Format_RGB32);
  image.setDevicePixelRatio(echelle);
  const Palette couleurs = ConstruitPalette(Regl, ThemeDe(pour));
  image.fill(EnCouleur(couleurs.papier));
  Scene scene;
  ConstruitApercu(points, 1, 1, {Twips(taille.width()), Twips(taille.height())}, scene);
  QPainter peintre(&image);
  PeintScene(peintre, scene, couleurs);
  peintre.setRenderHint(QPainter::Antialiasing, false);
  peintre.setPen(pour.palette().color(QPalette::Mid));
  peintre.setBrush(Qt::NoBrush);
  peintre.drawRect(QRect(QPoint(0, 0), taille).adjusted(0, 0, -1, -1));
  peintre.end();
  return QPixmap::fromImage(image);
}

}  // namespace ovelin
