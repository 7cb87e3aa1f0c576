#include "manual/ui/F_PilMan.h"

#include <QDBusConnection>
#include <QGuiApplication>
#include <QListWidget>
#include <QScreen>
#include <QStackedWidget>
#include <QTextEdit>
#include <algorithm>
#include <cmath>
#include <utility>

#include "controller/ChoixCarte.h"
#include "core/Nombres.h"
#include "core/ReglagesCourants.h"
#include "core/Textes.h"
#include "core/ui/ChampNombre.h"
#include "core/ui/Fabrique.h"
#include "core/ui/Fenetres.h"
#include "core/ui/Pointeur.h"
#include "core/ui/ServicesQt.h"
#include "core/ui/Theme.h"
#include "core/ui/TraduitFenetre.h"
#include "core/ui/VerrouEcran.h"
#include "manual/Module_PlaceMan.h"
#include "manual/NoyauJog.h"
#include "manual/Touches.h"
#include "manual/ui/ImageClavier.h"
#include "manual/ui/TouchesQt.h"

namespace ovelin {

namespace {

constexpr const char* Section = "F_PilMan";
constexpr int TwipsParPixel = 15;
constexpr int HauteurReduite = 2900 / TwipsParPixel, HauteurPleine = 7800 / TwipsParPixel;
constexpr int Largeur = 470;
constexpr int IntervalleMin = 25;  // ms
constexpr int SautPointeur = 3;    // pixels
constexpr int Rouge = 255, Vert = 65'280;

// What a control wears to be told from its neighbours, readable on its ground; not again what it wears already.
void Colore(QWidget& w, const char* genre, bool marque, int couleur, QPalette::ColorRole fond) {
  const QColor lisible = TexteLisible(EnCouleur(couleur), w.palette().color(fond));
  const QString style =
      marque
          ? QStringLiteral("%1 { color: %2; font-weight: bold; }").arg(QString::fromLatin1(genre), lisible.name())
          : QString();
  if (w.styleSheet() != style) w.setStyleSheet(style);
}

void Colore(QPushButton& bouton, int couleur) { Colore(bouton, "QPushButton", true, couleur, QPalette::Button); }

// Whoever types there needs digits, arrows and signs for himself.
bool EstSaisie(const QObject& objet) {
  const auto* ligne = qobject_cast<const QLineEdit*>(&objet);
  return (ligne != nullptr && !ligne->isReadOnly()) || qobject_cast<const QListWidget*>(&objet) != nullptr;
}

AxesChoisis Coches(const QListWidget& liste) {
  const auto coche = [&](int i) { return liste.item(i)->checkState() == Qt::Checked; };
  return {coche(0), coche(1), coche(2)};
}

}  // namespace

F_PilMan::F_PilMan(QWidget* parent)
    : QDialog(parent), montreAvant_(Svc.MontrePosition), pilotageAvant_(Svc.Pilotage) {
  setModal(false);
  Construit();
  PrepareFenetre(*this, Section);
  Relie();
  MontrePage(clavier_);
  MontreBoutons();
  Lbl_Place_->hide();
  Btn_Place_->hide();
  Svc.MontrePosition = [this](double x, double y, double z) {
    MontreLieu({TextePosition(x), TextePosition(y), TextePosition(z)});
  };
  Svc.Pilotage = [this](DemandePilotage demande) { Pilote(demande); };
  verrou_ = new VerrouEcran(QDBusConnection::sessionBus(), QDBusConnection::systemBus(), this);
  connect(verrou_, &VerrouEcran::Verrouille, this, &F_PilMan::EcranVerrouille);
  qApp->installEventFilter(this);
}

F_PilMan::~F_PilMan() {
  Svc.MontrePosition = montreAvant_;
  Svc.Pilotage = pilotageAvant_;
}

void F_PilMan::Relie() {
  connect(clavier_, &ImageClavier::Appuyee, this, &F_PilMan::AppuieImage);
  connect(clavier_, &ImageClavier::Lachee, this, [this](int code) {
    if (code != touche::Majuscule && code != touche::Controle) Lache(code);
  });
  for (const int i : {0, 1}) {
    QToolButton* fleche = Img_Fleche_[static_cast<std::size_t>(i)];
    connect(fleche, &QToolButton::pressed, this, [this, i] { PresseFleche(i == 1); });
    connect(fleche, &QToolButton::released, &TimerFleche_, &QTimer::stop);
    connect(Btn_OKR_Origine_[static_cast<std::size_t>(i)], &QPushButton::clicked, this,
            [this, i] { Btn_OKR_Origine_Click(i); });
  }
  connect(Lbl_Stop_, &QPushButton::pressed, this, &F_PilMan::Lbl_Stop_Press);
  connect(Lbl_Motor_, &QPushButton::clicked, this, &F_PilMan::Lbl_Motor_Click);
  connect(Lbl_Broche_, &QPushButton::clicked, this, &F_PilMan::Lbl_Broche_Click);
  connect(Btn_Place_, &QPushButton::clicked, this, [this] {
    ConfirmePlace();
    MontreBoutons();
  });
  connect(Lbl_RAZ_, &QPushButton::clicked, this, [this] {
    if (CartePresente()) MontrePage(FrameOrigine_);
  });
  connect(Lbl_Origine_, &QPushButton::clicked, this, &F_PilMan::Lbl_Origine_Click);
  connect(Btn_OKOrigine_, &QPushButton::clicked, this, [this] {
    RendClavier();
    FixeOrigine(Coches(*List_Origine_));
    MontreBoutons();
  });
  connect(Btn_OKValeurs_, &QPushButton::clicked, this, &F_PilMan::PrendValeurs);
  for (ChampNombre* champ : TB_Valeur_) connect(champ, &ChampNombre::Entree, this, &F_PilMan::PrendValeurs);
  connect(&TimerPosition_, &QTimer::timeout, this, &F_PilMan::Interroge);
  connect(&TimerFleche_, &QTimer::timeout, this, &F_PilMan::RepeteFleche);
  connect(&TimerFlash_, &QTimer::timeout, this, [this] { Lbl_Stop_->setDown(false); });
  connect(&TimerCarre_, &QTimer::timeout, this, [this] { clavier_->Encercle(0); });
  connect(&TimerMotorOn_, &QTimer::timeout, this, [this] {
    tientMoteurs_ = false;
    MontreBoutons();
  });
  connect(&TimerLiaison_, &QTimer::timeout, this, [] { SurveilleLiaison(); });
}

void F_PilMan::Form_Load() {
  LitPilMan();
  if (!std::exchange(charge_, true)) PlaceFenetre();
  MontrePage(clavier_);
  MontreValeurs();
  MontreVitesse();
  MontrePosition(DernierePosition());
  MontreCarte();
  TimerPosition_.start(std::max(Regl.TimerInterval, IntervalleMin));
}

// At its first opening in the lower right corner of its owner, so that the drawing stays in view.
void F_PilMan::PlaceFenetre() {
  const QRect ecran = screen()->availableGeometry();
  resize(std::min(Largeur, ecran.width()), std::min(HauteurPleine, ecran.height()));
  int gauche = 0, haut = 0;
  QPoint coin;
  if (LitCoin(gauche, haut)) {
    coin = ecran.topLeft() + QPoint(gauche / TwipsParPixel, haut / TwipsParPixel);
  } else {
    const QRect proprietaire = parentWidget() != nullptr ? parentWidget()->frameGeometry() : ecran;
    coin = proprietaire.bottomRight() - QPoint(width() + 16, height() + 40);
  }
  move(std::clamp(coin.x(), ecran.left(), std::max(ecran.right() + 1 - width(), ecran.left())),
       std::clamp(coin.y(), ecran.top(), std::max(ecran.bottom() + 1 - height(), ecran.top())));
}

QSize F_PilMan::sizeHint() const { return {Largeur, HauteurPleine}; }

void F_PilMan::done(int resultat) {
  ArreteJog();
  TimerPosition_.stop();
  TimerFleche_.stop();
  TimerFlash_.stop();
  TimerCarre_.stop();
  clavier_->Encercle(0);
  Deplie();  // the place that is kept is that of the whole window
  const QPoint coin = pos() - screen()->availableGeometry().topLeft();
  if (charge_) {
    EcritCoin(coin.x() * TwipsParPixel, coin.y() * TwipsParPixel);
    FermePilMan();
  }
  QDialog::done(resultat);
}

void F_PilMan::hideEvent(QHideEvent* e) {
  ArreteJog();
  QDialog::hideEvent(e);
}

void F_PilMan::EcranVerrouille() { ArreteJog(); }

// A key that is let go elsewhere is not heard here: neither a jog nor a modifier outlives the keyboard's leaving.
void F_PilMan::changeEvent(QEvent* e) {
  if (e->type() == QEvent::ActivationChange && !isActiveWindow()) {
    ArreteJog();
    Form_KeyUp(touche::Majuscule);
    Form_KeyUp(touche::Controle);
    if (charge_) MontreVitesse();
  }
  if (e->type() == QEvent::WindowStateChange && isMinimized()) ArreteJog();
  if (e->type() == QEvent::PaletteChange && charge_) {
    MontreBoutons();
    MontreVitesse();
  }
  QDialog::changeEvent(e);
}

// --- keys

// Keys come here before whatever has the keyboard in this window, and the pointer's release from everywhere.
bool F_PilMan::eventFilter(QObject* objet, QEvent* e) {
  auto* w = qobject_cast<QWidget*>(objet);
  if (e->type() == QEvent::MouseButtonRelease) {
    clavier_->Relache();
    // Behind the release: the control that was pressed must not go away from under it.
    if (plie_ && w != nullptr && w->window() == this) QTimer::singleShot(0, this, &F_PilMan::Deplie);
    return false;
  }
  if (e->type() != QEvent::KeyPress && e->type() != QEvent::KeyRelease) return false;
  if (w == nullptr || w == this || w->window() != this) return false;
  return Touche(*objet, static_cast<QKeyEvent&>(*e));
}

void F_PilMan::keyPressEvent(QKeyEvent* e) {
  if (!Touche(*this, *e)) QDialog::keyPressEvent(e);
}

void F_PilMan::keyReleaseEvent(QKeyEvent* e) {
  if (!Touche(*this, *e)) QDialog::keyReleaseEvent(e);
}

// A repeat is neither a press nor a release.
bool F_PilMan::Touche(QObject& objet, const QKeyEvent& e) {
  const int code = CodeTouche(e);
  if (code == 0) return false;
  const bool fonction = code == touche::Echap || (code >= touche::F1 && code <= touche::F8);
  if (EstSaisie(objet) && !fonction && !PilMan.JogActif) return false;
  if (e.isAutoRepeat()) return true;
  if (e.type() == QEvent::KeyPress) {
    Deplie();
    Appuie(code, e.modifiers());
  } else {
    Lache(code);
  }
  return true;
}

void F_PilMan::Appuie(int code, Qt::KeyboardModifiers modificateurs) {
  clavier_->Encercle(code);
  TimerCarre_.start();
  SuitEffet(
      Form_KeyDown(code, (modificateurs & Qt::ShiftModifier) != 0, (modificateurs & Qt::ControlModifier) != 0));
}

void F_PilMan::Lache(int code) {
  Form_KeyUp(code);
  if (code != touche::Majuscule && code != touche::Controle) TimerFlash_.start();
  MontreVitesse();
}

// A modifier is set by one press on the picture and taken away by the next: the pointer can't hold two keys.
void F_PilMan::AppuieImage(int code) {
  const bool mise =
      (code == touche::Majuscule && PilMan.Shift != Faux) || (code == touche::Controle && PilMan.Ctrl != Faux);
  if (mise) {
    Lache(code);
  } else {
    Appuie(code, Qt::NoModifier);
  }
}

void F_PilMan::SuitEffet(EffetTouche effet) {
  switch (effet) {
    case EffetTouche::Arret:
      Lbl_Stop_->setDown(true);
      TimerFlash_.start();
      if (pages_->currentWidget() != clavier_) RendClavier();
      break;
    case EffetTouche::Aide:
      MontrePage(pages_->currentWidget() == Frame_Aide_ ? static_cast<QWidget*>(clavier_) : Frame_Aide_);
      break;
    case EffetTouche::Valeurs:
      MontreValeurs();
      MontrePage(Frame_Valeurs_);
      break;
    default:
      break;
  }
  MontreVitesse();
}

void F_PilMan::PresseFleche(bool plus) {
  PilMan.SensFleche = EnDrapeau(plus);
  RepeteFleche();
  const int saut = std::exchange(versHaut_, !versHaut_) ? SautPointeur : -SautPointeur;
  BougePointeur(saut, saut);
  TimerFleche_.start(std::max(Regl.TimerInterval, IntervalleMin));
}

void F_PilMan::RepeteFleche() { Appuie(PilMan.SensFleche != Faux ? touche::Plus : touche::Moins, Qt::NoModifier); }

// --- the machine

// Inside a pass nothing moves: its wish would come in the middle of what is being computed.
void F_PilMan::Interroge() {
  const int periode = std::max(Regl.TimerInterval, IntervalleMin);
  if (TimerPosition_.interval() != periode) TimerPosition_.setInterval(periode);
  if (PasseEnCours()) return;
  const VuePosition vue = TimerPosition();
  if (!isVisible()) return;
  if (SuitCarte()) MontreBoutons();
  MontrePosition(vue);
  MontreCarte();
}

void F_PilMan::Pilote(DemandePilotage demande) {
  if (demande == DemandePilotage::Plie) return Plie();
  SuitPilotage(demande);
  switch (demande) {
    case DemandePilotage::Reduit:
      enRun_ = true;
      return Reduit(true);
    case DemandePilotage::Retablit:
      enRun_ = false;
      for (QWidget* w : {Lbl_RAZ_, Lbl_Origine_}) w->setEnabled(true);
      return Reduit(false);
    case DemandePilotage::Plie:
      return;
    case DemandePilotage::SeTait:
      TimerPosition_.stop();
      TimerLiaison_.start();
      return;
    case DemandePilotage::Interroge:
      TimerLiaison_.stop();
      if (isVisible()) TimerPosition_.start();
      MontreBoutons();
      return;
    case DemandePilotage::SansOrigine:
      for (QWidget* w : {Lbl_RAZ_, Lbl_Origine_}) w->setEnabled(false);
      if (pages_->currentWidget() != clavier_) MontrePage(clavier_);
      return;
  }
}

// Lowered to the place and the stop while somebody else drives.
void F_PilMan::Reduit(bool reduit) {
  if (reduit == (hauteur_ != 0)) return;
  hauteur_ = reduit ? height() : 0;
  const int avant = height();
  bas_->setVisible(!reduit);
  layout()->activate();
  resize(width(), reduit ? HauteurReduite : std::max(avant, HauteurPleine));
  if (reduit || !std::exchange(plie_, false)) return;
  move(x(), std::max(y() + avant - height(), screen()->availableGeometry().top()));
}

// Its foot stays where it is, both ways: at the edge of the drawing.
void F_PilMan::Plie() {
  if (hauteur_ != 0) return;
  const int pied = y() + height();
  Reduit(true);
  plie_ = true;
  move(x(), pied - height());
}

void F_PilMan::Deplie() {
  if (plie_ && !enRun_) Reduit(false);
}

void F_PilMan::Lbl_Stop_Press() { SuitEffet(Form_KeyDown(touche::Echap, false, false)); }

void F_PilMan::Lbl_Motor_Click() {
  tientMoteurs_ = true;
  TimerMotorOn_.start(TientMoteur());
  MontreBoutons();
}

void F_PilMan::Lbl_Broche_Click() {
  BasculeBroche();
  MontreBoutons();
}

void F_PilMan::Lbl_Origine_Click() {
  if (!CartePresente()) return;
  Btn_OKR_Origine_[0]->setText(QString::fromStdString(TexteVitesseJog(static_cast<double>(PilMan.Vitesse))));
  MontrePage(FrameR_Origine_);
}

void F_PilMan::Btn_OKR_Origine_Click(int index) {
  RendClavier();
  RetourOrigine(Coches(*List_R_Origine_), index == 1);
  MontreBoutons();
  MontreVitesse();
}

void F_PilMan::PrendValeurs() {
  std::array<float, 3> valeurs{};
  for (std::size_t i = 0; i < 3; ++i) {
    const auto v = NombreDuTexte(TB_Valeur_[i]->Texte());
    if (!v || std::fabs(*v) > DistanceContinue) {
      TB_Valeur_[i]->Refuse(TexteQt(Textes::DistanceRefusee));
      TB_Valeur_[i]->setFocus(Qt::OtherFocusReason);
      return;
    }
    valeurs[i] = EnFloat(*v);
  }
  PilMan.ValeurX = valeurs[0];
  PilMan.ValeurY = valeurs[1];
  PilMan.ValeurZ = valeurs[2];
  RendClavier();
  MontreVitesse();
}

// --- what is shown

void F_PilMan::MontrePage(QWidget* page) {
  pages_->setCurrentWidget(page);
  if (page == Frame_Valeurs_) {
    TB_Valeur_[0]->setFocus(Qt::TabFocusReason);
  } else if (page == FrameOrigine_) {
    List_Origine_->setFocus(Qt::TabFocusReason);
  } else if (page == FrameR_Origine_) {
    List_R_Origine_->setFocus(Qt::TabFocusReason);
  } else if (page == clavier_) {
    clavier_->setFocus(Qt::OtherFocusReason);
  }
}

void F_PilMan::RendClavier() { MontrePage(clavier_); }

void F_PilMan::MontreVitesse() {
  const VueVitesse vue = AfficheVitesse();
  TB_Vitesse_Manuel_->setText(QString::fromStdString(vue.vitesse));
  Colore(*TB_Vitesse_Manuel_, "QLineEdit", vue.modifiee, Rouge, QPalette::Window);
  Colore(*Lbl_Vitesse_, "QLabel", vue.modifiee, Vert, QPalette::Window);
  SB_->setText(QString::fromStdString(vue.mode));
  clavier_->Enfonce(PilMan.Shift != Faux, PilMan.Ctrl != Faux);
  clavier_->Choisit(PilMan.Pas == PasValeurs ? touche::V : touche::F5 + PilMan.Pas - PasContinu);
}

void F_PilMan::MontrePosition(const VuePosition& vue) {
  bute_ = vue.enButee;
  Lbl_Palpeur_->setEnabled(vue.palpeur);
  MontreLieu(vue.lieu);
  MontreBoutons();
}

void F_PilMan::MontreLieu(const std::array<std::string, 3>& lieu) {
  for (std::size_t i = 0; i < 3; ++i) Lbl_Pos_[i]->setText(QString::fromStdString(lieu[i]));
}

void F_PilMan::MontreValeurs() {
  const auto valeurs = PilMan.Valeurs();
  for (std::size_t i = 0; i < 3; ++i) {
    TB_Valeur_[i]->Montre(TexteNombre(EnFloat(valeurs[i])));
    TB_Valeur_[i]->Accepte();
  }
}

void F_PilMan::MontreBoutons() {
  const auto montre = [](QPushButton& bouton, CleTexte texte, bool actif) {
    bouton.setText(TexteQt(texte));
    Colore(bouton, actif ? Rouge : Vert);
  };
  montre(*Lbl_Motor_, tientMoteurs_ ? Textes::MoteursTenus : Textes::MoteursLibres, tientMoteurs_);
  const bool broche = PilMan.Broche != Faux;
  montre(*Lbl_Broche_, broche ? Textes::BrocheEnMarche : Textes::BrocheArretee, broche);
  Lbl_Stop_->setText(bute_ ? QStringLiteral("END/ORIG") : QStringLiteral("STOP"));
  Lbl_Place_->setVisible(PilMan.placeDouteuse);
  Btn_Place_->setVisible(PilMan.placeDouteuse);
}

void F_PilMan::MontreCarte() { Lbl_Carte_->setText(TexteQt(NomCarte())); }

}  // namespace ovelin
