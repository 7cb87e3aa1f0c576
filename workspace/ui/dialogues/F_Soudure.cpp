#include "workspace/ui/dialogues/F_Soudure.h"

#include <QScrollBar>
#include <QSignalBlocker>
#include <algorithm>

#include "core/Nombres.h"
#include "core/ReglagesCourants.h"
#include "core/Textes.h"
#include "core/ui/Fenetres.h"
#include "workspace/ui/dialogues/Tolerance.h"

namespace ovelin {

namespace {

constexpr const char* Section = "F_Soudure";
// The bar runs downward from 0.5 mm in steps of 0.1.
constexpr int PlaceMax = 5;
constexpr double PlacesParMm = 10;

double ValeurDe(int place) { return (PlaceMax - place) / PlacesParMm; }
int PlaceDe(double v) { return std::clamp(PlaceMax - Arrondi32(v * PlacesParMm), 0, PlaceMax); }

}  // namespace

F_Soudure::F_Soudure(QWidget* parent) : QDialog(parent) {
  Construit();
  PrepareFenetre(*this, Section);
  TB_Tolerance_->Montre(TexteNombre(Regl.ToleranceSoudure));
  SuitChamp();
  TB_Tolerance_->setFocus();
  TB_Tolerance_->selectAll();
}

void F_Soudure::Construit() {
  setWindowTitle(QStringLiteral("Tolérance de soudure"));
  QVBoxLayout* boite = ColonneFenetre(*this);
  TB_Tolerance_ =
      Champ("TB_Tolerance", "",
            "Les extrémités plus proches que cette valeur sont jointes à l'ouverture d'un dessin", this);
  VScroll_Tolerance_ =
      Nomme(new QScrollBar(Qt::Vertical, this), "VScroll_Tolerance", "De 0,5 mm en haut à 0 en bas, par dixièmes");
  VScroll_Tolerance_->setRange(0, PlaceMax);
  VScroll_Tolerance_->setPageStep(1);
  VScroll_Tolerance_->setFocusPolicy(Qt::StrongFocus);
  VScroll_Tolerance_->setAccessibleName(QStringLiteral("Tolérance par dixièmes"));
  VScroll_Tolerance_->setMinimumHeight(90);
  auto* etiquette = Etiquette("Label1", "&Tolérance des extrémités (mm)", TB_Tolerance_);
  auto* aide = Phrase("Label2", "Agit sur les dessins ouverts ensuite.");
  QGridLayout* grille = GrilleFenetre();
  grille->setHorizontalSpacing(12);
  grille->addWidget(etiquette, 0, 0);
  grille->addWidget(TB_Tolerance_, 1, 0);
  grille->addWidget(aide, 2, 0);
  grille->addWidget(VScroll_Tolerance_, 0, 1, 4, 1);
  grille->setRowStretch(3, 1);
  grille->setColumnStretch(0, 1);
  grille->setColumnMinimumWidth(0, 220);
  boite->addLayout(grille, 1);
  const BoutonsDialogue boutons = PoseBoutons(*this, "Garder cette tolérance", "Fermer sans rien changer");
  boite->addLayout(boutons.rangee);
  connect(TB_Tolerance_, &ChampNombre::Quitte, this, [this] {
    if (LitTolerance(*TB_Tolerance_, Textes::SoudureNonNombre, Textes::SoudureNegative)) SuitChamp();
  });
  connect(VScroll_Tolerance_, &QScrollBar::valueChanged, this, &F_Soudure::SuitCurseur);
  connect(boutons.ok, &QPushButton::clicked, this, [this] {
    const auto tolerance = LitTolerance(*TB_Tolerance_, Textes::SoudureNonNombre, Textes::SoudureNegative);
    if (!tolerance) return TB_Tolerance_->setFocus();
    Regl.ToleranceSoudure = *tolerance;
    EcritSoudure();
    accept();
  });
  OrdreTab({TB_Tolerance_, VScroll_Tolerance_, boutons.ok, boutons.annuler});
}

void F_Soudure::SuitChamp() {
  const QSignalBlocker silence(VScroll_Tolerance_);  // the field keeps a value between two places
  VScroll_Tolerance_->setValue(PlaceDe(NombreDuTexte(TB_Tolerance_->Texte()).value_or(0)));
}

void F_Soudure::SuitCurseur(int place) {
  TB_Tolerance_->Accepte();
  TB_Tolerance_->Montre(TexteNombre(ValeurDe(place)));
}

}  // namespace ovelin
