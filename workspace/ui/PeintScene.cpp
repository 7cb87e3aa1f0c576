#include "workspace/ui/PeintScene.h"

#include <QFontMetricsF>
#include <QPolygonF>
#include <algorithm>
#include <cmath>
#include <memory>
#include <unordered_map>
#include <vector>

#include "core/ui/Theme.h"

namespace ovelin {

namespace {

constexpr double Pixels = 1.0 / static_cast<double>(TwipsParPixel);  // of a twip

// Dashes in widths of the pen.
const QList<qreal> MotifPointille{1, 3};
const QList<qreal> MotifTiretPointPoint{8, 3, 1, 3, 1, 3};

// What can be drawn smoothly at once, in stretches; a dotted line counts its dots.
constexpr double TraitsLisses = 25'000;
constexpr double PeriodePointille = 4;  // pixels

class Peinture {
 public:
  Peinture(QPainter& peintre, const Scene& scene, const AspectScene& aspect)
      : p_(peintre), scene_(scene), aspect_(aspect), lisse_(PeutLisser(scene)) {}

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
  void Points(const Primitive& p);
  void Carres(const Primitive& p);
  void Disque(const Primitive& p);
  void Fleches(const Primitive& p);
  void Texte(const Primitive& p);
  void Crayon(const QColor& couleur, StyleTrait style);
  void Plein(const QColor& couleur);
  // The colour as it can be told from what lies under it.
  const QColor& Couleur(std::int32_t couleur, const QColor& fond);
  const QColor& Couleur(std::int32_t couleur) { return Couleur(couleur, aspect_.papier); }
  const std::vector<QPointF>& Place(const Primitive& p);

  QPainter& p_;
  const Scene& scene_;
  const AspectScene& aspect_;
  bool lisse_;
  std::vector<QPointF> tampon_;
  std::unordered_map<std::uint64_t, QColor> couleurs_;
  std::int32_t fondDisque_ = SansFond;  // of the disc that a number stands on
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

void Peinture::Crayon(const QColor& couleur, StyleTrait style) {
  QPen crayon(couleur, 1);
  crayon.setCosmetic(true);
  if (style == StyleTrait::Pointille) crayon.setDashPattern(MotifPointille);
  if (style == StyleTrait::TiretPointPoint) crayon.setDashPattern(MotifTiretPointPoint);
  p_.setPen(crayon);
  p_.setBrush(Qt::NoBrush);
}

void Peinture::Plein(const QColor& couleur) {
  p_.setPen(Qt::NoPen);
  p_.setBrush(couleur);
}

void Peinture::Ligne(const Primitive& p) {
  p_.setRenderHint(QPainter::Antialiasing, lisse_);
  Crayon(Couleur(p.couleur), p.style);
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
  p_.setRenderHint(QPainter::Antialiasing, true);
  Crayon(Couleur(p.couleur), StyleTrait::Plein);
  fondDisque_ = p.fond;
  if (p.fond != SansFond) p_.setBrush(EnCouleur(p.fond));
  const double rayon = static_cast<double>(p.mesure) * Pixels;
  for (const QPointF& q : Place(p)) p_.drawEllipse(q, rayon, rayon);
}

void Peinture::Fleches(const Primitive& p) {
  p_.setRenderHint(QPainter::Antialiasing, lisse_);
  Plein(Couleur(p.couleur));
  const auto& points = Place(p);
  for (std::size_t i = 0; i + 2 < points.size(); i += 3) p_.drawConvexPolygon(points.data() + i, 3);
}

void Peinture::Texte(const Primitive& p) {
  const bool surDisque = p.element == Element::Numeros && fondDisque_ != SansFond;
  p_.setPen(surDisque ? Couleur(p.couleur, EnCouleur(fondDisque_)) : Couleur(p.couleur));
  const QString texte = QString::fromStdString(scene_.Textes[p.texte]);
  const QFontMetricsF mesure(p_.font(), p_.device());
  const QPointF place = Place(p).front();
  QPointF pied(place.x(), place.y() + mesure.ascent());
  if (p.ancre == Ancre::Centre) {
    pied = {place.x() - mesure.horizontalAdvance(texte) / 2, place.y() + (mesure.ascent() - mesure.descent()) / 2};
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

bool PeutLisser(const Scene& scene) {
  double traits = static_cast<double>(scene.Points.size());
  for (const Primitive& p : scene.Primitives) {
    if (traits > TraitsLisses) return false;
    if (p.genre != Genre::Ligne || p.style == StyleTrait::Plein) continue;
    const auto points = scene.PointsDe(p);
    double longueur = 0;
    for (std::size_t i = 1; i < points.size(); ++i) {
      longueur += static_cast<double>(std::hypot(points[i].X - points[i - 1].X, points[i].Y - points[i - 1].Y));
    }
    traits += longueur * Pixels / PeriodePointille;
  }
  return traits <= TraitsLisses;
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
