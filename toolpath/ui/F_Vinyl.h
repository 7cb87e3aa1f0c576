// The drag knife: at which corner or side each closed cut begins and ends, and the lengthening of closed cuts with
// its stroke in the margin. Every choice acts at once.
#pragma once

#include <QDialog>
#include <array>

class QCheckBox;
class QLabel;
class QRadioButton;
class QToolButton;

namespace ovelin {

class F_Vinyl : public QDialog {
  Q_OBJECT
 public:
  explicit F_Vinyl(QWidget* parent = nullptr);

 private:
  void Construit();
  QWidget* Rose();
  void CB_Fleche_Click(int index);
  void CocheFleche(int index);
  void Option1_Click(int index);
  void CocheProlongement(bool actif);
  void MontreFleches(bool visibles);

  std::array<QRadioButton*, 2> Option1_{};
  std::array<QToolButton*, 8> CB_Fleche_{};
  QWidget* rose_ = nullptr;
  QLabel* Lbl_Fleches_ = nullptr;
  QCheckBox* CB_Prolongement_ = nullptr;
  int fleche_ = -1;  // the arrow chosen last
  int option_ = 0;   // of Option1
};

}  // namespace ovelin
