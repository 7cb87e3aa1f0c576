#include "run/ui/F_Fraisage.h"

#include <QGuiApplication>
#include <QPointer>
#include <QProgressBar>
#include <QScreen>
#include <QStackedWidget>
#include <QTimer>

#include "core/Fichiers.h"
#include "core/Nombres.h"
#include "core/PlanCourant.h"
#include "core/ReglagesCourants.h"
#include "core/Textes.h"
#include "core/ui/Fabrique.h"
#include "core/ui/Fenetres.h"
#include "core/ui/ServicesQt.h"
#include "core/ui/TraduitFenetre.h"
#include "run/ui/PanneauPlan.h"

namespace ovelin {

namespace {

constexpr const char* Section = "F_Fraisage";
constexpr int PeriodeSuivi = 50;  // ms between two looks at the writing
constexpr int PasBarre = 1000;

QLineEdit* Total(const char* nom, const char* bulle, QWidget* parent) {
  auto* champ = Nomme(new QLineEdit(parent), nom, bulle);
  MontreSeulement(*champ);
  champ->setAlignment(Qt::AlignRight);
  champ->setMaximumWidth(120);
  return champ;
}

QGroupBox* Cadre(const char* nom, const char* titre, QLayout* contenu, QWidget* parent) {
  QGroupBox* cadre = Groupe(nom, titre, parent);
  contenu->setContentsMargins(8, 6, 8, 8);
  cadre->setLayout(contenu);
  return cadre;
}

}  // namespace

F_Fraisage::F_Fraisage(QWidget* parent) : QDialog(parent) {
  setModal(true);
  ChargeFraisage();
  Construit();
  PrepareFenetre(*this, Section);
  TB_Vit_Mat_H_->Montre(TexteNombre(Vitesse_Mat_H));
  TB_Vit_Mat_V_->Montre(TexteNombre(Vitesse_Mat_V));
  Planifie();
  RetablitPlace();
  Btn_Gener_GCODE_->setFocus();
}

void F_Fraisage::Construit() {
  setWindowTitle(QStringLiteral("Fraisage"));
  suivi_ = new QTimer(this);
  suivi_->setInterval(PeriodeSuivi);
  connect(suivi_, &QTimer::timeout, this, &F_Fraisage::MontreAvancement);

  QVBoxLayout* boite = ColonneFenetre(*this);
  boite->addWidget(Cadre("Frame_Vitesses", "Vitesses", ConstruitVitesses(), this));
  plan_ = new PanneauPlan(this);
  boite->addWidget(plan_);
  boite->addWidget(Cadre("Frame_GCODE", "Fichier GCODE", ConstruitFichier(), this));
  boite->addStretch();

  Btn_Fermer_ = Bouton("Btn_Fermer", "Fermer", "Fermer la fenêtre", this);
  Btn_Fermer_->setAutoDefault(false);
  connect(Btn_Fermer_, &QPushButton::clicked, this, &F_Fraisage::reject);
  boite->addLayout(RangeeBoutons({Btn_Fermer_}));

  OrdreTab({TB_Vit_Mat_H_, CB_VitMat_[0], CB_VitMat_[1], CB_VitMat_[2], CB_VitMat_[3], TB_Vit_Mat_V_,
            TB_LongueurParcours_NC_, TB_TempsFraisage_NC_, Btn_Gener_GCODE_, Btn_Fermer_});
}

QLayout* F_Fraisage::ConstruitVitesses() {
  TB_Vit_Mat_H_ = Champ("TB_Vit_Mat_H", "mm/s", "Avance de l'outil dans la matière", this);
  TB_Vit_Mat_V_ = Champ("TB_Vit_Mat_V", "mm/s", "Vitesse de l'outil quand il descend dans la matière", this);
  auto* pas = new QHBoxLayout;
  pas->setSpacing(2);
  static constexpr std::array<const char*, 4> Textes{"-1", "-0,1", "+0,1", "+1"};
  for (int index = 1; index <= 4; ++index) {
    const auto i = static_cast<std::size_t>(index) - 1;
    auto* bouton = new QToolButton(this);
    bouton->setObjectName(QStringLiteral("CB_VitMat_%1").arg(index));
    QString texte = QString::fromLatin1(Textes[i]);
    if (Svc.MarqueDecimale == '.') texte.replace(QLatin1Char(','), QLatin1Char('.'));
    bouton->setText(texte);
    bouton->setFocusPolicy(Qt::StrongFocus);
    bouton->setToolTip(TexteQt(Textes::NomPasVitesse) + QLatin1Char(' ') + texte + QStringLiteral(" mm/s"));
    bouton->setAccessibleName(TexteQt(Textes::NomPasVitesse) + QLatin1Char(' ') + texte);
    bouton->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
    connect(bouton, &QToolButton::clicked, this, [this, index] { Pas(index); });
    CB_VitMat_[i] = bouton;
    pas->addWidget(bouton);
  }
  QGridLayout* grille = GrilleFenetre();
  grille->addWidget(Etiquette("Lbl_Vit_Mat_H", "Vitesse &matière :", TB_Vit_Mat_H_), 0, 0);
  grille->addWidget(TB_Vit_Mat_H_, 0, 1);
  grille->addLayout(pas, 0, 2);
  grille->addWidget(Etiquette("Lbl_Vit_Mat_V", "Vitesse &descente :", TB_Vit_Mat_V_), 1, 0);
  grille->addWidget(TB_Vit_Mat_V_, 1, 1);
  grille->setColumnStretch(1, 1);
  connect(TB_Vit_Mat_H_, &ChampNombre::Quitte, this, [this](bool c) { VitesseQuitte(*TB_Vit_Mat_H_, c); });
  connect(TB_Vit_Mat_V_, &ChampNombre::Quitte, this, [this](bool c) { VitesseQuitte(*TB_Vit_Mat_V_, c); });
  return grille;
}

QLayout* F_Fraisage::ConstruitFichier() {
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

  Btn_Gener_GCODE_ =
      Bouton("Btn_Gener_GCODE", "&Générer le fichier GCODE", "Planifier le dessin et écrire le fichier .nc", this);
  Btn_Gener_GCODE_->setIconSize({24, 24});
  Btn_Gener_GCODE_->setDefault(true);
  Btn_Gener_GCODE_->setMinimumHeight(38);
  QFont gras = Btn_Gener_GCODE_->font();
  gras.setBold(true);
  Btn_Gener_GCODE_->setFont(gras);
  connect(Btn_Gener_GCODE_, &QPushButton::clicked, this, &F_Fraisage::Btn_Gener_GCODE_Click);

  QGridLayout* grille = GrilleFenetre();
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
  return grille;
}

// The window comes back where it was, as far as a screen shows that place.
void F_Fraisage::RetablitPlace() {
  const auto place = LitPlaceFraisage();
  if (!place) return;
  const QPoint coin(place->first, place->second);
  const QScreen* ecran = QGuiApplication::screenAt(coin);
  if (ecran == nullptr) return;
  const QRect libre = ecran->availableGeometry();
  const QSize taille = sizeHint();
  move(std::max(libre.left(), std::min(coin.x(), libre.right() - taille.width())),
       std::max(libre.top(), std::min(coin.y(), libre.bottom() - taille.height())));
}

void F_Fraisage::VitesseQuitte(ChampNombre& champ, bool change) {
  if (!change) return;
  const bool h = &champ == TB_Vit_Mat_H_;
  const auto refus = h ? EntreVit_Mat_H(champ.Texte()) : EntreVit_Mat_V(champ.Texte());
  if (refus) {
    champ.Refuse(TexteQt(*refus));
    return;
  }
  champ.Accepte();
  champ.Montre(TexteNombre(h ? Vitesse_Mat_H : Vitesse_Mat_V));
  Planifie();
}

void F_Fraisage::Pas(int index) {
  const std::string texte = PasVit_Mat_H(TB_Vit_Mat_H_->Texte(), index);
  TB_Vit_Mat_H_->Accepte();
  TB_Vit_Mat_H_->Montre(texte);
  EntreVit_Mat_H(texte);
  Planifie();
}

void F_Fraisage::Planifie() {
  QGuiApplication::setOverrideCursor(Qt::WaitCursor);
  resume_ = PlanifiePourFenetre();
  QGuiApplication::restoreOverrideCursor();
  plan_->Montre(resume_);
  MontreTotaux(resume_.figures.longueur, resume_.figures.temps);
  Lbl_Resultat_->clear();
}

void F_Fraisage::MontreTotaux(double longueur, double temps) {
  TB_LongueurParcours_NC_->setText(QString::fromStdString(Formate(longueur, "####0.0")));
  TB_TempsFraisage_NC_->setText(QString::fromStdString(Formate(temps, "####0.0")));
  Lbl_Duree_->setText(QString::fromStdString(TexteDuree(temps)));
}

void F_Fraisage::MontreAvancement() {
  if (!ecrit_) return;
  MontreTotaux(ecriture_.LongueurNC, ecriture_.TempsNC);
  const double total = std::max(1.0, static_cast<double>(NbDeplacements) - 1);
  ProgressBar_NC_->setValue(static_cast<int>(PasBarre * static_cast<double>(ecriture_.deplacements) / total));
}

void F_Fraisage::Libre(bool libre) {
  ecrit_ = !libre;
  for (QWidget* w : {static_cast<QWidget*>(TB_Vit_Mat_H_), static_cast<QWidget*>(TB_Vit_Mat_V_),
                     static_cast<QWidget*>(Btn_Gener_GCODE_), static_cast<QWidget*>(Btn_Fermer_)}) {
    w->setEnabled(libre);
  }
  for (QToolButton* bouton : CB_VitMat_) bouton->setEnabled(libre);
  bas_->setCurrentWidget(libre ? static_cast<QWidget*>(Lbl_Resultat_) : ProgressBar_NC_);
  if (libre) {
    suivi_->stop();
  } else {
    ProgressBar_NC_->setValue(0);
    suivi_->start();
  }
}

void F_Fraisage::Btn_Gener_GCODE_Click() {
  if (ecrit_) return;
  const Passe passe;
  Lbl_Resultat_->clear();
  Libre(false);
  const bool ecrite = GenereGCode(TB_Vit_Mat_H_->Texte(), TB_Vit_Mat_V_->Texte(), ecriture_);
  Libre(true);
  Btn_Gener_GCODE_->setFocus();
  if (!ecrite) {
    MontreTotaux(resume_.figures.longueur, resume_.figures.temps);
    return;
  }
  MontreTotaux(ecriture_.LongueurNC, ecriture_.TempsNC);
  Lbl_Resultat_->setText(TexteQt(Textes::FichierEcrit) + QLatin1Char(' ') +
                         QString::fromStdString(NomDe(NomFichierNC)));
  Lbl_Resultat_->setToolTip(QString::fromStdString(NomFichierNC));
}

void F_Fraisage::done(int resultat) {
  if (ecrit_) {  // the file is finished first
    Apres([moi = QPointer<F_Fraisage>(this), resultat] {
      if (moi != nullptr) moi->done(resultat);
    });
    return;
  }
  FermeFraisage(x(), y());
  QDialog::done(resultat);
}

}  // namespace ovelin
