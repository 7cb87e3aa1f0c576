#include "toolpath/ui/ApercuTexte.h"

#include <QPainter>
#include <algorithm>
#include <vector>

#include "core/Types.h"
#include "core/ui/Theme.h"
#include "toolpath/traces/Bibliotheque.h"

namespace ovelin {

namespace {

constexpr std::size_t LongueurMontree = 200;  // bytes
constexpr int Bord = 8;                       // pixels around the text

// A cut never falls into a character.
std::string Debut(const std::string& texte) {
  std::size_t n = std::min(texte.size(), LongueurMontree);
  while (n > 0 && n < texte.size() && (static_cast<unsigned char>(texte[n]) & 0xC0U) == 0x80U) --n;
  return texte.substr(0, n);
}

}  // namespace

ApercuTexte::ApercuTexte(QWidget* parent) : QWidget(parent) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

bool ApercuTexte::Montre(const std::string& texte, const std::string& police, std::int32_t espace,
                         std::int32_t style) {
  std::vector<PointTrace> points(1);
  const std::int32_t n = Biblio.Texte(points, Debut(texte), police, espace, style);
  points.resize(n > 0 ? std::min(points.size(), static_cast<std::size_t>(n)) : 0);
  chemin_ = QPainterPath();
  chemin_.setFillRule(Qt::OddEvenFill);
  Code2 avant;
  for (std::size_t i = 0; i < points.size(); ++i) {
    const PointTrace& p = points[i];
    if (i == 0 || p.Seq != avant) {
      chemin_.moveTo(p.X, p.Y);
    } else {
      chemin_.lineTo(p.X, p.Y);
    }
    avant = p.Seq;
  }
  update();
  return !points.empty();
}

void ApercuTexte::paintEvent(QPaintEvent* /*e*/) {
  QPainter peintre(this);
  const QColor papier = Papier(*this);
  peintre.fillRect(rect(), papier);
  peintre.setPen(palette().color(QPalette::Mid));
  peintre.drawRect(rect().adjusted(0, 0, -1, -1));
  const QRectF boite = chemin_.boundingRect();
  const QRectF place = QRectF(rect()).adjusted(Bord, Bord, -Bord, -Bord);
  if (boite.width() <= 0 || boite.height() <= 0 || place.width() <= 0 || place.height() <= 0) return;
  const double echelle = std::min(place.width() / boite.width(), place.height() / boite.height());
  peintre.setRenderHint(QPainter::Antialiasing);
  peintre.translate(place.center());
  peintre.scale(echelle, -echelle);
  peintre.translate(-boite.center());
  peintre.setPen(Qt::NoPen);
  peintre.setBrush(palette().color(QPalette::WindowText));
  peintre.drawPath(chemin_);
}

}  // namespace ovelin
