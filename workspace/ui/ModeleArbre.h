// The lines of a tree of the main window as a model: those of the points are made when they are looked at.
#pragma once

#include <QAbstractItemModel>
#include <QColor>
#include <QPixmap>
#include <cstdint>
#include <unordered_map>
#include <unordered_set>

#include "workspace/Module_Arbres.h"

namespace ovelin {

// Two columns: the line of the tree, and beside that of a path what it is in words, with the colour of its layer.
// One root, below it a row for each group, below that one for each of its first points and one for the fold of the
// others, whose rows are there once it has been opened.
class ModeleArbre : public QAbstractItemModel {
  Q_OBJECT
 public:
  explicit ModeleArbre(SorteArbre sorte, QObject* parent = nullptr);

  void Remplit();
  [[nodiscard]] Arbre& Donnees() { return arbre_; }
  [[nodiscard]] const Arbre& Donnees() const { return arbre_; }
  // Ground of the lines: their colours are lifted from it.
  void PoseFond(const QColor& fond);
  // The root shows its open image.
  void RacineOuverte(bool ouverte);
  // A point of that path has changed its place: its headline and its lines are read anew, the rest stays.
  void RefaitTitres(Code2 code);

  [[nodiscard]] QModelIndex Racine() const { return index(0, 0); }
  [[nodiscard]] QModelIndex Groupe(std::size_t groupe) const;
  [[nodiscard]] QModelIndex Pli(std::size_t groupe) const;
  // Invalid for a point of a fold that has not been opened.
  [[nodiscard]] QModelIndex Point(std::size_t groupe, std::size_t rang) const;
  // The rows of the fold are there from now on, until the next filling.
  void OuvrePli(std::size_t groupe);
  // What an index stands for. `groupe` counts for a path, its fold and a point, `rang` for a point.
  struct Place {
    NiveauNoeud niveau = NiveauNoeud::Racine;
    std::size_t groupe = 0, rang = 0;
  };
  [[nodiscard]] static Place PlaceDe(const QModelIndex& index);

  [[nodiscard]] QModelIndex index(int ligne, int colonne, const QModelIndex& parent = {}) const override;
  [[nodiscard]] QModelIndex parent(const QModelIndex& enfant) const override;
  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] bool hasChildren(const QModelIndex& parent = {}) const override;
  [[nodiscard]] bool canFetchMore(const QModelIndex& parent) const override;
  void fetchMore(const QModelIndex& parent) override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

 private:
  [[nodiscard]] QVariant Nom(const Place& place, int role) const;
  [[nodiscard]] QVariant Pastille(std::uint32_t couleur) const;
  [[nodiscard]] QColor Couleur(std::int32_t couleur) const;

  Arbre arbre_;
  QColor fond_ = Qt::white;
  bool ouverte_ = false;
  std::unordered_set<std::size_t> plis_;  // groups whose fold has been opened
  mutable std::unordered_map<std::int32_t, QColor> couleurs_;
  mutable std::unordered_map<std::uint32_t, QPixmap> pastilles_;  // by the colours of the layers
};

}  // namespace ovelin
