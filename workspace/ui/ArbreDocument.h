// The trees `TreeView1` and `TreeView2` of the main window.
#pragma once

#include <QTreeView>
#include <cstdint>
#include <vector>

#include "workspace/Module_Arbres.h"

namespace ovelin {

class ModeleArbre;

class ArbreDocument : public QTreeView {
  Q_OBJECT
 public:
  explicit ArbreDocument(SorteArbre sorte, QWidget* parent = nullptr);

  // Remplissage_Trace_Initial or _Decale: the tree is made anew and follows the selection. The place that was in
  // sight stays there.
  void Remplit();
  // A point of that path has another place: its headline follows, nothing is filled anew.
  void RefaitTitres(Code2 code);
  // Its texts in the language in force.
  void Traduit();
  // Selected paths expanded, in sight, their first point bold; the others collapsed.
  void SuitSelection();
  [[nodiscard]] Arbre& Donnees();
  [[nodiscard]] const Arbre& Donnees() const;
  // Indices in TraceInitial of the point lines that are selected, rising; none in the tree of the tool path.
  [[nodiscard]] std::vector<std::int32_t> PointsChoisis() const;

 Q_SIGNALS:
  // A line was clicked, or reached with the keyboard. That of a fold says nothing: a click opens or closes it.
  void Clic(const ovelin::ResultatClic& resultat);
  void MenuContexte(const QPoint& ecran);

 protected:
  [[nodiscard]] QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                                     const QEvent* e = nullptr) const override;
  void keyPressEvent(QKeyEvent* e) override;
  void contextMenuEvent(QContextMenuEvent* e) override;
  void changeEvent(QEvent* e) override;

 private:
  // Chosen lines of points, and what their path must still be for them to mean the same after a filling.
  struct Lignes {
    std::size_t groupe = 0;
    Code2 code;
    std::int32_t nombre = 0;
    int premiere = 0, derniere = 0;
  };
  [[nodiscard]] std::vector<Lignes> LignesChoisies() const;
  [[nodiscard]] bool Tient(const Lignes& l) const;
  [[nodiscard]] QItemSelection GroupesChoisis() const;
  [[nodiscard]] std::vector<Lignes> PlisOuverts() const;
  std::int32_t Deploie(const std::vector<Lignes>& lignes, const std::vector<Lignes>& plis);
  void Choisit(const QModelIndex& index);
  void SuitRacine(const QModelIndex& index, bool ouverte);

  ModeleArbre* modele_;
};

}  // namespace ovelin
