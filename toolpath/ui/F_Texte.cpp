#include "toolpath/ui/F_Texte.h"

#include <QLineEdit>
#include <QListWidget>
#include <QProgressBar>
#include <QShowEvent>
#include <QSlider>
#include <QTimer>
#include <optional>

#include "core/Cles.h"
#include "core/ClesReglages.h"
#include "core/Nombres.h"
#include "core/Services.h"
#include "core/Textes.h"
#include "core/Traduction.h"
#include "core/ui/Fabrique.h"
#include "core/ui/Fenetres.h"
#include "core/ui/ServicesQt.h"
#include "core/ui/TraduitFenetre.h"
#include "toolpath/Module_Texte.h"
#include "toolpath/traces/Bibliotheque.h"
#include "toolpath/ui/ApercuTexte.h"

namespace ovelin {

namespace {

constexpr const char* Section = "F_Texte";
constexpr const char* PoliceAucune = "$$$$$";          // none has been saved
constexpr double TwipsPixel = 15;                      // places are kept in twips
constexpr int EspaceMin = -200, EspaceMax = 1000;      // thousandths of an em
constexpr double HauteurMin = 0.5, HauteurMax = 1000;  // mm

std::string Cle(const char* suffixe) { return std::string(Section) + suffixe; }

// The window's state belongs to the user's settings, never to a project.
std::string Lit(const char* suffixe, const std::string& defaut) { return LireCleIni(Cle(suffixe), defaut); }

std::optional<double> Hauteur(const std::string& texte) {
  const auto v = NombreDuTexte(texte);
  return v && *v >= HauteurMin && *v <= HauteurMax ? v : std::nullopt;
}

}  // namespace

F_Texte::F_Texte(QWidget* parent) : QDialog(parent) {
  Construit();
  PrepareFenetre(*this, Section);
  List1_->setAccessibleName(TexteQt(Textes::NomListePolices));
  PB1_->setAccessibleName(TexteQt(Textes::NomApercuTexte));
  HScroll1_->setAccessibleName(TexteQt(Textes::NomEspacement));
  Restaure();
  TB_Texte_->setFocus();
  TB_Texte_->selectAll();
  connect(TB_Texte_, &QLineEdit::textChanged, this, &F_Texte::Apercu);
  connect(List1_, &QListWidget::currentRowChanged, this, &F_Texte::Apercu);
  connect(HScroll1_, &QSlider::valueChanged, this, &F_Texte::Apercu);
  for (QCheckBox* option : CB_Flag_) connect(option, &QCheckBox::toggled, this, &F_Texte::Apercu);
}

F_Texte::~F_Texte() {
  const SansProjet reglagesSeuls;
  const LotCles lot;
  EcrireCle(Cle(cles::suffixe::Gauche), TexteNombre(x() * TwipsPixel));
  EcrireCle(Cle(cles::suffixe::Haut), TexteNombre(y() * TwipsPixel));
  EcrireCle(Cle(cles::suffixe::Italique), CB_Flag_[0]->isChecked() ? "Vrai" : "Faux");
  EcrireCle(Cle(cles::suffixe::Gras), CB_Flag_[1]->isChecked() ? "Vrai" : "Faux");
  if (!Police().empty()) EcrireCle(Cle(cles::suffixe::Police), Police());
}

void F_Texte::Construit() {
  setWindowTitle(QStringLiteral("Texte"));
  QVBoxLayout* boite = ColonneFenetre(*this);
  TB_Texte_ = Nomme(new QLineEdit(this), "TB_Texte", "La ligne de texte qui devient un dessin");
  TB_Texte_->setProperty("texteLibre", true);
  QGridLayout* grille = GrilleFenetre();
  grille->addWidget(Etiquette("Lbl_Texte", "&Texte :", TB_Texte_), 0, 0);
  grille->addWidget(TB_Texte_, 0, 1);
  boite->addLayout(grille);
  PB1_ = Nomme(new ApercuTexte(this), "PB1", "Le texte tel qu'il sera découpé");
  boite->addWidget(PB1_, 1);

  List1_ = Nomme(new QListWidget(this), "List1", "Polices installées");
  List1_->setUniformItemSizes(true);
  List1_->setProperty("texteLibre", true);
  auto* milieu = new QHBoxLayout;
  milieu->setSpacing(12);
  milieu->addWidget(List1_, 1);
  milieu->addLayout(ConstruitStyle());
  boite->addLayout(milieu, 2);

  StatusBar1_ = Valeur("StatusBar1", "", this);
  ProgressBar1_ = Nomme(new QProgressBar(this), "ProgressBar1", "Recherche des polices");
  ProgressBar1_->setRange(0, 0);
  ProgressBar1_->setTextVisible(false);
  ProgressBar1_->setMaximumWidth(160);
  auto* etat = new QHBoxLayout;
  etat->addWidget(StatusBar1_, 1);
  etat->addWidget(ProgressBar1_);
  boite->addLayout(etat);

  CB_Generer_ = Bouton("CB_Generer", "&Générer", "Ajouter le texte au dessin", this);
  CB_Generer_->setDefault(true);
  QPushButton* annuler = Bouton("CB_Cancel", "Annuler", "Fermer sans rien changer", this);
  annuler->setAutoDefault(false);
  connect(CB_Generer_, &QPushButton::clicked, this, &F_Texte::CB_Generer_Click);
  connect(annuler, &QPushButton::clicked, this, &F_Texte::reject);
  boite->addLayout(RangeeBoutons({CB_Generer_, annuler}));
  OrdreTab({TB_Texte_, List1_, CB_Flag_[0], CB_Flag_[1], HScroll1_, TB_Hauteur_, CB_Generer_, annuler});
}

QLayout* F_Texte::ConstruitStyle() {
  CB_Flag_[0] = Coche("CB_Flag_0", "&Italique", "Lettres penchées", this);
  CB_Flag_[1] = Coche("CB_Flag_1", "G&ras", "Lettres grasses", this);
  HScroll1_ = Nomme(new QSlider(Qt::Horizontal, this), "HScroll1",
                    "Espace ajouté entre les lettres, en millièmes de la hauteur");
  HScroll1_->setRange(EspaceMin, EspaceMax);
  HScroll1_->setPageStep(50);
  Lbl_Espace_ = Valeur("Lbl_Valeur_Espace", "", this);
  Lbl_Espace_->setMinimumWidth(Lbl_Espace_->fontMetrics().horizontalAdvance(QStringLiteral("-0000")));
  connect(HScroll1_, &QSlider::valueChanged, this, [this](int v) { Lbl_Espace_->setNum(v); });
  TB_Hauteur_ = Champ("TB_Hauteur", "mm", "Hauteur de la police, du haut des accents au bas des jambages", this);
  TB_Hauteur_->setMaximumWidth(110);
  connect(TB_Hauteur_, &ChampNombre::Quitte, this, [this] {
    if (Hauteur(TB_Hauteur_->Texte())) {
      TB_Hauteur_->Accepte();
    } else {
      TB_Hauteur_->Refuse(TexteQt(Textes::HauteurNonNombre));
    }
  });
  QGridLayout* grille = GrilleFenetre();
  grille->addWidget(CB_Flag_[0], 0, 0, 1, 3);
  grille->addWidget(CB_Flag_[1], 1, 0, 1, 3);
  grille->addWidget(Etiquette("Lbl_Espace", "&Espacement :", HScroll1_), 2, 0);
  grille->addWidget(HScroll1_, 2, 1);
  grille->addWidget(Lbl_Espace_, 2, 2);
  grille->addWidget(Etiquette("Lbl_Hauteur", "&Hauteur :", TB_Hauteur_), 3, 0);
  grille->addWidget(TB_Hauteur_, 3, 1, 1, 2);
  grille->setRowStretch(4, 1);
  return grille;
}

void F_Texte::Restaure() {
  TB_Texte_->setText(
      QString::fromStdString(Lit(cles::suffixe::Texte, TexteQt(Textes::TexteDeDepart).toStdString())));
  CB_Flag_[0]->setChecked(Lit(cles::suffixe::Italique, "Faux") != "Faux");
  CB_Flag_[1]->setChecked(Lit(cles::suffixe::Gras, "Faux") != "Faux");
  HScroll1_->setValue(Arrondi32(NombreDuTexte(Lit(cles::suffixe::InterCaractere, "0")).value_or(0)));
  Lbl_Espace_->setNum(HScroll1_->value());
  const auto hauteur = Hauteur(Lit(cles::suffixe::HauteurTexte, ""));
  TB_Hauteur_->Montre(TexteNombre(hauteur.value_or(pathwerk::HauteurTexte)));
  const auto gauche = NombreDuTexte(Lit(cles::suffixe::Gauche, ""));
  const auto haut = NombreDuTexte(Lit(cles::suffixe::Haut, ""));
  if (gauche && haut) {
    PlaceSurEcran(*this, QPoint(Arrondi32(*gauche / TwipsPixel), Arrondi32(*haut / TwipsPixel)));
  }
}

// Once the window stands: asking the system for its fonts may take a while where there are thousands.
void F_Texte::showEvent(QShowEvent* e) {
  QDialog::showEvent(e);
  if (enumeree_) return;
  enumeree_ = true;
  QTimer::singleShot(0, this, &F_Texte::Enumere);
}

void F_Texte::Enumere() {
  std::vector<std::string> polices;
  Travaille([&polices] { polices = pathwerk::ListePolices(); });
  QStringList noms;
  noms.reserve(static_cast<qsizetype>(polices.size()));
  for (const std::string& police : polices) noms += QString::fromStdString(police);
  {
    const QSignalBlocker silence(List1_);
    List1_->addItems(noms);
    ChoisitPolice(QString::fromStdString(Lit(cles::suffixe::Police, PoliceAucune)));
  }
  ProgressBar1_->hide();
  if (StatusBar1_->text().isEmpty()) {
    StatusBar1_->setText(QString::number(noms.size()) + QLatin1Char(' ') + TexteQt(Textes::NombrePolices));
  }
  Apercu();
}

// A font that has gone since is told, and the first one stands in for it.
void F_Texte::ChoisitPolice(const QString& nom) {
  const auto trouvees = List1_->findItems(nom, Qt::MatchFixedString);
  if (!trouvees.isEmpty()) {
    List1_->setCurrentItem(trouvees[0]);
    return;
  }
  if (List1_->count() > 0) List1_->setCurrentRow(0);
  if (nom != QLatin1String(PoliceAucune)) {
    StatusBar1_->setText(TexteQt(Textes::PoliceAbsente) + QLatin1Char(' ') + nom);
  }
}

void F_Texte::Apercu() {
  const std::string texte = TB_Texte_->text().toStdString();
  const bool trace = !Police().empty() && PB1_->Montre(texte, Police(), HScroll1_->value(), Style());
  CB_Generer_->setEnabled(!Police().empty());
  const QString sans = TexteQt(Textes::TexteSansContour);
  if (!trace && enumeree_ && !texte.empty() && List1_->count() > 0) {
    StatusBar1_->setText(sans);
  } else if (StatusBar1_->text() == sans) {
    StatusBar1_->setText(QString::number(List1_->count()) + QLatin1Char(' ') + TexteQt(Textes::NombrePolices));
  }
}

void F_Texte::CB_Generer_Click() {
  const auto hauteur = Hauteur(TB_Hauteur_->Texte());
  if (!hauteur) {
    TB_Hauteur_->Refuse(TexteQt(Textes::HauteurNonNombre));
    TB_Hauteur_->setFocus();
    return;
  }
  const std::string texte = TB_Texte_->text().toStdString();
  {
    const SansProjet reglagesSeuls;
    const LotCles lot;
    EcrireCle(Cle(cles::suffixe::InterCaractere), std::to_string(HScroll1_->value()));
    EcrireCle(Cle(cles::suffixe::Texte), texte);
    EcrireCle(Cle(cles::suffixe::HauteurTexte), TexteNombre(*hauteur));
  }
  PoseTexte pose;
  pose.hauteur = *hauteur;
  pose.cadre = true;
  if (GenereTexte(texte, Police(), HScroll1_->value(), Style(), pose)) accept();
}

std::string F_Texte::Police() const {
  const QListWidgetItem* choisie = List1_->currentItem();
  return choisie != nullptr ? choisie->text().toStdString() : "";
}

std::int32_t F_Texte::Style() const {
  return (CB_Flag_[0]->isChecked() ? pathwerk::StyleItalique : 0) +
         (CB_Flag_[1]->isChecked() ? pathwerk::StyleGras : 0);
}

}  // namespace ovelin
