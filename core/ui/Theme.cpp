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
#include <algorithm>
#include <cmath>

// The pictures lie in a static library: something has to name their object file.
static void ChargeRessources() { Q_INIT_RESOURCE(icones); }

namespace ovelin {

namespace {

constexpr double ContrasteVoulu = 3.0;  // graphics that must be told apart (WCAG 2, criterion 1.4.11)

// Relative luminance and contrast ratio as WCAG 2 defines them.
double Luminance(const QColor& c) {
  const auto lineaire = [](double v) { return v <= 0.03928 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4); };
  const QColor rgb = c.toRgb();
  return 0.2126 * lineaire(static_cast<double>(rgb.redF())) + 0.7152 * lineaire(static_cast<double>(rgb.greenF())) +
         0.0722 * lineaire(static_cast<double>(rgb.blueF()));
}

double Contraste(const QColor& a, const QColor& b) {
  const double la = Luminance(a);
  const double lb = Luminance(b);
  return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}

QColor AvecClarte(const QColor& couleur, float clarte) {
  float h = 0;
  float s = 0;
  float l = 0;
  float a = 0;
  couleur.getHslF(&h, &s, &l, &a);
  return QColor::fromHslF(std::max(h, 0.0F), s, std::clamp(clarte, 0.0F, 1.0F), a).toRgb();
}

}  // namespace

QColor EnCouleur(std::int32_t couleur) {
  const auto v = static_cast<std::uint32_t>(couleur);
  return QColor(static_cast<int>(v & 255U), static_cast<int>((v >> 8U) & 255U),
                static_cast<int>((v >> 16U) & 255U));
}

std::int32_t DeCouleur(const QColor& couleur) {
  const QColor rgb = couleur.toRgb();
  return rgb.red() + 256 * rgb.green() + 65536 * rgb.blue();
}

bool ThemeSombre(const QWidget& w) {
  return Luminance(w.palette().color(QPalette::Window)) < Luminance(w.palette().color(QPalette::WindowText));
}

// What was chosen for another ground is mirrored in its lightness first: black on white becomes white on black,
// dark red a light one, and two colours that could be told apart still can. From there the lightness moves in small
// steps up and down at once; the first that is far enough from the ground is the nearest. One of black and white
// always is.
QColor CouleurLisible(const QColor& couleur, const QColor& fond) {
  if (Contraste(couleur, fond) >= ContrasteVoulu) return couleur;
  const float clarte = 1.0F - static_cast<float>(couleur.lightnessF());
  const QColor miroir = AvecClarte(couleur, clarte);
  if (Contraste(miroir, fond) >= ContrasteVoulu) return miroir;
  for (int pas = 1; pas <= 100; ++pas) {
    for (const float sens : {0.01F, -0.01F}) {
      const QColor essai = AvecClarte(couleur, clarte + sens * static_cast<float>(pas));
      if (Contraste(essai, fond) >= ContrasteVoulu) return essai;
    }
  }
  return Luminance(fond) < 0.18 ? QColor(Qt::white) : QColor(Qt::black);
}

QColor Papier(const QWidget& w) { return ThemeSombre(w) ? QColor(36, 38, 41) : QColor(Qt::white); }

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

void OublieIcones() {
  Icones().clear();
  QPixmapCache::clear();
}

}  // namespace ovelin
