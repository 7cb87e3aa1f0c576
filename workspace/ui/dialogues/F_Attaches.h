// Attachment points by themselves on the selected paths: so many on each, or one for each so many millimetres.
#pragma once

#include <QDialog>
#include <array>

#include "core/ui/ChampNombre.h"

class QRadioButton;

namespace ovelin {

class F_Attaches : public QDialog {
  Q_OBJECT
 public:
  explicit F_Attaches(QWidget* parent = nullptr);

 private:
  void Construit();
  void Btn_OK_Click();

  std::array<QRadioButton*, 2> Option_Voeu_{};
  std::array<ChampNombre*, 2> champs_{};
};

}  // namespace ovelin
