#include "workspace/ui/BarreEtat.h"

#include <QEvent>
#include <algorithm>

#include "base/Indices.h"
#include "core/Textes.h"
#include "core/ui/Theme.h"
#include "core/ui/TraduitFenetre.h"
#include "workspace/ui/FeuilleLecture.h"

namespace ovelin {

namespace {

constexpr int Images = 4;
constexpr int PeriodeImage = 150;   // ms
constexpr int CoteImage = 16;       // logical pixels
constexpr int MargeBouton = 16;     // around the text of a button
constexpr int MargeParole = 12;     // pixels
constexpr int EcartesAuMoins = 80;  // pixels of what was left out, that can be clicked
constexpr int PanneauSur = 160;     // pixels that the text of a panel surely has, if it needs them

}  // namespace

BarreEtat::BarreEtat(QWidget* parent) : QStatusBar(parent), stop_(new BoutonStop(this)), filtre_(*stop_) {
  setObjectName(QStringLiteral("SB1"));
  setSizeGripEnabled(true);
  setContentsMargins(6, 0, 0, 0);
  textes_ = {Etiquette("SB1_1", 0), Etiquette("SB1_2", 0), Etiquette("SB1_5", 0)};
  addWidget(textes_[0], 3);
  addWidget(textes_[1], 2);
  addWidget(textes_[2], 3);
  for (QLabel* panneau : textes_) Ecrit(*panneau, {});
  parole_ = Etiquette("SB1_11", 0);
  parole_->setProperty("valeur", true);
  parole_->installEventFilter(this);
  addWidget(parole_, 20);  // before what was left out, which is a click away
  ecartes_ = new QToolButton(this);
  ecartes_->setObjectName(QStringLiteral("SB1_12"));
  ecartes_->setProperty("valeur", true);
  ecartes_->setAutoRaise(true);
  ecartes_->setFocusPolicy(Qt::StrongFocus);
  ecartes_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  ecartes_->setMinimumWidth(EcartesAuMoins);
  ecartes_->setVisible(false);
  ecartes_->installEventFilter(this);
  connect(ecartes_, &QToolButton::clicked, this,
          [this] { (new FeuilleLecture(details_, window()))->MontreSur(*ecartes_); });
  addWidget(ecartes_, 4);
  picture_ = Etiquette("SB1_10", CoteImage);
  addWidget(picture_);
  avancement_ = new QProgressBar(this);
  avancement_->setObjectName(QStringLiteral("PB_Avancement"));
  avancement_->setFixedWidth(140);
  avancement_->setMaximumHeight(16);
  avancement_->setVisible(false);
  addWidget(avancement_);
  for (int i = 0; i < 3; ++i) {
    positions_[base::Indice(i)] = Etiquette(i == 0 ? "SB1_6" : i == 1 ? "SB1_7" : "SB1_8", i < 2 ? 105 : 0);
    addPermanentWidget(positions_[base::Indice(i)]);
  }
  carte_ = Etiquette("SB1_9", 0);
  addPermanentWidget(carte_);
  stop_->setVisible(false);
  addPermanentWidget(stop_);
  minuterie_ = new QTimer(this);
  minuterie_->setObjectName(QStringLiteral("Timer_Decalage"));
  minuterie_->setInterval(PeriodeImage);
  connect(minuterie_, &QTimer::timeout, this, &BarreEtat::Timer_Decalage_Timer);
  Etaie();
}

// What comes and goes in the bar must not change its height: the picture above it would be laid out anew, and each
// layout is a step of undo.
void BarreEtat::Etaie() {
  carte_->setMinimumHeight(std::max({CoteImage, fontMetrics().height(), ecartes_->sizeHint().height()}));
}

QLabel* BarreEtat::Etiquette(const char* nom, int largeur) {
  auto* etiquette = new QLabel(this);
  etiquette->setObjectName(QString::fromLatin1(nom));
  etiquette->setTextFormat(Qt::PlainText);
  etiquette->setMinimumWidth(largeur);
  if (largeur == 0) etiquette->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  return etiquette;
}

void BarreEtat::Panneau(PanneauEtat panneau, const std::string& texte) {
  const std::size_t place = panneau == PanneauEtat::Fichier ? 0 : panneau == PanneauEtat::Points ? 1 : 2;
  const QString t = QString::fromStdString(texte).trimmed();
  Ecrit(*textes_[place], t);
  if (place == 0) NommeUneFois();
}

// A panel takes no more room than its text needs, an empty one none: the rest is for the words behind them.
void BarreEtat::Ecrit(QLabel& panneau, const QString& texte) {
  panneau.setText(texte);
  panneau.setToolTip(texte);
  const int largeur = texte.isEmpty() ? 0 : panneau.sizeHint().width();
  panneau.setMinimumWidth(std::min(largeur, PanneauSur));
  panneau.setMaximumWidth(largeur);
}

// The words begin with the name of the drawing: the panel beside them need not tell it, too.
void BarreEtat::NommeUneFois() {
  const QString nom = textes_[0]->text();
  const QString derriere = parlee_.mid(nom.size());
  const bool dit = parlee_.startsWith(nom) && (derriere.isEmpty() || derriere[0] == QLatin1Char('*') ||
                                               derriere.startsWith(QLatin1String("   ")));
  textes_[0]->setVisible(!nom.isEmpty() && !dit);
}

void BarreEtat::Positions(const std::array<std::string, 3>& textes) {
  for (std::size_t i = 0; i < textes.size(); ++i) positions_[i]->setText(QString::fromStdString(textes[i]));
}

void BarreEtat::Carte(const QString& texte, const QString& bulle) {
  carte_->setText(texte);
  carte_->setToolTip(bulle);
  carte_->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
}

void BarreEtat::Parle(const std::string& texte) {
  const QString t = QString::fromStdString(texte);
  if (t == parlee_) return;
  parlee_ = t;
  NommeUneFois();
  parole_->setToolTip(t);
  // What it doesn't need is for what was left out.
  parole_->setMaximumWidth(parole_->fontMetrics().horizontalAdvance(t) + MargeParole);
  Coupe();
}

void BarreEtat::Coupe() {
  parole_->setText(parole_->fontMetrics().elidedText(parlee_, Qt::ElideRight, parole_->width()));
}

void BarreEtat::Ecarte(const std::string& phrase, const std::string& details) {
  ecartee_ = QString::fromStdString(phrase);
  details_ = QString::fromStdString(details);
  ecartes_->setVisible(!ecartee_.isEmpty());
  if (ecartee_.isEmpty()) return;
  Ecrit(*textes_[2], {});
  const QString bulle = TexteQt(Textes::BulleLecture);
  ecartes_->setToolTip(bulle + QLatin1Char('\n') + ecartee_);
  ecartes_->setAccessibleName(ecartee_);
  ecartes_->setAccessibleDescription(bulle);
  // Whole pixels may fall short of the text by one.
  ecartes_->setMaximumWidth(ecartes_->fontMetrics().horizontalAdvance(ecartee_) + MargeBouton + 2);
  CoupeEcarte();
}

void BarreEtat::CoupeEcarte() {
  ecartes_->setText(ecartes_->fontMetrics().elidedText(ecartee_, Qt::ElideRight, ecartes_->width() - MargeBouton));
}

bool BarreEtat::eventFilter(QObject* objet, QEvent* e) {
  if (objet == parole_ && e->type() == QEvent::Resize) Coupe();
  if (objet == ecartes_ && e->type() == QEvent::Resize) CoupeEcarte();
  return QStatusBar::eventFilter(objet, e);
}

void BarreEtat::SB_Avancement(const std::string& texte, long total) {
  Panneau(PanneauEtat::Points, texte);
  fait_ = 0;
  avancement_->setRange(0, static_cast<int>(std::clamp(total, 0L, 1'000'000'000L)));
  avancement_->setValue(0);
  avancement_->setVisible(true);
  picture_->setPixmap(IconeProgramme(QStringLiteral("picStanding")).pixmap(CoteImage, CoteImage));
  minuterie_->start();
}

void BarreEtat::SB_AvancementPlus() {
  ++fait_;
  // A bar of a few hundred pixels doesn't need every step of many thousands.
  const int maximum = avancement_->maximum();
  const long pas = std::max(1, maximum / 200);
  if (fait_ % pas == 0 || fait_ >= maximum) {
    avancement_->setValue(static_cast<int>(std::min<long>(fait_, maximum)));
  }
}

void BarreEtat::SB_AvancementFin() {
  minuterie_->stop();
  avancement_->setVisible(false);
  picture_->clear();
  Panneau(PanneauEtat::Points, "");
}

void BarreEtat::Timer_Decalage_Timer() {
  image_ = (image_ + 1) % Images;
  picture_->setPixmap(IconeProgramme(QStringLiteral("decalage_%1").arg(image_)).pixmap(CoteImage, CoteImage));
}

}  // namespace ovelin
