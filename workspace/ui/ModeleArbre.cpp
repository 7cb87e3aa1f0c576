#include "workspace/ui/ModeleArbre.h"

#include <QFont>
#include <QGuiApplication>
#include <QPainter>
#include <algorithm>
#include <optional>

#include "base/Indices.h"
#include "core/ui/Theme.h"

namespace ovelin {

namespace {

// Internal id of an index: the root, a group, and behind these two a pair for each group, of the rows below it and
// of those in its fold.
constexpr quintptr IdRacine = 0;
constexpr quintptr IdGroupe = 1;
constexpr quintptr IdPoints = 2;

constexpr quintptr IdDe(std::size_t groupe, bool dansPli) { return IdPoints + 2 * groupe + (dansPli ? 1 : 0); }
constexpr std::size_t GroupeDe(quintptr id) { return (id - IdPoints) / 2; }
constexpr bool DansPli(quintptr id) { return id >= IdPoints && (id - IdPoints) % 2 == 1; }
constexpr int LignePli = static_cast<int>(PointsSansPli);

constexpr int Colonnes = 2;
constexpr int ColonneNom = 1;

}  // namespace

ModeleArbre::ModeleArbre(SorteArbre sorte, QObject* parent) : QAbstractItemModel(parent) { arbre_.sorte = sorte; }

void ModeleArbre::Remplit() {
  beginResetModel();
  plis_.clear();
  if (arbre_.sorte == SorteArbre::Initial) {
    Remplissage_Trace_Initial(arbre_);
  } else {
    Remplissage_Trace_Decale(arbre_);
  }
  endResetModel();
}

void ModeleArbre::PoseFond(const QColor& fond) {
  if (fond == fond_) return;
  fond_ = fond;
  couleurs_.clear();
  pastilles_.clear();
}

void ModeleArbre::RacineOuverte(bool ouverte) {
  ouverte_ = ouverte;
  Q_EMIT dataChanged(Racine(), Racine(), {Qt::DecorationRole});
}

void ModeleArbre::RefaitTitres(Code2 code) {
  ovelin::RefaitTitres(arbre_, code);
  for (std::size_t i = 0; i < arbre_.groupes.size(); ++i) {
    const GroupeArbre& g = arbre_.groupes[i];
    if (g.code != code) continue;
    Q_EMIT dataChanged(Groupe(i), Groupe(i).siblingAtColumn(ColonneNom));
    const std::size_t nombre = base::Indice(std::max(g.nombre, 0));
    if (nombre > 0) Q_EMIT dataChanged(Point(i, 0), Point(i, std::min(nombre, PointsSansPli) - 1));
    if (plis_.contains(i)) Q_EMIT dataChanged(Point(i, PointsSansPli), Point(i, nombre - 1));
  }
}

QColor ModeleArbre::Couleur(std::int32_t couleur) const {
  const auto [it, neuve] = couleurs_.try_emplace(couleur);
  // The light grey of what is not milled would turn into a black on white paper, or pass for white on black.
  if (neuve)
    it->second = couleur == CouleurNonFraisee ? GrisLisible(fond_) : TexteLisible(EnCouleur(couleur), fond_);
  return it->second;
}

QModelIndex ModeleArbre::Groupe(std::size_t groupe) const { return index(base::Compte(groupe), 0, Racine()); }

QModelIndex ModeleArbre::Pli(std::size_t groupe) const {
  return arbre_.PointsDuPli(groupe) > 0 ? index(LignePli, 0, Groupe(groupe)) : QModelIndex();
}

QModelIndex ModeleArbre::Point(std::size_t groupe, std::size_t rang) const {
  if (rang >= PointsSansPli) return index(base::Compte(rang - PointsSansPli), 0, Pli(groupe));
  return index(base::Compte(rang), 0, Groupe(groupe));
}

void ModeleArbre::OuvrePli(std::size_t groupe) {
  const std::size_t nombre = arbre_.PointsDuPli(groupe);
  if (nombre == 0 || plis_.contains(groupe)) return;
  beginInsertRows(Pli(groupe), 0, base::Compte(nombre) - 1);
  plis_.insert(groupe);
  endInsertRows();
}

ModeleArbre::Place ModeleArbre::PlaceDe(const QModelIndex& index) {
  const auto ligne = base::Indice(index.row());
  if (!index.isValid() || index.internalId() == IdRacine) return {};
  if (index.internalId() == IdGroupe) return {NiveauNoeud::Sequence, ligne, 0};
  const std::size_t groupe = GroupeDe(index.internalId());
  if (DansPli(index.internalId())) return {NiveauNoeud::Point, groupe, ligne + PointsSansPli};
  if (ligne == PointsSansPli) return {NiveauNoeud::Pli, groupe, 0};
  return {NiveauNoeud::Point, groupe, ligne};
}

QModelIndex ModeleArbre::index(int ligne, int colonne, const QModelIndex& parent) const {
  if (ligne < 0 || colonne < 0 || colonne >= Colonnes || ligne >= rowCount(parent)) return {};
  if (!parent.isValid()) return createIndex(ligne, colonne, IdRacine);
  if (parent.internalId() == IdRacine) return createIndex(ligne, colonne, IdGroupe);
  if (parent.internalId() == IdGroupe) return createIndex(ligne, colonne, IdDe(base::Indice(parent.row()), false));
  return createIndex(ligne, colonne, IdDe(GroupeDe(parent.internalId()), true));
}

QModelIndex ModeleArbre::parent(const QModelIndex& enfant) const {
  if (!enfant.isValid() || enfant.internalId() == IdRacine) return {};
  if (enfant.internalId() == IdGroupe) return createIndex(0, 0, IdRacine);
  const std::size_t groupe = GroupeDe(enfant.internalId());
  if (DansPli(enfant.internalId())) return createIndex(LignePli, 0, IdDe(groupe, false));
  return createIndex(base::Compte(groupe), 0, IdGroupe);
}

int ModeleArbre::rowCount(const QModelIndex& parent) const {
  if (!parent.isValid()) return arbre_.racine.cle.empty() ? 0 : 1;
  if (parent.column() > 0) return 0;
  if (parent.internalId() == IdRacine) return base::Compte(arbre_.groupes.size());
  const auto ligne = base::Indice(parent.row());
  if (parent.internalId() == IdGroupe) {
    if (ligne >= arbre_.groupes.size()) return 0;
    return arbre_.PointsDuPli(ligne) > 0 ? LignePli + 1 : arbre_.groupes[ligne].nombre;
  }
  const Place place = PlaceDe(parent);
  const bool ouvert = place.niveau == NiveauNoeud::Pli && plis_.contains(place.groupe);
  return ouvert ? base::Compte(arbre_.PointsDuPli(place.groupe)) : 0;
}

// A fold shows its mark before its rows are there.
bool ModeleArbre::hasChildren(const QModelIndex& parent) const {
  return rowCount(parent) > 0 || (parent.column() <= 0 && PlaceDe(parent).niveau == NiveauNoeud::Pli);
}

bool ModeleArbre::canFetchMore(const QModelIndex& parent) const {
  const Place place = PlaceDe(parent);
  return place.niveau == NiveauNoeud::Pli && parent.column() == 0 && !plis_.contains(place.groupe);
}

void ModeleArbre::fetchMore(const QModelIndex& parent) {
  if (canFetchMore(parent)) OuvrePli(PlaceDe(parent).groupe);
}

int ModeleArbre::columnCount(const QModelIndex& /*parent*/) const { return Colonnes; }

Qt::ItemFlags ModeleArbre::flags(const QModelIndex& index) const {
  if (!index.isValid()) return Qt::NoItemFlags;
  const NiveauNoeud niveau = PlaceDe(index).niveau;
  // A fold is opened, never chosen: what acts on chosen points must not find one that stands for many.
  if (niveau == NiveauNoeud::Pli) return Qt::ItemIsEnabled;
  const Qt::ItemFlags communs = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
  return niveau == NiveauNoeud::Point ? communs | Qt::ItemNeverHasChildren : communs;
}

// In grey: it says once more, in words, what the figures beside it and the panel hold.
QVariant ModeleArbre::Nom(const Place& place, int role) const {
  if (place.niveau != NiveauNoeud::Sequence) return {};
  if (role == Qt::ForegroundRole) return GrisLisible(fond_);
  // as a tip too: a small window cuts the words short
  if (role == Qt::DisplayRole || role == Qt::ToolTipRole) return QString::fromStdString(arbre_.Nom(place.groupe));
  if (role != Qt::DecorationRole) return {};
  const auto couleur = arbre_.CouleurCalque(place.groupe);
  return couleur ? Pastille(*couleur) : QVariant();
}

// A small square in the colour of the layer, with an edge that shows it on a ground of the same colour.
QVariant ModeleArbre::Pastille(std::uint32_t couleur) const {
  constexpr int Cote = 10;
  QPixmap& pastille = pastilles_[couleur];
  if (pastille.isNull()) {
    const qreal finesse = qGuiApp->devicePixelRatio();
    pastille = QPixmap(QSize(Cote, Cote) * finesse);
    pastille.setDevicePixelRatio(finesse);
    pastille.fill(GrisLisible(fond_));
    QPainter peintre(&pastille);
    peintre.fillRect(1, 1, Cote - 2, Cote - 2, QColor::fromRgb(couleur));
  }
  return pastille;
}

QVariant ModeleArbre::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const bool utile = role == Qt::DisplayRole || role == Qt::ForegroundRole || role == Qt::FontRole ||
                     role == Qt::DecorationRole || role == Qt::ToolTipRole;
  if (!utile) return {};
  const Place place = PlaceDe(index);
  if (index.column() == ColonneNom) return Nom(place, role);
  if (place.niveau == NiveauNoeud::Racine && role == Qt::DecorationRole) {
    return IconeProgramme(QString::fromLatin1(ouverte_ ? arbre_.racine.imageDeveloppe : arbre_.racine.image));
  }
  std::optional<Noeud> noeud = arbre_.racine;
  if (place.niveau == NiveauNoeud::Sequence) noeud = arbre_.Groupe(place.groupe);
  if (place.niveau == NiveauNoeud::Pli) noeud = arbre_.Pli(place.groupe);
  if (place.niveau == NiveauNoeud::Point) noeud = arbre_.Point(place.groupe, place.rang);
  if (!noeud) return {};
  if (role == Qt::DisplayRole) return QString::fromStdString(noeud->texte);
  if (role == Qt::ForegroundRole) return Couleur(noeud->couleur);
  if (role == Qt::FontRole && noeud->gras) {
    QFont gras;
    gras.setBold(true);
    return gras;
  }
  return {};
}

}  // namespace ovelin
