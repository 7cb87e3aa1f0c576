#include "workspace/ui/prise/ImagePrise.h"

#include <QFontMetricsF>

#include "core/DocumentCourant.h"
#include "core/ui/Theme.h"
#include "image/SceneSelection.h"
#include "image/ui/PeintScene.h"
#include "toolpath/Attaches.h"
#include "workspace/Module_Prise.h"

namespace ovelin {

namespace {

constexpr float CotePoignee = 8 * TwipsParPixel;
constexpr float HampeVue = 19 * TwipsParPixel;  // from the box, whose figures stand above it, to what is seen of it
constexpr double EcartTexte = 14;               // pixels, from the pointer to the figures

QPointF Pixel(const PointEcran& p) {
  return {static_cast<double>(p.X) / TwipsParPixel, static_cast<double>(p.Y) / TwipsParPixel};
}

}  // namespace

void ImagePrise::PeintPoignees(QPainter& peintre, const TailleImage& taille, const Palette& couleurs) const {
  const BoiteSelection boite = BoiteDe(Doc);
  if (boite.vide) return;
  const Poignees p = PoigneesDe(boite, taille);
  Scene scene;
  const PointEcran haut{p.tourne.X, p.coins[0].Y - HampeVue};
  scene.AjouteSegment(Role::CadreSelection, haut, p.tourne);
  scene.AjouteDisque(Role::Poignee, p.tourne, CotePoignee / 2);
  Primitive carres;
  carres.genre = Genre::Carres;
  carres.role = Role::Poignee;
  carres.mesure = CotePoignee;
  scene.Ajoute(carres, p.coins);
  PeintScene(peintre, scene, couleurs);
}

// Where the attachment point would come to lie; nothing where it can't.
void ImagePrise::PeintAttache(QPainter& peintre, const TailleImage& taille, const Palette& couleurs) {
  const auto lieu = LieuAttache(Prise.attache, Prise.x, Prise.y);
  if (!lieu) return;
  const PointTrace p = VersEcran(Vue, taille.hauteur, *lieu);
  Scene scene;
  scene.AjouteDisque(Role::Poignee, {p.X, p.Y}, CotePoignee * 0.75F);
  PeintScene(peintre, scene, couleurs);
}

// The figures beside the pointer, wherever in the picture that is.
void ImagePrise::PeintTexte(QPainter& peintre, const TailleImage& taille, const Palette& couleurs) {
  const QString texte = QString::fromStdString(TexteTirage());
  const QRectF image(QPointF(0, 0), Pixel({taille.largeur, taille.hauteur}));
  const QPointF pointeur = Pixel(Prise.pointeur);
  const QRectF lettres = QFontMetricsF(peintre.font()).boundingRect(texte).adjusted(-4, -2, 4, 2);
  QPointF ou = pointeur + QPointF(EcartTexte, -EcartTexte);
  if (lettres.translated(ou).right() > image.right()) ou.setX(pointeur.x() - EcartTexte - lettres.right());
  if (lettres.translated(ou).top() < image.top()) ou.setY(pointeur.y() + EcartTexte - lettres.top());
  peintre.fillRect(lettres.translated(ou), EnCouleur(couleurs.papier));
  peintre.setPen(EnCouleur(couleurs[Role::Fantome].couleurTexte));
  peintre.drawText(ou, texte);
}

void ImagePrise::Peint(QPainter& peintre, const TailleImage& taille, const OptionsScene& options,
                       const Palette& couleurs) {
  if (!Prise.tire) {
    fait_ = false;
    if (options.sobre) PeintPoignees(peintre, taille, couleurs);
    return;
  }
  if (Prise.sorte == SortePrise::Attache) return PeintAttache(peintre, taille, couleurs);
  if (!fait_ || vue_ != Vue) {
    contour_.Vide();
    AjouteContour(Doc, Vue, taille, options, contour_);
    fait_ = true;
    vue_ = Vue;
  }
  const BoiteSelection& b = Prise.boite;
  const PointTrace milieu =
      VersEcran(Vue, taille.hauteur, {(b.xmin + b.xmax) / 2, (b.ymin + b.ymax) / 2, CodePD, {}});
  const QPointF centre = Pixel({milieu.X, milieu.Y});
  const double parMm = static_cast<double>(Zoom) / TwipsParPixel;
  peintre.save();
  peintre.translate(centre + QPointF(Prise.dx, -Prise.dy) * parMm);
  peintre.rotate(-Prise.angle * 180 / Pi);
  peintre.scale(Prise.rapport, Prise.rapport);
  peintre.translate(-centre);
  PeintScene(peintre, contour_, couleurs);
  peintre.restore();
  PeintTexte(peintre, taille, couleurs);
}

}  // namespace ovelin
