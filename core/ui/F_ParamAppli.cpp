#include "core/ui/F_ParamAppli.h"

#include <QListWidget>
#include <QScopedValueRollback>
#include <QSignalBlocker>
#include <QSlider>
#include <QTabWidget>
#include <algorithm>

#include "base/Indices.h"
#include "core/Cles.h"
#include "core/ClesReglages.h"
#include "core/Nombres.h"
#include "core/ReglagesCourants.h"
#include "core/Services.h"
#include "core/Textes.h"
#include "core/ui/Fabrique.h"
#include "core/ui/Fenetres.h"
#include "core/ui/Fleches.h"
#include "core/ui/LanguesPresentes.h"
#include "core/ui/PageChoixCarte.h"
#include "core/ui/Theme.h"
#include "core/ui/TraduitFenetre.h"

namespace ovelin {

namespace {

constexpr const char* Section = "F_ParamAppli";
constexpr int IntervalleMin = 25;    // ms; below, a held arrow runs away
constexpr int IntervalleMax = 1000;  // ms
constexpr int MruMax = 50;

struct CouleurReglee {
  std::int32_t Reglages::*valeur;
  const char* texte;
};
// In the order of the buttons.
constexpr std::array<CouleurReglee, 6> Couleurs{{
    {&Reglages::CouleurNumero, "N° des points"},
    {&Reglages::CouleurSequence, "Séquences"},
    {&Reglages::CouleurInitial, "Tracé initial"},
    {&Reglages::Couleurselectionne, "Sélection"},
    {&Reglages::CouleurDecalage, "Trajet de l'outil"},
    {&Reglages::CouleurEncoche, "Point d'attache"},
}};

QString Indice(const char* nom, int i) { return QString::fromLatin1(nom) + QLatin1Char('_') + QString::number(i); }

}  // namespace

F_ParamAppli::F_ParamAppli(QWidget* proprietaire) : QDialog(proprietaire), avant_(Regl) {
  setWindowTitle(QStringLiteral("Paramètres de l'application"));
  setModal(true);
  QVBoxLayout* boite = ColonneFenetre(*this);
  boite->setSpacing(6);
  SSTab1_ = Nomme(new QTabWidget, QStringLiteral("SSTab1"));
  SSTab1_->addTab(PageOptions(), QStringLiteral("Options"));
  SSTab1_->addTab(PageCouleurs(), QStringLiteral("Couleurs"));
  SSTab1_->addTab(PageLangue(), QStringLiteral("Langue"));
  carte_ = new PageChoixCarte;
  SSTab1_->addTab(carte_, QStringLiteral("Carte"));
  boite->addWidget(SSTab1_);

  const BoutonsDialogue boutons = PoseBoutons(*this, "Enregistre les options et ferme la fenêtre",
                                              "Remet les valeurs d'avant et ferme la fenêtre");
  boutons.annuler->setAutoDefault(true);
  boite->addLayout(boutons.rangee);
  connect(boutons.ok, &QPushButton::clicked, this, &F_ParamAppli::accept);

  PrepareFenetre(*this, Section);
  RemplitLangues();
  MontreValeurs();
  carte_->Montre();
  NommeCommandes();
  Relie();
  // shown with a value that the bar can take, the setting takes it too
  Regl.TimerInterval = std::max(Regl.TimerInterval, HScroll_TimerInterval_->minimum());
}

QWidget* F_ParamAppli::PageOptions() {
  auto* page = Nomme(new QWidget, "Page_Options");
  auto* grille = new QGridLayout(page);
  grille->setContentsMargins(8, 10, 8, 8);
  grille->setVerticalSpacing(10);
  CB_Confirm_Suppr_ = Coche("CB_Confirm_Suppr", "Confirmer la suppression de points",
                            "Une question est posée avant chaque suppression de points");
  grille->addWidget(CB_Confirm_Suppr_, 0, 0, 1, 3);

  HScroll_TimerInterval_ = Nomme(new QSlider(Qt::Horizontal), QStringLiteral("HScroll_TimerInterval"),
                                 QStringLiteral("Temps entre deux pas quand un bouton fléché reste enfoncé"));
  HScroll_TimerInterval_->setRange(IntervalleMin, IntervalleMax);
  HScroll_TimerInterval_->setSingleStep(5);
  HScroll_TimerInterval_->setPageStep(50);
  HScroll_TimerInterval_->setMinimumWidth(140);
  LB_TimerInterval_ = Etiquette("LB_TimerInterval", {});
  LB_TimerInterval_->setProperty("texteLibre", true);  // a value
  LB_TimerInterval_->setMinimumWidth(
      LB_TimerInterval_->fontMetrics().horizontalAdvance(QStringLiteral("00000 ms")));
  LB_TimerInterval_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  grille->addWidget(
      Etiquette("Label_TimerInterval", QStringLiteral("Répétition des flèches :"), HScroll_TimerInterval_), 1, 0);
  grille->addWidget(HScroll_TimerInterval_, 1, 1);
  grille->addWidget(LB_TimerInterval_, 1, 2);

  const QString bulle = QStringLiteral("Nombre de fichiers gardés dans le menu Fichier, de 0 à 50");
  TB_MRU_ = Champ("TB_MRU", "", bulle);
  TB_MRU_->EntierSeul();
  TB_MRU_->setMaxLength(4);
  TB_MRU_->setFixedWidth(52);
  VScroll_MRU_ = Nomme(new Fleches({}), QStringLiteral("VScroll_MRU"), bulle);
  VScroll_MRU_->setRange(0, MruMax);
  auto* rang = new QHBoxLayout;
  rang->setSpacing(0);
  rang->addWidget(TB_MRU_);
  rang->addWidget(VScroll_MRU_);
  rang->addStretch();
  grille->addWidget(Etiquette("Label_MRU", QStringLiteral("Fichiers récents :"), TB_MRU_), 2, 0);
  grille->addLayout(rang, 2, 1, 1, 2);
  grille->setColumnStretch(1, 1);
  grille->setRowStretch(3, 1);
  return page;
}

QWidget* F_ParamAppli::PageCouleurs() {
  auto* page = Nomme(new QWidget, "Page_Couleurs");
  auto* grille = new QGridLayout(page);
  grille->setContentsMargins(8, 10, 8, 8);
  for (int i = 0; i < std::ssize(Couleurs); ++i) LigneCouleur(*grille, i);
  auto* defaut = Nomme(new QPushButton(QStringLiteral("Couleurs par défaut")), QStringLiteral("Btn_Valeurs_Defaut"),
                       QStringLiteral("Remet les six couleurs de départ"));
  grille->addWidget(defaut, 6, 0, 1, 3, Qt::AlignRight);
  grille->setColumnStretch(0, 1);
  grille->setRowStretch(7, 1);
  connect(defaut, &QPushButton::clicked, this, [this] { ValeursDefaut(); });
  return page;
}

// What the colour is for, a sample of it, the button that changes it.
void F_ParamAppli::LigneCouleur(QGridLayout& grille, int i) {
  const auto rang = base::Indice(i);
  auto* bouton = Nomme(new QPushButton(QStringLiteral("Choisir...")), Indice("Btn_Couleur", i),
                       QStringLiteral("Choisit une autre couleur"));
  bouton->setAutoDefault(false);
  auto* echantillon = Nomme(new QLabel, Indice("LB_Couleur", i));
  echantillon->setFrameStyle(QFrame::Box | QFrame::Plain);
  echantillon->setMinimumSize(56, 20);
  echantillon->setAutoFillBackground(true);
  echantillon->setProperty("texteLibre", true);  // its tip is a colour
  LB_Couleur_[rang] = echantillon;
  grille.addWidget(Etiquette(Indice("Label_Couleur", i), Couleurs[rang].texte, bouton), i, 0);
  grille.addWidget(echantillon, i, 1);
  grille.addWidget(bouton, i, 2);
  connect(bouton, &QPushButton::clicked, this, [this, i] { ChangeCouleur(i); });
}

QWidget* F_ParamAppli::PageLangue() {
  auto* page = Nomme(new QWidget, "Page_Langue");
  auto* boite = new QVBoxLayout(page);
  boite->setContentsMargins(8, 10, 8, 8);
  LB_Langues_ = Nomme(new QListWidget, QStringLiteral("LB_Langues"), QStringLiteral("Langue des textes"));
  boite->addWidget(Etiquette("Label_Langues", QStringLiteral("Langue :"), LB_Langues_));
  boite->addWidget(LB_Langues_);
  boite->addWidget(Phrase("Label_LangueNote", "Les autres fenêtres changent de langue quand celle-ci se ferme."));
  return page;
}

void F_ParamAppli::Relie() {
  connect(CB_Confirm_Suppr_, &QCheckBox::toggled, this, [](bool coche) { Regl.ConfirmSuppr = coche; });
  connect(HScroll_TimerInterval_, &QSlider::valueChanged, this, [this](int ms) {
    Regl.TimerInterval = ms;
    MontreIntervalle();
  });
  connect(TB_MRU_, &ChampNombre::Quitte, this, &F_ParamAppli::QuitteMRU);
  connect(VScroll_MRU_, &Fleches::valueChanged, this, [this](int n) {
    Regl.gMaxMRU = n;
    TB_MRU_->Accepte();
    TB_MRU_->Montre(TexteNombre(long{n}));
  });
  connect(LB_Langues_, &QListWidget::itemClicked, this, [this] { ChoisitLangue(); });
  connect(LB_Langues_, &QListWidget::itemActivated, this, [this] { ChoisitLangue(); });
}

void F_ParamAppli::MontreValeurs() {
  CB_Confirm_Suppr_->setChecked(Regl.ConfirmSuppr);
  // a stored value beyond the bar's end is kept: the bar grows
  HScroll_TimerInterval_->setMaximum(std::max(IntervalleMax, static_cast<int>(Regl.TimerInterval)));
  HScroll_TimerInterval_->setValue(std::max(Regl.TimerInterval, HScroll_TimerInterval_->minimum()));
  MontreIntervalle();
  TB_MRU_->Montre(TexteNombre(long{Regl.gMaxMRU}));
  VScroll_MRU_->setValue(Regl.gMaxMRU);
  MontreCouleurs();
}

void F_ParamAppli::MontreIntervalle() {
  LB_TimerInterval_->setText(QString::number(HScroll_TimerInterval_->value()) + QStringLiteral(" ms"));
}

void F_ParamAppli::MontreCouleurs() {
  for (std::size_t i = 0; i < Couleurs.size(); ++i) {
    const QColor couleur = EnCouleur(Regl.*Couleurs[i].valeur);
    QPalette p = LB_Couleur_[i]->palette();
    p.setColor(QPalette::Window, couleur);
    LB_Couleur_[i]->setPalette(p);
    LB_Couleur_[i]->setToolTip(couleur.name());
  }
}

// A button is called by what it changes, not by its own short text; a sample by its colour's use.
void F_ParamAppli::NommeCommandes() {
  for (int i = 0; i < std::ssize(Couleurs); ++i) {
    const QString quoi = findChild<QLabel*>(Indice("Label_Couleur", i))->text();
    auto* bouton = findChild<QPushButton*>(Indice("Btn_Couleur", i));
    bouton->setAccessibleName(quoi + QStringLiteral(" : ") + bouton->text());
    LB_Couleur_[base::Indice(i)]->setAccessibleName(quoi);
  }
  VScroll_MRU_->setAccessibleName(TB_MRU_->accessibleName());
}

void F_ParamAppli::RemplitLangues() {
  LB_Langues_->clear();
  for (const LanguePresente& langue : LanguesPresentes()) {
    auto* ligne = new QListWidgetItem(QString::fromStdString(langue.nom), LB_Langues_);
    ligne->setData(Qt::UserRole, QString::fromStdString(langue.code));
    if (langue.code == Regl.Langue) LB_Langues_->setCurrentItem(ligne);
  }
}

void F_ParamAppli::ChoisitLangue() {
  const QListWidgetItem* ligne = LB_Langues_->currentItem();
  if (ligne == nullptr) return;
  const std::string code = ligne->data(Qt::UserRole).toString().toStdString();
  if (code == Regl.Langue) return;
  Regl.Langue = code;
  EcrireCle(cles::Language, code);
  TraduitBoiteAOutils();
  TraduireFenetre(*this);
  NommeCommandes();
}

void F_ParamAppli::ChangeCouleur(int i) {
  if (!ChoisitCouleur) return;
  std::int32_t& valeur = Regl.*Couleurs[base::Indice(i)].valeur;
  const int choisie = ChoisitCouleur(this, valeur);
  if (choisie < 0) return;
  valeur = choisie;
  MontreCouleurs();
  DitCouleurs();
}

void F_ParamAppli::ValeursDefaut() {
  defaut_ = true;
  EcritCouleursDefaut();
  LitCouleurs();
  MontreCouleurs();
  DitCouleurs();
}

void F_ParamAppli::QuitteMRU(bool change) {
  refus_ = false;
  if (!change) return;
  const auto v = NombreDuTexte(TB_MRU_->Texte());
  if (!v || *v < 0 || *v > MruMax) {
    refus_ = true;
    TB_MRU_->Refuse(TexteQt(Textes::NombreRecents));
    TB_MRU_->Restitue();
    return;
  }
  TB_MRU_->Accepte();
  Regl.gMaxMRU = Arrondi32(*v);
  const QSignalBlocker silence(VScroll_MRU_);
  VScroll_MRU_->setValue(Regl.gMaxMRU);
}

// The other windows keep their language until this one closes.
void F_ParamAppli::DitCouleurs() {
  if (!Svc.Rafraichit) return;
  const QScopedValueRollback<std::string> langue(Regl.Langue, avant_.Langue);
  Svc.Rafraichit();
}

void F_ParamAppli::accept() {
  // The field was left for this button with an entry that was refused: the window stays, to be read.
  if (refus_) {
    refus_ = false;
    SSTab1_->setCurrentIndex(0);
    return TB_MRU_->setFocus();
  }
  if (QWidget* champ = carte_->Refusee()) {
    SSTab1_->setCurrentWidget(carte_);
    Svc.Bip();
    return champ->setFocus();
  }
  {
    const LotCles lot;
    EcritOptions();
    const bool couleurs = std::any_of(Couleurs.begin(), Couleurs.end(),
                                      [&](const CouleurReglee& c) { return Regl.*c.valeur != avant_.*c.valeur; });
    if (couleurs) EcritCouleurs();
  }
  const bool autreCarte = carte_->Ecrit();
  QDialog::accept();
  if (autreCarte && CarteReglee) CarteReglee();
}

void F_ParamAppli::reject() {
  Regl.ConfirmSuppr = avant_.ConfirmSuppr;
  Regl.TimerInterval = avant_.TimerInterval;
  Regl.gMaxMRU = avant_.gMaxMRU;
  bool couleurs = false;
  for (const CouleurReglee& c : Couleurs) {
    couleurs = couleurs || Regl.*c.valeur != avant_.*c.valeur;
    Regl.*c.valeur = avant_.*c.valeur;
  }
  // What has been written meanwhile goes back too.
  if (defaut_) EcritCouleurs();
  if (Regl.Langue != avant_.Langue) {
    Regl.Langue = avant_.Langue;
    EcrireCle(cles::Language, Regl.Langue);
    TraduitBoiteAOutils();
  }
  if (couleurs) DitCouleurs();
  QDialog::reject();
}

}  // namespace ovelin
