#include "core/ui/Theme.h"

#include <QApplication>
#include <QFile>
#include <QHash>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <QPixmapCache>
#include <QSvgRenderer>

// The pictures lie in a static library: something has to name their object file.
static void ChargeRessources() { Q_INIT_RESOURCE(icones); }

namespace ovelin {

QColor EnCouleur(std::int32_t couleur) {
  const auto v = static_cast<std::uint32_t>(couleur);
  return QColor(static_cast<int>(v & 255U), static_cast<int>((v >> 8U) & 255U),
                static_cast<int>((v >> 16U) & 255U));
}

std::int32_t DeCouleur(const QColor& couleur) {
  const QColor rgb = couleur.toRgb();
  return rgb.red() + 256 * rgb.green() + 65536 * rgb.blue();
}

Theme ThemeDe(const QWidget& w) {
  // Against black the contrast rises with the luminance.
  const auto luminance = [&w](QPalette::ColorRole role) {
    return Contraste(DeCouleur(w.palette().color(role)), 0);
  };
  return luminance(QPalette::Window) < luminance(QPalette::WindowText) ? Theme::Sombre : Theme::Clair;
}

QColor CouleurLisible(const QColor& couleur, const QColor& fond, double contraste) {
  const std::int32_t demandee = DeCouleur(couleur);
  const std::int32_t lisible = CouleurLisible(demandee, DeCouleur(fond), contraste);
  return lisible == demandee ? couleur : EnCouleur(lisible);
}

// From the ground on, towards the one of black and white that lies farther: the first grey that can be read is the
// faintest.
QColor GrisLisible(const QColor& fond) {
  const std::int32_t sol = DeCouleur(fond);
  const int sens = Contraste(sol, Couleur(255, 255, 255)) > Contraste(sol, 0) ? 1 : -1;
  for (int v = fond.lightness() + sens; v > 0 && v < 255; v += sens) {
    if (Contraste(sol, Couleur(v, v, v)) >= ContrasteTexte) return QColor(v, v, v);
  }
  return sens > 0 ? QColor(Qt::white) : QColor(Qt::black);
}

QColor Papier(const QWidget& w) { return EnCouleur(PapierDe(ThemeDe(w))); }

namespace {

const QColor Accent(0xE0, 0x70, 0x20);

struct Encres {
  QColor trait, accent;
};

Encres EncresDe(QIcon::Mode mode) {
  const QPalette p = QApplication::palette();
  const QColor fond = p.color(QPalette::Window);
  if (mode == QIcon::Disabled) {
    const QColor gris = p.color(QPalette::Disabled, QPalette::WindowText);
    return {gris, gris};
  }
  if (mode == QIcon::Selected) {
    const QColor choisi = p.color(QPalette::HighlightedText);
    return {choisi, choisi};  // no second colour can be told from every ground of a selection
  }
  return {p.color(QPalette::WindowText), CouleurLisible(Accent, fond)};
}

// Draws a picture in the inks of the palette that is in force at that moment, at the size that is asked for.
class MoteurIcone : public QIconEngine {
 public:
  MoteurIcone(QString nom, QByteArray dessin) : nom_(std::move(nom)), dessin_(std::move(dessin)) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State /*etat*/) override {
    const Encres encres = EncresDe(mode);
    QByteArray svg = dessin_;
    svg.replace("#101010", encres.trait.name().toLatin1()).replace("#E07020", encres.accent.name().toLatin1());
    QSvgRenderer rendu(svg);
    rendu.setAspectRatioMode(Qt::KeepAspectRatio);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    rendu.render(painter, QRectF(rect));
    painter->restore();
  }

  QPixmap pixmap(const QSize& taille, QIcon::Mode mode, QIcon::State etat) override {
    const Encres encres = EncresDe(mode);
    const QString cle = QStringLiteral("ovelin %1 %2x%3 %4 %5")
                            .arg(nom_)
                            .arg(taille.width())
                            .arg(taille.height())
                            .arg(encres.trait.name(), encres.accent.name());
    QPixmap image;
    if (taille.isEmpty() || QPixmapCache::find(cle, &image)) return image;
    image = QPixmap(taille);
    image.fill(Qt::transparent);
    QPainter p(&image);
    paint(&p, QRect(QPoint(0, 0), taille), mode, etat);
    p.end();
    QPixmapCache::insert(cle, image);
    return image;
  }

  QSize actualSize(const QSize& taille, QIcon::Mode /*mode*/, QIcon::State /*etat*/) override { return taille; }

  QList<QSize> availableSizes(QIcon::Mode /*mode*/, QIcon::State /*etat*/) override {
    return {QSize(16, 16), QSize(24, 24), QSize(32, 32), QSize(48, 48), QSize(64, 64), QSize(128, 128)};
  }

  QIconEngine* clone() const override { return new MoteurIcone(*this); }
  QString key() const override { return QStringLiteral("ovelin"); }

 private:
  QString nom_;
  QByteArray dessin_;
};

QHash<QString, QIcon>& Icones() {
  static QHash<QString, QIcon> icones;
  return icones;
}

}  // namespace

QIcon IconeProgramme(const QString& nom) {
  const auto connue = Icones().constFind(nom);
  if (connue != Icones().constEnd()) return *connue;
  ChargeRessources();
  QFile fichier(QStringLiteral(":/icones/%1.svg").arg(nom));
  QIcon icone;
  if (fichier.open(QIODevice::ReadOnly)) icone = QIcon(new MoteurIcone(nom, fichier.readAll()));
  Icones().insert(nom, icone);
  return icone;
}

}  // namespace ovelin
