#include "workspace/ui/ArbreDocument.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScrollBar>
#include <algorithm>
#include <utility>

#include "base/Indices.h"
#include "core/ui/TraduitFenetre.h"
#include "workspace/ui/ModeleArbre.h"

namespace ovelin {

namespace {

constexpr const char* Section = "F_Representation";
constexpr int LargeurChiffres = 23;  // digits: indentation and "12:345pts 284.0x208.0"

}  // namespace

ArbreDocument::ArbreDocument(SorteArbre sorte, QWidget* parent)
    : QTreeView(parent), modele_(new ModeleArbre(sorte, this)) {
  setObjectName(sorte == SorteArbre::Initial ? QStringLiteral("TreeView1") : QStringLiteral("TreeView2"));
  Traduit();
  setHeaderHidden(true);
  setUniformRowHeights(true);
  setAnimated(false);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setSelectionMode(QAbstractItemView::ExtendedSelection);
  setExpandsOnDoubleClick(false);  // the first click has opened it already
  setIndentation(14);
  modele_->PoseFond(palette().color(QPalette::Base));
  setModel(modele_);
  // The figures have the room that they need at most; the words have the rest.
  header()->setStretchLastSection(true);
  header()->resizeSection(0, LargeurChiffres * fontMetrics().horizontalAdvance(QLatin1Char('0')));
  connect(this, &QTreeView::clicked, this, [this](const QModelIndex& index) {
    if (ModeleArbre::PlaceDe(index).niveau == NiveauNoeud::Pli) {
      const QModelIndex pli = index.siblingAtColumn(0);
      setExpanded(pli, !isExpanded(pli));
    } else {
      Choisit(index);
    }
  });
  connect(this, &QTreeView::expanded, this, [this](const QModelIndex& i) { SuitRacine(i, true); });
  connect(this, &QTreeView::collapsed, this, [this](const QModelIndex& i) { SuitRacine(i, false); });
}

void ArbreDocument::Traduit() {
  const bool initial = Donnees().sorte == SorteArbre::Initial;
  const QString nom = TraduireOu(Section, objectName() + QStringLiteral("tt"),
                                 initial ? QStringLiteral("Séquences et points du dessin")
                                         : QStringLiteral("Séquences et points du trajet de l'outil"));
  setAccessibleName(nom);
  setToolTip(nom);
}

Arbre& ArbreDocument::Donnees() { return modele_->Donnees(); }

const Arbre& ArbreDocument::Donnees() const { return std::as_const(*modele_).Donnees(); }

void ArbreDocument::SuitRacine(const QModelIndex& index, bool ouverte) {
  if (ModeleArbre::PlaceDe(index).niveau == NiveauNoeud::Racine) modele_->RacineOuverte(ouverte);
}

// --- filling ---------------------------------------------------------------------------------------------------

std::vector<ArbreDocument::Lignes> ArbreDocument::LignesChoisies() const {
  std::vector<Lignes> lignes;
  for (const QItemSelectionRange& r : selectionModel()->selection()) {
    const ModeleArbre::Place place = ModeleArbre::PlaceDe(r.topLeft());
    if (place.niveau != NiveauNoeud::Point || place.groupe >= Donnees().groupes.size()) continue;
    const GroupeArbre& g = Donnees().groupes[place.groupe];
    // The row of the fold, at the end of a range of the rows below a path, is no point.
    const int debut = base::Compte(place.rang);
    const bool dansPli = place.rang >= PointsSansPli;
    const int fin = debut + r.bottom() - r.top();
    const int derniere = dansPli ? fin : std::min(fin, base::Compte(PointsSansPli) - 1);
    lignes.push_back({place.groupe, g.code, g.nombre, debut, derniere});
  }
  return lignes;
}

// The folds that stand open, as lines of their first point.
std::vector<ArbreDocument::Lignes> ArbreDocument::PlisOuverts() const {
  std::vector<Lignes> plis;
  const int premier = base::Compte(PointsSansPli);
  const auto& groupes = Donnees().groupes;
  for (std::size_t i = 0; i < groupes.size(); ++i) {
    if (Donnees().PointsDuPli(i) == 0 || !isExpanded(modele_->Pli(i))) continue;
    plis.push_back({i, groupes[i].code, groupes[i].nombre, premier, premier});
  }
  return plis;
}

bool ArbreDocument::Tient(const Lignes& l) const {
  const auto& groupes = Donnees().groupes;
  return l.groupe < groupes.size() && groupes[l.groupe].code == l.code && groupes[l.groupe].nombre == l.nombre;
}

void ArbreDocument::Remplit() {
  const int defile = verticalScrollBar()->value();
  std::vector<Lignes> lignes = LignesChoisies();
  std::vector<Lignes> plis = PlisOuverts();
  const ModeleArbre::Place courant = ModeleArbre::PlaceDe(currentIndex());
  modele_->Remplit();
  for (std::vector<Lignes>* gardees : {&lignes, &plis}) {
    std::erase_if(*gardees, [this](const Lignes& l) { return !Tient(l); });
  }
  Deploie(lignes, plis);
  QItemSelection choisis;
  for (const Lignes& l : lignes) {
    choisis.select(modele_->Point(l.groupe, base::Indice(l.premiere)),
                   modele_->Point(l.groupe, base::Indice(l.derniere)));
    if (courant.niveau == NiveauNoeud::Point && courant.groupe == l.groupe) {
      selectionModel()->setCurrentIndex(modele_->Point(l.groupe, courant.rang), QItemSelectionModel::NoUpdate);
    }
  }
  if (choisis.isEmpty()) {
    choisis = GroupesChoisis();
    if (!choisis.isEmpty()) {
      selectionModel()->setCurrentIndex(choisis.constLast().topLeft(), QItemSelectionModel::NoUpdate);
    }
  }
  selectionModel()->select(choisis, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
  verticalScrollBar()->setValue(defile);
}

void ArbreDocument::RefaitTitres(Code2 code) { modele_->RefaitTitres(code); }

void ArbreDocument::SuitSelection() {
  const std::int32_t derniere = Deploie({}, PlisOuverts());
  selectionModel()->select(GroupesChoisis(), QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
  if (derniere < 0) return;
  const auto& groupes = Donnees().groupes;
  const ModeleArbre::Place courant = ModeleArbre::PlaceDe(currentIndex());
  const bool dessus = currentIndex().isValid() && courant.niveau != NiveauNoeud::Racine &&
                      courant.groupe < groupes.size() && groupes[courant.groupe].selectionne;
  const std::size_t groupe = dessus ? courant.groupe : base::Indice(derniere);
  if (!dessus) selectionModel()->setCurrentIndex(modele_->Groupe(groupe), QItemSelectionModel::NoUpdate);
  // The first point, then the headline above it: the later one wins where there is little room.
  scrollTo(modele_->Point(groupe, 0));
  scrollTo(modele_->Groupe(groupe));
}

QItemSelection ArbreDocument::GroupesChoisis() const {
  const auto& groupes = Donnees().groupes;
  QItemSelection choisis;
  for (std::size_t i = 0; i < groupes.size(); ++i) {
    if (!groupes[i].selectionne) continue;
    const std::size_t premier = i;
    while (i + 1 < groupes.size() && groupes[i + 1].selectionne) ++i;
    choisis.append(QItemSelectionRange(modele_->Groupe(premier), modele_->Groupe(i)));
  }
  return choisis;
}

// Opens the selected paths and those of `lignes`, and of these the folds `plis` and those that `lignes` lie in;
// closes the others, and gives the last selected one or -1. All at once: each opening by itself would lay the lines
// below it out anew.
std::int32_t ArbreDocument::Deploie(const std::vector<Lignes>& lignes, const std::vector<Lignes>& plis) {
  const std::int32_t derniere = MarqueSelection(Donnees());
  collapseAll();
  scheduleDelayedItemsLayout();
  expand(modele_->Racine());
  const auto& groupes = Donnees().groupes;
  for (std::size_t i = 0; i < groupes.size(); ++i) {
    if (groupes[i].selectionne) expand(modele_->Groupe(i));
  }
  for (const Lignes& l : lignes) expand(modele_->Groupe(l.groupe));
  for (const std::vector<Lignes>* dedans : {&lignes, &plis}) {
    for (const Lignes& l : *dedans) {
      if (base::Indice(l.premiere) < PointsSansPli || !isExpanded(modele_->Groupe(l.groupe))) continue;
      modele_->OuvrePli(l.groupe);
      expand(modele_->Pli(l.groupe));
    }
  }
  executeDelayedItemsLayout();
  viewport()->update();
  return derniere;
}

std::vector<std::int32_t> ArbreDocument::PointsChoisis() const {
  std::vector<std::int32_t> points;
  if (Donnees().sorte != SorteArbre::Initial) return points;
  for (const Lignes& l : LignesChoisies()) {
    for (int rang = l.premiere; rang <= l.derniere; ++rang) {
      if (Donnees().PointDocument(l.groupe, base::Indice(rang)) == nullptr) break;
      points.push_back(Donnees().groupes[l.groupe].premier + rang);
    }
  }
  std::sort(points.begin(), points.end());
  points.erase(std::unique(points.begin(), points.end()), points.end());
  return points;
}

// --- mouse and keys --------------------------------------------------------------------------------------------

void ArbreDocument::Choisit(const QModelIndex& index) {
  const ModeleArbre::Place place = ModeleArbre::PlaceDe(index);
  const bool choisissable = place.niveau == NiveauNoeud::Point || place.niveau == NiveauNoeud::Sequence;
  if (!index.isValid() || !choisissable) return;
  const ResultatClic resultat = place.niveau == NiveauNoeud::Point ? ClicPoint(Donnees(), place.groupe, place.rang)
                                                                   : ClicSequence(Donnees(), place.groupe);
  if (resultat.fait) Q_EMIT Clic(resultat);
}

// Opening a fold leaves chosen what is.
QItemSelectionModel::SelectionFlags ArbreDocument::selectionCommand(const QModelIndex& index,
                                                                    const QEvent* e) const {
  if (ModeleArbre::PlaceDe(index).niveau == NiveauNoeud::Pli) return QItemSelectionModel::NoUpdate;
  return QTreeView::selectionCommand(index, e);
}

// A line that is reached with the keys counts as clicked.
void ArbreDocument::keyPressEvent(QKeyEvent* e) {
  const QPersistentModelIndex avant = currentIndex();
  QTreeView::keyPressEvent(e);
  if (currentIndex().isValid() && currentIndex() != avant) Choisit(currentIndex());
}

// The menu is about the line below the pointer. A path that is among the selected ones already leaves them as they
// are, so that the menu acts on all of them.
void ArbreDocument::contextMenuEvent(QContextMenuEvent* e) {
  e->accept();
  if (e->reason() == QContextMenuEvent::Keyboard) {
    const QRect ligne = visualRect(currentIndex());
    Q_EMIT MenuContexte(viewport()->mapToGlobal(ligne.isValid() ? ligne.center() : QPoint(0, 0)));
    return;
  }
  const QModelIndex index = indexAt(viewport()->mapFromGlobal(e->globalPos()));
  const ModeleArbre::Place place = ModeleArbre::PlaceDe(index);
  const bool choisie = place.niveau == NiveauNoeud::Sequence && place.groupe < Donnees().groupes.size() &&
                       Donnees().groupes[place.groupe].selectionne;
  const bool plusieurs =
      place.niveau == NiveauNoeud::Point && selectionModel()->isSelected(index) && PointsChoisis().size() > 1;
  if (!choisie && !plusieurs) Choisit(index);
  Q_EMIT MenuContexte(e->globalPos());
}

void ArbreDocument::changeEvent(QEvent* e) {
  QTreeView::changeEvent(e);
  if (e->type() != QEvent::PaletteChange) return;
  modele_->PoseFond(palette().color(QPalette::Base));
  viewport()->update();
}

}  // namespace ovelin
