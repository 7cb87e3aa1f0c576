#include "machine/essais/ui/F_PasPerdus.h"

#include <QKeyEvent>
#include <QRadioButton>

#include "controller/ClsCdeZENIK.h"
#include "core/RunCourant.h"
#include "core/Services.h"
#include "core/Textes.h"
#include "core/ui/Equivalent.h"
#include "core/ui/Fabrique.h"
#include "core/ui/Fenetres.h"
#include "core/ui/TraduitFenetre.h"
#include "machine/essais/Module_PasPerdus.h"

namespace ovelin {

namespace {

constexpr const char* Section = "F_PasPerdus";
constexpr const char* VitesseOfferte = "1";  // mm/s
constexpr int LargeurAide = 380;             // logical pixels
constexpr std::array<const char*, 3> Axes{"X", "Y", "Z"};

QString Francais(const char* texte) { return QString::fromUtf8(texte); }

}  // namespace

F_PasPerdus::F_PasPerdus(QWidget* parent) : QDialog(parent) {
  setModal(true);
  Construit();
  PrepareFenetre(*this, Section);
}

void F_PasPerdus::Construit() {
  setWindowTitle(QStringLiteral("Outil de test des pas perdus"));
  QVBoxLayout* boite = ColonneFenetre(*this);
  Label_Aide_ = Phrase(
      "Label_Aide",
      Francais("Posez un comparateur sur l'axe. Premier bouton : jusqu'à ce que l'aiguille bouge. Second bouton : "
               "le compteur des pas qui n'ont pas encore bougé l'aiguille est le jeu. Un pas est un pas entier : "
               "une division du pas est plus fine."),
      this);
  boite->addWidget(Label_Aide_);
  QGroupBox* groupe = Groupe("Frame_Axe", Francais("Axe testé"), this);
  QHBoxLayout* axes = RangeeGroupe(*groupe);
  for (std::size_t i = 0; i < Axes.size(); ++i) {
    Option_Axe_[i] = Nomme(new QRadioButton(QLatin1String(Axes[i]), groupe), QStringLiteral("Option_Axe_%1").arg(i),
                           Francais("Mesurer le jeu de l'axe %1").arg(QLatin1String(Axes[i])));
    axes->addWidget(Option_Axe_[i]);
  }
  Option_Axe_[0]->setChecked(true);
  axes->addStretch();
  boite->addWidget(groupe);

  QGridLayout* grille = GrilleFenetre();
  TB_Vitesse_ = Champ("TB_Vitesse", "mm/s", Francais("Vitesse de chaque pas"), this);
  TB_Vitesse_->Montre(VitesseOfferte);
  connect(TB_Vitesse_, &ChampNombre::Quitte, this, [this](bool change) {
    if (change && !TB_Vitesse_->Texte().empty()) TB_Vitesse_->Montre(VitessePasPerdus(TB_Vitesse_->Texte()));
  });
  grille->addWidget(Etiquette("Lbl_Vitesse", "&Vitesse :", TB_Vitesse_), 0, 0);
  grille->addWidget(AvecEquivalent(TB_Vitesse_, SorteEquivalent::ParMinute), 0, 1);
  Label_Compteur_ = Valeur("Label_Compteur");
  grille->addWidget(Etiquette("Lbl_Compteur", "Compteur :"), 1, 0);
  grille->addWidget(Label_Compteur_, 1, 1);
  grille->setColumnStretch(1, 1);
  boite->addLayout(grille);
  boite->addLayout(RangeeBoutonsPas());

  Btn_Fermer_ = Bouton("Btn_Fermer", "Fermer", Francais("Fermer la fenêtre"), this);
  Btn_Fermer_->setAutoDefault(false);
  connect(Btn_Fermer_, &QPushButton::clicked, this, &F_PasPerdus::close);
  Label_Etat_ = Valeur("Label_Etat");
  auto* bas = new QHBoxLayout;
  bas->addWidget(Label_Etat_);
  bas->addLayout(RangeeBoutons({Btn_Fermer_}), 1);
  boite->addStretch();
  boite->addLayout(bas);
  MontreCompteur(0);
  OrdreTab({Option_Axe_[0], Option_Axe_[1], Option_Axe_[2], TB_Vitesse_, Cmd_Depl_[0], Cmd_Depl_[1], Cmd_RAZ_,
            CMD_Memoriser_, Btn_Fermer_});
}

QLayout* F_PasPerdus::RangeeBoutonsPas() {
  Cmd_Depl_[0] = Bouton("Cmd_Depl_0", "- Un &pas", Francais("Un pas dans un sens ; le compteur revient à 0"), this);
  Cmd_Depl_[1] =
      Bouton("Cmd_Depl_1", "+ &Un pas", Francais("Un pas dans l'autre sens ; le compteur avance de 1"), this);
  Cmd_RAZ_ = Bouton("Cmd_RAZ", Francais("&Remettre à 0"), Francais("Remettre le compteur à 0"), this);
  CMD_Memoriser_ = Bouton("CMD_Memoriser", Francais("&Mémoriser cet axe"),
                          Francais("Le compteur devient les pas perdus de cet axe dans la table"), this);
  for (QPushButton* bouton : {Cmd_Depl_[0], Cmd_Depl_[1], Cmd_RAZ_, CMD_Memoriser_}) bouton->setAutoDefault(false);
  for (int index = 0; index < 2; ++index) {
    connect(Cmd_Depl_[static_cast<std::size_t>(index)], &QPushButton::clicked, this,
            [this, index] { Cmd_Depl_Click(index); });
  }
  connect(Cmd_RAZ_, &QPushButton::clicked, this, [this] { MontreCompteur(0); });
  connect(CMD_Memoriser_, &QPushButton::clicked, this, [this] { MemorisePasPerdus(Axe(), compteur_); });
  auto* pas = new QHBoxLayout;
  pas->addWidget(Cmd_Depl_[0]);
  pas->addWidget(Cmd_Depl_[1]);
  auto* rangees = new QVBoxLayout;
  rangees->addLayout(pas);
  auto* compte = new QHBoxLayout;
  compte->addWidget(Cmd_RAZ_);
  compte->addWidget(CMD_Memoriser_);
  rangees->addLayout(compte);
  return rangees;
}

void F_PasPerdus::Form_Load() {
  CdeZENIK->TableVerif();
  Label_Etat_->setText(TexteQt(Textes::PasPret));
  // Its lines in the language in force, so that they are not pressed together in a small window.
  Label_Aide_->setMinimumWidth(LargeurAide);
  Label_Aide_->setMinimumHeight(Label_Aide_->heightForWidth(LargeurAide));
  RetablitPlace();
}

// As far as a screen shows that place.
void F_PasPerdus::RetablitPlace() {
  const auto place = LitPlacePasPerdus();
  if (place) PlaceSurEcran(*this, {place->first, place->second});
}

int F_PasPerdus::Axe() const {
  int axe = 0;
  for (std::size_t i = 0; i < Option_Axe_.size(); ++i) {
    if (Option_Axe_[i]->isChecked()) axe = static_cast<int>(i);
  }
  return axe;
}

void F_PasPerdus::MontreCompteur(std::int32_t compteur) {
  compteur_ = compteur;
  Label_Compteur_->setText(QString::number(compteur_));
}

// The buttons come back on every way out: the step is made in one procedure, which always returns.
void F_PasPerdus::Cmd_Depl_Click(int index) {
  QWidget* avant = focusWidget();
  for (QPushButton* bouton : Cmd_Depl_) bouton->setEnabled(false);
  Label_Etat_->setText(QStringLiteral("..."));
  std::int32_t compteur = compteur_;
  Cmd_Depl(index, Axe(), TB_Vitesse_->Texte(), compteur);
  MontreCompteur(compteur);
  for (QPushButton* bouton : Cmd_Depl_) bouton->setEnabled(true);
  Label_Etat_->setText(TexteQt(Textes::PasPret));
  if (avant != nullptr) avant->setFocus();
}

// Escape stops the step; only then it closes.
void F_PasPerdus::keyPressEvent(QKeyEvent* e) {
  if (e->key() == Qt::Key_Escape && TestEnCours) {
    StopDemande = Vrai;
    return e->accept();
  }
  QDialog::keyPressEvent(e);
}

void F_PasPerdus::done(int resultat) {
  if (!PeutFermerPasPerdus()) return Svc.Bip();
  EcritPlacePasPerdus(x(), y());
  QDialog::done(resultat);
}

}  // namespace ovelin
