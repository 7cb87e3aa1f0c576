// The parameters of the machine: the tables, their fields, the tests. Free, beside the other windows.
#pragma once

#include <QDialog>
#include <string>

class QComboBox;
class QLabel;
class QPushButton;
class QTabWidget;
class QTimer;

namespace ovelin {

class ControlesTable;
class PageEssai;
class PageSorties;

class F_ParamMachine : public QDialog {
  Q_OBJECT
 public:
  explicit F_ParamMachine(QWidget* parent = nullptr);
  ~F_ParamMachine() override;

  // Before each showing: the table in force and the fields of the test as they are.
  void Form_Load();

 public Q_SLOTS:
  // While a test runs: a beep, and the window stays. Otherwise whatever moves stops, and the table is saved.
  void done(int resultat) override;

 protected:
  void changeEvent(QEvent* e) override;

 private:
  void Construit();
  QLayout* RangeeTable();
  void RemplitTables();
  void ChargeTable(const std::string& nom);
  void Combo_Table_Click(const QString& nom);
  void Cmd_Gestion_Click(int index);
  void SuitMachine();
  void Ferme();

  ControlesTable* controles_ = nullptr;
  QComboBox* Combo_Table_ = nullptr;
  QPushButton* Cmd_Gestion_[3]{};
  QTabWidget* SSTab1_ = nullptr;
  PageSorties* sorties_ = nullptr;
  PageEssai* essai_ = nullptr;
  QLabel* Frame_Avancement_ = nullptr;
  QPushButton* Btn_Fermer_ = nullptr;
  QTimer* suivi_ = nullptr;
  std::string chargee_;  // the table whose fields stand here
  bool ouverte_ = false;
  bool ferme_ = false;  // being closed
};

}  // namespace ovelin
