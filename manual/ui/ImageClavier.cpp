#include "manual/ui/ImageClavier.h"

#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "core/Textes.h"
#include "core/ui/Theme.h"
#include "core/ui/TraduitFenetre.h"
#include "manual/Touches.h"

namespace ovelin {

// Place and size in keys, from the upper left; its name where it is the same in every language; what it does, ""
// where it moves the machine.
struct ImageClavier::Touche {
  double x, y, largeur;
  int code;
  const char* nom;
  const char* effet;
};

namespace {

constexpr double Colonnes = 11, Rangees = 4.2;
constexpr int Cote = 40, CoteMin = 31;      // logical pixels of a key
constexpr double Ecart = 1.5;               // pixels around a key
constexpr double RayonCercle = 200.0 / 15;  // 200 twips
constexpr double PoliceNom = 0.30, PoliceEffet = 0.25, Marge = 3;

// Names that are written on keyboards in the language of their country.
QString NomDe(int code) {
  switch (code) {
    case touche::Echap:
      return TexteQt(Textes::ToucheEchap);
    case touche::Majuscule:
      return TexteQt(Textes::ToucheMajuscule);
    case touche::Controle:
      return TexteQt(Textes::ToucheControle);
    case touche::Debut:
      return TexteQt(Textes::ToucheDebut);
    case touche::Fin:
      return TexteQt(Textes::ToucheFin);
    case touche::PageHaut:
      return TexteQt(Textes::TouchePageHaut);
    case touche::PageBas:
      return TexteQt(Textes::TouchePageBas);
    default:
      return {};
  }
}

// A text in its line, smaller where it would be too wide.
void Ecrit(QPainter& p, const QRectF& place, const QString& texte, double pixels) {
  QFont police = p.font();
  police.setPixelSize(std::max(static_cast<int>(pixels), 1));
  const double large = QFontMetricsF(police).horizontalAdvance(texte);
  if (large > place.width()) police.setPixelSize(std::max(static_cast<int>(pixels * place.width() / large), 1));
  p.save();
  p.setFont(police);
  p.drawText(place, Qt::AlignCenter, texte);
  p.restore();
}

void Fleche(QPainter& p, const QPointF& milieu, const SensJog& sens, double taille) {
  const double longueur = std::hypot(sens[0], sens[1]);
  const QPointF u(sens[0] / longueur, -sens[1] / longueur);  // the screen goes downward
  const QPointF v(-u.y(), u.x());
  const QPointF pointe = milieu + u * taille;
  p.drawLine(milieu - u * taille, pointe);
  p.drawLine(pointe, pointe - u * taille * 0.8 + v * taille * 0.6);
  p.drawLine(pointe, pointe - u * taille * 0.8 - v * taille * 0.6);
}

}  // namespace

// The function row, the modifiers, the blocks of the pages and of the arrows, the numeric pad.
std::span<const ImageClavier::Touche> ImageClavier::Touches() {
  using namespace touche;
  static constexpr std::array Table{
      Touche{0, 0, 1, Echap, nullptr, "STOP"},
      Touche{1.25, 0, 1, F1, "F1", "?"},
      Touche{2.5, 0, 1, F5, "F5", "..."},
      Touche{3.5, 0, 1, F6, "F6", "10"},
      Touche{4.5, 0, 1, F7, "F7", "1"},
      Touche{5.5, 0, 1, F8, "F8", "0.1"},
      Touche{0, 1.2, 1, V, "V", "mm"},
      Touche{0, 2.2, 1.75, Majuscule, nullptr, "1/20"},
      Touche{0, 3.2, 1.75, Controle, nullptr, "x 2"},
      Touche{2.25, 1.2, 1, Debut, nullptr, ""},
      Touche{3.25, 1.2, 1, PageHaut, nullptr, "Z +"},
      Touche{2.25, 2.2, 1, Fin, nullptr, ""},
      Touche{3.25, 2.2, 1, PageBas, nullptr, "Z -"},
      Touche{4.75, 2.2, 1, Haut, "", ""},
      Touche{3.75, 3.2, 1, Gauche, "", ""},
      Touche{4.75, 3.2, 1, Bas, "", ""},
      Touche{5.75, 3.2, 1, Droite, "", ""},
      Touche{7, 0, 1, Multiplie, "*", "max"},
      Touche{10, 0, 1, Moins, "-", "mm/s"},
      Touche{10, 1.2, 1, Plus, "+", "mm/s"},
      Touche{7, 1.2, 1, Pave(7), "7", ""},
      Touche{8, 1.2, 1, Pave(8), "8", ""},
      Touche{9, 1.2, 1, Pave(9), "9", ""},
      Touche{7, 2.2, 1, Pave(4), "4", ""},
      Touche{9, 2.2, 1, Pave(6), "6", ""},
      Touche{7, 3.2, 1, Pave(1), "1", ""},
      Touche{8, 3.2, 1, Pave(2), "2", ""},
      Touche{9, 3.2, 1, Pave(3), "3", ""},
  };
  return Table;
}

ImageClavier::ImageClavier(QWidget* parent) : QWidget(parent) {
  setFocusPolicy(Qt::StrongFocus);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

QSize ImageClavier::sizeHint() const {
  return {static_cast<int>(Colonnes * Cote), static_cast<int>(Rangees * Cote) + 2};
}

QSize ImageClavier::minimumSizeHint() const {
  return {static_cast<int>(Colonnes * CoteMin), static_cast<int>(Rangees * CoteMin) + 2};
}

void ImageClavier::Encercle(int code) {
  encerclee_ = code;
  update();
}

void ImageClavier::Enfonce(bool majuscule, bool controle) {
  if (majuscule == majuscule_ && controle == controle_) return;
  majuscule_ = majuscule;
  controle_ = controle;
  update();
}

void ImageClavier::Choisit(int code) {
  if (code == choisie_) return;
  choisie_ = code;
  update();
}

// Keys stay square, the picture in the middle of its room.
QRectF ImageClavier::Place(const Touche& t) const {
  const double cote = std::min(width() / Colonnes, height() / Rangees);
  const QPointF coin((width() - Colonnes * cote) / 2, (height() - Rangees * cote) / 2);
  return QRectF(coin.x() + t.x * cote, coin.y() + t.y * cote, t.largeur * cote, cote)
      .adjusted(Ecart, Ecart, -Ecart, -Ecart);
}

const ImageClavier::Touche* ImageClavier::Sous(const QPointF& point) const {
  const auto touches = Touches();
  const auto t =
      std::find_if(touches.begin(), touches.end(), [&](const Touche& une) { return Place(une).contains(point); });
  return t == touches.end() ? nullptr : &*t;
}

QPoint ImageClavier::Milieu(int code) const {
  const auto touches = Touches();
  const auto t =
      std::find_if(touches.begin(), touches.end(), [code](const Touche& une) { return une.code == code; });
  return t == touches.end() ? QPoint() : Place(*t).center().toPoint();
}

void ImageClavier::PeintTouche(QPainter& p, const Touche& t) const {
  const QRectF place = Place(t);
  const bool enfoncee = t.code == pointee_ || (t.code == touche::Majuscule && majuscule_) ||
                        (t.code == touche::Controle && controle_);
  const QColor texte = palette().color(enfoncee ? QPalette::HighlightedText : QPalette::ButtonText);
  const bool choisie = t.code == choisie_;
  p.setPen(choisie ? QPen(palette().color(QPalette::Highlight), 2) : QPen(palette().color(QPalette::Mid)));
  p.setBrush(palette().color(enfoncee ? QPalette::Highlight : QPalette::Button));
  p.drawRoundedRect(place, 4, 4);
  p.setPen(texte);
  const QRectF dedans = place.adjusted(Marge, Marge, -Marge, -Marge);
  const QString nom = t.nom != nullptr ? QString::fromLatin1(t.nom) : NomDe(t.code);
  const SensJog sens = SensDe(t.code);
  const bool fleche = sens[0] != 0 || sens[1] != 0;
  if (!nom.isEmpty()) {
    Ecrit(p, {dedans.left(), dedans.top(), dedans.width(), dedans.height() / 2}, nom, place.height() * PoliceNom);
  }
  const QRectF bas(dedans.left(), dedans.center().y(), dedans.width(), dedans.height() / 2);
  if (!fleche) return Ecrit(p, bas, QString::fromLatin1(t.effet), place.height() * PoliceEffet);
  p.setPen(QPen(texte, 1.75, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  Fleche(p, nom.isEmpty() ? dedans.center() : bas.center(), sens, place.height() * (nom.isEmpty() ? 0.2 : 0.15));
}

// The circle is white in every theme; its rim tells it from a light key.
void ImageClavier::paintEvent(QPaintEvent* /*e*/) {
  QPainter p(this);
  p.setRenderHint(QPainter::Antialiasing);
  for (const Touche& t : Touches()) PeintTouche(p, t);
  if (hasFocus()) {
    p.setPen(QPen(palette().color(QPalette::Highlight), 1));
    p.setBrush(Qt::NoBrush);
    p.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 4, 4);
  }
  if (encerclee_ == 0) return;
  p.setPen(QPen(palette().color(QPalette::Highlight), 2));
  p.setBrush(QColor(255, 255, 255, 200));
  p.drawEllipse(QPointF(Milieu(encerclee_)), RayonCercle, RayonCercle);
}

void ImageClavier::mousePressEvent(QMouseEvent* e) {
  const Touche* t = Sous(e->position());
  if (e->button() != Qt::LeftButton || t == nullptr) return;
  pointee_ = t->code;
  update();
  Q_EMIT Appuyee(t->code);
}

void ImageClavier::mouseReleaseEvent(QMouseEvent* e) {
  if (e->button() == Qt::LeftButton) Relache();
}

void ImageClavier::Relache() {
  if (pointee_ == 0) return;
  const int code = std::exchange(pointee_, 0);
  update();
  Q_EMIT Lachee(code);
}

}  // namespace ovelin
