#include "workspace/ui/CoupeEncoche.h"

#include <QPainter>
#include <algorithm>

#include "core/ReglagesCourants.h"
#include "core/ui/Theme.h"

namespace ovelin {

namespace {

constexpr double Marge = 3, Tete = 4;  // pixels; of an arrow's head
constexpr double Haut = 12;            // above the sheet: room for the arrow of the width
constexpr double Fond = 5;             // of the sheet below the cut
constexpr double PartPont = 0.34;      // of the width of the drawing

void Fleche(QPainter& p, const QPointF& a, const QPointF& b) {
  p.drawLine(a, b);
  const bool plat = a.y() == b.y();
  for (const auto& [pointe, sens] : {std::pair{a, 1.0}, std::pair{b, -1.0}}) {
    for (const double cote : {-1.0, 1.0}) {
      const QPointF aile = plat ? QPointF(sens * Tete, cote * Tete / 2) : QPointF(cote * Tete / 2, sens * Tete);
      p.drawLine(pointe, pointe + aile);
    }
  }
}

}  // namespace

CoupeEncoche::CoupeEncoche(QWidget* parent) : QWidget(parent) {
  setObjectName(QStringLiteral("Img_Encoche"));
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
}

void CoupeEncoche::Montre(double largeur, double hauteur, double profondeur) {
  largeur_ = largeur;
  hauteur_ = hauteur;
  profondeur_ = profondeur;
  update();
}

double CoupeEncoche::Part() const {
  if (!(largeur_ > 0) || !(hauteur_ > 0)) return 0;
  return profondeur_ > 0 ? std::min(hauteur_ / profondeur_, 1.0) : 1.0;
}

//        <---->              width
//   =====      =====         what the tool leaves open lies between the sheet's edge and its bottom
//        |    | ^
//   _____|    |_v___         height
//   ________________
void CoupeEncoche::paintEvent(QPaintEvent* /*e*/) {
  QPainter p(this);
  p.setRenderHint(QPainter::Antialiasing);
  const QColor matiere = GrisLisible(palette().color(QPalette::Window));
  const QColor encoche = CouleurLisible(EnCouleur(Regl.CouleurEncoche), palette().color(QPalette::Window));
  const QRectF feuille = QRectF(rect()).adjusted(Marge, Haut, -Marge, -Marge);
  const QRectF coupe = feuille.adjusted(0, 0, 0, -Fond);
  QColor plein = matiere;
  plein.setAlphaF(0.45F);
  p.fillRect(QRectF(feuille.left(), coupe.bottom(), feuille.width(), Fond), plein);
  const double largeur = feuille.width() * PartPont;
  const double hauteur = coupe.height() * Part();
  const QRectF pont(feuille.center().x() - largeur / 2, coupe.bottom() - hauteur, largeur, hauteur);
  p.fillRect(pont, plein);
  p.setPen(QPen(matiere, 1, Qt::DotLine));
  p.drawLine(feuille.topLeft(), feuille.topRight());
  p.setPen(QPen(matiere, 1));
  const QPointF bord[] = {coupe.bottomLeft(), pont.bottomLeft(),  pont.topLeft(),
                          pont.topRight(),    pont.bottomRight(), coupe.bottomRight()};
  p.drawPolyline(bord, 6);
  p.setPen(QPen(encoche, 1.5));
  Fleche(p, {pont.left(), Haut / 2}, {pont.right(), Haut / 2});
  if (hauteur > 2 * Tete) Fleche(p, {pont.right() + 8, pont.top()}, {pont.right() + 8, pont.bottom()});
}

}  // namespace ovelin
