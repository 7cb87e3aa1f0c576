#include "workspace/ui/CoupeEncoche.h"

#include <QPainter>
#include <algorithm>

#include "core/ReglagesCourants.h"
#include "core/ui/Theme.h"

namespace ovelin {

namespace {

constexpr int HauteurDessin = 46;    // pixels, between the two fields
constexpr double Marge = 3;          // at the sides, and above the lower field
constexpr double Tete = 4;           // of an arrow's head
constexpr double Haut = 13;          // above the sheet: room for the arrow of the width
constexpr double Fond = 5;           // of the sheet below the cut
constexpr double LargeurPont = 52;   // less than a field is wide
constexpr double EcartHauteur = 10;  // from the bridge to the arrow of its height

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

CoupeEncoche::CoupeEncoche(QWidget* parent) : QWidget(parent), grille_(new QGridLayout(this)) {
  setObjectName(QStringLiteral("Img_Encoche"));
  grille_->setContentsMargins(0, 0, 0, 0);
  grille_->setVerticalSpacing(0);
  grille_->setRowMinimumHeight(1, HauteurDessin);
  grille_->setColumnStretch(0, 1);
}

void CoupeEncoche::LogeLargeur(QWidget* nom, QWidget* champ) {
  champLargeur_ = champ;
  grille_->addWidget(nom, 0, 0);
  grille_->addWidget(champ, 0, 1);
}

void CoupeEncoche::LogeHauteur(QWidget* nom, QWidget* champ) {
  champHauteur_ = champ;
  grille_->addWidget(nom, 2, 0);
  grille_->addWidget(champ, 2, 1);
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

//                       [ 5 mm ]
//                        <---->          width
//   =====================      =====     what the tool leaves open lies between the sheet's edge and its bottom
//                        |    | ^
//   _____________________|    |_v___     height
//   _____________________________|__
//                       [ 1 mm ]
void CoupeEncoche::paintEvent(QPaintEvent* /*e*/) {
  if (champLargeur_ == nullptr || champHauteur_ == nullptr) return;
  QPainter p(this);
  p.setRenderHint(QPainter::Antialiasing);
  const QColor matiere = GrisLisible(palette().color(QPalette::Window));
  const QColor encoche = CouleurLisible(EnCouleur(Regl.CouleurEncoche), palette().color(QPalette::Window));
  const QRectF dessus = champLargeur_->geometry();
  const QRectF dessous = champHauteur_->geometry();
  const QRectF feuille(QPointF(Marge, dessus.bottom() + Haut), QPointF(width() - Marge, dessous.top() - Marge));
  const QRectF coupe = feuille.adjusted(0, 0, 0, -Fond);
  QColor plein = matiere;
  plein.setAlphaF(0.45F);
  p.fillRect(QRectF(feuille.left(), coupe.bottom(), feuille.width(), Fond), plein);
  const double hauteur = coupe.height() * Part();
  const double milieu = dessus.center().x();
  const QRectF pont(milieu - LargeurPont / 2, coupe.bottom() - hauteur, LargeurPont, hauteur);
  p.fillRect(pont, plein);
  p.setPen(QPen(matiere, 1, Qt::DotLine));
  p.drawLine(feuille.topLeft(), feuille.topRight());
  p.setPen(QPen(matiere, 1));
  const QPointF bord[] = {coupe.bottomLeft(), pont.bottomLeft(),  pont.topLeft(),
                          pont.topRight(),    pont.bottomRight(), coupe.bottomRight()};
  p.drawPolyline(bord, 6);
  p.setPen(QPen(encoche, 1.5));
  const double ligne = dessus.bottom() + Haut / 2;
  p.drawLine(QPointF(milieu, dessus.bottom()), QPointF(milieu, ligne));
  Fleche(p, {pont.left(), ligne}, {pont.right(), ligne});
  const double cote = pont.right() + EcartHauteur;
  p.drawLine(QPointF(cote, pont.bottom()), QPointF(cote, dessous.top()));
  if (hauteur > 2 * Tete) Fleche(p, {cote, pont.top()}, {cote, pont.bottom()});
}

}  // namespace ovelin
