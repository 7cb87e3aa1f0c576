// Copies of the selection by rows and columns or around a point, with their preview.
#pragma once

#include <QDialog>
#include <array>
#include <optional>

#include "core/ui/ChampNombre.h"
#include "toolpath/chemins/NoyauCopie.h"

class QRadioButton;

namespace ovelin {

class ApercuDimension;

class F_Repeter : public QDialog {
  Q_OBJECT
 public:
  explicit F_Repeter(QWidget* parent = nullptr);

 private:
  void Construit();
  QWidget* Rangees();
  QWidget* Rond();
  void Remplit();  // from the selection
  void Suit();     // the preview follows the fields
  void Btn_OK_Click();
  // What the fields ask for; nothing where one is refused, which then says why.
  std::optional<std::vector<Pose>> Voeu(bool dit);
  std::optional<double> Lit(ChampNombre& champ, double min, double max, bool entier, bool dit);

  Copie copie_;
  std::array<QRadioButton*, 2> Option_Sorte_{};
  std::array<ChampNombre*, 4> rangees_{};  // columns, rows, steps
  std::array<ChampNombre*, 4> rond_{};     // number, angle, middle
  ApercuDimension* apercu_ = nullptr;
};

}  // namespace ovelin
