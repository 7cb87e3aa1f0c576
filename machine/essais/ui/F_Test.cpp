#include "machine/essais/ui/F_Test.h"

#include <QFontDatabase>

#include "core/Nombres.h"
#include "core/Textes.h"
#include "core/ui/Equivalent.h"
#include "core/ui/Fabrique.h"
#include "core/ui/Fenetres.h"
#include "core/ui/TraduitFenetre.h"

namespace ovelin {

namespace {

constexpr const char* Section = "F_Test";
constexpr std::array<const char*, 3> Axes{"X", "Y", "Z"};
constexpr const char* Groupes = "00 00 00 00000000 00000000 00000000 00000000 00000000 00000000 00 00 00000000";

QString Francais(const char* texte) { return QString::fromUtf8(texte); }

}  // namespace

F_Test::F_Test(QWidget* parent) : QDialog(parent) {
  setModal(true);
  Construit();
  PrepareFenetre(*this, Section);
}

void F_Test::Construit() {
  setWindowTitle(Francais("Envoi d'un mouvement"));
  QVBoxLayout* boite = ColonneFenetre(*this);
  boite->addWidget(
      Phrase("Lbl_Aide",
             Francais("Un seul mouvement est envoyé, sans être lancé : rien ne bouge. Ses octets se voient "
                      "quand DebugZENIK est actif."),
             this));
  QGridLayout* grille = GrilleFenetre();
  for (int rang = 0; rang < 3; ++rang) {
    const auto i = static_cast<std::size_t>(rang);
    const QString axe = QLatin1String(Axes[i]);
    distances_[i] =
        Champ(QStringLiteral("TB_") + axe, "mm", Francais("Distance en %1, sans son signe").arg(axe), this);
    distances_[i]->Montre("0");
    grille->addWidget(Etiquette(QStringLiteral("Lbl_Distance_%1").arg(rang), Francais("Distance en %1 :").arg(axe),
                                distances_[i]),
                      rang, 0);
    grille->addWidget(distances_[i], rang, 1);
    connect(distances_[i], &ChampNombre::textChanged, this,
            [this] { TB_VDeb_->setText(QString::fromStdString(VitesseDebutTest(Saisie()))); });
  }
  TB_VDeb_ =
      Nomme(new QLineEdit(this), "TB_VDeb", Francais("Vitesse à laquelle ce mouvement peut partir sans rampe"));
  MontreSeulement(*TB_VDeb_);
  TB_Vitesse_ = Champ("TB_Vitesse", "mm/s", Francais("Vitesse du mouvement"), this);
  TB_Vitesse_->Montre("1");
  grille->addWidget(Etiquette("Lbl_VDeb", Francais("Vitesse de départ :"), TB_VDeb_), 3, 0);
  grille->addWidget(TB_VDeb_, 3, 1);
  grille->addWidget(Etiquette("Lbl_Vitesse", "&Vitesse :", TB_Vitesse_), 4, 0);
  grille->addWidget(AvecEquivalent(TB_Vitesse_, SorteEquivalent::ParMinute), 4, 1);
  Lbl_Retour_ = Valeur("Lbl_Retour");
  Lbl_Retour_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  Lbl_Retour_->setMinimumWidth(Lbl_Retour_->fontMetrics().horizontalAdvance(QLatin1String(Groupes)));
  Lbl_Temps_ = Valeur("Lbl_Temps");
  grille->addWidget(Etiquette("Lbl_TitreRetour", "Octets :"), 5, 0);
  grille->addWidget(Lbl_Retour_, 5, 1);
  grille->addWidget(Etiquette("Lbl_TitreTemps", Francais("Durée (s) :")), 6, 0);
  grille->addWidget(Lbl_Temps_, 6, 1);
  grille->setColumnStretch(1, 1);
  boite->addLayout(grille);
  boite->addStretch();

  CB_Envoi_ = Bouton("CB_Envoi", "&Envoyer", Francais("Envoyer ce mouvement à la carte"), this);
  CB_Envoi_->setDefault(true);
  connect(CB_Envoi_, &QPushButton::clicked, this, &F_Test::CB_Envoi_Click);
  auto* fermer = Bouton("Btn_Fermer", "Fermer", Francais("Fermer la fenêtre"), this);
  fermer->setAutoDefault(false);
  connect(fermer, &QPushButton::clicked, this, &F_Test::reject);
  boite->addLayout(RangeeBoutons({CB_Envoi_, fermer}));
  OrdreTab({distances_[0], distances_[1], distances_[2], TB_VDeb_, TB_Vitesse_, CB_Envoi_, fermer});
}

SaisieTest F_Test::Saisie() const {
  return {{distances_[0]->Texte(), distances_[1]->Texte(), distances_[2]->Texte()}, TB_Vitesse_->Texte()};
}

void F_Test::CB_Envoi_Click() {
  for (ChampNombre* champ : {distances_[0], distances_[1], distances_[2], TB_Vitesse_}) {
    const auto valeur = NombreDuTexte(champ->Texte());
    constexpr double NombreMax = 1e6;
    if (!valeur || std::abs(*valeur) > NombreMax) return champ->Refuse(TexteQt(Textes::EssaiNombre));
    champ->Accepte();
  }
  const ResultatTest r = CB_Envoi(Saisie());
  TB_VDeb_->setText(QString::fromStdString(r.VDeb));
  Lbl_Retour_->setText(QString::fromStdString(r.retour));
  Lbl_Temps_->setText(QString::fromStdString(r.temps));
}

}  // namespace ovelin
