// One motion record by hand, with its bytes.
#pragma once

#include <QDialog>
#include <array>

#include "machine/essais/Module_Test.h"

class QLabel;
class QLineEdit;
class QPushButton;

namespace ovelin {

class ChampNombre;

class F_Test : public QDialog {
  Q_OBJECT
 public:
  explicit F_Test(QWidget* parent = nullptr);

 private:
  void Construit();
  [[nodiscard]] SaisieTest Saisie() const;
  void CB_Envoi_Click();

  std::array<ChampNombre*, 3> distances_{};
  QLineEdit* TB_VDeb_ = nullptr;
  ChampNombre* TB_Vitesse_ = nullptr;
  QPushButton* CB_Envoi_ = nullptr;
  QLabel* Lbl_Retour_ = nullptr;
  QLabel* Lbl_Temps_ = nullptr;
};

}  // namespace ovelin
