#include "run/ui/PanneauNC.h"

#include <QComboBox>
#include <QProgressBar>
#include <QStackedWidget>
#include <QTimer>
#include <algorithm>

#include "core/Fichiers.h"
#include "core/Nombres.h"
#include "core/PlanCourant.h"
#include "core/ReglagesCourants.h"
#include "core/Textes.h"
#include "core/Traduction.h"
#include "core/ui/ChampNombre.h"
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

// A field that was left: its text goes in, or the field says why not.
void PrendChamp(ChampNombre& champ, bool change, std::optional<CleTexte> (*entre)(const std::string&),
                const double& valeur) {
  if (!change) return;
  if (const auto refus = entre(champ.Texte())) {
    champ.Refuse(TexteQt(*refus));
    return;
  }
  champ.Accepte();
  champ.Montre(TexteNombre(valeur));
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
  grille->addLayout(ConstruitDialecte(), 2, 0, 1, 3);
  grille->addWidget(Btn_Gener_GCODE_, 3, 0, 1, 3);
  // one place for what goes on and for what came of it
  bas_ = new QStackedWidget(this);
  bas_->addWidget(Lbl_Resultat_);
  bas_->addWidget(ProgressBar_NC_);
  bas_->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Minimum);
  bas_->setMinimumHeight(2 * fontMetrics().height());  // nothing jumps when it comes
  grille->addWidget(bas_, 4, 0, 1, 3);
  MontreDialectes();
}

QLayout* PanneauNC::ConstruitDialecte() {
  Combo_Dialecte_ = Liste("Combo_Dialecte", "Commande numérique pour laquelle le fichier est écrit", this);
  Combo_Dialecte_->setSizeAdjustPolicy(QComboBox::AdjustToContents);
  TB_VitesseBroche_ = Champ("TB_VitesseBroche", "1/min", "Tours par minute du mot S ; 0 : sans ce mot", this);
  TB_AttenteBroche_ =
      Champ("TB_AttenteBroche", "s", "Secondes jusqu'à ce que la broche tourne ; 0 : sans attente", this);
  Lbl_VitesseBroche_ = Etiquette("Lbl_VitesseBroche", "Vitesse de broche", TB_VitesseBroche_);
  Lbl_AttenteBroche_ = Etiquette("Lbl_AttenteBroche", "Attente de la broche", TB_AttenteBroche_);
  Lbl_ArcsAtelier_ =
      Phrase("Lbl_ArcsAtelier",
             "Ce dialecte a des arcs : l'atelier GCODE les saute et ne peut pas fraiser ce fichier.", this);
  Lbl_DialecteRefuse_ = Phrase("Lbl_DialecteRefuse", "", this);
  Lbl_DialecteRefuse_->setTextFormat(Qt::PlainText);
  Lbl_DialecteRefuse_->setProperty("texteLibre", true);
  QGridLayout* grille = GrilleFenetre();
  grille->setContentsMargins(0, 0, 0, 0);
  grille->addWidget(Etiquette("Lbl_Dialecte", "Dialecte", Combo_Dialecte_), 0, 0);
  grille->addWidget(Combo_Dialecte_, 0, 1);
  grille->addWidget(Lbl_VitesseBroche_, 1, 0);
  grille->addWidget(TB_VitesseBroche_, 1, 1);
  grille->addWidget(Lbl_AttenteBroche_, 2, 0);
  grille->addWidget(TB_AttenteBroche_, 2, 1);
  grille->addWidget(Lbl_ArcsAtelier_, 3, 0, 1, 2);
  grille->addWidget(Lbl_DialecteRefuse_, 4, 0, 1, 2);
  grille->setColumnStretch(1, 1);
  const int deuxLignes = 2 * fontMetrics().height();
  Lbl_ArcsAtelier_->setMinimumHeight(deuxLignes);
  Lbl_DialecteRefuse_->setMinimumHeight(deuxLignes);
  connect(Combo_Dialecte_, &QComboBox::activated, this, &PanneauNC::Combo_Dialecte_Click);
  connect(TB_VitesseBroche_, &ChampNombre::Quitte, this,
          [this](bool change) { PrendChamp(*TB_VitesseBroche_, change, EntreVitesseBroche, Regl.VitesseBroche); });
  connect(TB_AttenteBroche_, &ChampNombre::Quitte, this,
          [this](bool change) { PrendChamp(*TB_AttenteBroche_, change, EntreAttenteBroche, Regl.AttenteBroche); });
  return grille;
}

// A dialect of the setting that there is no longer, or whose file is refused, stands in the list by its name: what
// would be written is what is shown.
void PanneauNC::MontreDialectes() {
  offerts_ = DialectesOfferts();
  std::string refus;
  const DialecteOffert* choisi = nullptr;
  Combo_Dialecte_->clear();
  for (const DialecteOffert& offert : offerts_) {
    if (offert.refus && refus.empty()) refus = TexteRefus(offert);
    Combo_Dialecte_->addItem(QString::fromStdString(offert.dialecte.titre),
                             QString::fromStdString(offert.dialecte.nom));
    if (choisi == nullptr && Majuscules(offert.dialecte.nom) == Majuscules(Regl.DialecteNC)) {
      choisi = &offert;
      Combo_Dialecte_->setCurrentIndex(Combo_Dialecte_->count() - 1);
    }
  }
  if (choisi == nullptr) {
    const QString nom = QString::fromStdString(Regl.DialecteNC);
    Combo_Dialecte_->addItem(nom, nom);
    Combo_Dialecte_->setCurrentIndex(Combo_Dialecte_->count() - 1);
    refus = Traduire(Textes::DialecteInconnu) + " " + Regl.DialecteNC;
  }
  Lbl_DialecteRefuse_->setText(QString::fromStdString(refus));
  Lbl_DialecteRefuse_->setVisible(!refus.empty());
  if (!TB_VitesseBroche_->hasFocus()) TB_VitesseBroche_->Montre(TexteNombre(Regl.VitesseBroche));
  if (!TB_AttenteBroche_->hasFocus()) TB_AttenteBroche_->Montre(TexteNombre(Regl.AttenteBroche));
  MontreDialecte(choisi != nullptr && !choisi->refus ? &choisi->dialecte : nullptr);
}

// What belongs to another dialect than the program's own stands there with it alone.
void PanneauNC::MontreDialecte(const Dialecte* dialecte) {
  const bool autre = dialecte != nullptr && !dialecte->prescrit;
  for (QWidget* controle : std::initializer_list<QWidget*>{Lbl_VitesseBroche_, TB_VitesseBroche_,
                                                           Lbl_AttenteBroche_, TB_AttenteBroche_}) {
    controle->setVisible(autre);
  }
  Lbl_ArcsAtelier_->setVisible(autre && dialecte->arcs);
}

void PanneauNC::Combo_Dialecte_Click(int rang) {
  ChoisitDialecte(Combo_Dialecte_->itemData(rang).toString().toStdString());
  Lbl_Resultat_->clear();
  MontreDialectes();
}

std::vector<QWidget*> PanneauNC::Controles() const {
  return {TB_LongueurParcours_NC_, TB_TempsFraisage_NC_, Combo_Dialecte_,
          TB_VitesseBroche_,       TB_AttenteBroche_,    Btn_Gener_GCODE_};
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
