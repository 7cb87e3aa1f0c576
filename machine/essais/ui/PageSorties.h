// The outputs of the board: the kind of interface, the presets, what each output carries.
#pragma once

#include <QWidget>
#include <vector>

class QComboBox;
class QGroupBox;
class QListWidget;

namespace ovelin {

class ControlesTable;

class PageSorties : public QWidget {
  Q_OBJECT
 public:
  explicit PageSorties(ControlesTable& controles, QWidget* parent = nullptr);

  // The items of the outputs in the language in force.
  void Traduit();

 private:
  QWidget* GroupeInterface();
  QWidget* GroupeSorties();
  void LB_Interf_Gener_Click();
  void SuitInterface();

  ControlesTable& controles_;
  QComboBox* Combo_SAV_0_ = nullptr;
  QListWidget* LB_Interf_Gener_ = nullptr;
  std::vector<QComboBox*> sorties_;
  std::vector<QWidget*> cachees_;  // without an interface: its inversions and the labels of the grid
};

}  // namespace ovelin
