#include "workspace/ui/PagePoints.h"

#include <QAbstractListModel>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "base/Indices.h"
#include "core/DocumentCourant.h"
#include "core/Nombres.h"
#include "core/ui/Fenetres.h"
#include "toolpath/Module_Ordre.h"
#include "toolpath/Module_Transforme.h"
#include "workspace/Module_PanneauChamps.h"
#include "workspace/ui/Saisie.h"

namespace ovelin {

namespace {

std::string TextePoint(const PointTrace& p) { return Formate(p.X, "0.000") + " | " + Formate(p.Y, "0.000"); }

bool EstPoint(std::int32_t index) { return index >= 0 && base::Indice(index) < TraceInitial.size(); }

}  // namespace

// The chosen points. A line is made when it is looked at, out of the document as it stands then.
class ModelePoints : public QAbstractListModel {
 public:
  using QAbstractListModel::QAbstractListModel;

  void Remplit(std::vector<std::int32_t> index) {
    if (index == index_) return;
    beginResetModel();
    index_ = std::move(index);
    endResetModel();
  }
  [[nodiscard]] const std::vector<std::int32_t>& Index() const { return index_; }
  [[nodiscard]] std::int32_t Point(int rang) const {
    return rang < 0 || rang >= rowCount({}) ? -1 : index_[base::Indice(rang)];
  }

  [[nodiscard]] int rowCount(const QModelIndex& parent) const override {
    return parent.isValid() ? 0 : base::Compte(index_.size());
  }
  [[nodiscard]] QVariant data(const QModelIndex& ligne, int role) const override {
    const std::int32_t i = Point(ligne.row());
    if (role != Qt::DisplayRole || !EstPoint(i)) return {};
    const PointTrace& p = TraceInitial[base::Indice(i)];
    const std::string cde = p.Cde == CodePD ? "" : "   " + p.Cde.Texte();
    return QString::fromStdString(TextePoint(p) + cde);
  }

 private:
  std::vector<std::int32_t> index_;
};

PagePoints::PagePoints(QWidget* parent) : QWidget(parent), modele_(new ModelePoints(this)) {
  setObjectName(QStringLiteral("FRAME_ListePoints"));
  QVBoxLayout* colonne = ColonnePage(*this);
  colonne->addWidget(Liste(), 1);
  colonne->addWidget(Boutons());
  colonne->addWidget(Position());
  colonne->addWidget(Origine());
  OrdreTab(*this, {"List_Position", "CB_Depart", "CB_Position", "CB_Supprimer_Point", "CB_Goto", "TB_PositionX",
                   "TB_PositionY", "CB_PositionOK", "CB_Origine"});
  ActivePoint();
}

QWidget* PagePoints::Liste() {
  auto* cadre = new QWidget;
  auto* colonne = new QVBoxLayout(cadre);
  colonne->setContentsMargins(0, 0, 0, 0);
  colonne->setSpacing(4);
  invite_ = Phrase("Lbl_ListePoints", "Choisissez des points dans l'arbre du dessin.");
  liste_ = Nomme(new QListView, "List_Position", "Points choisis dans l'arbre : X | Y en mm");
  liste_->setUniformItemSizes(true);
  liste_->setMinimumHeight(60);
  liste_->setModel(modele_);
  connect(liste_->selectionModel(), &QItemSelectionModel::currentChanged, this, &PagePoints::ActivePoint);
  colonne->addWidget(invite_);
  colonne->addWidget(liste_, 1);
  return cadre;
}

QWidget* PagePoints::Boutons() {
  auto* cadre = new QWidget;
  auto* colonne = new QVBoxLayout(cadre);
  colonne->setContentsMargins(0, 0, 0, 0);
  colonne->setSpacing(4);
  depart_ = BoutonTexte("CB_Depart", "Point de départ", "La séquence fermée commence à ce point");
  position_ = BoutonTexte("CB_Position", "Position...", "Donner d'autres coordonnées au point");
  supprime_ = BoutonTexte("CB_Supprimer_Point", "Supprimer", "Retirer du dessin les points choisis");
  goto_ = BoutonTexte("CB_Goto", "Y aller", "Déplacer la machine jusqu'au point");
  position_->setCheckable(true);
  // What is not there leaves its room to its neighbour.
  for (const auto& [gauche, droite] : {std::pair{depart_, position_}, std::pair{supprime_, goto_}}) {
    auto* ligne = new QHBoxLayout;
    ligne->setSpacing(4);
    ligne->addWidget(gauche, 1);
    ligne->addWidget(droite, 1);
    colonne->addLayout(ligne);
  }
  connect(depart_, &QAbstractButton::clicked, this, &PagePoints::Depart);
  connect(supprime_, &QAbstractButton::clicked, this, &PagePoints::Supprime);
  connect(position_, &QAbstractButton::clicked, this, [this](bool ouvert) {
    cadrePosition_->setVisible(ouvert);
    if (ouvert) x_->setFocus(Qt::TabFocusReason);
  });
  connect(goto_, &QAbstractButton::clicked, this, [this] {
    const std::int32_t point = PointActuel();
    if (OuvreFenetre) OuvreFenetre("F_PilMan", window());  // which shows the place on the way
    CB_Goto(point);
  });
  return cadre;
}

QWidget* PagePoints::Position() {
  cadrePosition_ = Nomme(new QFrame, "Frame_Position");
  cadrePosition_->setFrameStyle(QFrame::StyledPanel);
  auto* ligne = new QHBoxLayout(cadrePosition_);
  ligne->setContentsMargins(6, 4, 6, 4);
  ligne->setSpacing(4);
  x_ = Champ("TB_PositionX", "mm", "Nouveau X du point");
  y_ = Champ("TB_PositionY", "mm", "Nouveau Y du point");
  positionOK_ = BoutonIcone("CB_PositionOK", "Placer le point ici");
  ligne->addWidget(Etiquette("Lbl_PositionX", "X", x_));
  ligne->addWidget(x_, 1);
  ligne->addWidget(Etiquette("Lbl_PositionY", "Y", y_));
  ligne->addWidget(y_, 1);
  ligne->addWidget(positionOK_);
  cadrePosition_->hide();
  connect(positionOK_, &QAbstractButton::clicked, this, &PagePoints::PositionOK);
  for (ChampNombre* champ : {x_, y_}) connect(champ, &ChampNombre::Entree, this, &PagePoints::PositionOK);
  return cadrePosition_;
}

QWidget* PagePoints::Origine() {
  QGroupBox* cadre = Groupe("Frame_Origine", "Position marquée");
  auto* ligne = new QHBoxLayout(cadre);
  ligne->setContentsMargins(6, 4, 6, 6);
  marquee_ = Nomme(new QLabel, "Lbl_Marquee", "Point du tracé le plus proche du dernier clic sur le dessin");
  origine_ = BoutonTexte("CB_Origine", "Origine ici", "La position marquée devient le point (0, 0) du dessin");
  ligne->addWidget(marquee_, 1);
  ligne->addWidget(origine_);
  connect(origine_, &QAbstractButton::clicked, this, [] { CB_Origine(); });
  return cadre;
}

void PagePoints::Remplit(const ChampsPanneau& /*champs*/) {
  RelitChoix();
  marquee_->setText(QStringLiteral("X  %1 mm\nY  %2 mm")
                        .arg(QString::fromStdString(Formate(OrigineX, "0.000")),
                             QString::fromStdString(Formate(OrigineY, "0.000"))));
  origine_->setEnabled(!TraceInitial.empty());
}

void PagePoints::MontrePoint(const ResultatClic& clic) {
  RelitChoix();
  if (!clic.croix) return;
  const auto& index = modele_->Index();
  const auto meme = [&](std::int32_t i) {
    if (!EstPoint(i)) return false;
    const PointTrace& p = TraceInitial[base::Indice(i)];
    return p.X == clic.croix->X && p.Y == clic.croix->Y && p.Seq == clic.croix->Seq;
  };
  const auto it = std::find_if(index.begin(), index.end(), meme);
  if (it != index.end()) liste_->setCurrentIndex(modele_->index(base::Compte(it - index.begin()), 0));
}

// The current point stays the same one where it is still chosen; otherwise the first.
void PagePoints::RelitChoix() {
  const std::int32_t avant = PointActuel();
  modele_->Remplit(PointsChoisis ? PointsChoisis() : std::vector<std::int32_t>{});
  const auto& index = modele_->Index();
  const auto it = std::lower_bound(index.begin(), index.end(), avant);
  const bool la = it != index.end() && *it == avant;
  if (!index.empty()) liste_->setCurrentIndex(modele_->index(la ? base::Compte(it - index.begin()) : 0, 0));
  liste_->viewport()->update();
  ActivePoint();
}

std::int32_t PagePoints::PointActuel() const {
  const std::int32_t i = modele_->Point(liste_->currentIndex().row());
  return EstPoint(i) ? i : -1;
}

void PagePoints::ActivePoint() {
  const std::int32_t i = PointActuel();
  const bool un = i >= 0;
  invite_->setVisible(!un);
  for (QAbstractButton* b : {depart_, supprime_, position_, goto_, positionOK_}) b->setEnabled(un);
  goto_->setVisible(FenetreExiste && FenetreExiste("F_PilMan"));
  if (!un) {
    position_->setChecked(false);
    cadrePosition_->hide();
  }
  const PointTrace p = un ? TraceInitial[base::Indice(i)] : PointTrace{};
  x_->Montre(un ? TexteNombre(p.X) : "");
  y_->Montre(un ? TexteNombre(p.Y) : "");
  x_->Accepte();
  y_->Accepte();
}

void PagePoints::Depart() { ChangeDepart(PointActuel()); }

void PagePoints::Supprime() { SupprimePoints(modele_->Index()); }

void PagePoints::PositionOK() {
  for (ChampNombre* champ : {x_, y_}) {
    if (EstNumerique(champ->Texte())) continue;
    champ->Refuse(RaisonNombre());
    champ->setFocus(Qt::OtherFocusReason);
    return;
  }
  const std::int32_t i = PointActuel();
  if (i < 0) return;
  if (AvantPosition) AvantPosition(TraceInitial[base::Indice(i)].Seq);
  const bool place = CB_PositionOK(i, x_->Texte(), y_->Texte());
  if (ApresPosition) ApresPosition();
  if (!place) return;
  cadrePosition_->hide();
  position_->setChecked(false);
}

}  // namespace ovelin
