#include "workspace/ui/dialogues/F_Nettoyage.h"

#include <cmath>

#include "base/Indices.h"
#include "core/Nombres.h"
#include "core/ReglagesCourants.h"
#include "core/Textes.h"
#include "core/ui/Fenetres.h"
#include "machine/Module_Table.h"
#include "workspace/ui/dialogues/Tolerance.h"

namespace ovelin {

namespace {

constexpr const char* Section = "F_Nettoyage";

}  // namespace

F_Nettoyage::F_Nettoyage(QWidget* parent) : QDialog(parent) {
  Regl.Resolution = 0;
  Construit();
  PrepareFenetre(*this, Section);
  const auto resolutions = ResolutionsTable();
  for (std::size_t axe = 0; axe < Lbl_Resolution_.size(); ++axe) {
    const std::string texte = Formate(std::abs(resolutions[axe]), "0.000");
    Lbl_Resolution_[axe]->setText(QString::fromStdString(texte) + QStringLiteral(" mm"));
  }
  TB_Resolution_->Montre(TexteNombre(EnFloat(ResolutionFine())));
  TB_Resolution_->setFocus();
  TB_Resolution_->selectAll();
}

void F_Nettoyage::Construit() {
  setWindowTitle(QStringLiteral("Nettoyage"));
  QVBoxLayout* boite = ColonneFenetre(*this);
  QGridLayout* grille = GrilleFenetre();
  for (int axe = 0; axe < 2; ++axe) {
    QLabel* valeur =
        Valeur(QStringLiteral("Lbl_Resolution_%1").arg(axe), "Avance de la machine en un pas de moteur", this);
    valeur->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    const char* nom = axe == 0 ? "Label1" : "Label2";
    const char* texte = axe == 0 ? "Résolution de la machine en X :" : "Résolution de la machine en Y :";
    grille->addWidget(Etiquette(nom, texte), axe, 0);
    grille->addWidget(valeur, axe, 1);
    Lbl_Resolution_[base::Indice(axe)] = valeur;
  }
  TB_Resolution_ =
      Champ("TB_Resolution", "mm",
            "Les points plus proches que cette valeur, ou de la ligne de leurs voisins, sont retirés", this);
  grille->addWidget(Etiquette("Label3", "&Tolérance du nettoyage :", TB_Resolution_), 2, 0);
  grille->addWidget(TB_Resolution_, 2, 1);
  grille->setColumnStretch(0, 1);
  grille->setColumnMinimumWidth(1, 100);
  boite->addLayout(grille);
  boite->addStretch();
  const BoutonsDialogue boutons =
      PoseBoutons(*this, "Nettoyer le dessin avec cette tolérance", "Fermer sans rien changer");
  boite->addLayout(boutons.rangee);
  connect(TB_Resolution_, &ChampNombre::Quitte, this,
          [this] { LitTolerance(*TB_Resolution_, Textes::NettoyageNonNombre, Textes::NettoyageNegatif); });
  connect(boutons.ok, &QPushButton::clicked, this, [this] {
    const auto tolerance = LitTolerance(*TB_Resolution_, Textes::NettoyageNonNombre, Textes::NettoyageNegatif);
    if (!tolerance) return TB_Resolution_->setFocus();
    Regl.Resolution = *tolerance;
    accept();
  });
  OrdreTab({TB_Resolution_, boutons.ok, boutons.annuler});
}

}  // namespace ovelin
