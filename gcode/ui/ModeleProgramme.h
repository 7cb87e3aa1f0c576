// The lines of a program as a list: number, text, and the number of the move that a run made of the line.
#pragma once

#include <QAbstractTableModel>
#include <QColor>
#include <cstdint>
#include <vector>

#include "gcode/Programme.h"

namespace ovelin {

class ModeleProgramme : public QAbstractTableModel {
  Q_OBJECT
 public:
  enum Colonne { Numero, Texte, Mouvement, NombreColonnes };

  explicit ModeleProgramme(QObject* parent = nullptr);

  // The program has to outlive the model, or be replaced; it is not copied.
  void Montre(const Programme* programme);
  // Only lines that are neither valid nor comments.
  void Filtre(bool refusees);
  // The number of the move that line `ligne`, from 0, has made.
  void Mouvements(std::size_t ligne, std::uint32_t numero);
  void EffaceMouvements();
  // The row that shows a line, -1 when the filter hides it; and the line of a row.
  [[nodiscard]] int RangeeDe(std::size_t ligne) const;
  [[nodiscard]] std::size_t LigneDe(int rangee) const;
  // The paper that the texts are read on; colours are lifted from it.
  void Papier(const QColor& papier);

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  bool setHeaderData(int section, Qt::Orientation orientation, const QVariant& valeur, int role) override;

 private:
  [[nodiscard]] QVariant Couleur(Jugement jugement) const;

  const Programme* programme_ = nullptr;
  bool filtre_ = false;
  std::vector<std::uint32_t> refusees_;    // lines that the filter leaves
  std::vector<std::uint32_t> mouvements_;  // by line, 0: none; empty before a run
  QStringList titres_;
  QColor papier_{Qt::white};
};

}  // namespace ovelin
