#include "workspace/ui/dialogues/F_Dimension.h"

#include "base/Indices.h"
#include "core/DocumentCourant.h"
#include "core/Nombres.h"
#include "core/Services.h"
#include "core/Textes.h"
#include "core/Traduction.h"
#include "core/ui/Fabrique.h"
#include "core/ui/Fenetres.h"
#include "core/ui/TraduitFenetre.h"
#include "workspace/ui/dialogues/ApercuDimension.h"

namespace ovelin {

namespace {

constexpr const char* Section = "F_Dimension";

// A field says itself what it is: its label stands at the head of its column.
ChampNombre* ChampTaille(const QString& nom, const char* unite, const char* dit, const char* bulle,
                         QWidget* parent) {
  ChampNombre* champ = Champ(nom, unite, bulle, parent);
  champ->setAccessibleName(dit);
  champ->setMinimumWidth(84);
  return champ;
}

}  // namespace

F_Dimension::F_Dimension(QWidget* parent) : F_Dimension(DemandeDuDocument(), parent) {}

F_Dimension::F_Dimension(const DemandeDimension& demande, QWidget* parent) : QDialog(parent), demande_(demande) {
  demande_.rapportX = demande_.rapportY = 1.0;
  champs_ = ChampsDe(demande_);
  Construit();
  PrepareFenetre(*this, Section);
  MontreChamps();
  PB1_->Montre(1.0, 1.0);
  axes_[0].rapport->setFocus();
  axes_[0].rapport->selectAll();
}

void F_Dimension::Construit() {
  setWindowTitle(QStringLiteral("Dimensions du dessin"));
  PB1_ = new ApercuDimension(PointsApercu(TraceInitial), this);
  Nomme(PB1_, "PB1", "Aperçu du dessin avec les rapports appliqués");
  PB1_->setAccessibleName(QString::fromUtf8("Aperçu du dessin"));

  auto* grille = new QGridLayout;
  grille->setSpacing(6);
  grille->addWidget(EnTete("Lbl_Initial", "Actuelle"), 0, 1);
  grille->addWidget(EnTete("Lbl_Rapport", "Rapport"), 0, 2);
  grille->addWidget(EnTete("Lbl_Resultat", "Résultat"), 0, 3);
  ConstruitAxe(*grille, 0);
  ConstruitAxe(*grille, 1);
  CB_Proportions_ =
      Coche("CB_Proportions", "&Garder les proportions", "Le même rapport en largeur et en hauteur", this);
  grille->addWidget(CB_Proportions_, 3, 1, 1, 3);
  for (int colonne = 1; colonne < 4; ++colonne) grille->setColumnStretch(colonne, 1);

  auto* corps = new QVBoxLayout;
  corps->setContentsMargins(8, 8, 8, 4);
  corps->setSpacing(8);
  corps->addWidget(PB1_, 1);
  corps->addLayout(grille);
  const BoutonsDialogue boutons =
      PoseBoutons(*this, "Donner ces dimensions au dessin", "Garder le dessin à sa taille");
  auto* Btn_Appliquer = Bouton("Btn_Appliquer", "A&ppliquer", "Montrer le résultat dans l'aperçu", this);
  Btn_Appliquer->setAutoDefault(false);
  boutons.rangee->insertWidget(1, Btn_Appliquer);
  corps->addLayout(boutons.rangee);

  ConstruitBarre();
  auto* boite = new QVBoxLayout(this);
  boite->setContentsMargins(0, 0, 0, 0);
  boite->setSpacing(0);
  boite->addLayout(corps, 1);
  boite->addWidget(SB1_);

  Branche(0);
  Branche(1);
  connect(CB_Proportions_, &QCheckBox::toggled, this, [this](bool coche) {
    EntreProportions(champs_, coche);
    MontreChamps();
  });
  connect(Btn_Appliquer, &QPushButton::clicked, this, &F_Dimension::Applique);
  connect(boutons.ok, &QPushButton::clicked, this, [this] {
    if (Applique()) accept();
  });
  OrdreTab({axes_[0].rapport, axes_[0].resultat, axes_[1].rapport, axes_[1].resultat, CB_Proportions_,
            Btn_Appliquer, boutons.ok, boutons.annuler});
}

void F_Dimension::ConstruitAxe(QGridLayout& grille, std::size_t axe) {
  const bool h = axe == 0;
  const QString prefixe = h ? QStringLiteral("TB_H_") : QStringLiteral("TB_V_");
  Axe& a = axes_[axe];
  a.initial = ChampTaille(prefixe + QStringLiteral("Initial"), "mm", h ? "Largeur actuelle" : "Hauteur actuelle",
                          "Taille du dessin tel qu'il a été lu", this);
  MontreSeulement(*a.initial);
  a.initial->setFocusPolicy(Qt::ClickFocus);
  a.rapport = ChampTaille(prefixe + QStringLiteral("Rapport"), "", h ? "Rapport en largeur" : "Rapport en hauteur",
                          "Multiplie la taille : 2 la double", this);
  a.resultat = ChampTaille(prefixe + QStringLiteral("Resultat"), "mm", h ? "Largeur voulue" : "Hauteur voulue",
                           "Taille voulue : le rapport suit", this);
  const int ligne = base::Compte(axe) + 1;
  grille.addWidget(
      Etiquette(axe == 0 ? "Lbl_H" : "Lbl_V", axe == 0 ? "&Largeur (X) :" : "&Hauteur (Y) :", a.rapport), ligne, 0);
  grille.addWidget(a.initial, ligne, 1);
  grille.addWidget(a.rapport, ligne, 2);
  grille.addWidget(a.resultat, ligne, 3);
}

void F_Dimension::ConstruitBarre() {
  SB1_ = Nomme(new QStatusBar(this), "SB1", "Course de la machine : le dessin doit y tenir");
  SB1_->setSizeGripEnabled(true);
  SB1_->setContentsMargins(6, 0, 0, 0);
  SB1_->addWidget(Etiquette("SB1_0", "Course :"));
  const auto course = [this](const char* nom, const std::string& texte) {
    QLabel* valeur = Valeur(nom);
    valeur->setText(QString::fromStdString(texte));
    SB1_->addWidget(valeur);
  };
  course("SB1_1", "X = " + TexteNombre(EnFloat(demande_.courseX)) + " mm");
  course("SB1_2", "Y = " + TexteNombre(EnFloat(demande_.courseY)) + " mm");
}

void F_Dimension::Branche(std::size_t axe) {
  connect(axes_[axe].rapport, &ChampNombre::Quitte, this,
          [this, axe](bool change) { Quitte(*axes_[axe].rapport, axe, true, change); });
  connect(axes_[axe].resultat, &ChampNombre::Quitte, this,
          [this, axe](bool change) { Quitte(*axes_[axe].resultat, axe, false, change); });
  connect(axes_[axe].rapport, &QLineEdit::textEdited, this, [this, axe] { Previent(axe, true); });
  connect(axes_[axe].resultat, &QLineEdit::textEdited, this, [this, axe] { Previent(axe, false); });
}

void F_Dimension::MontreChamps() {
  for (std::size_t axe = 0; axe < axes_.size(); ++axe) {
    const AxeDimension& valeurs = champs_.axes[axe];
    const Axe& a = axes_[axe];
    a.initial->Montre(TexteTaille(valeurs.initial));
    a.rapport->Montre(TexteRapport(valeurs.rapport));
    a.resultat->Montre(TexteTaille(valeurs.resultat));
    a.rapport->Accepte();
    a.resultat->Accepte();
  }
}

// The preview as it would be with what is typed so far; a text that is no size yet leaves it.
void F_Dimension::Previent(std::size_t axe, bool rapport) {
  ChampsDimension essai = champs_;
  const auto v = NombreDuTexte((rapport ? axes_[axe].rapport : axes_[axe].resultat)->Texte());
  if (!v) return;
  if (rapport) {
    EntreRapport(essai, axe, *v);
  } else if (!EntreResultat(essai, axe, *v)) {
    return;
  }
  if (!VerifieDimension(essai)) PB1_->Montre(essai.axes[0].rapport, essai.axes[1].rapport);
}

// A field that is left as it was changes nothing: its text is shorter than its value.
void F_Dimension::Quitte(ChampNombre& champ, std::size_t axe, bool rapport, bool change) {
  if (!change) return;
  const auto v = NombreDuTexte(champ.Texte());
  if (!v) return champ.Refuse(TexteQt(Textes::DimensionNonNombre));
  if (rapport) {
    EntreRapport(champs_, axe, *v);
  } else if (!EntreResultat(champs_, axe, *v)) {
    champ.Restitue();
    MontreChamps();
    return champ.Refuse(TexteQt(Textes::DimensionSansEtendue));
  }
  MontreChamps();
}

bool F_Dimension::LitChamps() {
  for (const Axe& a : axes_) {
    for (ChampNombre* champ : {a.rapport, a.resultat}) {
      if (EstNumerique(champ->Texte())) continue;
      champ->setFocus();
      champ->Refuse(TexteQt(Textes::DimensionNonNombre));
      return false;
    }
  }
  return true;
}

bool F_Dimension::Applique() {
  if (!LitChamps()) return false;
  const RefusDimension refus = VerifieDimension(champs_);
  if (refus) {
    Message(*refus.raison, Icone::Critique);
    ChampNombre* champ = *refus.raison == Textes::RapportNul ? axes_[refus.axe].rapport : axes_[refus.axe].resultat;
    champ->setFocus();
    champ->Refuse(TexteQt(*refus.raison));
    return false;
  }
  MontreChamps();
  demande_.rapportX = champs_.axes[0].rapport;
  demande_.rapportY = champs_.axes[1].rapport;
  PB1_->Montre(demande_.rapportX, demande_.rapportY);
  return true;
}

DemandeDimension F_Dimension::Reponse() const {
  DemandeDimension reponse = demande_;
  if (result() != Accepted) reponse.rapportX = reponse.rapportY = 1.0;
  return reponse;
}

}  // namespace ovelin
