#include "workspace/ui/ImagePB1.h"

#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QScopedValueRollback>
#include <QToolTip>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

#include "core/Cadence.h"
#include "core/DocumentCourant.h"
#include "core/ReglagesCourants.h"
#include "core/Textes.h"
#include "core/ui/ServicesQt.h"
#include "core/ui/Theme.h"
#include "core/ui/TraduitFenetre.h"
#include "image/Marques.h"
#include "image/SceneSelection.h"
#include "image/ui/PeintScene.h"
#include "workspace/Module_Annulation.h"
#include "workspace/Module_Cycle.h"
#include "workspace/Module_Image.h"

namespace ovelin {

namespace {

constexpr int AttenteTaille = 80;     // ms without another change of the size
constexpr double CranMolette = 120;   // eighths of a degree, a notch of a wheel
constexpr double PixelsParCran = 60;  // of a touch pad that tells no angle
constexpr int ProfondeurVoile = 190;  // of 255, the paper behind the legend

QLabel* Legende(QWidget* parent, const char* nom) {
  auto* label = new QLabel(parent);
  label->setObjectName(QLatin1String(nom));
  label->setAttribute(Qt::WA_TransparentForMouseEvents);
  label->setTextFormat(Qt::PlainText);
  label->setAutoFillBackground(true);
  label->hide();
  return label;
}

// The sights of the attachment tool: a ring and a cross open in the middle, dark within a light rim so that they
// are seen on every ground.
QCursor CiblePetit() {
  static constexpr int Cote = 25;
  QPixmap image(Cote, Cote);
  image.fill(Qt::transparent);
  QPainter p(&image);
  p.setRenderHint(QPainter::Antialiasing);
  const QPointF centre(Cote / 2.0, Cote / 2.0);
  const auto trace = [&p, &centre](const QColor& couleur, double largeur) {
    p.setPen(QPen(couleur, largeur));
    p.drawEllipse(centre, 7, 7);
    for (const QPointF sens : {QPointF(1, 0), QPointF(-1, 0), QPointF(0, 1), QPointF(0, -1)}) {
      p.drawLine(centre + sens * 2.5, centre + sens * 11);
    }
  };
  trace(Qt::white, 3.4);
  trace(Qt::black, 1.4);
  p.end();
  return QCursor(image, Cote / 2, Cote / 2);
}

unsigned Boutons(Qt::MouseButtons boutons) {
  unsigned b = BoutonAucun;
  if (boutons.testFlag(Qt::LeftButton)) b |= Bouton1;
  if (boutons.testFlag(Qt::RightButton)) b |= Bouton2;
  if (boutons.testFlag(Qt::MiddleButton)) b |= BoutonMilieu;
  return b;
}

EvenementSouris EnEvenement(Qt::MouseButtons boutons, Qt::KeyboardModifiers touches, const QPointF& place) {
  return {Boutons(boutons), touches.testFlag(Qt::ControlModifier), touches.testFlag(Qt::ShiftModifier),
          Twips(place.x()), Twips(place.y())};
}

}  // namespace

ImagePB1::ImagePB1(QWidget* parent)
    : QWidget(parent),
      survol_(this),
      dessin_(Legende(this, "Label_Couleur_Dessin")),
      decalage_(Legende(this, "Label_Couleur_Decalage")) {
  setObjectName(QStringLiteral("PB1"));
  setAttribute(Qt::WA_OpaquePaintEvent);
  setMouseTracking(true);
  setFocusPolicy(Qt::StrongFocus);
  setMinimumSize(80, 60);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  Traduit();
  taille_.setSingleShot(true);
  taille_.setInterval(AttenteTaille);
  connect(&taille_, &QTimer::timeout, this, &ImagePB1::MetEnPage);
  suite_.setSingleShot(true);
  connect(&suite_, &QTimer::timeout, this, &ImagePB1::Acheve);
  connect(&survol_, &Survol::Change, this, &ImagePB1::MontreSurvol);
}

void ImagePB1::Traduit() {
  setAccessibleName(TexteQt(Textes::NomDessin));
  setAccessibleDescription(TexteQt(Textes::AideDessin));
}

TailleImage ImagePB1::Taille() const { return {Twips(width()), Twips(height())}; }

OptionsScene ImagePB1::Options() const {
  OptionsScene options = OptionsDuDocument(numPoint_, sequence_);
  options.pixel = static_cast<float>(TwipsParPixel / devicePixelRatioF());
  options.legende = false;  // it stands in labels over the picture
  options.echelle = options.sobre;
  options.mesureTexte = MesureDe(font());
  return options;
}

// --- drawing ---------------------------------------------------------------------------------------------------

// A wish that can't be met now comes when the pass is over; several are one.
void ImagePB1::Differe() {
  if (std::exchange(differe_, true)) return;
  Apres([image = QPointer<ImagePB1>(this)] {
    if (image.isNull()) return;
    image->differe_ = false;
    image->Dessin();
  });
}

void ImagePB1::Retient(bool retient) {
  if (retenue_ == retient) return;
  retenue_ = retient;
  if (!retient && isVisible() && size() != misEnPage_) taille_.start();
}

void ImagePB1::Dessin() {
  if (retenue_) return;
  if (!misEnPage_.isValid()) {
    demande_ = true;  // the layout of the first showing ends with a Dessin; before it there is no place to draw in
    return;
  }
  if (enCours_ || PasseEnCours()) return Differe();
  suite_.stop();
  std::optional<bool> bouton;
  {
    // Also when memory runs out on the way: a picture that drew for ever would never be drawn again.
    const QScopedValueRollback<bool> pendant(enCours_, true);
    Peint();
    if (dessine_) {
      update();
      const Passe passe;
      bouton = PrendInstantane().bouton;
    }
  }
  if (bouton) Q_EMIT Instantane(*bouton);
}

void ImagePB1::Montre() {
  if (enCours_ || !isVisible()) return;
  Peint();
  // The legend names what is there.
  if (TraceDecale.empty()) decalage_->hide();
  update();
}

void ImagePB1::Peint() {
  const OptionsScene options = Options();
  Respiration souffle;
  ConstruitScene(Doc, Vue, Taille(), options, scene_);
  if (enCours_) souffle.Laisse();  // the window lives on between the two halves; never from a paint event
  const double echelle = devicePixelRatioF();
  const QSize pixels = (QSizeF(size()) * echelle).toSize().expandedTo(QSize(1, 1));
  if (image_.size() != pixels) image_ = QImage(pixels, QImage::Format_RGB32);
  image_.setDevicePixelRatio(echelle);
  const Palette couleurs = ConstruitPalette(Regl, ThemeDe(*this));
  image_.fill(EnCouleur(couleurs.papier));
  croix_.Vide();
  dessine_ = !scene_.Primitives.empty();
  if (dessine_) {
    QPainter peintre(&image_);
    peintre.setFont(font());
    PeintScene(peintre, scene_, couleurs);
  }
  calque_ = {};  // another view
  PlaceLegende(options, couleurs);
  MontreOutil();
  MontreSurvol();
}

void ImagePB1::MontreSurvol() {
  survole_.Vide();
  if (Regl.DessinSobre && survol_.Code() != Code2{}) {
    AjouteSurvol(Doc, survol_.Code(), Vue, Taille(), Options(), survole_);
  }
  update();
}

void ImagePB1::PlaceLegende(const OptionsScene& options, const Palette& couleurs) {
  QColor voile = EnCouleur(couleurs.papier);
  voile.setAlpha(ProfondeurVoile);
  int coin = 0;
  int haut = 0;
  const auto place = [&](QLabel& label, const std::string& texte, Role role) {
    QPalette palette = label.palette();
    palette.setColor(QPalette::WindowText, EnCouleur(couleurs[role].couleurTexte));
    palette.setColor(QPalette::Window, voile);
    if (palette != label.palette()) label.setPalette(palette);
    label.setText(QString::fromStdString(texte));
    label.adjustSize();
    if (haut == 0) haut = coin = std::max(1, static_cast<int>(std::lround(label.height() / 10.0)));
    label.move(coin, haut);
    haut += label.height();
    label.setVisible(dessine_);
  };
  place(*dessin_, options.legendeDessin, Role::LegendeDessin);
  place(*decalage_, options.legendeDecalage, Role::LegendeTrajet);
}

void ImagePB1::Croix(const PointTrace& point) {
  croix_.Vide();
  TraceCroix(Vue, Taille(), point, croix_);
  update();
}

void ImagePB1::PositionOutil(float x, float y) {
  if (!Dessin_Position_Outil(Vue, Taille(), MesureDe(font()), Cycle.Outil, x, y, outil_)) return;
  if (!Cycle.AfficheOutil) outil_.Vide();
  update();
}

// The mark in another view; the line from the position before belongs to the movement and goes.
void ImagePB1::MontreOutil() {
  outil_.Vide();
  if (!Cycle.AfficheOutil || Cycle.Outil == MemoireOutil{}) return;
  MarqueOutil(Vue, Taille(), MesureDe(font()), MemoireOutil{}, Cycle.Outil.X, Cycle.Outil.Y, outil_);
}

void ImagePB1::AjouteRun(float x0, float y0, float x1, float y1) { run_.push_back({x0, y0, x1, y1}); }

void ImagePB1::EffaceRun() {
  run_.clear();
  runPeint_ = 0;
  calque_ = {};
  update();
}

// Only what has come since the last painting is drawn; the view of before is kept as a picture.
void ImagePB1::PeintRun(QPainter& peintre) {
  if (run_.empty()) return;
  if (calque_.size() != image_.size()) {
    calque_ = QImage(image_.size(), QImage::Format_ARGB32_Premultiplied);
    calque_.setDevicePixelRatio(image_.devicePixelRatio());
    calque_.fill(Qt::transparent);
    runPeint_ = 0;
  }
  if (runPeint_ < run_.size()) {
    Scene lignes;
    const float hauteur = Taille().hauteur;
    const auto ecran = [hauteur](float x, float y) {
      const PointTrace p = VersEcran(Vue, hauteur, {x, y, CodePD, CodeAucun});
      return PointEcran{p.X, p.Y};
    };
    for (; runPeint_ < run_.size(); ++runPeint_) {
      const auto& [x0, y0, x1, y1] = run_[runPeint_];
      lignes.AjouteSegment(Role::Outil, ecran(x0, y0), ecran(x1, y1));
    }
    QPainter dans(&calque_);
    PeintScene(dans, lignes, ConstruitPalette(Regl, ThemeDe(*this)));
  }
  peintre.drawImage(QPoint(0, 0), calque_);
}

// --- painting --------------------------------------------------------------------------------------------------

QRect ImagePB1::RectBande() const {
  float x0 = 0, y0 = 0, x1 = 0, y1 = 0;
  if (!BandeSouris(x0, y0, x1, y1)) return {};
  const auto pixel = [](float twips) { return static_cast<int>(std::lround(twips / TwipsParPixel)); };
  return QRect(QPoint(pixel(std::min(x0, x1)), pixel(std::min(y0, y1))),
               QPoint(pixel(std::max(x0, x1)), pixel(std::max(y0, y1))));
}

void ImagePB1::PeintDessus(QPainter& peintre) const {
  peintre.setFont(font());
  for (const Scene* dessus : {&survole_, &croix_, &outil_}) {
    if (!dessus->Primitives.empty()) PeintScene(peintre, *dessus, ConstruitPalette(Regl, ThemeDe(*this)));
  }
  if (dessine_) prise_.Peint(peintre, Taille(), Options(), ConstruitPalette(Regl, ThemeDe(*this)));
  if (const QRect bande = RectBande(); !bande.isNull()) {
    const QColor couleur = palette().color(QPalette::Highlight);
    QColor voile = couleur;
    voile.setAlpha(40);
    peintre.setPen(QPen(couleur, 1, Qt::DashLine));
    peintre.setBrush(voile);
    peintre.drawRect(bande);
  }
}

void ImagePB1::paintEvent(QPaintEvent* e) {
  if (image_.isNull() || image_.devicePixelRatio() != devicePixelRatioF()) Peint();
  QPainter peintre(this);
  const QRect dedans(QPoint(0, 0), image_.deviceIndependentSize().toSize());
  if (!dedans.contains(e->rect())) peintre.fillRect(e->rect(), Papier(*this));
  peintre.drawImage(QPoint(0, 0), image_);
  PeintRun(peintre);
  PeintDessus(peintre);
  if (clavier_ && hasFocus()) {
    peintre.setPen(palette().color(QPalette::Highlight));
    peintre.setBrush(Qt::NoBrush);
    peintre.drawRect(rect().adjusted(0, 0, -1, -1));
  }
}

QImage ImagePB1::Image() const {
  QImage image = image_;
  if (image.isNull()) return image;
  QPainter peintre(&image);
  PeintDessus(peintre);
  for (QLabel* label : {dessin_, decalage_}) {
    if (!label->isHidden()) peintre.drawPixmap(label->pos(), label->grab());
  }
  return image;
}

// --- size and look ---------------------------------------------------------------------------------------------

void ImagePB1::resizeEvent(QResizeEvent* e) {
  QWidget::resizeEvent(e);
  taille_.start();
}

void ImagePB1::showEvent(QShowEvent* e) {
  QWidget::showEvent(e);
  // From the event loop: a Dessin lets events run for its snapshot, which the showing of a window doesn't bear.
  QTimer::singleShot(0, this, [this] {
    if (size() != misEnPage_) MetEnPage();
  });
}

void ImagePB1::MetEnPage() {
  taille_.stop();
  if (retenue_) return;
  if (PasseEnCours() || enCours_) {
    taille_.start();
    return;
  }
  misEnPage_ = size();
  const bool demande = std::exchange(demande_, false);
  if (MetEnPageVue(Taille()) || demande) {
    Dessin();
  } else {
    Peint();
  }
  Q_EMIT MisEnPage();
}

void ImagePB1::changeEvent(QEvent* e) {
  QWidget::changeEvent(e);
  const auto sorte = e->type();
  if (sorte != QEvent::PaletteChange && sorte != QEvent::StyleChange && sorte != QEvent::FontChange) return;
  if (!image_.isNull() && !retenue_) Peint();
}

// --- mouse -----------------------------------------------------------------------------------------------------

void ImagePB1::SuitOutils() {
  switch (CurseurSouris()) {
    case Curseur::Defaut:
      return unsetCursor();
    case Curseur::CiblePetit:
      static const QCursor Cible = CiblePetit();
      return setCursor(Cible);
    case Curseur::Rectangle:
      return setCursor(Qt::CrossCursor);
    case Curseur::Main:
      return setCursor(Qt::ClosedHandCursor);
  }
}

void ImagePB1::Acheve() {
  suite_.stop();
  Dessin();
}

// Does what a mouse event has left for the picture, and tells the window the rest.
void ImagePB1::Conclut(const SuiteSouris& suite, bool attend) {
  if (suite.outils) SuitOutils();
  if (suite.prise) update();
  if (suite.bande) {
    const QRect neuve = RectBande();
    update(bande_.united(neuve).adjusted(-2, -2, 2, 2));
    bande_ = neuve;
  }
  if (suite.redessine) {
    if (attend) {
      if (!suite_.isActive()) suite_.start(0);
    } else {
      Dessin();
    }
  }
  Q_EMIT Suite(suite);
}

void ImagePB1::mousePressEvent(QMouseEvent* e) {
  survol_.Quitte();
  if (suite_.isActive()) Acheve();
  Conclut(PB1_MouseDown(EnEvenement(e->button(), e->modifiers(), e->position()), Taille()), false);
}

// The second press of a double click is a click like the first. With the attachment tool it would put a second mark
// in the place of the first, so it does nothing.
void ImagePB1::mouseDoubleClickEvent(QMouseEvent* e) {
  if (!Souris.mnu_Lever) mousePressEvent(e);
}

void ImagePB1::mouseMoveEvent(QMouseEvent* e) {
  if (e->buttons() == Qt::NoButton && Regl.DessinSobre && !Souris.mnu_ZoomSelection) {
    survol_.Va({Twips(e->position().x()), Twips(e->position().y())}, Taille().hauteur);
  }
  Conclut(PB1_MouseMove(EnEvenement(e->buttons(), e->modifiers(), e->position()), Taille()), true);
}

void ImagePB1::mouseReleaseEvent(QMouseEvent* e) {
  const SuiteSouris suite = PB1_MouseUp(EnEvenement(e->button(), e->modifiers(), e->position()), Taille());
  if (suite_.isActive()) Acheve();
  if (suite.redessine || suite.initSeq || suite.bande || suite.outils || suite.menu || suite.prise)
    Conclut(suite, false);
}

void ImagePB1::wheelEvent(QWheelEvent* e) {
  e->accept();
  if (TraceInitial.empty()) return;
  double crans = e->angleDelta().y() / CranMolette;
  if (e->angleDelta().isNull()) crans = e->pixelDelta().y() / PixelsParCran;
  const auto x = Twips(e->position().x());
  const auto y = Twips(e->position().y());
  if (!MoletteVue(Taille(), x, y, crans)) return;
  SuiteSouris suite;
  suite.redessine = true;
  Conclut(suite, true);
}

// The key of menus; the mouse asks by a release of button 2 without a movement.
void ImagePB1::contextMenuEvent(QContextMenuEvent* e) {
  e->accept();
  if (e->reason() != QContextMenuEvent::Keyboard || TraceInitial.empty()) return;
  SuiteSouris suite;
  suite.menu = true;
  Q_EMIT Suite(suite);
}

void ImagePB1::enterEvent(QEnterEvent* e) {
  QWidget::enterEvent(e);
  SuitOutils();
}

void ImagePB1::leaveEvent(QEvent* e) {
  QWidget::leaveEvent(e);
  survol_.Quitte();
}

void ImagePB1::focusInEvent(QFocusEvent* e) {
  clavier_ = e->reason() == Qt::TabFocusReason || e->reason() == Qt::BacktabFocusReason;
  QWidget::focusInEvent(e);
}

bool ImagePB1::event(QEvent* e) {
  if (e->type() != QEvent::ToolTip) return QWidget::event(e);
  const QString bulle = QString::fromStdString(BulleSouris());
  if (bulle.isEmpty()) {
    QToolTip::hideText();
    e->ignore();
  } else {
    QToolTip::showText(static_cast<QHelpEvent*>(e)->globalPos(), bulle, this);
  }
  return true;
}

}  // namespace ovelin
