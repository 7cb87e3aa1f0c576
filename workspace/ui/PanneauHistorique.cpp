#include "workspace/ui/PanneauHistorique.h"

#include <QAbstractListModel>
#include <QEvent>
#include <QFont>
#include <QHash>
#include <QVBoxLayout>
#include <utility>

#include "base/Indices.h"
#include "core/ui/Fabrique.h"
#include "core/ui/Theme.h"
#include "image/ui/Vignette.h"

namespace ovelin {

namespace {

constexpr QSize TailleVignette(54, 38);
constexpr int LargeurPanneau = 268;

}  // namespace

// The steps as lines; their pictures are painted when they are looked at.
class ModeleHistorique : public QAbstractListModel {
 public:
  explicit ModeleHistorique(QWidget& vue) : QAbstractListModel(&vue), vue_(vue) {}

  void Prend(Historique historique) {
    beginResetModel();
    historique_ = std::move(historique);
    endResetModel();
  }
  // In other colours.
  void Repeint() {
    images_.clear();
    if (rowCount() > 0) Q_EMIT dataChanged(index(0), index(rowCount() - 1));
  }
  [[nodiscard]] const Historique& Etat() const { return historique_; }

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : base::Compte(historique_.pas.size());
  }

  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override {
    if (!index.isValid()) return {};
    const PasHistorique& pas = historique_.pas[base::Indice(index.row())];
    const int numero = index.row() + 1;
    switch (role) {
      case Qt::DisplayRole:
        return QString::fromStdString(TexteChangement(pas.changement));
      case Qt::ForegroundRole:
        if (!pas.changement.Muet()) return {};
        return GrisLisible(vue_.palette().color(QPalette::Base));
      case Qt::FontRole: {
        QFont police = vue_.font();
        police.setBold(numero == historique_.present);
        police.setItalic(numero > historique_.present);
        return police;
      }
      case Qt::DecorationRole:
        return Image(pas);
      default:
        return {};
    }
  }

 private:
  // States of one drawing share their points, and so their picture.
  QPixmap Image(const PasHistorique& pas) const {
    constexpr qsizetype ImagesMax = 400;
    const std::vector<PointTrace>* points = pas.apercu.get();
    if (points == nullptr) return Vignette({}, TailleVignette, vue_);
    const auto faite = images_.constFind(points);
    if (faite != images_.constEnd()) return faite->image;
    if (images_.size() >= ImagesMax) images_.clear();
    return images_.insert(points, {pas.apercu, Vignette(*points, TailleVignette, vue_)})->image;
  }

  // The points are held with the picture: another drawing at the same address would pass for them.
  struct Faite {
    std::shared_ptr<const std::vector<PointTrace>> points;
    QPixmap image;
  };

  QWidget& vue_;
  Historique historique_;
  mutable QHash<const std::vector<PointTrace>*, Faite> images_;
};

PanneauHistorique::PanneauHistorique(QWidget* parent) : QWidget(parent) {
  setObjectName(QStringLiteral("Frame_Historique"));
  setFixedWidth(LargeurPanneau);
  QVBoxLayout* colonne = ColonnePage(*this);
  liste_ = Nomme(new QListView(this), "List_Historique", "Un clic revient à cet état, ou y retourne");
  liste_->setAccessibleName(QStringLiteral("Étapes"));
  liste_->setIconSize(TailleVignette);
  liste_->setUniformItemSizes(true);
  liste_->setSelectionMode(QAbstractItemView::SingleSelection);
  liste_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  liste_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  liste_->setTextElideMode(Qt::ElideRight);
  modele_ = new ModeleHistorique(*liste_);
  liste_->setModel(modele_);
  reculer_ =
      Bouton("CB_Reculer", "Reculer", "Avant le dernier changement, sans compter la vue ni la sélection", this);
  avancer_ = Bouton("CB_Avancer", "Avancer", "Au changement suivant, sans compter la vue ni la sélection", this);
  colonne->addWidget(Etiquette("Lbl_Historique", "Étapes", liste_));
  colonne->addWidget(liste_, 1);
  auto* rangee = new QHBoxLayout;
  rangee->addWidget(reculer_);
  rangee->addWidget(avancer_);
  colonne->addLayout(rangee);
  for (QPushButton* bouton : {reculer_, avancer_}) bouton->setAutoDefault(false);
  const auto va = [this](const QModelIndex& index) {
    if (!enRun_ && index.isValid()) Q_EMIT Va(index.row() + 1);
  };
  connect(liste_, &QListView::clicked, this, va);
  connect(liste_, &QListView::activated, this, va);
  connect(reculer_, &QPushButton::clicked, this, [this] { Q_EMIT Va(PasAvantChangement(modele_->Etat())); });
  connect(avancer_, &QPushButton::clicked, this, [this] { Q_EMIT Va(PasApresChangement(modele_->Etat())); });
  Permet();
  hide();
}

void PanneauHistorique::Suit() {
  if (isHidden()) return;
  modele_->Prend(HistoriqueCourant());
  const QModelIndex present = modele_->index(modele_->Etat().present - 1);
  liste_->setCurrentIndex(present);
  liste_->scrollTo(present);
  Permet();
}

void PanneauHistorique::EnRun(bool enRun) {
  enRun_ = enRun;
  Permet();
}

void PanneauHistorique::Permet() {
  reculer_->setEnabled(!enRun_ && PasAvantChangement(modele_->Etat()) > 0);
  avancer_->setEnabled(!enRun_ && PasApresChangement(modele_->Etat()) > 0);
}

void PanneauHistorique::showEvent(QShowEvent* e) {
  QWidget::showEvent(e);
  Suit();
}

void PanneauHistorique::changeEvent(QEvent* e) {
  QWidget::changeEvent(e);
  if (e->type() == QEvent::PaletteChange && modele_ != nullptr) modele_->Repeint();
}

}  // namespace ovelin
