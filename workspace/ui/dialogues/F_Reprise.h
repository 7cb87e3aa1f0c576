// Work that a program left which died: what it was, from when, and how it looked.
#pragma once

#include <QDialog>
#include <vector>

#include "core/Reprises.h"

class QListWidget;
class QPushButton;
class QVBoxLayout;

namespace ovelin {

class ApercuDimension;

class F_Reprise : public QDialog {
  Q_OBJECT
 public:
  explicit F_Reprise(QWidget* parent = nullptr);

 private:
  void Construit();
  void Remplit();
  void MontreChoix(int rang);
  void Reprend();
  void Jette();

  std::vector<Reprise> reprises_;
  QListWidget* List_Reprises_ = nullptr;
  QVBoxLayout* cadre_ = nullptr;  // where the picture stands
  ApercuDimension* Apercu_ = nullptr;
  QPushButton* Btn_Reprendre_ = nullptr;
  QPushButton* Btn_Jeter_ = nullptr;
};

}  // namespace ovelin
