#include "toolpath/ui/F_Vinyl.h"

#include <QCheckBox>
#include <QRadioButton>
#include <QSignalBlocker>

#include "core/DocumentCourant.h"
#include "core/ui/Fabrique.h"
#include "core/ui/Fenetres.h"
#include "toolpath/Module_Vinyl.h"

namespace ovelin {

namespace {

constexpr const char* Section = "F_Vinyl";
constexpr int Depart = 0, Marge = 1;  // of Option1

// Row and column of each arrow around the drawing: corners from the upper left clockwise, then sides from the top.
struct PlaceFleche {
  int rangee, colonne;
  const char* bulle;
};
constexpr std::array<PlaceFleche, 8> Places{{
    {0, 0, "Coin en haut à gauche"},
    {0, 2, "Coin en haut à droite"},
    {2, 2, "Coin en bas à droite"},
    {2, 0, "Coin en bas à gauche"},
    {0, 1, "Côté haut"},
    {1, 2, "Côté droit"},
    {2, 1, "Côté bas"},
    {1, 0, "Côté gauche"},
}};

}  // namespace

F_Vinyl::F_Vinyl(QWidget* parent) : QDialog(parent) {
  Construit();
  PrepareFenetre(*this, Section);
  const bool prolonge = Prolongement != Faux;
  Option1_[prolonge ? Marge : Depart]->setChecked(true);
  CB_Prolongement_->setChecked(prolonge);
  MontreFleches(!prolonge);
  for (QToolButton* fleche : CB_Fleche_) fleche->setAccessibleName(fleche->toolTip());
  option_ = prolonge ? Marge : Depart;
  connect(CB_Prolongement_, &QCheckBox::toggled, this, [this](bool actif) {
    if (!RegleProlongement(actif)) CocheProlongement(!actif);
  });
  for (int i = 0; i < 2; ++i) {
    connect(Option1_[static_cast<std::size_t>(i)], &QRadioButton::clicked, this, [this, i] { Option1_Click(i); });
  }
}

void F_Vinyl::Construit() {
  setWindowTitle(QStringLiteral("Outil optimisation vinyl"));
  QVBoxLayout* boite = ColonneFenetre(*this);
  Option1_[Depart] = Nomme(new QRadioButton(QStringLiteral("&Point de départ"), this), "Option1_0",
                           "Choisir où débute et se termine chaque découpe fermée");
  Option1_[Marge] = Nomme(new QRadioButton(QStringLiteral("&Segments de positionnement dans la marge"), this),
                          "Option1_1", "La lame s'oriente sous le dessin avant chaque découpe fermée");
  boite->addWidget(Option1_[Depart]);
  Lbl_Fleches_ = Phrase("Lbl_Fleches", "Coin ou côté par lequel on débute et on termine chaque découpe", this);
  Lbl_Fleches_->setMinimumSize(300, 2 * Lbl_Fleches_->fontMetrics().lineSpacing());
  boite->addWidget(Lbl_Fleches_);
  rose_ = Rose();
  boite->addWidget(rose_, 0, Qt::AlignHCenter);
  boite->addWidget(Option1_[Marge]);
  CB_Prolongement_ = Coche("CB_Prolongement", "Prolongement de la &découpe",
                           "Chaque découpe fermée dépasse son départ d'un millimètre", this);
  boite->addWidget(CB_Prolongement_);
  boite->addStretch();
  QPushButton* fermer = Bouton("Btn_Fermer", "Fermer", "Fermer la fenêtre", this);
  fermer->setDefault(true);
  connect(fermer, &QPushButton::clicked, this, &F_Vinyl::accept);
  boite->addLayout(RangeeBoutons({fermer}));
  QWidget* avant = Option1_[Depart];
  for (const std::size_t i : {0U, 4U, 1U, 7U, 5U, 3U, 6U, 2U}) {  // row by row
    setTabOrder(avant, CB_Fleche_[i]);
    avant = CB_Fleche_[i];
  }
  OrdreTab({avant, Option1_[Marge], CB_Prolongement_, fermer});
}

QWidget* F_Vinyl::Rose() {
  constexpr int Cote = 44;  // of a button, a target for a finger
  constexpr int Ecart = 6;
  auto* rose = Nomme(new QWidget(this), "Frame_Fleches");
  auto* grille = new QGridLayout(rose);
  grille->setContentsMargins(0, 0, 0, 0);
  grille->setSpacing(Ecart);
  rose->setFixedSize(3 * Cote + 2 * Ecart, 3 * Cote + 2 * Ecart);
  for (int i = 0; i < 8; ++i) {
    const auto& place = Places[static_cast<std::size_t>(i)];
    QToolButton* fleche = BoutonIcone(QStringLiteral("CB_Fleche_%1").arg(i), QString::fromUtf8(place.bulle));
    fleche->setCheckable(true);
    fleche->setFixedSize(Cote, Cote);
    connect(fleche, &QToolButton::clicked, this, [this, i] { CB_Fleche_Click(i); });
    grille->addWidget(fleche, place.rangee, place.colonne);
    CB_Fleche_[static_cast<std::size_t>(i)] = fleche;
  }
  return rose;
}

void F_Vinyl::CB_Fleche_Click(int index) {
  CocheFleche(index);
  if (ChoixDepart(index)) {
    fleche_ = index;
  } else {
    CocheFleche(fleche_);
  }
}

void F_Vinyl::CocheFleche(int index) {
  for (int i = 0; i < 8; ++i) CB_Fleche_[static_cast<std::size_t>(i)]->setChecked(i == index);
}

// Taken back, the window shows again what it showed.
void F_Vinyl::Option1_Click(int index) {
  const bool prolonge = index == Marge;
  const bool avant = CB_Prolongement_->isChecked();
  MontreFleches(!prolonge);
  CocheProlongement(prolonge);
  if (RegleProlongement(prolonge)) {
    option_ = index;
    return;
  }
  Option1_[static_cast<std::size_t>(option_)]->setChecked(true);
  MontreFleches(option_ == Depart);
  CocheProlongement(avant);
}

void F_Vinyl::CocheProlongement(bool actif) {
  const QSignalBlocker silence(CB_Prolongement_);
  CB_Prolongement_->setChecked(actif);
}

// The room stays, so that the window keeps its size.
void F_Vinyl::MontreFleches(bool visibles) {
  for (QWidget* w : {static_cast<QWidget*>(rose_), static_cast<QWidget*>(Lbl_Fleches_)}) {
    QSizePolicy politique = w->sizePolicy();
    politique.setRetainSizeWhenHidden(true);
    w->setSizePolicy(politique);
    w->setVisible(visibles);
  }
}

}  // namespace ovelin
