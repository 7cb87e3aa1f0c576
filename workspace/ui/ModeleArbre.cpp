#include "workspace/ui/ModeleArbre.h"

#include <QFont>
#include <QGuiApplication>
#include <QPainter>
#include <optional>

#include "base/Indices.h"
#include "core/ui/Theme.h"

namespace ovelin {

namespace {

// Internal id of an index: the root, a group, and for a point its group behind these two.
constexpr quintptr IdRacine = 0;
constexpr quintptr IdGroupe = 1;
constexpr quintptr IdPoints = 2;

constexpr int Colonnes = 2;
constexpr int ColonneNom = 1;

}  // namespace

ModeleArbre::ModeleArbre(SorteArbre sorte, QObject* parent) : QAbstractItemModel(parent) { arbre_.sorte = sorte; }

void ModeleArbre::Remplit() {
  beginResetModel();
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
    if (g.nombre > 0) Q_EMIT dataChanged(Point(i, 0), Point(i, base::Indice(g.nombre) - 1));
  }
}

QColor ModeleArbre::Couleur(std::int32_t couleur) const {
  const auto [it, neuve] = couleurs_.try_emplace(couleur);
  // The light grey of what is not milled would turn into a black on white paper, or pass for white on black.
  if (neuve)
    it->second = couleur == CouleurNonFraisee ? GrisLisible(fond_) : CouleurLisible(EnCouleur(couleur), fond_);
  return it->second;
}

QModelIndex ModeleArbre::Groupe(std::size_t groupe) const { return index(base::Compte(groupe), 0, Racine()); }

QModelIndex ModeleArbre::Point(std::size_t groupe, std::size_t rang) const {
  return index(base::Compte(rang), 0, Groupe(groupe));
}

ModeleArbre::Place ModeleArbre::PlaceDe(const QModelIndex& index) {
  const auto ligne = base::Indice(index.row());
  if (!index.isValid() || index.internalId() == IdRacine) return {};
  if (index.internalId() == IdGroupe) return {NiveauNoeud::Sequence, ligne, 0};
  return {NiveauNoeud::Point, static_cast<std::size_t>(index.internalId() - IdPoints), ligne};
}

QModelIndex ModeleArbre::index(int ligne, int colonne, const QModelIndex& parent) const {
  if (ligne < 0 || colonne < 0 || colonne >= Colonnes || ligne >= rowCount(parent)) return {};
  if (!parent.isValid()) return createIndex(ligne, colonne, IdRacine);
  if (parent.internalId() == IdRacine) return createIndex(ligne, colonne, IdGroupe);
  return createIndex(ligne, colonne, IdPoints + static_cast<quintptr>(parent.row()));
}

QModelIndex ModeleArbre::parent(const QModelIndex& enfant) const {
  if (!enfant.isValid() || enfant.internalId() == IdRacine) return {};
  if (enfant.internalId() == IdGroupe) return createIndex(0, 0, IdRacine);
  return createIndex(base::Compte(enfant.internalId() - IdPoints), 0, IdGroupe);
}

int ModeleArbre::rowCount(const QModelIndex& parent) const {
  if (!parent.isValid()) return arbre_.racine.cle.empty() ? 0 : 1;
  if (parent.column() > 0) return 0;
  if (parent.internalId() == IdRacine) return base::Compte(arbre_.groupes.size());
  const auto ligne = base::Indice(parent.row());
  if (parent.internalId() != IdGroupe || ligne >= arbre_.groupes.size()) return 0;
  return arbre_.groupes[ligne].nombre;
}

int ModeleArbre::columnCount(const QModelIndex& /*parent*/) const { return Colonnes; }

Qt::ItemFlags ModeleArbre::flags(const QModelIndex& index) const {
  if (!index.isValid()) return Qt::NoItemFlags;
  const Qt::ItemFlags communs = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
  return index.internalId() >= IdPoints ? communs | Qt::ItemNeverHasChildren : communs;
}

// In grey: it says once more, in words, what the figures beside it and the panel hold.
QVariant ModeleArbre::Nom(const Place& place, int role) const {
  if (place.niveau != NiveauNoeud::Sequence) return {};
  if (role == Qt::ForegroundRole) return GrisLisible(fond_);
  if (role == Qt::DisplayRole) return QString::fromStdString(arbre_.Nom(place.groupe));
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
  const bool utile =
      role == Qt::DisplayRole || role == Qt::ForegroundRole || role == Qt::FontRole || role == Qt::DecorationRole;
  if (!utile) return {};
  const Place place = PlaceDe(index);
  if (index.column() == ColonneNom) return Nom(place, role);
  if (place.niveau == NiveauNoeud::Racine && role == Qt::DecorationRole) {
    return IconeProgramme(QString::fromLatin1(ouverte_ ? arbre_.racine.imageDeveloppe : arbre_.racine.image));
  }
  std::optional<Noeud> noeud = arbre_.racine;
  if (place.niveau == NiveauNoeud::Sequence) noeud = arbre_.Groupe(place.groupe);
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
