#include "gcode/ui/ModeleProgramme.h"

#include <QFont>
#include <algorithm>

#include "base/Indices.h"
#include "core/Couleurs.h"
#include "core/Texte8.h"

namespace ovelin {

namespace {

constexpr std::size_t LongueurMontree = 400;  // bytes of a line that the list shows
constexpr std::int32_t Gris = Couleur(150, 150, 150);
constexpr std::int32_t Rouge = Couleur(255, 0, 0);
constexpr std::int32_t Ambre = Couleur(190, 120, 0);

std::int32_t EnCouleur(const QColor& c) { return ovelin::Couleur(c.red(), c.green(), c.blue()); }
QColor EnQt(std::int32_t c) { return {c & 255, (c >> 8) & 255, (c >> 16) & 255}; }

}  // namespace

ModeleProgramme::ModeleProgramme(QObject* parent) : QAbstractTableModel(parent) {
  for (int i = 0; i < NombreColonnes; ++i) titres_ += QString();
}

void ModeleProgramme::Montre(const Programme* programme) {
  beginResetModel();
  programme_ = programme;
  mouvements_.clear();
  refusees_.clear();
  for (std::size_t i = 0; programme_ != nullptr && i < programme_->NombreLignes(); ++i) {
    if (programme_->JugementDe(i) == Jugement::Refusee) refusees_.push_back(static_cast<std::uint32_t>(i));
  }
  endResetModel();
}

void ModeleProgramme::Filtre(bool refusees) {
  beginResetModel();
  filtre_ = refusees;
  endResetModel();
}

void ModeleProgramme::Mouvements(std::size_t ligne, std::uint32_t numero) {
  if (programme_ == nullptr || ligne >= programme_->NombreLignes()) return;
  if (mouvements_.empty()) mouvements_.resize(programme_->NombreLignes());
  mouvements_[ligne] = numero;
  const int rangee = RangeeDe(ligne);
  if (rangee >= 0) Q_EMIT dataChanged(index(rangee, Mouvement), index(rangee, Mouvement));
}

void ModeleProgramme::EffaceMouvements() {
  if (mouvements_.empty()) return;
  mouvements_.clear();
  Q_EMIT dataChanged(index(0, Mouvement), index(rowCount() - 1, Mouvement));
}

int ModeleProgramme::RangeeDe(std::size_t ligne) const {
  if (!filtre_) return base::Compte(ligne);
  const auto place = std::lower_bound(refusees_.begin(), refusees_.end(), static_cast<std::uint32_t>(ligne));
  return place != refusees_.end() && *place == ligne ? base::Compte(place - refusees_.begin()) : -1;
}

std::size_t ModeleProgramme::LigneDe(int rangee) const {
  const auto i = base::Indice(rangee);
  return filtre_ ? refusees_[i] : i;
}

void ModeleProgramme::Papier(const QColor& papier) {
  papier_ = papier;
  if (rowCount() > 0) Q_EMIT dataChanged(index(0, Numero), index(rowCount() - 1, Mouvement));
}

int ModeleProgramme::rowCount(const QModelIndex& parent) const {
  if (parent.isValid() || programme_ == nullptr) return 0;
  const std::size_t n = filtre_ ? refusees_.size() : programme_->NombreLignes();
  return base::Compte(std::min<std::size_t>(n, std::numeric_limits<int>::max()));
}

int ModeleProgramme::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : NombreColonnes; }

// A comment is grey, a refused line red; what the interpreter skips is bold, whatever its colour.
QVariant ModeleProgramme::Couleur(Jugement jugement) const {
  const std::int32_t papier = EnCouleur(papier_);
  switch (jugement) {
    case Jugement::Commentaire:
      return EnQt(papier == ovelin::Couleur(255, 255, 255) ? Gris : CouleurLisible(Gris, papier));
    case Jugement::Refusee:
      return EnQt(CouleurLisible(Rouge, papier));
    case Jugement::Douteuse:
      return EnQt(CouleurLisible(Ambre, papier));
    case Jugement::Valide:
      break;
  }
  return {};
}

QVariant ModeleProgramme::data(const QModelIndex& index, int role) const {
  if (programme_ == nullptr || !index.isValid() || index.row() >= rowCount()) return {};
  const std::size_t ligne = LigneDe(index.row());
  const Jugement jugement = programme_->JugementDe(ligne);
  switch (role) {
    case Qt::DisplayRole:
      if (index.column() == Numero) return static_cast<qulonglong>(ligne + 1);
      if (index.column() == Texte) {
        return QString::fromStdString(DeTexte8(Coupe8(programme_->Ligne(ligne), LongueurMontree)));
      }
      if (mouvements_.empty() || mouvements_[ligne] == 0) return {};
      return mouvements_[ligne];
    case Qt::ForegroundRole:
      return Couleur(jugement);
    case Qt::FontRole:
      if (EstValide(jugement)) return {};
      {
        QFont gras;
        gras.setBold(true);
        return gras;
      }
    case Qt::TextAlignmentRole:
      return static_cast<int>(Qt::AlignVCenter) |
             static_cast<int>(index.column() == Texte ? Qt::AlignLeft : Qt::AlignRight);
    default:
      return {};
  }
}

QVariant ModeleProgramme::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section >= NombreColonnes) return {};
  return titres_[section];
}

bool ModeleProgramme::setHeaderData(int section, Qt::Orientation orientation, const QVariant& valeur, int role) {
  if (orientation != Qt::Horizontal || (role != Qt::EditRole && role != Qt::DisplayRole)) return false;
  titres_[section] = valeur.toString();
  Q_EMIT headerDataChanged(orientation, section, section);
  return true;
}

}  // namespace ovelin
