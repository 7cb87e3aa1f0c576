// Drawing or tool path as a file for other programs: format, source, and the button that asks for the name and
// writes.
#pragma once

#include <QDialog>
#include <array>

class QGroupBox;
class QProgressBar;
class QPushButton;
class QRadioButton;
class QTimer;

namespace ovelin {

class F_Exporter : public QDialog {
  Q_OBJECT
 public:
  explicit F_Exporter(QWidget* parent = nullptr);

 protected:
  void closeEvent(QCloseEvent* e) override;

 private:
  void Construit();
  void Btn_Gener_Fichier_Click();

  std::array<QRadioButton*, 2> Option1_{};  // format: DXF, DAT
  std::array<QRadioButton*, 2> Option2_{};  // source: drawing, tool path
  QPushButton* Btn_Gener_Fichier_ = nullptr;
  QPushButton* Btn_Fermer_ = nullptr;
  QGroupBox* Frame_Avancement_ = nullptr;
  QProgressBar* ProgressBar_Avancement_ = nullptr;
  QTimer* Timer_Avancement_ = nullptr;
};

}  // namespace ovelin
