#include "machine/essais/ui/PageEssai.h"

#include "core/Nombres.h"
#include "core/ui/Equivalent.h"
#include "core/ui/Fabrique.h"
#include "core/ui/Fenetres.h"
#include "core/ui/TraduitFenetre.h"
#include "machine/essais/Module_EssaiVitesse.h"
#include "machine/essais/ui/ControlesTable.h"

namespace ovelin {

namespace {

QString Francais(const char* texte) { return QString::fromUtf8(texte); }

struct ParamEssai {
  const char* texte;
  const char* unite;
  const char* bulle;
};
constexpr std::array<ParamEssai, 4> Params{
    {{"Vitesse de départ :", "mm/s", "Vitesse du premier aller et retour"},
     {"Vitesse d'arrivée :", "mm/s", "Vitesse que l'essai ne dépasse pas"},
     {"Incrément :", "mm/s", "Ce que la vitesse gagne à chaque aller et retour"},
     {"Distance à parcourir :", "mm", "Chemin de chaque axe testé, aller puis retour"}}};
constexpr std::array<const char*, 3> Axes{"X", "Y", "Z"};

// "20.00 mm/s", and what the table leaves of it where that is less.
QString TexteVitesse(double v, double tenue) {
  constexpr double Egales = 0.01;  // mm/s
  const auto deux = [](double valeur) { return QString::fromStdString(Formate(valeur, "0.00")); };
  const QString texte = deux(v) + QStringLiteral(" mm/s");
  return v - tenue < Egales ? texte : texte + QStringLiteral(" (max. %1)").arg(deux(tenue));
}

}  // namespace

PageEssai::PageEssai(ControlesTable& controles, QWidget* parent) : QWidget(parent), controles_(controles) {
  setObjectName(QStringLiteral("Page_Essais"));
  QVBoxLayout* colonne = ColonnePage(*this);
  colonne->addWidget(GroupeEssai());
  const auto ouvre = [this](QPushButton* bouton, const char* fenetre) {
    bouton->setAutoDefault(false);
    connect(bouton, &QPushButton::clicked, this, [this, fenetre] { OuvreFenetre(fenetre, window()); });
  };
  Cmd_TestPasPerdus_ = Bouton("Cmd_TestPasPerdus", Francais("Test des &pas perdus..."),
                              Francais("Mesurer le jeu d'un axe pas à pas"), this);
  Cmd_Test_ = Bouton("Cmd_Test", Francais("&Envoi d'un mouvement..."),
                     Francais("Envoyer un seul mouvement et voir ses octets"), this);
  Cmd_Carte_ = Bouton("Cmd_Carte", Francais("Carte &virtuelle..."),
                      Francais("Ouvrir le panneau de la carte virtuelle : place vraie, modèle, fautes"), this);
  ouvre(Cmd_TestPasPerdus_, "F_PasPerdus");
  ouvre(Cmd_Test_, "F_Test");
  ouvre(Cmd_Carte_, "F_CarteVirtuelle");
  auto* boutons = new QVBoxLayout;
  for (QPushButton* bouton : {Cmd_TestPasPerdus_, Cmd_Test_, Cmd_Carte_}) {
    boutons->addWidget(bouton, 0, Qt::AlignLeft);
  }
  colonne->addLayout(boutons);
  colonne->addStretch();
  MontreEnCours(false);
}

QWidget* PageEssai::GroupeEssai() {
  QGroupBox* groupe = Groupe("Frame_Essai", Francais("Outil de test des vitesses"), this);
  QGridLayout* grille = GrilleGroupe(*groupe);
  grille->addWidget(Phrase("Lbl_Essai", Francais("Cet outil permet de déterminer la vitesse maximum.")), 0, 0, 1,
                    2);
  for (int i = 0; i < 4; ++i) {
    const auto rang = static_cast<std::size_t>(i);
    const QString numero = QString::number(i + 1);
    TB_Param_[rang] = Champ(QStringLiteral("TB_Param_") + numero, Francais(Params[rang].unite),
                            Francais(Params[rang].bulle), this);
    grille->addWidget(
        Etiquette(QStringLiteral("Lbl_Param_") + numero, Francais(Params[rang].texte), TB_Param_[rang]), i + 1, 0);
    const bool vitesse = QLatin1String(Params[rang].unite) == QLatin1String("mm/s");
    QWidget* champ = TB_Param_[rang];
    grille->addWidget(vitesse ? AvecEquivalent(TB_Param_[rang], SorteEquivalent::ParMinute) : champ, i + 1, 1);
    connect(TB_Param_[rang], &ChampNombre::textChanged, this, &PageEssai::ActiveBouton);
  }
  auto* axes = new QHBoxLayout;
  for (std::size_t i = 0; i < Axes.size(); ++i) {
    CB_Axe_[i] = Coche(QStringLiteral("CB_Axe_%1").arg(i), QLatin1String(Axes[i]),
                       Francais("L'axe %1 participe à l'essai").arg(QLatin1String(Axes[i])), this);
    connect(CB_Axe_[i], &QCheckBox::toggled, this, &PageEssai::ActiveBouton);
    axes->addWidget(CB_Axe_[i]);
  }
  axes->addStretch();
  grille->addWidget(Etiquette("Lbl_Axes", Francais("Axe(s) testé(s) :")), 5, 0);
  grille->addLayout(axes, 5, 1);
  CB_SAV_14_ = controles_.Coche(ChampsMachine::PausesIntermediaires, Francais("Pauses intermédiaires"),
                                Francais("Une question après chaque aller et retour"));
  grille->addWidget(CB_SAV_14_, 6, 0, 1, 2);
  Cmd_GO_ = Bouton("Cmd_GO", "GO", Francais("Lancer l'essai : la machine bouge"), this);
  Cmd_Stop_ = Bouton("Cmd_Stop", "STOP !", Francais("Arrêter la machine aussitôt"), this);
  auto* rangee = new QHBoxLayout;
  for (QPushButton* bouton : {Cmd_GO_, Cmd_Stop_}) {
    bouton->setAutoDefault(false);
    rangee->addWidget(bouton);
  }
  rangee->addStretch();
  grille->addLayout(rangee, 7, 0, 1, 2);
  connect(Cmd_GO_, &QPushButton::clicked, this, &PageEssai::Cmd_GO_Click);
  connect(Cmd_Stop_, &QPushButton::clicked, this, [] { Cmd_Stop(); });
  Label_Vitesse_ = Valeur("Label_Vitesse");
  grille->addWidget(Etiquette("Lbl_VitesseActuelle", Francais("Vitesse actuelle :")), 8, 0);
  grille->addWidget(Label_Vitesse_, 8, 1);
  grille->setColumnStretch(1, 1);
  return groupe;
}

void PageEssai::Montre(const ChampsEssai& champs) {
  const std::array<const std::string*, 4> textes{&champs.VitDep, &champs.VitArr, &champs.Incr, &champs.Depl};
  for (std::size_t i = 0; i < TB_Param_.size(); ++i) TB_Param_[i]->Montre(*textes[i]);
  for (std::size_t i = 0; i < CB_Axe_.size(); ++i) CB_Axe_[i]->setChecked(champs.axes[i]);
  Label_Vitesse_->clear();
  ActiveBouton();
}

ChampsEssai PageEssai::Lit() const {
  ChampsEssai champs{
      TB_Param_[0]->Texte(), TB_Param_[1]->Texte(), TB_Param_[2]->Texte(), TB_Param_[3]->Texte(), {}};
  for (std::size_t i = 0; i < CB_Axe_.size(); ++i) champs.axes[i] = CB_Axe_[i]->isChecked();
  return champs;
}

void PageEssai::CarteVirtuelle(bool la) { Cmd_Carte_->setVisible(la); }

void PageEssai::ActiveBouton() { Cmd_GO_->setEnabled(!enCours_ && ActiveGO(Lit())); }

void PageEssai::Cmd_GO_Click() {
  ReglageEssai reglage;
  for (ChampNombre* champ : TB_Param_) champ->Accepte();
  if (const auto refus = LitReglageEssai(Lit(), reglage)) {
    TB_Param_[static_cast<std::size_t>(refus->champ - 1)]->Refuse(TexteQt(refus->texte));
    return;
  }
  Vue_Essai.EnCours = [this](bool enCours) { MontreEnCours(enCours); };
  Vue_Essai.Passe = [this](double v, double tenue) { Label_Vitesse_->setText(TexteVitesse(v, tenue)); };
  Cmd_GO(reglage, CB_SAV_14_->isChecked());
  Vue_Essai = VueEssai{};
}

void PageEssai::MontreEnCours(bool enCours) {
  const bool change = enCours_ != enCours;
  enCours_ = enCours;
  for (ChampNombre* champ : TB_Param_) champ->setEnabled(!enCours);
  for (QCheckBox* axe : CB_Axe_) axe->setEnabled(!enCours);
  for (QWidget* w : {static_cast<QWidget*>(CB_SAV_14_), static_cast<QWidget*>(Cmd_TestPasPerdus_),
                     static_cast<QWidget*>(Cmd_Test_)}) {
    w->setEnabled(!enCours);
  }
  Cmd_Stop_->setEnabled(enCours);
  ActiveBouton();
  if (enCours) Cmd_Stop_->setFocus();
  if (change) Q_EMIT EnCours(enCours);
}

}  // namespace ovelin
