#include "gcode/ui/ImageProgramme.h"

#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <utility>

#include "core/ReglagesCourants.h"
#include "core/Textes.h"
#include "core/ui/Theme.h"
#include "core/ui/TraduitFenetre.h"
#include "gcode/ui/ToileGL.h"
#include "image/Palette.h"
#include "image/ui/PeintScene.h"

namespace ovelin {

namespace {

constexpr std::size_t SegmentsEnMouvement = 150'000;
constexpr int DelaiRepos = 300;  // ms without a movement until everything is drawn
constexpr double ZoomParCran = 0.85;
constexpr int UniteMolette = 120;

QColor EnQt(std::int32_t c) { return {c & 255, (c >> 8) & 255, (c >> 16) & 255}; }

BoutonSouris BoutonDe(Qt::MouseButtons boutons) {
  const bool gauche = boutons.testFlag(Qt::LeftButton);
  const bool droit = boutons.testFlag(Qt::RightButton);
  if (gauche && droit) return BoutonSouris::Deux;
  if (gauche) return BoutonSouris::Gauche;
  if (droit) return BoutonSouris::Droit;
  return boutons.testFlag(Qt::MiddleButton) ? BoutonSouris::Milieu : BoutonSouris::Aucun;
}

}  // namespace

ImageProgramme::ImageProgramme(QWidget* parent) : QWidget(parent) {
  setObjectName(QStringLiteral("PB1"));
  setMinimumSize(200, 160);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  setAttribute(Qt::WA_OpaquePaintEvent);
  setFocusPolicy(Qt::ClickFocus);
  repos_.setObjectName(QStringLiteral("Timer_Repos"));
  repos_.setParent(this);
  repos_.setSingleShot(true);
  repos_.setInterval(DelaiRepos);
  connect(&repos_, &QTimer::timeout, this, [this] {
    tourne_ = false;
    Redessine();
  });
  Traduit();
  if (!ToileGL::Possible()) return;
  toile_ = new ToileGL(this);
  toile_->hide();
  toile_->Prepare = [this] {
    if (ConstruitScene()) toile_->Charge(scene_, ConstruitPalette(Regl, ThemeDe(*this)));
  };
  connect(toile_, &ToileGL::Echoue, this, &ImageProgramme::RetireToile, Qt::QueuedConnection);
}

// What can't be drawn by OpenGL after all is painted.
void ImageProgramme::RetireToile() {
  if (toile_ == nullptr) return;
  toile_->hide();
  toile_->deleteLater();
  toile_ = nullptr;
  Redessine();
}

void ImageProgramme::Traduit() {
  setAccessibleName(TexteQt(Textes::NomApercuGcode));
  setAccessibleDescription(TexteQt(Textes::AideApercuGcode));
  setToolTip(TexteQt(Textes::AideApercuGcode));
}

void ImageProgramme::Montre(const MesureProgramme* mesure) {
  mesure_ = mesure;
  outil_.reset();
  Ajuste();
}

void ImageProgramme::Vue(VueProgramme vue) {
  if (vue == vue_) return;
  vue_ = vue;
  Ajuste();
}

void ImageProgramme::Rapides(bool montres) {
  rapides_ = montres;
  Redessine();
}

void ImageProgramme::Ajuste() {
  camera_ = Camera{};
  Redessine();
}

void ImageProgramme::Outil(const std::optional<Lieu>& lieu) {
  outil_ = lieu;
  Redessine();
}

void ImageProgramme::Redessine() {
  aPeindre_ = true;
  if (toile_ != nullptr) {
    toile_->setVisible(Montrable());
    toile_->update();
  }
  update();
}

void ImageProgramme::Bouge() {
  tourne_ = true;
  repos_.start();
  Redessine();
}

bool ImageProgramme::ConstruitScene() {
  if (!std::exchange(aPeindre_, false)) return false;
  scene_.Vide();
  if (!Montrable()) return true;
  OptionsProgramme options;
  options.largeur = width();
  options.hauteur = height();
  options.segmentsMaxi = tourne_ ? SegmentsEnMouvement : 0;
  options.outil = outil_;
  options.rapides = rapides_;
  const Projection projection = ProjectionDe(vue_, camera_, mesure_->bornes, width(), height());
  ConstruitSceneProgramme(*mesure_, projection, options, scene_);
  return true;
}

void ImageProgramme::Peint() {
  if (!ConstruitScene()) return;
  const double echelle = devicePixelRatioF();
  const QSize pixels = (QSizeF(size()) * echelle).toSize().expandedTo(QSize(1, 1));
  if (image_.size() != pixels) image_ = QImage(pixels, QImage::Format_RGB32);
  image_.setDevicePixelRatio(echelle);
  const Palette couleurs = ConstruitPalette(Regl, ThemeDe(*this));
  image_.fill(EnQt(couleurs.papier));
  QPainter peintre(&image_);
  PeintScene(peintre, scene_, couleurs);
}

void ImageProgramme::paintEvent(QPaintEvent*) {
  if (toile_ != nullptr && Montrable()) {
    // A screen that gave a context once may refuse the next.
    if (!toile_->isValid()) QMetaObject::invokeMethod(this, &ImageProgramme::RetireToile, Qt::QueuedConnection);
    return;
  }
  Peint();
  QPainter peintre(this);
  peintre.drawImage(QPointF(0, 0), image_);
  if (Montrable()) return;
  peintre.setPen(palette().color(QPalette::Disabled, QPalette::Text));
  const int marge = fontMetrics().height();
  peintre.drawText(rect().adjusted(marge, marge, -marge, -marge),
                   static_cast<int>(Qt::AlignCenter) | Qt::TextWordWrap, TexteQt(Textes::GcodeVide));
}

void ImageProgramme::resizeEvent(QResizeEvent*) {
  if (toile_ != nullptr) toile_->setGeometry(rect());
  Redessine();
}

void ImageProgramme::changeEvent(QEvent* e) {
  if (e->type() == QEvent::PaletteChange || e->type() == QEvent::StyleChange) Redessine();
  QWidget::changeEvent(e);
}

void ImageProgramme::mousePressEvent(QMouseEvent* e) {
  if (mesure_ == nullptr) return;
  const QPoint place = e->position().toPoint();
  Appuie(camera_, mesure_->bornes, place.x(), place.y(), width(), height());
}

void ImageProgramme::mouseMoveEvent(QMouseEvent* e) {
  const BoutonSouris bouton = BoutonDe(e->buttons());
  if (!Montrable() || bouton == BoutonSouris::Aucun) return;
  const QPoint place = e->position().toPoint();
  if (bouton == BoutonSouris::Gauche && vue_ != VueProgramme::Espace) {
    Vue(VueProgramme::Espace);  // what lies along an axis can't be turned
    Q_EMIT VueChangee(vue_);
    Appuie(camera_, mesure_->bornes, place.x(), place.y(), width(), height());
    return;
  }
  Glisse(camera_, mesure_->bornes, bouton, place.x(), place.y(), width(), height());
  if (bouton == BoutonSouris::Droit) Q_EMIT Deplacee(QString::fromStdString(TexteDeplacement(camera_)));
  Bouge();
}

void ImageProgramme::mouseReleaseEvent(QMouseEvent*) { Q_EMIT Deplacee(QString()); }

void ImageProgramme::wheelEvent(QWheelEvent* e) {
  const int crans = e->angleDelta().y();
  if (!Montrable() || crans == 0) return;
  constexpr double Mini = 1e-4, Maxi = 1e4;
  camera_.ZoomVue =
      std::clamp(camera_.ZoomVue * std::pow(ZoomParCran, static_cast<double>(crans) / UniteMolette), Mini, Maxi);
  Bouge();
  e->accept();
}

}  // namespace ovelin
