#include "workspace/ui/PageSequences.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include "base/Indices.h"
#include "core/DocumentCourant.h"
#include "core/Nombres.h"
#include "toolpath/Module_Nettoyage.h"
#include "toolpath/Module_Ordre.h"
#include "workspace/Module_PanneauChamps.h"

namespace ovelin {

namespace {

struct Commande {
  const char* nom;
  const char* bulle;
  void (*fait)();
  bool selection;  // works on the selection
};

constexpr Commande Commandes1[] = {
    {"CB_Tout", "Tout sélectionner", CB_Tout, false},
    {"CB_InverseSelection", "Inverser la sélection", CB_InverseSelection, false},
    {"CB_Supprimer", "Supprimer les séquences choisies", [] { DemandeSupprimer(); }, true},
    {"CB_Ordre_0", "Fraiser plus tôt dans l'ordre", [] { ChangeOrdre(PasOrdre::PlusTot); }, true},
    {"CB_Ordre_1", "Fraiser plus tard dans l'ordre", [] { ChangeOrdre(PasOrdre::PlusTard); }, true},
    {"CB_Inversion", "Inverser le sens du parcours : l'outil passe de l'autre côté", InverseSelectionnees, true},
    {"CB_Lissage", "Lisser les séquences choisies", LisseSelection, true},
};

}  // namespace

PageSequences::PageSequences(QWidget* parent) : QWidget(parent) {
  setObjectName(QStringLiteral("FRAME_Sequences"));
  auto* colonne = new QVBoxLayout(this);
  colonne->setContentsMargins(6, 6, 6, 6);
  colonne->setSpacing(4);
  deplacement_ = new CadreDeplacement;
  dimensions_ = new CadreDimensions;
  colonne->addWidget(Commandes());
  colonne->addWidget(deplacement_);
  colonne->addWidget(Geometrie());
  colonne->addWidget(dimensions_);
  colonne->addWidget(Recalage());
  colonne->addStretch(1);
  OrdreTab(*this, {"CB_Tout",         "CB_InverseSelection", "CB_Supprimer",  "CB_Ordre_0",    "CB_Ordre_1",
                   "CB_Inversion",    "CB_Lissage",          "TB_X",          "TB_Y",          "HScroll_Sequence",
                   "CB_Haut",         "CB_Gauche",           "CB_Droite",     "CB_Bas",        "VScroll_Sequence",
                   "TB_Angle",        "CB_Rotation_0",       "CB_Rotation_1", "CB_Miroir_0",   "CB_Miroir_1",
                   "TB_Rapport_0",    "TB_Resultat_0",       "TB_Rapport_1",  "TB_Resultat_1", "CB_Prop",
                   "CB_OK_Dimension", "TB_DecalageX",        "TB_DecalageY",  "CB_OKRecalage"});
  avecSelection_.insert(avecSelection_.end(), {deplacement_, dimensions_});
  Remplit({});
}

QWidget* PageSequences::Commandes() {
  auto* cadre = new QWidget;
  auto* ligne = new QHBoxLayout(cadre);
  ligne->setContentsMargins(0, 0, 0, 0);
  ligne->setSpacing(4);
  for (const Commande& c : Commandes1) {
    QToolButton* bouton = BoutonIcone(c.nom, c.bulle);
    bouton->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    connect(bouton, &QToolButton::clicked, this, [fait = c.fait] { fait(); });
    ligne->addWidget(bouton);
    (c.selection ? avecSelection_ : avecDessin_).push_back(bouton);
  }
  return cadre;
}

QWidget* PageSequences::Geometrie() {
  QGroupBox* cadre = Groupe("FRAME1_GEOMETRIE", "Géométrie");
  QHBoxLayout* ligne = RangeeGroupe(*cadre);
  angle_ = Champ("TB_Angle", "°", "Angle de rotation");
  angle_->Montre("90");
  ligne->addWidget(Etiquette("Lbl_Angle", "Angle", angle_));
  ligne->addWidget(angle_, 1);
  static constexpr const char* Sens[] = {"Tourner dans le sens contraire des aiguilles d'une montre",
                                         "Tourner dans le sens des aiguilles d'une montre"};
  for (int i = 0; i < 2; ++i) {
    QToolButton* tourne = BoutonIcone(QStringLiteral("CB_Rotation_") + QString::number(i), Sens[i]);
    connect(tourne, &QToolButton::clicked, this, [this, i] { Tourne(i); });
    ligne->addWidget(tourne);
    rotation_[base::Indice(i)] = tourne;
  }
  ligne->addSpacing(8);
  static constexpr const char* Miroirs[] = {"Miroir : échanger la gauche et la droite",
                                            "Miroir : échanger le haut et le bas"};
  for (int i = 0; i < 2; ++i) {
    QToolButton* miroir = BoutonIcone(QStringLiteral("CB_Miroir_") + QString::number(i), Miroirs[i]);
    connect(miroir, &QToolButton::clicked, this, [i] { CB_Miroir(i); });
    ligne->addWidget(miroir);
  }
  avecSelection_.push_back(cadre);
  return cadre;
}

QWidget* PageSequences::Recalage() {
  QGroupBox* cadre = Groupe("FRAME1_RECALAGE", "Recalage");
  QHBoxLayout* ligne = RangeeGroupe(*cadre);
  recalage_ = {Champ("TB_DecalageX", "mm", "X du coin en bas à gauche"),
               Champ("TB_DecalageY", "mm", "Y du coin en bas à gauche")};
  for (std::size_t i = 0; i < 2; ++i) {
    ligne->addWidget(Etiquette(i == 0 ? "Lbl_DecalageX" : "Lbl_DecalageY", i == 0 ? "X" : "Y", recalage_[i]));
    ligne->addWidget(recalage_[i], 1);
  }
  QPushButton* ok =
      BoutonTexte("CB_OKRecalage", "Placer", "Déplacer tout le dessin : le coin de la sélection vient ici");
  connect(ok, &QPushButton::clicked, this, &PageSequences::Place);
  ligne->addWidget(ok);
  avecDessin_.push_back(cadre);
  return cadre;
}

void PageSequences::Remplit(const ChampsPanneau& champs) {
  for (QWidget* w : avecSelection_) w->setEnabled(champs.selectionnees > 0);
  for (QWidget* w : avecDessin_) w->setEnabled(!TraceInitial.empty());
  deplacement_->Montre(champs.TB_X, champs.TB_Y);
  dimensions_->Montre(champs);
}

void PageSequences::Deplace(Direction direction, double pas) { deplacement_->Deplace(direction, pas); }

void PageSequences::MontrePoint(const ResultatClic& clic) {
  if (clic.croix) deplacement_->MontrePoint(clic.TB_X, clic.TB_Y);
}

void PageSequences::Tourne(int index) {
  if (!EstNumerique(angle_->Texte())) {
    angle_->Refuse(RaisonNombre());
    return angle_->setFocus(Qt::OtherFocusReason);
  }
  const bool faite = CB_Rotation(index, angle_->Texte());
  rotation_[base::Indice(index)]->setFocus(Qt::OtherFocusReason);
  if (faite) dimensions_->MontreTailles(InitSeq().TB_Initial);
}

void PageSequences::Place() {
  for (ChampNombre* champ : recalage_) {
    if (EstNumerique(champ->Texte())) continue;
    champ->Refuse(RaisonNombre());
    return champ->setFocus(Qt::OtherFocusReason);
  }
  if (CB_OKRecalage(recalage_[0]->Texte(), recalage_[1]->Texte())) deplacement_->Remet();
}

}  // namespace ovelin
