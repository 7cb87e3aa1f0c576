// The tolerance of the clean-up, beside the machine's resolution.
#pragma once

#include <QDialog>
#include <array>

#include "core/ui/ChampNombre.h"

class QLabel;

namespace ovelin {

class F_Nettoyage : public QDialog {
  Q_OBJECT
 public:
  // Sets the chosen resolution to 0: only the OK of the window chooses one.
  explicit F_Nettoyage(QWidget* parent = nullptr);

 private:
  void Construit();

  std::array<QLabel*, 2> Lbl_Resolution_{};
  ChampNombre* TB_Resolution_ = nullptr;
};

}  // namespace ovelin
