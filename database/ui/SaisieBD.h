// The floating editor of the presets, and the cells under it.
#pragma once

#include <QLineEdit>
#include <QStyledItemDelegate>
#include <QTableWidget>

namespace ovelin {

// One line of text over a cell. In a numeric column it takes digits, the minus sign and one decimal mark, "." and
// "," alike. What Enter, Escape and the other keys of movement do is the window's.
class SaisieBD : public QLineEdit {
  Q_OBJECT
 public:
  explicit SaisieBD(QWidget* parent);

  void Numerique(bool numerique);

 protected:
  void keyPressEvent(QKeyEvent* e) override;

 private:
  bool numerique_ = false;
};

// Paints a frame around the cell that was refused (its data under RoleFaute).
class CellulesBD : public QStyledItemDelegate {
  Q_OBJECT
 public:
  static constexpr int RoleFaute = Qt::UserRole + 1;
  using QStyledItemDelegate::QStyledItemDelegate;
  // Pixels that the widest text of a column takes, with its margins.
  static int Largeur(const QTableWidget& grille, int colonne);
  void paint(QPainter* p, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

}  // namespace ovelin
