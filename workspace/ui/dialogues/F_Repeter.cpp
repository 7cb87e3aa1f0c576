#include "workspace/ui/dialogues/F_Repeter.h"

#include <QGroupBox>
#include <QRadioButton>
#include <cmath>

#include "core/DocumentCourant.h"
#include "core/Nombres.h"
#include "core/Services.h"
#include "core/Textes.h"
#include "core/ui/Fabrique.h"
#include "core/ui/Fenetres.h"
#include "core/ui/TraduitFenetre.h"
#include "toolpath/Module_Copie.h"
#include "toolpath/Module_Transforme.h"
#include "workspace/ui/dialogues/ApercuDimension.h"

namespace ovelin {

namespace {

constexpr const char* Section = "F_Repeter";
constexpr std::size_t EnRangees = 0, EnRond = 1;  // of Option_Sorte
constexpr double CopiesMax = 1000;                // of each number
constexpr double PlaceEntre = 5;                  // mm between two copies as suggested
constexpr std::size_t PointsMontres = 200'000;    // more aren't previewed, but counted

}  // namespace

F_Repeter::F_Repeter(QWidget* parent) : QDialog(parent), copie_(CopieDe(Doc)) {
  Construit();
  PrepareFenetre(*this, Section);
  Remplit();
  Suit();
  rangees_[0]->setFocus();
  rangees_[0]->selectAll();
}

void F_Repeter::Construit() {
  setWindowTitle(QStringLiteral("Répéter la sélection"));
  QVBoxLayout* boite = ColonneFenetre(*this);
  apercu_ = Nomme(new ApercuDimension({}, this), "PB1", "Les copies et l'original");
  apercu_->setAccessibleName(QString::fromUtf8("Aperçu des copies"));
  boite->addWidget(apercu_, 1);
  boite->addWidget(Rangees());
  boite->addWidget(Rond());
  const BoutonsDialogue boutons = PoseBoutons(*this, "Faire ces copies", "Fermer sans rien changer");
  boite->addLayout(boutons.rangee);
  connect(boutons.ok, &QPushButton::clicked, this, &F_Repeter::Btn_OK_Click);
  for (auto* champs : {&rangees_, &rond_}) {
    for (ChampNombre* champ : *champs) {
      connect(champ, &QLineEdit::textEdited, this, [this, champs] {
        Option_Sorte_[champs == &rond_ ? EnRond : EnRangees]->setChecked(true);
        Suit();
      });
    }
  }
  for (QRadioButton* option : Option_Sorte_) connect(option, &QRadioButton::clicked, this, &F_Repeter::Suit);
  OrdreTab({Option_Sorte_[EnRangees], rangees_[0], rangees_[2], rangees_[1], rangees_[3], Option_Sorte_[EnRond],
            rond_[0], rond_[1], rond_[2], rond_[3], boutons.ok, boutons.annuler});
}

QWidget* F_Repeter::Rangees() {
  auto* cadre = new QWidget(this);
  auto* grille = new QGridLayout(cadre);
  grille->setContentsMargins(0, 0, 0, 0);
  Option_Sorte_[EnRangees] = Nomme(new QRadioButton(QStringLiteral("&Rangées et colonnes"), this), "Option_Sorte_0",
                                   "Des copies côte à côte");
  grille->addWidget(Option_Sorte_[EnRangees], 0, 0, 1, 4);
  rangees_ = {Champ("TB_Colonnes", "", "Nombre de colonnes, l'original compris", this),
              Champ("TB_Rangees", "", "Nombre de rangées, l'original compris", this),
              Champ("TB_PasX", "mm", "D'une colonne à la suivante, de coin à coin", this),
              Champ("TB_PasY", "mm", "D'une rangée à la suivante, de coin à coin", this)};
  grille->addWidget(Etiquette("Lbl_Colonnes", "Colonnes", rangees_[0]), 1, 0);
  grille->addWidget(rangees_[0], 1, 1);
  grille->addWidget(Etiquette("Lbl_PasX", "tous les", rangees_[2]), 1, 2);
  grille->addWidget(rangees_[2], 1, 3);
  grille->addWidget(Etiquette("Lbl_Rangees", "Rangées", rangees_[1]), 2, 0);
  grille->addWidget(rangees_[1], 2, 1);
  grille->addWidget(Etiquette("Lbl_PasY", "toutes les", rangees_[3]), 2, 2);
  grille->addWidget(rangees_[3], 2, 3);
  return cadre;
}

QWidget* F_Repeter::Rond() {
  auto* cadre = new QWidget(this);
  auto* grille = new QGridLayout(cadre);
  grille->setContentsMargins(0, 0, 0, 0);
  Option_Sorte_[EnRond] =
      Nomme(new QRadioButton(QStringLiteral("&Autour d'un point"), this), "Option_Sorte_1", "Des copies en rond");
  grille->addWidget(Option_Sorte_[EnRond], 0, 0, 1, 4);
  rond_ = {Champ("TB_Nombre", "", "Nombre en tout, l'original compris", this),
           Champ("TB_Angle", "°", "D'une copie à la suivante ; 360 divisé par le nombre fait le tour", this),
           Champ("TB_CentreX", "mm", "X du point au milieu", this),
           Champ("TB_CentreY", "mm", "Y du point au milieu", this)};
  grille->addWidget(Etiquette("Lbl_Nombre", "Nombre", rond_[0]), 1, 0);
  grille->addWidget(rond_[0], 1, 1);
  grille->addWidget(Etiquette("Lbl_Angle", "tous les", rond_[1]), 1, 2);
  grille->addWidget(rond_[1], 1, 3);
  grille->addWidget(Etiquette("Lbl_CentreX", "Centre X", rond_[2]), 2, 0);
  grille->addWidget(rond_[2], 2, 1);
  grille->addWidget(Etiquette("Lbl_CentreY", "Y", rond_[3]), 2, 2);
  grille->addWidget(rond_[3], 2, 3);
  return cadre;
}

// Side by side with a little room; a whole turn around the marked place of the drawing.
void F_Repeter::Remplit() {
  const BoiteCopie b = BoiteDe(copie_);
  const auto pas = [](double taille) { return TexteNombre(std::ceil(taille + PlaceEntre)); };
  const std::array<std::string, 4> rangees{"2", "1", pas(b.xmax - b.xmin), pas(b.ymax - b.ymin)};
  const std::array<std::string, 4> rond{"6", "60", "0", "0"};
  for (std::size_t i = 0; i < 4; ++i) {
    rangees_[i]->Montre(rangees[i]);
    rond_[i]->Montre(rond[i]);
  }
  Option_Sorte_[EnRangees]->setChecked(true);
}

std::optional<double> F_Repeter::Lit(ChampNombre& champ, double min, double max, bool entier, bool dit) {
  const auto v = NombreDuTexte(champ.Texte());
  if (v && *v >= min && *v <= max && (!entier || *v == std::floor(*v))) return v;
  if (dit) {
    champ.Refuse(TexteQt(entier ? Textes::RepeterNombre : Textes::RepeterDistance));
    champ.setFocus();
  }
  return std::nullopt;
}

std::optional<std::vector<Pose>> F_Repeter::Voeu(bool dit) {
  if (Option_Sorte_[EnRond]->isChecked()) {
    const auto nombre = Lit(*rond_[0], 1, CopiesMax, true, dit);
    const auto angle = Lit(*rond_[1], -360, 360, false, dit);
    const auto x = Lit(*rond_[2], -CoordonneeMax, CoordonneeMax, false, dit);
    const auto y = Lit(*rond_[3], -CoordonneeMax, CoordonneeMax, false, dit);
    if (!nombre || !angle || !x || !y) return std::nullopt;
    return PosesDe(ReseauTournant{static_cast<int>(*nombre), *angle * Pi / 180, *x, *y});
  }
  const auto colonnes = Lit(*rangees_[0], 1, CopiesMax, true, dit);
  const auto rangees = Lit(*rangees_[1], 1, CopiesMax, true, dit);
  const auto pasX = Lit(*rangees_[2], -CoordonneeMax, CoordonneeMax, false, dit);
  const auto pasY = Lit(*rangees_[3], -CoordonneeMax, CoordonneeMax, false, dit);
  if (!colonnes || !rangees || !pasX || !pasY) return std::nullopt;
  return PosesDe(Reseau{static_cast<int>(*colonnes), static_cast<int>(*rangees), *pasX, *pasY});
}

// Each copy under codes of its own, so that no line joins two of them.
void F_Repeter::Suit() {
  Document vue;
  const auto poses = Voeu(false);
  AjouteCopies(vue, copie_, {[](const PointTrace& p) { return LieuCopie{p.X, p.Y}; }}, CoordonneeMax);
  if (poses && poses->size() * copie_.points.size() < PointsMontres) {
    AjouteCopies(vue, copie_, *poses, CoordonneeMax);
  }
  apercu_->Prend(std::move(vue.TraceInitial));
}

void F_Repeter::Btn_OK_Click() {
  const auto poses = Voeu(true);
  if (poses && RepeteSelection(*poses)) accept();
}

}  // namespace ovelin
