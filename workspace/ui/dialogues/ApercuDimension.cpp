#include "workspace/ui/dialogues/ApercuDimension.h"

#include <QPainter>
#include <utility>

#include "core/ReglagesCourants.h"
#include "core/ui/Theme.h"
#include "image/ui/PeintScene.h"

namespace ovelin {

ApercuDimension::ApercuDimension(std::vector<PointTrace> points, QWidget* parent)
    : QWidget(parent), points_(std::move(points)) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void ApercuDimension::Montre(double rapportX, double rapportY) {
  rapportX_ = rapportX;
  rapportY_ = rapportY;
  Refait();
}

void ApercuDimension::Prend(std::vector<PointTrace> points) {
  points_ = std::move(points);
  Refait();
}

void ApercuDimension::Refait() {
  TailleImage taille;
  taille.largeur = Twips(width());
  taille.hauteur = Twips(height());
  ConstruitApercu(points_, rapportX_, rapportY_, taille, scene_);
  update();
}

void ApercuDimension::resizeEvent(QResizeEvent* e) {
  QWidget::resizeEvent(e);
  Refait();
}

void ApercuDimension::paintEvent(QPaintEvent* /*e*/) {
  QPainter peintre(this);
  const Palette couleurs = ConstruitPalette(Regl, ThemeDe(*this));
  peintre.fillRect(rect(), EnCouleur(couleurs.papier));
  PeintScene(peintre, scene_, couleurs);
  peintre.setRenderHint(QPainter::Antialiasing, false);
  peintre.setPen(palette().color(QPalette::Mid));
  peintre.setBrush(Qt::NoBrush);
  peintre.drawRect(rect().adjusted(0, 0, -1, -1));
}

}  // namespace ovelin
