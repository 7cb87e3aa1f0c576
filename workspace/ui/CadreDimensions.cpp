#include "workspace/ui/CadreDimensions.h"

#include "base/Indices.h"
#include "core/Nombres.h"
#include "core/Textes.h"
#include "core/ui/TraduitFenetre.h"

namespace ovelin {

CadreDimensions::CadreDimensions(QWidget* parent) : QGroupBox(QStringLiteral("Dimensions"), parent) {
  setObjectName(QStringLiteral("FRAME1_DIMENSIONS"));
  QGridLayout* grille = GrilleGroupe(*this);
  grille->addWidget(EnTete("Lbl_Initial", "Actuelle"), 0, 1);
  grille->addWidget(EnTete("Lbl_Rapport", "Rapport"), 0, 2);
  grille->addWidget(EnTete("Lbl_Resultat", "Résultat"), 0, 3);
  for (int axe = 0; axe < 2; ++axe) {
    const auto i = base::Indice(axe);
    const QString suite = QLatin1Char('_') + QString::number(axe);
    initial_[i] = Champ("TB_Initial" + suite, "mm",
                        axe == 0 ? "Largeur actuelle de la sélection" : "Hauteur actuelle de la sélection");
    MontreSeulement(*initial_[i]);
    initial_[i]->setFocusPolicy(Qt::ClickFocus);
    auto* rapport = Champ("TB_Rapport" + suite, "",
                          axe == 0 ? "Multiplie la largeur : 2 la double" : "Multiplie la hauteur : 2 la double");
    auto* resultat = Champ("TB_Resultat" + suite, "mm",
                           axe == 0 ? "Largeur voulue de la sélection" : "Hauteur voulue de la sélection");
    rapport_[i] = new Saisie(rapport, [this, axe](const std::string& texte) { Entre(axe, false, texte); });
    resultat_[i] = new Saisie(resultat, [this, axe](const std::string& texte) { Entre(axe, true, texte); });
    grille->addWidget(Etiquette(axe == 0 ? "Lbl_DimX" : "Lbl_DimY", axe == 0 ? "X" : "Y", rapport), axe + 1, 0);
    grille->addWidget(initial_[i], axe + 1, 1);
    grille->addWidget(rapport, axe + 1, 2);
    grille->addWidget(resultat, axe + 1, 3);
  }
  prop_ = Coche("CB_Prop", "Proportions", "Le même rapport en X et en Y");
  ok_ = BoutonTexte("CB_OK_Dimension", "Appliquer", "Donner ces dimensions à la sélection");
  grille->addWidget(prop_, 3, 0, 1, 3, Qt::AlignLeft);
  grille->addWidget(ok_, 3, 3);
  for (int colonne = 1; colonne < 4; ++colonne) grille->setColumnStretch(colonne, 1);
  connect(prop_, &QCheckBox::clicked, this, [this](bool coche) {
    EntreProportions(champs_, coche);
    if (coche) MontreChamps();
  });
  connect(ok_, &QPushButton::clicked, this, &CadreDimensions::Applique);
}

void CadreDimensions::Commence(const std::array<std::string, 2>& tailles) {
  champs_ = TaillesPanneau(tailles, prop_->isChecked());
  MontreChamps();
  for (std::size_t i = 0; i < 2; ++i) initial_[i]->Montre(tailles[i]);
}

void CadreDimensions::Montre(const ChampsPanneau& champs) {
  Commence(champs.TB_Initial);
  for (std::size_t i = 0; i < 2; ++i) resultat_[i]->Montre(champs.TB_Resultat[i]);
}

void CadreDimensions::MontreTailles(const std::array<std::string, 2>& tailles) { Commence(tailles); }

void CadreDimensions::MontreChamps() {
  for (std::size_t i = 0; i < 2; ++i) {
    rapport_[i]->Montre(TexteRapport(champs_.axes[i].rapport));
    resultat_[i]->Montre(TexteResultat(champs_.axes[i].resultat));
  }
}

// The text of a ratio may be shorter than the ratio: left as it is, it says nothing new.
void CadreDimensions::Entre(int axe, bool resultat, const std::string& texte) {
  const auto i = base::Indice(axe);
  Saisie* saisie = (resultat ? resultat_ : rapport_)[i];
  const auto v = NombreDuTexte(texte);
  if (!v) return saisie->Refuse(RaisonNombre());
  if (!resultat) {
    EntreRapport(champs_, i, texte == saisie->EnVigueur() ? champs_.axes[i].rapport : *v);
  } else if (!EntreResultat(champs_, i, *v)) {
    return saisie->Refuse(TexteQt(Textes::ChampTailleNulle));
  }
  MontreChamps();
}

void CadreDimensions::Applique() {
  for (const auto& champs : {rapport_, resultat_}) {
    for (const Saisie* saisie : champs) {
      if (saisie->Champ()->EstRefuse()) return saisie->Champ()->setFocus(Qt::OtherFocusReason);
    }
  }
  CB_OK_Dimension(champs_);
}

}  // namespace ovelin
