#include "workspace/ui/PeintScene.h"

#include <QFontMetricsF>
#include <QPolygonF>
#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <tuple>
#include <unordered_map>
#include <vector>

#include "core/ui/Theme.h"
#include "workspace/ui/TraitRapide.h"

namespace ovelin {

namespace {

constexpr double Pixels = 1.0 / static_cast<double>(TwipsParPixel);  // of a twip

// Dashes in widths of the line, drawn and left out in turn.
constexpr std::array<float, 2> MotifPointille{1.5F, 2.5F};
constexpr std::array<float, 6> MotifTiretPointPoint{8, 3, 1, 3, 1, 3};

// Lines of selected paths are wider than others, in logical pixels; a whole number where they aren't smooth.
constexpr double LargeurSelection = 1.75;

// What can be drawn smoothly at once, in stretches; a dotted line counts its dots. The toolkit builds an outline
// for each line wider than a pixel, which takes many times as long.
constexpr double TraitsLisses = 40'000;
constexpr double PoidsLarge = 6;
constexpr double PeriodePointille = 4;  // pixels

constexpr std::int32_t Blanc = ovelin::Couleur(255, 255, 255);

std::span<const float> MotifDe(StyleTrait style) {
  switch (style) {
    case StyleTrait::Pointille:
      return MotifPointille;
    case StyleTrait::TiretPointPoint:
      return MotifTiretPointPoint;
    case StyleTrait::Plein:
      break;
  }
  return {};
}

bool EstSelection(const Primitive& p, const AspectScene& aspect) {
  return p.genre == Genre::Ligne && p.element == Element::Initial && p.couleur == aspect.selection;
}

// The picture that the painter draws into pixel by pixel, or none.
QImage* ImageDe(const QPainter& peintre) {
  QPaintDevice* support = peintre.device();
  if (support->devType() != QInternal::Image || peintre.hasClipping()) return nullptr;
  auto* image = static_cast<QImage*>(support);
  return image->format() == QImage::Format_RGB32 ? image : nullptr;
}

class Peinture {
 public:
  Peinture(QPainter& peintre, const Scene& scene, const AspectScene& aspect)
      : p_(peintre),
        scene_(scene),
        aspect_(aspect),
        epaisseur_(std::max(1.0, peintre.device()->devicePixelRatioF())),
        lisse_(PeutLisser(scene, aspect, epaisseur_)),
        police_(peintre.font(), peintre.device()) {
    QImage* image = lisse_ ? nullptr : ImageDe(peintre);
    if (image != nullptr) rapide_.emplace(*image);
  }

  void Tout() {
    p_.save();
    for (const Primitive& primitive : scene_.Primitives) {
      if (primitive.element == Element::Legende && !aspect_.legende) continue;
      Une(primitive);
    }
    p_.restore();
  }

 private:
  void Une(const Primitive& p);
  void Ligne(const Primitive& p);
  void LigneRapide(const Primitive& p);
  void Points(const Primitive& p);
  void Carres(const Primitive& p);
  void Disque(const Primitive& p);
  void Fleches(const Primitive& p);
  void Texte(const Primitive& p);
  void Crayon(const QColor& couleur, StyleTrait style, double largeur = 1);
  void Plein(const QColor& couleur);
  // The colour as it can be told from what lies under it.
  const QColor& Couleur(std::int32_t couleur, const QColor& fond);
  const QColor& Couleur(std::int32_t couleur) { return Couleur(couleur, aspect_.papier); }
  const std::vector<QPointF>& Place(const Primitive& p);

  QPainter& p_;
  const Scene& scene_;
  const AspectScene& aspect_;
  double epaisseur_;  // of a line, pixels of the device
  bool lisse_;
  std::optional<TraitRapide> rapide_;
  std::vector<float> motif_;
  std::vector<QPointF> tampon_;
  std::unordered_map<std::uint64_t, QColor> couleurs_;
  QFontMetricsF police_;
  std::map<std::tuple<float, std::int32_t, std::int32_t>, QImage> disques_;  // by radius and colours
  QColor fondDisque_;                                                        // of the disc that a number stands on
};

const QColor& Peinture::Couleur(std::int32_t couleur, const QColor& fond) {
  const std::uint64_t cle = static_cast<std::uint64_t>(static_cast<std::uint32_t>(couleur)) << 32U | fond.rgb();
  const auto [it, neuve] = couleurs_.try_emplace(cle);
  if (neuve) it->second = CouleurLisible(EnCouleur(couleur), fond);
  return it->second;
}

const std::vector<QPointF>& Peinture::Place(const Primitive& p) {
  const auto points = scene_.PointsDe(p);
  tampon_.resize(points.size());
  std::transform(points.begin(), points.end(), tampon_.begin(), [](const PointEcran& e) {
    return QPointF(static_cast<double>(e.X) * Pixels, static_cast<double>(e.Y) * Pixels);
  });
  return tampon_;
}

void Peinture::Crayon(const QColor& couleur, StyleTrait style, double largeur) {
  QPen crayon(couleur, epaisseur_ * largeur);
  crayon.setCosmetic(true);
  const auto motif = MotifDe(style);
  if (!motif.empty()) crayon.setDashPattern(QList<qreal>(motif.begin(), motif.end()));
  p_.setPen(crayon);
  p_.setBrush(Qt::NoBrush);
}

void Peinture::Plein(const QColor& couleur) {
  p_.setPen(Qt::NoPen);
  p_.setBrush(couleur);
}

void Peinture::LigneRapide(const Primitive& p) {
  const auto motif = MotifDe(p.style);
  motif_.assign(motif.begin(), motif.end());
  for (float& tiret : motif_) tiret *= static_cast<float>(epaisseur_);
  rapide_->Motif(motif_);
  rapide_->Crayon(Couleur(p.couleur).rgb(),
                  static_cast<int>(std::lround(epaisseur_ * (EstSelection(p, aspect_) ? 2 : 1))));
  const QTransform place = p_.deviceTransform();
  const auto sx = static_cast<float>(place.m11() * Pixels);
  const auto sy = static_cast<float>(place.m22() * Pixels);
  const auto dx = static_cast<float>(place.dx());
  const auto dy = static_cast<float>(place.dy());
  const auto points = scene_.PointsDe(p);
  rapide_->Commence(points[0].X * sx + dx, points[0].Y * sy + dy);
  for (const PointEcran& e : points.subspan(1)) rapide_->Suit(e.X * sx + dx, e.Y * sy + dy);
}

void Peinture::Ligne(const Primitive& p) {
  if (rapide_) return LigneRapide(p);
  p_.setRenderHint(QPainter::Antialiasing, lisse_);
  Crayon(Couleur(p.couleur), p.style, EstSelection(p, aspect_) ? LargeurSelection : 1);
  const auto& points = Place(p);
  p_.drawPolyline(points.data(), static_cast<int>(points.size()));
}

void Peinture::Points(const Primitive& p) {
  p_.setRenderHint(QPainter::Antialiasing, lisse_);
  Plein(Couleur(p.couleur));
  const double rayon = static_cast<double>(p.mesure) * Pixels / 2;
  for (const QPointF& q : Place(p)) p_.drawEllipse(q, rayon, rayon);
}

void Peinture::Carres(const Primitive& p) {
  p_.setRenderHint(QPainter::Antialiasing, false);
  const QColor& couleur = Couleur(p.couleur);
  const double cote = static_cast<double>(p.mesure) * Pixels;
  for (const QPointF& q : Place(p)) p_.fillRect(QRectF(q.x() - cote / 2, q.y() - cote / 2, cote, cote), couleur);
}

void Peinture::Disque(const Primitive& p) {
  fondDisque_ = p.fond == Blanc ? QColor(Qt::white) : p.fond != SansFond ? Couleur(p.fond) : QColor();
  const QColor& bord = Couleur(p.couleur);
  const double rayon = static_cast<double>(p.mesure) * Pixels;
  const auto trace = [&](QPainter& peintre, const QPointF& centre) {
    peintre.setRenderHint(QPainter::Antialiasing, true);
    peintre.setPen(QPen(bord, 1));
    peintre.setBrush(fondDisque_.isValid() ? QBrush(fondDisque_) : QBrush(Qt::NoBrush));
    peintre.drawEllipse(centre, rayon, rayon);
  };
  if (lisse_) {
    for (const QPointF& q : Place(p)) trace(p_, q);
    return;
  }
  // Thousands of them are few kinds: each is drawn once and copied, at whole pixels.
  QImage& tampon = disques_[{p.mesure, p.couleur, p.fond}];
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
    p_.drawImage(QPointF(std::round(coin.x() * epaisseur_), std::round(coin.y() * epaisseur_)) / epaisseur_,
                 tampon);
  }
}

void Peinture::Fleches(const Primitive& p) {
  p_.setRenderHint(QPainter::Antialiasing, lisse_);
  Plein(Couleur(p.couleur));
  const auto& points = Place(p);
  for (std::size_t i = 0; i + 2 < points.size(); i += 3) p_.drawConvexPolygon(points.data() + i, 3);
}

void Peinture::Texte(const Primitive& p) {
  const bool surDisque = p.element == Element::Numeros && fondDisque_.isValid();
  p_.setPen(Couleur(p.couleur, surDisque ? fondDisque_ : aspect_.papier));
  const QString texte = QString::fromStdString(scene_.Textes[p.texte]);
  const QPointF place = Place(p).front();
  QPointF pied(place.x(), place.y() + police_.ascent());
  if (p.ancre == Ancre::Centre) {
    pied = {place.x() - police_.horizontalAdvance(texte) / 2,
            place.y() + (police_.ascent() - police_.descent()) / 2};
  }
  p_.drawText(pied, texte);
}

void Peinture::Une(const Primitive& p) {
  switch (p.genre) {
    case Genre::Ligne:
      return Ligne(p);
    case Genre::Points:
      return Points(p);
    case Genre::Carres:
      return Carres(p);
    case Genre::Disque:
      return Disque(p);
    case Genre::Fleches:
      return Fleches(p);
    case Genre::Texte:
      return Texte(p);
  }
}

}  // namespace

bool PeutLisser(const Scene& scene, const AspectScene& aspect, double pixels) {
  double traits = 0;
  for (const Primitive& p : scene.Primitives) {
    const auto points = scene.PointsDe(p);
    double siens = static_cast<double>(points.size());
    if (p.genre == Genre::Ligne && p.style != StyleTrait::Plein) {
      double longueur = 0;
      for (std::size_t i = 1; i < points.size(); ++i) {
        longueur += static_cast<double>(std::hypot(points[i].X - points[i - 1].X, points[i].Y - points[i - 1].Y));
      }
      siens += longueur * Pixels / PeriodePointille;
    }
    traits += siens * (pixels > 1 || EstSelection(p, aspect) ? PoidsLarge : 1);
    if (traits > TraitsLisses) return false;
  }
  return true;
}

void PeintScene(QPainter& peintre, const Scene& scene, const AspectScene& aspect) {
  Peinture(peintre, scene, aspect).Tout();
}

std::function<TailleTexte(const std::string&)> MesureDe(const QFont& police) {
  const auto mesure = std::make_shared<QFontMetricsF>(police);
  return [mesure](const std::string& texte) {
    return TailleTexte{static_cast<float>(mesure->horizontalAdvance(QString::fromStdString(texte))) * TwipsParPixel,
                       static_cast<float>(mesure->height()) * TwipsParPixel};
  };
}

}  // namespace ovelin
