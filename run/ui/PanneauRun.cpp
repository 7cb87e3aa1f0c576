#include "run/ui/PanneauRun.h"

#include <QButtonGroup>
#include <QProgressBar>
#include <QRadioButton>
#include <algorithm>

#include "controller/ChoixCarte.h"
#include "core/Nombres.h"
#include "core/Textes.h"
#include "core/ui/Fabrique.h"
#include "core/ui/Theme.h"
#include "core/ui/TraduitFenetre.h"
#include "run/NoyauReprise.h"

namespace ovelin {

namespace {

constexpr int PeriodePic = 150;  // ms
constexpr int ImagesPic = 4;
constexpr int CotePic = 22;       // logical pixels
constexpr int PasSeconde = 1000;  // of the bar

struct Face {
  CleTexte texte, bulle;
  const char* style;  // none: the system's colour
};

// Black on bright green and white on red can be read in both themes.
constexpr const char* StyleArret =
    "QPushButton { background: #e02020; color: white; border: 2px solid white; border-radius: 4px; padding: 4px; }"
    "QPushButton:pressed { background: #a01010; }"
    "QPushButton:disabled { background: #b06060; color: #f0e0e0; }";
constexpr const char* StyleReprise =
    "QPushButton { background: #00ff00; color: black; border: 2px solid #007f00; border-radius: 4px; padding: 4px; "
    "}"
    "QPushButton:pressed { background: #00c000; }"
    "QPushButton:disabled { background: #90b890; color: #404040; }";

Face FaceDe(FaceFraisage face) {
  switch (face) {
    case FaceFraisage::Arret:
      return {Textes::FaceArret, Textes::BulleArret, StyleArret};
    case FaceFraisage::Reprise:
      return {Textes::FaceReprise, Textes::BulleReprise, StyleReprise};
    case FaceFraisage::Depart:
      break;
  }
  return {Textes::FaceDepart, Textes::BulleDepart, ""};
}

struct LigneMode {
  const char* texte;
  const char* bulle;
};
constexpr std::array<LigneMode, 3> Modes{
    {{"Direct &USB", "La carte reçoit les déplacements pendant qu'elle fraise"},
     {"&Mémorisation uniquement", "Le travail est écrit dans la mémoire de la carte ; rien ne bouge"},
     {"Mémorisation ET &fraisage", "Le travail est écrit dans la mémoire de la carte, puis fraisé de là"}}};

// Hidden or not, nothing around it moves.
void GardePlace(QWidget& w) {
  QSizePolicy regle = w.sizePolicy();
  regle.setRetainSizeWhenHidden(true);
  w.setSizePolicy(regle);
}

}  // namespace

PanneauRun::PanneauRun(QWidget* parent) : QGroupBox(QStringLiteral("Fraisage"), parent) {
  setObjectName(QStringLiteral("Frame_Fraisage"));
  Timer_Pic_.setParent(this);
  Timer_Pic_.setObjectName(QStringLiteral("Timer_Pic"));
  Timer_Pic_.setInterval(PeriodePic);
  connect(&Timer_Pic_, &QTimer::timeout, this, &PanneauRun::Timer_Pic_Timer);
  Construit();
  MontreFace(FaceFraisage::Depart, true, false);
  CacheTemps();
}

void PanneauRun::Construit() {
  Val_Carte_ = Valeur("Val_Carte", {}, this);
  auto* groupe = new QButtonGroup(this);
  for (std::size_t i = 0; i < Modes.size(); ++i) {
    Option_Mode_[i] = Nomme(new QRadioButton(QString::fromUtf8(Modes[i].texte), this),
                            QStringLiteral("Option_Mode_%1").arg(i), QString::fromUtf8(Modes[i].bulle));
    groupe->addButton(Option_Mode_[i], static_cast<int>(i));
  }
  connect(groupe, &QButtonGroup::idClicked, this, &PanneauRun::Mode);

  Btn_Fraiser_Serie_ = Nomme(new QPushButton(this), QStringLiteral("Btn_Fraiser_Serie"));
  Btn_Fraiser_Serie_->setProperty("texteLibre", true);  // its face, whatever the language was
  Btn_Fraiser_Serie_->setAutoDefault(false);
  Btn_Fraiser_Serie_->setMinimumHeight(42);
  QFont gras = Btn_Fraiser_Serie_->font();
  gras.setBold(true);
  Btn_Fraiser_Serie_->setFont(gras);
  connect(Btn_Fraiser_Serie_, &QPushButton::pressed, this, &PanneauRun::Presse);
  connect(Btn_Fraiser_Serie_, &QPushButton::clicked, this, &PanneauRun::Relache);
  Btn_Abandon_ =
      ovelin::Bouton("Btn_Abandon", "A&bandon du fraisage", "Le travail arrêté ne sera pas repris", this);
  Btn_Abandon_->setAutoDefault(false);
  GardePlace(*Btn_Abandon_);
  connect(Btn_Abandon_, &QPushButton::clicked, this, &PanneauRun::Abandonne);
  Command1_ =
      ovelin::Bouton("Command1", "&Essai Flash",
                     "Écrire le travail dans la mémoire de la carte et le lancer aussitôt, broche arrêtée", this);
  Command1_->setAutoDefault(false);
  connect(Command1_, &QPushButton::clicked, this, &PanneauRun::Essaie);

  TB_TempsRestant_ = Nomme(new QLineEdit(this), "TB_TempsRestant",
                           "Temps prévu par la carte, ou ce qu'il en reste ; grisé s'il ne vaut plus");
  MontreSeulement(*TB_TempsRestant_);
  TB_TempsRestant_->setAlignment(Qt::AlignRight);
  TB_TempsRestant_->setMaximumWidth(110);
  TB_TempsRestant_->setFocusPolicy(Qt::ClickFocus);  // nobody is led there when a button goes
  Lbl_TempsRestant_ = Etiquette("Lbl_TempsRestant", "Temps restant", TB_TempsRestant_);
  ProgressBar1_ = Nomme(new QProgressBar(this), "ProgressBar1", "Temps écoulé du fraisage");
  ProgressBar1_->setTextVisible(false);
  figure_ = Nomme(new QLabel(this), QStringLiteral("picStanding"));
  figure_->setFixedSize(CotePic, CotePic);
  for (QWidget* w : std::initializer_list<QWidget*>{TB_TempsRestant_, Lbl_TempsRestant_, ProgressBar1_, figure_}) {
    GardePlace(*w);
  }
  Lbl_Etat_ = Phrase("Lbl_Etat", "", this);
  Lbl_Etat_->setTextFormat(Qt::PlainText);
  Lbl_Etat_->setProperty("texteLibre", true);
  Lbl_Etat_->setMinimumHeight(4 * fontMetrics().height());
  Lbl_Etat_->setAlignment(Qt::AlignLeft | Qt::AlignTop);

  QGridLayout* grille = GrilleFenetre();
  grille->setContentsMargins(8, 6, 8, 8);
  setLayout(grille);
  int rang = 0;
  grille->addWidget(Etiquette("Lbl_Carte", "Carte :"), rang, 0);
  grille->addWidget(Val_Carte_, rang++, 1, 1, 2);
  for (QRadioButton* option : Option_Mode_) grille->addWidget(option, rang++, 0, 1, 3);
  grille->addWidget(Btn_Fraiser_Serie_, rang++, 0, 1, 3);
  grille->addWidget(Btn_Abandon_, rang, 0, 1, 2);
  grille->addWidget(Command1_, rang++, 2);
  grille->addWidget(Lbl_TempsRestant_, rang, 0);
  grille->addWidget(TB_TempsRestant_, rang, 1);
  grille->addWidget(figure_, rang++, 2, Qt::AlignLeft);
  grille->addWidget(ProgressBar1_, rang++, 0, 1, 3);
  grille->addWidget(Lbl_Etat_, rang, 0, 1, 3);
  grille->setColumnStretch(1, 1);
  grille->setColumnStretch(2, 1);
}

std::vector<QWidget*> PanneauRun::Controles() const {
  return {Option_Mode_[0], Option_Mode_[1], Option_Mode_[2], Btn_Fraiser_Serie_, Btn_Abandon_, Command1_};
}

// The machine stops on the press. The same press must not resume when it is let go: by then the face is another.
void PanneauRun::Presse() {
  arret_ = face_ == FaceFraisage::Arret;
  if (arret_) Q_EMIT Arrete();
}

void PanneauRun::Relache() {
  if (!arret_ && face_ != FaceFraisage::Arret) Q_EMIT Lance();
}

void PanneauRun::MontreFace(FaceFraisage face, bool permise, bool abandon) {
  face_ = face;
  const Face f = FaceDe(face);
  Btn_Fraiser_Serie_->setText(TexteQt(f.texte));
  Btn_Fraiser_Serie_->setToolTip(TexteQt(f.bulle));
  Btn_Fraiser_Serie_->setAccessibleName(TexteQt(f.texte).remove(QLatin1Char('&')));
  Btn_Fraiser_Serie_->setStyleSheet(QString::fromLatin1(f.style));
  Btn_Fraiser_Serie_->setEnabled(permise);
  Btn_Abandon_->setVisible(abandon);
  Btn_Abandon_->setEnabled(abandon);
}

void PanneauRun::Permet(bool permis) {
  for (QRadioButton* option : Option_Mode_) option->setEnabled(permis);
  Command1_->setEnabled(permis);
}

void PanneauRun::MontreEtat(const QString& texte) { Lbl_Etat_->setText(texte); }

void PanneauRun::MontreMode(int mode) { Option_Mode_[static_cast<std::size_t>(mode)]->setChecked(true); }

void PanneauRun::MontreCarte() { Val_Carte_->setText(TexteQt(NomCarte())); }

void PanneauRun::MontrePrevu(std::optional<double> secondes) {
  if (!secondes) return CacheTemps();
  gris_ = false;
  HabilleTemps();
  TB_TempsRestant_->setText(QString::fromStdString(TexteTempsRestant(*secondes)));
  TB_TempsRestant_->show();
  Lbl_TempsRestant_->show();
}

void PanneauRun::GriseTemps() {
  gris_ = true;
  HabilleTemps();
}

void PanneauRun::EcritTempsEn(const QColor& encre) {
  encre_ = encre;
  HabilleTemps();
}

// By a style alone, ground and writing together: a style takes the palette of its field along, and the ground with
// it.
void PanneauRun::HabilleTemps() {
  QString style;
  if (gris_) {
    style = QStringLiteral("background: rgb(200, 200, 200); color: black;");
  } else if (encre_.isValid()) {
    style = QStringLiteral("background: transparent; color: %1;").arg(encre_.name());
  }
  if (TB_TempsRestant_->styleSheet() != style) TB_TempsRestant_->setStyleSheet(style);
}

void PanneauRun::Debut(double total) {
  MontrePrevu(total);
  TB_TempsRestant_->setText(QStringLiteral("..."));
  ProgressBar1_->setRange(0, std::max(1, Arrondi32(total * PasSeconde)));
  ProgressBar1_->setValue(0);
  ProgressBar1_->show();
}

void PanneauRun::Avance(double reste, double ecoule) {
  TB_TempsRestant_->setText(QString::fromStdString(TexteTempsRestant(reste)));
  ProgressBar1_->setValue(std::min(ProgressBar1_->maximum(), Arrondi32(ecoule * PasSeconde)));
}

void PanneauRun::Memorise(bool ecrit) {
  figure_->setVisible(ecrit);
  if (ecrit) {
    figure_->setPixmap(IconeProgramme(QStringLiteral("picStanding")).pixmap(CotePic, CotePic));
    Timer_Pic_.start();
  } else {
    Timer_Pic_.stop();
  }
}

void PanneauRun::Timer_Pic_Timer() {
  pas_ = (pas_ + 1) % ImagesPic;
  figure_->setPixmap(IconeProgramme(QStringLiteral("picWalking_%1").arg(pas_)).pixmap(CotePic, CotePic));
}

void PanneauRun::CacheTemps() {
  for (QWidget* w : std::initializer_list<QWidget*>{TB_TempsRestant_, Lbl_TempsRestant_, ProgressBar1_, figure_}) {
    w->hide();
  }
}

}  // namespace ovelin
