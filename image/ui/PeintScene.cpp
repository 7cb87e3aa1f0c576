#include "image/ui/PeintScene.h"

#include <QFontMetricsF>
#include <QImage>
#include <QScopedValueRollback>
#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "base/Indices.h"
#include "core/ui/Theme.h"
#include "image/Peintre.h"
#include "image/ui/NappeRapide.h"
#include "image/ui/TraitRapide.h"

namespace ovelin {

namespace {

// What can be drawn smoothly at once, in stretches; a dotted line counts its dots. The toolkit builds an outline
// for each line wider than a pixel, which takes many times as long.
constexpr double TraitsLisses = 40'000;
constexpr double PoidsLarge = 6;
constexpr double PeriodePointille = 4;  // pixels
// Points of a surface that the toolkit outlines in a moment; above, it is made of bits.
constexpr std::size_t PointsNappe = 4000;
// Logical pixels. A part of a picture begins at a multiple of this, which is a whole pixel of every device.
constexpr double PasNappe = 4;

// The picture that the painter draws into pixel by pixel, or none.
QImage* ImageDe(const QPainter& peintre) {
  QPaintDevice* support = peintre.device();
  if (support->devType() != QInternal::Image || peintre.hasClipping()) return nullptr;
  auto* image = static_cast<QImage*>(support);
  return image->format() == QImage::Format_RGB32 ? image : nullptr;
}

// A role in the colours of the toolkit.
struct Couleurs {
  QColor couleur, fond, texte;
};

class Peinture {
 public:
  Peinture(QPainter& peintre, const Scene& scene, const Palette& palette)
      : toile_(&peintre),
        scene_(scene),
        palette_(palette),
        epaisseur_(std::max(1.0, peintre.device()->devicePixelRatioF())),
        lisse_(PeutLisser(scene, palette, epaisseur_)),
        police_(peintre.font(), peintre.device()) {
    QImage* image = lisse_ ? nullptr : ImageDe(peintre);
    if (image != nullptr) rapide_.emplace(*image);
    for (std::size_t i = 0; i < NombreRoles; ++i) {
      const Aspect& aspect = palette.aspects[i];
      couleurs_[i] = {EnCouleur(aspect.couleur), aspect.fond == SansFond ? QColor() : EnCouleur(aspect.fond),
                      EnCouleur(aspect.couleurTexte)};
    }
  }

  void Ligne(const Primitive& p);
  void Aire(const Primitive& p);
  void Points(const Primitive& p);
  void Carres(const Primitive& p);
  void Disque(const Primitive& p);
  void Fleches(const Primitive& p);
  void Texte(const Primitive& p);
  void PeintNappe(std::span<const Primitive> traits);

 private:
  void NappeLisse(std::span<const Primitive> traits);
  [[nodiscard]] QColor Teinte(const Primitive& p) const {
    QColor couleur = De(p).couleur;
    couleur.setAlphaF(OpaciteDe(p, palette_));
    return couleur;
  }
  void LigneRapide(const Primitive& p);
  void Crayon(const Primitive& p);
  void Plein(const Primitive& p);
  [[nodiscard]] const Couleurs& De(const Primitive& p) const { return couleurs_[static_cast<std::size_t>(p.role)]; }
  const std::vector<QPointF>& Place(const Primitive& p);

  QPainter* toile_;  // into the picture, or into the surface that is being made
  const Scene& scene_;
  const Palette& palette_;
  double epaisseur_;  // of a line, pixels of the device
  bool lisse_;
  std::optional<TraitRapide> rapide_;
  std::vector<float> motif_;
  std::vector<QPointF> tampon_;
  std::array<Couleurs, NombreRoles> couleurs_;
  QFontMetricsF police_;
  std::map<std::pair<float, Role>, QImage> disques_;
};

const std::vector<QPointF>& Peinture::Place(const Primitive& p) {
  const auto points = scene_.PointsDe(p);
  tampon_.resize(points.size());
  std::transform(points.begin(), points.end(), tampon_.begin(),
                 [](const PointEcran& e) { return QPointF(e.X * Pixels, e.Y * Pixels); });
  return tampon_;
}

void Peinture::Crayon(const Primitive& p) {
  QPen crayon(Teinte(p), epaisseur_ * LargeurDe(p, palette_));
  crayon.setCosmetic(true);
  const auto motif = MotifDe(palette_[p.role].style);
  if (!motif.empty()) crayon.setDashPattern(QList<qreal>(motif.begin(), motif.end()));
  if (p.mesure > 0) {
    crayon.setCapStyle(Qt::RoundCap);
    crayon.setJoinStyle(Qt::RoundJoin);
  }
  toile_->setPen(crayon);
  toile_->setBrush(Qt::NoBrush);
}

void Peinture::Plein(const Primitive& p) {
  toile_->setPen(Qt::NoPen);
  toile_->setBrush(Teinte(p));
}

// As wide as a whole number of pixels.
void Peinture::LigneRapide(const Primitive& p) {
  const Aspect& aspect = palette_[p.role];
  const auto motif = MotifDe(aspect.style);
  motif_.assign(motif.begin(), motif.end());
  for (float& tiret : motif_) tiret *= static_cast<float>(epaisseur_);
  rapide_->Motif(motif_);
  rapide_->Crayon(Teinte(p).rgba(), static_cast<int>(std::lround(epaisseur_ * std::round(aspect.largeur))));
  const QTransform place = toile_->deviceTransform();
  const auto sx = static_cast<float>(place.m11() * Pixels);
  const auto sy = static_cast<float>(place.m22() * Pixels);
  const auto dx = static_cast<float>(place.dx());
  const auto dy = static_cast<float>(place.dy());
  const auto points = scene_.PointsDe(p);
  rapide_->Commence(points[0].X * sx + dx, points[0].Y * sy + dy);
  for (const PointEcran& e : points.subspan(1)) rapide_->Suit(e.X * sx + dx, e.Y * sy + dy);
}

void Peinture::Ligne(const Primitive& p) {
  if (rapide_ && p.mesure <= 0) return LigneRapide(p);
  toile_->setRenderHint(QPainter::Antialiasing, lisse_);
  Crayon(p);
  const auto& points = Place(p);
  toile_->drawPolyline(points.data(), base::Compte(points.size()));
}

void Peinture::Aire(const Primitive& p) {
  toile_->setRenderHint(QPainter::Antialiasing, lisse_);
  Plein(p);
  const auto& points = Place(p);
  toile_->drawPolygon(points.data(), base::Compte(points.size()), Qt::OddEvenFill);
}

void Peinture::Points(const Primitive& p) {
  toile_->setRenderHint(QPainter::Antialiasing, lisse_);
  Plein(p);
  const double rayon = p.mesure * Pixels / 2;
  for (const QPointF& q : Place(p)) toile_->drawEllipse(q, rayon, rayon);
}

void Peinture::Carres(const Primitive& p) {
  toile_->setRenderHint(QPainter::Antialiasing, false);
  const QColor couleur = Teinte(p);
  const double cote = p.mesure * Pixels;
  for (const QPointF& q : Place(p))
    toile_->fillRect(QRectF(q.x() - cote / 2, q.y() - cote / 2, cote, cote), couleur);
}

void Peinture::Disque(const Primitive& p) {
  const QColor& fond = De(p).fond;
  const double rayon = p.mesure * Pixels;
  const auto trace = [&](QPainter& peintre, const QPointF& centre) {
    peintre.setRenderHint(QPainter::Antialiasing, true);
    peintre.setPen(QPen(De(p).couleur, 1));
    peintre.setBrush(fond.isValid() ? QBrush(fond) : QBrush(Qt::NoBrush));
    peintre.drawEllipse(centre, rayon, rayon);
  };
  if (lisse_) {
    for (const QPointF& q : Place(p)) trace(*toile_, q);
    return;
  }
  // Thousands of them are few kinds: each is drawn once and copied, at whole pixels.
  QImage& tampon = disques_[{p.mesure, p.role}];
  const double cote = 2 * std::ceil(rayon + 1);
  if (tampon.isNull()) {
    tampon = QImage((QSizeF(cote, cote) * epaisseur_).toSize(), QImage::Format_ARGB32_Premultiplied);
    tampon.setDevicePixelRatio(epaisseur_);
    tampon.fill(Qt::transparent);
    QPainter peintre(&tampon);
    trace(peintre, QPointF(cote / 2, cote / 2));
  }
  for (const QPointF& q : Place(p)) {
    const QPointF coin(q.x() - cote / 2, q.y() - cote / 2);
    toile_->drawImage(QPointF(std::round(coin.x() * epaisseur_), std::round(coin.y() * epaisseur_)) / epaisseur_,
                      tampon);
  }
}

void Peinture::Fleches(const Primitive& p) {
  toile_->setRenderHint(QPainter::Antialiasing, lisse_);
  Plein(p);
  const auto& points = Place(p);
  for (std::size_t i = 0; i + 2 < points.size(); i += 3) toile_->drawConvexPolygon(points.data() + i, 3);
}

void Peinture::Texte(const Primitive& p) {
  toile_->setPen(De(p).texte);
  const QString texte = QString::fromStdString(scene_.Textes[p.texte]);
  const QPointF place = Place(p).front();
  toile_->drawText(QPointF(PiedX(place.x(), p.ancre, police_.horizontalAdvance(texte)),
                           PiedY(place.y(), p.ancre, police_.ascent(), police_.descent())),
                   texte);
}

// Whatever is to be drawn: strokes of one surface by bits where there are many, otherwise smooth.
void Peinture::PeintNappe(std::span<const Primitive> traits) {
  std::size_t points = 0;
  for (const Primitive& p : traits) points += p.nombre;
  QImage* image = points > PointsNappe ? ImageDe(*toile_) : nullptr;
  if (image == nullptr) return NappeLisse(traits);
  const QTransform place = toile_->deviceTransform();
  float largeurMax = 0;
  for (const Primitive& p : traits) largeurMax = std::max(largeurMax, p.mesure);
  NappeRapide nappe(*image, place.m11() * Pixels, place.dx(), place.dy(), largeurMax);
  // The last one counts: from behind, and only where nothing lies yet.
  for (std::size_t fin = traits.size(); fin > 0;) {
    std::size_t debut = fin - 1;
    const Primitive& p = traits[debut];
    while (debut > 0 && traits[debut - 1].role == p.role && traits[debut - 1].force == p.force &&
           traits[debut - 1].mesure == p.mesure) {
      --debut;
    }
    for (const Primitive& q : traits.subspan(debut, fin - debut)) {
      nappe.Trace(scene_.PointsDe(q), q.genre == Genre::Points);
    }
    nappe.Etale(static_cast<double>(p.mesure), Teinte(p).rgba());
    fin = debut;
  }
}

// In a picture of its own, in which each stroke replaces what lies under it, and which is then laid over the other.
void Peinture::NappeLisse(std::span<const Primitive> traits) {
  QRectF bords;
  for (const Primitive& p : traits) {
    const auto& points = Place(p);
    const double rayon = p.mesure * Pixels / 2 + 2;
    for (const QPointF& q : points) {
      bords |= QRectF(q.x() - rayon, q.y() - rayon, 2 * rayon, 2 * rayon);
    }
  }
  const QRectF fenetre = toile_->window();
  bords &= fenetre;
  if (bords.isEmpty()) return;
  const QPointF coin(std::floor(bords.left() / PasNappe) * PasNappe, std::floor(bords.top() / PasNappe) * PasNappe);
  const QSizeF taille(std::ceil(bords.right() - coin.x()), std::ceil(bords.bottom() - coin.y()));
  QImage image((taille * epaisseur_).toSize() + QSize(1, 1), QImage::Format_ARGB32_Premultiplied);
  image.setDevicePixelRatio(epaisseur_);
  image.fill(Qt::transparent);
  QPainter dedans(&image);
  dedans.translate(-coin);
  dedans.setCompositionMode(QPainter::CompositionMode_Source);
  {
    const QScopedValueRollback<QPainter*> pendant(toile_, &dedans);
    const QScopedValueRollback<bool> lisse(lisse_, true);
    for (const Primitive& p : traits) PeintPrimitive(*this, p);
  }
  dedans.end();
  toile_->drawImage(coin, image);
}

}  // namespace

bool PeutLisser(const Scene& scene, const Palette& palette, double pixels) {
  double traits = 0;
  for (const Primitive& p : scene.Primitives) {
    if (NappeDe(p.role) != Nappe::Aucune) continue;  // by itself
    const auto points = scene.PointsDe(p);
    double siens = static_cast<double>(points.size());
    const bool ligne = p.genre == Genre::Ligne;
    if (ligne && palette[p.role].style != StyleTrait::Plein) {
      double longueur = 0;
      for (std::size_t i = 1; i < points.size(); ++i) {
        longueur += std::hypot(points[i].X - points[i - 1].X, points[i].Y - points[i - 1].Y);
      }
      siens += longueur * Pixels / PeriodePointille;
    }
    traits += siens * (pixels > 1 || (ligne && LargeurDe(p, palette) > 1) ? PoidsLarge : 1);
    if (traits > TraitsLisses) return false;
  }
  return true;
}

void PeintScene(QPainter& peintre, const Scene& scene, const Palette& palette) {
  peintre.save();
  Peinture peinture(peintre, scene, palette);
  PeintPrimitives(peinture, scene);
  peintre.restore();
}

MesureTexte MesureDe(const QFont& police) {
  const auto mesure = std::make_shared<QFontMetricsF>(police);
  return [mesure](const std::string& texte) {
    return TailleTexte{Twips(mesure->horizontalAdvance(QString::fromStdString(texte))), Twips(mesure->height())};
  };
}

}  // namespace ovelin
