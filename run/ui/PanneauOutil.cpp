#include "run/ui/PanneauOutil.h"

#include "core/Nombres.h"
#include "core/Textes.h"
#include "core/ui/Equivalent.h"
#include "core/ui/Fabrique.h"
#include "core/ui/TraduitFenetre.h"

namespace ovelin {

PanneauOutil::PanneauOutil(QWidget* parent) : QGroupBox(QStringLiteral("Outil"), parent) {
  setObjectName(QStringLiteral("Frame_Outil"));
  QGridLayout* grille = GrilleFenetre();
  grille->setContentsMargins(8, 6, 8, 8);
  setLayout(grille);
  champs_.reserve(LignesOutil().size());
  for (const LigneOutil& ligne : LignesOutil()) {
    if (ligne.entre == EntreMiniEncoche) continue;
    ChampNombre* champ = Champ(ligne.champ, ligne.unite, ligne.bulle, this);
    const std::size_t rang = champs_.size();
    champs_.push_back({champ, &ligne});
    connect(champ, &ChampNombre::Quitte, this, [this, rang](bool change) {
      if (change) Entre(champs_[rang]);
    });
    const int rangee = static_cast<int>(rang);
    grille->addWidget(Etiquette(ligne.etiquette, ligne.texte, champ), rangee, 0);
    // A row of a radius has its diameter beside it.
    const bool rayon = ligne.entre == EntreRayonFraise;
    grille->addWidget(rayon ? AvecEquivalent(champ, SorteEquivalent::Diametre) : champ, rangee, 1);
  }
  rampe_ = Valeur("Lbl_LongueurRampe");
  rampe_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  grille->addWidget(rampe_, static_cast<int>(champs_.size()), 0, 1, 2);
  grille->setColumnStretch(0, 1);
  Suit();
}

void PanneauOutil::Suit() {
  for (const ChampOutil& c : champs_) {
    const std::string valeur = c.ligne->valeur();
    const bool libre =
        !c.champ->EstRefuse() && (!c.champ->hasFocus() || c.champ->Texte() == c.champ->TexteEntree());
    if (libre && c.champ->Texte() != valeur) c.champ->Montre(valeur);
  }
  MontreRampe();
}

// Below the angle: the way that a pass needs to come down, or that it needs none.
void PanneauOutil::MontreRampe() {
  const auto longueur = RampeDePasse();
  rampe_->setText(longueur ? TexteQt(Textes::RampeParPasse) + QLatin1Char(' ') +
                                 QString::fromStdString(Formate(*longueur, "0.0")) + QStringLiteral(" mm")
                           : TexteQt(Textes::RampeAucune));
}

std::vector<QWidget*> PanneauOutil::Champs() const {
  std::vector<QWidget*> champs;
  champs.reserve(champs_.size());
  for (const ChampOutil& c : champs_) champs.push_back(c.champ);
  return champs;
}

void PanneauOutil::Entre(const ChampOutil& c) {
  const IssueOutil issue = EntreOutil(*c.ligne, c.champ->Texte());
  if (issue.accepte) {
    c.champ->Accepte();
    c.champ->Montre(c.ligne->valeur());
  } else {
    c.champ->Refuse(issue.raison ? TexteQt(*issue.raison) : QString());
  }
  MontreRampe();
  if (issue.accepte || issue.stocke) Q_EMIT Change();
}

}  // namespace ovelin
