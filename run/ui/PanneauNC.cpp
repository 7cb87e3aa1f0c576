#include "run/ui/PanneauNC.h"

#include <QProgressBar>
#include <QStackedWidget>
#include <QTimer>
#include <algorithm>

#include "core/Fichiers.h"
#include "core/Nombres.h"
#include "core/PlanCourant.h"
#include "core/ReglagesCourants.h"
#include "core/Textes.h"
#include "core/ui/Fabrique.h"
#include "core/ui/ServicesQt.h"
#include "core/ui/TraduitFenetre.h"

namespace ovelin {

namespace {

constexpr int PeriodeSuivi = 50;  // ms between two looks at the writing
constexpr int PasBarre = 1000;

QLineEdit* Total(const char* nom, const char* bulle, QWidget* parent) {
  auto* champ = Nomme(new QLineEdit(parent), nom, bulle);
  MontreSeulement(*champ);
  champ->setAlignment(Qt::AlignRight);
  champ->setMinimumWidth(champ->fontMetrics().horizontalAdvance(QStringLiteral("00000000.0")));
  champ->setMaximumWidth(120);
  return champ;
}

}  // namespace

PanneauNC::PanneauNC(QWidget* parent) : QGroupBox(QStringLiteral("Fichier GCODE"), parent) {
  setObjectName(QStringLiteral("Frame_GCODE"));
  suivi_ = new QTimer(this);
  suivi_->setInterval(PeriodeSuivi);
  connect(suivi_, &QTimer::timeout, this, &PanneauNC::MontreAvancement);
  TB_LongueurParcours_NC_ =
      Total("TB_LongueurParcours_NC", "Longueur du parcours, déplacements rapides compris", this);
  TB_TempsFraisage_NC_ =
      Total("TB_TempsFraisage_NC", "Temps à vitesse constante : les rampes de la machine s'y ajoutent", this);
  Lbl_Duree_ = Valeur("Lbl_Duree");
  ProgressBar_NC_ = Nomme(new QProgressBar(this), "ProgressBar_NC", "Avancement de l'écriture");
  ProgressBar_NC_->setRange(0, PasBarre);
  ProgressBar_NC_->setTextVisible(false);
  Lbl_Resultat_ = Phrase("Lbl_Resultat", "");
  Lbl_Resultat_->setTextFormat(Qt::PlainText);
  Lbl_Resultat_->setProperty("texteLibre", true);

  Btn_Gener_GCODE_ = ovelin::Bouton("Btn_Gener_GCODE", "&Générer le fichier GCODE",
                                    "Planifier le dessin et écrire le fichier .nc", this);
  Btn_Gener_GCODE_->setIconSize({24, 24});
  Btn_Gener_GCODE_->setDefault(true);
  Btn_Gener_GCODE_->setMinimumHeight(34);
  connect(Btn_Gener_GCODE_, &QPushButton::clicked, this, &PanneauNC::Btn_Gener_GCODE_Click);

  QGridLayout* grille = GrilleFenetre();
  grille->setContentsMargins(8, 6, 8, 8);
  setLayout(grille);
  grille->addWidget(Etiquette("Lbl_Longueur_NC", "Longueur parcours en mm", TB_LongueurParcours_NC_), 0, 0);
  grille->addWidget(TB_LongueurParcours_NC_, 0, 1);
  grille->addWidget(Etiquette("Lbl_Temps_NC", "Temps de fraisage en secondes", TB_TempsFraisage_NC_), 1, 0);
  grille->addWidget(TB_TempsFraisage_NC_, 1, 1);
  grille->addWidget(Lbl_Duree_, 1, 2);
  grille->setColumnStretch(2, 1);
  grille->addWidget(Btn_Gener_GCODE_, 2, 0, 1, 3);
  // one place for what goes on and for what came of it
  bas_ = new QStackedWidget(this);
  bas_->addWidget(Lbl_Resultat_);
  bas_->addWidget(ProgressBar_NC_);
  bas_->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Minimum);
  bas_->setMinimumHeight(2 * fontMetrics().height());  // nothing jumps when it comes
  grille->addWidget(bas_, 3, 0, 1, 3);
}

std::vector<QWidget*> PanneauNC::Controles() const {
  return {TB_LongueurParcours_NC_, TB_TempsFraisage_NC_, Btn_Gener_GCODE_};
}

void PanneauNC::MontrePlan(const FiguresPlan& figures) {
  figures_ = figures;
  MontreTotaux(figures.longueur, figures.temps);
  Lbl_Resultat_->clear();
}

void PanneauNC::MontreTotaux(double longueur, double temps) {
  TB_LongueurParcours_NC_->setText(QString::fromStdString(Formate(longueur, "####0.0")));
  TB_TempsFraisage_NC_->setText(QString::fromStdString(Formate(temps, "####0.0")));
  Lbl_Duree_->setText(QString::fromStdString(TexteDuree(temps)));
}

void PanneauNC::MontreAvancement() {
  if (!ecrit_) return;
  MontreTotaux(ecriture_.LongueurNC, ecriture_.TempsNC);
  const double total = std::max(1.0, static_cast<double>(NbDeplacements) - 1);
  ProgressBar_NC_->setValue(static_cast<int>(PasBarre * static_cast<double>(ecriture_.deplacements) / total));
}

void PanneauNC::Commence(bool ecrit) {
  ecrit_ = ecrit;
  bas_->setCurrentWidget(ecrit ? ProgressBar_NC_ : static_cast<QWidget*>(Lbl_Resultat_));
  if (ecrit) {
    ProgressBar_NC_->setValue(0);
    suivi_->start();
  } else {
    suivi_->stop();
  }
  Q_EMIT EcritureChange();
}

void PanneauNC::Btn_Gener_GCODE_Click() {
  if (ecrit_) return;
  const Passe passe;
  Lbl_Resultat_->clear();
  Commence(true);
  const auto [vitesseH, vitesseV] = Vitesses();
  const bool ecrite = GenereGCode(vitesseH, vitesseV, ecriture_);
  Commence(false);
  Btn_Gener_GCODE_->setFocus();
  if (!ecrite) {
    MontreTotaux(figures_.longueur, figures_.temps);
    return;
  }
  MontreTotaux(ecriture_.LongueurNC, ecriture_.TempsNC);
  Lbl_Resultat_->setText(TexteQt(Textes::FichierEcrit) + QLatin1Char(' ') +
                         QString::fromStdString(NomDe(NomFichierNC)));
  Lbl_Resultat_->setToolTip(QString::fromStdString(NomFichierNC));
}

}  // namespace ovelin
